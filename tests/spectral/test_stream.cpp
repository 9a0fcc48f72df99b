// Modes 0, 1 and 2 from sample to sample.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "spectral/block.h"
#include "tests/spectral/literal_retuner.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

constexpr std::size_t kDelay = 4096;
constexpr std::size_t kSettled = kDelay + 3072;  // from here on every sample is in four blocks

TEST(ModeOff, passesEverySampleOnBitForBit) {
    auto retuner = fixture::makeRetuner();
    std::vector<float> input = fixture::noise(5000, 1, 2.0f);
    input[17] = -0.0f;
    input[18] = 1e-42f;
    const std::vector<float> output = fixture::run(*retuner, input);
    EXPECT_EQ(std::memcmp(output.data(), input.data(), input.size() * sizeof(float)), 0);
    EXPECT_EQ(retuner->inputPos, 0);
    EXPECT_EQ(retuner->fillCount, 0);
    EXPECT_EQ(retuner->timeWrite, 0u);
    EXPECT_EQ(retuner->outputRead, 0);
}

class SpectralModes : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(FullAndPeak, SpectralModes, testing::Values(1, 2));

TEST_P(SpectralModes, areSilentForTheFirst4096Samples) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(GetParam());
    const std::vector<float> output = fixture::run(*retuner, fixture::tone(1000.0, kDelay + 1024));
    for (std::size_t n = 0; n < kDelay; ++n)
        ASSERT_EQ(output[n], 0.0f) << n;
    EXPECT_GT(*std::max_element(output.begin() + kDelay, output.end()), 0.01f);
}

TEST_P(SpectralModes, agreeWithTheLiteralComputationInEveryBit) {
    for (const int strength : {100, 99, 37, 0}) {
        auto retuner = fixture::makeRetuner();
        retuner->SetMode(GetParam());
        retuner->strength = strength;
        literal::Retuner expected(fixture::tables(), GetParam(), strength);
        std::vector<float> input = fixture::noise(4096 + 20 * 1024 + 11, 42, 0.05f);
        // Tones in bins that move, and one that does not.
        for (const double hz : {440.0, 6449.0, 9504.0, 20692.0, 21069.0}) {
            const std::vector<float> partial = fixture::tone(hz, input.size(), 0.15, hz);
            for (std::size_t n = 0; n < input.size(); ++n)
                input[n] += partial[n];
        }
        for (std::size_t n = 0; n < input.size(); ++n) {
            ASSERT_EQ(retuner->processSample(input[n]), expected.process(input[n])) << n;
        }
        EXPECT_EQ(retuner->binsShifted.load(), expected.shiftedCount);
        EXPECT_GT(expected.shiftedCount, 0);
        EXPECT_EQ(retuner->avgShiftHz.load(), expected.shiftedHz);
        EXPECT_EQ(retuner->peaksFound.load(), expected.found);  // 0 in mode 1, which looks for none
        ASSERT_EQ(retuner->peakCount.load(), static_cast<int>(expected.peaks.size()));
        for (std::size_t i = 0; i < expected.peaks.size(); ++i) {
            EXPECT_EQ(retuner->peaks[i].sourceHz, expected.peaks[i].source);
            EXPECT_EQ(retuner->peaks[i].targetHz, expected.peaks[i].target);
            EXPECT_EQ(retuner->peaks[i].level, expected.peaks[i].level);
            EXPECT_EQ(retuner->peaks[i].harmonic, expected.peaks[i].harmonic);
        }
    }
}

TEST_P(SpectralModes, atStrengthZeroGiveTheDrySignal4096SamplesLate) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(GetParam());
    retuner->strength = 0;
    const std::vector<float> input = fixture::noise(60000, 5);
    const std::vector<float> output = fixture::run(*retuner, input);
    double largest = 0.0;
    for (std::size_t n = kSettled; n < output.size(); ++n) {
        largest = std::max(largest, std::abs(double{output[n]} - double{input[n - kDelay]}));
    }
    // The window is symmetric and not periodic, so its squares add up to 1.5 only within some 4e-4.
    EXPECT_LT(largest, 0.5 * 1e-3);
}

