#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "engine/control.h"
#include "tests/ui/app_fixture.h"
#include "tests/ui/text_probe.h"
#include "toolkit/text.h"
#include "toolkit/widgets.h"
#include "ui/draw.h"

namespace veloria {
namespace {

using test::isColor;
using test::isFilled;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kWhite{255, 255, 255, 255};
const SDL_Color kFlatGround = over({38, 38, 38, 230}, kBackdrop);

SDL_Color raised(SDL_Color color, int amount) {
    const auto up = [amount](Uint8 c) { return static_cast<Uint8>(std::min(c + amount, 255)); };
    return {up(color.r), up(color.g), up(color.b), color.a};
}

class DrawWidgets : public test::AppTest {
  protected:
    DrawWidgets() { setContentBottom(690); }

    Picture draw() {
        clear();
        drawWidgets(app);
        return picture();
    }
    // A round button as it should look without its text, on the backdrop.
    Picture roundButton(const SDL_Rect& rect, SDL_Color color, bool lit, int lampShift = 0) {
        clear();
        DrawGradientButton(app.draw, rect, 6, color, lit);
        drawLamp(app.draw, rect.x + rect.w - 9 + lampShift, rect.y + 8 - lampShift, color, lit);
        return picture();
    }
    // Label and lamp of a round button without a detail.
    void expectRound(const Picture& seen, const std::string& label, const SDL_Rect& rect, SDL_Color color,
                     bool lit) {
        const Picture below = roundButton(rect, color, lit);
        TTF_Font* font = app.fonts.fontRow;
        const SDL_Point place = test::centredPlace(label, rect, font);
        // The label of a narrow button can reach under its lamp, so that only its left part is compared.
        EXPECT_TRUE(isText(seen, below, label, place.x, place.y, font, kWhite, rect.x + rect.w - 16))
            << label;
        for (const int x : {rect.x + 2, rect.x + rect.w - 9, rect.x + rect.w - 2}) {
            for (const int y : {rect.y + 1, rect.y + 8, rect.y + rect.h - 8})
                EXPECT_TRUE(isColor(seen.at(x, y), below.at(x, y))) << label << " " << x << " " << y;
        }
    }
    void expectFlat(const Picture& seen, const std::string& label, const SDL_Rect& rect, SDL_Color color,
                    bool lit) {
        SDL_Color face = color;
        face.a = 230;
        const SDL_Color ground = lit ? over(face, kBackdrop) : kFlatGround;
        EXPECT_TRUE(isColor(seen.at(rect.x + 60, rect.y + 4), ground)) << label;
        const SDL_Color outline = lit ? color : over({30, 30, 30, 200}, ground);
        EXPECT_TRUE(isColor(seen.at(rect.x, rect.y + 10), outline)) << label;
        EXPECT_TRUE(isColor(seen.at(rect.x + 100, rect.y), outline)) << label;
        EXPECT_TRUE(isColor(seen.at(rect.x + rect.w - 1, rect.y + rect.h - 1), outline)) << label;
        const SDL_Rect area{rect.x + 30, rect.y, rect.w - 30, rect.h};
        const SDL_Point place = test::centredPlace(label, area, app.fonts.fontRow);
        EXPECT_TRUE(isText(seen, seen.at(rect.x + 60, rect.y + 4), label, place.x, place.y, app.fonts.fontRow,
                           lit ? kWhite : SDL_Color{160, 160, 180, 200}))
            << label;
        const SDL_Color spark = lit ? over({255, 255, 255, 235}, ground) : over({42, 42, 42, 200}, ground);
        EXPECT_TRUE(isColor(seen.at(rect.x + rect.w - 9, rect.y + 8), spark, 20)) << label;
    }
};

struct ButtonCase {
    const char* label;
    SDL_Rect rect;
    SDL_Color color;
    bool lit;
};

TEST_F(DrawWidgets, TuningShowsItsButtons) {
    app.viewMode = kTuningTab;
    const std::vector<ButtonCase> buttons = {
        {"FFT Off", {5, 150, 74, 28}, {120, 120, 120, 255}, true},
        {"FFT Full", {5, 180, 113, 28}, {60, 160, 200, 255}, false},
        {"FFT Peak", {122, 180, 113, 28}, {200, 120, 60, 255}, false},
        {"Bass Filter", {5, 242, 230, 28}, {120, 144, 156, 255}, false},
        {"MIDI Normalize", {5, 274, 230, 28}, {100, 140, 200, 255}, false},
        {"Heart", {5, 312, 74, 28}, {255, 100, 140, 255}, false},
        {"Trinity", {83, 312, 74, 28}, {255, 200, 80, 255}, false},
        {"DNA Spiral", {5, 346, 230, 28}, {120, 60, 200, 255}, false},
        {"Import MIDI", {240, 274, 140, 28}, {100, 140, 200, 255}, false},
    };
    const Picture seen = draw();
    for (const ButtonCase& button : buttons)
        expectRound(seen, button.label, button.rect, button.color, button.lit);
    expectFlat(seen, "Original Midi", {5, 68, 230, 28}, {80, 200, 80, 255}, false);
    expectFlat(seen, "Sacred Optimizer", {5, 102, 230, 28}, {200, 180, 60, 255}, true);
}

TEST_F(DrawWidgets, TheLampOfANarrowButtonMakesWayForItsLabel) {
    app.viewMode = kTuningTab;
    const SDL_Rect rect{161, 312, 74, 28};
    const SDL_Point place = test::centredPlace("Fibonacci", rect, app.fonts.fontRow);
    for (const bool lit : {false, true}) {
        engine.activationMode = lit ? 4 : 0;
        const Picture seen = draw();
        const Picture below = roundButton(rect, {100, 220, 255, 255}, lit, 3);
        EXPECT_TRUE(isText(seen, below, "Fibonacci", place.x, place.y, app.fonts.fontRow, kWhite,
                           rect.x + rect.w - 6 - (lit ? 6 : 4)))
            << lit;
        EXPECT_EQ(seen.at(rect.x + rect.w - 6, rect.y + 5), below.at(rect.x + rect.w - 6, rect.y + 5)) << lit;
        // The last letter ends left of the lamp's body.
        SDL_Point size{0, 0};
        TTF_SizeUTF8(app.fonts.fontRow, "Fibonacci", &size.x, &size.y);
        EXPECT_LE(place.x + size.x, rect.x + rect.w - 6 - 4) << lit;
    }
    // A label that stays clear has its lamp in the usual place, however narrow the button.
    const Picture seen = draw();
    expectRound(seen, "Trinity", {83, 312, 74, 28}, {255, 200, 80, 255}, false);
    setLeftWidth(200);  // thirds of 60
    const SDL_Rect narrow{69, 312, 60, 28};
    const Picture below = roundButton(narrow, {255, 200, 80, 255}, false, 3);
    EXPECT_EQ(draw().at(narrow.x + 54, 317), below.at(narrow.x + 54, 317));
}

TEST_F(DrawWidgets, RoundButtonsLightUp) {
    app.viewMode = kTuningTab;
    engine.bassFilter = true;
    engine.activationMode = 3;
    app.walker.running = true;
    app.transport.midiNormalize = true;
    retuner->mode = kModePeak;
    engine.sacredOptimizer = false;
    const Picture seen = draw();
    expectRound(seen, "Bass Filter", {5, 242, 230, 28}, {120, 144, 156, 255}, true);
    expectRound(seen, "MIDI Normalize", {5, 274, 230, 28}, {100, 140, 200, 255}, true);
    expectRound(seen, "Trinity", {83, 312, 74, 28}, {255, 200, 80, 255}, true);
    expectRound(seen, "Heart", {5, 312, 74, 28}, {255, 100, 140, 255}, false);
    expectRound(seen, "DNA Spiral", {5, 346, 230, 28}, {120, 60, 200, 255}, true);
    expectRound(seen, "FFT Off", {5, 150, 74, 28}, {120, 120, 120, 255}, false);
    expectRound(seen, "FFT Peak", {122, 180, 113, 28}, {200, 120, 60, 255}, true);
    expectFlat(seen, "Original Midi", {5, 68, 230, 28}, {80, 200, 80, 255}, true);
    expectFlat(seen, "Sacred Optimizer", {5, 102, 230, 28}, {200, 180, 60, 255}, false);
}

TEST_F(DrawWidgets, WaveShowsFourFlatButtons) {
    app.viewMode = kWaveTab;
    const ButtonCase waves[] = {{"Sine", {5, 68, 230, 32}, {46, 125, 50, 255}, false},
                                {"Saw", {5, 104, 230, 32}, {216, 67, 21, 255}, false},
                                {"Square", {5, 140, 230, 32}, {142, 36, 170, 255}, false},
                                {"Triangle", {5, 176, 230, 32}, {0, 137, 123, 255}, false}};
    for (std::int32_t wave = 0; wave < 4; ++wave) {
        engine.waveform = wave;
        const Picture seen = draw();
        for (std::int32_t i = 0; i < 4; ++i) {
            const ButtonCase& button = waves[static_cast<std::size_t>(i)];
            expectFlat(seen, button.label, button.rect, button.color, i == wave);
        }
    }
}

TEST_F(DrawWidgets, VizShowsItsTenButtons) {
    app.viewMode = kVizTab;
    app.panels.panels[kLotusPanel].open = true;
    app.panels.panels[kSpectrumPanel].open = true;
    app.spectrumPalette = 1;
    const ButtonCase buttons[] = {
        {"SPEC 1", {}, {60, 80, 140, 255}, false},         {"SPEC 2", {}, {140, 60, 120, 255}, true},
        {"SACRED", {}, {60, 140, 100, 255}, false},        {"HARMONICS", {}, {140, 100, 60, 255}, false},
        {"KATHARA", {}, {160, 130, 80, 255}, false},       {"LOTUS", {}, {200, 160, 60, 255}, true},
        {"POLAR", {}, {80, 160, 200, 255}, false},         {"SCOPE", {}, {100, 200, 180, 255}, false},
        {"KATHARA PANEL", {}, {160, 130, 80, 255}, false}, {"SHADOW", {}, {180, 60, 60, 255}, false}};
    const Picture seen = draw();
    for (int n = 0; n < 10; ++n) {
        const ButtonCase& button = buttons[n];
        expectRound(seen, button.label, {5, 68 + 32 * n, 230, 28}, button.color, button.lit);
    }
}

TEST_F(DrawWidgets, TabsWithoutButtonsShowNone) {
    for (const std::int32_t mode : {kFxTab, kVoicesTab, kSysTab}) {
        app.viewMode = mode;
        EXPECT_TRUE(isFilled(draw(), {0, 0, 400, 700}, kBackdrop)) << mode;
    }
}

TEST_F(DrawWidgets, AButtonUnderTheMouseIsBrighterByThirty) {
    app.viewMode = kTuningTab;
    moveMouse(100, 250);
    expectRound(draw(), "Bass Filter", {5, 242, 230, 28}, raised({120, 144, 156, 255}, 30), false);
    moveMouse(30, 320);
    expectRound(draw(), "Heart", {5, 312, 74, 28}, {255, 130, 170, 255}, false);  // capped
    app.viewMode = kWaveTab;
    moveMouse(100, 80);
    expectFlat(draw(), "Sine", {5, 68, 230, 32}, raised({46, 125, 50, 255}, 30), true);
}

TEST_F(DrawWidgets, ButtonsAreCutAndDeadBelowThePanel) {
    app.viewMode = kTuningTab;
    setContentBottom(256);
    moveMouse(100, 250);
    Picture seen = draw();
    const Picture bright = roundButton({5, 242, 230, 28}, raised({120, 144, 156, 255}, 30), false);
    EXPECT_TRUE(isColor(seen.at(20, 250), bright.at(20, 250)));
    EXPECT_TRUE(isFilled(seen, {0, 256, 400, 200}, kBackdrop));
    moveMouse(100, 260);
    seen = draw();
    const Picture dull = roundButton({5, 242, 230, 28}, {120, 144, 156, 255}, false);
    EXPECT_TRUE(isColor(seen.at(20, 250), dull.at(20, 250)));
}

TEST_F(DrawWidgets, ANarrowPanelHasNoButtons) {
    app.viewMode = kWaveTab;
    setLeftWidth(10);
    EXPECT_TRUE(isFilled(draw(), {0, 0, 400, 700}, kBackdrop));
    setLeftWidth(120);  // W = 110
    const Picture seen = draw();
    EXPECT_FALSE(seen.at(114, 80) == kBackdrop);
    EXPECT_EQ(seen.at(115, 80), kBackdrop);
}

TEST_F(DrawWidgets, ImportNeedsSixtyPixels) {
    app.viewMode = kTuningTab;
    setLeftWidth(305);  // 305 - 230 - 15
    EXPECT_FALSE(draw().at(270, 285) == kBackdrop);
    setLeftWidth(304);
    EXPECT_EQ(draw().at(270, 285), kBackdrop);
}

// The marks of an icon on the flat ground of an idle button: white at alpha 130.
const SDL_Color kIdleMark = over({255, 255, 255, 130}, kFlatGround);

TEST_F(DrawWidgets, WavesHaveTheirPictures) {
    app.viewMode = kWaveTab;
    engine.waveform = 9;          // none lit
    const Picture seen = draw();  // pictures from x 11, 14 up and down from the middle
    for (int i = 0; i <= 19; ++i) {
        const double y = 84 - std::sin(2.0 * 3.14159 * i / 19.0) * 14.0;
        EXPECT_TRUE(isColor(seen.at(11 + i, static_cast<int>(y)), kIdleMark, 60)) << i;
    }
    EXPECT_TRUE(isColor(seen.at(11, 134), kIdleMark));  // saw
    EXPECT_TRUE(isColor(seen.at(31, 120), kIdleMark));
    EXPECT_TRUE(isColor(seen.at(31, 133), kIdleMark));
    EXPECT_TRUE(isColor(seen.at(21, 120), kIdleMark));
    EXPECT_TRUE(isColor(seen.at(11, 150), kIdleMark));  // square
    EXPECT_TRUE(isColor(seen.at(16, 142), kIdleMark));
    EXPECT_TRUE(isColor(seen.at(21, 156), kIdleMark));
    EXPECT_TRUE(isColor(seen.at(26, 170), kIdleMark));
    EXPECT_TRUE(isColor(seen.at(31, 162), kIdleMark));
    EXPECT_TRUE(isColor(seen.at(16, 165), kFlatGround));
    EXPECT_TRUE(isColor(seen.at(12, 191), kIdleMark, 60));  // triangle
    EXPECT_TRUE(isColor(seen.at(26, 192), kIdleMark, 60));
    EXPECT_TRUE(isColor(seen.at(31, 206), kIdleMark));
}

TEST_F(DrawWidgets, LitPicturesAreOpaque) {
    app.viewMode = kWaveTab;
    engine.waveform = 2;
    const Picture seen = draw();
    EXPECT_TRUE(isColor(seen.at(16, 142), kWhite));
    EXPECT_TRUE(isColor(seen.at(11, 134), kIdleMark));
}

TEST_F(DrawWidgets, TuningsHaveANoteAndASpiral) {
    app.viewMode = kTuningTab;
    engine.sacredOptimizer = false;
    const Picture seen = draw();
    // The note: middle row 82, button from 68.
    EXPECT_TRUE(isFilled(seen, {13, 80, 8, 5}, kWhite));
    EXPECT_TRUE(isFilled(seen, {21, 73, 1, 6}, kWhite));
    EXPECT_TRUE(isColor(seen.at(27, 75), kWhite));
    EXPECT_TRUE(isColor(seen.at(21, 79), kWhite));
    // The spiral round (21, 116): its first point lies 2 to the right, its seventh at 2.4 radians and 3.8.
    const SDL_Color gold = over({255, 215, 0, 130}, kFlatGround);
    EXPECT_TRUE(isColor(seen.at(23, 116), gold, 60));
    EXPECT_TRUE(isColor(seen.at(18, 118), gold, 60));
    EXPECT_TRUE(isColor(seen.at(21, 116), kFlatGround));
}

// Cells: 388 / 160 = 2 columns, (388 - 6 + 3) / 2 = 192 wide, at 883 and 1078, 43 apart.
TEST_F(DrawWidgets, ReflectionRowsStandInTableOrder) {
    const Picture seen = draw();
    const Widget& second = widget("215 Reflect");  // index 1
    const SDL_Rect rect{1078, 84, 192, 40};
    const Picture below = roundButton(rect, second.color, false);
    TTF_Font* font = app.fonts.fontRow;
    const int line = TTF_FontHeight(font);
    const int top = 84 + (40 - 2 * line - 2) / 2;
    const SDL_Point label = test::centredPlace("215 Reflect", {1078, top, 192, line}, font);
    const SDL_Point detail = test::centredPlace("215 Hz | DR8", {1078, top + line + 2, 192, line}, font);
    EXPECT_TRUE(isText(seen, below, "215 Reflect", label.x, label.y, font, kWhite));
    EXPECT_TRUE(isText(seen, below, "215 Hz | DR8", detail.x, detail.y, font, {220, 220, 180, 180}));
    EXPECT_EQ(seen.at(1075, 100), kBackdrop);
    EXPECT_EQ(seen.at(1270, 100), kBackdrop);
    EXPECT_EQ(seen.at(900, 124), kBackdrop);
    const Picture third = roundButton({883, 127, 192, 40}, widget("521 Reflect").color, false);
    EXPECT_EQ(seen.at(900, 150), third.at(900, 150));
}

TEST_F(DrawWidgets, AHeldRowIsLit) {
    toggleReflection(engine, 1);
    const Picture seen = draw();
    const SDL_Rect rect{1078, 84, 192, 40};
    const Picture below = roundButton(rect, widget("215 Reflect").color, true);
    TTF_Font* font = app.fonts.fontRow;
    const int line = TTF_FontHeight(font);
    const int top = 84 + (40 - 2 * line - 2) / 2;
    const SDL_Point detail = test::centredPlace("215 Hz | DR8", {1078, top + line + 2, 192, line}, font);
    EXPECT_TRUE(isText(seen, below, "215 Hz | DR8", detail.x, detail.y, font, {255, 255, 200, 255}));
    EXPECT_EQ(seen.at(1261, 92), below.at(1261, 92));  // the lamp
    EXPECT_EQ(seen.at(1100, 85), below.at(1100, 85));  // the golden strip
}

TEST_F(DrawWidgets, EachTabShowsItsOwnFamily) {
    const struct {
        std::int32_t table, subTab;
        const char* first;
        int top;
    } families[] = {{0, 0, "152 Reflect", 84},
                    {0, 1, "125 Rotate", 84},
                    {1, 0, "111 Shadow", 62},
                    {1, 1, "111 Shadow", 62}};
    for (const auto& family : families) {
        app.tableTab = family.table;
        app.avatarSubTab = family.subTab;
        const Picture seen = draw();
        const Picture below = roundButton({883, family.top, 192, 40}, widget(family.first).color, false);
        for (const int y : {family.top + 2, family.top + 20, family.top + 37})
            EXPECT_EQ(seen.at(890, y), below.at(890, y)) << family.first;
    }
}

TEST_F(DrawWidgets, RowsScrollUnderTheTabs) {
    app.avatarScroll = 30;
    Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {880, 0, 400, 84}, kBackdrop));
    const Picture below = roundButton({883, 54, 192, 40}, widget("152 Reflect").color, false);
    EXPECT_EQ(seen.at(890, 85), below.at(890, 85));
    EXPECT_EQ(seen.at(890, 95), kBackdrop);
    app.tableTab = 1;
    app.shadowScroll = 30;
    seen = draw();
    EXPECT_TRUE(isFilled(seen, {880, 0, 400, 60}, kBackdrop));
    EXPECT_FALSE(seen.at(890, 60) == kBackdrop);  // the panel's tabs end two rows above the first cell
}

