#include "toolkit/widgets.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kBlue{40, 100, 200, 255};
constexpr SDL_Color kGold{255, 200, 60, 255};

class Widgets : public test::DrawTest {};

// Row by row how far the drawn pixels stand in from both sides of the rectangle.
void expectInsets(const Picture& seen, const SDL_Rect& rect, const std::vector<int>& insets) {
    ASSERT_EQ(static_cast<int>(insets.size()), rect.h);
    for (int row = 0; row < rect.h; ++row) {
        const int y = rect.y + row;
        const int inset = insets[static_cast<std::size_t>(row)];
        EXPECT_EQ(seen.at(rect.x + inset - 1, y), kBackdrop) << "row " << row;
        EXPECT_FALSE(seen.at(rect.x + inset, y) == kBackdrop) << "row " << row;
        EXPECT_FALSE(seen.at(rect.x + rect.w - 1 - inset, y) == kBackdrop) << "row " << row;
        EXPECT_EQ(seen.at(rect.x + rect.w - inset, y), kBackdrop) << "row " << row;
    }
}

TEST_F(Widgets, AButtonDarkensByAQuarterFromTopToFoot) {
    const SDL_Rect rect{20, 30, 100, 24};
    DrawGradientButton(context, rect, 4, kBlue, false);
    const Picture seen = picture();
    for (int row = 0; row < rect.h; ++row) {
        const double factor = 1.0 - row / 24.0 * 0.25;
        const SDL_Color wanted{static_cast<Uint8>(40 * factor), static_cast<Uint8>(100 * factor),
                               static_cast<Uint8>(200 * factor), 235};
        EXPECT_TRUE(isColor(seen.at(70, 30 + row), over(wanted, kBackdrop))) << row;
    }
    EXPECT_EQ(seen.at(70, 29), kBackdrop);
    EXPECT_EQ(seen.at(70, 54), kBackdrop);
}

// 4 - sqrt(16 - d * d) for d = 4, 3, 2, 1 is 4, 1.35, 0.54, 0.13.
TEST_F(Widgets, TheCornersOfAButtonAreRound) {
    const SDL_Rect rect{20, 30, 100, 24};
    DrawGradientButton(context, rect, 4, kBlue, false);
    std::vector<int> insets(24, 0);
    insets[0] = insets[23] = 4;
    insets[1] = insets[22] = 1;
    expectInsets(picture(), rect, insets);
}

// 6 - sqrt(36 - d * d) for d = 6, 5, 4, 3 is 6, 2.68, 1.53, 0.80.
TEST_F(Widgets, ALargerRadiusRoundsMoreRows) {
    const SDL_Rect rect{20, 30, 100, 28};
    DrawGradientButton(context, rect, 6, kBlue, false);
    std::vector<int> insets(28, 0);
    insets[0] = insets[27] = 6;
    insets[1] = insets[26] = 2;
    insets[2] = insets[25] = 1;
    expectInsets(picture(), rect, insets);
}

TEST_F(Widgets, WhereTheCornersOverlapTheTopRuleCounts) {
    const SDL_Rect rect{20, 30, 100, 8};
    DrawGradientButton(context, rect, 6, kBlue, false);
    expectInsets(picture(), rect, {6, 2, 1, 0, 0, 0, 2, 6});
}

TEST_F(Widgets, AnActiveButtonHasAGoldenStripBetweenItsCorners) {
    const SDL_Rect rect{20, 30, 100, 24};
    DrawGradientButton(context, rect, 4, kBlue, false);
    const Picture idle = picture();
    screen.clear(kBackdrop);
    DrawGradientButton(context, rect, 4, kBlue, true);
    const Picture active = picture();
    for (int y = 25; y < 60; ++y) {
        for (int x = 15; x < 125; ++x) {
            const bool strip = x >= 24 && x < 116 && y >= 30 && y < 33;
            if (strip) {
                EXPECT_TRUE(isColor(active.at(x, y), over({255, 215, 0, 40}, idle.at(x, y))))
                    << x << ", " << y;
            } else {
                EXPECT_EQ(active.at(x, y), idle.at(x, y)) << x << ", " << y;
            }
        }
    }
}

