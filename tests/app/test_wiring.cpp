// The operations behind the buttons as the program installs them, each reached by a click where its button is
// drawn. Beneath them is the recording platform fake.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "app/wiring.h"
#include "engine/audio_lock.h"
#include "engine/control.h"
#include "media/pcm_loader.h"
#include "media/wav_writer.h"
#include "platform/audio_device.h"
#include "platform/fake/fake_platform.h"
#include "recorder/clips.h"
#include "recorder/drone_list.h"
#include "recorder/playback.h"
#include "recorder/wav_export.h"
#include "recorder_panel/panel_layout.h"
#include "tests/platform/scratch_folder.h"
#include "tests/ui/events.h"

namespace veloria {
namespace {

using platform::fakePlatform;

constexpr std::uint32_t kNow = 100000;  // ms, when a test begins

class Wiring : public test::InputTest {
  protected:
    Wiring() {
        fakePlatform().reset();
        fakePlatform().ticks = kNow;
        installAudioLock({platform::lockAudioDevice, platform::unlockAudioDevice});
        installTransport(app);
    }
    ~Wiring() override {
        EXPECT_EQ(fakePlatform().lockDepth, 0);
        EXPECT_FALSE(fakePlatform().audioPaused);
        installAudioLock({nullptr, nullptr});
        fakePlatform().reset();
    }

    // A clip of one partial that stands under the playhead and sounds.
    void playClip(double seconds) {
        RecorderClip clip;
        clip.end = seconds;
        clip.gainInDb = clip.gainOutDb = -6.0f;
        clip.overrides = {0, 0, 0, 0, 0, 0, 0, 0};
        addClip(app.recorder, 0, 440.0, clip);
        app.recorder.playing = true;
        app.recorder.playhead = 0.25;
        tickRecorder(app.recorder, 0.0f);
        ASSERT_EQ(app.recorder.activeClips.size(), 1u);
        ASSERT_EQ(sounding(440.0), 1);
    }
    // A file in play, 1.5 s into it, with its second note still to come.
    void playMidi() {
        midi.notes = {{0.0, 1.0, 60, 1.0f, 0, 0.5f}, {2.0, 9.0, 64, 1.0f, 0, 0.5f}};
        midi.duration = 9.0;
        midi.nextNote = 1;
        midi.timeOffset = 10.0;
        engine.time = 11.5;
        app.transport.kind = MediaKind::Midi;
        app.transport.playing = true;
    }
    int sounding(double hz) const {
        int count = 0;
        for (const Voice& voice : engine.voices)
            count += voice.frequency == hz ? 1 : 0;
        return count;
    }
    void clickExport() { clickRect(recorderLayout(app.recorder, app.layout.recorder).exportButton); }

