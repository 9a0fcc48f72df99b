// Mode 3: the stream resampled.
#include "spectral/time_domain.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/spectral/callback_stand_in.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

constexpr std::int32_t k432 = 7;  // ratio 0.981818
constexpr std::int32_t k528 = 8;  // ratio 1.009076
constexpr std::int32_t k285 = 3;  // ratio 1.028203

std::unique_ptr<SacredFft> makeSolfeggio(std::int32_t target, std::int32_t strength = 100) {
    auto retuner = fixture::makeRetuner();
    retuner->targetIndex = target;
    retuner->strength = strength;
    retuner->SetMode(kModeSolfeggio);
    return retuner;
}

// The cubic by its usual matrix, in double precision.
double catmullRom(double ym, double y0, double y1, double y2, double f) {
    return 0.5 * (2.0 * y0 + (y1 - ym) * f + (2.0 * ym - 5.0 * y0 + 4.0 * y1 - y2) * f * f +
                  (3.0 * y0 - ym - 3.0 * y1 + y2) * f * f * f);
}

// What mode 3 gives for frame n of `input`, with the read position counted up as it is.
double expectedWet(const std::vector<float>& input, double position) {
    const auto i = static_cast<std::ptrdiff_t>(position);
    const auto at = [&](std::ptrdiff_t n) {
        return n < 0 ? 0.0 : static_cast<double>(input.at(static_cast<std::size_t>(n)));
    };
    return catmullRom(at(i - 1), at(i), at(i + 1), at(i + 2), position - static_cast<double>(i));
}

TEST(TimeDomain, theFirstFourSamplesAreSilent) {
    for (const std::int32_t target : {k432, k528}) {
        auto retuner = makeSolfeggio(target);
        fixture::FilePlayer file{std::vector<float>(100, 0.5f)};
        for (int n = 0; n < 4; ++n)
            EXPECT_EQ(fixture::playFrame(*retuner, file), 0.0f) << n;
        EXPECT_EQ(fixture::playFrame(*retuner, file), 0.5f);
        EXPECT_EQ(retuner->timeWarmup, 4);
    }
}

TEST(TimeDomain, resamplesByTheCubicBelowAndAboveOne) {
    const std::vector<float> input = fixture::noise(6000, 20);
    for (const std::int32_t target : {k432, k528, k285}) {
        auto retuner = makeSolfeggio(target);
        fixture::FilePlayer file{input};
        const std::vector<float> output = fixture::play(*retuner, file, 5000);
        double position = 0.0;
        for (std::size_t n = 4; n < output.size(); ++n) {
            ASSERT_NEAR(output[n], expectedWet(input, position), 2e-6) << n;
            position += fixture::tables().solfeggioRatio[static_cast<std::size_t>(target)];
        }
    }
}

TEST(TimeDomain, theDrySideOfTheBlendIsTheRingAtTheReadPosition) {
    const std::vector<float> input = fixture::noise(6000, 21);
    for (const int strength : {0, 30, 99}) {
        auto retuner = makeSolfeggio(k528, strength);
        fixture::FilePlayer file{input};
        const std::vector<float> output = fixture::play(*retuner, file, 5000);
        double position = 0.0;
        for (std::size_t n = 4; n < output.size(); ++n) {
            const double dry = input[static_cast<std::size_t>(position)];
            const double wet = expectedWet(input, position);
            ASSERT_NEAR(output[n], (1.0 - strength / 100.0) * dry + strength / 100.0 * wet, 2e-6) << n;
            position += fixture::tables().solfeggioRatio[k528];
        }
    }
}

// Frequency from the first to the last rising zero crossing, each placed by a straight line.
double frequencyOf(const std::vector<float>& x, std::size_t from) {
    double first = -1.0;
    double last = -1.0;
    int periods = -1;
    for (std::size_t n = from + 1; n < x.size(); ++n) {
        if (!(x[n - 1] < 0.0f && x[n] >= 0.0f)) continue;
        const double before = x[n - 1];
        last = static_cast<double>(n) - 1.0 + before / (before - x[n]);
        if (first < 0.0) first = last;
        ++periods;
    }
    return periods * 44100.0 / (last - first);
}

