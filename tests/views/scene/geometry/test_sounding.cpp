#include "views/scene/geometry/sounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace veloria {
namespace {

bool near(double frequency, std::vector<float> sounding) {
    return isSoundingNear(frequency, sounding);
}
bool exact(double frequency, std::vector<float> sounding) {
    return isSoundingExact(frequency, sounding);
}

TEST(SoundingNear, WithinThreePerCent) {
    EXPECT_TRUE(near(400, {411.9f}));
    EXPECT_FALSE(near(400, {412.0f}));
    EXPECT_TRUE(near(400, {388.1f}));
    EXPECT_FALSE(near(400, {388.0f}));
}

TEST(SoundingNear, WholeOctavesComeHome) {
    EXPECT_TRUE(near(400, {1610.0f})) << "805, 402.5";
    EXPECT_TRUE(near(400, {99.0f})) << "198, 396";
    EXPECT_TRUE(near(396, {792.0f}));
    EXPECT_TRUE(near(396, {198.0f}));
    EXPECT_TRUE(near(400, {1600.0f}));
    EXPECT_TRUE(near(400, {100.0f}));
    // Just inside the octave a pitch stays where it is, whole octave or nearly.
    EXPECT_FALSE(near(400, {799.9f}));
    EXPECT_FALSE(near(400, {200.1f}));
}

TEST(SoundingNear, AnyOfThemIsEnoughAndNoneIsNot) {
    EXPECT_TRUE(near(528, {147.0f, 700.0f, 528.0f}));
    EXPECT_FALSE(near(528, {}));
}

TEST(SoundingExact, WithinHalfAHertz) {
    EXPECT_TRUE(exact(147, {147.4f}));
    EXPECT_TRUE(exact(147, {146.6f}));
    EXPECT_FALSE(exact(147, {147.5f}));
    EXPECT_FALSE(exact(147, {}));
}

TEST(SoundingExact, WhatLiesInTheTablesRangeHasNoOctaves) {
    EXPECT_FALSE(exact(147, {296.0f})) << "would be 148";
    EXPECT_FALSE(exact(147, {100.0f}));
    EXPECT_FALSE(exact(147, {999.99f}));
    EXPECT_FALSE(exact(147, {148.0f})) << "within 2 per cent, but in range";
}

TEST(SoundingExact, OutsideItAnOctaveWithinTwoPerCentLights) {
    EXPECT_TRUE(exact(147, {1180.0f})) << "590, 295, 147.5";
    EXPECT_TRUE(exact(528, {1060.0f})) << "530";
    EXPECT_TRUE(exact(150, {74.0f})) << "148";
    EXPECT_TRUE(exact(500, {1005.0f})) << "502.5";
    EXPECT_FALSE(exact(500, {1020.5f})) << "510.25 is more than 10 off";
    // Ten times 147 is no octave of it: 735.5, 367.75, 183.9.
    EXPECT_FALSE(exact(147, {1471.0f}));
    EXPECT_TRUE(exact(147, {1176.0f})) << "three octaves";
    EXPECT_TRUE(exact(500, {1000.0f}));
    EXPECT_TRUE(exact(150, {75.0f}));
    EXPECT_FALSE(exact(147, {1175.0f})) << "stays at 293.75, just below the octave";
}

TEST(Sounding, WhatIsNoPitchNeitherLightsNorHangs) {
    const float infinite = std::numeric_limits<float>::infinity();
    const std::vector<float> odd{0.0f, -5.0f, infinite, -infinite, std::nanf("")};
    EXPECT_FALSE(near(147, odd));
    EXPECT_FALSE(exact(147, odd));
    for (const double frequency : {0.0, -3.0, static_cast<double>(infinite), std::nan("")}) {
        EXPECT_FALSE(near(frequency, {147.0f, 0.0f}));
        EXPECT_FALSE(exact(frequency, {147.0f, 0.0f}));
    }
}

}  // namespace
}  // namespace veloria
