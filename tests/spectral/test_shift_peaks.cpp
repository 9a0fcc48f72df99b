#include "spectral/shift_peaks.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

class ShiftPeaksTest : public testing::Test {
  protected:
    ShiftPeaksTest() : retuner_(fixture::makeRetuner()) {
        for (std::size_t k = 0; k < kBinCount; ++k) {
            retuner_->binTarget[k] = static_cast<std::int32_t>(k);
        }
    }

    // A peak of seven bins, highest in the middle, all at one phase.
    void putPeak(std::size_t bin, double magnitude, double phase) {
        const auto middle = static_cast<std::ptrdiff_t>(bin);
        for (std::ptrdiff_t d = -3; d <= 3; ++d) {
            if (middle + d < 0) continue;
            const double height = magnitude * std::pow(0.5, static_cast<double>(std::abs(d)));
            retuner_->spectrum[static_cast<std::size_t>(middle + d)] = std::polar(height, phase);
        }
    }

    [[nodiscard]] double mag(std::size_t k) const { return std::abs(retuner_->spectrum[k]); }
    [[nodiscard]] double phase(std::size_t k) const { return std::arg(retuner_->spectrum[k]); }

    std::unique_ptr<SacredFft> retuner_;
};

TEST_F(ShiftPeaksTest, aPeakAndThreeBinsOnEitherSideMoveRigidly) {
    putPeak(100, 8.0, 0.7);
    retuner_->binTarget[100] = 110;
    ShiftPeaks(*retuner_);
    for (std::size_t d = 0; d <= 6; ++d) {
        EXPECT_EQ(mag(97 + d), 0.0);
        EXPECT_NEAR(mag(107 + d), 8.0 * std::pow(0.5, std::abs(static_cast<double>(d) - 3.0)), 1e-12);
        EXPECT_NEAR(phase(107 + d), 0.7, 1e-12);
    }
    EXPECT_EQ(retuner_->binsShifted.load(), 1);
    EXPECT_EQ(retuner_->peaksFound.load(), 1);
    EXPECT_FLOAT_EQ(retuner_->avgShiftHz.load(), 10.0f * 44100.0f / 4096.0f);
    EXPECT_EQ(retuner_->maxMagnitude, 8.0f);
}

TEST_F(ShiftPeaksTest, whatIsNoPeakStaysWhereItIs) {
    putPeak(100, 8.0, 0.7);
    retuner_->spectrum[96] = std::polar(0.25, -2.0);  // beside the peak, outside its reach
    retuner_->binTarget[100] = 110;
    retuner_->binTarget[96] = 300;
    retuner_->binTarget[98] = 300;
    ShiftPeaks(*retuner_);
    EXPECT_NEAR(mag(96), 0.25, 1e-12);
    EXPECT_NEAR(phase(96), -2.0, 1e-12);
    EXPECT_EQ(mag(300), 0.0);
}

TEST_F(ShiftPeaksTest, aPeakOnItsOwnTargetNeitherClearsNorCopies) {
    putPeak(100, 8.0, 0.7);
    ShiftPeaks(*retuner_);
    for (std::size_t d = 0; d <= 6; ++d) {
        EXPECT_NEAR(mag(97 + d), 8.0 * std::pow(0.5, std::abs(static_cast<double>(d) - 3.0)), 1e-12);
    }
    EXPECT_EQ(retuner_->peaksFound.load(), 1);
    EXPECT_EQ(retuner_->binsShifted.load(), 0);
    EXPECT_EQ(retuner_->avgShiftHz.load(), 0.0f);
}

TEST_F(ShiftPeaksTest, aPeakAtBinTwoReachesDownToBinOneOnly) {
    putPeak(2, 8.0, 0.0);
    retuner_->spectrum[0] = {3.0, 0.0};
    retuner_->binTarget[2] = 52;
    ShiftPeaks(*retuner_);
    EXPECT_EQ(mag(0), 3.0);  // not cleared
    for (std::size_t k = 1; k <= 5; ++k)
        EXPECT_EQ(mag(k), 0.0) << k;
    EXPECT_EQ(mag(49), 0.0);  // would be bin -1
    EXPECT_EQ(mag(50), 0.0);  // would be bin 0
    EXPECT_NEAR(mag(51), 4.0, 1e-12);
    EXPECT_NEAR(mag(52), 8.0, 1e-12);
    EXPECT_NEAR(mag(55), 1.0, 1e-12);
}

TEST_F(ShiftPeaksTest, atTheEdgesATargetTakesOnlyWhatFits) {
    putPeak(100, 8.0, 0.0);
    retuner_->binTarget[100] = 1;
    putPeak(200, 8.0, 0.0);
    retuner_->binTarget[200] = 2048;
    ShiftPeaks(*retuner_);
    EXPECT_EQ(mag(0), 0.0);
    EXPECT_NEAR(mag(1), 8.0, 1e-12);
    EXPECT_NEAR(mag(4), 1.0, 1e-12);
    EXPECT_NEAR(mag(2048), 8.0, 1e-12);
    EXPECT_NEAR(mag(2045), 1.0, 1e-12);
}