TEST(TimeDomain, theNoteNextToATargetSoundsAsTheTarget) {
    for (std::size_t target = 0; target < sacredTargets.size(); ++target) {
        const double note =
            440.0 * std::exp2(std::round(12.0 * std::log2(sacredTargets[target] / 440.0)) / 12);
        auto retuner = makeSolfeggio(static_cast<std::int32_t>(target));
        fixture::FilePlayer file{fixture::tone(note, 44100 * 5)};
        const std::vector<float> output = fixture::play(*retuner, file, 44100 * 4);
        EXPECT_NEAR(frequencyOf(output, 100), sacredTargets[target], 0.05) << target;
    }
}

TEST(TimeDomain, c5ComesOutAt528AtAnyBlend) {
    for (const int strength : {100, 50, 0}) {
        auto retuner = makeSolfeggio(k528, strength);
        fixture::FilePlayer file{fixture::tone(523.251, 44100 * 5)};
        const std::vector<float> output = fixture::play(*retuner, file, 44100 * 4);
        EXPECT_NEAR(frequencyOf(output, 100), 528.0, 0.05) << strength;
    }
}

TEST(TimeDomain, keepsItsPitchAndItsLevelOverALongFile) {
    auto retuner = makeSolfeggio(k528);
    fixture::FilePlayer file{fixture::tone(523.2511306, 44100 * 130)};
    const std::vector<float> output = fixture::play(*retuner, file, 44100 * 120);
    EXPECT_NEAR(frequencyOf(output, 44100 * 110), 528.0, 0.005);
    const auto [low, high] = std::minmax_element(output.begin() + 44100 * 110, output.end());
    EXPECT_NEAR(*high, 0.5f, 0.001f);
    EXPECT_NEAR(*low, -0.5f, 0.001f);
}

TEST(TimeDomain, belowOneThereIsNoFeedAndTheDistanceGrows) {
    auto retuner = makeSolfeggio(k432);
    EXPECT_FALSE(needsFeed(*retuner, loadSettings(*retuner)));
    fixture::FilePlayer file{fixture::noise(50000, 22)};
    fixture::play(*retuner, file, 40000);
    EXPECT_EQ(file.position, 40000u);
    EXPECT_EQ(retuner->timeWrite, 40000u);
    EXPECT_NEAR(retuner->timeRead, (40000 - 4) * 432.0 / 440.0, 1e-6);
}

TEST(TimeDomain, belowOneTheReadPositionJumpsWhenTheRingIsNearlyFull) {
    auto retuner = makeSolfeggio(k432);
    const double ratio = 432.0 / 440.0;
    int jumps = 0;
    double jumpedAt = 0.0;
    constexpr int kFrames = 4000000;
    for (int n = 0; n < kFrames; ++n) {
        const double before = retuner->timeRead;
        static_cast<void>(retuner->processSample(0.0f));
        if (retuner->timeRead - before < 2.0) continue;
        ++jumps;
        jumpedAt = n;
        EXPECT_EQ(retuner->timeRead, static_cast<double>(retuner->timeWrite) - 4.0);
        // 65473 - 4 samples are skipped, less the step that the sample itself takes: 1.48 s.
        EXPECT_NEAR(retuner->timeRead - before, 65469.0, 1.0);
    }
    EXPECT_EQ(jumps, 1);
    // n + 1 - (n - 4) * ratio passes 65472.
    EXPECT_NEAR(jumpedAt, (65472.0 - 1.0 - 4.0 * ratio) / (1.0 - ratio), 60.0);
}

