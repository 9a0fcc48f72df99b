// What sounds goes on while a file chooser or a message box stands.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "app/wiring.h"
#include "engine/control.h"
#include "media/midi_playback.h"
#include "media/mix.h"
#include "platform/dialog_hook.h"
#include "platform/dialogs.h"
#include "platform/fake/fake_platform.h"
#include "recorder/clips.h"
#include "tests/media/wav_bytes.h"
#include "ui/frame.h"
#include "ui/sound_tick.h"

namespace veloria {
namespace {

using platform::fakePlatform;

constexpr std::size_t kStepFrames = 441;  // ten milliseconds

class DialogSound : public ::testing::Test {
  protected:
    void SetUp() override {
        fakePlatform().reset();
        fakePlatform().ticks = 5000;
        // The device plays on, in step with the clock.
        fakePlatform().onDialogStep = [this] {
            if (fakePlatform().audioPaused) ++pausedSteps;
            playStep();
            if (onStep) onStep();
        };
        app->recorder.engine = &engine;
        installTransport(*app);
        keepSoundInDialogs(*app);
    }
    void TearDown() override {
        stopSoundInDialogs();
        std::filesystem::remove(path);
    }
    void playStep() {
        std::vector<float> out(2 * kStepFrames);
        if (!fakePlatform().audioPaused) {
            mixOutput({engine, pcm, *retuner}, gains, out.data(), kStepFrames, nullptr);
        }
    }
    // The chooser of "LOAD MUSIC FILE", cancelled after so long.
    void choose(std::uint32_t milliseconds) {
        fakePlatform().dialogMs = milliseconds;
        EXPECT_EQ(platform::chooseFileToOpen(kMusicFileDialog), "");
    }
    // Short notes, one behind the other, from the start on.
    void playNotes(int count) {
        for (int i = 0; i < count; ++i) {
            const double start = 0.1 * i;
            midi.notes.push_back({start, start + 0.1, 60, 0.5f, 0, 0.5f});
        }
        midi.duration = 0.1 * count;
        app->transport.kind = MediaKind::Midi;
        app->transport.playing = true;
        app->transport.currentPath = "/no/such/file.mid";
    }
    // A stream of so many samples in a file of the test's own, playing.
    void playStream(std::size_t samples) {
        const auto bytes = test::wavFile({}, test::integers(2, std::vector<std::int64_t>(samples, 8192)));
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        app->onLoadFile(path);
        app->onPlay();
        fakePlatform().log.clear();
    }
    [[nodiscard]] bool isSounding() const {
        return std::any_of(engine.voices.begin(), engine.voices.end(), [this](const Voice& voice) {
            return voice.startTime <= engine.time && voice.endTime > engine.time;
        });
    }
    [[nodiscard]] std::vector<std::string> dialogs() const {
        std::vector<std::string> shown;
        for (const std::string& entry : fakePlatform().log) {
            if (entry.rfind("choose", 0) == 0 || entry.rfind("messageBox", 0) == 0) {
                shown.push_back(entry.substr(0, entry.find('|')));
            }
        }
        return shown;
    }

