#include <gtest/gtest.h>

#include <algorithm>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "engine/render.h"

namespace veloria {
namespace {

int g_depth = 0;
int g_holds = 0;

// Counts the holds of the audio lock, and fails when one is left open.
class CountedLock : public ::testing::Test {
  protected:
    void SetUp() override {
        g_depth = 0;
        g_holds = 0;
        installAudioLock({[] {
                              ++g_depth;
                              ++g_holds;
                          },
                          [] { --g_depth; }});
    }
    void TearDown() override {
        EXPECT_EQ(g_depth, 0);
        installAudioLock({nullptr, nullptr});
    }
    void renderSamples(int count) {
        float out[2];
        for (int i = 0; i < count; ++i)
            renderStereoSample(engine, out);
    }
    const Voice& last() const { return engine.voices.back(); }

    SynthEngine engine;
};

using Control = CountedLock;

TEST_F(Control, NoteOnAppendsAVoiceOfChannelNineAtTheClock) {
    renderSamples(441);
    const double now = engine.time;
    engine.nextVoiceId = 7;
    noteOn(engine, {.frequency = 528.0,
                    .volume = 0.6f,
                    .pan = 0.25f,
                    .overrides = {.fibonacciCount = 3, .waveform = 2},
                    .targetVolume = 0.1f,
                    .duration = 1.5});
    ASSERT_EQ(engine.voices.size(), 1u);
    const Voice& voice = last();
    EXPECT_EQ(voice.frequency, 528.0);
    EXPECT_EQ(voice.midiNote, -1);
    EXPECT_EQ(voice.volume, 0.6f);
    EXPECT_EQ(voice.targetVolume, 0.1f);
    EXPECT_EQ(voice.startTime, now);
    EXPECT_EQ(voice.endTime, now + 1.5);
    EXPECT_EQ(voice.channel, 9);
    EXPECT_EQ(voice.pan, 0.25f);
    EXPECT_EQ(voice.stealRank, 0);
    EXPECT_EQ(voice.tuningTag, 0);
    EXPECT_EQ(voice.id, 7u);
    EXPECT_EQ(engine.nextVoiceId, 8u);
    EXPECT_EQ(voice.overrides.fibonacciCount, 3);
    EXPECT_EQ(voice.overrides.waveform, 2);
    EXPECT_EQ(voice.overrides.piCount, -1);
    EXPECT_TRUE(std::all_of(voice.phases.begin(), voice.phases.end(), [](double p) { return p == 0.0; }));
    EXPECT_EQ(g_holds, 1);
}

TEST_F(Control, TheListGrowsOutsideTheLockAndKeepsItsVoices) {
    for (int i = 0; i < 256; ++i)
        noteOn(engine, {.frequency = 100.0 + i, .volume = 1, .duration = 9});
    ASSERT_EQ(engine.voices.capacity(), 256u);
    g_holds = 0;
    noteOn(engine, {.frequency = 999.0, .volume = 1, .duration = 9});
    EXPECT_EQ(g_holds, 3);  // full; the move into the larger list; the append
    ASSERT_EQ(engine.voices.size(), 257u);
    EXPECT_EQ(engine.voices[0].frequency, 100.0);
    EXPECT_EQ(engine.voices[255].frequency, 355.0);
    EXPECT_EQ(last().frequency, 999.0);
    EXPECT_EQ(last().id, 256u);
    EXPECT_GE(engine.voices.capacity(), 512u);
}

TEST_F(Control, NoteOffByFrequencyEndsEveryMatchWithinOneHertzOnChannelNineOnly) {
    for (const double hz : {322.0, 322.9, 323.0, 321.1})
        noteOn(engine, {.frequency = hz, .volume = 1, .duration = 9});
    Voice midi = last();
    midi.frequency = 322.0;
    midi.channel = 3;
    engine.voices.push_back(midi);
    g_holds = 0;
    noteOffByFrequency(engine, 322.0);
    EXPECT_EQ(engine.voices[0].endTime, 0.02);
    EXPECT_EQ(engine.voices[1].endTime, 0.02);
    EXPECT_EQ(engine.voices[2].endTime, 9.0);  // exactly 1 Hz away
    EXPECT_EQ(engine.voices[3].endTime, 0.02);
    EXPECT_EQ(engine.voices[4].endTime, 9.0);
    EXPECT_EQ(g_holds, 1);
}

TEST_F(Control, ANoteOffNeverLengthensANote) {
    noteOn(engine, {.frequency = 400.0, .volume = 1, .duration = 0.005});
    noteOffByFrequency(engine, 400.0);
    EXPECT_EQ(last().endTime, 0.005);
}

TEST_F(Control, NoteOffChannel9EndsWhateverSoundsThere) {
    noteOn(engine, {.frequency = 100.0, .volume = 1, .duration = 9});
    noteOn(engine, {.frequency = 900.0, .volume = 1, .duration = 9});
    toggleReflection(engine, 0);
    noteOffChannel9(engine);
    EXPECT_EQ(engine.voices[0].endTime, 0.02);
    EXPECT_EQ(engine.voices[1].endTime, 0.02);
    EXPECT_EQ(engine.voices[2].endTime, 3600.0);
}

TEST_F(Control, AllNotesOffEndsEveryChannelIn20MillisecondsEvenLater) {
    toggleReflection(engine, 3);
    toggleRotation(engine, 4);
    toggleShadow(engine, 5);
    noteOn(engine, {.frequency = 400.0, .volume = 1, .duration = 0.005});
    allNotesOff(engine);
    for (const Voice& voice : engine.voices)
        EXPECT_EQ(voice.endTime, 0.02);
    EXPECT_FALSE(engine.reflectionHeld[3]);
    EXPECT_FALSE(engine.rotationHeld[4]);
    EXPECT_FALSE(engine.shadowHeld[5]);
}

TEST_F(Control, HardResetDropsEverythingUnderTheLockAndForgetsTheDrones) {
    engine.activationMode = 2;
    startDrones(engine);
    toggleReflection(engine, 3);
    renderSamples(100);
    engine.masterLevel = 0.2f;
    g_holds = 0;
    hardReset(engine);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_GE(engine.voices.capacity(), 256u);
    EXPECT_EQ(engine.time, 0.0);
    EXPECT_FALSE(engine.reflectionHeld[3]);
    EXPECT_FALSE(engine.dronesOn);
    EXPECT_EQ(engine.masterLevel, 0.2f);
    EXPECT_EQ(engine.activationMode, 2);
    EXPECT_EQ(g_holds, 1);
}

TEST_F(Control, TogglesPlayTheirFamilysSideForAnHour) {
    toggleReflection(engine, 40);
    EXPECT_EQ(last().frequency, reflectionFreqs[40]);
    EXPECT_EQ(last().channel, 8);
    EXPECT_EQ(last().volume, 0.65f);
    EXPECT_EQ(last().pan, 0.0f);
    EXPECT_EQ(last().endTime, 3600.0);
    EXPECT_EQ(last().targetVolume, -1.0f);
    EXPECT_EQ(last().overrides.fibonacciCount, -1);
    EXPECT_TRUE(engine.reflectionHeld[40]);
    toggleRotation(engine, 41);
    EXPECT_EQ(last().frequency, rotationFreqs[41]);
    EXPECT_EQ(last().channel, 8);
    EXPECT_EQ(last().volume, 0.65f);
    EXPECT_EQ(last().pan, 1.0f);
    toggleShadow(engine, 215);
    EXPECT_EQ(last().frequency, 666.0);
    EXPECT_EQ(last().channel, 10);
    EXPECT_EQ(last().volume, 0.55f);
    EXPECT_EQ(last().pan, 0.5f);
    EXPECT_EQ(last().id, 2u);
}

TEST_F(Control, TogglesBeyondTheTablesDoNothing) {
    toggleReflection(engine, 81);
    toggleRotation(engine, 81);
    toggleShadow(engine, 216);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(g_holds, 0);
}

TEST_F(Control, ASecondPressReleasesIn150MillisecondsAndAThirdBeginsAnew) {
    toggleReflection(engine, 10);
    renderSamples(100);
    const double now = engine.time;
    toggleReflection(engine, 10);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(last().endTime, now + 0.15);
    EXPECT_FALSE(engine.reflectionHeld[10]);
    renderSamples(100);
    toggleReflection(engine, 10);
    EXPECT_EQ(engine.voices.size(), 2u);  // the old one still fades
    EXPECT_TRUE(engine.reflectionHeld[10]);
}

TEST_F(Control, AReleaseFindsOnlyItsOwnFamilysVoice) {
    // The same frequency on the other side, and on another channel, first in the list.
    Voice other;
    other.frequency = reflectionFreqs[0];
    other.channel = 8;
    other.pan = 1.0f;
    other.endTime = 50.0;
    engine.voices.push_back(other);
    other.channel = 9;
    other.pan = 0.0f;
    engine.voices.push_back(other);
    toggleReflection(engine, 0);
    toggleReflection(engine, 0);
    EXPECT_EQ(engine.voices[0].endTime, 50.0);
    EXPECT_EQ(engine.voices[1].endTime, 50.0);
    EXPECT_EQ(engine.voices[2].endTime, 0.15);
}

TEST_F(Control, AReleaseEndsOnlyTheFirstMatch) {
    toggleShadow(engine, 7);
    Voice twin = last();
    engine.voices.push_back(twin);
    toggleShadow(engine, 7);
    EXPECT_EQ(engine.voices[0].endTime, 0.15);
    EXPECT_EQ(engine.voices[1].endTime, 3600.0);
}

TEST_F(Control, AHeldButtonWhoseVoiceIsGoneIsPutOutAllTheSame) {
    toggleRotation(engine, 2);
    engine.voices.clear();
    toggleRotation(engine, 2);
    EXPECT_FALSE(engine.rotationHeld[2]);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(Control, AConvergenceIndexTogglesToo) {
    ASSERT_TRUE(isConvergence(10));
    toggleShadow(engine, 10);
    EXPECT_EQ(last().frequency, 125.0);
}

TEST_F(Control, DronesFollowTheActivationMode) {
    startDrones(engine);
    EXPECT_TRUE(engine.voices.empty());  // no mode on
    engine.activationMode = 2;
    startDrones(engine);
    ASSERT_EQ(engine.voices.size(), 2u);
    EXPECT_EQ(engine.voices[0].frequency, 322.0);
    EXPECT_EQ(engine.voices[0].pan, 0.0f);
    EXPECT_EQ(engine.voices[1].frequency, 325.0);
    EXPECT_EQ(engine.voices[1].pan, 1.0f);
    startDrones(engine);
    EXPECT_EQ(engine.voices.size(), 2u);  // they run already
    stopDrones(engine);
    for (const int mode : {3, 4}) {
        hardReset(engine);
        engine.activationMode = mode;
        startDrones(engine);
        ASSERT_EQ(engine.voices.size(), 4u);
        EXPECT_EQ(engine.voices[2].frequency, 111.0);
        EXPECT_EQ(engine.voices[2].pan, 0.0f);
        EXPECT_EQ(engine.voices[3].frequency, 114.0);
        EXPECT_EQ(engine.voices[3].pan, 1.0f);
    }
    const Voice& drone = engine.voices[0];
    EXPECT_EQ(drone.volume, 0.12f);
    EXPECT_EQ(drone.endTime, 7200.0);
    EXPECT_EQ(drone.overrides.fibonacciCount, 0);
    EXPECT_EQ(drone.overrides.piCount, 0);
    EXPECT_EQ(drone.overrides.teslaCount, 0);
    EXPECT_EQ(drone.overrides.waveform, 0);
    EXPECT_EQ(drone.overrides.octaveSteps, -1);  // the engine's octaves reach the drones
    EXPECT_EQ(drone.overrides.phiSteps, -1);
    EXPECT_EQ(drone.overrides.fibPhase, -1);
    EXPECT_EQ(drone.overrides.teslaPhase, -1);
}

TEST_F(Control, StoppingTheDronesEndsAnyOtherVoiceAtTheirFrequencies) {
    engine.activationMode = 3;
    startDrones(engine);
    noteOn(engine, {.frequency = 325.0, .volume = 1, .duration = 9});
    stopDrones(engine);
    for (const Voice& voice : engine.voices)
        EXPECT_EQ(voice.endTime, 0.02);
    EXPECT_FALSE(engine.dronesOn);
    g_holds = 0;
    stopDrones(engine);
    EXPECT_EQ(g_holds, 0);
}

TEST_F(Control, AWalkersNoteOffEndsADroneOfTheSameFrequency) {
    engine.activationMode = 2;
    startDrones(engine);
    noteOffByFrequency(engine, 322.0);
    EXPECT_EQ(engine.voices[0].endTime, 0.02);
    EXPECT_EQ(engine.voices[1].endTime, 7200.0);
    EXPECT_TRUE(engine.dronesOn);
}

TEST_F(Control, AHeldNoteEndsByItselfAfterAnHourWithItsButtonStillLit) {
    toggleReflection(engine, 0);
    engine.time = 3600.0;
    renderSamples(1);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_TRUE(engine.reflectionHeld[0]);
}

TEST(EngineDefaults, AreThoseOfANewInstrument) {
    const SynthEngine engine;
    EXPECT_EQ(engine.fibonacciCount, 2);
    EXPECT_EQ(engine.piCount, 0);
    EXPECT_EQ(engine.teslaCount, 0);
    EXPECT_EQ(engine.octaveSteps, 0);
    EXPECT_EQ(engine.phiSteps, 0);
    EXPECT_EQ(engine.fibPhase, 0);
    EXPECT_EQ(engine.teslaPhase, 0);
    EXPECT_EQ(engine.waveform, 0);
    EXPECT_TRUE(engine.sacredOptimizer);
    EXPECT_FALSE(engine.bassFilter);
    EXPECT_EQ(engine.masterLevel, 0.3f);
    EXPECT_GE(engine.voices.capacity(), 256u);
    for (const ChannelState& channel : engine.channels) {
        EXPECT_TRUE(channel.enabled);
        EXPECT_EQ(channel.volume, 1.0f);
        EXPECT_EQ(channel.pan, 0.5f);
        EXPECT_EQ(channel.maxVoices, 64);
    }
}

}  // namespace
}  // namespace veloria
