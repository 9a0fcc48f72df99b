// Where the recorder and the rest of the window meet.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "recorder/clips.h"
#include "recorder/playback.h"
#include "recorder_panel/panel.h"
#include "tests/ui/events.h"
#include "tests/ui/text_probe.h"

namespace veloria {
namespace {

class RecorderInputTest : public test::InputTest {
  protected:
    // The middle of a channel's row, at `x`.
    SDL_Point onRow(int channel, int x) const { return {x, app.layout.recorder.y + 68 + 34 * channel + 17}; }
    void drag(int fromX, int fromY, SDL_Point to) {
        down(fromX, fromY, SDL_BUTTON_RIGHT);
        move(to.x, to.y);
        up(to.x, to.y, SDL_BUTTON_RIGHT);
    }
    const RecorderClip& onlyClip() const {
        EXPECT_EQ(app.recorder.clipCount, 1);
        return app.recorder.clips.begin()->second.begin()->second.front();
    }
};

TEST_F(RecorderInputTest, ARowDraggedWithTheRightButtonBecomesAClip) {
    engine.waveform = 2;
    engine.bassFilter = true;
    const SDL_Rect cell = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 3);
    drag(cell.x + 20, cell.y + 20, onRow(1, 300));
    const RecorderClip& clip = onlyClip();
    EXPECT_EQ(app.recorder.clips.begin()->first, 1);
    EXPECT_EQ(clip.label, "162 Reflect");
    EXPECT_EQ(clip.sourceKind, 6);
    EXPECT_EQ(clip.sourceIndex, 3);
    EXPECT_EQ(clip.pan, 0.0f);
    EXPECT_EQ(clip.gainInDb, -6.0f);
    EXPECT_EQ(clip.overrides.waveform, 2);
    EXPECT_EQ(clip.overrides.fibonacciCount, 2);
    EXPECT_TRUE(clip.bassFilter);
    EXPECT_NEAR(clip.end - clip.start, 2.0, 1e-9);
    EXPECT_FALSE(app.recorder.droneDragging);
}

TEST_F(RecorderInputTest, RightPressesMeasureAvatarRowsFourPixelsLower) {
    const SDL_Rect cell = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 0);
    down(cell.x + 20, cell.y + 2, SDL_BUTTON_RIGHT);
    EXPECT_FALSE(app.recorder.droneDragging);
    down(cell.x + 20, cell.y + 41, SDL_BUTTON_RIGHT);
    EXPECT_TRUE(app.recorder.droneDragging);
    EXPECT_EQ(app.recorder.droneLabel, "152 Reflect");
}

TEST_F(RecorderInputTest, RotationAndShadowRowsBringTheirKindAndFrequency) {
    app.avatarSubTab = 1;
    SDL_Rect cell = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 2);
    down(cell.x + 20, cell.y + 20, SDL_BUTTON_RIGHT);
    EXPECT_EQ(app.recorder.droneKind, 7);
    EXPECT_EQ(app.recorder.droneFrequency, 512.0);
    up(0, 0, SDL_BUTTON_RIGHT);
    app.tableTab = 1;
    cell = gridCell(rowGrid(app.layout, kShadowRowsTop, 0), 3);
    down(cell.x + 20, cell.y + 1, SDL_BUTTON_RIGHT);
    EXPECT_EQ(app.recorder.droneKind, 8);
    EXPECT_EQ(app.recorder.droneFrequency, 114.0);
    up(0, 0, SDL_BUTTON_RIGHT);
    cell = gridCell(rowGrid(app.layout, kShadowRowsTop, 0), 10);  // an Avatar number: inert
    down(cell.x + 20, cell.y + 20, SDL_BUTTON_RIGHT);
    EXPECT_FALSE(app.recorder.droneDragging);
    EXPECT_EQ(app.recorder.clipCount, 0);
}

TEST_F(RecorderInputTest, ADropOutsideTheTimelineAddsNothing) {
    const SDL_Rect cell = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 0);
    drag(cell.x + 20, cell.y + 20, {640, 100});
    EXPECT_EQ(app.recorder.clipCount, 0);
    EXPECT_FALSE(app.recorder.droneDragging);
}

