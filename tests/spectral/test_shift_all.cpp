#include "spectral/shift_all.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

constexpr double kHalfPi = std::numbers::pi / 2.0;

// Every bin its own target, so that a test moves only what it names.
std::unique_ptr<SacredFft> makeStillRetuner() {
    auto retuner = fixture::makeRetuner();
    for (std::size_t k = 0; k < kBinCount; ++k)
        retuner->binTarget[k] = static_cast<std::int32_t>(k);
    return retuner;
}

TEST(MeasureTrueBin, isTheBinItselfWhenThePhaseAdvancesByItsOwnFrequency) {
    auto retuner = makeStillRetuner();
    retuner->lastPhase[5] = 0.3;
    // Bin 5 turns by 5 quarter turns in a hop, which shows as one.
    EXPECT_NEAR(measureTrueBin(*retuner, 5, 0.3 + kHalfPi), 5.0, 1e-12);
    EXPECT_EQ(retuner->lastPhase[5], 0.3 + kHalfPi);
}

TEST(MeasureTrueBin, reachesTwoBinsToEitherSide) {
    auto retuner = makeStillRetuner();
    for (const double offset : {-1.9, -0.5, 0.25, 1.0, 1.9}) {
        retuner->lastPhase[100] = -1.0;
        const double turned = -1.0 + (100.0 + offset) * kHalfPi;
        const double wrapped = std::remainder(turned, 2.0 * std::numbers::pi);
        EXPECT_NEAR(measureTrueBin(*retuner, 100, wrapped), 100.0 + offset, 1e-10) << offset;
    }
}

TEST(MeasureTrueBin, halfATurnRoundsAwayFromZero) {
    auto retuner = makeStillRetuner();
    // Bin 4 should advance by a whole turn: a phase that is half a turn short counts as half a turn ahead.
    retuner->lastPhase[4] = 0.0;
    EXPECT_NEAR(measureTrueBin(*retuner, 4, std::numbers::pi), 6.0, 1e-12);
    // Bin 2 should advance by half a turn: a whole one, half a turn ahead, counts as half a turn short.
    retuner->lastPhase[2] = -std::numbers::pi;
    EXPECT_NEAR(measureTrueBin(*retuner, 2, std::numbers::pi), 0.0, 1e-12);
}

TEST(GatherBins, addsMagnitudesAndKeepsTheStrongestSource) {
    auto retuner = makeStillRetuner();
    retuner->binTarget[50] = retuner->binTarget[51] = retuner->binTarget[52] = 51;
    retuner->spectrum[50] = {3.0, 4.0};
    retuner->spectrum[51] = {0.0, -2.0};
    retuner->spectrum[52] = {-6.0, 8.0};
    clearGathering(*retuner);
    const ShiftTally tally = gatherBins(*retuner);
    EXPECT_DOUBLE_EQ(retuner->scratch.sum[51], 17.0);
    EXPECT_EQ(retuner->scratch.source[51], 52);
    EXPECT_DOUBLE_EQ(retuner->scratch.strongest[51], 10.0);
    EXPECT_EQ(retuner->scratch.sum[50], 0.0);
    EXPECT_EQ(retuner->scratch.source[50], -1);
    EXPECT_EQ(tally.count, 2);
    EXPECT_DOUBLE_EQ(tally.totalHz, 2.0 * 44100.0 / 4096.0);
}

TEST(GatherBins, ofEqualMagnitudesTheLowestBinStays) {
    auto retuner = makeStillRetuner();
    retuner->binTarget[50] = retuner->binTarget[52] = 51;
    retuner->spectrum[50] = {0.0, 1.0};
    retuner->spectrum[52] = {1.0, 0.0};
    clearGathering(*retuner);
    static_cast<void>(gatherBins(*retuner));
    EXPECT_EQ(retuner->scratch.source[51], 50);
}

TEST(GatherBins, leavesDcAloneAndTakesTheNyquistBin) {
    auto retuner = makeStillRetuner();
    retuner->spectrum[0] = {9.0, 0.0};
    retuner->spectrum[2048] = {-7.0, 0.0};
    clearGathering(*retuner);
    static_cast<void>(gatherBins(*retuner));
    EXPECT_EQ(retuner->scratch.sum[0], 0.0);
    EXPECT_EQ(retuner->scratch.sum[2048], 7.0);
}

TEST(AdvanceSynthPhase, scalesByTheBinNumbersAndNotByTheTrueBin) {
    auto retuner = makeStillRetuner();
    retuner->scratch.source[60] = 50;
    retuner->scratch.trueBin[50] = 50.4;
    retuner->synthPhase[60] = 0.5;
    advanceSynthPhase(*retuner, 60);
    EXPECT_NEAR(retuner->synthPhase[60], 0.5 + 60.0 / 50.0 * 50.4 * kHalfPi, 1e-12);
}

