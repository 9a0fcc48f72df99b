#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "engine/render.h"
#include "media/mix.h"
#include "tests/spectral/literal_retuner.h"
#include "tests/spectral/retuner_fixture.h"

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
        EXPECT_NEAR(out[2 * i + 1], (expected[1] * 0.5f + 0.25f) * 0.5f, 2e-6);
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
    // The blocks divide the sums differently, and with it their last bits.
    for (std::size_t i = 0; i < whole.size(); ++i)
        ASSERT_NEAR(whole[i], pieces[i], 2e-6) << i;
}

TEST_F(Mix, DenormalsAreFlushedWhileItRendersAndNotAfter) {
    const volatile float denormal = 1e-40f;
    stream({denormal, 0.5f});
    const auto out = render(2);
    EXPECT_EQ(out[0], 0.0f);
    EXPECT_EQ(out[2], 0.5f);
    const volatile float halved = denormal * 0.5f;
    EXPECT_GT(halved, 0.0f);
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

// A file, read as the callback's feed does.
struct LiteralFile {
    const std::vector<float>& samples;
    std::size_t position = 0;
    bool playing = true;

    float next() {
        if (!playing) return 0.0f;
        if (position++ >= samples.size()) {
            playing = false;
            return 0.0f;
        }
        return samples[position - 1];
    }
};

// Mode 3 over a list that never wraps: what came in, and how far it was read.
class LiteralResampler {
  public:
    explicit LiteralResampler(double ratio) : ratio_(ratio) {}

    float frame(LiteralFile& file) {
        if (ratio_ > 1.0) {
            while (taken_.size() - static_cast<std::size_t>(read_) < 4)
                taken_.push_back(file.next());
        }
        taken_.push_back(file.next());
        if (++frames_ <= 4) return 0.0f;
        const auto i = static_cast<std::size_t>(read_);
        const auto f = static_cast<float>(read_ - static_cast<double>(i));
        read_ += ratio_;
        const float a = i == 0 ? 0.0f : at(i - 1);
        const float b = at(i);
        const float c = at(i + 1);
        const float d = at(i + 2);
        const float c3 = 1.5f * b - 0.5f * a - 1.5f * c + 0.5f * d;
        const float c2 = a - 2.5f * b + 2.0f * c - 0.5f * d;
        const float c1 = 0.5f * c - 0.5f * a;
        return ((c3 * f + c2) * f + c1) * f + b;
    }

  private:
    float at(std::size_t i) const { return i < taken_.size() ? taken_[i] : 0.0f; }

    double ratio_;
    double read_ = 0.0;
    int frames_ = 0;
    std::vector<float> taken_;
};

class MixOrder : public Mix {
  protected:
    static constexpr std::size_t kLength = 20000;
    static constexpr std::size_t kFrames = 30000;

    void SetUp() override {
        Mix::SetUp();
        retuner->Init();
        stream(fixture::noise(kLength, 77, 0.4f));
    }
    // Plays frame by frame and holds sample, place and end of the file against `expected`, which plays a
    // literal file of the same samples.
    void follow(const std::function<float(LiteralFile&)>& expected, float tolerance) {
        LiteralFile file{pcm.samples};
        for (std::size_t n = 0; n < kFrames; ++n) {
            const auto out = render(1);
            const float sample = std::clamp(expected(file), -1.0f, 1.0f);
            ASSERT_NEAR(out[0], sample, tolerance) << n;
            ASSERT_EQ(out[0], out[1]) << n;
            ASSERT_EQ(pcm.position, file.position) << n;
            ASSERT_EQ(pcm.playing, file.playing) << n;
        }
        EXPECT_FALSE(file.playing);
    }
};

TEST_F(MixOrder, WithTheRetunerOffEachFrameIsTheNextSample) {
    follow([](LiteralFile& file) { return file.next(); }, 0.0f);
}

TEST_F(MixOrder, FullAndPeakModeTakeOneSampleAFrame) {
    for (const std::int32_t mode : {kModeFull, kModePeak}) {
        for (const std::int32_t strength : {100, 40}) {
            setModeOff(*retuner);
            retuner->SetMode(mode);
            retuner->strength = strength;
            pcm.position = 0;
            pcm.playing = true;
            literal::Retuner twin(*retuner, mode, strength);
            follow([&](LiteralFile& file) { return twin.process(file.next()); }, 1e-4f);
        }
    }
}

// The feed comes before the frame's own sample: five samples are gone after the first frame, not four.
TEST_F(MixOrder, AboveUnityTheFeedComesBeforeTheFramesOwnSample) {
    retuner->SetMode(kModeSolfeggio);
    for (const std::int32_t target : {3, 8}) {  // 285 and 528 Hz
        retuner->targetIndex = target;
        const double ratio = retuner->solfeggioRatio[static_cast<std::size_t>(target)];
        ASSERT_GT(ratio, 1.0);
        retuner->ResetStreams();
        pcm.position = 0;
        pcm.playing = true;
        static_cast<void>(render(1));
        EXPECT_EQ(pcm.position, 5u);
        retuner->ResetStreams();
        pcm.position = 0;
        LiteralResampler twin(ratio);
        follow([&](LiteralFile& file) { return twin.frame(file); }, 0.0f);
    }
}

TEST_F(MixOrder, BelowUnityThereIsNoFeed) {
    retuner->SetMode(kModeSolfeggio);
    retuner->targetIndex = 7;  // 432 Hz
    const double ratio = retuner->solfeggioRatio[7];
    ASSERT_LT(ratio, 1.0);
    LiteralResampler twin(ratio);
    follow([&](LiteralFile& file) { return twin.frame(file); }, 0.0f);
}

TEST_F(MixOrder, WholeBlocksAreTheSameFramesInARow) {
    SacredFft& whole = *retuner;
    whole.SetMode(kModeSolfeggio);
    whole.targetIndex = 3;
    const auto inOne = render(kFrames);
    whole.ResetStreams();
    pcm.position = 0;
    pcm.playing = true;
    LiteralFile file{pcm.samples};
    LiteralResampler twin(whole.solfeggioRatio[3]);
    for (std::size_t n = 0; n < kFrames; ++n)
        ASSERT_EQ(inOne[2 * n], std::clamp(twin.frame(file), -1.0f, 1.0f)) << n;
}

}  // namespace
}  // namespace veloria
