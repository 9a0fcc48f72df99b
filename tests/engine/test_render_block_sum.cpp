// Hundreds of voices at once at the loudest level, in front of an exact sum: here both renderers differ from
// it by what single precision adds up to, and the block's share must be within the tolerance by itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "tests/engine/block_twin.h"
#include "tests/engine/literal_renderer.h"
#include "tests/engine/on_every_target.h"

namespace veloria {
namespace {

using test::kSampleTolerance;
using test::Twin;

using RenderBlockSum = test::OnEveryTarget;
INSTANTIATE_TEST_SUITE_P(Targets, RenderBlockSum, ::testing::ValuesIn(vectorTargets()), test::nameOfTarget);

constexpr int kVoices = 300;
constexpr std::size_t kFrames = 2048;  // the level has come down from 0.3 to its rest by then
constexpr double kTwoPi = 6.283185307179586;

Voice voiceOf(double hz, double volume, double pan) {
    Voice voice;
    voice.frequency = hz;
    voice.volume = static_cast<float>(volume);
    voice.pan = static_cast<float>(pan);
    voice.endTime = 10.0;
    voice.channel = kNoteChannel;
    return voice;
}

// What the voice adds at each frame, its own settings being the engine's first ones: two partials of
// Fibonacci's.
void addExactly(const Voice& voice, std::vector<literal::Frame>& sum) {
    const auto partials = literal::partialsOf(voice.frequency, 2, 0, 0, 0, 0, 0, 0);
    double weight = 0.0;
    for (const literal::Partial& partial : partials)
        weight += partial.weight;
    for (std::size_t i = 0; i < sum.size(); ++i) {
        const auto age = static_cast<double>(i + 1);  // frames
        double wave = 0.0;
        for (const literal::Partial& partial : partials)
            wave += partial.weight * literal::wave(std::fmod(age * partial.hz * kTwoPi / 44100.0, kTwoPi), 0);
        const double attack = std::min(age / 44100.0 / 0.005, 1.0);
        const double s = static_cast<double>(voice.volume) * attack * wave / weight;
        sum[i].left += 2.0 * (1.0 - static_cast<double>(voice.pan)) * s;
        sum[i].right += 2.0 * static_cast<double>(voice.pan) * s;
    }
}

// The master stage on the sum; `levels` are the engine's own at each frame.
void limitExactly(const std::vector<float>& levels, std::vector<literal::Frame>& sum) {
    for (std::size_t i = 0; i < sum.size(); ++i) {
        const double time = static_cast<double>(i + 1) / 44100.0;
        const double gain =
            static_cast<double>(levels[i]) * (1.0 + 0.03 * std::sin(2.0 * 1.6180339887 * time));
        sum[i] = {std::tanh(gain * sum[i].left), std::tanh(gain * sum[i].right)};
    }
}

double difference(const std::vector<float>& rendered, const std::vector<literal::Frame>& exact) {
    double worst = 0.0;
    for (std::size_t i = 0; i < exact.size(); ++i) {
        worst = std::max({worst, std::fabs(static_cast<double>(rendered[2 * i]) - exact[i].left),
                          std::fabs(static_cast<double>(rendered[2 * i + 1]) - exact[i].right)});
    }
    return worst;
}

void expectNearTheSum(Twin& twin) {
    std::vector<literal::Frame> exact(kFrames, {0.0, 0.0});
    for (const Voice& voice : twin.blocks.voices)
        addExactly(voice, exact);
    std::vector<float> samples(2 * kFrames), blocks(2 * kFrames), levels(kFrames);
    for (std::size_t i = 0; i < kFrames; ++i) {
        renderStereoSample(twin.samples, samples.data() + 2 * i);
        levels[i] = twin.samples.masterLevel;
    }
    renderStereoBlock(twin.blocks, blocks.data(), kFrames);
    limitExactly(levels, exact);

    EXPECT_LE(difference(blocks, exact), kSampleTolerance);
    // The samples' own error is not the block's fault, and comes on top where the two are compared.
    const double bound = kSampleTolerance + difference(samples, exact);
    EXPECT_LE(bound, 2.0 * kSampleTolerance);
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_NEAR(samples[i], blocks[i], bound) << "frame " << i / 2;
    expectSameState(twin);
}

// At equal steps of frequency the voices' errors line up: with sines 4e-8 of themselves too large such a
// chord was 2.5e-6 off, and voices anywhere 1.8e-6.
TEST_P(RenderBlockSum, VoicesAtEqualStepsThatBeginTogether) {
    for (const double step : {3.3, 7.0}) {
        Twin twin;
        for (int i = 0; i < kVoices; ++i)
            twin.add(voiceOf(100.0 + step * i, 0.7, 0.5));
        expectNearTheSum(twin);
    }
}

TEST_P(RenderBlockSum, VoicesAnywhereThatBeginTogether) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> any(0.0, 1.0);
    Twin twin;
    for (int i = 0; i < kVoices; ++i) {
        const double hz = 55.0 * std::exp2(5.0 * any(random));
        const double volume = 0.1 + 0.6 * any(random);
        twin.add(voiceOf(hz, volume, any(random)));
    }
    expectNearTheSum(twin);
}

}  // namespace
}  // namespace veloria
