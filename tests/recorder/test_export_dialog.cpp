#include "recorder/export_dialog.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "engine/control.h"
#include "media/midi_playback.h"
#include "tests/recorder/recorder_fixture.h"

namespace veloria {
namespace {

using platform::fakePlatform;

constexpr char kDialogEntry[] =
    "chooseFileToSave Export Recorder to WAV|recorder_export.wav|wav|WAV Files=*.wav|All Files=*.*";

class ExportDialog : public test::RecorderTest {
  protected:
    ExportDialog() {
        midi.notes = {{0.0, 1.0, 60, 1.0f, 0, 0.5f}, {2.0, 9.0, 64, 1.0f, 0, 0.5f}};
        midi.duration = 9.0;
        midi.paused = true;
        surroundings.midi = &midi;
        surroundings.exporting = &exporting;
        surroundings.scope = &scope;
        surroundings.pumpEvents = [this] { ++pumps; };
        surroundings.drawFrame = [this](std::uint32_t now) {
            frames.push_back({now, recorder.exportProgress, exporting});
            if (onFrame) onFrame();
        };
        surroundings.resetViews = [this] { ++resets; };
    }
    void run() { exportRecorderDialog(recorder, engine, surroundings); }
    // One dialog that is answered, and a clip of a tenth of a second.
    void prepare() {
        add(0, 440.0, 0.0, 0.1);
        fakePlatform().dialogPaths = {path("out.wav")};
    }

    struct Frame {
        std::uint32_t now;
        float progress;
        bool exporting;
    };
    MidiFile midi;
    ScopeBuffer scope;
    bool exporting = false;
    int pumps = 0;
    int resets = 0;
    std::vector<Frame> frames;
    std::function<void()> onFrame;
    ExportSurroundings surroundings;
};

TEST_F(ExportDialog, WithoutClipsNothingHappensAtAll) {
    run();
    EXPECT_TRUE(fakePlatform().log.empty());
    EXPECT_TRUE(frames.empty());
}

TEST_F(ExportDialog, AskingGoesWithTheDeviceRunningAndACancelChangesNothing) {
    add(0, 440.0, 0.0, 0.1);
    playAt(0.0);
    tickRecorder(recorder, 0.01f);
    engine.time = 5.0;
    engine.reflectionHeld[3] = true;
    fakePlatform().log.clear();
    run();
    EXPECT_EQ(fakePlatform().log, (std::vector<std::string>{kDialogEntry}));
    EXPECT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.time, 5.0);
    EXPECT_TRUE(engine.reflectionHeld[3]);
    EXPECT_EQ(recorder.activeClips.size(), 1u);
    EXPECT_TRUE(frames.empty());
    EXPECT_EQ(resets, 0);
    EXPECT_FALSE(exporting);
}

TEST_F(ExportDialog, ACancelLeavesAPlayingFileAsItIs) {
    add(0, 440.0, 0.0, 0.1);
    midi.paused = false;
    midi.nextNote = 2;
    engine.time = 1.9;
    run();
    // Resuming would hand the second note over again.
    EXPECT_EQ(midi.nextNote, 2u);
    EXPECT_FALSE(midi.paused);
}

TEST_F(ExportDialog, WritesTheFileAndLeavesTheEngineReset) {
    prepare();
    noteOn(engine, {.frequency = 100.0, .volume = 0.1f, .duration = 50.0});
    engine.time = 7.0;
    engine.dronesOn = true;
    engine.rotationHeld[5] = true;
    run();
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 44u + 4u * (44100 + 4410));
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(engine.time, 0.0);
    EXPECT_FALSE(engine.dronesOn);
    EXPECT_FALSE(engine.rotationHeld[5]);
}

TEST_F(ExportDialog, TheStepsComeInTheirOrder) {
    prepare();
    run();
    EXPECT_EQ(fakePlatform().log, (std::vector<std::string>{
                                      kDialogEntry, "pause 1", "lock", "unlock", "wait 30",      // the reset
                                      "pause 1", "lock", "unlock", "lock", "unlock", "pause 0",  // the render
                                      "lock", "unlock", "pause 0"}));  // the scopes, and done
}

