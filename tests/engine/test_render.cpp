#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "engine/control.h"
#include "engine/render.h"
#include "engine/reports.h"
#include "tests/engine/literal_renderer.h"

namespace veloria {
namespace {

constexpr double kTwoPi = 6.283185307179586;

Voice sineVoice(double hz, double start, double end) {
    Voice voice;
    voice.frequency = hz;
    voice.volume = 1.0f;
    voice.startTime = start;
    voice.endTime = end;
    voice.channel = kNoteChannel;
    voice.overrides = {.fibonacciCount = 0,
                       .piCount = 0,
                       .teslaCount = 0,
                       .octaveSteps = 0,
                       .phiSteps = 0,
                       .fibPhase = 0,
                       .teslaPhase = 0,
                       .waveform = 0};
    return voice;
}

struct Stereo {
    float left;
    float right;
};

Stereo renderOne(SynthEngine& engine) {
    float out[2];
    renderStereoSample(engine, out);
    return {out[0], out[1]};
}

void renderMany(SynthEngine& engine, int samples) {
    for (int i = 0; i < samples; ++i)
        static_cast<void>(renderOne(engine));
}

TEST(Envelope, FiveMillisecondsOfAttackTwentyOfRelease) {
    const Voice voice = sineVoice(100.0, 1.0, 2.0);
    EXPECT_FLOAT_EQ(envelopeAt(voice, 1.0), 0.0f);
    EXPECT_NEAR(envelopeAt(voice, 1.0025), 0.5, 1e-6);
    EXPECT_FLOAT_EQ(envelopeAt(voice, 1.005), 1.0f);
    EXPECT_FLOAT_EQ(envelopeAt(voice, 1.5), 1.0f);
    EXPECT_NEAR(envelopeAt(voice, 1.99), 0.5, 1e-6);
    EXPECT_FLOAT_EQ(envelopeAt(voice, 2.0), 0.0f);
}

TEST(Envelope, ANoteOfOneMillisecondHasAShortAttackAndThenOnlyItsReleaseRamp) {
    const Voice voice = sineVoice(100.0, 0.0, 0.001);
    EXPECT_NEAR(envelopeAt(voice, 0.0001), 0.5, 1e-6);      // attack of 0.2 ms
    EXPECT_NEAR(envelopeAt(voice, 0.0002001), 0.04, 1e-4);  // what is left over 20 ms
    EXPECT_NEAR(envelopeAt(voice, 0.0009), 0.005, 1e-6);
}

TEST(Envelope, TheAttackWinsOverTheRelease) {
    const Voice voice = sineVoice(100.0, 0.0, 0.006);
    EXPECT_NEAR(envelopeAt(voice, 0.004), 0.8, 1e-6);
    EXPECT_NEAR(envelopeAt(voice, 0.0055), 0.025, 1e-6);
}

TEST(Level, GlidesLinearlyOverTheWholeNote) {
    Voice voice = sineVoice(100.0, 1.0, 3.0);
    voice.volume = 0.2f;
    EXPECT_FLOAT_EQ(levelAt(voice, 2.0), 0.2f);
    voice.targetVolume = 1.0f;
    EXPECT_FLOAT_EQ(levelAt(voice, 1.0), 0.2f);
    EXPECT_FLOAT_EQ(levelAt(voice, 2.0), 0.6f);
    EXPECT_FLOAT_EQ(levelAt(voice, 5.0), 1.0f);
    voice.targetVolume = 0.0f;
    EXPECT_FLOAT_EQ(levelAt(voice, 2.0), 0.1f);
    voice.endTime = voice.startTime;
    EXPECT_FLOAT_EQ(levelAt(voice, 2.0), 0.2f);
}

TEST(Render, WithoutVoicesTheClockAdvancesAndTheLevelSettlesAtItsRest) {
    SynthEngine engine;
    engine.masterLevel = 0.1f;
    const Stereo out = renderOne(engine);
    EXPECT_EQ(out.left, 0.0f);
    EXPECT_EQ(out.right, 0.0f);
    EXPECT_EQ(engine.time, 2.2675736961451248e-05);
    renderMany(engine, 44099);
    EXPECT_NEAR(engine.time, 1.0, 1e-9);
    EXPECT_NEAR(engine.masterLevel, 0.3, 1e-4);
}

TEST(Render, FromSilenceTheFirstNotesAreNotFadedInByTheBus) {
    SynthEngine engine;
    renderMany(engine, 1000);
    EXPECT_FLOAT_EQ(engine.masterLevel, 0.3f);
}

TEST(Render, AVoiceEndingWhereItBeginsIsRemovedWithoutASound) {
    SynthEngine engine;
    engine.voices.push_back(sineVoice(440.0, 0.0, 0.0));
    const Stereo out = renderOne(engine);
    EXPECT_EQ(out.left, 0.0f);
    EXPECT_TRUE(engine.voices.empty());
}

TEST(Render, AVoiceInTheFutureWaitsSilentAndUnchanged) {
    SynthEngine engine;
    engine.voices.push_back(sineVoice(440.0, 0.5, 1.0));
    renderMany(engine, 100);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].phases[0], 0.0);
    EXPECT_EQ(activeVoiceCount(engine), 0);
}

