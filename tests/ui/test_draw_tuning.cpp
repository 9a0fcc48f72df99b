#include <gtest/gtest.h>

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
constexpr SDL_Color kKnob{165, 165, 165, 240};

bool operator==(const SDL_Rect& a, const SDL_Rect& b) {
    return SDL_RectEquals(&a, &b) == SDL_TRUE;
}

// At a left panel of 400 the sliders go by a width of 200: tracks of 214.
class Tuning : public test::AppTest {
  protected:
    Tuning() { setContentBottom(690); }

    Picture draw() {
        clear();
        takeSnapshot();
        drawTuningTab(app);
        return picture();
    }
    testing::AssertionResult says(const Picture& seen, const std::string& text, int x, int y, SDL_Color color,
                                  SDL_Color below = kBackdrop) {
        return isText(seen, below, text, x, y, app.fonts.fontLabel, color);
    }
    void walk(std::int32_t count) {
        app.walker.running = true;
        app.walker.currentCount = count;
        app.walker.currentFreqs = {862, 863, 864};
        app.walker.currentY = 1.5f;
    }
};

TEST_F(Tuning, TheSelectorStandsBesideTheOffButton) {
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "SACRED FFT (WAV)", 8, 136, {100, 180, 220, 180}));
    const SDL_Color fill = over({50, 50, 60, 200}, kBackdrop);
    EXPECT_TRUE(isFilled(seen, {100, 151, 30, 26}, fill));
    EXPECT_TRUE(isColor(seen.at(83, 165), over({80, 180, 220, 80}, fill)));
    EXPECT_TRUE(isColor(seen.at(234, 177), over({80, 180, 220, 80}, fill)));
    EXPECT_EQ(seen.at(82, 165), kBackdrop);
    EXPECT_EQ(seen.at(235, 165), kBackdrop);
    EXPECT_TRUE(says(seen, "<", 86, 155, {200, 220, 255, 160}, fill));
    EXPECT_TRUE(says(seen, ">", 221, 155, {200, 220, 255, 160}, fill));
    EXPECT_TRUE(app.hits.selectorHit == (SDL_Rect{83, 150, 152, 28}));
}

TEST_F(Tuning, TheSelectorIsBrightInItsMode) {
    retuner->mode = kModeSolfeggio;
    const Picture seen = draw();
    const SDL_Color fill = over({50, 140, 180, 220}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(100, 170), fill));
    EXPECT_TRUE(isColor(seen.at(83, 165), over({80, 180, 220, 200}, fill)));
    EXPECT_TRUE(says(seen, "<", 86, 155, {200, 220, 255, 255}, fill));
    for (const std::int32_t mode : {kModeFull, kModePeak}) {
        retuner->mode = mode;
        EXPECT_TRUE(isColor(draw().at(100, 170), over({50, 50, 60, 200}, kBackdrop)));
    }
}

TEST_F(Tuning, TheSelectorNamesEachTarget) {
    const char* names[] = {"147 Hz",     "174 Hz",    "258 Hz",   "285 Hz",    "369 Hz",
                           "396 UT Hz",  "417 RE Hz", "432 Hz",   "528 MI Hz", "639 FA Hz",
                           "741 SOL Hz", "852 LA Hz", "963 SI Hz"};
    const SDL_Rect box{83, 150, 152, 28};
    for (std::int32_t index = 0; index < 13; ++index) {
        retuner->targetIndex = index;
        const SDL_Point place = test::centredPlace(names[index], box, app.fonts.fontLabel);
        retuner->mode = kModeOff;
        EXPECT_TRUE(says(draw(), names[index], place.x, place.y, {180, 200, 220, 200},
                         over({50, 50, 60, 200}, kBackdrop)));
        retuner->mode = kModeSolfeggio;
        EXPECT_TRUE(says(draw(), names[index], place.x, place.y, {255, 240, 200, 255},
                         over({50, 140, 180, 220}, kBackdrop)));
    }
}

TEST_F(Tuning, TheSelectorFollowsANarrowPanel) {
    setLeftWidth(200);  // A = 190: x = 60 + 9, width = 190 - 60 - 9
    draw();
    EXPECT_TRUE(app.hits.selectorHit == (SDL_Rect{69, 150, 121, 28}));
}

TEST_F(Tuning, StrengthFillsItsTrackByPerCent) {
    retuner->mode = kModeFull;
    retuner->strength = 50;
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "STRENGTH: 50%", 8, 214, {180, 200, 255, 220}));
    EXPECT_TRUE(isFilled(seen, {8, 228, 100, 6}, over({60, 160, 200, 220}, kTrack)));  // fill 107
    EXPECT_TRUE(isFilled(seen, {119, 228, 103, 6}, kTrack));
    EXPECT_TRUE(isFilled(seen, {111, 225, 8, 3}, over(kKnob, kBackdrop)));
    EXPECT_TRUE(isFilled(seen, {111, 234, 8, 3}, over(kKnob, kBackdrop)));
    EXPECT_EQ(seen.at(110, 225), kBackdrop);
    EXPECT_EQ(seen.at(119, 225), kBackdrop);
    EXPECT_EQ(seen.at(222, 230), kBackdrop);
    EXPECT_TRUE(app.hits.strengthHit == (SDL_Rect{8, 228, 214, 6}));
}

