#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>

#include "app/audio_callback.h"

namespace veloria {
namespace {

class AudioCallback : public ::testing::Test {
  protected:
    void TearDown() override {
        g_engine = nullptr;
        g_app = nullptr;
    }
    void connect() {
        g_engine = &engine;
        g_app = app.get();
    }
    // The buffer after a callback of `bytes` bytes; untouched floats stay at 9.
    std::array<float, 16> call(int bytes) {
        std::array<float, 16> buffer;
        buffer.fill(9.0f);
        audioCallback(nullptr, reinterpret_cast<std::uint8_t*>(buffer.data()), bytes);
        return buffer;
    }

    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner = std::make_unique<SacredFft>();
    OutputGains gains;
    std::unique_ptr<AppState> app =
        std::make_unique<AppState>(engine, MediaPlayers{engine, midi, pcm, *retuner}, gains);
};

TEST_F(AudioCallback, WithoutAnEngineTheBufferStaysAsItIs) {
    EXPECT_EQ(call(64)[0], 9.0f);
    EXPECT_EQ(call(64)[15], 9.0f);
}

TEST_F(AudioCallback, RendersWholeFramesOnly) {
    connect();
    const auto buffer = call(8 * 3 + 7);
    EXPECT_EQ(buffer[5], 0.0f);
    EXPECT_EQ(buffer[6], 9.0f);
    EXPECT_NEAR(engine.time, 3.0 / 44100.0, 1e-12);
    EXPECT_EQ(call(7)[0], 9.0f);
}

TEST_F(AudioCallback, MixesTheStreamIntoBothSidesAndTheScope) {
    connect();
    pcm.samples = {0.5f, -0.25f};
    pcm.playing = true;
    const auto buffer = call(16);
    EXPECT_EQ(buffer[0], 0.5f);
    EXPECT_EQ(buffer[1], 0.5f);
    EXPECT_EQ(buffer[2], -0.25f);
    EXPECT_EQ(app->scope.samples[0], 0.5f);
    EXPECT_EQ(app->scope.samples[1], -0.25f);
    EXPECT_EQ(app->scope.write, 2);
}

TEST_F(AudioCallback, AChangeOfGainTakesEffectAtTheNextCallback) {
    connect();
    pcm.samples.assign(100, 0.5f);
    pcm.playing = true;
    EXPECT_EQ(call(64)[0], 0.5f);
    gains.masterGain = 0.5f;
    EXPECT_EQ(call(64)[0], 0.25f);
}

}  // namespace
}  // namespace veloria
