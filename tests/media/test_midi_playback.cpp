#include <gtest/gtest.h>

#include <cmath>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "engine/render.h"
#include "media/midi_playback.h"
#include "media/midi_tuning.h"

namespace veloria {
namespace {

class Playback : public ::testing::Test {
  protected:
    void add(double start, double end, int key = 60, int channel = 0, float pan = 0.5f) {
        file.notes.push_back({start, end, key, 0.8f, channel, pan});
        file.duration = std::max(file.duration, end);
    }
    void loadedAndPaused() { pauseMidi(file, engine.time); }
    SynthEngine engine;
    MidiFile file;
};

TEST_F(Playback, TheTickHandsOverWhatBeginsWithinTheLookahead) {
    add(0.0, 1.0);
    add(0.15, 1.0);
    add(0.16, 1.0);
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.size(), 2u);
    EXPECT_EQ(file.nextNote, 2u);
    engine.time = 0.02;
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.size(), 3u);
}

TEST_F(Playback, AVoiceCarriesTheNoteOnTheEnginesClock) {
    engine.time = 5.0;
    file.timeOffset = 5.0;
    engine.nextVoiceId = 40;
    add(0.1, 0.7, 69, 3, 0.25f);
    midiTick(file, engine, 0.15);
    ASSERT_EQ(engine.voices.size(), 1u);
    const Voice& voice = engine.voices[0];
    EXPECT_DOUBLE_EQ(voice.startTime, 5.1);
    EXPECT_DOUBLE_EQ(voice.endTime, 5.7);
    EXPECT_EQ(voice.midiNote, 69);
    EXPECT_EQ(voice.volume, 0.8f);
    EXPECT_EQ(voice.targetVolume, -1.0f);
    EXPECT_EQ(voice.channel, 3);
    EXPECT_EQ(voice.pan, 0.25f);
    EXPECT_EQ(voice.stealRank, 5);  // 69 / 13
    EXPECT_EQ(voice.id, 40u);
    EXPECT_EQ(voice.frequency, midiToFrequency(engine, 69, 3));
    EXPECT_EQ(voice.tuningTag, engine.midiTuningTag);
    EXPECT_EQ(voice.overrides.waveform, -1);
    EXPECT_EQ(voice.overrides.fibonacciCount, -1);
}

TEST_F(Playback, ANoteWithoutAPanTakesTheSideOfItsFrequency) {
    add(0.0, 1.0, 60, 0, -1.0f);
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices[0].pan, panAffinity(engine.voices[0].frequency));
}

TEST_F(Playback, ANoteWhoseEndHasPassedIsDroppedAndCountedThrough) {
    engine.time = 2.0;
    add(0.0, 1.0);
    add(0.5, 2.0);
    add(1.0, 2.5);
    midiTick(file, engine, 0.15);
    EXPECT_EQ(file.nextNote, 3u);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].startTime, 1.0);
}

TEST_F(Playback, ANoteOfNoLengthGoesOverOnlyWhileItsOnsetIsAhead) {
    add(0.1, 0.1);
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.size(), 1u);
    file.nextNote = 0;
    engine.voices.clear();
    engine.time = 0.1;
    midiTick(file, engine, 0.15);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(Playback, APausedOrEmptyFileDoesNothing) {
    midiTick(file, engine, 0.15);
    add(0.0, 1.0);
    loadedAndPaused();
    midiTick(file, engine, 0.15);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(file.nextNote, 0u);
}

TEST_F(Playback, PlayThreeSecondsAfterTheLoadStartsTheFileThere) {
    add(0.0, 1.0);
    loadedAndPaused();
    engine.time = 3.0;
    resumeMidi(file, engine);
    EXPECT_FALSE(file.paused);
    midiTick(file, engine, 0.15);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].startTime, 3.0);
}

TEST_F(Playback, PauseAndResumeAtOnceGivesTheLookaheadsNotesAgain) {
    add(0.0, 1.0);
    add(1.05, 2.0);
    add(1.1, 2.0);
    engine.time = 1.0;
    midiTick(file, engine, 0.15);
    EXPECT_EQ(file.nextNote, 3u);
    const std::size_t before = engine.voices.size();
    pauseMidi(file, engine.time);
    resumeMidi(file, engine);
    EXPECT_EQ(file.timeOffset, 0.0);
    EXPECT_EQ(file.nextNote, 1u);
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.size(), before + 2);
}

