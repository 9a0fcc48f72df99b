// What runs against the literal stages: bit for bit, on every instruction set of this machine.
#include "spectral/fast_block.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "spectral/block.h"
#include "spectral/transform.h"
#include "spectral/twiddles.h"
#include "tests/spectral/retuner_fixture.h"
#include "tests/vector_targets.h"

namespace veloria {
namespace {

// Music: chords that ring on and decay into each other, drums, a rest of digital silence, and the steps of a
// 16-bit file.
std::vector<float> music(std::size_t seconds, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<double> sound(seconds * 44100);
    const auto chance = [&] { return static_cast<double>(random() % 10000) / 10000.0; };
    for (std::size_t start = 0; start < sound.size(); start += 11025) {
        for (int voice = 0; voice < 5; ++voice) {
            const double hz = 55.0 * std::exp2(std::floor(chance() * 60.0) / 12.0);
            const double decay = 1.0 + 6.0 * chance();
            const double level = 0.02 + 0.08 * chance();
            const std::size_t length = std::min<std::size_t>(44100, sound.size() - start);
            for (std::size_t n = 0; n < length; ++n) {
                const double t = static_cast<double>(n) / 44100.0;
                const double angle = 2.0 * std::numbers::pi * hz * t;
                sound[start + n] +=
                    level * std::exp(-decay * t) *
                    (std::sin(angle) + 0.5 * std::sin(2.0 * angle) + 0.2 * std::sin(5.0 * angle));
            }
        }
        for (std::size_t n = 0; n < std::min<std::size_t>(4000, sound.size() - start); ++n)
            sound[start + n] += 0.2 * (chance() - 0.5) * std::exp(-static_cast<double>(n) / 800.0);
    }
    std::vector<float> samples(sound.size());
    for (std::size_t n = 0; n < samples.size(); ++n) {
        const bool rest = n / 22050 % 20 == 7;
        samples[n] = rest ? 0.0f : static_cast<float>(std::round(sound[n] * 32767.0) / 32768.0);
    }
    return samples;
}

// What the panel shows after a block.
struct Shown {
    std::int32_t binsShifted;
    float avgShiftHz;
    std::int32_t peaksFound;
    float maxMagnitude;
    std::int32_t peakCount;
    std::array<PeakEntry, kPeakRows> peaks;

