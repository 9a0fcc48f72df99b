#include "engine/control.h"
#include "recorder/clipboard.h"
#include "tests/recorder/recorder_fixture.h"

namespace veloria {
namespace {

using Playback = test::RecorderTest;
using Hz = std::vector<double>;

TEST_F(Playback, NothingMovesUnlessPlaying) {
    add(0, 440.0, 0.0, 1.0);
    tickRecorder(recorder, 0.05f);
    EXPECT_EQ(recorder.playhead, 0.0);
    recorder.playing = recorder.paused = true;
    tickRecorder(recorder, 0.05f);
    EXPECT_EQ(recorder.playhead, 0.0);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(Playback, AClipUnderThePlayheadBecomesAVoiceOfItsLength) {
    engine.time = 100.0;
    RecorderClip& clip = add(2, 440.0, 1.0, 3.5);
    clip.gainInDb = -6.0f;
    clip.gainOutDb = -20.0f;
    clip.pan = 0.25f;
    clip.overrides = {.fibonacciCount = 1,
                      .piCount = 2,
                      .teslaCount = 3,
                      .octaveSteps = 4,
                      .phiSteps = -1,
                      .fibPhase = 50,
                      .teslaPhase = 60,
                      .waveform = 3};
    playAt(0.995);
    tickRecorder(recorder, 0.01f);
    ASSERT_EQ(engine.voices.size(), 1u);
    const Voice& voice = engine.voices[0];
    EXPECT_EQ(voice.frequency, 440.0);
    EXPECT_EQ(voice.channel, 9);
    EXPECT_EQ(voice.midiNote, -1);
    EXPECT_NEAR(voice.volume, 0.5011872f, 1e-6);
    EXPECT_NEAR(voice.targetVolume, 0.1f, 1e-7);
    EXPECT_EQ(voice.pan, 0.25f);
    EXPECT_EQ(voice.startTime, 100.0);
    EXPECT_EQ(voice.endTime, 102.5);
    EXPECT_EQ(voice.overrides.fibonacciCount, 1);
    EXPECT_EQ(voice.overrides.piCount, 2);
    EXPECT_EQ(voice.overrides.teslaCount, 3);
    EXPECT_EQ(voice.overrides.octaveSteps, 4);
    EXPECT_EQ(voice.overrides.phiSteps, -1);
    EXPECT_EQ(voice.overrides.fibPhase, 50);
    EXPECT_EQ(voice.overrides.teslaPhase, 60);
    EXPECT_EQ(voice.overrides.waveform, 3);
    EXPECT_EQ(recorder.activeClips.size(), 1u);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(engine.voices.size(), 1u);
}

TEST_F(Playback, AClipSoundsFromItsStartUpToBeforeItsEnd) {
    add(0, 440.0, 1.0, 2.0);
    playAt(1.0);
    tickRecorder(recorder, 0.0f);
    EXPECT_EQ(held(), Hz{440.0});
    recorder.playhead = 2.0;
    tickRecorder(recorder, 0.0f);
    EXPECT_EQ(held(), Hz{});
    EXPECT_TRUE(recorder.activeClips.empty());
}

TEST_F(Playback, ATickIsCutAtATenthOfASecond) {
    recorder.playing = true;
    tickRecorder(recorder, 5.0f);
    EXPECT_NEAR(recorder.playhead, 0.1, 1e-8);
    tickRecorder(recorder, 0.016f);
    EXPECT_NEAR(recorder.playhead, 0.116, 1e-8);
}

TEST_F(Playback, RunsOnBehindTheLastClip) {
    add(0, 440.0, 0.0, 0.5);
    playAt(500.0);
    for (int i = 0; i < 100; ++i)
        tickRecorder(recorder, 0.1f);
    EXPECT_TRUE(recorder.playing);
    EXPECT_NEAR(recorder.playhead, 510.0, 1e-5);
}

TEST_F(Playback, TheViewTurnsThePageWhenThePlayheadIsBeyondItsLastPart) {
    recorder.viewStart = 10.0;
    recorder.viewSpan = 20.0;
    playAt(27.0);  // at 85 % itself: not yet
    tickRecorder(recorder, 0.0f);
    EXPECT_EQ(recorder.viewStart, 10.0);
    recorder.playhead = 27.5;
    tickRecorder(recorder, 0.0f);
    EXPECT_DOUBLE_EQ(recorder.viewStart, 24.5);
}

TEST_F(Playback, AClipJumpedIntoGetsItsFullLengthAndIsCutWhereItEnds) {
    add(0, 440.0, 0.0, 10.0);
    playAt(9.0);
    tickRecorder(recorder, 0.05f);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].endTime, 10.0);
    engine.time = 1.0;
    recorder.playhead = 9.99;
    tickRecorder(recorder, 0.05f);
    EXPECT_DOUBLE_EQ(engine.voices[0].endTime, 1.02);
}

TEST_F(Playback, AVeryShortClipGetsAnHourAndIsEndedByTheNextFrame) {
    add(0, 440.0, 1.0, 1.005);
    playAt(1.0);
    tickRecorder(recorder, 0.002f);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].endTime, 3600.0);
    tickRecorder(recorder, 0.016f);
    EXPECT_DOUBLE_EQ(engine.voices[0].endTime, 0.02);
    EXPECT_TRUE(recorder.activeClips.empty());
}