TEST_F(RecorderInputTest, ADropOverAFloatingWindowAddsNothing) {
    const SDL_Rect cell = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 0);
    const SDL_Point row = onRow(1, 500);
    panel(kPolarPanel).open = true;
    panel(kPolarPanel).rect = {row.x - 100, row.y - 100, 200, 150};
    frame();
    drag(cell.x + 20, cell.y + 20, row);
    EXPECT_EQ(app.recorder.clipCount, 0) << "a panel";
    EXPECT_FALSE(app.recorder.droneDragging) << "the drag is over all the same";
    panel(kPolarPanel).open = false;
    toggleCalculator(app.calculator);
    app.calculator.calcRect.x = row.x - 100;
    app.calculator.calcRect.y = row.y - 100;
    frame();
    drag(cell.x + 20, cell.y + 20, row);
    EXPECT_EQ(app.recorder.clipCount, 0) << "the calculator";
    EXPECT_FALSE(app.recorder.droneDragging);
    drag(cell.x + 20, cell.y + 20, {row.x - 101, row.y});
    EXPECT_EQ(app.recorder.clipCount, 1) << "beside it";
}

TEST_F(RecorderInputTest, ADropOnALockedRowAddsNothing) {
    const SDL_Rect cell = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 0);
    const SDL_Point lock = {117, onRow(1, 0).y};
    click(lock.x, lock.y);
    ASSERT_TRUE(app.recorder.channels[1].locked);
    drag(cell.x + 20, cell.y + 20, onRow(1, 500));
    EXPECT_EQ(app.recorder.clipCount, 0);
    EXPECT_FALSE(app.recorder.droneDragging);
    click(lock.x, lock.y);
    drag(cell.x + 20, cell.y + 20, onRow(1, 500));
    EXPECT_EQ(app.recorder.clipCount, 1);
}

TEST_F(RecorderInputTest, TheRecordersKeysReachItBeforeTheWindows) {
    addClip(app.recorder, 0, 440.0, {});
    selectAll(app.recorder);
    key(SDLK_DELETE);
    EXPECT_EQ(app.recorder.clipCount, 0);
    key(SDLK_f);
    EXPECT_TRUE(engine.bassFilter);
}

TEST_F(RecorderInputTest, APressOnTheOpenClipEditorIsNotTheSplitters) {
    app.sizes.recorderHeight = 150;  // lower than the editor, which so reaches above the panel
    frame();
    RecorderClip clip;
    clip.end = 3.0;
    RecorderClip& added = addClip(app.recorder, 0, 440.0, clip);
    app.recorder.editOpen = true;
    app.recorder.editClip = &added;
    app.recorder.editChannel = 0;
    app.recorder.editX = 500;
    frame();
    const int edge = app.layout.contentBottom;
    ASSERT_TRUE(recorderEditContains(app.recorder, app.layout.recorder, 505, edge));
    down(505, edge);
    EXPECT_EQ(app.held.splitter, Splitter::None);
    EXPECT_TRUE(app.recorder.editOpen);
    up(505, edge);
    down(300, edge);  // beside it the splitter is the splitter
    EXPECT_EQ(app.held.splitter, Splitter::Recorder);
}

// An editor on a clip of the first channel; the panel is low, so that the box reaches above it.
class RecorderEditorInput : public RecorderInputTest {
  protected:
    RecorderEditorInput() {
        app.sizes.recorderHeight = 150;
        frame();
        RecorderClip made;
        made.end = 3.0;
        clip = &addClip(app.recorder, 0, 440.0, made);
    }
    void openEditor(int x) {
        app.recorder.editOpen = true;
        app.recorder.editClip = clip;
        app.recorder.editChannel = 0;
        app.recorder.editX = x;
        frame();
        ASSERT_TRUE(recorderEditContains(app.recorder, app.layout.recorder, x + 5, app.recorder.editY + 5));
    }
    RecorderClip* clip = nullptr;
};

TEST_F(RecorderEditorInput, EveryPressBesideItClosesItWhoeverTakesThePress) {
    panel(kPolarPanel).open = true;
    panel(kPolarPanel).rect = {420, 60, 200, 150};
    toggleCalculator(app.calculator);
    app.calculator.calcRect = {640, 60, 200, 300};
    frame();
    const WindowLayout& layout = app.layout;
    const std::vector<std::pair<const char*, SDL_Point>> places = {
        {"the calculator", {700, 70}},
        {"a panel", {500, 150}},
        {"the main view", {layout.centre.x + layout.centre.w / 2, layout.centre.y + layout.centre.h / 2}},
        {"the recorder's edge", {40, layout.contentBottom}},
        {"the left edge", {layout.leftWidth, 300}},
        {"a tab", {20, 40}},
        {"the recorder's title", {40, layout.recorder.y + 12}},
    };
    for (const auto& [name, place] : places) {
        openEditor(80);
        down(place.x, place.y);
        EXPECT_FALSE(app.recorder.editOpen) << name;
        EXPECT_EQ(app.recorder.editClip, nullptr) << name;
        up(place.x, place.y);
    }
}

