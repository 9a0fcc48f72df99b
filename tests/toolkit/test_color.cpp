#include "toolkit/color.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

TEST(Color, WithAlphaChangesTheAlphaAlone) {
    EXPECT_EQ(withAlpha({1, 2, 3, 4}, 200), (SDL_Color{1, 2, 3, 200}));
    EXPECT_EQ(withAlpha({1, 2, 3, 4}, 300), (SDL_Color{1, 2, 3, 255}));
    EXPECT_EQ(withAlpha({1, 2, 3, 4}, -1), (SDL_Color{1, 2, 3, 0}));
}

TEST(Color, BrightenStopsAt255AndKeepsTheAlpha) {
    EXPECT_EQ(brighten({10, 200, 226, 77}, 30), (SDL_Color{40, 230, 255, 77}));
    EXPECT_EQ(brighten({255, 0, 1, 0}, 80), (SDL_Color{255, 80, 81, 0}));
}

// Saturation 0.65 and lightness 0.4: chroma 0.52, offset 0.14. The three levels are 0.66, 0.27 and 0.14 of
// 255, truncated.
TEST(Color, EachSextantOfTheHueHasItsOrderOfChannels) {
    EXPECT_EQ(hslToRgb(15, 0.65f, 0.4f), (SDL_Color{168, 68, 35, 255}));
    EXPECT_EQ(hslToRgb(105, 0.65f, 0.4f), (SDL_Color{68, 168, 35, 255}));
    EXPECT_EQ(hslToRgb(135, 0.65f, 0.4f), (SDL_Color{35, 168, 68, 255}));
    EXPECT_EQ(hslToRgb(225, 0.65f, 0.4f), (SDL_Color{35, 68, 168, 255}));
    EXPECT_EQ(hslToRgb(255, 0.65f, 0.4f), (SDL_Color{68, 35, 168, 255}));
    EXPECT_EQ(hslToRgb(345, 0.65f, 0.4f), (SDL_Color{168, 35, 68, 255}));
}

TEST(Color, TheHueGoesRoundTheCircle) {
    EXPECT_EQ(hslToRgb(360, 0.6f, 0.4f), hslToRgb(0, 0.6f, 0.4f));
    EXPECT_EQ(hslToRgb(375, 0.6f, 0.4f), hslToRgb(15, 0.6f, 0.4f));
    EXPECT_EQ(hslToRgb(-15, 0.6f, 0.4f), hslToRgb(345, 0.6f, 0.4f));
}

TEST(Color, NoSaturationIsGrey) {
    EXPECT_EQ(hslToRgb(200, 0.0f, 0.5f), (SDL_Color{127, 127, 127, 255}));
    EXPECT_EQ(hslToRgb(200, 1.0f, 1.0f), (SDL_Color{255, 255, 255, 255}));
    EXPECT_EQ(hslToRgb(200, 1.0f, 0.0f), (SDL_Color{0, 0, 0, 255}));
}

// The same conversion by another road, without sextants, in double precision.
double literalChannel(int n, double hue, double saturation, double lightness) {
    const double k = std::fmod(n + hue / 30.0, 12.0);
    const double a = saturation * std::min(lightness, 1.0 - lightness);
    return 255.0 * (lightness - a * std::max(-1.0, std::min({k - 3.0, 9.0 - k, 1.0})));
}

TEST(Color, EveryHueAgreesWithTheConversionWithoutSextants) {
    for (int tenth = 0; tenth < 3600; ++tenth) {
        const double hue = tenth / 10.0;
        for (const double lightness : {0.2, 0.38, 0.4, 0.7}) {
            const SDL_Color seen = hslToRgb(static_cast<float>(hue), 0.6f, static_cast<float>(lightness));
            // Truncated: at most one below the true value, but for the rounding of single precision.
            for (const auto& [channel, n] : {std::pair{seen.r, 0}, {seen.g, 8}, {seen.b, 4}}) {
                const double exact = literalChannel(n, hue, 0.6, lightness);
                EXPECT_LT(channel, exact + 0.001) << hue;
                EXPECT_GT(channel, exact - 1.001) << hue;
            }
        }
    }
}

}  // namespace
}  // namespace veloria
