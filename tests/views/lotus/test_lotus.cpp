// The flower, its clock and its panel.
#include "views/lotus/lotus.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
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

constexpr double kPi = std::numbers::pi;
constexpr double kSixth = kPi / 6.0;  // from petal to petal

// Hue in degrees; by the formula of one distance a channel.
SDL_Color hsl(double hue, double saturation, double lightness, int alpha) {
    const auto channel = [&](double offset) {
        const double k = std::fmod(offset + hue / 30.0, 12.0);
        const double dip = std::max(-1.0, std::min({k - 3.0, 9.0 - k, 1.0}));
        const double value = lightness - saturation * std::min(lightness, 1.0 - lightness) * dip;
        return static_cast<Uint8>(255.0 * value);
    };
    return {channel(0.0), channel(8.0), channel(4.0), static_cast<Uint8>(alpha)};
}

// A body so wide that the flower, which outgrows the height, is whole at its right and left.
class Lotus : public test::DrawTest {
  protected:
    explicit Lotus(int w = 1800, int h = 600) : DrawTest(w, h) {}

    Picture draw(double time = 0.0) { return drawIn({0, 0, 1800, 600}, time); }
    Picture drawIn(const SDL_Rect& body, double time = 0.0) {
        screen.clear(backdrop);
        state.viewTime = static_cast<float>(time);
        drawLotus(context, body, state);
        return picture();
    }
    // The pixel at a share of the radius of 400 around the middle at (900, 300).
    static SDL_Point at(double share, double angle) { return atPixels(share * 400.0, angle); }
    static SDL_Point atPixels(double radius, double angle) {
        constexpr double kNudge = 1e-4;  // single precision may fall short of a whole pixel
        return {900 + static_cast<int>(std::cos(angle) * (radius + kNudge)),
                300 + static_cast<int>(std::sin(angle) * (radius + kNudge))};
    }
    static SDL_Color seenAt(const Picture& seen, SDL_Point place) { return seen.at(place.x, place.y); }
    // Petals 4 to 8, on the left, are open; those on the right stay shut. The mean is 5 / 12.
    void openLeftHalf() {
        for (std::size_t i = 4; i <= 8; ++i)
            state.lotusEnergy[i] = 1.0f;
    }

    LotusState state;
    SDL_Color backdrop = kBackdrop;
};

TEST(LotusClock, BeginsAtZeroAndMovesBySixThousandthsAStep) {
    LotusState state;
    EXPECT_EQ(state.viewTime, 0.0f);
    stepLotusClock(state);
    EXPECT_FLOAT_EQ(state.viewTime, 0.006f);
    for (int i = 1; i < 1000; ++i)
        stepLotusClock(state);
    EXPECT_NEAR(state.viewTime, 6.0f, 1e-3f);
}

TEST(LotusClock, AResetTakesClockAndEnergiesToZero) {
    LotusState state;
    state.viewTime = 3.5f;
    state.lotusEnergy.fill(0.7f);
    resetLotus(state);
    EXPECT_EQ(state.viewTime, 0.0f);
    for (const float energy : state.lotusEnergy)
        EXPECT_EQ(energy, 0.0f);
}

TEST(LotusPlace, IsTheMiddleOfTheBodyWithTwoThirdsOfTheSmallerSide) {
    const LotusLayout layout = lotusLayout({102, 124, 356, 334});
    EXPECT_EQ(layout.centre.x, 280);
    EXPECT_EQ(layout.centre.y, 291);
    EXPECT_EQ(layout.radius, 222);
    EXPECT_EQ(lotusLayout({2, 24, 1916, 1054}).radius, 702);
    EXPECT_EQ(lotusLayout({0, 0, 91, 300}).radius, 60);
    EXPECT_EQ(lotusLayout({0, 0, 300, 92}).radius, 61);
    EXPECT_EQ(lotusLayout({0, 0, 20, 20}).radius, 60) << "never smaller";
}

TEST_F(Lotus, SilenceShowsTwelveSmallPetals) {
    const double time = 0.4;
    const Picture seen = draw(time);
    for (int i = 0; i < 12; ++i) {
        const double angle = i * kSixth + time;
        EXPECT_TRUE(isColor(seenAt(seen, at(0.3, angle)), over(hsl(30 * i, 1.0, 0.85, 200), kBackdrop))) << i;
        const SDL_Color chord = over(hsl(30 * i, 0.95, 0.38, 170), kBackdrop);
        EXPECT_TRUE(isColor(seenAt(seen, at(0.3, angle - 0.3)), chord)) << i;
        EXPECT_TRUE(isColor(seenAt(seen, at(0.3, angle + 0.3)), chord)) << i;
        EXPECT_EQ(seenAt(seen, at(0.31, angle)), kBackdrop) << i;
    }
}