// A range field is left by the same presses.
TEST_F(RecorderEditorInput, EveryPressElsewhereLeavesTheRangeField) {
    const SDL_Rect& area = app.layout.recorder;
    panel(kPolarPanel).open = true;
    panel(kPolarPanel).rect = {420, 60, 200, 150};
    panel(kLotusPanel).open = true;
    panel(kLotusPanel).rect = {300, area.y + 20, 300, 150};  // over the band and the rows
    toggleCalculator(app.calculator);
    app.calculator.calcRect = {700, area.y + 20 - 378 + 100, 340, 378};  // its foot over the band
    frame();
    const WindowLayout& layout = app.layout;
    const int bandY = area.y + 35;
    const std::vector<std::pair<const char*, SDL_Point>> places = {
        {"a panel over the band", {500, bandY}},
        {"a title over the band", {400, area.y + 30}},
        {"the calculator over the band", {900, bandY}},
        {"a panel", {500, 150}},
        {"the calculator's display", {800, app.calculator.calcRect.y + 40}},
        {"the main view", {650, 100}},
        {"the recorder's edge", {40, layout.contentBottom}},
        {"the recorder's edge, inside it", {40, layout.contentBottom + 3}},
        {"the left edge", {layout.leftWidth, 300}},
        {"the right edge", {layout.rightX, 300}},
        {"a tab", {20, 40}},
        {"a button of the left panel", {50, 110}},
        {"a row of the table", {layout.rightX + 50, 300}},
        {"the top bar", {100, 10}},
        {"the status bar", {100, layout.statusBar.y + 10}},
        {"the recorder's title", {40, area.y + 12}},
        {"its ruler", {200, area.y + 57}},
        {"its rows", {250, area.y + 80}},
        {"its transport bar", {600, area.y + area.h - 10}},
    };
    ASSERT_TRUE(app.calculator.calcRect.y > 0);
    for (const auto& [name, place] : places) {
        click(area.x + 140, bandY);
        ASSERT_TRUE(isEditingRange(app.recorder)) << name;
        down(place.x, place.y);
        EXPECT_FALSE(isEditingRange(app.recorder)) << name;
        up(place.x, place.y);
        panel(kLotusPanel).rect = {300, area.y + 20, 300, 150};
        frame();
    }
    click(area.x + 140, bandY);
    click(620, bandY);
    EXPECT_TRUE(isEditingRange(app.recorder)) << "in the band it stays open";
    openEditor(80);
    ASSERT_TRUE(recorderEditContains(app.recorder, area, 144, bandY));
    click(144, bandY);
    EXPECT_FALSE(isEditingRange(app.recorder)) << "the clip editor over the band";
    EXPECT_TRUE(app.recorder.editOpen);
}

TEST_F(RecorderEditorInput, APressOnAFloatingWindowOverItIsNotForIt) {
    panel(kPolarPanel).open = true;
    toggleCalculator(app.calculator);
    openEditor(80);
    const int y = app.recorder.editY;
    const float gain = clip->gainInDb;
    const SDL_Point slider{80 + 56 + 20, y + 30};  // of the first row
    // Over the left panel, where a press on the panel's inert body goes on to what lies beneath.
    panel(kPolarPanel).rect = {60, y - 100, 200, 220};
    app.calculator.calcRect = {700, 40, 340, 378};
    ASSERT_LT(slider.y, app.layout.contentBottom);
    down(slider.x, slider.y);
    EXPECT_FALSE(app.recorder.editOpen) << "a panel";
    EXPECT_EQ(clip->gainInDb, gain);
    up(slider.x, slider.y);
    panel(kPolarPanel).open = false;
    openEditor(80);
    app.calculator.calcRect = {60, y - 100, 340, 378};
    down(slider.x, slider.y);
    EXPECT_FALSE(app.recorder.editOpen) << "the calculator";
    EXPECT_EQ(clip->gainInDb, gain);
    up(slider.x, slider.y);
}

TEST_F(RecorderEditorInput, ADropOverItAddsNothing) {
    openEditor(500);
    const SDL_Rect cell = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 0);
    const SDL_Point row = onRow(1, 600);
    ASSERT_TRUE(recorderEditContains(app.recorder, app.layout.recorder, row.x, row.y));
    drag(cell.x + 20, cell.y + 20, row);
    EXPECT_EQ(app.recorder.clipCount, 1) << "the one that is edited";
    EXPECT_FALSE(app.recorder.droneDragging);
    EXPECT_TRUE(app.recorder.editOpen);
    drag(cell.x + 20, cell.y + 20, {onRow(0, 800).x, onRow(0, 0).y});
    EXPECT_EQ(app.recorder.clipCount, 2);
}