TEST_F(Tuning, StrengthIsDimWhileTheRetunerIsOff) {
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "STRENGTH: 100%", 8, 214, {120, 120, 140, 120}));
    EXPECT_TRUE(isFilled(seen, {8, 228, 200, 6}, over({80, 80, 100, 120}, kTrack)));
}

TEST_F(Tuning, SpeedFillsItsTrackByTheInterval) {
    app.walker.stepMs = 515;  // half of 30 to 1000
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "SPEED: 515 ms", 8, 378, {160, 120, 220, 200}));
    EXPECT_TRUE(isFilled(seen, {8, 394, 100, 6}, over({120, 60, 200, 200}, kTrack)));
    EXPECT_TRUE(isFilled(seen, {119, 394, 103, 6}, kTrack));
    EXPECT_TRUE(isFilled(seen, {111, 391, 8, 3}, over(kKnob, kBackdrop)));
    EXPECT_TRUE(app.hits.speedHit == (SDL_Rect{8, 394, 214, 6}));
    app.walker.stepMs = 30;
    EXPECT_TRUE(isFilled(draw(), {12, 394, 210, 6}, kTrack));
    app.walker.stepMs = 1000;
    EXPECT_TRUE(isFilled(draw(), {218, 391, 8, 3}, over(kKnob, kBackdrop)));
}

TEST_F(Tuning, GainsStandWhetherOrNotTheWalkerRuns) {
    gains.synthGainLeft = 0.5f;
    gains.synthGainRight = 0.25f;
    for (const bool running : {false, true}) {
        app.walker.running = running;
        const Picture seen = draw();
        EXPECT_TRUE(says(seen, "L", 8, 428, {255, 180, 80, 220}));
        EXPECT_TRUE(isFilled(seen, {22, 434, 96, 6}, over({200, 140, 40, 220}, kTrack)));
        EXPECT_TRUE(isFilled(seen, {126, 434, 96, 6}, kTrack));
        EXPECT_TRUE(isFilled(seen, {118, 431, 8, 3}, over(kKnob, kBackdrop)));
        EXPECT_TRUE(says(seen, "50%", 226, 428, {255, 180, 80, 180}));
        EXPECT_TRUE(says(seen, "R", 8, 450, {80, 200, 255, 220}));
        EXPECT_TRUE(isFilled(seen, {22, 456, 46, 6}, over({40, 140, 200, 220}, kTrack)));
        EXPECT_TRUE(isFilled(seen, {68, 453, 8, 3}, over(kKnob, kBackdrop)));
        EXPECT_TRUE(says(seen, "25%", 226, 450, {80, 200, 255, 180}));
    }
    EXPECT_TRUE(app.hits.synthGainHitLeft == (SDL_Rect{22, 434, 200, 6}));
    EXPECT_TRUE(app.hits.synthGainHitRight == (SDL_Rect{22, 456, 200, 6}));
}

TEST_F(Tuning, AStoppedWalkerSaysNothing) {
    walk(3);
    app.walker.beatHz = 3.0f;
    engine.activationMode = 2;
    app.walker.running = false;
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {0, 404, 400, 20}, kBackdrop));
    EXPECT_TRUE(isFilled(seen, {266, 425, 130, 40}, kBackdrop));
}

TEST_F(Tuning, TheWalkersLinesStandBehindTheGainsWhereThereIsRoom) {
    walk(3);
    app.walker.tripletIndex = 20;
    app.walker.triadKind = 4;
    app.walker.drValue = {2, 2, 2};
    app.walker.beatHz = 6.5f;
    engine.activationMode = 2;
    setLeftWidth(330);
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "T20/114  862+863+864  Y=1.50  [DISTILL] \u2665", 8, 404, {180, 140, 255, 220}));
    EXPECT_TRUE(says(seen, "DR: L=2 C=2 R=2  Unity", 8, 418, {255, 255, 80, 255}));
    setLeftWidth(440);  // wide enough for the whole of the mode's line in its own place
    const Picture wide = draw();
    EXPECT_TRUE(says(wide, "Binaural: 6.5 Hz  Theta", 266, 432, {160, 100, 255, 230}));
    EXPECT_TRUE(says(wide, "Heart: Triple (T4+T20+T109)", 266, 444, {255, 100, 140, 220}));
}