TEST(AdvanceSynthPhase, aTrueBinNotAboveZeroIsNotScaled) {
    auto retuner = makeStillRetuner();
    retuner->scratch.source[3] = 1;
    for (const double trueBin : {-0.75, 0.0, 1e-6}) {
        retuner->scratch.trueBin[1] = trueBin;
        retuner->synthPhase[3] = 1.0;
        advanceSynthPhase(*retuner, 3);
        EXPECT_DOUBLE_EQ(retuner->synthPhase[3], 1.0 + trueBin * kHalfPi) << trueBin;
    }
    retuner->scratch.trueBin[1] = 2e-6;
    retuner->synthPhase[3] = 0.0;
    advanceSynthPhase(*retuner, 3);
    EXPECT_DOUBLE_EQ(retuner->synthPhase[3], 3.0 * 2e-6 * kHalfPi);
}

TEST(AdvanceSynthPhase, isReducedAboveAHundredPiOnly) {
    auto retuner = makeStillRetuner();
    const double limit = 314.1592653589793;
    retuner->scratch.source[7] = 7;
    retuner->scratch.trueBin[7] = 0.0;
    for (const double kept : {limit, 300.0, 6.5, -1000.0}) {
        retuner->synthPhase[7] = kept;
        advanceSynthPhase(*retuner, 7);
        EXPECT_EQ(retuner->synthPhase[7], kept);
    }
    retuner->synthPhase[7] = 315.0;  // 50 turns and 0.8407
    advanceSynthPhase(*retuner, 7);
    EXPECT_NEAR(retuner->synthPhase[7], 0.8407346410207, 1e-10);
}

TEST(AdvanceSynthPhase, waitsWithoutASource) {
    auto retuner = makeStillRetuner();
    retuner->scratch.source[7] = -1;
    retuner->scratch.trueBin[7] = 7.0;
    retuner->synthPhase[7] = 2.5;
    advanceSynthPhase(*retuner, 7);
    EXPECT_EQ(retuner->synthPhase[7], 2.5);
}

TEST(SynthesiseBins, aSilentBinIsAnExactZeroAndItsPhaseWaits) {
    auto retuner = makeStillRetuner();
    retuner->shifted.fill({9.0, 9.0});
    retuner->scratch.sum[10] = 9e-16;
    retuner->scratch.source[10] = 10;
    retuner->scratch.trueBin[10] = 10.0;
    retuner->synthPhase[10] = 1.25;
    retuner->scratch.sum[11] = 2.0;
    retuner->scratch.source[11] = 11;
    retuner->scratch.trueBin[11] = 4.0;  // two whole half turns
    retuner->synthPhase[11] = 0.5;
    synthesiseBins(*retuner);
    EXPECT_EQ(retuner->shifted[0], std::complex<double>(0.0));
    EXPECT_EQ(retuner->shifted[10], std::complex<double>(0.0));
    EXPECT_EQ(retuner->synthPhase[10], 1.25);
    EXPECT_NEAR(std::abs(retuner->shifted[11] - std::polar(2.0, 0.5)), 0.0, 1e-12);
}

TEST(ShiftAllBins, keepsTheRealPartOfDcAndMirrorsTheRest) {
    auto retuner = fixture::makeRetuner();
    const std::vector<float> input = fixture::noise(4096, 3);
    for (std::size_t i = 0; i < 4096; ++i)
        retuner->spectrum[i] = {input[i], input[4095 - i]};
    const double dc = retuner->spectrum[0].real();
    ShiftAllBins(*retuner);
    EXPECT_EQ(retuner->spectrum[0], std::complex<double>(dc, 0.0));
    EXPECT_EQ(retuner->spectrum[2048].imag(), 0.0);
    EXPECT_EQ(retuner->spectrum[2048].real(), retuner->shifted[2048].real());
    for (std::size_t k = 1; k < 2048; ++k) {
        ASSERT_EQ(retuner->spectrum[k], retuner->shifted[k]);
        ASSERT_EQ(retuner->spectrum[4096 - k], std::conj(retuner->shifted[k]));
    }
}

TEST(ShiftAllBins, countsTheMovingBinsOfTheTableEvenInSilence) {
    auto retuner = fixture::makeRetuner();
    int moving = 0;
    double total = 0.0;
    for (int k = 1; k <= 2048; ++k) {
        const int distance = std::abs(fixture::tables().binTarget[static_cast<std::size_t>(k)] - k);
        if (distance == 0) continue;
        ++moving;
        total += distance * 44100.0 / 4096.0;
    }
    ASSERT_GT(moving, 0);
    ShiftAllBins(*retuner);
    EXPECT_EQ(retuner->binsShifted.load(), moving);
    EXPECT_FLOAT_EQ(retuner->avgShiftHz.load(), static_cast<float>(total / moving));
    EXPECT_EQ(retuner->peakCount.load(), 0);
}

TEST(ShiftAllBins, aTableThatMovesNothingHasAnAverageOfZero) {
    auto retuner = makeStillRetuner();
    retuner->avgShiftHz = 5.0f;
    retuner->binsShifted = 5;
    ShiftAllBins(*retuner);
    EXPECT_EQ(retuner->binsShifted.load(), 0);
    EXPECT_EQ(retuner->avgShiftHz.load(), 0.0f);
}

}  // namespace
}  // namespace veloria