TEST(Render, FutureVoicesDoNotCountTowardsPolyphony) {
    SynthEngine engine;
    for (int i = 0; i < 100; ++i)
        engine.voices.push_back(sineVoice(440.0, 10.0, 11.0));
    renderMany(engine, 2000);
    EXPECT_FLOAT_EQ(engine.masterLevel, 0.3f);
}

TEST(Render, RemovalPutsTheLastVoiceIntoTheGapAndLooksAtItNext) {
    SynthEngine engine;
    engine.voices.push_back(sineVoice(100.0, 0.0, 0.0));
    engine.voices.push_back(sineVoice(200.0, 0.0, 9.0));
    engine.voices.push_back(sineVoice(300.0, 0.0, 9.0));
    static_cast<void>(renderOne(engine));
    ASSERT_EQ(engine.voices.size(), 2u);
    EXPECT_EQ(engine.voices[0].frequency, 300.0);
    EXPECT_EQ(engine.voices[1].frequency, 200.0);
    EXPECT_GT(engine.voices[0].phases[0], 0.0);  // rendered in the same sample
}

TEST(Render, AVoiceWithNothingAudibleKeepsItsPlaceToItsEnd) {
    SynthEngine engine;
    engine.voices.push_back(sineVoice(5.0, 0.0, 0.01));
    for (int i = 0; i < 440; ++i)
        EXPECT_EQ(renderOne(engine).left, 0.0f);
    EXPECT_EQ(engine.voices.size(), 1u);
    renderMany(engine, 2);
    EXPECT_TRUE(engine.voices.empty());
}

TEST(Render, CentreIsUnityOnBothSidesAndAHardPanIsDoubledOnOne) {
    for (const float pan : {0.0f, 0.5f, 1.0f, 0.25f}) {
        SynthEngine engine;
        Voice voice = sineVoice(1000.0, 0.0, 10.0);
        voice.pan = pan;
        engine.voices.push_back(voice);
        renderMany(engine, 500);
        const Stereo out = renderOne(engine);
        const double t = engine.time;
        const double s =
            std::sin(501 * 1000.0 * kTwoPi / 44100.0) * (std::sin(t * 2 * 1.6180339887) * 0.03 + 1.0);
        EXPECT_NEAR(out.left, std::tanh(0.3 * 2.0 * (1.0 - pan) * s), 1e-5);
        EXPECT_NEAR(out.right, std::tanh(0.3 * 2.0 * pan * s), 1e-5);
    }
}

TEST(Render, TheChannelsVolumeScalesItsVoices) {
    SynthEngine engine;
    engine.voices.push_back(sineVoice(1000.0, 0.0, 10.0));
    engine.channels[kNoteChannel].volume = 0.0f;
    renderMany(engine, 300);
    EXPECT_EQ(renderOne(engine).left, 0.0f);
    engine.channels[kNoteChannel].volume = 1.0f;
    renderMany(engine, 10);
    EXPECT_NE(renderOne(engine).left, 0.0f);
}

TEST(Render, AChangeOfAnEngineSettingReachesASoundingVoiceAtTheNextSample) {
    SynthEngine engine;
    Voice voice = sineVoice(440.0, 0.0, 10.0);
    voice.overrides = {};
    engine.voices.push_back(voice);
    renderMany(engine, 300);
    EXPECT_EQ(engine.voices[0].phases[3], 0.0);
    engine.fibonacciCount = 3;
    renderMany(engine, 1);
    EXPECT_NE(engine.voices[0].phases[3], 0.0);
    engine.waveform = 7;
    EXPECT_EQ(renderOne(engine).left, 0.0f);
}

