// The body of the audio callback must never wait for the heap, neither to take memory nor to give it back. A
// program of its own, since it counts what the whole program takes.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "engine/control.h"
#include "media/mix.h"
#include "tests/counted_heap.h"

namespace veloria {
namespace {

constexpr std::size_t kFrames = 512;

class MixAllocation : public ::testing::Test {
  protected:
    void SetUp() override {
        fillHannWindow(*retuner);
        retuner->Init();
        fillSolfeggioRatio(*retuner);
    }
    void play(std::size_t samples) {
        pcm.samples.assign(samples, 0.0f);
        unsigned random = 7;
        for (float& x : pcm.samples) {
            random = random * 1664525u + 1013904223u;
            x = static_cast<float>(random >> 8) / 16777216.0f - 0.5f;
        }
        pcm.position = 0;
        pcm.playing = true;
    }
    // Plays `count` callbacks; how often the heap was called.
    long heapCalls(int count) {
        const long before = test::allocations() + test::releases();
        for (int i = 0; i < count; ++i)
            mixOutput({engine, pcm, *retuner}, gains, out.data(), kFrames, &scope);
        return test::allocations() + test::releases() - before;
    }

    SynthEngine engine;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner = std::make_unique<SacredFft>();
    OutputGains gains;
    ScopeBuffer scope;
    std::vector<float> out = std::vector<float>(2 * kFrames);
};

TEST_F(MixAllocation, TheCounterCountsBothWays) {
    const long taken = test::allocations();
    const long given = test::releases();
    auto memory = std::make_unique<SacredFft>();
    EXPECT_EQ(test::allocations(), taken + 1);
    memory.reset();
    EXPECT_EQ(test::releases(), given + 1);
}

TEST_F(MixAllocation, VoicesThatBeginAndEndCostNothing) {
    engine.fibonacciCount = 14;
    engine.piCount = 14;
    engine.teslaCount = 3;
    engine.octaveSteps = 3;
    engine.phiSteps = -3;
    // One voice ends in nearly every callback of the second, and one that was waiting begins.
    for (int i = 0; i < 80; ++i) {
        noteOn(engine, {.frequency = 100.0 + i, .volume = 0.5f, .duration = 0.01 * (i + 1)});
        Voice waiting = engine.voices.back();
        waiting.startTime = 0.01 * (i + 1);
        waiting.endTime = waiting.startTime + 0.015;
        waiting.overrides.waveform = i % 4;
        engine.voices.push_back(waiting);
    }
    ASSERT_EQ(engine.voices.size(), 160u);
    EXPECT_EQ(heapCalls(100), 0);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(MixAllocation, MoreVoicesThanWereEverReservedForCostNothing) {
    for (int i = 0; i < 3 * kVoiceFigure; ++i)
        noteOn(engine, {.frequency = 100.0 + i, .volume = 0.1f, .duration = 0.001 * (i % 50)});
    EXPECT_EQ(heapCalls(6), 0);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(MixAllocation, AFileInEveryModePastItsEndCostsNothing) {
    for (const std::int32_t mode : {kModeOff, kModeFull, kModePeak, kModeSolfeggio}) {
        for (const std::int32_t target : {2, 8}) {  // ratios below and above 1
            play(12000);
            setModeOff(*retuner);
            retuner->SetMode(mode);
            retuner->targetIndex = target;
            retuner->strength = 50;
            noteOn(engine, {.frequency = 322.0, .volume = 0.5f, .duration = 0.2});
            EXPECT_EQ(heapCalls(40), 0) << "mode " << mode;
            EXPECT_FALSE(pcm.playing);
            EXPECT_TRUE(engine.voices.empty());
        }
    }
}

}  // namespace
}  // namespace veloria