TEST_F(Widgets, AButtonNarrowerThanItsCornersDrawsNoRowInsideOut) {
    DrawGradientButton(context, {20, 30, 6, 24}, 6, kBlue, true);
    const Picture seen = picture();
    EXPECT_EQ(seen.at(22, 30), kBackdrop);
    EXPECT_FALSE(seen.at(22, 42) == kBackdrop);
    for (int y = 0; y < seen.h; ++y) {
        EXPECT_EQ(seen.at(19, y), kBackdrop);
        EXPECT_EQ(seen.at(26, y), kBackdrop);
    }
}

TEST_F(Widgets, AnEmptyButtonDrawsNothing) {
    DrawGradientButton(context, {20, 30, 0, 24}, 6, kBlue, true);
    DrawGradientButton(context, {20, 30, 50, 0}, 6, kBlue, false);
    EXPECT_EQ(touched(), 0);
}

TEST_F(Widgets, AKnobIsTenByTenRoundItsCentre) {
    DrawKnob(context, 100, 80, kBlue);
    const Picture seen = picture();
    EXPECT_EQ(touched(), 100);
    const SDL_Color edge = over({255, 255, 255, 60}, kBlue);
    EXPECT_TRUE(isColor(seen.at(95, 75), edge));
    EXPECT_TRUE(isColor(seen.at(104, 84), edge));
    EXPECT_TRUE(isColor(seen.at(95, 84), edge));
    EXPECT_EQ(seen.at(96, 76), kBlue);
    EXPECT_EQ(seen.at(103, 83), kBlue);
}

constexpr SDL_Rect kTrack{100, 100, 206, 10};

// What DrawSlider shows: the x of the knob's left edge, and the colour in the track left and right of it.
struct SliderLook {
    int knobX = 0;
    SDL_Color left{};
    SDL_Color right{};
};

SliderLook lookAt(const Picture& seen) {
    SliderLook look;
    // The row under the track's middle that only the knob reaches: its lowest, and below the track.
    for (int y : {99, 110})
        EXPECT_EQ(seen.at(kTrack.x + kTrack.w + 20, y), kBackdrop);
    int x = 0;
    while (x < seen.w && isColor(seen.at(x, 105), over({255, 255, 255, 60}, kGold)) == false)
        ++x;
    look.knobX = x;
    look.left = seen.at(x - 1, 105);
    look.right = seen.at(x + 10, 105);
    return look;
}

TEST_F(Widgets, ASliderIsFilledByItsShareAndTheKnobStandsAtTheEnd) {
    DrawSlider(context, kTrack, 7.0f, 14.0f, kBlue, kGold);
    const Picture seen = picture();
    const SliderLook look = lookAt(seen);
    EXPECT_EQ(look.knobX, 100 + 103 - 5);
    EXPECT_TRUE(isColor(look.left, over({40, 100, 200, 200}, theme.themeTrack)));
    EXPECT_EQ(look.right, theme.themeTrack);
    EXPECT_TRUE(isColor(seen.at(100, 100), over({40, 100, 200, 200}, theme.themeTrack)));
    EXPECT_TRUE(isColor(seen.at(100, 109), over({40, 100, 200, 200}, theme.themeTrack)));
    EXPECT_EQ(seen.at(100, 110), kBackdrop);
    EXPECT_EQ(seen.at(305, 100), theme.themeTrack);
    EXPECT_EQ(seen.at(306, 100), kBackdrop);
}

TEST_F(Widgets, TheKnobStandsOnTheMiddleLine) {
    DrawSlider(context, {100, 100, 206, 6}, 1.0f, 2.0f, kBlue, kGold);
    const Picture seen = picture();
    EXPECT_EQ(seen.at(203, 97), kBackdrop);
    EXPECT_FALSE(seen.at(203, 98) == kBackdrop);
    EXPECT_FALSE(seen.at(203, 107) == kBackdrop);
    EXPECT_EQ(seen.at(203, 108), kBackdrop);
}

TEST_F(Widgets, TheFillCanBeDenser) {
    DrawSlider(context, kTrack, 0.5f, 1.0f, {200, 180, 80, 255}, kGold, 220);
    const SliderLook look = lookAt(picture());
    EXPECT_EQ(look.knobX, 100 + 103 - 5);
    EXPECT_TRUE(isColor(look.left, over({200, 180, 80, 220}, theme.themeTrack)));
}