    std::string path = (std::filesystem::path(::testing::TempDir()) /
                        (std::string("veloria_dialog_sound_") +
                         ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".wav"))
                           .string();
    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner = std::make_unique<SacredFft>();
    OutputGains gains;
    std::unique_ptr<AppState> app =
        std::make_unique<AppState>(engine, MediaPlayers{engine, midi, pcm, *retuner}, gains);
    std::function<void()> onStep;
    int pausedSteps = 0;
};

TEST_F(DialogSound, TheNotesOfAMidiFileGoOn) {
    playNotes(60);
    feedNotes(*app);
    playStep();
    int silentSteps = 0;
    onStep = [&] { silentSteps += isSounding() ? 0 : 1; };
    choose(3000);
    EXPECT_EQ(silentSteps, 0);
    EXPECT_GE(midi.nextNote, 30u);
    EXPECT_TRUE(app->transport.playing);
}

TEST_F(DialogSound, TheWalkGoesOnAtItsPace) {
    walkerStart(app->walker, engine, fakePlatform().ticks);
    choose(2000);
    EXPECT_EQ(app->walker.position, 30) << "a triplet every 200 ms";
}

TEST_F(DialogSound, TheRecorderGoesOnAndBeginsItsClips) {
    RecorderClip clip;
    clip.id = app->recorder.nextClipId++;
    clip.start = 0.5;
    clip.end = 10.0;
    addClip(app->recorder, 0, 440.0, clip);
    app->recorder.playing = true;
    tickSound(*app, fakePlatform().ticks);
    EXPECT_TRUE(engine.voices.empty());
    choose(1000);
    EXPECT_NEAR(app->recorder.playhead, 1.0, 1e-4);
    EXPECT_EQ(engine.voices.size(), 1u);
    tickSound(*app, fakePlatform().ticks);
    EXPECT_NEAR(app->recorder.playhead, 1.0, 1e-4) << "the next frame takes up no time twice";
}

TEST_F(DialogSound, TheFilesEndIsSeenAndTheFileStandsAtItsStartAgain) {
    playStream(44100);
    choose(1500);
    EXPECT_FALSE(app->transport.playing);
    EXPECT_FALSE(pcm.playing);
    EXPECT_EQ(pcm.position, 0u);
    EXPECT_EQ(pcm.samples.size(), 44100u);
    EXPECT_EQ(fakePlatform().count("pause 1"), 1) << "loaded once";
}

TEST_F(DialogSound, AReloadThatFailsSaysSoWhenTheChooserHasClosed) {
    playStream(22050);
    std::filesystem::remove(path);
    const std::uint32_t opened = fakePlatform().ticks;
    std::uint32_t told = 0;
    fakePlatform().onCall = [&told](const std::string& entry) {
        if (entry.rfind("messageBox", 0) == 0) told = fakePlatform().ticks;
    };
    choose(1000);
    EXPECT_EQ(dialogs(),
              (std::vector<std::string>{"chooseFileToOpen Select Music File", "messageBox Error"}));
    EXPECT_EQ(told, opened + 1000 + 50) << "when the chooser's time and the load's own wait were over";
    EXPECT_EQ(app->transport.kind, MediaKind::None);
}

TEST_F(DialogSound, WhatIsChosenAfterAnEndIsLoaded) {
    playStream(22050);
    fakePlatform().dialogMs = 1000;
    fakePlatform().dialogPaths = {path};
    const std::string chosen = platform::chooseFileToOpen(kMusicFileDialog);
    EXPECT_FALSE(app->transport.playing);
    app->onLoadFile(chosen);
    app->onPlay();
    EXPECT_TRUE(pcm.playing);
    EXPECT_EQ(pcm.position, 0u);
}

TEST_F(DialogSound, WhileAFailedLoadIsToldOfTheRestSoundsOn) {
    RecorderClip clip;
    clip.id = app->recorder.nextClipId++;
    clip.end = 100.0;
    addClip(app->recorder, 0, 440.0, clip);
    app->recorder.playing = true;
    walkerStart(app->walker, engine, fakePlatform().ticks);
    tickSound(*app, fakePlatform().ticks);
    for (const char* bad : {"/no/such/file.mid", "/no/such/file.wav", "/no/such/file.ogg"}) {
        fakePlatform().mediaAnswers["open"] = {{263, ""}};
        fakePlatform().dialogMs = 1000;
        const int position = app->walker.position;
        bool clipSounds = false;
        onStep = [&] {
            clipSounds = std::any_of(engine.voices.begin(), engine.voices.end(),
                                     [](const Voice& voice) { return voice.frequency == 440.0; });
        };
        app->onLoadFile(bad);
        EXPECT_GE(app->walker.position, position + 12) << bad;
        EXPECT_TRUE(clipSounds) << bad;
        EXPECT_EQ(std::count_if(engine.voices.begin(), engine.voices.end(),
                                [](const Voice& voice) { return voice.frequency == 440.0; }),
                  1)
            << bad;
    }
    EXPECT_EQ(pausedSteps, 0);
}

TEST_F(DialogSound, NothingIsTickedWhileAnExportHasTheVoices) {
    playNotes(10);
    walkerStart(app->walker, engine, fakePlatform().ticks);
    app->exporting = true;
    choose(1000);
    EXPECT_EQ(app->walker.position, 0);
    EXPECT_EQ(midi.nextNote, 0u);
    EXPECT_EQ(app->lastFrameMs, fakePlatform().ticks);
}

TEST_F(DialogSound, WithoutTheHookADialogTicksNothing) {
    walkerStart(app->walker, engine, fakePlatform().ticks);
    stopSoundInDialogs();
    choose(1000);
    EXPECT_EQ(app->walker.position, 0);
}

TEST_F(DialogSound, ASecondTickAtTheSameTimeChangesNothing) {
    playNotes(10);
    app->recorder.playing = true;
    walkerStart(app->walker, engine, fakePlatform().ticks - 300);
    tickSound(*app, fakePlatform().ticks);
    const std::size_t voices = engine.voices.size();
    const double playhead = app->recorder.playhead;
    tickSound(*app, fakePlatform().ticks);
    EXPECT_EQ(engine.voices.size(), voices);
    EXPECT_EQ(app->recorder.playhead, playhead);
    EXPECT_EQ(app->walker.position, 3);
}

}  // namespace
}  // namespace veloria
