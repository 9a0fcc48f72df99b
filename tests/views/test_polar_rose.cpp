// The rose of the newest samples, and its panel.
#include "views/polar_rose.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <numbers>

#include "tests/ui/offscreen.h"
#include "tests/ui/text_probe.h"

namespace veloria {
namespace {

using test::isColor;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr double kTau = 2.0 * std::numbers::pi;
constexpr SDL_Color kWhite{255, 255, 255, 255};
constexpr SDL_Color kGlow{200, 170, 50, 25};
constexpr SDL_Color kSilentCurve{180, 150, 30, 170};
constexpr SDL_Color kFullCurve{255, 240, 170, 230};
constexpr SDL_Color kCross{60, 50, 18, 30};

// A circle of 500 pixels around the middle at (520, 520).
constexpr SDL_Rect kBody{8, 8, 1024, 1024};
constexpr int kMiddle = 520;

class PolarRose : public test::DrawTest {
  protected:
    explicit PolarRose(int w = 1040, int h = 1040) : DrawTest(w, h) {}

    Picture draw(const SDL_Rect& body = kBody, SDL_Color backdrop = kBackdrop) {
        screen.clear(backdrop);
        drawPolarRose(context, body, engine);
        return picture();
    }
    // One of the newest 512 samples, by its age from the oldest of them.
    float& shown(std::size_t i) {
        return engine.scopeRing[(static_cast<std::size_t>(engine.scopePos) + 512 + i) % 1024];
    }
    static SDL_Point at(double radius, double angle) {
        constexpr double kNudge = 1e-4;  // single precision may fall short of a whole pixel
        return {kMiddle + static_cast<int>(std::cos(angle) * (radius + kNudge)),
                kMiddle + static_cast<int>(std::sin(angle) * (radius + kNudge))};
    }
    static SDL_Color seenAt(const Picture& seen, SDL_Point place) { return seen.at(place.x, place.y); }
    // The layers one over the other, the lowest first.
    static SDL_Color stack(std::initializer_list<SDL_Color> layers) {
        SDL_Color color = kBackdrop;
        for (const SDL_Color& layer : layers)
            color = over(layer, color);
        return color;
    }