TEST(TimeDomain, theJumpWaitsUntilTheDistanceIsAbove65472) {
    auto retuner = makeSolfeggio(k432);
    retuner->timeWarmup = 4;
    retuner->timeRead = 1000.5;
    retuner->timeWrite = 1000 + 65472;
    advanceRead(*retuner, timePosition(*retuner), 0.5);
    EXPECT_EQ(retuner->timeRead, 1001.0);
    retuner->timeRead = 1000.5;
    retuner->timeWrite = 1000 + 65473;
    advanceRead(*retuner, timePosition(*retuner), 0.5);
    EXPECT_EQ(retuner->timeRead, 1000.0 + 65473.0 - 4.0);
}

TEST(TimeDomain, atAndAboveOneThereIsNoJump) {
    auto retuner = makeSolfeggio(k528);
    for (const double ratio : {1.0, 1.02}) {
        retuner->timeRead = 1000.5;
        retuner->timeWrite = 1000 + 65500;
        advanceRead(*retuner, timePosition(*retuner), ratio);
        EXPECT_EQ(retuner->timeRead, 1000.5 + ratio);
    }
}

TEST(TimeDomain, aboveOneTheFileRunsOutSooner) {
    constexpr std::size_t kLength = 441000;
    for (const std::int32_t target : {k528, k285}) {
        auto retuner = makeSolfeggio(target);
        fixture::FilePlayer file{std::vector<float>(kLength, 0.25f)};
        std::size_t frames = 0;
        for (; file.playing; ++frames)
            static_cast<void>(fixture::playFrame(*retuner, file));
        const double ratio = fixture::tables().solfeggioRatio[static_cast<std::size_t>(target)];
        EXPECT_NEAR(static_cast<double>(frames), kLength / ratio, 10.0);
        EXPECT_LT(frames, kLength);
    }
}

TEST(TimeDomain, belowOneTheFileLastsItsOwnLength) {
    auto retuner = makeSolfeggio(k432);
    fixture::FilePlayer file{std::vector<float>(10000, 0.25f)};
    std::size_t frames = 0;
    for (; file.playing; ++frames)
        static_cast<void>(fixture::playFrame(*retuner, file));
    EXPECT_EQ(frames, 10001u);
}

TEST(Feed, isForModeThreeWithARatioAboveOneOnly) {
    auto retuner = makeSolfeggio(k528);
    EXPECT_TRUE(needsFeed(*retuner, {kModeSolfeggio, 100, k528}));
    EXPECT_FALSE(needsFeed(*retuner, {kModeSolfeggio, 100, k432}));
    EXPECT_FALSE(needsFeed(*retuner, {kModeFull, 100, k528}));
    EXPECT_FALSE(needsFeed(*retuner, {kModePeak, 100, k528}));
    EXPECT_FALSE(needsFeed(*retuner, {kModeOff, 100, k528}));
    retuner->solfeggioRatio[k528] = 1.0;
    EXPECT_FALSE(needsFeed(*retuner, {kModeSolfeggio, 100, k528}));
}

TEST(Feed, endsWhenTheDifferenceReachesFour) {
    auto retuner = makeSolfeggio(k528);
    retuner->timeWrite = 103;
    retuner->timeRead = 100.99;
    const RetunerSettings settings = loadSettings(*retuner);
    EXPECT_TRUE(needsFeed(*retuner, settings));
    feedSample(*retuner, 0.5f);
    EXPECT_EQ(retuner->timeWrite, 104u);
    EXPECT_EQ(retuner->timeRing[103], 0.5f);
    EXPECT_FALSE(needsFeed(*retuner, settings));
    EXPECT_EQ(retuner->timeRead, 100.99);
    EXPECT_EQ(retuner->timeWarmup, 0);
}