TEST_F(Lotus, SilenceShowsTwelveCounterPetals) {
    const double time = 0.21;
    const Picture seen = draw(time);
    for (int i = 0; i < 12; ++i) {
        const double angle = i * kSixth - 1.5 * time + kPi / 12;
        const SDL_Color chord = over(hsl(std::fmod(30.0 * i + 180, 360), 0.75, 0.5, 120), kBackdrop);
        EXPECT_TRUE(isColor(seenAt(seen, at(0.18, angle - 0.22)), chord)) << i;
    }
}

TEST_F(Lotus, APetalsChordsRunOutAndBackOverThemselves) {
    const Picture seen = draw();
    // Petal 0 lies to the right: its chords are upright lines, 20 pixels off its middle they lie bare.
    const SDL_Color full = hsl(0, 0.95, 0.38, 170);
    const auto chordAt = [](int k) {
        const double width = std::sin(k / 18.0 * kPi);
        return 900 + static_cast<int>(std::cos(0.3 * width) * width * 120.0);
    };
    EXPECT_TRUE(isColor(seen.at(chordAt(9), 320), over(full, kBackdrop))) << "once";
    for (const int k : {8, 7}) {
        SDL_Color chord = full;
        chord.a = static_cast<Uint8>(170 * std::sin(k / 18.0 * kPi));
        EXPECT_TRUE(isColor(seen.at(chordAt(k), 320), over(chord, over(chord, kBackdrop)), 3)) << k;
    }
    EXPECT_EQ(seen.at(chordAt(9) + 1, 320), kBackdrop);
}

TEST_F(Lotus, ThePetalsLineLiesOverItsChords) {
    const Picture seen = draw();
    const int x = 900 + static_cast<int>(std::cos(0.3) * 120.0);
    const SDL_Color chord = over(hsl(0, 0.95, 0.38, 170), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(x, 300), over(hsl(0, 1.0, 0.85, 200), chord)));
}

TEST_F(Lotus, CounterPetalsLieOverThePetals) {
    // Just here a counter-petal's middle lies on each petal's: 15 degrees less 1.5 t is t.
    const double time = kPi / 12 / 2.5;
    const Picture seen = draw(time);
    const SDL_Color line = over(hsl(0, 1.0, 0.85, 200), kBackdrop);
    const SDL_Color counter = hsl(180, 0.75, 0.5, 120);
    const SDL_Point place = at(0.18 * std::cos(0.22), time);
    bool found = false;  // the slanted line may pass a pixel beside it
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx)
            found = found || isColor(seen.at(place.x + dx, place.y + dy), over(counter, line), 3);
    }
    EXPECT_TRUE(found);
}

TEST_F(Lotus, PetalsAndCounterPetalsTurnAgainstEachOther) {
    state.lotusEnergy[6] = 0.1f;  // lifts counter-petal 0 over the petals; the mean stays below that of sound
    for (const double time : {0.0, 0.1, 0.2, 3.1}) {
        const Picture seen = draw(time);
        EXPECT_TRUE(isColor(seenAt(seen, at(0.3, time)), over(hsl(0, 1.0, 0.85, 200), kBackdrop))) << time;
        const double counter = kPi / 12 - 1.5 * time;
        const SDL_Color chord = over(hsl(180, 0.75, 0.5, 120), kBackdrop);
        EXPECT_TRUE(isColor(seenAt(seen, at(0.38, counter + 0.22)), chord)) << time;
        EXPECT_TRUE(isColor(seenAt(seen, at(0.38, counter - 0.22)), chord)) << time;
    }
}

TEST_F(Lotus, PetalsGrowWithTheirEnergy) {
    state.lotusEnergy[0] = 0.05f;  // the mean stays below that of sound
    Picture seen = draw();
    EXPECT_TRUE(isColor(seenAt(seen, at(0.425, 0.0)), over(hsl(0, 1.0, 0.85, 200), kBackdrop)));
    EXPECT_EQ(seenAt(seen, at(0.43, 0.0)), kBackdrop);
    const SDL_Color chord = over(hsl(0, 0.95, 0.53, 170), kBackdrop);
    EXPECT_TRUE(isColor(seenAt(seen, at(0.425, 0.3)), chord)) << "lighter";
    // The counter-petal of the sixth after it is the one that grows.
    const SDL_Color counter = over(hsl(0, 0.75, 0.5, 120), kBackdrop);
    EXPECT_TRUE(isColor(seenAt(seen, at(0.28, 6 * kSixth + kPi / 12 + 0.22)), counter));
}

