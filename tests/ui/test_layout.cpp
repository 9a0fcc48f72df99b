#include <gtest/gtest.h>

#include "ui/layout.h"

namespace veloria {
namespace {

WindowLayout first(int w = 1280, int h = 720) {
    PanelSizes sizes;
    initPanelSizes(sizes, w);
    return windowLayout(sizes, w, h);
}

bool same(const SDL_Rect& a, const SDL_Rect& b) {
    return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
}

TEST(Layout, TheFirstFrameWithAWidthSetsThePanelsOnceAndForAll) {
    PanelSizes sizes;
    initPanelSizes(sizes, 0);
    EXPECT_FALSE(sizes.layoutReady);
    initPanelSizes(sizes, 1280);
    EXPECT_EQ(sizes.leftWidth, 400);
    EXPECT_EQ(sizes.rightX, 880);
    EXPECT_EQ(sizes.recorderHeight, 340);
    initPanelSizes(sizes, 1920);
    EXPECT_EQ(sizes.rightX, 880);
}

TEST(Layout, At1280By720TheCentreStarts480Wide) {
    const WindowLayout layout = first();
    EXPECT_EQ(layout.contentBottom, 350);
    EXPECT_TRUE(same(layout.leftPanel, {0, 32, 400, 318}));
    EXPECT_TRUE(same(layout.centre, {401, 32, 478, 318}));
    EXPECT_TRUE(same(layout.rightPanel, {880, 32, 400, 318}));
    EXPECT_TRUE(same(layout.recorder, {0, 350, 1280, 340}));
    EXPECT_TRUE(same(layout.statusBar, {0, 690, 1280, 30}));
    EXPECT_TRUE(same(layout.topBar, {0, 0, 1280, 32}));
}

TEST(Layout, AWiderWindowLeavesTheRightPanelsEdgeWhereItWas) {
    PanelSizes sizes;
    initPanelSizes(sizes, 1280);
    const WindowLayout wide = windowLayout(sizes, 1920, 1080);
    EXPECT_EQ(wide.rightX, 880);
    EXPECT_EQ(wide.rightPanel.w, 1040);
}

TEST(Layout, ASmallWindowShowsWhatFitsOfTheStoredSizes) {
    const struct {
        PanelSizes stored;
        int w, h;
        int left, right, recorder;
    } cases[] = {
        {{true, 400, 880, 340}, 1280, 720, 400, 880, 340},
        {{true, 400, 880, 340}, 885, 720, 400, 685, 340},
        {{true, 400, 880, 340}, 800, 600, 400, 600, 340},
        {{true, 400, 400, 340}, 800, 600, 400, 520, 340},   // as a window of 800 begins
        {{true, 680, 1280, 880}, 800, 600, 480, 600, 400},  // as far as each can be dragged in a large one
        {{true, 680, 1280, 880}, 1280, 720, 680, 1080, 520},
        {{true, 680, 1280, 880}, 1920, 1080, 680, 1280, 880},
        {{true, 0, 100, 150}, 800, 600, 0, 120, 150},
        {{true, 400, 880, 340}, 300, 300, 0, 120, 150},  // smaller than any window may be made
    };
    for (const auto& c : cases) {
        const WindowLayout layout = windowLayout(c.stored, c.w, c.h);
        EXPECT_EQ(layout.leftWidth, c.left) << c.w;
        EXPECT_EQ(layout.leftPanel.w, c.left) << c.w;
        EXPECT_EQ(layout.rightX, c.right) << c.w;
        EXPECT_EQ(layout.rightPanel.x, c.right) << c.w;
        EXPECT_EQ(layout.rightPanel.w, c.w - c.right) << c.w;
        EXPECT_EQ(layout.centre.x, c.left + 1) << c.w;
        EXPECT_EQ(layout.centre.w, c.right - c.left - 2) << c.w;
        EXPECT_EQ(layout.recorder.h, c.recorder) << c.w;
        EXPECT_EQ(layout.recorder.y, layout.contentBottom) << c.w;
        EXPECT_EQ(layout.contentBottom, c.h - 30 - c.recorder) << c.w;
    }
}

TEST(Layout, TopBarButtonsStandInARow) {
    const WindowLayout layout = first();
    EXPECT_TRUE(same(topBarButtonRect(layout, kLoadButton), {502, 4, 160, 24}));
    EXPECT_TRUE(same(topBarButtonRect(layout, kStopButton), {666, 4, 36, 24}));
    EXPECT_TRUE(same(topBarButtonRect(layout, kPlayButton), {706, 4, 36, 24}));
    EXPECT_TRUE(same(topBarButtonRect(layout, kResetButton), {746, 4, 36, 24}));
    EXPECT_EQ(fileNamePlace(layout).x, 792);
}

TEST(Layout, TheLastTabTakesWhatRemainsButItsRemainderTakesNoClick) {
    const WindowLayout layout = first();
    EXPECT_TRUE(same(leftTabRect(layout, 0), {0, 32, 66, 28}));
    EXPECT_TRUE(same(leftTabRect(layout, 5), {330, 32, 70, 28}));
    EXPECT_EQ(leftTabAt(layout, 0, 32), 0);
    EXPECT_EQ(leftTabAt(layout, 65, 59), 0);
    EXPECT_EQ(leftTabAt(layout, 66, 59), 1);
    EXPECT_EQ(leftTabAt(layout, 395, 40), 5);
    EXPECT_EQ(leftTabAt(layout, 396, 40), -1);
    EXPECT_EQ(leftTabAt(layout, 10, 60), -1);
    EXPECT_EQ(leftTabAt(layout, 10, 31), -1);
    EXPECT_EQ(leftTabAt(layout, 400, 40), -1);
}

TEST(Layout, APanelTooNarrowForTabsHasNone) {
    PanelSizes sizes{true, 5, 880, 340};
    EXPECT_EQ(leftTabAt(windowLayout(sizes, 1280, 720), 2, 40), -1);
}

TEST(Layout, ButtonsOfTheTuningTabFollowTheirTable) {
    const WindowLayout layout = first();  // W = 230
    EXPECT_TRUE(same(leftButtonRect(layout, "Original Midi"), {5, 68, 230, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "Sacred Optimizer"), {5, 102, 230, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "FFT Off"), {5, 150, 74, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "FFT Full"), {5, 180, 113, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "FFT Peak"), {122, 180, 113, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "Bass Filter"), {5, 242, 230, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "MIDI Normalize"), {5, 274, 230, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "Heart"), {5, 312, 74, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "Trinity"), {83, 312, 74, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "Fibonacci"), {161, 312, 74, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "DNA Spiral"), {5, 346, 230, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "Import MIDI"), {240, 274, 140, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "Triangle"), {5, 176, 230, 32}));
    EXPECT_TRUE(same(leftButtonRect(layout, "SPEC 1"), {5, 68, 230, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "SCOPE"), {5, 292, 230, 28}));
    EXPECT_TRUE(same(leftButtonRect(layout, "SHADOW"), {5, 356, 230, 28}));
    EXPECT_TRUE(isEmpty(leftButtonRect(layout, "no such button")));
}

TEST(Layout, TheImportButtonIsThereOnlyWhereItHasRoom) {
    PanelSizes sizes{true, 305, 880, 340};  // 305 - 230 - 15 = 60
    EXPECT_EQ(leftButtonRect(windowLayout(sizes, 1280, 720), "Import MIDI").w, 60);
    sizes.leftWidth = 304;
    EXPECT_TRUE(isEmpty(leftButtonRect(windowLayout(sizes, 1280, 720), "Import MIDI")));
}

TEST(Layout, TheSelectorIsFlushWithTheButtonsAtFullWidth) {
    EXPECT_TRUE(same(tuningLayout(first()).selector, {83, 150, 152, 28}));
    PanelSizes sizes{true, 210, 880, 340};  // A = 200
    EXPECT_TRUE(same(tuningLayout(windowLayout(sizes, 1280, 720)).selector, {73, 150, 127, 28}));
}

TEST(Layout, TheTuningSlidersGoByAWidthOfTheirOwn) {
    const TuningLayout tuning = tuningLayout(first());
    EXPECT_TRUE(same(tuning.strength, {8, 228, 214, 6}));
    EXPECT_TRUE(same(tuning.speed, {8, 394, 214, 6}));
    EXPECT_TRUE(same(tuning.gainLeft, {22, 434, 200, 6}));
    EXPECT_TRUE(same(tuning.gainRight, {22, 456, 200, 6}));
    PanelSizes sizes{true, 60, 880, 340};
    EXPECT_TRUE(isEmpty(tuningLayout(windowLayout(sizes, 1280, 720)).strength));
}

TEST(Layout, ALineBehindTheGainsEndsInsideThePanel) {
    const auto place = [](int panel, int width) {
        return lineBehindGainsX(windowLayout({true, panel, 880, 340}, 1280, 720), width);
    };
    EXPECT_EQ(place(400, 100), 266);
    EXPECT_EQ(place(400, 130), 266);
    EXPECT_EQ(place(400, 131), 265);
    EXPECT_EQ(place(400, 388), 8);
    EXPECT_EQ(place(400, 500), 8);
    EXPECT_EQ(place(330, 136), 190);
    EXPECT_EQ(place(329, 20), 8);
}

TEST(Layout, RowsTakeClicksInsideTheRightPanelOnly) {
    const WindowLayout layout = first();
    EXPECT_TRUE(same(rowHitArea(layout), {881, 59, 396, 291}));
    const GridLayout grid = rowGrid(layout, kAvatarRowsTop, 0);
    EXPECT_EQ(grid.columns, 2);  // (400 - 12) / 160
    EXPECT_EQ(grid.cellWidth, 192);
    EXPECT_TRUE(same(gridCell(grid, 3), {883 + 195, 84 + 43, 192, 40}));
    // 81 rows in 41 lines; the limit counts from 69, so the last line stays 12 pixels short of its foot.
    EXPECT_EQ(maxRowScroll(layout, 81), 41 * 43 - 350 + 69);
    EXPECT_EQ(maxRowScroll(layout, 1), 0);
}

TEST(Layout, FxSlidersTakeClicksInTheirBandsBothEndsInside) {
    const WindowLayout layout = first(1280, 1080);
    EXPECT_EQ(fxSliderAt(layout, 13, 104), kFxFibonacci);
    EXPECT_EQ(fxSliderAt(layout, 223, 130), kFxFibonacci);
    EXPECT_EQ(fxSliderAt(layout, 12, 110), -1);
    EXPECT_EQ(fxSliderAt(layout, 224, 110), -1);
    EXPECT_EQ(fxSliderAt(layout, 100, 131), -1);
    EXPECT_EQ(fxSliderAt(layout, 100, 170), kFxPi);
    EXPECT_EQ(fxSliderAt(layout, 100, 262), kFxTesla);
    EXPECT_EQ(fxSliderAt(layout, 100, 302), kFxOctave);
    EXPECT_EQ(fxSliderAt(layout, 100, 394), kFxPhi);
    EXPECT_EQ(fxSliderAt(layout, 100, 450), kFxFibPhase);
    EXPECT_EQ(fxSliderAt(layout, 100, 542), kFxTeslaPhase);
    EXPECT_EQ(fxSliderAt(layout, 100, 574), kFxVolume);
    EXPECT_EQ(fxSliderAt(layout, 100, 601), -1);
}

TEST(Layout, SplittersReachFourPixelsToEitherSide) {
    const WindowLayout layout = first();
    EXPECT_EQ(splitterAt(layout, 640, 346), Splitter::Recorder);
    EXPECT_EQ(splitterAt(layout, 640, 354), Splitter::Recorder);
    EXPECT_EQ(splitterAt(layout, 640, 355), Splitter::None);
    EXPECT_EQ(splitterAt(layout, 396, 100), Splitter::Left);
    EXPECT_EQ(splitterAt(layout, 404, 32), Splitter::Left);
    EXPECT_EQ(splitterAt(layout, 405, 100), Splitter::None);
    EXPECT_EQ(splitterAt(layout, 884, 100), Splitter::Right);
    EXPECT_EQ(splitterAt(layout, 400, 31), Splitter::None);
    EXPECT_EQ(splitterAt(layout, 400, 350), Splitter::Recorder);  // the recorder's band wins where they cross
}

TEST(Layout, VoicesSubTabsDivideOnePixelLeftOfTheMiddle) {
    const WindowLayout layout = first();
    EXPECT_EQ(voicesSubTabAt(layout, 3, 59), 0);
    EXPECT_EQ(voicesSubTabAt(layout, 198, 80), 0);
    EXPECT_EQ(voicesSubTabAt(layout, 199, 80), 1);
    EXPECT_EQ(voicesSubTabAt(layout, 396, 70), 1);
    EXPECT_EQ(voicesSubTabAt(layout, 397, 70), -1);
    EXPECT_EQ(voicesSubTabAt(layout, 2, 70), -1);
    EXPECT_EQ(voicesSubTabAt(layout, 100, 81), -1);
    EXPECT_TRUE(same(voicesSubTabRect(layout, 0), {3, 59, 196, 22}));
    EXPECT_TRUE(same(voicesSubTabRect(layout, 1), {201, 59, 196, 22}));
}

TEST(Layout, TheRightPanelsTabsAreItsHalves) {
    const WindowLayout layout = first();
    EXPECT_EQ(tableTabAt(layout, 880, 32), 0);
    EXPECT_EQ(tableTabAt(layout, 1079, 57), 0);
    EXPECT_EQ(tableTabAt(layout, 1080, 57), 1);
    EXPECT_EQ(tableTabAt(layout, 1080, 58), -1);
    EXPECT_EQ(tableTabAt(layout, 879, 40), -1);
    EXPECT_EQ(avatarSubTabAt(layout, 900, 59), 0);
    EXPECT_EQ(avatarSubTabAt(layout, 1279, 83), 1);
    EXPECT_EQ(avatarSubTabAt(layout, 900, 84), -1);
}

}  // namespace
}  // namespace veloria
