#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/ui/app_fixture.h"
#include "tests/ui/text_probe.h"
#include "ui/draw.h"

namespace veloria {
namespace {

using test::isColor;
using test::isFilled;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kPanel{64, 64, 64, 255};
constexpr SDL_Color kActive{78, 78, 78, 255};
constexpr SDL_Color kIdle{58, 58, 58, 255};
constexpr SDL_Color kBorder{30, 30, 30, 255};

SDL_Color border(int alpha, SDL_Color below) {
    return over({kBorder.r, kBorder.g, kBorder.b, static_cast<Uint8>(alpha)}, below);
}

class LeftPanel : public test::AppTest {
  protected:
    Picture frame() {
        clear();
        drawLeftPanelFrame(app);
        return picture();
    }
    Picture about() {
        clear();
        drawSysTab(app);
        return picture();
    }
};

TEST_F(LeftPanel, ReachesFromTheTopBarToTheRecorder) {
    const Picture seen = frame();  // 400 wide, the recorder begins at 720 - 30 - 340 = 350
    EXPECT_TRUE(isFilled(seen, {0, 61, 400, 289}, kPanel));
    EXPECT_TRUE(isFilled(seen, {400, 32, 1, 318}, border(200, kBackdrop)));
    EXPECT_EQ(seen.at(200, 31), kBackdrop);
    EXPECT_EQ(seen.at(200, 350), kBackdrop);
    EXPECT_EQ(seen.at(401, 200), kBackdrop);
}

TEST_F(LeftPanel, TheShownTabIsBrightAndUnderlinedInItsColour) {
    const SDL_Color underlines[] = {{110, 110, 200, 230}, {60, 160, 110, 230},  {160, 110, 70, 230},
                                    {255, 215, 100, 230}, {100, 140, 180, 230}, {70, 80, 150, 230}};
    for (int mode = 0; mode < 6; ++mode) {
        app.viewMode = mode;
        const Picture seen = frame();
        for (int tab = 0; tab < 6; ++tab) {
            EXPECT_TRUE(isColor(seen.at(66 * tab + 3, 40), tab == mode ? kActive : kIdle)) << mode << tab;
        }
        const int width = mode == 5 ? 70 : 66;  // the last takes what is left
        EXPECT_TRUE(isFilled(seen, {66 * mode + 1, 58, width - 2, 2}, over(underlines[mode], kActive)))
            << mode;
        EXPECT_TRUE(isColor(seen.at(66 * mode + width - 1, 58), kActive));
    }
}

TEST_F(LeftPanel, TabsArePartedByLines) {
    const Picture seen = frame();
    for (int tab = 1; tab < 6; ++tab)
        EXPECT_TRUE(isFilled(seen, {66 * tab, 32, 1, 28}, border(160, kIdle))) << tab;
    EXPECT_TRUE(isFilled(seen, {0, 32, 1, 28}, border(160, kActive)));
    EXPECT_TRUE(isFilled(seen, {1, 60, 65, 1}, border(200, kPanel)));
    EXPECT_TRUE(isColor(seen.at(399, 60), border(200, kPanel)));
}

TEST_F(LeftPanel, TabsCarryTheirCaptions) {
    const char* captions[] = {"TUNING", "WAVE", "FX", "VOICES", "VIZ", "SYS"};
    app.viewMode = 3;
    const Picture seen = frame();
    TTF_Font* font = app.fonts.fontTab;
    for (int tab = 0; tab < 6; ++tab) {
        const SDL_Rect rect{66 * tab, 32, tab == 5 ? 70 : 66, 28};
        const SDL_Point place = test::centredPlace(captions[tab], rect, font);
        const bool active = tab == 3;
        EXPECT_TRUE(isText(seen, active ? kActive : kIdle, captions[tab], place.x, place.y, font,
                           active ? SDL_Color{230, 230, 230, 255} : SDL_Color{160, 160, 160, 255}));
    }
}

TEST_F(LeftPanel, AnOddWidthLeavesItsRestToTheLastTab) {
    setLeftWidth(405);  // 67 each, the last 70
    app.viewMode = 5;
    const Picture seen = frame();
    EXPECT_TRUE(isColor(seen.at(336, 45), kActive));
    EXPECT_TRUE(isColor(seen.at(404, 45), kActive));
    EXPECT_TRUE(isColor(seen.at(405, 45), border(200, kBackdrop)));
}

TEST_F(LeftPanel, NothingIsDrawnAtTenPixels) {
    setLeftWidth(10);
    EXPECT_TRUE(isFilled(frame(), {0, 0, 40, 400}, kBackdrop));
    EXPECT_TRUE(isFilled(about(), {0, 0, 300, 400}, kBackdrop));
    setLeftWidth(11);
    EXPECT_TRUE(isColor(frame().at(5, 200), kPanel));
}

TEST_F(LeftPanel, ARecorderOverAllLeavesNothingOfIt) {
    for (const int bottom : {32, 20, -60}) {
        const int height = bottom + kMinimumRecorder + kStatusBarHeight;
        resize(1280, height);
        ASSERT_EQ(app.layout.contentBottom, bottom);
        EXPECT_TRUE(isFilled(frame(), {0, 0, 500, height}, kBackdrop)) << bottom;
        EXPECT_TRUE(isFilled(about(), {0, 0, 500, height}, kBackdrop)) << bottom;
    }
}

TEST_F(LeftPanel, SysTellsWhatTheProgramIs) {
    constexpr SDL_Color kFact{150, 150, 220, 185};
    const struct {
        int y;
        const char* text;
        SDL_Color color;
    } lines[] = {{106, "V3.6", {180, 180, 220, 200}},
                 {129, "342 Frequency System", {130, 200, 255, 210}},
                 {146, "162 Avatar (81 Ref + 81 Rot)", kFact},
                 {163, "180 Shadow (216-36 Conv)", kFact},
                 {180, "Stereo: L=Reflect R=Rotate", kFact},
                 {197, "Binaural Beat Engine (auto)", {180, 130, 255, 200}},
                 {214, "Fib/Pi/Tesla/PHI Harmonics", kFact},
                 {231, "Sacred Optimizer (Pure Snap)", kFact},
                 {248, "256 Voice Polyphony", kFact},
                 {265, "MIDI Recorder + WAV Export", kFact},
                 {282, "Tesla 3D + Kathara View", kFact},
                 {305, "Written in C++20 with SDL2", {120, 120, 180, 150}},
                 {322, "SDL2_ttf for text, minimp3 for MP3", {120, 120, 180, 150}}};
    const Picture seen = about();
    for (const auto& line : lines)
        EXPECT_TRUE(isText(seen, kBackdrop, line.text, 14, line.y, app.fonts.fontLabel, line.color));
    EXPECT_TRUE(isText(seen, kBackdrop, "Veloria", 14, 87, app.fonts.fontHeading, {185, 195, 255, 235}));
    EXPECT_TRUE(isFilled(seen, {9, 123, 220, 1}, border(100, kBackdrop)));
    EXPECT_EQ(seen.at(8, 123), kBackdrop);
    EXPECT_EQ(seen.at(229, 123), kBackdrop);
}

TEST_F(LeftPanel, SysIsCutAtThePanelsEdges) {
    setLeftWidth(60);
    setContentBottom(200);
    const Picture seen = about();
    EXPECT_TRUE(isFilled(seen, {60, 0, 300, 600}, kBackdrop));
    EXPECT_TRUE(isFilled(seen, {0, 200, 60, 300}, kBackdrop));
}

}  // namespace
}  // namespace veloria
