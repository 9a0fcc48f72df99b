// The stream that the audio callback reads, and what it becomes at another rate.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <thread>
#include <utility>
#include <vector>

#include "media/pcm_stream.h"
#include "media/resample.h"
#include "tests/media/literal_wav.h"

namespace veloria::test {
namespace {

TEST(PcmStream, GivesItsSamplesInOrderWhilePlaying) {
    PcmStream stream;
    stream.samples = {0.25F, -0.5F};
    stream.playing = true;
    EXPECT_EQ(nextPcmSample(stream), 0.25F);
    EXPECT_EQ(nextPcmSample(stream), -0.5F);
    EXPECT_EQ(stream.position, 2U);
    EXPECT_TRUE(stream.playing);
}

TEST(PcmStream, StandsStillWhileNotPlaying) {
    PcmStream stream;
    stream.samples = {0.25F};
    EXPECT_EQ(nextPcmSample(stream), 0.0F);
    EXPECT_EQ(stream.position, 0U);
}

TEST(PcmStream, StopsItselfWhenReadPastTheEnd) {
    PcmStream stream;
    stream.samples = {0.25F};
    stream.playing = true;
    EXPECT_EQ(nextPcmSample(stream), 0.25F);
    EXPECT_EQ(nextPcmSample(stream), 0.0F);
    EXPECT_FALSE(stream.playing);
    EXPECT_EQ(stream.position, 2U) << "the reading that found the end counts";
    EXPECT_EQ(nextPcmSample(stream), 0.0F);
    EXPECT_EQ(stream.position, 2U);
}

TEST(PcmStream, PositionFarBehindTheEndStops) {
    PcmStream stream;
    stream.samples = {0.25F};
    stream.position = 0xFFFFFFFFFFFFFFF0U;
    stream.playing = true;
    EXPECT_EQ(nextPcmSample(stream), 0.0F);
    EXPECT_FALSE(stream.playing);
}

TEST(PcmStream, EmptyStreamStopsAtOnce) {
    PcmStream stream;
    stream.playing = true;
    EXPECT_EQ(nextPcmSample(stream), 0.0F);
    EXPECT_FALSE(stream.playing);
}

TEST(PcmStream, ClearingStopsRewindsAndHandsTheSamplesBack) {
    PcmStream stream;
    stream.samples = {0.25F, 0.5F};
    stream.position = 1;
    stream.playing = true;
    EXPECT_EQ(clearPcmStream(stream), (std::vector<float>{0.25F, 0.5F}));
    EXPECT_TRUE(stream.samples.empty());
    EXPECT_EQ(stream.samples.capacity(), 0U);
    EXPECT_EQ(stream.position, 0U);
    EXPECT_FALSE(stream.playing);
}

// No sample comes twice and none is lost, whoever reads.
TEST(PcmStream, TwoReadersTakeEachSampleOnce) {
    PcmStream stream;
    constexpr int kCount = 200000;
    for (int i = 1; i <= kCount; ++i)
        stream.samples.push_back(static_cast<float>(i));
    stream.playing = true;
    const auto sum = [&stream] {
        double total = 0.0;
        while (stream.playing)
            total += nextPcmSample(stream);
        return total;
    };
    double other = 0.0;
    std::thread thread([&] { other = sum(); });
    const double mine = sum();
    thread.join();
    EXPECT_EQ(mine + other, kCount * (kCount + 1.0) / 2.0);
}

std::vector<float> resample(std::vector<float> samples, std::uint32_t rate) {
    const std::uint64_t frames = samples.size();
    return resampleForStream({std::move(samples), frames, rate}, 1000000);
}

TEST(Resample, TheStreamsOwnRateAndARateOfZeroPassUnchanged) {
    const std::vector<float> samples{0.1F, 0.2F, 0.3F};
    EXPECT_EQ(resample(samples, 44100), samples);
    EXPECT_EQ(resample(samples, 0), samples);
}

TEST(Resample, HalfTheRatePutsAMeanBetweenNeighbours) {
    // n / 0.5 + 1 = 7 samples; behind the last frame it repeats.
    EXPECT_EQ(resample({0.0F, 1.0F, -1.0F}, 22050),
              (std::vector<float>{0.0F, 0.5F, 1.0F, 0.0F, -1.0F, -1.0F, -1.0F}));
}

TEST(Resample, TwiceTheRateTakesEverySecondFrame) {
    // 4 / 2 + 1 = 3 samples; the last falls on the source's length.
    EXPECT_EQ(resample({0.1F, 0.2F, 0.3F, 0.4F}, 88200), (std::vector<float>{0.1F, 0.3F, 0.4F}));
}

TEST(Resample, OneFrameFillsWhateverItsRateAsksFor) {
    EXPECT_EQ(resample({0.5F}, 11025), std::vector<float>(5, 0.5F));
    EXPECT_EQ(resample({0.5F}, 4000000000U), std::vector<float>(1, 0.5F));
}

TEST(Resample, NoFramesGiveNoSamplesAtAnyRate) {
    EXPECT_TRUE(resample({}, 44100).empty());
    EXPECT_TRUE(resample({}, 22050).empty());
}

TEST(Resample, FramesBehindTheHeldOnesRepeatTheLast) {
    EXPECT_EQ(resampleForStream({{0.1F, 0.5F}, 5, 44100}, 100),
              (std::vector<float>{0.1F, 0.5F, 0.5F, 0.5F, 0.5F}));
    const auto half = resampleForStream({{0.0F, 1.0F}, 4, 22050}, 100);
    EXPECT_EQ(half, (std::vector<float>{0.0F, 0.5F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F}));
}

TEST(Resample, AResultBeyondTheLimitIsRefused) {
    EXPECT_EQ(resampleForStream({{1.0F}, 10, 44100}, 10).size(), 10U);
    EXPECT_TRUE(resampleForStream({{1.0F}, 11, 44100}, 10).empty());
    EXPECT_EQ(resampleForStream({{1.0F}, 5, 22050}, 11).size(), 11U);
    EXPECT_TRUE(resampleForStream({{1.0F}, 5, 22050}, 10).empty());
    EXPECT_TRUE(resampleForStream({{1.0F}, 0xFFFFFFFFU, 1}, maxStreamSamples(44)).empty());
}

// Long on purpose: an error in the position grows with the length.
TEST(Resample, ALongSineKeepsItsPhase) {
    for (const std::uint32_t rate : {8000U, 22050U, 48000U, 96000U}) {
        const double step = 2.0 * 3.14159265358979323846 * 100.0;
        std::vector<float> source;
        for (std::uint32_t i = 0; i < rate * 60; ++i) {
            source.push_back(static_cast<float>(std::sin(step * i / rate)));
        }
        const std::uint64_t frames = source.size();
        const auto out = resampleForStream({std::move(source), frames, rate}, 10000000);
        // One less where the quotient, whole on paper, comes out a hair below it in floating point.
        const std::size_t lost = rate == 48000U || rate == 96000U ? 1 : 0;
        ASSERT_EQ(out.size(), 60U * 44100U + 1U - lost) << rate;
        // Between frames of 8 kHz a chord of this sine lies at most (0.0785)^2 / 8 = 0.00077 below it.
        double worst = 0.0;
        for (std::size_t i = 0; i + 10 < out.size(); ++i) {
            worst = std::max(worst, std::abs(out[i] - std::sin(step * static_cast<double>(i) / 44100.0)));
        }
        EXPECT_LT(worst, 0.0008) << rate;
    }
}

TEST(Resample, OddRatesGiveWhatAPlainLoopGives) {
    std::vector<float> source;
    for (int i = 0; i < 1000; ++i)
        source.push_back(std::sin(static_cast<float>(i * i)));
    for (const std::uint32_t rate :
         {1U, 999U, 11025U, 32000U, 44099U, 44101U, 47999U, 192000U, 0xFFFFFFFFU}) {
        const auto frames = rate == 1 ? std::size_t{3} : source.size();
        const std::vector<float> part(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(frames));
        EXPECT_EQ(resample(part, rate), LiteralWav::resample(part, rate)) << rate;
    }
}

}  // namespace
}  // namespace veloria::test
