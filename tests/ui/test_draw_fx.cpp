#include <gtest/gtest.h>

#include <string>

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

constexpr SDL_Color kTrack{38, 38, 38, 255};
constexpr SDL_Color kFormula{160, 160, 160, 160};
const SDL_Color kBox = over({42, 42, 42, 230}, kBackdrop);

class FxTab : public test::AppTest {
  protected:
    FxTab() { setContentBottom(690); }

    Picture draw() {
        clear();
        drawFxTab(app);
        return picture();
    }
    testing::AssertionResult says(const Picture& seen, const std::string& text, int y, SDL_Color color,
                                  SDL_Color below = kBox) {
        return isText(seen, below, text, 15, y, app.fonts.fontLabel, color);
    }
    // A slider from the left whose knob ends at `knob` pixels from x 15.
    static void expectFill(const Picture& seen, int y, int knob, SDL_Color fill, SDL_Color knobColor,
                           int alpha = 200) {
        fill.a = static_cast<Uint8>(alpha);
        const int filled = std::max(knob - 5, 0);
        EXPECT_TRUE(isFilled(seen, {15, y, filled, 10}, over(fill, kTrack))) << y;
        EXPECT_TRUE(isFilled(seen, {15 + knob + 5, y, std::max(206 - knob - 5, 0), 10}, kTrack)) << y;
        EXPECT_TRUE(isColor(seen.at(15 + knob, y + 5), knobColor)) << y;
    }
};

TEST_F(FxTab, TwoBoxesAndTheirHeadings) {
    const Picture seen = draw();
    const SDL_Color outline = over({30, 30, 30, 160}, kBox);
    EXPECT_TRUE(isColor(seen.at(4, 200), outline));
    EXPECT_TRUE(isColor(seen.at(243, 200), outline));
    EXPECT_TRUE(isColor(seen.at(100, 66), outline));
    EXPECT_TRUE(isColor(seen.at(100, 405), outline));
    EXPECT_TRUE(isColor(seen.at(240, 200), kBox));
    EXPECT_EQ(seen.at(244, 200), kBackdrop);
    EXPECT_EQ(seen.at(100, 410), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(100, 416), outline));
    EXPECT_TRUE(isColor(seen.at(100, 557), outline));
    EXPECT_EQ(seen.at(100, 558), kBackdrop);
    TTF_Font* font = app.fonts.fontTab;
    EXPECT_TRUE(isText(seen, kBox, "HARMONICS", 15, 70, font, {220, 185, 90, 255}));
    EXPECT_TRUE(isText(seen, kBox, "PHASE", 15, 420, font, {180, 120, 220, 255}));
}

TEST_F(FxTab, CountsShowTheirShareOfTheRange) {
    engine.fibonacciCount = 7;
    engine.piCount = 14;
    engine.teslaCount = 1;
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "FIBONACCI: 7/14", 92, {255, 200, 60, 230}));
    EXPECT_TRUE(says(seen, "f*{2..89,144..987}", 128, kFormula));
    expectFill(seen, 112, 103, {185, 140, 30, 255}, {255, 200, 60, 255});
    EXPECT_TRUE(says(seen, "PI DIGITS: 14/14", 158, {100, 200, 255, 230}));
    EXPECT_TRUE(says(seen, "f*{pi digits 2..15}", 194, kFormula));
    expectFill(seen, 178, 206, {50, 130, 255, 255}, {100, 200, 255, 255});
    EXPECT_TRUE(says(seen, "TESLA 3-6-9: 1/3", 224, {80, 255, 180, 230}));
    EXPECT_TRUE(says(seen, "f*{3,6,9}", 260, kFormula));
    expectFill(seen, 244, 68, {30, 200, 120, 255}, {80, 255, 180, 255});
}

TEST_F(FxTab, PhasesShowPerCent) {
    engine.fibPhase = 50;
    engine.teslaPhase = 100;
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "FIB PHASE: 50%", 442, {210, 160, 255, 230}));
    EXPECT_TRUE(says(seen, "h*2pi/phi2 (phyllotaxis)", 474, kFormula));
    expectFill(seen, 458, 103, {150, 90, 220, 255}, {210, 160, 255, 255});
    EXPECT_TRUE(says(seen, "TESLA PHASE: 100%", 504, {120, 255, 220, 230}));
    EXPECT_TRUE(says(seen, "3>120  6>240  9>360", 540, kFormula));
    expectFill(seen, 524, 206, {40, 190, 160, 255}, {120, 255, 220, 255});
}

TEST_F(FxTab, ZeroIsOffWhereTheCaptionSaysSo) {
    engine.fibonacciCount = 0;
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "FIBONACCI: 0/14", 92, {255, 200, 60, 230}));
    EXPECT_TRUE(says(seen, "PI DIGITS: 0/14", 158, {100, 200, 255, 230}));
    EXPECT_TRUE(says(seen, "TESLA 3-6-9: OFF", 224, {80, 255, 180, 230}));
    EXPECT_TRUE(says(seen, "OCTAVE x2: OFF", 290, {140, 190, 255, 230}));
    EXPECT_TRUE(says(seen, "OCTAVE PHI: OFF", 356, {255, 180, 120, 230}));
    EXPECT_TRUE(says(seen, "FIB PHASE: OFF", 442, {210, 160, 255, 230}));
    EXPECT_TRUE(says(seen, "TESLA PHASE: OFF", 504, {120, 255, 220, 230}));
    EXPECT_TRUE(says(seen, "f * 2^n  (x2 x4 x8 / /2 /4 /8)", 326, kFormula));
    EXPECT_TRUE(says(seen, "f * phi^n  (phi phi2 phi3)", 392, kFormula));
}