TEST_P(SpectralModes, haveUnityGainAtStrengthZero) {
    for (const double hz : {40.0, 440.0, 5000.0, 18000.0}) {
        auto retuner = fixture::makeRetuner();
        retuner->SetMode(GetParam());
        retuner->strength = 0;
        const std::vector<float> input = fixture::tone(hz, 44100 + kSettled);
        const std::vector<float> output = fixture::run(*retuner, input);
        double in = 0.0;
        double out = 0.0;
        for (std::size_t n = kSettled; n < output.size(); ++n) {
            in += double{input[n - kDelay]} * input[n - kDelay];
            out += double{output[n]} * output[n];
        }
        EXPECT_NEAR(10.0 * std::log10(out / in), 0.0, 0.1) << hz;
    }
}

TEST_P(SpectralModes, startUpFadesInOverThreeHops) {
    // The first samples lie in one block only and not in four.
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(GetParam());
    retuner->strength = 0;
    const std::vector<float> input(kSettled + 1024, 0.5f);
    const std::vector<float> output = fixture::run(*retuner, input);
    for (const std::size_t n : {0u, 100u, 1023u, 1500u, 3000u}) {
        double squares = 0.0;
        for (std::size_t start = 0; start <= n; start += 1024) {
            const double sine = std::sin(std::numbers::pi * static_cast<double>(n - start) / 4095.0);
            squares += sine * sine * sine * sine;
        }
        EXPECT_NEAR(output[kDelay + n], 0.5 * squares * 2.0 / 3.0, 1e-6) << n;
    }
}

TEST_P(SpectralModes, leaveAConstantSignalAlone) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(GetParam());
    const std::vector<float> output = fixture::run(*retuner, std::vector<float>(40000, 0.25f));
    double mean = 0.0;
    for (std::size_t n = output.size() - 16384; n < output.size(); ++n)
        mean += output[n] / 16384.0;
    EXPECT_NEAR(mean, 0.25, 0.002);
}

TEST_P(SpectralModes, giveSilenceForSilence) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(GetParam());
    retuner->peakCount = 3;
    std::vector<float> averages;
    for (int block = 0; block < 6; ++block) {
        const std::vector<float> output = fixture::run(*retuner, std::vector<float>(4096, 0.0f));
        for (const float x : output)
            ASSERT_EQ(x, 0.0f);
        averages.push_back(retuner->avgShiftHz);
        EXPECT_EQ(retuner->peakCount.load(), 0);
        EXPECT_EQ(retuner->binsShifted.load() > 0, GetParam() == 1);
    }
    for (const float average : averages)
        EXPECT_EQ(average, averages.front());
}

TEST_P(SpectralModes, theMovedBinsAreAMatterOfTheTableInFullModeOnly) {
    auto quiet = fixture::makeRetuner();
    auto loud = fixture::makeRetuner();
    quiet->SetMode(GetParam());
    loud->SetMode(GetParam());
    fixture::run(*quiet, std::vector<float>(4096, 0.0f));
    fixture::run(*loud, fixture::tone(21069.0, 4096));
    if (GetParam() == 1) {
        EXPECT_EQ(quiet->binsShifted.load(), loud->binsShifted.load());
        EXPECT_EQ(quiet->avgShiftHz.load(), loud->avgShiftHz.load());
    } else {
        EXPECT_EQ(quiet->binsShifted.load(), 0);
        EXPECT_EQ(loud->binsShifted.load(), 1);
    }
}

TEST_P(SpectralModes, runABlockAtTheFirstFillAndThenEvery1024Samples) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(GetParam());
    std::vector<std::size_t> blocks;
    std::int32_t write = retuner->outputWrite;
    for (std::size_t n = 0; n < 4096 + 10 * 1024; ++n) {
        static_cast<void>(retuner->processSample(0.1f));
        if (retuner->outputWrite == write) continue;
        write = retuner->outputWrite;
        blocks.push_back(n);
    }
    ASSERT_EQ(blocks.size(), 11u);
    for (std::size_t b = 0; b < blocks.size(); ++b)
        EXPECT_EQ(blocks[b], 4095 + 1024 * b);
}