    bool operator==(const Shown& other) const {
        return binsShifted == other.binsShifted && avgShiftHz == other.avgShiftHz &&
               peaksFound == other.peaksFound && maxMagnitude == other.maxMagnitude &&
               peakCount == other.peakCount && std::memcmp(&peaks, &other.peaks, sizeof peaks) == 0;
    }
};

Shown shownBy(const SacredFft& retuner) {
    return {retuner.binsShifted,  retuner.avgShiftHz, retuner.peaksFound,
            retuner.maxMagnitude, retuner.peakCount,  retuner.peaks};
}

struct Heard {
    std::vector<float> samples;
    std::vector<Shown> shown;  // after every hop
};

Heard playThrough(const std::vector<float>& input, const RetunerSettings& settings, BlockStep step) {
    const auto retuner = fixture::makeRetuner();
    Heard heard;
    heard.samples = input;
    const std::span<float> samples(heard.samples);
    for (std::size_t at = 0; at < input.size(); at += kHopSize) {
        processSpectralRun(*retuner, samples.subspan(at, std::min(kHopSize, input.size() - at)), settings,
                           step);
        heard.shown.push_back(shownBy(*retuner));
    }
    return heard;
}

void expectSame(const Heard& actual, const Heard& expected) {
    std::size_t differing = 0;
    float farthest = 0.0f;
    for (std::size_t n = 0; n < expected.samples.size(); ++n) {
        if (actual.samples[n] == expected.samples[n]) continue;
        ++differing;
        farthest = std::max(farthest, std::fabs(actual.samples[n] - expected.samples[n]));
    }
    EXPECT_EQ(differing, 0u) << "farthest " << farthest;
    ASSERT_EQ(actual.shown.size(), expected.shown.size());
    for (std::size_t i = 0; i < expected.shown.size(); ++i)
        ASSERT_EQ(actual.shown[i], expected.shown[i]) << "hop " << i;
}

void compareOn(const std::vector<float>& input, const RetunerSettings& settings) {
    SCOPED_TRACE("mode " + std::to_string(settings.mode) + " at " + std::to_string(settings.strength));
    const Heard expected = playThrough(input, settings, ProcessBlock);
    test::onEveryTarget([&] { expectSame(playThrough(input, settings, processBlockFast), expected); });
}

TEST(FastBlock, aMinuteOfMusicIsThatOfTheLiteralStages) {
    const std::vector<float> input = music(60, 1);
    for (const std::int32_t mode : {kModeFull, kModePeak}) {
        for (const std::int32_t strength : {100, 40}) {
            const RetunerSettings settings{mode, strength, 8};
            SCOPED_TRACE("mode " + std::to_string(mode) + " at " + std::to_string(strength));
            expectSame(playThrough(input, settings, processBlockFast),
                       playThrough(input, settings, ProcessBlock));
        }
    }
}

TEST(FastBlock, onEveryInstructionSetMusicIsThatOfTheLiteralStages) {
    const std::vector<float> input = music(6, 9);
    for (const std::int32_t mode : {kModeFull, kModePeak}) {
        for (const std::int32_t strength : {100, 0, 40})
            compareOn(input, {mode, strength, 8});
    }
}

TEST(FastBlock, strangeSignalsAreThoseOfTheLiteralStages) {
    const std::size_t length = 5 * kBlockSize;
    std::vector<std::vector<float>> signals;
    signals.emplace_back(length, 0.0f);
    signals.emplace_back(length, -0.0f);
    signals.emplace_back(length, 0.5f);
    std::vector<float> clicks(length);
    for (std::size_t n = 100; n < length; n += 3000)
        clicks[n] = n % 2 == 0 ? 1.0f : -1.0f;
    signals.push_back(clicks);
    signals.push_back(fixture::tone(100.0 * kBinWidthHz, length));
    std::vector<float> alternating(length, 0.25f);
    for (std::size_t n = 0; n < length; n += 2)
        alternating[n] = -0.25f;
    signals.push_back(alternating);
    for (const float scale : {1e-20f, 1e-38f, 1e-44f, 1e20f, 1e37f}) {
        signals.push_back(fixture::noise(length, 4));
        for (float& x : signals.back())
            x *= scale;
    }
    std::vector<float> halfSilent = fixture::noise(length, 5);
    std::fill(halfSilent.begin() + length / 3, halfSilent.begin() + 2 * length / 3, 0.0f);
    signals.push_back(halfSilent);
    for (std::size_t i = 0; i < signals.size(); ++i) {
        SCOPED_TRACE("signal " + std::to_string(i));
        for (const std::int32_t mode : {kModeFull, kModePeak})
            compareOn(signals[i], {mode, 100, 8});
    }
}

TEST(FastBlock, aModeOfNoKindIsPassedOnAsTheLiteralStagesDo) {
    compareOn(fixture::noise(4 * kBlockSize, 6), {9, 100, 8});
    compareOn(fixture::noise(4 * kBlockSize, 6), {9, 30, 8});
}

TEST(FastBlock, theModesMayChangeFromBlockToBlock) {
    const std::vector<float> input = music(4, 2);
    test::onEveryTarget([&] {
        const auto literal = fixture::makeRetuner();
        const auto fast = fixture::makeRetuner();
        std::mt19937 random(3);
        for (std::size_t at = 0; at + kHopSize <= input.size(); at += kHopSize) {
            const RetunerSettings settings{random() % 2 == 0 ? kModeFull : kModePeak,
                                           static_cast<std::int32_t>(random() % 101), 8};
            std::vector<float> a(input.begin() + static_cast<std::ptrdiff_t>(at),
                                 input.begin() + static_cast<std::ptrdiff_t>(at + kHopSize));
            std::vector<float> b = a;
            processSpectralRun(*literal, a, settings, ProcessBlock);
            processSpectralRun(*fast, b, settings, processBlockFast);
            ASSERT_EQ(a, b) << at;
            ASSERT_EQ(literal->synthPhase, fast->synthPhase) << at;
            ASSERT_EQ(literal->lastPhase, fast->lastPhase) << at;
        }
    });
}

TEST(FastBlock, theRingsMayStandAnywhere) {
    test::onEveryTarget([&] {
        const auto literal = fixture::makeRetuner();
        const auto fast = fixture::makeRetuner();
        const std::vector<float> noise = fixture::noise(kBlockSize, 7);
        for (SacredFft* retuner : {literal.get(), fast.get()}) {
            std::copy(noise.begin(), noise.end(), retuner->inputRing.begin());
            retuner->inputPos = 1237;
            retuner->outputWrite = 5003;
        }
        ProcessBlock(*literal, {kModeFull, 100, 8});
        processBlockFast(*fast, {kModeFull, 100, 8});
        EXPECT_EQ(fast->outputRing, literal->outputRing);
        EXPECT_EQ(fast->outputWrite, literal->outputWrite);
        EXPECT_EQ(std::memcmp(&fast->shifted, &literal->shifted, sizeof fast->shifted), 0);
    });
}

TEST(FastTransform, theHalfSpectrumIsTheLiteralOneBitForBit) {
    for (const float scale : {1.0f, 0.0f, 1e-30f}) {
        const std::vector<float> noise = fixture::noise(kBlockSize, 8, scale);
        std::vector<std::complex<double>> expected(noise.begin(), noise.end());
        forwardTransform(expected);
        test::onEveryTarget([&] {
            const auto retuner = fixture::makeRetuner();
            std::copy(noise.begin(), noise.end(), retuner->fast.input.real());
            forwardBlock(*retuner);
            for (std::size_t k = 0; k < kBinCount; ++k) {
                const std::complex<double> value{retuner->fast.output.real()[k],
                                                 retuner->fast.output.imag()[k]};
                ASSERT_EQ(std::memcmp(&value, &expected[k], sizeof value), 0) << k;
            }
        });
    }
}

// Values of every size and slope.
std::vector<double> anyValues(std::size_t count, unsigned seed) {
    std::mt19937_64 random(seed);
    std::normal_distribution<double> normal;
    std::uniform_int_distribution<int> power(-60, 20);
    std::vector<double> values(count);
    for (double& value : values)
        value = std::ldexp(normal(random), random() % 2 == 0 ? 0 : power(random));
    const double special[] = {0.0, -0.0, 1.0, -1.0, 1e-200, -1e-160, 1e160, 5e-324, 0.5, -2.0};
    for (std::size_t i = 0; i < count; i += 7)
        values[i] = special[random() % std::size(special)];
    return values;
}

// By either way to a magnitude: the one that this machine's library allows, and asking it where in doubt.
class PolarValues : public testing::TestWithParam<bool> {};

INSTANTIATE_TEST_SUITE_P(CorrectedOrAsked, PolarValues,
                         testing::Values(transformTables().hypotIsCorrectedRoot, false));

TEST_P(PolarValues, areTheLibrarysBitForBit) {
    constexpr std::size_t kCount = 2048;
    test::onEveryTarget([&] {
        DoubtBits doubts{}, moreDoubts{};
        for (unsigned run = 0; run < 100; ++run) {
            const std::vector<double> x = anyValues(kCount, 2 * run);
            const std::vector<double> y = anyValues(kCount, 2 * run + 1);
            std::vector<double> magnitudes(kCount), phases(kCount);
            polarValues(x.data(), y.data(), kCount, GetParam(), {magnitudes.data(), phases.data()}, doubts,
                        moreDoubts);
            for (std::size_t i = 0; i < kCount; ++i) {
                ASSERT_EQ(magnitudes[i], std::hypot(x[i], y[i])) << x[i] << ' ' << y[i];
                const double phase = std::atan2(y[i], x[i]);
                ASSERT_EQ(std::memcmp(&phases[i], &phase, sizeof phase), 0) << x[i] << ' ' << y[i];
            }
        }
    });
}

TEST(SinesAndCosines, areTheLibrarysBitForBit) {
    constexpr std::size_t kCount = 2048;
    test::onEveryTarget([&] {
        DoubtBits doubts{}, moreDoubts{};
        for (unsigned run = 0; run < 100; ++run) {
            std::vector<double> angles = anyValues(kCount, 1000 + run);
            for (std::size_t i = 0; i < kCount; i += 2)
                angles[i] *= run % 2 == 0 ? 100.0 : 1000.0;
            std::vector<double> sines(kCount), cosines(kCount);
            sinesAndCosines(angles.data(), kCount, {sines.data(), cosines.data()}, doubts, moreDoubts);
            for (std::size_t i = 0; i < kCount; ++i) {
                ASSERT_EQ(sines[i], std::sin(angles[i])) << angles[i];
                ASSERT_EQ(cosines[i], std::cos(angles[i])) << angles[i];
            }
        }
    });
}

TEST(ProcessSamples, givesWhatSampleAfterSampleGives) {
    const std::vector<float> input = music(2, 4);
    for (const std::int32_t mode : {0, 1, 2, 3}) {
        for (const std::int32_t strength : {100, 55}) {
            const RetunerSettings settings{mode, strength, 7};
            const auto one = fixture::makeRetuner();
            const auto many = fixture::makeRetuner();
            std::vector<float> expected(input.size());
            std::transform(input.begin(), input.end(), expected.begin(),
                           [&](float x) { return one->processSample(x, settings); });
            std::vector<float> actual = input;
            std::mt19937 random(5);
            for (std::size_t at = 0; at < actual.size();) {
                const std::size_t length = std::min<std::size_t>(random() % 3000, actual.size() - at);
                many->processSamples(std::span(actual).subspan(at, length), settings);
                at += length;
            }
            EXPECT_EQ(actual, expected) << mode;
            EXPECT_EQ(many->hopCount, one->hopCount);
            EXPECT_EQ(many->outputRing, one->outputRing);
        }
    }
}

}  // namespace
}  // namespace veloria
