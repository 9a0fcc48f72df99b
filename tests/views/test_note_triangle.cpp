// Which points of the enneagram the digits of a frequency join.
#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "views/sacred/sacred_geometry.h"

namespace veloria {
namespace {

void expectTriangle(float hz, int a, int b, float c) {
    const std::optional<NoteTriangle> triangle = noteTriangle(hz);
    ASSERT_TRUE(triangle.has_value()) << hz;
    EXPECT_EQ(triangle->cornerA, a) << hz;
    EXPECT_EQ(triangle->cornerB, b) << hz;
    EXPECT_FLOAT_EQ(triangle->cornerC, c) << hz;
}

TEST(NoteTriangleRule, ThreeDigitsAreThreeCorners) {
    expectTriangle(396.0f, 3, 0, 6.0f);
    expectTriangle(174.0f, 1, 7, 4.0f);
    expectTriangle(528.0f, 5, 2, 8.0f);
}

TEST(NoteTriangleRule, ZeroAndNineAreTheTop) {
    expectTriangle(909.0f, 0, 0, 0.0f);
    expectTriangle(90.0f, 0, 0, 0.0f);
    expectTriangle(5.0f, 0, 0, 5.0f);
}

TEST(NoteTriangleRule, TheDecimalSlidesTheThirdCornerToTheNextPoint) {
    expectTriangle(396.5f, 3, 0, 6.5f);
    expectTriangle(174.25f, 1, 7, 4.2f);
    expectTriangle(109.5f, 1, 0, 0.5f);
    expectTriangle(108.75f, 1, 0, 8.7f);
}

TEST(NoteTriangleRule, ThousandsAreDropped) {
    expectTriangle(1234.5f, 2, 3, 4.5f);
    expectTriangle(21234.5f, 2, 3, 4.5f);
    expectTriangle(1000.0f, 0, 0, 0.0f);
}

TEST(NoteTriangleRule, TheProductIsOfSinglePrecision) {
    // In single precision 528.3 is 528.299988: its product with 10 is 5283 again, where a longer one would be
    // cut to 5282.
    ASSERT_LT(static_cast<double>(528.3f) * 10.0, 5283.0);
    expectTriangle(528.3f, 5, 2, 8.3f);
}

TEST(NoteTriangleRule, WhatHasNoDigitsHasNoTriangle) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float hz : {0.0f, -396.0f, kInfinity, -kInfinity, std::numeric_limits<float>::quiet_NaN(),
                           std::numeric_limits<float>::max()}) {
        EXPECT_FALSE(noteTriangle(hz).has_value()) << hz;
    }
    const std::optional<NoteTriangle> huge = noteTriangle(1e30f);
    ASSERT_TRUE(huge.has_value());
    EXPECT_TRUE(huge->cornerA >= 0 && huge->cornerA < 9);
    EXPECT_TRUE(huge->cornerB >= 0 && huge->cornerB < 9);
    EXPECT_TRUE(huge->cornerC >= 0.0f && huge->cornerC < 9.0f);
}

}  // namespace
}  // namespace veloria
