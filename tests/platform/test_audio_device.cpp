#include "platform/audio_device.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <atomic>

#include "platform/clock.h"

namespace veloria::platform {
namespace {

std::atomic<int> g_callbacks{0};

void SDLCALL countCallback(void* /*data*/, Uint8* stream, int byteCount) {
    SDL_memset(stream, 0, static_cast<std::size_t>(byteCount));
    ++g_callbacks;
}

bool callbacksPass(int count) {
    for (int tries = 0; tries < 2000; ++tries) {
        if (g_callbacks.load() > count) return true;
        SDL_Delay(5);
    }
    return false;
}

class AudioDevice : public testing::Test {
  protected:
    void SetUp() override {
        SDL_SetHint(SDL_HINT_AUDIODRIVER, "dummy");
        ASSERT_EQ(SDL_Init(SDL_INIT_AUDIO), 0) << SDL_GetError();
        SDL_AudioSpec wanted{};
        wanted.freq = 44100;
        wanted.format = AUDIO_F32LSB;
        wanted.channels = 2;
        wanted.samples = 512;
        wanted.callback = countCallback;
        ASSERT_EQ(SDL_OpenAudio(&wanted, nullptr), 0) << SDL_GetError();
        pauseAudioDevice(false);
        ASSERT_TRUE(callbacksPass(g_callbacks.load()));
    }
    void TearDown() override {
        SDL_CloseAudio();
        SDL_Quit();
    }
};

TEST_F(AudioDevice, APausedDeviceCallsBackNoMoreUntilItRunsAgain) {
    pauseAudioDevice(true);
    const int before = g_callbacks.load();
    SDL_Delay(60);
    EXPECT_EQ(g_callbacks.load(), before);
    pauseAudioDevice(false);
    EXPECT_TRUE(callbacksPass(before));
}

TEST_F(AudioDevice, NoCallbackRunsWhileTheLockIsHeldAndHoldsNest) {
    lockAudioDevice();
    lockAudioDevice();
    unlockAudioDevice();
    const int before = g_callbacks.load();
    SDL_Delay(60);
    EXPECT_EQ(g_callbacks.load(), before);
    unlockAudioDevice();
    EXPECT_TRUE(callbacksPass(before));
}

TEST(AudioDeviceClosed, WithoutAnOpenDeviceNothingHappens) {
    lockAudioDevice();
    pauseAudioDevice(true);
    pauseAudioDevice(false);
    unlockAudioDevice();
    EXPECT_EQ(SDL_GetAudioStatus(), SDL_AUDIO_STOPPED);
}

TEST(Clock, WaitingMovesTheTicksOn) {
    const std::uint32_t before = ticksMs();
    waitMs(5);
    EXPECT_GE(ticksMs() - before, 5U);
}

}  // namespace
}  // namespace veloria::platform