TEST_F(Tuning, TheWalkersLastLinesEndInsideThePanel) {
    walk(3);
    app.walker.beatHz = 6.5f;
    const struct {
        std::int32_t mode;
        const char* text;
        SDL_Color color;
    } lines[] = {{1, "Heart: Single (T4)", {255, 100, 140, 220}},
                 {2, "Heart: Triple (T4+T20+T109)", {255, 100, 140, 220}},
                 {3, "Trinity: H=3 M=3 B=3 U=4", {255, 200, 80, 230}},
                 {4, "Fibonacci: H=6 M=3 B=3 U=5", {100, 220, 255, 230}}};
    for (const int panel : {395, 400, 420}) {
        setLeftWidth(panel);
        for (const auto& line : lines) {
            engine.activationMode = line.mode;
            const Picture seen = draw();
            const int width = test::centredPlace(line.text, {0, 0, 0, 0}, app.fonts.fontLabel).x * -2;
            const int x = std::min(266, panel - 4 - width);
            EXPECT_TRUE(says(seen, line.text, x, 444, line.color)) << panel;
            EXPECT_TRUE(isFilled(seen, {panel - 4, 404, 40, 60}, kBackdrop)) << panel;
        }
    }
}

TEST_F(Tuning, TheWalkersLastLinesLieUnderTheGainsOfANarrowPanel) {
    walk(3);
    app.walker.beatHz = 20.0f;
    setLeftWidth(329);
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {266, 425, 60, 40}, kBackdrop));
    const SDL_Color track = over({200, 140, 40, 220}, kTrack);
    EXPECT_TRUE(isFilled(seen, {30, 434, 150, 6}, track));  // painted over the text
    int ink = 0;
    for (int x = 30; x < 120; ++x)
        ink += seen.at(x, 440) == kBackdrop ? 0 : 1;
    EXPECT_GT(ink, 0);  // which shows below
}

TEST_F(Tuning, AWalkerBeforeItsFirstStepShowsOnlyItsRoots) {
    walk(0);
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {0, 404, 400, 12}, kBackdrop));
    EXPECT_TRUE(says(seen, "DR: L=1 C=1 R=1  Silence", 8, 418, {140, 140, 160, 200}));
}

TEST_F(Tuning, TheSingleNoteCountsRows) {
    walk(1);
    app.walker.currentFreqs = {953, 0, 0};
    app.walker.beatHz = 5.0f;  // no pair without a second note
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "0/682  953Hz  Y=1.50", 8, 404, {180, 140, 255, 220}));
    EXPECT_TRUE(isFilled(seen, {266, 425, 130, 18}, kBackdrop));
}

TEST_F(Tuning, TriadsFlashBehindTheLines) {
    const std::uint32_t now = 10'000;
    app.draw.ticks = now;
    app.walker.running = true;
    const SDL_Rect free{280, 403, 115, 13};
    app.walker.flashTick = now - 750;  // half of 1500 ms: alpha 20
    app.walker.flashKind = 3;
    EXPECT_TRUE(isFilled(draw(), free, over({140, 60, 255, 20}, kBackdrop)));
    app.walker.flashKind = 4;
    EXPECT_TRUE(isFilled(draw(), free, over({255, 220, 60, 20}, kBackdrop)));
    app.walker.flash258Tick = now - 1000;  // half of 2000 ms: alpha 22
    const SDL_Color both = over({255, 60, 120, 22}, over({255, 220, 60, 20}, kBackdrop));
    EXPECT_TRUE(isFilled(draw(), free, both));
    app.walker.flash147Tick = now;
    const Picture seen = draw();
    // Three layers: the renderer has rounded down three times.
    EXPECT_TRUE(isColor(seen.at(300, 410), over({255, 140, 40, 35}, both), 4));
    EXPECT_FALSE(seen.at(390, 449) == kBackdrop);
    EXPECT_EQ(seen.at(390, 401), kBackdrop);
    EXPECT_EQ(seen.at(390, 450), kBackdrop);
    EXPECT_EQ(seen.at(400, 420), kBackdrop);
    app.draw.ticks = now + 2000;
    EXPECT_EQ(draw().at(390, 410), kBackdrop);
}

TEST_F(Tuning, ANarrowPanelShowsAndTakesNothing) {
    setLeftWidth(60);
    EXPECT_TRUE(isFilled(draw(), {0, 0, 400, 700}, kBackdrop));
    EXPECT_TRUE(isEmpty(app.hits.selectorHit));
    EXPECT_TRUE(isEmpty(app.hits.strengthHit));
    EXPECT_TRUE(isEmpty(app.hits.speedHit));
    EXPECT_TRUE(isEmpty(app.hits.synthGainHitLeft));
    EXPECT_TRUE(isEmpty(app.hits.synthGainHitRight));
    setLeftWidth(61);
    draw();
    EXPECT_TRUE(app.hits.strengthHit == (SDL_Rect{8, 228, 35, 6}));
    EXPECT_TRUE(app.hits.synthGainHitLeft == (SDL_Rect{22, 434, 21, 6}));
}

TEST_F(Tuning, NothingReachesUnderTheRecorderOrOverTheCentre) {
    setContentBottom(232);
    setLeftWidth(100);
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {0, 232, 400, 400}, kBackdrop));
    EXPECT_TRUE(isFilled(seen, {100, 0, 400, 700}, kBackdrop));
    EXPECT_TRUE(isColor(seen.at(10, 229), over({80, 80, 100, 120}, kTrack)));
}

}  // namespace
}  // namespace veloria