TEST_F(DrawWidgets, RowsEndAtTheRecorder) {
    setContentBottom(230);
    const Picture seen = draw();
    EXPECT_FALSE(seen.at(900, 229) == kBackdrop);
    EXPECT_TRUE(isFilled(seen, {880, 230, 400, 300}, kBackdrop));
    resize(1280, 80 + kMinimumRecorder + kStatusBarHeight);
    app.sizes.recorderHeight = kMinimumRecorder;
    layOut();
    EXPECT_TRUE(isFilled(draw(), {880, 0, 400, 200}, kBackdrop));
}

TEST_F(DrawWidgets, ARowUnderTheMouseIsBrighterWhereItIsSeen) {
    const SDL_Color color = widget("152 Reflect").color;
    moveMouse(900, 90);
    EXPECT_EQ(draw().at(890, 110), roundButton({883, 84, 192, 40}, raised(color, 30), false).at(890, 110));
    app.avatarScroll = 10;  // now from 74: rows 74 to 83 are under the tabs
    moveMouse(900, 80);
    EXPECT_EQ(draw().at(890, 100), roundButton({883, 74, 192, 40}, color, false).at(890, 100));
    moveMouse(900, 84);
    EXPECT_EQ(draw().at(890, 100), roundButton({883, 74, 192, 40}, raised(color, 30), false).at(890, 100));
}

