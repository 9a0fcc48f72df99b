// The search by the sorted table against the trials of every entry with every ratio.
#include "frequency/tuned_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "frequency/tables.h"

namespace veloria {
namespace {

void expectSame(const TunedTable& table, std::int32_t octaves, double target) {
    const TunedFrequency expected = nearestTuned(table.frequencies, octaves, target, true);
    const TunedFrequency actual = nearestTuned(table, octaves, target);
    if (std::isnan(target)) {
        ASSERT_TRUE(std::isnan(actual.frequency));
    } else {
        ASSERT_EQ(actual.frequency, expected.frequency) << target << " at " << octaves;
    }
    ASSERT_EQ(actual.harmonic, expected.harmonic) << target << " at " << octaves;
}

std::vector<double> foldedAll(bool shadow) {
    std::vector<double> list;
    if (shadow) {
        for (std::uint32_t i = 0; i < kShadowIndexCount; ++i)
            appendFolded(list, shadowFrequency(i), 342);
    } else {
        for (const double hz : reflectionFreqs)
            appendFolded(list, hz, 342);
        for (const double hz : rotationFreqs)
            appendFolded(list, hz, 342);
    }
    return list;
}

// The lists in use, sorted, and lists that are small, hold duplicates or stand in no order.
const std::vector<TunedTable>& tables() {
    static const std::vector<TunedTable> made = [] {
        std::vector<double> avatar = foldedAll(false);
        std::vector<double> shadow = foldedAll(true);
        const TunedTable unsorted = makeTunedTable(avatar);
        std::vector<double> all = avatar;
        all.insert(all.end(), shadow.begin(), shadow.end());
        for (std::vector<double>* list : {&avatar, &shadow, &all})
            std::sort(list->begin(), list->end());
        return std::vector<TunedTable>{makeTunedTable(avatar),
                                       makeTunedTable(shadow),
                                       makeTunedTable(all),
                                       unsorted,
                                       makeTunedTable(std::vector<double>{100.0, 100.0, 200.0, 400.0}),
                                       makeTunedTable(std::vector<double>{432.0})};
    }();
    return made;
}

TEST(TunedTable, aHundredThousandFrequenciesAreTunedAsByTrials) {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> octave(std::log2(8.0), std::log2(22050.0));
    for (int i = 0; i < 100000; ++i) {
        const double hz = std::exp2(octave(random));
        // The trials take their time: each frequency meets one of the tables, and they come round.
        const TunedTable& table = tables()[static_cast<std::size_t>(i) % 3];
        expectSame(table, foldForTuning(hz).octaves, hz);
    }
}

TEST(TunedTable, everyKeyAndEveryBinIsTunedAsByTrials) {
    for (const TunedTable& table : tables()) {
        for (int key = -12; key < 256; ++key) {
            const double hz = 440.0 * std::pow(2.0, (key - 69) / 12.0);
            expectSame(table, foldForTuning(hz).octaves, hz);
        }
        for (int bin = 1; bin <= 2048; ++bin) {
            const double hz = bin * 10.7666015625;
            expectSame(table, foldForTuning(hz).octaves, hz);
        }
    }
}

TEST(TunedTable, atEqualDistancesTheFirstTrialStays) {
    std::mt19937 random(2);
    for (const TunedTable& table : tables()) {
        ASSERT_FALSE(table.candidates.empty());
        for (int i = 0; i < 2000; ++i) {
            const std::size_t at = random() % (table.candidates.size() - 1);
            const double low = table.candidates[at].hz;
            const double high = table.candidates[at + 1].hz;
            for (const std::int32_t octaves : {-4, 0, 3}) {
                for (const double middle : {low, (low + high) * 0.5, std::nextafter((low + high) * 0.5, 1e9)})
                    expectSame(table, octaves, std::ldexp(middle, octaves));
            }
        }
    }
}

TEST(TunedTable, whatIsNoFrequencyIsTreatedAsByTrials) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const TunedTable& table : tables()) {
        for (const double target : {0.0, -0.0, -5.0, -1e17, 5e-324, 1e-120, 1e16, 1e17, 9.9e17, 1e18, 1.1e18,
                                    1e300, kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()}) {
            for (const std::int32_t octaves : {0, -1, 7, 60, 199, 201, -201, 1100, -1100})
                expectSame(table, octaves, target);
        }
    }
}

TEST(TunedTable, listsThatCannotBeScaledAreSearchedByTrials) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const std::vector<double>& list :
         {std::vector<double>{}, {1e-60, 100.0}, {100.0, 1e60}, {100.0, kInfinity}, {std::nan(""), 200.0}}) {
        const TunedTable table = makeTunedTable(list);
        EXPECT_TRUE(table.candidates.empty());
        for (const double target : {1.0, 150.0, 1e5})
            expectSame(table, 1, target);
    }
}

}  // namespace
}  // namespace veloria