    test::ScratchFolder folder;
};

// What stands while a frame of the export takes its snapshot.
struct FrameOfExport {
    float progress;
    bool devicePaused;
    bool midiPaused;
    std::size_t strangers;  // voices other than the clip's
};

class ExportButton : public Wiring {
  protected:
    // All that can play plays, and everything that an export is to clear is filled.
    void setUpSound() {
        noteOn(engine, {.frequency = 333.0, .volume = 0.5f, .duration = 500.0});
        playClip(1.0);
        playMidi();
        walkerStart(app.walker, engine, kNow);
        engine.rotationHeld[5] = true;
        engine.scopeRing.fill(0.5f);
        engine.scopePos = 9;
        app.scope.samples.fill(0.5f);
        app.scope.write = 77;
    }
    // Each tenth of a second of sound but the first takes 50 ms to render, so that the walker comes to be
    // due.
    void watch() {
        seenFrame = app.lastFrameMs;
        fakePlatform().clock = [this, told = 0.0f]() mutable {
            if (app.exporting && app.recorder.exportProgress != told) {
                told = app.recorder.exportProgress;
                fakePlatform().ticks += 50;
            }
            return fakePlatform().ticks;
        };
        fakePlatform().onCall = [this](const std::string& entry) {
            if (entry != "lock") return;
            // Each frame takes the lock once, with its own time; the render's own holds come without one.
            if (!app.exporting || app.lastFrameMs == seenFrame) return;
            seenFrame = app.lastFrameMs;
            const std::size_t clips = static_cast<std::size_t>(sounding(440.0));
            frames.push_back({app.recorder.exportProgress, fakePlatform().audioPaused, midi.paused,
                              engine.voices.size() - clips});
        };
    }
    std::vector<FrameOfExport> frames;
    std::uint32_t seenFrame = 0;  // ms, of the last of them
};

TEST_F(ExportButton, WritesTheClipsAndNothingOfWhatElsePlays) {
    setUpSound();
    watch();
    fakePlatform().dialogPaths = {folder / "take.wav"};
    clickExport();
    fakePlatform().onCall = nullptr;
    PcmStream written;
    ASSERT_TRUE(loadPcmFile(written, folder / "take.wav"));
    ASSERT_EQ(written.samples.size(), 2u * 44100u);
    std::vector<std::int16_t> alone;  // the same arrangement where no frame is drawn
    ASSERT_EQ(renderRecorder(app.recorder, {}, alone), RenderOutcome::Done);
    float loudest = 0.0f;
    for (std::size_t i = 0; i < written.samples.size(); ++i) {
        const float mean = static_cast<float>(alone[2 * i] + alone[2 * i + 1]) / 2.0f / 32768.0f;
        ASSERT_FLOAT_EQ(written.samples[i], mean) << i;
        loudest = std::max(loudest, std::fabs(mean));
    }
    EXPECT_GT(loudest, 0.1f);
}

TEST_F(ExportButton, FramesOfTheRenderSeeTheClipsAloneAndEverythingElseHeld) {
    setUpSound();
    watch();
    fakePlatform().dialogPaths = {folder / "take.wav"};
    clickExport();
    // One for each tenth of two seconds, but for those of the first 100 ms.
    ASSERT_EQ(frames.size(), 18u);
    for (const FrameOfExport& one : frames) {
        EXPECT_TRUE(one.devicePaused);
        EXPECT_TRUE(one.midiPaused);
        EXPECT_EQ(one.strangers, 0u);
    }
    EXPECT_FLOAT_EQ(frames.back().progress, 19.0f * 4410.0f / 88200.0f);
    EXPECT_FALSE(app.exporting);
    EXPECT_EQ(app.recorder.exportProgress, 0.0f);
    EXPECT_EQ(app.walker.lastTickMs, app.lastFrameMs) << "it took its step once all was over";
}

TEST_F(ExportButton, AWindowThatIsClosedMeanwhileLeavesNoFileAndQuits) {
    ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_EVENTS), 0);
    setUpSound();
    watch();
    folder.write("take.wav", "old");
    SDL_Event quit;
    SDL_zero(quit);
    quit.type = SDL_QUIT;
    ASSERT_EQ(SDL_PushEvent(&quit), 1);
    fakePlatform().dialogPaths = {folder / "take.wav"};
    clickExport();
    EXPECT_EQ(std::filesystem::file_size(folder / "take.wav"), 3u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    EXPECT_FALSE(fakePlatform().audioPaused);
    EXPECT_FALSE(pollEvents(app));
    SDL_QuitSubSystem(SDL_INIT_EVENTS);
}

TEST_F(ExportButton, AfterwardsTheEngineIsResetAndAllGoesOnFromWhereItWas) {
    setUpSound();
    watch();
    const double playhead = app.recorder.playhead;
    fakePlatform().dialogPaths = {folder / "take.wav"};
    clickExport();
    fakePlatform().onCall = nullptr;
    EXPECT_EQ(engine.time, 0.0);
    EXPECT_EQ(sounding(333.0), 0);
    EXPECT_FALSE(engine.rotationHeld[5]);
    EXPECT_EQ(engine.scopeRing, (std::array<float, kScopeRingSize>{}));
    EXPECT_EQ(engine.scopePos, 0);
    EXPECT_EQ(app.scope.samples, (std::array<float, kScopeBufferSize>{}));
    EXPECT_EQ(app.scope.write, 0);
    EXPECT_FALSE(midi.paused);
    EXPECT_DOUBLE_EQ(engine.time - midi.timeOffset, 1.5);
    EXPECT_EQ(midi.nextNote, 1u);
    EXPECT_TRUE(app.walker.running);
    EXPECT_TRUE(app.recorder.playing);
    // The last frame has begun the clip anew, but no time has passed in it.
    EXPECT_EQ(app.recorder.playhead, playhead);
    EXPECT_EQ(sounding(440.0), 1);
    EXPECT_EQ(app.recorder.activeClips.size(), 1u);
    const std::uint32_t last = app.lastFrameMs;
    frame(last + 30);
    EXPECT_NEAR(app.recorder.playhead - playhead, 0.03, 1e-6);
}

TEST_F(ExportButton, ACancelledDialogChangesNothing) {
    setUpSound();
    fakePlatform().log.clear();
    const std::size_t voices = engine.voices.size();
    const std::uint32_t lastFrame = app.lastFrameMs;
    const test::Picture before = picture();
    clickExport();
    EXPECT_EQ(fakePlatform().log.size(), 1u) << "the dialog alone: everything sounds on behind it";
    EXPECT_EQ(engine.voices.size(), voices);
    EXPECT_EQ(engine.time, 11.5);
    EXPECT_TRUE(engine.rotationHeld[5]);
    EXPECT_EQ(engine.scopePos, 9);
    EXPECT_EQ(app.scope.write, 77);
    EXPECT_FALSE(midi.paused);
    EXPECT_EQ(midi.timeOffset, 10.0);
    EXPECT_TRUE(app.walker.running);
    EXPECT_EQ(app.recorder.activeClips.size(), 1u);
    EXPECT_EQ(app.lastFrameMs, lastFrame);
    EXPECT_TRUE(picture() == before) << "no frame was drawn";
}

TEST_F(ExportButton, WithoutClipsNothingIsAsked) {
    clickExport();
    EXPECT_TRUE(fakePlatform().log.empty());
}

class ImportButton : public Wiring {
  protected:
    // The row that a frequency is named after, each looked at as `seen` has it.
    template <typename Seen>
    static std::string nearestName(double frequency, Seen seen) {
        const std::vector<DroneEntry> list = makeDroneList();
        double least = std::numeric_limits<double>::infinity();
        std::string name;
        for (const DroneEntry& row : list) {
            const double distance = std::fabs(seen(row.frequency) - seen(frequency));
            if (distance >= least) continue;
            least = distance;
            name = std::string(row.kindLabel) + "/" + row.name;
        }
        return name;
    }
    static double asItIs(double hz) { return hz; }
    static double folded(double hz) {
        while (hz < 100.0)
            hz *= 2.0;
        while (hz > 1000.0)
            hz /= 2.0;
        return hz;
    }
    // What the one clip is called, less its frequency.
    std::string importedName() {
        const std::vector<RecorderClip*> clips = allClips(app.recorder);
        if (clips.size() != 1) return "not one clip";
        EXPECT_NEAR(clipFrequency(app.recorder, clips[0]), kLowestKey, 0.01) << "the key's own, either way";
        return clips[0]->label.substr(0, clips[0]->label.find(' '));
    }
    static constexpr double kLowestKey = 8.1758;  // Hz, of key 0
};

TEST_F(ImportButton, TheSwitchNormalizeReachesTheImport) {
    engine.sacredOptimizer = false;
    midi.notes = {{0.0, 1.0, 0, 1.0f, 0, 0.5f}};
    ASSERT_NE(nearestName(kLowestKey, asItIs), nearestName(kLowestKey, folded));
    press("Import MIDI");
    EXPECT_EQ(importedName(), nearestName(kLowestKey, asItIs));
    press("MIDI Normalize");
    press("Import MIDI");
    EXPECT_EQ(importedName(), nearestName(kLowestKey, folded));
    press("MIDI Normalize");
    press("Import MIDI");
    EXPECT_EQ(importedName(), nearestName(kLowestKey, asItIs));
    EXPECT_EQ(fakePlatform().count("messageBox Information|Import MIDI|Imported 1 notes into recorder (0 "
                                   "filtered: vel<8% or dur<30ms)."),
              3);
}

TEST_F(ImportButton, WithoutAFileTheClipsStay) {
    playClip(1.0);
    press("Import MIDI");
    EXPECT_EQ(app.recorder.clipCount, 1);
    EXPECT_EQ(fakePlatform().count("messageBox Warning|Import|No MIDI file loaded!"), 1);
}

TEST_F(ImportButton, AnImportWhilePlayingEndsTheOldClipsAndGoesOnWithTheNew) {
    playClip(100.0);
    midi.notes = {{0.0, 50.0, 69, 1.0f, 0, 0.5f}};
    engine.sacredOptimizer = false;
    const double playhead = app.recorder.playhead;
    fakePlatform().onCall = [&](const std::string& entry) {
        if (entry.rfind("messageBox", 0) != 0) return;
        EXPECT_TRUE(app.recorder.playing);
        EXPECT_TRUE(app.recorder.activeClips.empty());
        EXPECT_EQ(app.recorder.playhead, playhead);
        EXPECT_LE(engine.voices.at(0).endTime, engine.time + 0.02001);
    };
    app.onImportMidi();
    EXPECT_EQ(fakePlatform().log.back().rfind("messageBox Information", 0), 0u);
    frame(kNow + 10);
    EXPECT_EQ(app.recorder.activeClips.size(), 1u);
    EXPECT_EQ(app.recorder.clipCount, 1);
}

class LoadAndReset : public Wiring {};

TEST_F(LoadAndReset, ALoadLetsThePlayingClipsBeginAnew) {
    const std::vector<std::int16_t> silence(200, 0);
    ASSERT_TRUE(writeWavFile(folder / "song.wav", silence));
    playClip(100.0);
    fakePlatform().dialogPaths = {folder / "song.wav"};
    clickRect(topBarButtonRect(app.layout, kLoadButton));
    EXPECT_EQ(app.transport.kind, MediaKind::Pcm);
    EXPECT_EQ(sounding(440.0), 0);
    EXPECT_TRUE(app.recorder.activeClips.empty());
    EXPECT_TRUE(app.recorder.playing);
    EXPECT_EQ(app.recorder.clipCount, 1);
    frame(kNow + 10);
    EXPECT_EQ(sounding(440.0), 1);
    EXPECT_EQ(app.recorder.activeClips.size(), 1u);
}

TEST_F(LoadAndReset, AFileThatCannotBeReadDropsTheVoicesAllTheSame) {
    playClip(100.0);
    for (const char* name : {"missing.mid", "missing.mp3", "missing.wma"}) {
        app.onLoadFile(folder / name);
        EXPECT_TRUE(app.recorder.activeClips.empty()) << name;
        frame(kNow + 10);
        EXPECT_EQ(sounding(440.0), 1) << name;
    }
}

TEST_F(LoadAndReset, ResetStopsThePlaybackAndEmptiesTheRecorder) {
    playClip(100.0);
    app.recorder.viewStart = 3.0;
    app.recorder.channelCount = 7;
    app.recorder.nextClipId = 12;
    app.recorder.editClip = allClips(app.recorder)[0];
    app.recorder.editOpen = true;
    app.recorder.lastClickClip = app.recorder.editClip;
    app.recorder.grabbedClip = app.recorder.editClip;
    app.recorder.grabbedChannel = 0;
    app.recorder.movingClip = true;
    app.transport.fileLabel = "song.mid";
    clickRect(topBarButtonRect(app.layout, kResetButton));
    EXPECT_FALSE(app.recorder.playing);
    EXPECT_FALSE(app.recorder.paused);
    EXPECT_EQ(app.recorder.playhead, 0.0);
    EXPECT_TRUE(app.recorder.activeClips.empty());
    EXPECT_TRUE(app.recorder.clips.empty());
    EXPECT_EQ(app.recorder.clipCount, 0);
    EXPECT_EQ(app.recorder.nextClipId, 1);
    EXPECT_FALSE(app.recorder.editOpen);
    EXPECT_EQ(app.recorder.editClip, nullptr);
    EXPECT_EQ(app.recorder.lastClickClip, nullptr);
    EXPECT_EQ(app.recorder.grabbedClip, nullptr);
    EXPECT_FALSE(app.recorder.movingClip);
    EXPECT_EQ(app.recorder.channelCount, 7) << "the rows stay";
    EXPECT_TRUE(app.transport.fileLabel.empty());
    EXPECT_TRUE(engine.voices.empty());
    frame(kNow + 10);
    frame(kNow + 60);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(app.recorder.playhead, 0.0);
}

// The kept picture of the scene, and what it shows once something has been going on without frames.
class KeptScene : public Wiring {
  protected:
    // How many pixels of the main view differ.
    int differing(const test::Picture& a, const test::Picture& b) const {
        const SDL_Rect& centre = app.layout.centre;
        int count = 0;
        for (int y = centre.y; y < centre.y + centre.h; ++y) {
            for (int x = centre.x; x < centre.x + centre.w; ++x)
                count += a.at(x, y) == b.at(x, y) ? 0 : 1;
        }
        return count;
    }
    test::Picture framed() {
        frame(fakePlatform().ticks);
        return picture();
    }
    // What loading takes of the time, and what a dialog stands open.
    void letCallsTakeTime() {
        fakePlatform().onCall = [](const std::string& entry) {
            if (entry == "pause 1" || entry.rfind("choose", 0) == 0 || entry.rfind("messageBox", 0) == 0)
                fakePlatform().ticks += 3000;
        };
    }
    void playNote() {
        playMidi();
        noteOn(engine, {.frequency = 396.0, .volume = 0.5f, .duration = 500.0});
        engine.time = engine.time + 1.0;
    }
    // Draws until the picture is at rest, so that only a reason of its own draws it again.
    void rest() {
        framed();
        fakePlatform().ticks += 2000;
        framed();
        fakePlatform().ticks += 2000;
        framed();
        ASSERT_FALSE(app.kathara.sceneDrawnInMainView);
    }
};

TEST_F(KeptScene, NotesOfTheOldFileGoOutWhenAnotherIsLoaded) {
    const std::vector<std::int16_t> silence(200, 0);
    ASSERT_TRUE(writeWavFile(folder / "song.wav", silence));
    letCallsTakeTime();
    const test::Picture dark = framed();
    for (const bool byButton : {true, false}) {
        playNote();
        fakePlatform().ticks += 16;
        ASSERT_GT(differing(dark, framed()), 20);
        fakePlatform().dialogPaths = {folder / "song.wav"};
        if (byButton) {
            clickRect(topBarButtonRect(app.layout, kLoadButton));
        } else {
            app.onLoadFile(folder / "song.wav");
        }
        ASSERT_EQ(app.transport.kind, MediaKind::Pcm);
        fakePlatform().ticks += 16;
        EXPECT_EQ(differing(dark, framed()), 0) << byButton;
    }
}

TEST_F(KeptScene, ItIsDrawnAnewAfterALoadADialogAResetAndAnExport) {
    letCallsTakeTime();
    const std::vector<std::pair<const char*, std::function<void()>>> occasions = {
        {"a load", [this] { app.onLoadFile(folder / "missing.mp3"); }},
        {"a load that was not made", [this] { clickRect(topBarButtonRect(app.layout, kLoadButton)); }},
        {"a reset", [this] { clickRect(topBarButtonRect(app.layout, kResetButton)); }},
        {"an import", [this] { app.onImportMidi(); }},
        {"an export that was not made", [this] { clickExport(); }},
        {"an OBJ file that was not written",
         [this] { clickRect(katharaMainLayout(app.layout.centre).buttons[6]); }},
        {"an export",
         [this] {
             fakePlatform().dialogPaths = {folder / "take.wav"};
             clickExport();
         }},
    };
    for (const auto& [name, act] : occasions) {
        RecorderClip clip;
        clip.end = 0.5;
        clip.start = 0.25;
        clearRecorder(app.recorder);
        addClip(app.recorder, 0, 440.0, clip);
        rest();
        act();
        fakePlatform().ticks += 2000;
        framed();
        EXPECT_TRUE(app.kathara.sceneDrawnInMainView) << name;
        rest();
    }
}

TEST_F(LoadAndReset, AFrameIsDrawnBetweenTheChooserAndAMessage) {
    const std::string broken = folder.write("broken.wav", "no sound");
    fakePlatform().dialogPaths = {broken};
    std::vector<std::uint32_t> boxes;  // ms, when the frame before each message was drawn
    fakePlatform().onCall = [&](const std::string& entry) {
        if (entry.rfind("chooseFileToOpen", 0) == 0) fakePlatform().ticks += 5000;
        if (entry.rfind("messageBox", 0) == 0) boxes.push_back(app.draw.ticks);
    };
    clickRect(topBarButtonRect(app.layout, kLoadButton));
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0], kNow + 5000) << "after the chooser, and not from before it";
    EXPECT_EQ(app.lastFrameMs, kNow + 5000);
}

TEST_F(LoadAndReset, ResetOfAPausedRecorderStopsItToo) {
    playClip(100.0);
    togglePlayback(app.recorder);
    ASSERT_TRUE(app.recorder.paused);
    clickRect(topBarButtonRect(app.layout, kResetButton));
    EXPECT_FALSE(app.recorder.playing);
    EXPECT_FALSE(app.recorder.paused);
}

}  // namespace
}  // namespace veloria
