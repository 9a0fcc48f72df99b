// What the shifting modes are for: a tone off the table comes out on it.
#include <gtest/gtest.h>

#include <cmath>

#include "spectral/block.h"
#include "tests/spectral/literal_transform.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

constexpr double kBinHz = 44100.0 / 4096.0;

// The strongest frequency of the last 32768 samples, to 1.35 Hz.
double strongestHz(const std::vector<float>& x) {
    constexpr std::size_t kSize = 32768;
    std::vector<literal::Complex> spectrum(kSize);
    for (std::size_t i = 0; i < kSize; ++i) {
        const double window = 0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * static_cast<double>(i) / kSize);
        spectrum[i] = window * x[x.size() - kSize + i];
    }
    literal::forward(spectrum);
    std::size_t best = 1;
    for (std::size_t k = 1; k <= kSize / 2; ++k) {
        if (std::abs(spectrum[k]) > std::abs(spectrum[best])) best = k;
    }
    return static_cast<double>(best) * 44100.0 / kSize;
}

// The bin of the strongest frequency in one block's output, as the ring holds it.
std::size_t strongestBinOfOneBlock(SacredFft& retuner, const std::vector<float>& input, int mode) {
    std::copy(input.begin(), input.begin() + kBlockSize, retuner.inputRing.begin());
    ProcessBlock(retuner, {mode, 100, 8});
    std::vector<literal::Complex> spectrum(retuner.outputRing.begin(),
                                           retuner.outputRing.begin() + kBlockSize);
    literal::forward(spectrum);
    const auto louder = [](literal::Complex a, literal::Complex b) { return std::abs(a) < std::abs(b); };
    const auto best = std::max_element(spectrum.begin(), spectrum.begin() + kBinCount, louder);
    return static_cast<std::size_t>(best - spectrum.begin());
}

double retune(SacredFft& retuner, int mode, double hz) {
    retuner.SetMode(mode);
    return strongestHz(fixture::run(retuner, fixture::tone(hz, 60000)));
}

// Bins whose nearest table frequency lies in another bin.
std::vector<std::size_t> someMovingBins() {
    std::vector<std::size_t> bins;
    for (std::size_t k = 1; k < kBinCount; ++k) {
        if (fixture::tables().binTarget[k] != static_cast<std::int32_t>(k) && k % 4 == 1) bins.push_back(k);
    }
    return bins;
}

// A table that draws everything near `middle` to it.
void drawTo(SacredFft& retuner, std::size_t middle) {
    for (std::size_t k = middle * 7 / 8; k <= middle * 9 / 8; ++k) {
        retuner.binTarget[k] = static_cast<std::int32_t>(middle);
    }
}

class Pitch : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(FullAndPeak, Pitch, testing::Values(1, 2));

TEST_P(Pitch, withinABlockAToneOffTheTableStandsAtItsBinsTarget) {
    for (const std::size_t bin : someMovingBins()) {
        auto retuner = fixture::makeRetuner();
        const std::vector<float> input = fixture::tone(static_cast<double>(bin) * kBinHz, kBlockSize);
        const auto target = static_cast<std::size_t>(retuner->binTarget[bin]);
        EXPECT_EQ(strongestBinOfOneBlock(*retuner, input, GetParam()), target) << bin;
        ASSERT_GE(retuner->peakCount.load(), 1);
        EXPECT_EQ(retuner->peaks[0].sourceHz, static_cast<float>(static_cast<double>(target) * kBinHz))
            << bin;
    }
}

TEST_P(Pitch, aToneOnTheTableStaysWhereItIs) {
    for (const double hz : {258.0, 528.0, 639.0, 852.0, 1056.0}) {
        auto retuner = fixture::makeRetuner();
        EXPECT_NEAR(retune(*retuner, GetParam(), hz), hz, 1.4) << hz;
    }
}