TEST_F(Playback, AClipOfAHundredthHasAVoiceOfItsOwnLength) {
    add(0, 440.0, 0.0, 0.01);
    playAt(0.0);
    tickRecorder(recorder, 0.002f);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].endTime, 0.01);
}

TEST_F(Playback, AFrameThatLeapsOverAClipLeavesItSilent) {
    add(0, 440.0, 1.0, 1.005);
    playAt(0.99);
    tickRecorder(recorder, 0.05f);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(Playback, AChannelThatIsSwitchedOffFallsSilentInThatFrameAndComesBack) {
    add(0, 440.0, 0.0, 10.0);
    add(1, 300.0, 0.0, 10.0);
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), (Hz{440.0, 300.0}));
    recorder.channels[0].enabled = false;
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{300.0});
    recorder.channels[0].enabled = true;
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), (Hz{300.0, 440.0}));
}

TEST_F(Playback, ALockedChannelSounds) {
    add(0, 440.0, 0.0, 10.0);
    recorder.channels[0].locked = true;
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{440.0});
}

TEST_F(Playback, ARowThatIsNotInUseIsSilentUntilItComesBack) {
    add(5, 440.0, 0.0, 10.0);
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{});
    recorder.channelCount = 6;
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{440.0});
    recorder.channelCount = 5;
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{});
}

TEST_F(Playback, TheRangeDoesNotLimitIt) {
    add(0, 440.0, 0.0, 10.0);
    recorder.rangeEnabled = true;
    recorder.rangeStart = 50.0;
    recorder.rangeEnd = 60.0;
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{440.0});
}

TEST_F(Playback, TheEndOfAClipCutsAnotherWithinAHertzWhichIsNotBegunAgain) {
    add(0, 440.0, 0.0, 2.0);
    add(1, 440.9, 0.0, 9.0);
    add(2, 441.5, 0.0, 9.0);
    playAt(1.9);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), (Hz{440.0, 440.9, 441.5}));
    recorder.playhead = 2.0;
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{441.5});
    EXPECT_EQ(recorder.activeClips.size(), 2u);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{441.5});
}

TEST_F(Playback, AClipThatFollowsOnTheSameFrequencyIsNotCutByTheOneBeforeIt) {
    add(0, 440.0, 0.0, 2.0);
    add(0, 440.0, 2.0, 4.0);
    playAt(1.9);
    tickRecorder(recorder, 0.05f);
    recorder.playhead = 2.0;
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{440.0});
    EXPECT_EQ(engine.voices.size(), 2u);
}

TEST_F(Playback, VoicesBeginAndEndInTheOrderInWhichTheClipsWereMade) {
    add(3, 900.0, 0.0, 2.0);
    add(0, 500.0, 0.0, 2.0);
    add(0, 200.0, 0.0, 2.0);
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), (Hz{900.0, 500.0, 200.0}));
    std::vector<double> order;
    for (const auto& [serial, frequency] : recorder.activeClips)
        order.push_back(frequency);
    EXPECT_EQ(order, (Hz{900.0, 500.0, 200.0}));
}