TEST_F(Lotus, AnOpenPetalEndsAtThirteenTenthsOfTheRadius) {
    state.lotusEnergy[0] = 1.0f;
    const Picture seen = draw();
    EXPECT_TRUE(isColor(seenAt(seen, at(1.3, 0.0)), over(hsl(0, 1.0, 0.85, 200), kBackdrop), 8));
    const SDL_Color chord = over(hsl(0, 0.95, 0.72, 170), kBackdrop);
    EXPECT_TRUE(isColor(seenAt(seen, at(1.3, 0.3)), chord)) << "as light as a petal gets";
    const SDL_Color counter = over(hsl(0, 0.75, 0.5, 120), kBackdrop);
    EXPECT_TRUE(isColor(seenAt(seen, at(0.8, 6 * kSixth + kPi / 12 + 0.22)), counter));
}

TEST_F(Lotus, SoundLayersBeginAboveAMeanOfAHundredth) {
    const SDL_Point tip = at(1.4, 0.0);
    state.lotusEnergy[6] = 0.119f;
    EXPECT_EQ(seenAt(draw(), tip), kBackdrop);
    state.lotusEnergy[6] = 0.122f;
    EXPECT_TRUE(isColor(seenAt(draw(), tip), over({120, 110, 220, 8}, kBackdrop), 1));
}

TEST_F(Lotus, RaysTurnSlowlyAndEndAtFourteenTenths) {
    openLeftHalf();
    const double time = 0.8;
    const Picture seen = draw(time);
    for (const int k : {-2, -1, 0}) {
        const double angle = k * kPi / 12 + 0.18 * time;
        EXPECT_TRUE(isColor(seenAt(seen, at(1.4, angle)), over({120, 110, 220, 24}, kBackdrop), 1)) << k;
        EXPECT_EQ(seenAt(seen, at(1.41, angle)), kBackdrop) << k;
    }
}

TEST_F(Lotus, RainbowRaysGrowWithTheMean) {
    openLeftHalf();
    backdrop = {0, 0, 0, 255};
    const double time = 0.8;
    const Picture seen = draw(time);
    const double length = 0.8 * 5 / 12 + 0.8;
    for (const int k : {-1, 0, 1}) {
        const double angle = k * kPi / 12 + 0.06 * time;
        const double hue = std::fmod(15.0 * k + 20.0 * time + 360.0, 360.0);
        const SDL_Color ray = over(hsl(hue, 0.7, 0.55, 20), backdrop);
        EXPECT_TRUE(isColor(seenAt(seen, at(length, angle)), ray, 1)) << k;
        EXPECT_EQ(seenAt(seen, at(length + 0.006, angle)), backdrop) << k;
    }
}

TEST_F(Lotus, TwoTwelveSidedRingsTurnAgainstEachOther) {
    openLeftHalf();
    const SDL_Color ring{100, 75, 220, 24};
    const SDL_Color corner = over(ring, over(ring, kBackdrop));
    for (const double time : {0.2, 0.5}) {
        const Picture seen = draw(time);
        for (int k = -2; k <= 2; ++k) {
            EXPECT_TRUE(isColor(seenAt(seen, at(0.75, k * kSixth - 0.3 * time)), corner, 3)) << k;
            EXPECT_TRUE(isColor(seenAt(seen, at(0.35, k * kSixth + 0.3 * time)), corner, 3)) << k;
        }
    }
}

TEST_F(Lotus, AStarJoinsEachPetalWithTheFifthAfterIt) {
    state.lotusEnergy.fill(0.1f);
    state.lotusEnergy[0] = state.lotusEnergy[5] = 1.0f;
    // Turned by half a petal the points 0 and 5 lie level: at 1.2 of the radius, 15 degrees below.
    const Picture seen = draw(kPi / 12);
    const SDL_Color line = over({255, 190, 60, 40}, kBackdrop);  // 3 / 12 of 80, and 20
    const int y = at(1.2, kPi / 12).y;
    int lit = 0;
    for (int x = 900 - 400; x <= 900 + 400; ++x)
        lit += isColor(seen.at(x, y), line, 1) ? 1 : 0;
    EXPECT_GT(lit, 400) << "crossed by much, but mostly bare";
    EXPECT_FALSE(isColor(seen.at(900 + 470, y), line, 1)) << "1.2 of the radius is the farthest";
}