TEST(Feed, goesOnWithSilenceAfterTheEndOfTheFile) {
    auto retuner = makeSolfeggio(k528);
    fixture::FilePlayer file{std::vector<float>(50, 0.5f)};
    fixture::play(*retuner, file, 200);
    EXPECT_FALSE(file.playing);
    EXPECT_GE(samplesBehind(*retuner, timePosition(*retuner).index), 3);
    EXPECT_EQ(fixture::playFrame(*retuner, file), 0.0f);
}

TEST(TimeCounter, wrapsPastTwoToThe32WithoutAClick) {
    const std::vector<float> input = fixture::noise(6000, 23);
    for (const std::int32_t target : {k432, k528}) {
        auto plain = makeSolfeggio(target);
        auto wrapping = makeSolfeggio(target);
        // A multiple of the ring's size below the wrap, so that both use the same places of the ring.
        wrapping->timeWrite = 0xFFFF0000u + 63536;
        wrapping->timeRead = wrapping->timeWrite;
        plain->timeWrite = 63536;
        plain->timeRead = 63536;
        fixture::FilePlayer one{input};
        fixture::FilePlayer other{input};
        for (int n = 0; n < 5000; ++n) {
            // Up there a double steps by 2^-20: in 5000 frames the position is off by 0.0024 samples at the
            // most, which noise of this height turns into no more than this.
            ASSERT_NEAR(fixture::playFrame(*wrapping, one), fixture::playFrame(*plain, other), 5e-3) << n;
        }
        EXPECT_LT(wrapping->timeWrite, 10000u);
        EXPECT_GT(wrapping->timeRead, 4294967296.0);
        EXPECT_EQ(one.position, other.position);
    }
}

TEST(TimeCounter, theJumpWorksAcrossTheWrap) {
    auto retuner = makeSolfeggio(k432);
    retuner->timeRead = 4294967296.0 - 65470.0 + 0.5;
    retuner->timeWrite = 3;  // 65473 ahead
    advanceRead(*retuner, timePosition(*retuner), 0.98);
    // Two's complement: 4 behind 3 is the last number below the wrap.
    EXPECT_EQ(retuner->timeRead, 4294967295.0);
    EXPECT_EQ(samplesBehind(*retuner, timePosition(*retuner).index), 4);
}

TEST(TimePosition, takesTheWholePartModuloTwoToThe32) {
    auto retuner = makeSolfeggio(k432);
    retuner->timeRead = 4294967296.0 * 3.0 + 17.25;
    EXPECT_EQ(timePosition(*retuner).index, 17u);
    EXPECT_EQ(timePosition(*retuner).fraction, 0.25f);
    retuner->timeRead = 0.999;
    EXPECT_EQ(timePosition(*retuner).index, 0u);
}

TEST(Interpolate, meetsTheSamplesAndAStraightLineExactly) {
    auto retuner = makeSolfeggio(k432);
    for (std::size_t i = 0; i < 8; ++i)
        retuner->timeRing[i] = static_cast<float>(i) * 0.125f;
    EXPECT_EQ(interpolate(*retuner, {3, 0.0f}), 0.375f);
    EXPECT_FLOAT_EQ(interpolate(*retuner, {3, 0.5f}), 0.4375f);
    EXPECT_FLOAT_EQ(interpolate(*retuner, {3, 0.25f}), 0.40625f);
}

TEST(Interpolate, readsAcrossTheEndOfTheRing) {
    auto retuner = makeSolfeggio(k432);
    retuner->timeRing[65534] = 0.25f;
    retuner->timeRing[65535] = -0.5f;
    retuner->timeRing[0] = 0.75f;
    retuner->timeRing[1] = 0.125f;
    EXPECT_NEAR(interpolate(*retuner, {65535, 0.3f}), catmullRom(0.25, -0.5, 0.75, 0.125, 0.3), 1e-6);
    retuner->timeRing[2] = -0.25f;
    EXPECT_NEAR(interpolate(*retuner, {0, 0.6f}), catmullRom(-0.5, 0.75, 0.125, -0.25, 0.6), 1e-6);
}

}  // namespace
}  // namespace veloria