TEST_F(ExportDialog, TheDeviceIsPausedFromTheResetToTheEndOfTheRender) {
    prepare();
    std::vector<bool> paused;
    onFrame = [&paused] { paused.push_back(fakePlatform().audioPaused); };
    run();
    ASSERT_GE(paused.size(), 2u);
    EXPECT_TRUE(paused.front());
}

TEST_F(ExportDialog, FramesAreDrawnWithTheFlagUpAndTheProgressIn) {
    prepare();
    recorder.clips.at(0).at(44000).front().end = 1.0;
    // The clock moves 10 ms for each call of the progress function, so that every second one is shown.
    surroundings.pumpEvents = [this] {
        ++pumps;
        fakePlatform().ticks += 10;
    };
    run();
    EXPECT_EQ(pumps, 21);
    ASSERT_EQ(frames.size(), 12u);  // 11 of the render, and the last
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_TRUE(frames[i].exporting);
        EXPECT_EQ(frames[i].now, 40 + 20 * i);
        // The first call is the one before the first frame of sound; the one at frame 0 is skipped.
        const float expected = i == 0 ? 0.0f : static_cast<float>(4410 * (2 * i - 1)) / 88200.0f;
        EXPECT_FLOAT_EQ(frames[i].progress, expected);
    }
    EXPECT_FALSE(frames[11].exporting);
    EXPECT_EQ(frames[11].progress, 0.0f);
    EXPECT_EQ(recorder.exportProgress, 0.0f);
    EXPECT_FALSE(exporting);
}

TEST_F(ExportDialog, AFrameLessThanSixteenMillisecondsAfterTheLastIsSkipped) {
    prepare();
    recorder.clips.at(0).at(44000).front().end = 3.0;
    run();  // the fake's clock stands still: one frame of the render, and the last one
    EXPECT_EQ(pumps, 41);
    EXPECT_EQ(frames.size(), 2u);
}

TEST_F(ExportDialog, TheScopesAreEmptyAndTheViewsResetBeforeTheLastFrame) {
    prepare();
    scope.samples.fill(0.5f);
    scope.write = 77;
    engine.scopePos = 9;
    int resetsAtLastFrame = -1;
    onFrame = [&] {
        if (exporting) return;
        resetsAtLastFrame = resets;
        EXPECT_EQ(engine.scopeRing, (std::array<float, kScopeRingSize>{}));
        EXPECT_EQ(engine.scopePos, 0);
        EXPECT_EQ(scope.samples, (std::array<float, kScopeBufferSize>{}));
        EXPECT_EQ(scope.write, 0);
    };
    run();
    EXPECT_EQ(resetsAtLastFrame, 1);
    EXPECT_EQ(resets, 1);
}

TEST_F(ExportDialog, APlayingArrangementGoesOnWithItsClipsBegunAnew) {
    add(0, 300.0, 0.0, 30.0);
    fakePlatform().dialogPaths = {path("out.wav")};
    playAt(4.0);
    tickRecorder(recorder, 0.01f);
    const double playhead = recorder.playhead;
    run();
    EXPECT_TRUE(recorder.playing);
    EXPECT_EQ(recorder.playhead, playhead);
    EXPECT_TRUE(recorder.activeClips.empty());
    tickRecorder(recorder, 0.0f);
    EXPECT_EQ(held(), std::vector<double>{300.0});
}