TEST(Render, SettingThePhaseShiftsThePartialsOfASoundingNoteAtOnce) {
    SynthEngine engine;
    Voice voice = sineVoice(440.0, 0.0, 10.0);
    voice.overrides = {};
    engine.voices.push_back(voice);
    renderMany(engine, 499);
    engine.fibPhase = 50;
    const Stereo out = renderOne(engine);
    const double x = 500.0 * 440.0 * kTwoPi / 44100.0;
    const double phi = (1.0 + std::sqrt(5.0)) / 2.0;
    const double shifted =
        3.0 * x + kTwoPi / (phi * phi) * 0.5;  // the second partial, half a golden angle on
    const double sum = (std::sin(x) + std::sin(2.0 * x) / 2.0 + std::sin(shifted) / 3.0) / (11.0 / 6.0);
    const double tremolo = std::sin(engine.time * 2.0 * 1.6180339887) * 0.03 + 1.0;
    EXPECT_NEAR(out.left, std::tanh(0.3 * sum * tremolo), 1e-5);
}

TEST(Render, SixtyFiveVoicesPullTheLevelDownOverSomeHundredMilliseconds) {
    SynthEngine engine;
    for (int i = 0; i < 65; ++i)
        engine.voices.push_back(sineVoice(200.0 + 5.0 * i, 0.0, 60.0));
    float peak = 0.0f;
    for (int i = 0; i < 2222; ++i)
        peak = std::max(peak, std::fabs(renderOne(engine).left));
    EXPECT_LE(peak, 1.0f);
    EXPECT_GT(peak, 0.9f);  // the soft limit is at work meanwhile
    EXPECT_NEAR(engine.masterLevel, 0.01875 + 0.28125 / std::exp(1.0), 3e-3);
    renderMany(engine, 20000);
    EXPECT_NEAR(engine.masterLevel, 0.01875, 2e-4);
}

// A scene of voices that begin, glide, end and overlap, held against a computation written apart from the
// renderer.
TEST(Render, ASceneOfVoicesMatchesTheLiteralComputation) {
    SynthEngine engine;
    engine.piCount = 5;
    engine.octaveSteps = -2;
    engine.fibPhase = 30;
    struct Note {
        double hz, start, end, volume, target, pan;
        int wave;
    };
    const std::vector<Note> notes = {{152.0, 0.0, 0.3, 0.7, -1.0, 0.0, 0},
                                     {528.0, 0.05, 0.2, 0.5, 1.0, 1.0, 1},
                                     {333.0, 0.1, 0.104, 0.9, -1.0, 0.5, 2},
                                     {741.3, 0.02, 0.5, 0.4, 0.0, 0.3, 3},
                                     {61.7, 0.0, 0.25, 1.0, -1.0, 0.9, 0}};
    std::vector<std::vector<double>> phases(notes.size(), std::vector<double>(kPhaseSlots, 0.0));
    for (const Note& n : notes) {
        Voice voice = sineVoice(n.hz, n.start, n.end);
        voice.volume = static_cast<float>(n.volume);
        voice.targetVolume = static_cast<float>(n.target);
        voice.pan = static_cast<float>(n.pan);
        voice.overrides = {};
        voice.overrides.waveform = n.wave;
        engine.voices.push_back(voice);
    }
    for (int sample = 1; sample <= 15000; ++sample) {
        const Stereo out = renderOne(engine);
        const double t = engine.time;
        double left = 0.0;
        double right = 0.0;
        for (std::size_t v = 0; v < notes.size(); ++v) {
            const Note& n = notes[v];
            if (t < n.start || t >= n.end) continue;
            double sum = 0.0;
            double weight = 0.0;
            for (const auto& p : literal::partialsOf(n.hz, 2, 5, 0, -2, 0, 30, 0)) {
                if (p.hz < 20.0 || p.hz >= 22050.0) continue;
                double& phase = phases[v][static_cast<std::size_t>(p.slot)];
                phase += p.hz * kTwoPi / 44100.0;
                while (phase > kTwoPi)
                    phase -= kTwoPi;
                sum += literal::wave(phase + p.offset, n.wave) * p.weight;
                weight += p.weight;
            }
            const double dur = n.end - n.start;
            const double attack = dur < 0.005 ? dur * 0.2 : 0.005;
            double env = 1.0;
            if (t - n.start < attack) {
                env = (t - n.start) / attack;
            } else if (n.end - t < 0.02) {
                env = (n.end - t) / 0.02;
            }
            double level = n.volume;
            if (n.target >= 0.0) level += (t - n.start) / dur * (n.target - level);
            const double s = level * env * sum / weight * (std::sin(t * 2.0 * 1.6180339887) * 0.03 + 1.0);
            left += 2.0 * (1.0 - n.pan) * s;
            right += 2.0 * n.pan * s;
        }
        ASSERT_NEAR(out.left, std::tanh(0.3 * left), 1e-5) << sample;
        ASSERT_NEAR(out.right, std::tanh(0.3 * right), 1e-5) << sample;
    }
}

}  // namespace
}  // namespace veloria