TEST_F(Playback, TimeInAPauseDoesNotPassInTheFile) {
    add(0.0, 1.0);
    add(2.0, 3.0);
    midiTick(file, engine, 0.15);
    engine.time = 1.5;
    pauseMidi(file, engine.time);
    engine.time = 11.5;
    resumeMidi(file, engine);
    EXPECT_EQ(file.timeOffset, 10.0);
    engine.time = 11.9;
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.back().startTime, 12.0);
}

TEST_F(Playback, ASecondPauseKeepsThePlaceOfTheFirst) {
    add(0.0, 1.0);
    add(2.0, 3.0);
    pauseMidi(file, 0.5);
    engine.time = 4.0;
    pauseMidi(file, 4.0);
    EXPECT_EQ(file.pausedAt, 0.5);
    resumeMidi(file, engine);
    EXPECT_EQ(file.timeOffset, 3.5);
}

TEST_F(Playback, ResumeWithoutNotesLeavesThePause) {
    loadedAndPaused();
    resumeMidi(file, engine);
    EXPECT_TRUE(file.paused);
}

TEST_F(Playback, ResumeOfAPlayingFileChangesNothing) {
    add(0.0, 1.0);
    engine.time = 9.0;
    resumeMidi(file, engine);
    EXPECT_EQ(file.timeOffset, 0.0);
}

TEST_F(Playback, ClearForgetsEverything) {
    add(0.0, 1.0);
    file.nextNote = 1;
    file.paused = true;
    file.pausedAt = 3.0;
    file.timeOffset = 2.0;
    file.binauralPairs = 4;
    clearMidi(file);
    EXPECT_TRUE(file.notes.empty());
    EXPECT_EQ(file.nextNote, 0u);
    EXPECT_FALSE(file.paused);
    EXPECT_EQ(file.pausedAt, 0.0);
    EXPECT_EQ(file.timeOffset, 0.0);
    EXPECT_EQ(file.duration, 0.0);
    EXPECT_EQ(file.binauralPairs, 0);
}

TEST_F(Playback, AFileIsFinishedHalfASecondAfterItsLastNote) {
    add(0.0, 1.0);
    file.timeOffset = 2.0;
    engine.time = 3.6;
    EXPECT_FALSE(midiFinished(file, engine));  // the note was not handed over
    file.nextNote = 1;
    EXPECT_TRUE(midiFinished(file, engine));
    engine.time = 3.5;
    EXPECT_FALSE(midiFinished(file, engine));
}

TEST_F(Playback, ASilencedChannelLosesItsNotesForGood) {
    engine.channels[4].enabled = false;
    add(0.0, 9.0, 60, 4);
    add(0.0, 9.0, 60, 5);
    midiTick(file, engine, 0.15);
    EXPECT_EQ(file.nextNote, 2u);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].channel, 5);
    engine.channels[4].enabled = true;
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.size(), 1u);
}

TEST_F(Playback, AChannelAbove15IsIgnored) {
    startMidiNote(engine, 60, 0.5f, 0.0, 1.0, 16, 0.5f);
    EXPECT_TRUE(engine.voices.empty());
}

class Stealing : public Playback {
  protected:
    void SetUp() override {
        engine.time = 1.0;
        engine.channels[2].maxVoices = 2;
    }
    void sound(int rank, std::uint32_t id, int channel = 2) {
        Voice voice;
        voice.frequency = 400.0;
        voice.channel = channel;
        voice.startTime = 0.5;
        voice.endTime = 9.0;
        voice.stealRank = rank;
        voice.id = id;
        engine.voices.push_back(voice);
    }
    void play(int key) { startMidiNote(engine, key, 0.5f, 1.0, 2.0, 2, 0.5f); }
};

TEST_F(Stealing, TheHighestRankGoesAndOfEqualOnesTheNewest) {
    sound(4, 1);
    sound(5, 2);
    sound(5, 3, 7);  // another channel's voice is fair game
    play(60);        // rank 4
    ASSERT_EQ(engine.voices.size(), 4u);
    EXPECT_EQ(engine.voices[0].endTime, 9.0);
    EXPECT_EQ(engine.voices[1].endTime, 9.0);
    EXPECT_DOUBLE_EQ(engine.voices[2].endTime, 1.005);
}