TEST_F(ExportDialog, APlayingFileGoesOnAtItsPlaceOnTheNewClock) {
    prepare();
    midi.paused = false;
    midi.timeOffset = 10.0;
    midi.nextNote = 1;
    engine.time = 11.5;  // 1.5 s into the file
    fakePlatform().onCall = [&](const std::string& entry) {
        if (entry == "wait 30") {
            EXPECT_TRUE(midi.paused);
        }
    };
    run();
    EXPECT_FALSE(midi.paused);
    EXPECT_DOUBLE_EQ(engine.time - midi.timeOffset, 1.5);
    EXPECT_EQ(midi.nextNote, 1u);
    midiTick(midi, engine, kMidiLookaheadSeconds);
    EXPECT_TRUE(engine.voices.empty());
    engine.time = 0.4;  // 1.9 s into the file: the second note is due within the look-ahead
    midiTick(midi, engine, kMidiLookaheadSeconds);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_DOUBLE_EQ(engine.voices[0].startTime, 0.5);
}

TEST_F(ExportDialog, ANoteThatTheLookAheadHadHandedOverIsGivenAgain) {
    prepare();
    midi.paused = false;
    midi.nextNote = 2;
    engine.time = 1.9;
    run();
    EXPECT_EQ(midi.nextNote, 1u);
}

TEST_F(ExportDialog, APausedFileAndAnEmptyOneStayAsTheyAre) {
    prepare();
    midi.pausedAt = 3.0;
    midi.timeOffset = 1.0;
    run();
    EXPECT_TRUE(midi.paused);
    EXPECT_EQ(midi.pausedAt, 3.0);
    EXPECT_EQ(midi.timeOffset, 1.0);
    midi = {};
    fakePlatform().dialogPaths = {path("out.wav")};
    run();
    EXPECT_FALSE(midi.paused);
}

TEST_F(ExportDialog, AFailureSaysNothingAndPutsEverythingBack) {
    prepare();
    fakePlatform().dialogPaths = {path("no/such/folder.wav")};
    run();
    for (const std::string& entry : fakePlatform().log)
        EXPECT_EQ(entry.find("messageBox"), std::string::npos);
    EXPECT_FALSE(exporting);
    EXPECT_EQ(recorder.exportProgress, 0.0f);
    EXPECT_EQ(frames.size(), 2u);
}

TEST_F(ExportDialog, ADrawingThatThrowsEndsTheRenderAndNotTheProgram) {
    prepare();
    onFrame = [this] {
        if (exporting) throw std::runtime_error("no texture");
    };
    run();
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
    EXPECT_FALSE(exporting);
    EXPECT_EQ(recorder.exportProgress, 0.0f);
    EXPECT_EQ(engine.masterLevel, 0.3f);
}

TEST_F(ExportDialog, FramesWithoutMemoryLeaveTheEngineAndTheDeviceAsAfterAnyExport) {
    prepare();
    midi.paused = false;
    midi.nextNote = 1;
    engine.time = 1.5;
    scope.samples.fill(0.5f);
    onFrame = [] { throw std::bad_alloc(); };
    EXPECT_NO_THROW(run());
    EXPECT_EQ(frames.size(), 2u) << "the render's first, and the last";
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(engine.time, 0.0);
    EXPECT_EQ(engine.masterLevel, 0.3f);
    EXPECT_FALSE(fakePlatform().audioPaused);
    EXPECT_EQ(fakePlatform().lockDepth, 0);
    EXPECT_FALSE(exporting);
    EXPECT_EQ(recorder.exportProgress, 0.0f);
    EXPECT_FALSE(midi.paused);
    EXPECT_DOUBLE_EQ(engine.time - midi.timeOffset, 1.5);
    EXPECT_EQ(scope.samples[7], 0.0f);
    EXPECT_EQ(resets, 1);
}

TEST_F(ExportDialog, ALastFrameThatFailsCostsNoFile) {
    prepare();
    onFrame = [this] {
        if (!exporting) throw std::bad_alloc();
    };
    EXPECT_NO_THROW(run());
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 44u + 4u * (44100 + 4410));
    EXPECT_FALSE(fakePlatform().audioPaused);
}

TEST_F(ExportDialog, NeedsNothingAroundIt) {
    prepare();
    exportRecorderDialog(recorder, engine, {});
    EXPECT_TRUE(std::filesystem::exists(path("out.wav")));
}

}  // namespace
}  // namespace veloria