// 125 has index 10: the sixth line's first cell, at 62 + 5 * 43.
TEST_F(DrawWidgets, InertRowsAreDim) {
    app.tableTab = 1;
    moveMouse(900, 290);  // and do not mind the mouse
    const Picture seen = draw();
    const SDL_Color fill = over({45, 40, 55, 160}, kBackdrop);
    const SDL_Color outline = over({80, 70, 100, 80}, fill);
    EXPECT_TRUE(isFilled(seen, {884, 278, 190, 10}, fill));
    EXPECT_TRUE(isFilled(seen, {883, 277, 192, 1}, outline));
    EXPECT_TRUE(isFilled(seen, {883, 316, 192, 1}, outline));
    EXPECT_TRUE(isColor(seen.at(1074, 300), outline));
    TTF_Font* font = app.fonts.fontRow;
    EXPECT_TRUE(isText(seen, fill, "125 Shadow", 889, 290, font, {120, 110, 140, 140}));
    EXPECT_TRUE(isText(seen, fill, "AVT", 1043, 290, font, {180, 140, 60, 140}));
}

TEST_F(DrawWidgets, APanelTooNarrowForACellHasNoRows) {
    resize(132, 720);  // 12 wide: a cell of 0
    ASSERT_EQ(app.layout.rightPanel.w, 12);
    EXPECT_TRUE(isFilled(draw(), {100, 0, 32, 700}, kBackdrop));
    resize(110, 720);
    EXPECT_TRUE(isFilled(draw(), {100, 0, 10, 700}, kBackdrop));
}

TEST_F(DrawWidgets, TheTopBarsButtonsAreNotDrawnAgain) {
    EXPECT_TRUE(isFilled(draw(), {400, 0, 480, 32}, kBackdrop));
}

TEST_F(DrawWidgets, LeavesNoClip) {
    draw();
    EXPECT_EQ(SDL_RenderIsClipEnabled(app.renderer), SDL_FALSE);
}

}  // namespace
}  // namespace veloria
