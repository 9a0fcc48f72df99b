// The block renderer against renderStereoSample, which is the definition.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "engine/control.h"
#include "engine/stacks.h"
#include "engine/voice_list.h"
#include "tests/engine/block_twin.h"
#include "tests/engine/on_every_target.h"

namespace veloria {
namespace {

using test::expectSame;
using test::plainVoice;
using test::Twin;

using RenderBlock = test::OnEveryTarget;
INSTANTIATE_TEST_SUITE_P(Targets, RenderBlock, ::testing::ValuesIn(vectorTargets()), test::nameOfTarget);

constexpr double kFrame = 1.0 / 44100.0;

void setGlobals(SynthEngine& engine, const VoiceOverrides& settings) {
    engine.fibonacciCount = settings.fibonacciCount;
    engine.piCount = settings.piCount;
    engine.teslaCount = settings.teslaCount;
    engine.octaveSteps = settings.octaveSteps;
    engine.phiSteps = settings.phiSteps;
    engine.fibPhase = settings.fibPhase;
    engine.teslaPhase = settings.teslaPhase;
    engine.waveform = settings.waveform;
}

VoiceOverrides plainSettings() {
    return plainVoice(0.0, 0.0, 0.0).overrides;
}

// Each stack alone, and all of them.
std::vector<VoiceOverrides> everyStack() {
    std::vector<VoiceOverrides> all(10, plainSettings());
    all[1].fibonacciCount = 2;
    all[2].fibonacciCount = 14;
    all[3].piCount = 14;
    all[4].teslaCount = 3;
    all[5].octaveSteps = 3;
    all[6].octaveSteps = -3;
    all[7].phiSteps = 3;
    all[8].phiSteps = -3;
    all[9].fibonacciCount = all[9].piCount = 14;
    all[9].teslaCount = all[9].octaveSteps = 3;
    all[9].phiSteps = -4;
    return all;
}

VoiceOverrides everything() {
    VoiceOverrides all = plainSettings();
    all.fibonacciCount = all.piCount = 14;
    all.teslaCount = all.octaveSteps = all.phiSteps = 3;
    return all;
}

TEST_P(RenderBlock, EveryWaveformWithEveryStackAndPhaseOffset) {
    for (const std::int32_t waveform : {0, 1, 2, 3, 4}) {
        for (const VoiceOverrides& stack : everyStack()) {
            for (const auto& [fibPhase, teslaPhase] : {std::pair{0, 0}, {37, 0}, {0, 50}, {100, 100}}) {
                Twin twin;
                VoiceOverrides settings = stack;
                settings.waveform = waveform;
                settings.fibPhase = fibPhase;
                settings.teslaPhase = teslaPhase;
                twin.both([&](SynthEngine& engine) { setGlobals(engine, settings); });
                for (const double hz : {21.237, 123.4567, 618.033, 1712.3}) {
                    Voice voice = plainVoice(hz, 0.0, 10.0);
                    voice.overrides = {};
                    voice.pan = static_cast<float>(hz / 2000.0);
                    twin.add(voice);
                }
                twin.play(1500);
                SCOPED_TRACE("waveform " + std::to_string(waveform) + ", phases " + std::to_string(fibPhase) +
                             " and " + std::to_string(teslaPhase) + ", stack of " +
                             std::to_string(twin.blocks.partialTables[0].count));
                expectSame(twin);
            }
        }
    }
}

// A partial whose steps fall exactly on a frame: rounding decides on which side of the step the frame is, and
// the two roundings need not agree. That many frames differ, by a step of one partial, and no others.
TEST_P(RenderBlock, StepsExactlyOnAFrameDifferAtThatFrameAlone) {
    constexpr int kFrames = 44100;
    for (const std::int32_t waveform : {1, 2, 3}) {
        for (const double hz : {441.0, 150.0, 11025.0}) {
            Twin twin;
            Voice voice = plainVoice(hz, 0.0, 10.0);
            voice.overrides.waveform = waveform;
            twin.add(voice);
            twin.play(kFrames);
            SCOPED_TRACE("waveform " + std::to_string(waveform) + " of " + std::to_string(hz));
            // Two sides, and for a square two steps a turn.
            const int steps = waveform == 3 ? 0 : static_cast<int>(hz) * (waveform == 2 ? 4 : 2);
            EXPECT_LE(twin.beyond, steps);
            EXPECT_LE(twin.worstBeyond, 2.0 * std::tanh(0.3 * 1.03 * 0.7) + test::kSampleTolerance);
            test::expectSameState(twin);
        }
    }
}

TEST_P(RenderBlock, VoicesThatBeginAndEndAnywhere) {
    Twin twin;
    twin.both([](SynthEngine& engine) { engine.piCount = 4; });
    for (int i = 0; i < 60; ++i) {
        const double start = 0.001 + i * 0.00077;
        Voice voice = plainVoice(200.0 + 13.7 * i, start, start + 0.0001 * std::pow(1.13, i));
        voice.overrides = {};
        voice.pan = 0.1f * static_cast<float>(i % 11);
        twin.add(voice);
    }
    twin.play(9000);
    EXPECT_TRUE(twin.blocks.voices.empty());
    expectSame(twin);
}

// The frame at which a voice begins and the one at which it leaves the list, right at a frame's time and a
// hair on either side of it.
TEST_P(RenderBlock, BeginningsAndEndsRightOnAFrame) {
    for (const double hair : {0.0, 1e-15, -1e-15}) {
        for (int frame = 60; frame <= 70; ++frame) {
            Twin twin;
            double time = 0.0;
            for (int i = 0; i < frame; ++i)
                time += kSampleSeconds;
            twin.add(plainVoice(500.0, 0.0, time + hair));
            twin.add(plainVoice(600.0, time + hair, 1.0));
            twin.add(plainVoice(700.0, time + hair, time + hair));
            // The second block ends with the frame at which they begin and end.
            for (const int length : {frame - 5, 5, 1, 20}) {
                twin.render(static_cast<std::size_t>(length));
                expectSame(twin);
            }
        }
    }
}

TEST_P(RenderBlock, VoicesThatGlide) {
    Twin twin;
    for (const float target : {0.0f, 0.2f, 0.7f, 1.0f}) {
        for (const double length : {0.003, 0.02, 0.1}) {
            Voice voice = plainVoice(300.0 + 100.0 * static_cast<double>(target), 0.004, 0.004 + length);
            voice.targetVolume = target;
            twin.add(voice);
        }
    }
    twin.play(5000);
    expectSame(twin);
}

TEST_P(RenderBlock, VoicesCutInTheirAttackOrReleaseOrMadeLonger) {
    Twin twin;
    for (int i = 0; i < 6; ++i)
        twin.add(plainVoice(250.0 + 50.0 * i, 0.0, i < 3 ? 1.0 : 0.03));
    twin.render(100);  // 2.3 ms: all in their attack
    twin.both([](SynthEngine& engine) {
        engine.voices[0].endTime = engine.time + 0.001;
        engine.voices[1].endTime = engine.time + 0.02;
    });
    twin.render(900);  // 22.7 ms: the short ones in their release
    twin.both([](SynthEngine& engine) {
        engine.voices[3].endTime = engine.time + 0.0005;
        engine.voices[4].endTime += 0.5;
    });
    twin.play(3000);
    twin.both(allNotesOff);
    twin.play(1000);
    EXPECT_TRUE(twin.blocks.voices.empty());
    expectSame(twin);
}

TEST_P(RenderBlock, ANoteShorterThanItsAttack) {
    Twin twin;
    for (const double length : {1e-9, 1e-5, 0.0001, 0.001, 0.0049, 0.005, 0.0051, 0.024, 0.0251})
        twin.add(plainVoice(900.0, 0.002, 0.002 + length));
    twin.add(plainVoice(900.0, 0.01, 0.005));  // ends before it begins
    for (int i = 0; i < 40; ++i) {
        twin.render(50);
        test::expectSameState(twin);
    }
    EXPECT_TRUE(twin.blocks.voices.empty());
    expectSame(twin);
}

TEST_P(RenderBlock, AVoiceInTheFutureWaitsUnchanged) {
    Twin twin;
    twin.add(plainVoice(440.0, 5.0, 6.0));
    twin.play(600);
    EXPECT_EQ(twin.blocks.voices.at(0).phases[0], 0.0);
    EXPECT_EQ(twin.lastBlocks, std::vector<float>(twin.lastBlocks.size(), 0.0f));
    expectSame(twin);
}

TEST_P(RenderBlock, VoicesAndPartialsOutOfRange) {
    Twin twin;
    twin.both([](SynthEngine& engine) { setGlobals(engine, everything()); });
    for (const double hz :
         {-440.0, 0.0, 2.0, 5.0, 19.999, 20.0, 7000.0, 22049.9, 22050.0, 1e9, std::nan("")}) {
        Voice voice = plainVoice(hz, 0.0, 1.0);
        voice.overrides = {};
        twin.add(voice);
    }
    twin.play(3000);
    expectSame(twin);
}

TEST_P(RenderBlock, SettingsThatChangeBetweenBlocksAndComeBack) {
    Twin twin;
    for (int i = 0; i < 12; ++i) {
        Voice voice = plainVoice(70.0 + 91.7 * i, 0.0, 10.0);
        voice.overrides = i % 3 == 0 ? plainSettings() : VoiceOverrides{};
        twin.add(voice);
    }
    const auto stacks = everyStack();
    for (std::size_t i = 0; i < 40; ++i) {
        VoiceOverrides settings = stacks[i % stacks.size()];
        settings.fibPhase = static_cast<std::int32_t>(i * 7 % 101);
        settings.waveform = i % 4 == 3 ? 7 : 0;
        twin.both([&](SynthEngine& engine) {
            setGlobals(engine, settings);
            engine.channels[kNoteChannel].volume = 0.1f * static_cast<float>(i % 10);
        });
        twin.render(50 + 9 * i);
    }
    expectSame(twin);
}

TEST_P(RenderBlock, FromNoVoicesTo300) {
    for (const int count : {0, 1, 8, 9, 63, 64, 65, 255, 256, 257, 258, 300}) {
        Twin twin;
        // The level has settled, as it has after a moment of such a chord.
        twin.both([&](SynthEngine& engine) { engine.masterLevel = 0.02f; });
        for (int i = 0; i < count; ++i) {
            Voice voice = plainVoice(100.0 + 3.3 * i, -1.0, i % 3 == 0 ? 0.01 : 10.0);
            voice.overrides = {};
            voice.volume = 0.1f + 0.5f * static_cast<float>(i) / 300.0f;
            voice.pan = 0.25f * static_cast<float>(i % 5);
            twin.add(voice);
        }
        SCOPED_TRACE(count);
        twin.play(1100);
        expectSame(twin);
    }
}

// Voices that share a table build it anew in each sub-block: 512 of them took 38 % of a core, and not 4 %.
TEST_P(RenderBlock, AVoiceBeyondTheReservedOnesHasATableOfItsOwn) {
    Twin twin;
    twin.both([](SynthEngine& engine) {
        for (int i = 0; i < 2 * kVoiceFigure + 20; ++i) {
            startVoice(engine, plainVoice(100.0 + i, 0.0, 0.0), 1.0);
        }
        engine.masterLevel = 0.02f;
    });
    twin.play(1100);
    expectSame(twin);
    const std::vector<Voice>& voices = twin.blocks.voices;
    ASSERT_EQ(voices.size(), 532u);
    for (std::size_t i = 0; i < voices.size(); ++i)
        ASSERT_EQ(twin.blocks.partialTables.at(i).frequency, voices[i].frequency) << i;
}

TEST_P(RenderBlock, BlocksOfAnyLength) {
    Twin twin;
    twin.both([](SynthEngine& engine) { setGlobals(engine, everything()); });
    for (int i = 0; i < 4; ++i) {
        Voice voice = plainVoice(77.7 * (i + 1), 0.01 * i, 0.25 + 0.01 * i);
        voice.overrides = {};
        twin.add(voice);
    }
    for (const std::size_t length :
         {1, 63, 64, 65, 512, 4096, 0, 1, 1, 2, 3, 15, 16, 17, 31, 32, 33, 47, 48, 49, 4096, 63, 1000}) {
        SCOPED_TRACE(length);
        twin.render(length);
        expectSame(twin);
    }
}

TEST_P(RenderBlock, AtAnyTimeOfTheClock) {
    for (const double clock : {0.0, 3600.0, 86400.0}) {
        Twin twin;
        twin.setTime(clock);
        for (int i = 0; i < 10; ++i) {
            Voice voice = plainVoice(150.0 + 37.0 * i, clock + 0.003 * i, clock + 0.05 + 0.001 * i);
            voice.targetVolume = 0.4f;
            twin.add(voice);
        }
        SCOPED_TRACE(clock);
        twin.play(4000);
        EXPECT_TRUE(twin.blocks.voices.empty());
        expectSame(twin);
    }
}

TEST_P(RenderBlock, ARemovedVoicesPlaceTakesTheLastVoicesSound) {
    Twin twin;
    for (int i = 0; i < 5; ++i) {
        Voice voice = plainVoice(100.0 * (i + 1), 0.0, i < 2 ? 0.004 + 0.0001 * i : 1.0);
        voice.overrides.fibonacciCount = i;
        twin.add(voice);
    }
    twin.play(1000);
    ASSERT_EQ(twin.blocks.voices.size(), 3u);
    EXPECT_EQ(twin.blocks.voices[0].frequency, 500.0);
    EXPECT_EQ(twin.blocks.voices[1].frequency, 400.0);
    expectSame(twin);
}

TEST_P(RenderBlock, TheLevelFallsAndRisesWithTheVoicesSampleBySample) {
    Twin twin;
    for (int i = 0; i < 70; ++i)
        twin.add(plainVoice(100.0 + i, 0.01 + 0.0003 * i, 0.08 + 0.0002 * i));
    for (int i = 0; i < 12; ++i) {
        twin.render(512);
        ASSERT_EQ(twin.samples.masterLevel, twin.blocks.masterLevel) << i;
    }
    expectSame(twin);
}

// 110 dB below the sound itself: against sines of phases that are worked out anew for each frame.
TEST_P(RenderBlock, TenSecondsOfPartialsStayWithin110DecibelsOfExactSines) {
    constexpr double kTwoPi = 6.283185307179586;
    SynthEngine engine;
    setGlobals(engine, everything());
    const std::vector<double> fundamentals = {21.37, 55.123, 163.7, 432.1};
    PartialList partials;
    for (const double hz : fundamentals) {
        Voice voice = plainVoice(hz, -1.0, 100.0);
        voice.overrides = {};
        voice.volume = 0.4f;
        engine.voices.push_back(voice);
    }
    double error = 0.0;
    double power = 0.0;
    std::vector<float> out(2 * 512);
    long frame = 0;
    for (int block = 0; block < 44100 * 10 / 512; ++block) {
        const bool heard = block % 16 == 0;  // the sound of every sixteenth, which is enough
        renderStereoBlock(engine, out.data(), 512);
        for (std::size_t i = 0; i < 512; ++i) {
            ++frame;
            if (!heard) continue;
            double sum = 0.0;
            for (const double hz : fundamentals) {
                const int count = listPartials(hz, everything(), partials);
                double wave = 0.0;
                double weight = 0.0;
                for (int p = 0; p < count; ++p) {
                    const Partial& partial = partials[static_cast<std::size_t>(p)];
                    const double turns = partial.hz * static_cast<double>(frame) * kFrame;
                    wave +=
                        std::sin(kTwoPi * (turns - std::floor(turns))) * static_cast<double>(partial.weight);
                    weight += static_cast<double>(partial.weight);
                }
                sum += static_cast<double>(0.4f) * wave / weight;
            }
            const double tremolo =
                std::sin(static_cast<double>(frame) * kFrame * 2.0 * 1.6180339887) * 0.03 + 1.0;
            const double exact = std::tanh(static_cast<double>(0.3f) * sum * tremolo);
            error += std::pow(static_cast<double>(out[2 * i]) - exact, 2);
            power += exact * exact;
        }
    }
    EXPECT_LE(10.0 * std::log10(error / power), -110.0);
    RecordProperty("decibels", std::to_string(10.0 * std::log10(error / power)));
}

// The same scene in one instruction set.
std::vector<float> renderedOn(const VectorTarget& target) {
    forceVectorTarget(target);
    SynthEngine engine;
    setGlobals(engine, everything());
    for (int i = 0; i < 24; ++i) {
        Voice voice = plainVoice(40.0 + 77.7 * i, 0.001 * i, 0.08);
        voice.overrides = {};
        voice.overrides.waveform = i % 4;
        voice.overrides.fibPhase = i * 4;
        voice.targetVolume = 0.1f;
        voice.pan = static_cast<float>(i) / 24.0f;
        engine.voices.push_back(voice);
    }
    std::vector<float> out(2 * 4096);
    renderStereoBlock(engine, out.data(), 4096);
    chooseVectorTarget();
    return out;
}

// What makes a render on one machine comparable with that on another.
TEST(VectorTargets, ThoseThatFuseMultiplyAndAddGiveTheSameBitsAndSoDoTheOthers) {
    std::vector<float> fused, apart;
    for (const VectorTarget& target : vectorTargets()) {
        const bool fuses = target.name.rfind("AVX", 0) == 0;
        std::vector<float>& expected = fuses ? fused : apart;
        const std::vector<float> out = renderedOn(target);
        if (expected.empty()) expected = out;
        EXPECT_EQ(out, expected) << target.name;
    }
}

TEST(VectorTargets, TheBestIsInUseUntilAnotherIsAskedFor) {
    const auto targets = vectorTargets();
    ASSERT_FALSE(targets.empty());
    for (const VectorTarget& target : targets) {
        forceVectorTarget(target);
        EXPECT_EQ(usedVectorTarget().name, target.name);
    }
    chooseVectorTarget();
    EXPECT_EQ(usedVectorTarget().name, targets.front().name);
}

}  // namespace
}  // namespace veloria