    EngineSnapshot engine;
};

TEST(PolarRosePlace, LeavesTwelvePixelsAroundTheCircle) {
    const PolarRoseLayout layout = polarRoseLayout({162, 124, 356, 334});
    EXPECT_EQ(layout.centre.x, 340);
    EXPECT_EQ(layout.centre.y, 291);
    EXPECT_EQ(layout.radius, 155);
    EXPECT_EQ(polarRoseLayout({0, 0, 101, 400}).radius, 38);
}

TEST_F(PolarRose, SilenceIsAThinCircleAtTwelveHundredthsOfTheRadius) {
    const Picture seen = draw();
    for (int i = 2; i < 511; ++i) {  // without the closing line's ends
        const SDL_Point place = at(60.0, i * kTau / 512);
        EXPECT_TRUE(isColor(seenAt(seen, place), kSilentCurve, 15)) << i;
    }
    int between = 0;
    for (int degree = 0; degree < 360; ++degree) {
        for (const double radius : {6.0, 20.0, 40.0, 57.0, 63.0, 80.0, 140.0}) {
            const SDL_Point place = at(radius, degree * kTau / 360);
            if (place.x == kMiddle || place.y == kMiddle) continue;  // the cross
            between += seenAt(seen, place) == kBackdrop ? 0 : 1;
        }
    }
    EXPECT_EQ(between, 0);
}

TEST_F(PolarRose, AFullSampleReachesTheOutermostCircle) {
    // Sample 256 stands at the left: a spike out, from sample 255, and back in, to sample 257.
    shown(256) = 1.0f;
    const Picture seen = draw();
    const SDL_Color spike = stack({kCross, kGlow, kGlow, kFullCurve, kSilentCurve});
    for (const int distance : {70, 130, 200, 300, 450, 490})
        EXPECT_TRUE(isColor(seen.at(kMiddle - distance, kMiddle), spike)) << distance;
    EXPECT_EQ(seen.at(kMiddle - 501, kMiddle), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(kMiddle + 300, kMiddle), stack({kCross}))) << "on one side only";
}

TEST_F(PolarRose, AnglesGrowClockwiseFromTheRight) {
    shown(128) = 1.0f;
    const Picture seen = draw();
    EXPECT_TRUE(isColor(seen.at(kMiddle, kMiddle + 400), kSilentCurve, 60));
    EXPECT_TRUE(isColor(seen.at(kMiddle, kMiddle - 400), stack({kCross})));
}

TEST_F(PolarRose, ALineTakesTheColourOfTheSampleItLeadsTo) {
    shown(256) = 0.5f;  // to 0.56 of the radius
    const Picture seen = draw();
    const SDL_Color out{217, 195, 100, 200};
    const SDL_Color spike = stack({kCross, kGlow, kGlow, out, kSilentCurve});
    EXPECT_TRUE(isColor(seen.at(kMiddle - 270, kMiddle), spike));
    EXPECT_TRUE(isColor(seen.at(kMiddle - 282, kMiddle), stack({kCross}))) << "280 is its end";
}

TEST_F(PolarRose, AFaintPassLiesUnderTheCurve) {
    // The way back in from the left is a line of its own: the way out leads to the sample before.
    shown(255) = shown(256) = 1.0f;
    const Picture seen = draw(kBody, kWhite);
    const SDL_Color line = over(kSilentCurve, over(kGlow, over(kCross, kWhite)));
    EXPECT_TRUE(isColor(seen.at(kMiddle - 300, kMiddle), line));
}

TEST_F(PolarRose, TheFirstSampleDrawsNothingAndTheLastLineClosesTheCurve) {
    // Sample 0 stands at the right; the line to sample 1 leads in, the closing line out.
    shown(0) = 1.0f;
    const Picture seen = draw();
    const SDL_Color spike = stack({kCross, kGlow, kSilentCurve, {220, 190, 80, 180}});
    for (const int distance : {70, 130, 300, 450})
        EXPECT_TRUE(isColor(seen.at(kMiddle + distance, kMiddle), spike)) << distance;
}

TEST_F(PolarRose, OnlyTheSampleSizeCounts) {
    for (std::size_t i = 0; i < 512; ++i)
        shown(i) = static_cast<float>(0.9 * std::sin(static_cast<double>(i) * 0.1));
    const Picture seen = draw();
    for (std::size_t i = 0; i < 512; ++i)
        shown(i) = -shown(i);
    EXPECT_TRUE(draw() == seen);
}

TEST_F(PolarRose, EverySampleStandsAtItsPlace) {
    // Every other sample is loud: each of them ends a spike that nothing else reaches.
    for (std::size_t i = 1; i < 512; i += 4)
        shown(i) = 0.3f + 0.001f * static_cast<float>(i);
    const Picture seen = draw();
    for (std::size_t i = 1; i < 512; i += 4) {
        const double size = static_cast<double>(0.3f + 0.001f * static_cast<float>(i));
        const double angle = static_cast<double>(i) * kTau / 512;
        const SDL_Point tip = at((size * 0.88 + 0.12) * 500, angle);
        EXPECT_FALSE(isColor(seenAt(seen, tip), kBackdrop, 40)) << i;
        const SDL_Point beyond = at((size * 0.88 + 0.12) * 500 + 3, angle);
        EXPECT_TRUE(isColor(seenAt(seen, beyond), kBackdrop, 5)) << i;
    }
}

TEST_F(PolarRose, ShowsTheNewestHalfOfTheRingWhereverItBegins) {
    const auto fill = [&] {
        for (std::size_t i = 0; i < 512; ++i)
            shown(i) = static_cast<float>(std::fmod(static_cast<double>(i) * 0.37, 1.0));
    };
    fill();
    const Picture first = draw();
    for (const int position : {1, 300, 511, 512, 513, 1023}) {
        engine.scopeRing.fill(0.9f);
        engine.scopePos = position;
        fill();
        EXPECT_TRUE(draw() == first) << position;
    }
}

TEST_F(PolarRose, LoudAndWildSamplesAreHeldToFullLevel) {
    shown(100) = 1.0f;
    shown(200) = 0.0f;
    shown(300) = -1.0f;
    const Picture seen = draw();
    shown(100) = 5.0f;
    shown(200) = std::numeric_limits<float>::quiet_NaN();
    shown(300) = -std::numeric_limits<float>::infinity();
    EXPECT_TRUE(draw() == seen);
}

TEST_F(PolarRose, ThreeCirclesOfThirtySixSidesLieUnderTheRose) {
    const Picture seen = draw(kBody, kWhite);
    const int radii[] = {166, 333, 500};
    for (int k = 1; k <= 3; ++k) {
        const SDL_Color line{70, 58, 18, static_cast<Uint8>((k + 3) * 4)};
        const SDL_Color corner = over(line, over(line, kWhite));
        const int radius = radii[k - 1];
        for (int i = 0; i < 36; ++i) {
            if (i % 3 == 0) continue;  // on the cross, or between two pixels
            EXPECT_TRUE(isColor(seenAt(seen, at(radius, i * kTau / 36)), corner, 3)) << k << ", " << i;
        }
        EXPECT_EQ(seenAt(seen, at(radius + 3, kTau / 72)), kWhite) << k;
    }
    EXPECT_EQ(seenAt(seen, at(250, 0.3)), kWhite);
}

TEST_F(PolarRose, TheCrossSpansTheOutermostCircle) {
    const Picture seen = draw(kBody, kWhite);
    const SDL_Color arm = over(kCross, kWhite);
    for (const int distance : {70, 250, 400, 490}) {
        EXPECT_TRUE(isColor(seen.at(kMiddle + distance, kMiddle), arm)) << distance;
        EXPECT_TRUE(isColor(seen.at(kMiddle - distance, kMiddle), arm)) << distance;
        EXPECT_TRUE(isColor(seen.at(kMiddle, kMiddle + distance), arm)) << distance;
        EXPECT_TRUE(isColor(seen.at(kMiddle, kMiddle - distance), arm)) << distance;
    }
    EXPECT_FALSE(seen.at(kMiddle - 500, kMiddle) == kWhite);
    EXPECT_EQ(seen.at(kMiddle - 501, kMiddle), kWhite);
    EXPECT_EQ(seen.at(kMiddle, kMiddle + 501), kWhite);
}

TEST_F(PolarRose, ASmallSquareMarksTheMiddle) {
    const Picture seen = draw();
    const SDL_Color square{255, 220, 80, 200};
    EXPECT_TRUE(isColor(seen.at(kMiddle - 2, kMiddle - 2), stack({square})));
    EXPECT_TRUE(isColor(seen.at(kMiddle + 1, kMiddle + 1), stack({square})));
    EXPECT_TRUE(isColor(seen.at(kMiddle, kMiddle), stack({kCross, kCross, square})));
    EXPECT_EQ(seen.at(kMiddle + 2, kMiddle + 2), kBackdrop);
    EXPECT_EQ(seen.at(kMiddle - 3, kMiddle - 3), kBackdrop);
}

TEST_F(PolarRose, ABodyWithoutRoomDrawsNothing) {
    engine.scopeRing.fill(1.0f);
    for (const SDL_Rect& body :
         {SDL_Rect{50, 50, 0, 0}, {50, 50, 300, 0}, {50, 50, 25, 25}, {50, 50, -300, -300}}) {
        draw(body);
        EXPECT_EQ(touched(), 0);
    }
    draw({50, 50, 26, 26});
    EXPECT_GT(touched(), 0);
}

class PolarRosePanel : public PolarRose {
  protected:
    PolarRosePanel() : PolarRose(1920, 1080) { panel.rect = {160, 100, 360, 360}; }

