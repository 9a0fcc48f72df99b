#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "frequency/tuned.h"

namespace veloria {
namespace {

TEST(Folding, BothEndsOfTheBandStay) {
    EXPECT_EQ(foldForTuning(1000.0).frequency, 1000.0);
    EXPECT_EQ(foldForTuning(1000.0).octaves, 0);
    EXPECT_EQ(foldForTuning(100.0).frequency, 100.0);
    EXPECT_EQ(foldForTuning(100.0).octaves, 0);
}

TEST(Folding, HalvesFromAboveAndDoublesFromBelow) {
    EXPECT_EQ(foldForTuning(1000.5).frequency, 500.25);
    EXPECT_EQ(foldForTuning(1000.5).octaves, 1);
    EXPECT_EQ(foldForTuning(16000.0).octaves, 4);
    EXPECT_EQ(foldForTuning(99.0).frequency, 198.0);
    EXPECT_EQ(foldForTuning(99.0).octaves, -1);
    EXPECT_EQ(foldForTuning(8.1757989156).octaves, -4);
}

TEST(Folding, WhatCannotBeFoldedComesBackAsItIs) {
    EXPECT_EQ(foldForTuning(0.0).frequency, 0.0);
    EXPECT_EQ(foldForTuning(-5.0).frequency, -5.0);
    EXPECT_TRUE(std::isnan(foldForTuning(std::nan("")).frequency));
    EXPECT_TRUE(std::isinf(foldForTuning(std::numeric_limits<double>::infinity()).frequency));
}

TEST(Folding, OnlyPositiveNumbersEnterAListAndOnlyToItsLimit) {
    std::vector<double> list;
    appendFolded(list, 0.0, 3);
    appendFolded(list, -1.0, 3);
    appendFolded(list, std::nan(""), 3);
    EXPECT_TRUE(list.empty());
    for (const double hz : {2000.0, 50.0, 300.0, 400.0})
        appendFolded(list, hz, 3);
    EXPECT_EQ(list, (std::vector<double>{1000.0, 100.0, 300.0}));
}

TEST(NearestTuned, AnEmptyListGivesTheTargetItself) {
    const TunedFrequency tuned = nearestTuned({}, 0, 432.1, true);
    EXPECT_EQ(tuned.frequency, 432.1);
    EXPECT_EQ(tuned.harmonic, 0);
}

TEST(NearestTuned, WithoutRatiosTheNearestScaledEntryWins) {
    const std::vector<double> list = {100.0, 200.0, 330.0};
    const TunedFrequency tuned = nearestTuned(list, 1, 420.0, false);
    EXPECT_EQ(tuned.frequency, 400.0);
    EXPECT_EQ(tuned.harmonic, 0);
    EXPECT_EQ(nearestTuned(list, -2, 30.0, false).frequency, 25.0);
}

TEST(NearestTuned, ATieKeepsTheLowerEntry) {
    const std::vector<double> list = {100.0, 200.0};
    EXPECT_EQ(nearestTuned(list, 0, 150.0, false).frequency, 100.0);
}

TEST(NearestTuned, AnEntryBeatsItsRatiosAtEqualDistance) {
    // 300 itself and 100 x3 both hit; the list is walked from 100 on, so the ratio of the lower entry comes
    // first.
    const std::vector<double> lowFirst = {100.0, 300.0};
    EXPECT_EQ(nearestTuned(lowFirst, 0, 300.0, true).harmonic, 17);
    // With 300 below the entry that reaches it by a ratio, the entry itself stays.
    const std::vector<double> entryFirst = {300.0, 600.0};
    EXPECT_EQ(nearestTuned(entryFirst, 0, 300.0, true).harmonic, 0);
    EXPECT_EQ(nearestTuned(entryFirst, 0, 300.0, true).frequency, 300.0);
}

TEST(NearestTuned, FindsTheRowOfARatio) {
    const std::vector<double> list = {100.0};
    const TunedFrequency golden = nearestTuned(list, 0, 161.8, true);
    EXPECT_EQ(golden.harmonic, 1);
    EXPECT_NEAR(golden.frequency, 161.8033988749895, 1e-9);
    EXPECT_EQ(nearestTuned(list, 0, 1.0 / 9.87, true).harmonic, 50);
    EXPECT_EQ(nearestTuned(list, 0, 33.3, true).harmonic, 18);
}

TEST(NearestTuned, ScalesByOctavesBeforeComparing) {
    const std::vector<double> list = {130.8};
    EXPECT_EQ(nearestTuned(list, -4, 8.18, true).frequency, 130.8 / 16.0);
}

}  // namespace
}  // namespace veloria
