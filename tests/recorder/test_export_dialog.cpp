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
        surroundings.goesOn = [this] { return ++asked > 0; };
        surroundings.drawFrame = [this](std::uint32_t now) {
            frames.push_back({now, recorder.exportProgress, exporting});
            fakePlatform().ticks += drawingMs;
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

    // The clip lasts `seconds`, and each tenth of a second of sound but the first takes 20 ms to render.
    void renderSlowly(double seconds) {
        recorder.clips.at(0).at(44000).front().end = seconds;
        fakePlatform().clock = [this, told = 0.0f]() mutable {
            if (exporting && recorder.exportProgress != told) {
                told = recorder.exportProgress;
                fakePlatform().ticks += 20;
            }
            return fakePlatform().ticks;
        };
    }

    struct Frame {
        std::uint32_t now;
        float progress;
        bool exporting;
    };
    MidiFile midi;
    ScopeBuffer scope;
    bool exporting = false;
    int asked = 0;  // whether it goes on
    int resets = 0;
    std::vector<Frame> frames;
    std::function<void()> onFrame;
    std::uint32_t drawingMs = 0;  // what a frame takes
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
    renderSlowly(0.1);
    std::vector<bool> paused;
    onFrame = [&paused] { paused.push_back(fakePlatform().audioPaused); };
    run();
    ASSERT_GE(paused.size(), 2u);
    EXPECT_TRUE(paused.front());
}

TEST_F(ExportDialog, FramesAreDrawnWithTheFlagUpAndTheProgressIn) {
    prepare();
    renderSlowly(1.0);
    run();
    ASSERT_EQ(frames.size(), 16u);  // 15 of the render, and the last
    for (std::size_t i = 0; i < 15; ++i) {
        EXPECT_TRUE(frames[i].exporting);
        // The first of them 100 ms behind the start.
        EXPECT_EQ(frames[i].now, 30 + 20 * (i + 5));
        EXPECT_FLOAT_EQ(frames[i].progress, static_cast<float>(4410 * (i + 5)) / 88200.0f);
    }
    EXPECT_FALSE(frames[15].exporting);
    EXPECT_EQ(frames[15].progress, 0.0f);
    EXPECT_EQ(recorder.exportProgress, 0.0f);
    EXPECT_FALSE(exporting);
}

TEST_F(ExportDialog, DrawingTakesAnEighthOfTheTime) {
    for (const std::uint32_t cost : {1u, 5u, 40u, 300u}) {
        frames.clear();
        drawingMs = cost;
        prepare();
        renderSlowly(60.0);
        const std::uint32_t begin = fakePlatform().ticks;
        run();
        const std::uint32_t whole = fakePlatform().ticks - begin - drawingMs;  // without the last frame
        const auto drawing = static_cast<std::uint32_t>(frames.size() - 1) * cost;
        EXPECT_GT(drawing, 0u) << cost;
        EXPECT_LE(8 * drawing, whole + 7 * cost) << cost;
        // And no less, so that the bar is seen to move, unless that were more than a frame's time.
        if (cost > 2) {
            EXPECT_GE(9 * drawing, whole - (8 * cost + 20) - 130) << cost;
        }
        recorder.clips.clear();
        recorder.clipCount = 0;
    }
}

TEST_F(ExportDialog, AnExportThatIsOverAtOnceDrawsNothingOfItself) {
    prepare();
    recorder.clips.at(0).at(44000).front().end = 3.0;
    run();  // the fake's clock stands still
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(frames.size(), 1u);
}

TEST_F(ExportDialog, AUserWhoEndsItFindsNoFileAndEverythingElseAsAfterAnyExport) {
    prepare();
    renderSlowly(5.0);
    midi.paused = false;
    midi.nextNote = 1;
    engine.time = 1.5;
    surroundings.goesOn = [this] { return ++asked < 10; };
    run();
    EXPECT_EQ(asked, 10) << "asked no more once it is ended";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("")), {}), 0);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(engine.time, 0.0);
    EXPECT_FALSE(fakePlatform().audioPaused);
    EXPECT_FALSE(exporting);
    EXPECT_EQ(recorder.exportProgress, 0.0f);
    EXPECT_FALSE(midi.paused);
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(frames.back().progress, 0.0f);
    EXPECT_FALSE(frames.back().exporting);
}

TEST_F(ExportDialog, TheUserIsHeardAlsoWhileFramesAreRare) {
    prepare();
    renderSlowly(10.0);
    drawingMs = 5000;
    run();
    EXPECT_EQ(frames.size(), 2u);
    EXPECT_EQ(asked, 109);
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
    EXPECT_EQ(frames.size(), 1u);
}

TEST_F(ExportDialog, ADrawingThatThrowsEndsTheRenderAndNotTheProgram) {
    prepare();
    renderSlowly(0.1);
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
    renderSlowly(0.1);
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
