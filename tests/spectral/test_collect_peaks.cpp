#include "spectral/collect_peaks.h"

#include <gtest/gtest.h>

#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

// Lone bins of the given magnitudes at 10, 20, 30 ...
std::unique_ptr<SacredFft> withPeaks(const std::vector<double>& magnitudes) {
    auto retuner = fixture::makeRetuner();
    for (std::size_t i = 0; i < magnitudes.size(); ++i)
        retuner->shifted[10 * (i + 1)] = magnitudes[i];
    return retuner;
}

std::vector<int> binsOf(const SacredFft& retuner) {
    std::vector<int> bins;
    for (std::int32_t i = 0; i < retuner.peakCount; ++i) {
        const float hz = retuner.peaks[static_cast<std::size_t>(i)].sourceHz;
        bins.push_back(static_cast<int>(std::lround(hz * 4096.0f / 44100.0f)));
    }
    return bins;
}

TEST(CollectPeaks, sortsByLevelStrongestFirst) {
    auto retuner = withPeaks({3.0, 8.0, 5.0});
    CollectPeaks(*retuner);
    EXPECT_EQ(binsOf(*retuner), (std::vector<int>{20, 30, 10}));
    EXPECT_FLOAT_EQ(retuner->peaks[0].level, 1.0f);
    EXPECT_FLOAT_EQ(retuner->peaks[1].level, 0.625f);
    EXPECT_FLOAT_EQ(retuner->peaks[2].level, 0.375f);
}

TEST(CollectPeaks, aRowTellsItsBinAndThatBinsTarget) {
    auto retuner = withPeaks({1.0});
    retuner->shifted[10] = 0.0;
    retuner->shifted[1922] = {0.0, -2.0};
    CollectPeaks(*retuner);
    ASSERT_EQ(retuner->peakCount.load(), 1);
    EXPECT_EQ(retuner->peaks[0].sourceHz, static_cast<float>(1922 * 44100.0 / 4096.0));
    EXPECT_EQ(retuner->peaks[0].targetHz, 20672.0f);
    EXPECT_EQ(retuner->peaks[0].harmonic, 15);
}

TEST(CollectPeaks, atEqualLevelsTheLowerBinComesFirst) {
    auto retuner = withPeaks({4.0, 4.0, 4.0});
    CollectPeaks(*retuner);
    EXPECT_EQ(binsOf(*retuner), (std::vector<int>{10, 20, 30}));
}

TEST(CollectPeaks, theNinthPeakReplacesTheLastRowEvenIfItIsWeaker) {
    auto retuner = withPeaks({9.0, 8.0, 7.0, 6.0, 5.0, 4.0, 3.5, 3.0, 1.0});
    CollectPeaks(*retuner);
    EXPECT_EQ(retuner->peakCount.load(), 8);
    EXPECT_EQ(binsOf(*retuner), (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 90}));
}

TEST(CollectPeaks, theLastRowHoldsTheLatestWeakPeak) {
    auto retuner = withPeaks({9.0, 8.0, 7.0, 6.0, 5.0, 4.0, 3.5, 3.0, 1.0, 2.0, 0.5});
    CollectPeaks(*retuner);
    EXPECT_EQ(binsOf(*retuner), (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 110}));
}

TEST(CollectPeaks, aStrongLatePeakPushesTheLastRowOut) {
    auto retuner = withPeaks({9.0, 8.0, 7.0, 6.0, 5.0, 4.0, 3.5, 3.0, 7.5});
    CollectPeaks(*retuner);
    EXPECT_EQ(binsOf(*retuner), (std::vector<int>{10, 20, 90, 30, 40, 50, 60, 70}));
}

TEST(CollectPeaks, aPeakStandsStrictlyAboveTwoPercentOfTheLargest) {
    auto retuner = withPeaks({100.0, 2.0, 2.001, 1.5});
    CollectPeaks(*retuner);
    EXPECT_EQ(binsOf(*retuner), (std::vector<int>{10, 30}));
}

TEST(CollectPeaks, aPlateauAndTheOutermostBinsAreNoPeaks) {
    auto retuner = fixture::makeRetuner();
    retuner->shifted[0] = retuner->shifted[1] = 5.0;
    retuner->shifted[50] = retuner->shifted[51] = 5.0;
    retuner->shifted[2047] = 5.0;
    CollectPeaks(*retuner);
    EXPECT_EQ(retuner->peakCount.load(), 0);
    retuner->shifted[0] = retuner->shifted[1] = retuner->shifted[2047] = 0.0;
    retuner->shifted[1] = 5.0;  // above both neighbours, and still too low
    CollectPeaks(*retuner);
    EXPECT_EQ(retuner->peakCount.load(), 0);
    retuner->shifted[1] = 0.0;
    retuner->shifted[2] = 5.0;
    retuner->shifted[2046] = 4.0;
    CollectPeaks(*retuner);
    EXPECT_EQ(binsOf(*retuner), (std::vector<int>{2, 2046}));
}

TEST(CollectPeaks, levelsAreRelativeToTheLargestOfAllBinsDcIncluded) {
    auto retuner = withPeaks({3.0});
    retuner->shifted[0] = 6.0;
    CollectPeaks(*retuner);
    ASSERT_EQ(retuner->peakCount.load(), 1);
    EXPECT_FLOAT_EQ(retuner->peaks[0].level, 0.5f);
}

TEST(CollectPeaks, silenceHasNoRowsAndLeavesTheOldOnesInPlace) {
    auto retuner = withPeaks({3.0});
    CollectPeaks(*retuner);
    const float before = retuner->peaks[0].sourceHz;
    retuner->shifted[10] = 9e-13;
    CollectPeaks(*retuner);
    EXPECT_EQ(retuner->peakCount.load(), 0);
    EXPECT_EQ(retuner->peaks[0].sourceHz, before);
    retuner->shifted[10] = 2e-12;
    CollectPeaks(*retuner);
    EXPECT_EQ(retuner->peakCount.load(), 1);
}

}  // namespace
}  // namespace veloria
