// A recorder on an engine of its own, with the recording platform fake beneath.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/audio_lock.h"
#include "platform/audio_device.h"
#include "platform/fake/fake_platform.h"
#include "recorder/clips.h"
#include "recorder/playback.h"

namespace veloria::test {

class RecorderTest : public ::testing::Test {
  protected:
    void SetUp() override {
        platform::fakePlatform().reset();
        installAudioLock({platform::lockAudioDevice, platform::unlockAudioDevice});
        recorder.engine = &engine;
        const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
        folder = std::filesystem::path(::testing::TempDir()) /
                 (std::string("veloria_") + info->test_suite_name() + "_" + info->name());
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }
    void TearDown() override {
        EXPECT_EQ(platform::fakePlatform().lockDepth, 0);
        EXPECT_FALSE(platform::fakePlatform().audioPaused);
        installAudioLock({nullptr, nullptr});
        std::filesystem::remove_all(folder);
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    RecorderClip& add(std::int32_t channel, double frequency, double start, double end) {
        RecorderClip clip;
        clip.id = recorder.nextClipId++;
        clip.start = start;
        clip.end = end;
        return addClip(recorder, channel, frequency, clip);
    }

    // The ids of all clips in their order.
    std::vector<std::int32_t> ids() {
        std::vector<std::int32_t> found;
        for (const RecorderClip* clip : allClips(recorder))
            found.push_back(clip->id);
        return found;
    }

    // Frequencies (Hz) of the voices that nobody has ended yet, in the order in which they began.
    std::vector<double> held() const {
        std::vector<double> found;
        for (const Voice& voice : engine.voices) {
            if (voice.endTime > engine.time + 0.0201) found.push_back(voice.frequency);
        }
        return found;
    }

    // Plays from `playhead` on without a tick in between.
    void playAt(double playhead) {
        recorder.playing = true;
        recorder.paused = false;
        recorder.playhead = playhead;
    }

    SynthEngine engine;
    Recorder recorder;
    std::filesystem::path folder;
};

}  // namespace veloria::test
