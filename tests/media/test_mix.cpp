#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "engine/render.h"
#include "media/mix.h"

namespace veloria {
namespace {

class Mix : public ::testing::Test {
  protected:
    void SetUp() override {
        fillHannWindow(*retuner);
        fillSolfeggioRatio(*retuner);
    }
    void stream(std::vector<float> samples) {
        pcm.samples = std::move(samples);
        pcm.position = 0;
        pcm.playing = true;
    }
    std::vector<float> render(std::size_t frames) {
        std::vector<float> out(2 * frames);
        mixOutput({engine, pcm, *retuner}, gains, out.data(), frames, &scope);
        return out;
    }
    void sound(double hz, float pan) {
        Voice voice;
        voice.frequency = hz;
        voice.volume = 1.0f;
        voice.endTime = 100.0;
        voice.pan = pan;
        engine.voices.push_back(voice);
    }

    SynthEngine engine;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner = std::make_unique<SacredFft>();
    OutputGains gains;
    ScopeBuffer scope;
};

TEST_F(Mix, AFileSoundsTheSameOnBothSidesAndStopsItselfAtItsEnd) {
    stream({0.25f, -0.5f, 0.75f});
    const auto out = render(5);
    const std::vector<float> expected = {0.25f, 0.25f, -0.5f, -0.5f, 0.75f, 0.75f, 0.0f, 0.0f, 0.0f, 0.0f};
    EXPECT_EQ(out, expected);
    EXPECT_FALSE(pcm.playing);
    EXPECT_EQ(pcm.position, 4u);
}

TEST_F(Mix, TheSynthesisersGainsLeaveTheFileAloneAndTheMasterGainDoesNot) {
    gains.synthGainLeft = 0.0f;
    gains.synthGainRight = 0.5f;
    gains.masterGain = 0.5f;
    SynthEngine twin;
    sound(440.0, 0.5f);
    twin.voices = engine.voices;
    stream(std::vector<float>(400, 0.25f));
    const auto out = render(400);
    for (std::size_t i = 0; i < 400; ++i) {
        float expected[2];
        renderStereoSample(twin, expected);
        EXPECT_FLOAT_EQ(out[2 * i], 0.125f);
        EXPECT_FLOAT_EQ(out[2 * i + 1], (expected[1] * 0.5f + 0.25f) * 0.5f);
    }
}

TEST_F(Mix, TheSumIsHeldToFullScale) {
    stream({3.0f, -3.0f});
    const auto out = render(2);
    EXPECT_EQ(out[0], 1.0f);
    EXPECT_EQ(out[2], -1.0f);
}

TEST_F(Mix, TheScopeHoldsTheMonoOutputAndWraps) {
    scope.write = kScopeBufferSize - 1;
    stream({0.5f, -0.25f});
    static_cast<void>(render(2));
    EXPECT_EQ(scope.samples[kScopeBufferSize - 1], 0.5f);
    EXPECT_EQ(scope.samples[0], -0.25f);
    EXPECT_EQ(scope.write, 1);
}

TEST_F(Mix, WithoutAScopeTheSoundIsTheSame) {
    stream({0.5f});
    std::array<float, 2> out{};
    mixOutput({engine, pcm, *retuner}, gains, out.data(), 1, nullptr);
    EXPECT_EQ(out[0], 0.5f);
}

TEST_F(Mix, BlocksOfAnySizeGiveTheSameSamples) {
    sound(333.0, 0.2f);
    SynthEngine other;
    other.voices = engine.voices;
    const auto whole = render(1000);
    std::vector<float> pieces(2000);
    for (std::size_t done = 0; done < 1000;) {
        const std::size_t count = std::min<std::size_t>(137, 1000 - done);
        mixOutput({other, pcm, *retuner}, gains, pieces.data() + 2 * done, count, nullptr);
        done += count;
    }
    EXPECT_EQ(whole, pieces);
}

TEST_F(Mix, AboveUnityTheSolfeggioModeTakesMoreThanOneSampleAFrame) {
    retuner->mode = kModeSolfeggio;
    retuner->targetIndex = 3;  // 285 Hz, ratio 1.0282
    stream(std::vector<float>(60000, 0.1f));
    static_cast<void>(render(44100));
    const double ratio = retuner->solfeggioRatio[3];
    ASSERT_GT(ratio, 1.02);
    EXPECT_NEAR(static_cast<double>(pcm.position), 44100.0 * ratio, 16.0);
}

TEST_F(Mix, BelowUnityItTakesOneSampleAFrame) {
    retuner->mode = kModeSolfeggio;
    retuner->targetIndex = 2;  // 258 Hz, ratio 0.986
    stream(std::vector<float>(60000, 0.1f));
    static_cast<void>(render(44100));
    EXPECT_EQ(pcm.position, 44100u);
}

}  // namespace
}  // namespace veloria