TEST_F(RecorderEditorInput, OnlyTheLeftButtonClosesIt) {
    openEditor(80);
    for (const Uint8 button : {Uint8{SDL_BUTTON_RIGHT}, Uint8{SDL_BUTTON_MIDDLE}}) {
        down(700, 200, button);
        up(700, 200, button);
    }
    move(700, 200);
    wheel(700, 200, 1);
    EXPECT_TRUE(app.recorder.editOpen);
}

TEST_F(RecorderEditorInput, RowsBeneathItAreNeitherDraggedNorScrolled) {
    openEditor(app.layout.windowW - 240);
    const SDL_Point place{app.layout.windowW - 100, app.recorder.editY + 30};
    ASSERT_LT(place.y, app.layout.contentBottom - 8);
    wheel(place.x, place.y, -1);
    EXPECT_EQ(app.avatarScroll, 0);
    down(place.x, place.y, SDL_BUTTON_RIGHT);
    EXPECT_FALSE(app.recorder.droneDragging);
    app.recorder.editOpen = false;
    wheel(place.x, place.y, -1);
    EXPECT_GT(app.avatarScroll, 0) << "there are rows, and they scroll";
    down(place.x, place.y, SDL_BUTTON_RIGHT);
    EXPECT_TRUE(app.recorder.droneDragging);
}

TEST_F(RecorderInputTest, OnlyOneFieldIsTypedIntoAtATime) {
    const SDL_Rect& area = app.layout.recorder;
    click(area.x + 140, area.y + 34);  // the range's start
    ASSERT_TRUE(isEditingRange(app.recorder));
    key(SDLK_f);
    EXPECT_FALSE(engine.bassFilter);
    toggleCalculator(app.calculator);
    frame();
    click(app.calculator.calcRect.x + 50, app.calculator.calcRect.y + 40);
    EXPECT_TRUE(app.calculator.calcEditing);
    EXPECT_FALSE(isEditingRange(app.recorder));
    click(area.x + 230, area.y + 34);  // the range's end
    EXPECT_TRUE(isEditingRange(app.recorder));
    EXPECT_FALSE(app.calculator.calcEditing);
}

TEST_F(RecorderInputTest, ACombinationTypesNothingIntoAField) {
    const SDL_Rect& area = app.layout.recorder;
    const auto typeAll = [this] {
        for (const Uint16 held : {KMOD_LCTRL, KMOD_LALT, KMOD_RGUI}) {
            key(SDLK_6, false, held);
            type("6");
            keyUp(SDLK_6, held);
            type("6");  // of a key that is still repeating
            keyUp(SDLK_LALT);
            type("8");  // as an input method gives it, without a key
        }
        key(SDLK_5, false, KMOD_LSHIFT);
        type("5");
    };
    click(area.x + 140, area.y + 34);  // the range's start
    ASSERT_TRUE(isEditingRange(app.recorder));
    app.recorder.rangeText.clear();
    typeAll();
    EXPECT_EQ(app.recorder.rangeText, "8885");
    toggleCalculator(app.calculator);
    frame();
    click(app.calculator.calcRect.x + 50, app.calculator.calcRect.y + 40);
    ASSERT_TRUE(app.calculator.calcEditing);
    app.calculator.calcText.clear();
    typeAll();
    EXPECT_EQ(app.calculator.calcText, "8885");
}

TEST_F(RecorderInputTest, ThePanelTakesItsClicksFromWhatLiesBeneath) {
    app.viewMode = kFxTab;
    frame();
    click(100, 376);  // "OCTAVE PHI" would lie here, were the recorder not over it
    EXPECT_EQ(engine.phiSteps, 0);
}

TEST_F(RecorderInputTest, AFrameMovesThePlayheadByTheTimeSinceTheLast) {
    togglePlayback(app.recorder);
    frame(200000);
    const double start = app.recorder.playhead;
    frame(200050);
    EXPECT_NEAR(app.recorder.playhead - start, 0.05, 1e-6);
    frame(210000);  // a stall counts as a tenth of a second
    EXPECT_NEAR(app.recorder.playhead - start, 0.15, 1e-6);
}

TEST_F(RecorderInputTest, WhileAnExportRendersNothingBeginsOrEndsAVoice) {
    togglePlayback(app.recorder);
    walkerStart(app.walker, engine, 200000);
    app.exporting = true;
    frame(201000);
    frame(202000);
    EXPECT_EQ(app.recorder.playhead, 0.0);
    EXPECT_TRUE(engine.voices.empty());
    app.exporting = false;
    frame(202050);
    EXPECT_FALSE(engine.voices.empty());
}