TEST_F(Lotus, TwoHalosStandAroundEachPetal) {
    openLeftHalf();
    const double time = 0.2;
    const Picture seen = draw(time);
    for (int i = -2; i <= 2; ++i) {
        const double angle = i * kSixth + time;
        const int hue = (30 * i + 360) % 360;
        const SDL_Color outer = over(hsl(hue, 0.9, 0.6, 25), kBackdrop);
        const SDL_Color inner = over(hsl(hue, 0.9, 0.6, 51), kBackdrop);
        for (const double edge : {-0.4, 0.4}) {
            EXPECT_TRUE(isColor(seenAt(seen, at(0.3 * 1.24, angle + edge)), outer, 1)) << i;
            EXPECT_TRUE(isColor(seenAt(seen, at(0.3 * 1.12, angle + edge)), inner, 1)) << i;
        }
    }
    const SDL_Color open = over(hsl(180, 0.9, 0.6, 25), kBackdrop);
    const double angle = 6 * kSixth + time;
    EXPECT_TRUE(isColor(seenAt(seen, at(1.2 * 1.24, angle - 0.4)), open, 1))
        << "no longer than 1.2 of its own";
}

TEST_F(Lotus, TheHeartIsSmallInSilence) {
    const Picture seen = draw();
    const SDL_Color ring{255, 170, 20, 20};
    const SDL_Color corner = over(ring, over(ring, kBackdrop));
    EXPECT_TRUE(isColor(seenAt(seen, atPixels(11, kPi / 18)), corner, 3));
    EXPECT_TRUE(isColor(seenAt(seen, atPixels(16, kPi / 18)), corner, 3));
    const SDL_Color core = over({255, 210, 40, 220}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(897, 297), core)) << "6 pixels wide";
    EXPECT_TRUE(isColor(seen.at(902, 297), core, 25));
    EXPECT_TRUE(isColor(seen.at(897, 302), core, 25));
    EXPECT_EQ(seen.at(896, 296), kBackdrop);
    EXPECT_EQ(seen.at(903, 303), kBackdrop);
    const SDL_Color middle{255, 240, 160, 255};
    EXPECT_EQ(seen.at(899, 299), middle);
    EXPECT_EQ(seen.at(900, 300), middle);
    EXPECT_FALSE(seen.at(898, 299) == middle);
    EXPECT_FALSE(seen.at(901, 300) == middle);
}

TEST_F(Lotus, TheHeartGrowsWithTheSoundToItsLargest) {
    openLeftHalf();
    Picture seen = draw(0.05);
    const SDL_Color middle{255, 240, 160, 255};
    EXPECT_EQ(seen.at(896, 296), middle) << "18 wide in all, 8 its middle";
    EXPECT_EQ(seen.at(903, 303), middle);
    EXPECT_FALSE(seen.at(895, 296) == middle);
    EXPECT_TRUE(isColor(seen.at(908, 292), over({255, 210, 40, 220}, kBackdrop), 25));
    EXPECT_FALSE(isColor(seen.at(910, 292), {255, 210, 40, 255}, 60));
    state.lotusEnergy.fill(1.0f);
    seen = draw(0.05);
    EXPECT_EQ(seen.at(894, 294), middle) << "24 wide, 12 its middle";
    EXPECT_EQ(seen.at(905, 305), middle);
    EXPECT_FALSE(seen.at(893, 294) == middle);
    EXPECT_TRUE(isColor(seen.at(911, 290), over({255, 210, 40, 220}, kBackdrop), 25));
    EXPECT_FALSE(isColor(seen.at(913, 290), {255, 210, 40, 255}, 60));
}

TEST_F(Lotus, TheHeartsInnerRingsAreTheBrighter) {
    openLeftHalf();
    const Picture seen = draw(0.05);
    const auto corner = [](int alpha) {
        const SDL_Color ring{255, 170, 20, static_cast<Uint8>(alpha)};
        return over(ring, over(ring, kBackdrop));
    };
    EXPECT_TRUE(isColor(seenAt(seen, atPixels(33, -kPi / 18)), corner(25), 3));
    EXPECT_TRUE(isColor(seenAt(seen, atPixels(28, -kPi / 18)), corner(28), 3));
    EXPECT_TRUE(isColor(seenAt(seen, atPixels(23, -kPi / 18)), corner(36), 3));
}

TEST_F(Lotus, EnergiesAndTimesThatAreNoNumbersDoNoHarm) {
    state.lotusEnergy[4] = 1.0f;
    const Picture plain = draw();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    state.lotusEnergy[2] = std::numeric_limits<float>::quiet_NaN();
    state.lotusEnergy[3] = -kInfinity;
    state.lotusEnergy[4] = kInfinity;
    EXPECT_TRUE(draw() == plain);
    EXPECT_TRUE(draw(std::numeric_limits<double>::quiet_NaN()) == plain);
    EXPECT_TRUE(draw(std::numeric_limits<double>::infinity()) == plain);
    EXPECT_TRUE(drawIn({0, 0, 1800, 600}, 3e38) == plain);
}