TEST_F(Widgets, TheFillIsTruncated) {
    DrawSlider(context, kTrack, 5.0f, 14.0f, kBlue, kGold);  // 73.57
    EXPECT_EQ(lookAt(picture()).knobX, 100 + 73 - 5);
}

TEST_F(Widgets, TheFillEndsWithTheTrack) {
    DrawSlider(context, kTrack, 99.0f, 14.0f, kBlue, kGold);
    const SliderLook look = lookAt(picture());
    EXPECT_EQ(look.knobX, 306 - 5);
    EXPECT_EQ(look.right, kBackdrop);
}

TEST_F(Widgets, WithoutAShareTheTrackIsEmptyAndTheKnobAtItsLeftEnd) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    const std::vector<std::pair<float, float>> cases = {{0.0f, 14.0f}, {0.5f, 0.99f},     {5.0f, 0.0f},
                                                        {3.0f, -7.0f}, {-3.0f, 14.0f},    {nan, 14.0f},
                                                        {3.0f, nan},   {-infinity, 14.0f}};
    for (const auto& [value, maximum] : cases) {
        screen.clear(kBackdrop);
        DrawSlider(context, kTrack, value, maximum, kBlue, kGold);
        const SliderLook look = lookAt(picture());
        EXPECT_EQ(look.knobX, 95) << value << " of " << maximum;
        EXPECT_EQ(look.right, theme.themeTrack) << value << " of " << maximum;
    }
}

TEST_F(Widgets, AMaximumOfExactlyOneCounts) {
    DrawSlider(context, kTrack, 1.0f, 1.0f, kBlue, kGold);
    EXPECT_EQ(lookAt(picture()).knobX, 306 - 5);
}

TEST_F(Widgets, ALitLampGlowsBrighterInwards) {
    drawLamp(context, 100, 100, kBlue, true);
    const Picture seen = picture();
    const SDL_Color halo = over({40, 100, 200, 58}, kBackdrop);
    const SDL_Color core = over({120, 180, 255, 200}, halo);
    EXPECT_TRUE(isColor(seen.at(107, 100), halo));
    EXPECT_TRUE(isColor(seen.at(105, 100), halo));
    EXPECT_EQ(seen.at(108, 100), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(104, 100), core, 3));
    EXPECT_TRUE(isColor(seen.at(101, 100), core, 3));
    for (const SDL_Point& spark : {SDL_Point{99, 99}, {100, 99}, {99, 100}, {100, 100}}) {
        EXPECT_TRUE(isColor(seen.at(spark.x, spark.y), over({255, 255, 255, 235}, core), 3));
    }
}

TEST_F(Widgets, AnUnlitLampIsTwoDarkDiscs) {
    drawLamp(context, 100, 100, kBlue, false);
    const Picture seen = picture();
    const SDL_Color ring = over({38, 38, 38, 215}, kBackdrop);
    EXPECT_EQ(seen.at(105, 100), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(104, 100), ring));
    EXPECT_TRUE(isColor(seen.at(103, 100), ring));
    EXPECT_TRUE(isColor(seen.at(102, 100), over({42, 42, 42, 200}, ring), 3));
    EXPECT_TRUE(isColor(seen.at(100, 100), over({42, 42, 42, 200}, ring), 3));
}

TEST_F(Widgets, TheTopBarsLampIsSmallerWithASparkOfTwoPixels) {
    drawSmallLamp(context, 100, 100, kBlue);
    const Picture seen = picture();
    const SDL_Color halo = over({40, 100, 200, 58}, kBackdrop);
    const SDL_Color core = over({120, 180, 255, 220}, halo);
    EXPECT_EQ(seen.at(106, 100), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(105, 100), halo));
    EXPECT_TRUE(isColor(seen.at(103, 100), core, 3));
    int sparks = 0;
    for (int y = 95; y < 106; ++y) {
        for (int x = 95; x < 106; ++x)
            sparks += isColor(seen.at(x, y), over({255, 255, 255, 235}, core), 3) ? 1 : 0;
    }
    EXPECT_EQ(sparks, 2);
}

}  // namespace
}  // namespace veloria
