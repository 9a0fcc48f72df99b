#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>

#include "frequency/classify.h"
#include "frequency/ratio_table.h"
#include "frequency/tables.h"

namespace veloria {
namespace {

double number(int a, int b, int c) {
    return 100.0 * a + 10.0 * b + c;
}

// The tritypes in the order of the tables: those with c = 1 first.
std::vector<std::array<int, 3>> tritypes() {
    std::vector<std::array<int, 3>> all;
    for (int a = 2; a <= 4; ++a) {
        for (int b = 5; b <= 7; ++b)
            all.push_back({a, b, 1});
    }
    for (int a = 2; a <= 4; ++a) {
        for (int b = 5; b <= 7; ++b) {
            for (int c = 8; c <= 9; ++c)
                all.push_back({a, b, c});
        }
    }
    return all;
}

TEST(Tables, RotationHoldsTheEvenOrdersOfEachTritypeAscending) {
    const auto all = tritypes();
    ASSERT_EQ(all.size(), 27u);
    for (std::size_t t = 0; t < all.size(); ++t) {
        const auto [a, b, c] = all[t];
        std::array<double, 3> even = {number(a, b, c), number(b, c, a), number(c, a, b)};
        std::sort(even.begin(), even.end());
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(rotationFreqs[3 * t + i], even[i]) << t;
    }
}

TEST(Tables, ReflectionHoldsTheOddOrdersOfEachTritypeAscending) {
    const auto all = tritypes();
    for (std::size_t t = 0; t < all.size(); ++t) {
        const auto [a, b, c] = all[t];
        std::array<double, 3> odd = {number(a, c, b), number(b, a, c), number(c, b, a)};
        std::sort(odd.begin(), odd.end());
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(reflectionFreqs[3 * t + i], odd[i]) << t;
    }
}

TEST(Tables, ReflectionFrequencyEndsAtIndex80) {
    EXPECT_EQ(reflectionFrequency(0), 152.0);
    EXPECT_EQ(reflectionFrequency(80), 974.0);
    EXPECT_EQ(reflectionFrequency(81), 0.0);
    EXPECT_EQ(reflectionFrequency(0xFFFFFFFFu), 0.0);
}

TEST(Tables, ShadowFrequencyCountsInDigitsOneToSix) {
    EXPECT_EQ(shadowFrequency(0), 111.0);
    EXPECT_EQ(shadowFrequency(5), 116.0);
    EXPECT_EQ(shadowFrequency(6), 121.0);
    EXPECT_EQ(shadowFrequency(215), 666.0);
    EXPECT_EQ(shadowFrequency(216), 0.0);
    std::uint32_t i = 0;
    for (int a = 1; a <= 6; ++a) {
        for (int b = 1; b <= 6; ++b) {
            for (int c = 1; c <= 6; ++c)
                EXPECT_EQ(shadowFrequency(i++), number(a, b, c));
        }
    }
}

TEST(Tables, ConvergenceCasesAreExactlyTheShadowNumbersThatAreAvatarNumbers) {
    std::set<double> avatar(reflectionFreqs.begin(), reflectionFreqs.end());
    avatar.insert(rotationFreqs.begin(), rotationFreqs.end());
    ASSERT_EQ(avatar.size(), 162u);
    int cases = 0;
    for (std::uint32_t i = 0; i < 216; ++i) {
        EXPECT_EQ(isConvergence(i), avatar.count(shadowFrequency(i)) == 1) << i;
        cases += isConvergence(i) ? 1 : 0;
    }
    EXPECT_EQ(cases, 36);
    EXPECT_FALSE(isConvergence(216));
}

TEST(Tables, Index10IsAConvergenceCaseAndARotationFrequency) {
    EXPECT_EQ(shadowFrequency(10), 125.0);
    EXPECT_TRUE(isConvergence(10));
    EXPECT_NE(std::find(rotationFreqs.begin(), rotationFreqs.end(), 125.0), rotationFreqs.end());
}

TEST(Tables, TheThreeFamiliesAre342DistinctFrequencies) {
    std::set<double> all(reflectionFreqs.begin(), reflectionFreqs.end());
    all.insert(rotationFreqs.begin(), rotationFreqs.end());
    for (std::uint32_t i = 0; i < 216; ++i) {
        if (!isConvergence(i)) all.insert(shadowFrequency(i));
    }
    EXPECT_EQ(all.size(), 342u);
}

TEST(Tables, ShadowGroupFollowsTheHighestDigit) {
    EXPECT_EQ(shadowGroup(0), 0);    // 111
    EXPECT_EQ(shadowGroup(4), 1);    // 115
    EXPECT_EQ(shadowGroup(5), 2);    // 116
    EXPECT_EQ(shadowGroup(29), 2);   // 156: the 6 wins over the 5
    EXPECT_EQ(shadowGroup(34), 2);   // 165
    EXPECT_EQ(shadowGroup(129), 0);  // 444
    EXPECT_EQ(shadowGroup(215), 2);
    EXPECT_EQ(shadowGroup(-1), -1);
    EXPECT_EQ(shadowGroup(216), -1);
}

TEST(Tables, SolfeggioSetsBelongTogether) {
    std::vector<double> targets(sacredTargets.begin(), sacredTargets.end());
    EXPECT_EQ(targets[7], 432.0);
    targets.erase(targets.begin() + 7);
    EXPECT_TRUE(std::equal(targets.begin(), targets.end(), solfeggio12.begin(), solfeggio12.end()));
    double sum = 0.0;
    for (const double hz : standardSolfeggio)
        sum += hz;
    EXPECT_EQ(sum / 9.0, 555.0);
}

TEST(Classify, DigitalRootOfTheWholePartWithNineForNought) {
    EXPECT_EQ(digitalRoot(528.0), 6);
    EXPECT_EQ(digitalRoot(528.99), 6);
    EXPECT_EQ(digitalRoot(963.0), 9);
    EXPECT_EQ(digitalRoot(0.0), 9);
    EXPECT_EQ(digitalRoot(0.7), 9);
    EXPECT_EQ(digitalRoot(1.0), 1);
    EXPECT_EQ(digitalRoot(9.0), 9);
    EXPECT_EQ(digitalRoot(10.0), 1);
    EXPECT_EQ(digitalRoot(std::nan("")), 9);
    EXPECT_EQ(digitalRoot(HUGE_VAL), 9);
    EXPECT_EQ(digitalRoot(1e300), 9);
}

TEST(Classify, EachBandBoundBelongsToTheLowerBand) {
    EXPECT_STREQ(bandName(0.0f), "");
    EXPECT_STREQ(bandName(-3.0f), "");
    EXPECT_STREQ(bandName(0.01f), "Delta");
    EXPECT_STREQ(bandName(4.0f), "Delta");
    EXPECT_STREQ(bandName(4.01f), "Theta");
    EXPECT_STREQ(bandName(8.0f), "Theta");
    EXPECT_STREQ(bandName(8.01f), "Alpha");
    EXPECT_STREQ(bandName(13.0f), "Alpha");
    EXPECT_STREQ(bandName(13.01f), "Beta");
    EXPECT_STREQ(bandName(30.0f), "Beta");
    EXPECT_STREQ(bandName(30.01f), "Gamma");
}

TEST(RatioTable, GoldenPiAndRootRowsKeepTheirDigits) {
    EXPECT_EQ(ratioTable[0].ratio, 1.618033988749895);
    EXPECT_EQ(ratioTable[3].ratio, 3.141592653589793);
    EXPECT_EQ(ratioTable[5].ratio, 1.73205080856857);
    EXPECT_NE(ratioTable[5].ratio, std::sqrt(3.0));
    EXPECT_EQ(ratioTable[12].ratio, 0.5773502688563948);
    EXPECT_EQ(ratioTable[13].ratio, 0.4472135954999579);
}

TEST(RatioTable, WholeNumbersAndTheirReciprocalsFollowInPairs) {
    const std::array<int, 18> numbers = {2, 3, 4, 5, 6, 7, 8, 9, 13, 21, 34, 55, 89, 144, 233, 377, 610, 987};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const int row = 15 + 2 * static_cast<int>(i);
        EXPECT_EQ(ratioTable[14 + 2 * i].ratio, numbers[i]);
        EXPECT_EQ(ratioTable[15 + 2 * i].ratio, 1.0 / numbers[i]);
        EXPECT_EQ(ratioLabel(row), "x" + std::to_string(numbers[i]));
        EXPECT_EQ(ratioLabel(row + 1), "/" + std::to_string(numbers[i]));
    }
}

TEST(RatioTable, LabelsEndAtRow50) {
    EXPECT_STREQ(ratioLabel(1), "xP");
    EXPECT_STREQ(ratioLabel(7), "xR5");
    EXPECT_STREQ(ratioLabel(8), "/P");
    EXPECT_STREQ(ratioLabel(14), "/R5");
    EXPECT_STREQ(ratioLabel(50), "/987");
    EXPECT_STREQ(ratioLabel(0), "");
    EXPECT_STREQ(ratioLabel(51), "");
    EXPECT_STREQ(ratioLabel(-1), "");
}

}  // namespace
}  // namespace veloria