TEST(PitchOfFullMode, aSteadyToneOffTheTableComesOutAtItsBinsTarget) {
    const std::vector<std::size_t> bins = someMovingBins();
    ASSERT_GT(bins.size(), 40u);
    for (std::size_t i = 0; i < bins.size(); i += 3) {
        auto retuner = fixture::makeRetuner();
        const double target = retuner->binTarget[bins[i]] * kBinHz;
        const double hz = static_cast<double>(bins[i]) * kBinHz;
        EXPECT_NEAR(retune(*retuner, kModeFull, hz), target, kBinHz / 2.0) << bins[i];
    }
}

TEST(PitchOfFullMode, anyDistanceIsGoneToTheTarget) {
    for (const double offset : {-6.0, -5.0, -2.5, 1.0, 4.3, 7.0}) {
        auto retuner = fixture::makeRetuner();
        drawTo(*retuner, 80);
        EXPECT_NEAR(retune(*retuner, kModeFull, (80.0 + offset) * kBinHz), 80.0 * kBinHz, kBinHz / 2.0)
            << offset;
    }
}

// A moved peak keeps the phase of its source, which turns from block to block at the source's frequency. Bins
// four apart turn alike over a hop, so a steady tone settles a multiple of four bins from its source: at its
// target if that is one, else at the multiple nearest to it. This is the sound of the mode.
TEST(PitchOfPeakMode, aSteadyToneReachesATargetAWholeFourBinsAway) {
    for (const int distance : {-8, -4, 4, 8}) {
        auto retuner = fixture::makeRetuner();
        drawTo(*retuner, 80);
        EXPECT_NEAR(retune(*retuner, kModePeak, (80.0 - distance) * kBinHz), 80.0 * kBinHz, kBinHz / 2.0)
            << distance;
    }
}

TEST(PitchOfPeakMode, elsewhereASteadyToneSettlesAtTheNearestWholeFourBins) {
    struct Move {
        int distance;
        int settled;
    };
    for (const Move move : {Move{1, 0}, Move{-1, 0}, Move{3, 4}, Move{-3, -4}, Move{5, 4}, Move{7, 8}}) {
        auto retuner = fixture::makeRetuner();
        drawTo(*retuner, 80);
        const double source = 80.0 - move.distance;
        EXPECT_NEAR(retune(*retuner, kModePeak, source * kBinHz), (source + move.settled) * kBinHz, 1.4)
            << move.distance;
    }
}

TEST(PitchOfFullMode, aToneDrawnIntoOneBinIsAThirdLouder) {
    // The window spreads a tone over its bin and, at half the height, over each neighbour. Drawn into one bin
    // they give back the tone without its first window, and the second alone adds up to 2, where the square
    // of it would to 1.5.
    auto retuner = fixture::makeRetuner();
    drawTo(*retuner, 80);
    retuner->SetMode(kModeFull);
    const std::vector<float> output = fixture::run(*retuner, fixture::tone(84.0 * kBinHz, 40000, 0.25));
    const auto [low, high] = std::minmax_element(output.end() - 8192, output.end());
    EXPECT_NEAR(*high, 0.25 * 4.0 / 3.0, 0.001);
    EXPECT_NEAR(*low, -0.25 * 4.0 / 3.0, 0.001);
}

TEST(PitchOfFullMode, synthPhaseRunsBeyondOneTurnUpToAHundredPi) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(kModeFull);
    double largest = 0.0;
    for (int block = 0; block < 200; ++block) {
        fixture::run(*retuner, fixture::tone(40.0 * kBinHz, 1024));
        largest = std::max(largest, retuner->synthPhase[40]);
        ASSERT_LE(retuner->synthPhase[40], 314.1592653589793);
    }
    EXPECT_GT(largest, 200.0);
}

TEST(PitchOfFullMode, staysTrueOverTwoMinutes) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(kModeFull);
    const std::vector<float> output = fixture::run(*retuner, fixture::tone(528.0, 44100 * 120));
    EXPECT_NEAR(strongestHz(output), 528.0, 1.4);
    const float high = *std::max_element(output.end() - 44100, output.end());
    EXPECT_GT(high, 0.3f);
    EXPECT_LT(high, 0.8f);
}

}  // namespace
}  // namespace veloria