TEST_F(Playback, TheButtonGoesFromStoppedToPlayingToPausedToPlaying) {
    add(0, 440.0, 0.0, 10.0);
    togglePlayback(recorder);
    EXPECT_TRUE(recorder.playing);
    EXPECT_FALSE(recorder.paused);
    tickRecorder(recorder, 0.1f);
    EXPECT_EQ(held(), Hz{440.0});
    togglePlayback(recorder);
    EXPECT_TRUE(recorder.playing);
    EXPECT_TRUE(recorder.paused);
    EXPECT_EQ(held(), Hz{});
    EXPECT_TRUE(recorder.activeClips.empty());
    EXPECT_NEAR(recorder.playhead, 0.1, 1e-8);
    togglePlayback(recorder);
    EXPECT_FALSE(recorder.paused);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{440.0});
}

TEST_F(Playback, StoppingRewindsAndEndsEveryVoiceOfChannelNine) {
    add(0, 440.0, 0.0, 10.0);
    noteOn(engine, {.frequency = 100.0, .volume = 0.1f, .duration = 50.0});
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), (Hz{100.0, 440.0}));
    stopPlayback(recorder);
    EXPECT_EQ(held(), Hz{});
    EXPECT_FALSE(recorder.playing);
    EXPECT_EQ(recorder.playhead, 0.0);
    EXPECT_TRUE(recorder.activeClips.empty());
    EXPECT_EQ(recorder.clipCount, 1);
}

TEST_F(Playback, AClearEndsTheClipsVoicesAndNoOthers) {
    add(0, 440.0, 0.0, 10.0);
    noteOn(engine, {.frequency = 100.0, .volume = 0.1f, .duration = 50.0});
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    clearRecorder(recorder);
    EXPECT_EQ(held(), Hz{100.0});
    EXPECT_TRUE(recorder.activeClips.empty());
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{100.0});
}

TEST_F(Playback, ARemovedClipFallsSilentAtOnce) {
    add(0, 440.0, 0.0, 10.0).selected = true;
    add(1, 300.0, 0.0, 10.0);
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    removeSelected(recorder);
    EXPECT_EQ(held(), Hz{300.0});
    EXPECT_EQ(recorder.activeClips.size(), 1u);
}

TEST_F(Playback, AClipMovedToAnotherFrequencyGoesOnThere) {
    RecorderClip& clip = add(0, 440.0, 0.0, 10.0);
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    moveClipToFrequency(recorder, &clip, 500.0);
    EXPECT_EQ(held(), Hz{});
    EXPECT_TRUE(recorder.activeClips.empty());
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{500.0});
    recorder.playhead = 11.0;
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), Hz{});
}

TEST_F(Playback, AMoveToAnotherChannelBeginsAllClipsAnewWithNoneDoubled) {
    RecorderClip& clip = add(0, 440.0, 0.0, 10.0);
    add(1, 300.0, 0.0, 10.0);
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    moveClipToChannel(recorder, &clip, 2);
    EXPECT_EQ(held(), Hz{});
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), (Hz{440.0, 300.0}));
}

TEST_F(Playback, APastedClipSoundsBesideItsOriginal) {
    add(0, 440.0, 1.0, 10.0).selected = true;
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    copySelected(recorder);
    pasteClipboard(recorder);
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(held(), (Hz{440.0, 440.0}));
}

TEST_F(Playback, WithoutAnEngineThePlayheadMovesAndNothingSounds) {
    recorder.engine = nullptr;
    add(0, 440.0, 0.0, 1.0).selected = true;
    playAt(0.5);
    tickRecorder(recorder, 0.1f);
    EXPECT_NEAR(recorder.playhead, 0.6, 1e-8);
    removeSelected(recorder);
    togglePlayback(recorder);
    stopPlayback(recorder);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(Playback, DecibelsAreTwentyToADecade) {
    EXPECT_FLOAT_EQ(amplitudeOfDb(0.0f), 1.0f);
    EXPECT_FLOAT_EQ(amplitudeOfDb(-20.0f), 0.1f);
    EXPECT_FLOAT_EQ(amplitudeOfDb(-60.0f), 0.001f);
    EXPECT_NEAR(amplitudeOfDb(-6.0f), 0.501187f, 1e-6);
}

}  // namespace
}  // namespace veloria