TEST_F(FxTab, OctavesListTheirMultipliers) {
    const char* captions[] = {"OCTAVE x2: -3", "OCTAVE x2: -2", "OCTAVE x2: -1", "",
                              "OCTAVE x2: +1", "OCTAVE x2: +2", "OCTAVE x2: +3"};
    const char* lines[] = {"f/{2,4,8}", "f/{2,4}", "f/{2}", "", "f*{2}", "f*{2,4}", "f*{2,4,8}"};
    for (int value = -3; value <= 3; ++value) {
        if (value == 0) continue;
        engine.octaveSteps = value;
        const Picture seen = draw();
        EXPECT_TRUE(says(seen, captions[value + 3], 290, {140, 190, 255, 230}));
        EXPECT_TRUE(says(seen, lines[value + 3], 326, kFormula));
    }
}

TEST_F(FxTab, PhiListsItsPowers) {
    engine.phiSteps = 3;
    EXPECT_TRUE(says(draw(), "f*{phi,phi2,phi3}", 392, kFormula));
    EXPECT_TRUE(says(draw(), "OCTAVE PHI: +3", 356, {255, 180, 120, 230}));
    engine.phiSteps = -2;
    EXPECT_TRUE(says(draw(), "f/{phi,phi2}", 392, kFormula));
    engine.phiSteps = 1;
    EXPECT_TRUE(says(draw(), "f*{phi}", 392, kFormula));
}

TEST_F(FxTab, BipolarSlidersFillFromTheMiddle) {
    constexpr SDL_Color kKnob{140, 190, 255, 255};
    const SDL_Color fill = over({140, 190, 255, 110}, kTrack);
    engine.octaveSteps = 2;  // 2 * 206 / 6 = 68 right of 118
    const Picture right = draw();
    EXPECT_TRUE(isFilled(right, {15, 310, 103, 10}, kTrack));
    EXPECT_TRUE(isFilled(right, {119, 310, 62, 10}, fill));
    EXPECT_TRUE(isColor(right.at(186, 315), kKnob));
    EXPECT_TRUE(isFilled(right, {192, 310, 29, 10}, kTrack));
    engine.octaveSteps = -1;  // 34 left of it
    const Picture left = draw();
    EXPECT_TRUE(isColor(left.at(84, 315), kKnob));
    EXPECT_TRUE(isFilled(left, {89, 310, 29, 10}, fill));
    EXPECT_TRUE(isFilled(left, {119, 310, 102, 10}, kTrack));
    EXPECT_TRUE(isFilled(left, {15, 310, 60, 10}, kTrack));
    const SDL_Color zero = over({160, 160, 160, 120}, kBox);
    EXPECT_TRUE(isColor(left.at(118, 308), zero));
    EXPECT_TRUE(isColor(left.at(118, 321), zero));
    EXPECT_TRUE(isColor(left.at(118, 307), kBox));
    EXPECT_TRUE(isColor(left.at(118, 322), kBox));
}

TEST_F(FxTab, BipolarKnobsReachTheEnds) {
    engine.phiSteps = -3;
    EXPECT_TRUE(isColor(draw().at(15, 381), {255, 180, 120, 255}));
    engine.phiSteps = 3;
    EXPECT_TRUE(isColor(draw().at(221, 381), {255, 180, 120, 255}));
    engine.phiSteps = 0;
    EXPECT_TRUE(isColor(draw().at(114, 381), {255, 180, 120, 255}));
}

TEST_F(FxTab, VolumeIsTheMasterGainRounded) {
    gains.masterGain = 0.5f;
    Picture seen = draw();
    EXPECT_TRUE(says(seen, "VOLUME: 50%", 566, {255, 230, 120, 230}, kBackdrop));
    expectFill(seen, 582, 103, {200, 180, 80, 255}, {255, 230, 120, 255}, 220);
    gains.masterGain = 0.746f;
    EXPECT_TRUE(says(draw(), "VOLUME: 75%", 566, {255, 230, 120, 230}, kBackdrop));
    gains.masterGain = 0.0f;
    seen = draw();
    EXPECT_TRUE(says(seen, "VOLUME: 0%", 566, {255, 230, 120, 230}, kBackdrop));
    expectFill(seen, 582, 0, {}, {255, 230, 120, 255});
}

TEST_F(FxTab, IsCutToThePanelAndLeavesNoClip) {
    setLeftWidth(100);
    setContentBottom(300);
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {100, 0, 400, 700}, kBackdrop));
    EXPECT_TRUE(isFilled(seen, {0, 300, 400, 300}, kBackdrop));
    EXPECT_TRUE(isColor(seen.at(93, 200), over({30, 30, 30, 160}, kBox)));  // box of 90
    EXPECT_EQ(seen.at(94, 200), kBackdrop);
    EXPECT_EQ(SDL_RenderIsClipEnabled(app.renderer), SDL_FALSE);
}

TEST_F(FxTab, TooNarrowOrTooLowShowsNothing) {
    setLeftWidth(10);
    EXPECT_TRUE(isFilled(draw(), {0, 0, 400, 700}, kBackdrop));
    setLeftWidth(400);
    app.sizes.recorderHeight = 150;
    resize(1280, 240);  // the recorder begins at 60
    EXPECT_TRUE(isFilled(draw(), {0, 0, 400, 240}, kBackdrop));
    resize(1280, 140);
    EXPECT_TRUE(isFilled(draw(), {0, 0, 400, 140}, kBackdrop));
}

}  // namespace
}  // namespace veloria