TEST_F(RecorderInputTest, TheExportsProgressLiesOverEverything) {
    panel(kScopePanel).open = true;
    panel(kScopePanel).maximised = true;
    toggleCalculator(app.calculator);
    app.calculator.calcRect = {480, 200, 200, 378};  // over the left half of the box
    beginDroneDrag(app.recorder, "528", 528.0, {200, 60, 60, 255}, 6, 0);
    setDragMouse(app.recorder, 800, 336);  // over its upper right corner
    frame();
    const test::Picture before = picture();
    app.recorder.exportProgress = 0.5f;
    frame();
    const test::Picture seen = picture();

    const SDL_Rect box{480, 336, 320, 48};
    const auto fill = [&](int x, int y) { return test::over({12, 12, 18, 235}, before.at(x, y)); };
    const auto border = [&](int x, int y) { return test::over({60, 160, 200, 220}, fill(x, y)); };
    for (int y = 0; y < 720; ++y) {
        for (int x = 0; x < 1280; ++x) {
            const bool inside = contains(box, x, y);
            const bool edge = inside && !contains({481, 337, 318, 46}, x, y);
            if (contains({806, 336, 70, 48}, x, y)) continue;  // "Cancel"
            if (!inside) {
                ASSERT_EQ(seen.at(x, y), before.at(x, y)) << x << " " << y;
            } else if (edge) {
                ASSERT_TRUE(test::isColor(seen.at(x, y), border(x, y))) << x << " " << y;
            }
        }
    }
    for (const SDL_Point& ground : {SDL_Point{490, 342}, {490, 380}, {790, 342}, {790, 380}})
        EXPECT_TRUE(test::isColor(seen.at(ground.x, ground.y), fill(ground.x, ground.y))) << ground.x;
    EXPECT_EQ(seen.at(492, 366), (SDL_Color{60, 180, 100, 255}));
    EXPECT_EQ(seen.at(639, 373), (SDL_Color{60, 180, 100, 255})) << "half of 296 columns";
    EXPECT_EQ(seen.at(640, 370), app.theme.themeTrack);
    EXPECT_EQ(seen.at(787, 370), app.theme.themeTrack);
    const char* text = "Rendering WAV... 50%";
    const SDL_Point place = test::centredPlace(text, {480, 341, 320, 18}, app.fonts.fontTab);
    test::Picture below = before;
    for (std::size_t i = 0; i < below.pixels.size(); ++i)
        below.pixels[i] = test::over({12, 12, 18, 235}, below.pixels[i]);
    EXPECT_TRUE(test::isText(seen, below, text, place.x, place.y, app.fonts.fontTab, app.theme.themeText));
}

// Two clicks on a clip that are handled within one frame, or far apart.
class RecorderDoubleClick : public RecorderInputTest {
  protected:
    RecorderDoubleClick() {
        RecorderClip clip;
        clip.end = 10.0;
        addClip(app.recorder, 0, 440.0, clip);
    }
    // A press and its release that happened at `timestamp` (ms) and are handled in a frame at `ticks`.
    void clickAt(std::uint32_t timestamp, std::uint32_t ticks) {
        app.draw.ticks = ticks;
        const SDL_Point place = onRow(0, 200);
        for (const Uint32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) {
            SDL_Event event = test::mouseButton(type, place.x, place.y, SDL_BUTTON_LEFT);
            event.common.timestamp = timestamp;
            handleEvent(app, event);
        }
    }
};

TEST_F(RecorderDoubleClick, TwoClicksFarApartAreNoneThoughOneFrameHandlesBoth) {
    clickAt(50000, 51000);
    clickAt(50800, 51000);
    EXPECT_FALSE(app.recorder.editOpen);
    clickAt(51199, 51200);
    EXPECT_TRUE(app.recorder.editOpen) << "399 ms after the second";
}

TEST_F(RecorderDoubleClick, TwoClicksCloseTogetherAreOneThoughALongFrameLiesBetween) {
    clickAt(50000, 50001);
    clickAt(50300, 52000);
    EXPECT_TRUE(app.recorder.editOpen);
}

TEST_F(RecorderDoubleClick, AnEventWithoutATimeIsOfItsFrame) {
    clickAt(0, 50000);
    clickAt(0, 50400);
    EXPECT_FALSE(app.recorder.editOpen);
    clickAt(0, 50799);
    EXPECT_TRUE(app.recorder.editOpen);
}

}  // namespace
}  // namespace veloria
