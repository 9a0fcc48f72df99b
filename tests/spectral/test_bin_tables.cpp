#include "spectral/bin_tables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <set>
#include <string>

#include "frequency/ratio_table.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

// The 342 numbers from their digits alone: every order of one digit of each centre, and every number of the
// digits 1 to 6.
std::vector<double> numbersFromDigits() {
    std::set<int> numbers;
    for (const int a : {2, 3, 4}) {
        for (const int b : {5, 6, 7}) {
            for (const int c : {1, 8, 9}) {
                std::array<int, 3> digits = {a, b, c};
                std::sort(digits.begin(), digits.end());
                do {
                    numbers.insert(100 * digits[0] + 10 * digits[1] + digits[2]);
                } while (std::next_permutation(digits.begin(), digits.end()));
            }
        }
    }
    for (int a = 1; a <= 6; ++a) {
        for (int b = 1; b <= 6; ++b) {
            for (int c = 1; c <= 6; ++c)
                numbers.insert(100 * a + 10 * b + c);
        }
    }
    return {numbers.begin(), numbers.end()};
}

TEST(RetunerFrequencies, areThe342NumbersAscending) {
    const std::vector<double> list = retunerFrequencies();
    ASSERT_EQ(list.size(), 342u);
    // All of them lie in 111 to 974, so that folding moves none.
    EXPECT_EQ(list, numbersFromDigits());
    EXPECT_EQ(list.front(), 111.0);
    EXPECT_EQ(list.back(), 974.0);
}

TEST(BinTables, holdTheNearestOfAllCandidatesForEveryBin) {
    const SacredFft& tables = fixture::tables();
    const std::vector<double> list = numbersFromDigits();
    for (int k = 1; k <= 2048; ++k) {
        const double hz = k * 44100.0 / 4096.0;
        double scale = 1.0;
        double folded = hz;
        for (; folded > 1000.0; folded /= 2.0)
            scale *= 2.0;
        for (; folded < 100.0; folded *= 2.0)
            scale /= 2.0;
        // Backwards with "not farther", so that the earliest of equals is the one that stays.
        double nearest = 1e18;
        double nearestHz = 0.0;
        int nearestRow = -1;
        for (std::size_t entry = list.size(); entry-- > 0;) {
            for (int row = kRatioCount; row >= 0; --row) {
                const double ratio = row == 0 ? 1.0 : ratioTable[static_cast<std::size_t>(row - 1)].ratio;
                const double candidate = scale * list[entry] * ratio;
                if (std::abs(candidate - hz) <= nearest) {
                    nearest = std::abs(candidate - hz);
                    nearestHz = candidate;
                    nearestRow = row;
                }
            }
        }
        const auto at = static_cast<std::size_t>(k);
        ASSERT_EQ(tables.binTargetHz[at], nearestHz) << k;
        ASSERT_EQ(tables.binHarmonic[at], nearestRow) << k;
        const long bin = std::lround(nearestHz * 4096.0 / 44100.0);
        ASSERT_EQ(tables.binTarget[at], std::clamp(bin, 1L, 2048L)) << k;
    }
}

TEST(BinTables, binZeroHasNoTarget) {
    EXPECT_EQ(fixture::tables().binTarget[0], 0);
    EXPECT_EQ(fixture::tables().binTargetHz[0], 0.0);
    EXPECT_EQ(fixture::tables().binHarmonic[0], 0);
}

TEST(BinTables, initWritesBinZeroToo) {
    auto retuner = std::make_unique<SacredFft>();
    retuner->binTarget[0] = 5;
    retuner->binTargetHz[0] = 5.0;
    retuner->binHarmonic[0] = 5;
    retuner->Init();
    EXPECT_EQ(retuner->binTarget[0], 0);
    EXPECT_EQ(retuner->binTargetHz[0], 0.0);
    EXPECT_EQ(retuner->binHarmonic[0], 0);
    EXPECT_EQ(retuner->binTarget, fixture::tables().binTarget);
}

TEST(BinTables, initFillsNeitherWindowNorRatios) {
    auto retuner = std::make_unique<SacredFft>();
    retuner->Init();
    for (const double value : retuner->hannWindow)
        ASSERT_EQ(value, 0.0);
    for (const double value : retuner->solfeggioRatio)
        ASSERT_EQ(value, 0.0);
}

TEST(HannWindow, isSymmetricAndEndsInZero) {
    const auto& window = fixture::tables().hannWindow;
    EXPECT_EQ(window[0], 0.0);
    EXPECT_NEAR(window[4095], 0.0, 1e-15);  // a divisor of 4096 would leave 5.9e-7 here
    for (std::size_t i = 0; i < 2048; ++i) {
        ASSERT_NEAR(window[i], window[4095 - i], 1e-13);
        const double sine = std::sin(std::numbers::pi * static_cast<double>(i) / 4095.0);
        ASSERT_NEAR(window[i], sine * sine, 1e-13);
    }
    EXPECT_NEAR(window[1365], 0.75, 1e-14);  // a third of the way: (1 - cos 120 degrees) / 2
}

struct TargetRow {
    double noteHz;
    const char* ratio;
    const char* cents;
};

TEST(SolfeggioRatio, hasTheRatiosAndCentsOfItsTable) {
    const std::array<TargetRow, 13> rows = {{{146.832, "1.001142", "+2.0"},
                                             {174.614, "0.996483", "-6.1"},
                                             {261.626, "0.986142", "-24.2"},
                                             {277.183, "1.028203", "+48.2"},
                                             {369.994, "0.997312", "-4.7"},
                                             {391.995, "1.010216", "+17.6"},
                                             {415.305, "1.004082", "+7.1"},
                                             {440.000, "0.981818", "-31.8"},
                                             {523.251, "1.009076", "+15.6"},
                                             {622.254, "1.026912", "+46.0"},
                                             {739.989, "1.001366", "+2.4"},
                                             {830.609, "1.025753", "+44.0"},
                                             {987.767, "0.974927", "-44.0"}}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double ratio = fixture::tables().solfeggioRatio[i];
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.6f", ratio);
        EXPECT_STREQ(text.data(), rows[i].ratio) << i;
        std::snprintf(text.data(), text.size(), "%+.1f", std::log2(ratio) * 1200.0);
        EXPECT_STREQ(text.data(), rows[i].cents) << i;
        EXPECT_NEAR(sacredTargets[i] / ratio, rows[i].noteHz, 5e-4) << i;
    }
}

TEST(SolfeggioRatio, isOneOnANoteAndHalfASemitoneAtTheMost) {
    EXPECT_EQ(solfeggioRatioOf(440.0), 1.0);
    EXPECT_EQ(solfeggioRatioOf(880.0), 1.0);
    EXPECT_EQ(solfeggioRatioOf(27.5), 1.0);
    const double quarterTone = std::pow(2.0, 0.5 / 12.0);
    for (double hz = 100.0; hz < 1000.0; hz += 0.37) {
        const double ratio = solfeggioRatioOf(hz);
        ASSERT_LE(ratio, quarterTone * (1.0 + 1e-12)) << hz;
        ASSERT_GE(ratio, 1.0 / quarterTone * (1.0 - 1e-12)) << hz;
    }
}

}  // namespace
}  // namespace veloria