TEST_F(Stealing, ANoteThatRanksAboveEveryVoiceIsDropped) {
    sound(4, 1);
    sound(4, 2);
    play(65);  // rank 5
    EXPECT_EQ(engine.voices.size(), 2u);
    EXPECT_EQ(engine.voices[0].endTime, 9.0);
    play(64);  // rank 4: not above
    EXPECT_EQ(engine.voices.size(), 3u);
    EXPECT_DOUBLE_EQ(engine.voices[1].endTime, 1.005);
}

TEST_F(Stealing, AScheduledVoiceCanBeStolenButDoesNotCount) {
    sound(1, 1);
    sound(9, 2);
    engine.voices[1].startTime = 5.0;
    play(60);  // one sounding voice: no steal
    EXPECT_EQ(engine.voices[1].endTime, 9.0);
    sound(0, 8);
    play(60);
    EXPECT_DOUBLE_EQ(engine.voices[1].endTime, 1.005);
}

TEST_F(Stealing, AFullChannelWithoutAnyVoiceDropsTheNote) {
    engine.channels[2].maxVoices = 0;
    play(60);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(Stealing, ABurstWithinOneLookaheadGetsThrough) {
    for (int i = 0; i < 10; ++i)
        add(0.05, 1.0, 60, 2);
    file.timeOffset = 1.0;
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.size(), 10u);
}

TEST_F(Stealing, LateNotesOfOneBatchCountEachOther) {
    for (int i = 0; i < 4; ++i)
        add(0.9, 3.0, 60, 2);
    midiTick(file, engine, 0.15);
    // The first two sound at once and fill the channel; the later two each steal the newest, which still
    // counts as sounding for its last 5 ms.
    ASSERT_EQ(engine.voices.size(), 4u);
    EXPECT_EQ(engine.voices[0].endTime, 3.0);
    EXPECT_DOUBLE_EQ(engine.voices[1].endTime, 1.005);
    EXPECT_DOUBLE_EQ(engine.voices[2].endTime, 1.005);
    EXPECT_EQ(engine.voices[3].endTime, 3.0);
}

int g_holds = 0;

TEST_F(Playback, OneHoldOfTheLockCoversTheWholeBatch) {
    for (int i = 0; i < 50; ++i)
        add(0.0, 1.0);
    g_holds = 0;
    installAudioLock({[] { ++g_holds; }, [] {}});
    midiTick(file, engine, 0.15);
    installAudioLock({nullptr, nullptr});
    EXPECT_EQ(engine.voices.size(), 50u);
    EXPECT_EQ(g_holds, 1);
}

TEST_F(Playback, ABatchBeyondTheListsRoomIsHandedOverWhole) {
    for (int i = 0; i < 1500; ++i)
        add(0.1, 1.0);
    midiTick(file, engine, 0.15);
    EXPECT_EQ(engine.voices.size(), 1500u);
    EXPECT_EQ(engine.voices.back().id, 1499u);
    EXPECT_EQ(file.nextNote, 1500u);
}

TEST_F(Stealing, AVoiceWithoutARankIsStolenOnlyWhenAllHaveNone) {
    sound(0, 9);  // a walker's or a drone's
    sound(1, 1);
    play(12);  // rank 0
    EXPECT_EQ(engine.voices[0].endTime, 9.0);
    EXPECT_DOUBLE_EQ(engine.voices[1].endTime, 1.005);
}

TEST_F(Playback, TimesThatAreNotFiniteNeitherCrashNorLoop) {
    add(HUGE_VAL, HUGE_VAL);
    add(std::nan(""), HUGE_VAL);
    file.nextNote = 1;
    midiTick(file, engine, 0.15);
    EXPECT_EQ(file.nextNote, 2u);
    float out[2] = {0.0f, 0.0f};
    for (int i = 0; i < 1000; ++i) {
        renderStereoSample(engine, out);
        ASSERT_TRUE(std::isfinite(out[0]));
    }
    allNotesOff(engine);
    for (int i = 0; i < 1000; ++i)
        renderStereoSample(engine, out);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_FALSE(midiFinished(file, engine));
}

}  // namespace
}  // namespace veloria