TEST_F(Lotus, StaysInItsBodyAndLeavesTheBlendModeAtNone) {
    state.lotusEnergy.fill(1.0f);
    const SDL_Rect body{700, 200, 300, 200};
    const Picture seen = drawIn(body, 0.3);
    int outside = 0;
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            const SDL_Point place{x, y};
            if (SDL_PointInRect(&place, &body) == SDL_FALSE) outside += seen.at(x, y) == kBackdrop ? 0 : 1;
        }
    }
    EXPECT_EQ(outside, 0);
    EXPECT_GT(touched(), 3000);
    SDL_BlendMode mode = SDL_BLENDMODE_ADD;
    SDL_GetRenderDrawBlendMode(screen.renderer, &mode);
    EXPECT_EQ(mode, SDL_BLENDMODE_NONE);
    EXPECT_EQ(SDL_RenderIsClipEnabled(screen.renderer), SDL_FALSE);
}

TEST_F(Lotus, ABodyWithoutSizeDrawsNothing) {
    state.lotusEnergy.fill(1.0f);
    for (const SDL_Rect& body : {SDL_Rect{100, 100, 0, 200}, {100, 100, 200, 0}, {100, 100, -50, -50}}) {
        drawIn(body);
        EXPECT_EQ(touched(), 0);
    }
    drawIn({100, 100, 1, 1});
    EXPECT_EQ(touched(), 1);
}

class LotusPanel : public Lotus {
  protected:
    LotusPanel() : Lotus(1920, 1080) { panel.rect = {100, 100, 360, 360}; }

    Picture drawPanelNow() {
        screen.clear(kBackdrop);
        drawLotusPanel(context, panel, state);
        return picture();
    }
    PanelState panel;
};

TEST_F(LotusPanel, ClosedItDrawsNothingAndTheClockStands) {
    state.viewTime = 0.5f;
    drawPanelNow();
    EXPECT_EQ(touched(), 0);
    EXPECT_EQ(state.viewTime, 0.5f);
}

TEST_F(LotusPanel, OpenItStartsTheClockAndDrawsTheFlowerAsItIsAfterTheStep) {
    panel.open = true;
    state.viewTime = 0.4f;
    state.lotusEnergy[3] = 0.6f;
    const Picture seen = drawPanelNow();
    const float after = state.viewTime;
    EXPECT_FLOAT_EQ(after, 0.406f);
    // The same picture, put together without the panel's own step.
    screen.clear(kBackdrop);
    PanelStyle style;
    style.titleColor = {255, 210, 120, 255};
    drawPanel(context, panel, "LOTUS  [12 Solfeggio]", style, [&](const PanelLayout& layout) {
        EXPECT_EQ(layout.body.x, 102);
        EXPECT_EQ(layout.body.h, 334);
        drawLotus(context, layout.body, state);
    });
    EXPECT_TRUE(picture() == seen);
    EXPECT_EQ(state.viewTime, after) << "drawing alone does not move it";
}

TEST_F(LotusPanel, BearsItsName) {
    panel.open = true;
    EXPECT_TRUE(isText(drawPanelNow(), {42, 40, 56, 255}, "LOTUS  [12 Solfeggio]", 108, 104, fonts.fontTab,
                       {255, 210, 120, 255}));
}

TEST_F(LotusPanel, FitsTheSmallestPanelAndTheWholeWindow) {
    panel.open = true;
    panel.rect = {300, 300, 200, 150};
    state.lotusEnergy.fill(1.0f);
    Picture seen = drawPanelNow();
    const SDL_Color middle{255, 240, 160, 255};
    EXPECT_EQ(seen.at(400, 386), middle);
    EXPECT_EQ(seen.at(299, 380), kBackdrop);
    EXPECT_EQ(seen.at(500, 380), kBackdrop);
    EXPECT_EQ(seen.at(400, 450), kBackdrop);
    panel.maximised = true;
    state.lotusEnergy.fill(0.0f);
    state.viewTime = -0.006f;  // the step takes it to 0
    seen = drawPanelNow();
    EXPECT_EQ(seen.at(960, 551), middle);
    const SDL_Color body = over({22, 20, 30, 248}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(960 + 210, 551), over(hsl(0, 1.0, 0.85, 200), body))) << "0.3 of 702";
    EXPECT_TRUE(isColor(seen.at(960 + 212, 551), body));
}

}  // namespace
}  // namespace veloria