TEST_F(ShiftPeaksTest, whereTwoPeaksMeetMagnitudesAddAndTheStrongerPhaseStays) {
    putPeak(100, 8.0, 0.5);
    putPeak(200, 2.0, -1.0);
    retuner_->binTarget[100] = 150;
    retuner_->binTarget[200] = 150;
    ShiftPeaks(*retuner_);
    EXPECT_NEAR(mag(150), 10.0, 1e-12);
    EXPECT_NEAR(phase(150), 0.5, 1e-12);

    retuner_->spectrum.fill(0.0);
    putPeak(100, 2.0, 0.5);
    putPeak(200, 8.0, -1.0);
    ShiftPeaks(*retuner_);
    EXPECT_NEAR(mag(150), 10.0, 1e-12);
    EXPECT_NEAR(phase(150), -1.0, 1e-12);
    EXPECT_EQ(retuner_->binsShifted.load(), 2);
}

TEST_F(ShiftPeaksTest, atEqualMagnitudesTheFirstPhaseStays) {
    putPeak(100, 4.0, 0.5);
    putPeak(200, 4.0, -1.0);
    // One input for both magnitudes, so that not the last digit decides.
    retuner_->spectrum[100] = {4.0, 0.0};
    retuner_->spectrum[200] = {0.0, 4.0};
    retuner_->binTarget[100] = 150;
    retuner_->binTarget[200] = 150;
    ShiftPeaks(*retuner_);
    EXPECT_NEAR(mag(150), 8.0, 1e-12);
    EXPECT_NEAR(phase(150), 0.0, 1e-12);
}

TEST_F(ShiftPeaksTest, aMovedPeakAddsToWhatStandsAtItsTarget) {
    putPeak(100, 8.0, 0.5);
    retuner_->spectrum[150] = std::polar(3.0, 2.0);
    retuner_->binTarget[100] = 150;
    ShiftPeaks(*retuner_);
    EXPECT_NEAR(mag(150), 11.0, 1e-12);
    EXPECT_NEAR(phase(150), 0.5, 1e-12);
}

TEST_F(ShiftPeaksTest, allClearingComesBeforeAnyCopying) {
    // The second peak's old place is the first one's new place: what arrives there is not cleared.
    putPeak(100, 8.0, 0.5);
    putPeak(200, 4.0, -1.0);
    retuner_->binTarget[100] = 200;
    retuner_->binTarget[200] = 300;
    ShiftPeaks(*retuner_);
    EXPECT_NEAR(mag(200), 8.0, 1e-12);
    EXPECT_NEAR(phase(200), 0.5, 1e-12);
    EXPECT_NEAR(mag(300), 4.0, 1e-12);
    EXPECT_EQ(mag(100), 0.0);
}

TEST_F(ShiftPeaksTest, aPeakStandsStrictlyAboveNeighboursAndThreshold) {
    auto& magnitudes = retuner_->scratch.magnitudes;
    magnitudes.fill(0.0);
    magnitudes[1] = 5.0;                    // too low in the spectrum
    magnitudes[10] = 1.0;                   // at the threshold, not above it
    magnitudes[20] = 1.001;                 // above
    magnitudes[30] = magnitudes[31] = 7.0;  // a plateau has no peak
    magnitudes[2046] = 3.0;                 // the highest bin that may be one
    magnitudes[2048] = 100.0;
    findPeaks(*retuner_, 1.0);
    ASSERT_EQ(retuner_->scratch.peakBinCount, 2u);
    EXPECT_EQ(retuner_->scratch.peakBins[0], 20);
    EXPECT_EQ(retuner_->scratch.peakBins[1], 2046);
    EXPECT_EQ(retuner_->peaksFound.load(), 2);
}

TEST_F(ShiftPeaksTest, bins2And2046CanBePeaksAnd2047Cannot) {
    auto& magnitudes = retuner_->scratch.magnitudes;
    magnitudes.fill(0.0);
    magnitudes[2] = 3.0;
    magnitudes[2047] = 3.0;
    findPeaks(*retuner_, 1.0);
    ASSERT_EQ(retuner_->scratch.peakBinCount, 1u);
    EXPECT_EQ(retuner_->scratch.peakBins[0], 2);
}

TEST_F(ShiftPeaksTest, theThresholdIsAHundredthOfTheLargest) {
    putPeak(100, 100.0, 0.0);
    putPeak(200, 0.99, 0.0);
    putPeak(300, 1.01, 0.0);
    ShiftPeaks(*retuner_);
    EXPECT_EQ(retuner_->peaksFound.load(), 2);
}

TEST_F(ShiftPeaksTest, dcIsNeverMoved) {
    retuner_->spectrum[0] = {-42.0, 0.0};
    putPeak(5, 8.0, 0.0);
    retuner_->binTarget[5] = 1;
    ShiftPeaks(*retuner_);
    EXPECT_EQ(retuner_->spectrum[0], std::complex<double>(-42.0, 0.0));
}

TEST_F(ShiftPeaksTest, silenceFindsAndMovesNothing) {
    retuner_->peaksFound = 9;
    retuner_->peakCount = 9;
    retuner_->binsShifted = 9;
    ShiftPeaks(*retuner_);
    EXPECT_EQ(retuner_->peaksFound.load(), 0);
    EXPECT_EQ(retuner_->peakCount.load(), 0);
    EXPECT_EQ(retuner_->binsShifted.load(), 0);
    EXPECT_EQ(retuner_->maxMagnitude, 0.0f);
    for (const auto& value : retuner_->spectrum)
        ASSERT_EQ(value, std::complex<double>(0.0));
}

}  // namespace
}  // namespace veloria