TEST(SpectralBlock, atFullStrengthTheDrySpectrumIsNotEvenKept) {
    auto retuner = fixture::makeRetuner();
    retuner->inputRing.fill(0.5f);
    ProcessBlock(*retuner, {kModeFull, 100, 8});
    for (const auto& value : retuner->scratch.dry)
        ASSERT_EQ(value, std::complex<double>(0.0));
    ProcessBlock(*retuner, {kModeFull, 99, 8});
    EXPECT_NE(retuner->scratch.dry[0], std::complex<double>(0.0));
}

TEST(SpectralBlock, theMixIsLinearAndTheOuterBinsAreReal) {
    auto retuner = fixture::makeRetuner();
    for (std::size_t k = 0; k < kBinCount; ++k) {
        retuner->spectrum[k] = {1.0 + static_cast<double>(k), 2.0};
        retuner->scratch.dry[k] = {5.0, -6.0};
    }
    mixSpectrum(*retuner, 0.25f);
    EXPECT_EQ(retuner->spectrum[0], std::complex<double>(0.25 * 1.0 + 0.75 * 5.0, 0.0));
    EXPECT_EQ(retuner->spectrum[2048], std::complex<double>(0.25 * 2049.0 + 0.75 * 5.0, 0.0));
    EXPECT_EQ(retuner->spectrum[3], std::complex<double>(0.25 * 4.0 + 0.75 * 5.0, 0.25 * 2.0 - 0.75 * 6.0));
    EXPECT_EQ(retuner->spectrum[4093], std::conj(retuner->spectrum[3]));
    EXPECT_EQ(retuner->spectrum[2049], std::conj(retuner->spectrum[2047]));
}

TEST(SpectralBlock, theInputIsReadFromItsOldestSample) {
    auto retuner = fixture::makeRetuner();
    retuner->hannWindow.fill(2.0);
    for (std::size_t i = 0; i < 4096; ++i)
        retuner->inputRing[i] = static_cast<float>(i);
    retuner->inputPos = 4000;
    windowInput(*retuner);
    EXPECT_EQ(retuner->spectrum[0], std::complex<double>(8000.0, 0.0));
    EXPECT_EQ(retuner->spectrum[95], std::complex<double>(8190.0, 0.0));
    EXPECT_EQ(retuner->spectrum[96], std::complex<double>(0.0, 0.0));
    EXPECT_EQ(retuner->spectrum[4095], std::complex<double>(7998.0, 0.0));
}

TEST(SpectralBlock, overlapAddWrapsRoundTheRingAndMovesOnByAHop) {
    auto retuner = fixture::makeRetuner();
    retuner->hannWindow.fill(0.5);
    retuner->spectrum.fill({3.0, 7.0});
    retuner->outputRing.fill(1.0f);
    retuner->outputWrite = 7168;
    overlapAdd(*retuner);
    EXPECT_EQ(retuner->outputWrite, 0);
    EXPECT_EQ(retuner->outputRing[7167], 1.0f);
    EXPECT_EQ(retuner->outputRing[7168], 1.0f + 1.5f * 0.6666667f);
    EXPECT_EQ(retuner->outputRing[3071], 1.0f + 1.5f * 0.6666667f);
    EXPECT_EQ(retuner->outputRing[3072], 1.0f);
}

TEST(SpectralBlock, takingAnOutputEmptiesItsPlace) {
    auto retuner = fixture::makeRetuner();
    retuner->outputRing[8191] = 0.75f;
    retuner->outputRead = 8191;
    EXPECT_EQ(takeOutput(*retuner), 0.75f);
    EXPECT_EQ(retuner->outputRing[8191], 0.0f);
    EXPECT_EQ(retuner->outputRead, 0);
}

TEST(SpectralBlock, aModeBeyondTheFourRetunesNothing) {
    auto retuner = fixture::makeRetuner();
    retuner->inputRing.fill(0.5f);
    windowInput(*retuner);
    const auto before = retuner->spectrum;
    shiftSpectrum(*retuner, 9);
    EXPECT_EQ(retuner->spectrum, before);
}

}  // namespace
}  // namespace veloria