    Picture drawPanelNow() {
        screen.clear(kBackdrop);
        drawPolarRosePanel(context, panel, snapshot);
        return picture();
    }
    PanelState panel;
    FrameSnapshot snapshot;
};

TEST_F(PolarRosePanel, ClosedItDrawsNothing) {
    drawPanelNow();
    EXPECT_EQ(touched(), 0);
}

TEST_F(PolarRosePanel, BearsItsName) {
    panel.open = true;
    EXPECT_TRUE(isText(drawPanelNow(), {42, 40, 56, 255}, "POLAR ROSE  [Audio]", 168, 104, fonts.fontTab,
                       {140, 210, 240, 255}));
}

TEST_F(PolarRosePanel, ShowsTheSynthesiserAlone) {
    panel.open = true;
    const Picture silent = drawPanelNow();
    snapshot.scope.samples.fill(1.0f);
    EXPECT_TRUE(drawPanelNow() == silent);
    snapshot.engine.scopeRing.fill(1.0f);
    const Picture loud = drawPanelNow();
    EXPECT_FALSE(loud == silent);
    EXPECT_FALSE(isColor(loud.at(340 - 155, 291), silent.at(340 - 155, 291), 60)) << "a circle of 155";
}

TEST_F(PolarRosePanel, NotesAloneDoNotMoveIt) {
    panel.open = true;
    const Picture silent = drawPanelNow();
    for (int i = 0; i < 128; ++i)
        snapshot.notes.push_back({100.0f + static_cast<float>(i), 0.5f, 0.5f});
    EXPECT_TRUE(drawPanelNow() == silent);
}

TEST_F(PolarRosePanel, FitsTheSmallestPanelAndTheWholeWindow) {
    panel.open = true;
    panel.rect = {300, 300, 200, 150};
    snapshot.engine.scopeRing.fill(1.0f);
    Picture seen = drawPanelNow();
    // Body (302, 324, 196, 124): a circle of 50 around (400, 386).
    const SDL_Color body = over({22, 20, 30, 248}, kBackdrop);
    EXPECT_FALSE(isColor(seen.at(350, 386), body, 60));
    EXPECT_TRUE(isColor(seen.at(348, 386), body, 3));
    EXPECT_EQ(seen.at(299, 386), kBackdrop);
    EXPECT_EQ(seen.at(400, 450), kBackdrop);
    panel.maximised = true;
    seen = drawPanelNow();
    // Body (2, 24, 1916, 1054): a circle of 515 around (960, 551).
    EXPECT_FALSE(isColor(seen.at(960 - 515, 551), body, 60));
    EXPECT_TRUE(isColor(seen.at(960 - 517, 551), body, 3));
}

}  // namespace
}  // namespace veloria
