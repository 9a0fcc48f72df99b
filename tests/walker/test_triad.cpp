#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/walker/literal_walk.h"
#include "walker/triad.h"

namespace veloria {
namespace {

TEST(Triad, EveryTripleOfRootsHasTheKindThatItsSetOrSumTells) {
    for (int a = 1; a <= 9; ++a) {
        for (int b = 1; b <= 9; ++b) {
            for (int c = 1; c <= 9; ++c) {
                const int roots[] = {a, b, c};
                EXPECT_EQ(classifyTriad({a, b, c}), test::kindOf(roots)) << a << b << c;
            }
        }
    }
}

TEST(Triad, SetsComeBeforeTheSumAndEqualRootsBeforeBoth) {
    EXPECT_EQ(classifyTriad({9, 3, 6}), kTriadMind);   // 18
    EXPECT_EQ(classifyTriad({3, 3, 3}), kTriadUnity);  // 9
    EXPECT_EQ(classifyTriad({9, 9, 9}), kTriadUnity);  // 27
    EXPECT_EQ(classifyTriad({7, 1, 4}), kTriadBody);
    EXPECT_EQ(classifyTriad({8, 5, 2}), kTriadHeart);
    EXPECT_EQ(classifyTriad({2, 3, 4}), kTriadBalance);
    EXPECT_EQ(classifyTriad({1, 1, 4}), kTriadSilence);
}

TEST(Triad, RowsHoldTextColourAndVolume) {
    struct Row {
        const char* text;
        Rgba colour;
        float volume;
    };
    const Row rows[] = {{"Silence", {140, 140, 160, 200}, 0.7f},   {"Body/147", {255, 120, 80, 230}, 0.8f},
                        {"Heart/258", {80, 220, 180, 230}, 0.85f}, {"Mind/369", {220, 100, 255, 255}, 0.85f},
                        {"Unity", {255, 255, 80, 255}, 0.95f},     {"Balance", {120, 200, 255, 230}, 0.7f}};
    for (std::int32_t kind = 0; kind < 6; ++kind) {
        EXPECT_STREQ(triadRow(kind).text, rows[kind].text);
        EXPECT_EQ(triadRow(kind).colour, rows[kind].colour) << kind;
        EXPECT_EQ(triadRow(kind).volume, rows[kind].volume) << kind;
    }
    EXPECT_STREQ(triadRow(-1).text, "Silence");
    EXPECT_STREQ(triadRow(6).text, "Silence");
}

TEST(DigitalRootState, WorkedCases) {
    EXPECT_EQ(nextDrState(1, 952), 56);  // 9 + 45 + 2
    EXPECT_EQ(drValueOf(56), 2);
    EXPECT_EQ(nextDrState(30, 111), 40);  // 30 + 9 + 1
    EXPECT_EQ(nextDrState(8, 982), 65);   // 72 + 72 + 2 = 146
    EXPECT_EQ(nextDrState(1, 999), 18);   // 9 + 81 + 9 = 99
    EXPECT_EQ(nextDrState(2, 55), 68);    // no hundreds count as nine: 18 + 45 + 5
}

TEST(DigitalRootState, ZeroReadsAs81AndItsRootAsNine) {
    EXPECT_EQ(nextDrState(9, 900), 81);
    EXPECT_EQ(nextDrState(81, 900), 81);
    EXPECT_EQ(drValueOf(81), 9);
    EXPECT_EQ(drValueOf(9), 9);
    EXPECT_EQ(drValueOf(10), 1);
}

TEST(DigitalRootState, StaysIn1To81ForEveryStateAndFrequency) {
    for (std::int32_t state = 1; state <= 81; ++state) {
        for (const test::LiteralRow& row : test::literalScale()) {
            const std::int32_t next = nextDrState(state, row.hz);
            ASSERT_GE(next, 1);
            ASSERT_LE(next, 81);
            EXPECT_EQ(drValueOf(next), test::rootOf(next));
        }
    }
}

}  // namespace
}  // namespace veloria
