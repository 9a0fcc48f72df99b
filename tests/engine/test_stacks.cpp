#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "engine/stacks.h"
#include "tests/engine/literal_renderer.h"

namespace veloria {
namespace {

constexpr double kTwoPi = 6.283185307179586;

VoiceOverrides plain() {
    return {.fibonacciCount = 0,
            .piCount = 0,
            .teslaCount = 0,
            .octaveSteps = 0,
            .phiSteps = 0,
            .fibPhase = 0,
            .teslaPhase = 0,
            .waveform = 0};
}

Voice voiceAt(double hz) {
    Voice voice;
    voice.frequency = hz;
    return voice;
}

// Renders `samples` of a voice and compares each with the literal sum of its partials.
void expectLiteral(double hz, const VoiceOverrides& s, int samples) {
    Voice voice = voiceAt(hz);
    const auto partials = literal::partialsOf(hz, s.fibonacciCount, s.piCount, s.teslaCount, s.octaveSteps,
                                              s.phiSteps, s.fibPhase, s.teslaPhase);
    std::map<int, double> phase;
    for (int n = 0; n < samples; ++n) {
        double sum = 0.0;
        double weight = 0.0;
        for (const auto& p : partials) {
            if (p.hz < 20.0 || p.hz >= 22050.0) continue;
            double& ph = phase[p.slot];
            ph += p.hz * kTwoPi / 44100.0;
            while (ph > kTwoPi)
                ph -= kTwoPi;
            sum += literal::wave(ph + p.offset, s.waveform) * p.weight;
            weight += p.weight;
        }
        const double expected = weight > 0.0 ? sum / weight : 0.0;
        ASSERT_NEAR(renderPartials(voice, s), expected, 1e-5) << "sample " << n;
    }
}

TEST(Stacks, TheDefaultVoiceIsAFundamentalAndTwoFibonacciPartialsByElevenSixths) {
    VoiceOverrides s = plain();
    s.fibonacciCount = 2;
    Voice voice = voiceAt(500.0);
    const double x = 500.0 * kTwoPi / 44100.0;
    const double expected = (std::sin(x) + std::sin(2 * x) / 2 + std::sin(3 * x) / 3) / (11.0 / 6.0);
    EXPECT_NEAR(renderPartials(voice, s), expected, 1e-6);
}

TEST(Stacks, EachStackAndAllTogetherMatchTheLiteralSum) {
    for (int stack = 0; stack < 6; ++stack) {
        VoiceOverrides s = plain();
        if (stack == 0 || stack == 5) s.fibonacciCount = 7;
        if (stack == 1 || stack == 5) s.piCount = 14;
        if (stack == 2 || stack == 5) s.teslaCount = 3;
        if (stack == 3 || stack == 5) s.octaveSteps = 3;
        if (stack == 4 || stack == 5) s.phiSteps = -3;
        expectLiteral(311.0, s, 500);
    }
}

TEST(Stacks, PhasesShiftTheirPartialsInEveryWaveform) {
    for (int waveform = 0; waveform <= 4; ++waveform) {
        VoiceOverrides s = plain();
        s.fibonacciCount = 6;
        s.teslaCount = 3;
        s.fibPhase = 70;
        s.teslaPhase = 45;
        s.waveform = waveform;
        // 317 Hz keeps the square's and triangle's corners away from whole samples.
        expectLiteral(317.0, s, 300);
    }
}

TEST(Stacks, StepsFourUseSlotsOfTheirOwn) {
    VoiceOverrides s = plain();
    s.octaveSteps = 4;
    s.phiSteps = 4;
    expectLiteral(200.0, s, 300);
    Voice voice = voiceAt(200.0);
    static_cast<void>(renderPartials(voice, s));
    EXPECT_NEAR(voice.phases[39], 3200.0 * kTwoPi / 44100.0, 1e-12);
    const double phi = 1.618033988749895;
    EXPECT_NEAR(voice.phases[35], 200.0 * phi * kTwoPi / 44100.0, 1e-12);
    EXPECT_NEAR(voice.phases[38], 200.0 * std::pow(phi, 4) * kTwoPi / 44100.0, 1e-12);
}

TEST(Stacks, CountsAboveTheirLimitsAreCut) {
    VoiceOverrides beyond = plain();
    beyond.fibonacciCount = 99;
    beyond.piCount = 99;
    beyond.teslaCount = 99;
    beyond.octaveSteps = 99;
    beyond.phiSteps = 99;
    VoiceOverrides limit = plain();
    limit.fibonacciCount = 14;
    limit.piCount = 14;
    limit.teslaCount = 3;
    limit.octaveSteps = 4;
    limit.phiSteps = 4;
    Voice a = voiceAt(30.0);
    Voice b = voiceAt(30.0);
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(renderPartials(a, beyond), renderPartials(b, limit));
}

TEST(Stacks, PartialsBeyondTheAudibleBandAddNoWeightAndTheirPhasesStandStill) {
    VoiceOverrides all = plain();
    all.fibonacciCount = 14;
    VoiceOverrides seven = plain();
    seven.fibonacciCount = 7;  // 34 * 440 = 14960 is the last in range; 55 * 440 = 24200 is not
    Voice a = voiceAt(440.0);
    Voice b = voiceAt(440.0);
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(renderPartials(a, all), renderPartials(b, seven));
    for (std::size_t slot = 8; slot <= 14; ++slot)
        EXPECT_EQ(a.phases[slot], 0.0);
    EXPECT_NE(a.phases[7], 0.0);
}

TEST(Stacks, ALowerOctaveBelowTheBandChangesNothing) {
    VoiceOverrides down = plain();
    down.octaveSteps = -1;
    Voice a = voiceAt(20.0);
    Voice b = voiceAt(20.0);
    for (int i = 0; i < 200; ++i)
        ASSERT_EQ(renderPartials(a, down), renderPartials(b, plain()));
}

TEST(Stacks, AFundamentalOutsideTheBandLeavesThePartialsToSetTheLevel) {
    VoiceOverrides up = plain();
    up.octaveSteps = 1;
    Voice low = voiceAt(15.0);  // 15 Hz is left out, 30 Hz is not
    const double expected = std::sin(30.0 * kTwoPi / 44100.0);
    EXPECT_NEAR(renderPartials(low, up), expected, 1e-7);
    EXPECT_EQ(low.phases[0], 0.0);

    Voice high = voiceAt(22050.0);
    EXPECT_EQ(renderPartials(high, plain()), 0.0f);
    EXPECT_EQ(high.phases[0], 0.0);
    VoiceOverrides down = plain();
    down.octaveSteps = -1;
    EXPECT_NEAR(renderPartials(high, down), std::sin(11025.0 * kTwoPi / 44100.0), 1e-6);
}

TEST(Stacks, TheBandIncludes20HzAndEndsBefore22050) {
    EXPECT_TRUE(isAudible(20.0));
    EXPECT_FALSE(isAudible(19.999));
    EXPECT_TRUE(isAudible(22049.999));
    EXPECT_FALSE(isAudible(22050.0));
    EXPECT_FALSE(isAudible(std::nan("")));
}

TEST(Stacks, TheSecondPiDigitDoublesTheFundamentalOnAPhaseOfItsOwn) {
    VoiceOverrides s = plain();
    s.piCount = 2;
    Voice voice = voiceAt(300.0);
    static_cast<void>(renderPartials(voice, s));
    EXPECT_EQ(voice.phases[16], voice.phases[0]);
    EXPECT_EQ(voice.phases[15], 300.0 * 4 * kTwoPi / 44100.0);
}

TEST(Stacks, TheFirstFibonacciPartialNeverShifts) {
    VoiceOverrides one = plain();
    one.fibonacciCount = 1;
    VoiceOverrides shifted = one;
    shifted.fibPhase = 100;
    Voice a = voiceAt(250.0);
    Voice b = voiceAt(250.0);
    for (int i = 0; i < 50; ++i)
        ASSERT_EQ(renderPartials(a, one), renderPartials(b, shifted));
}

TEST(Stacks, TheThirdTeslaPartialAtFullPhaseIsAWholeTurn) {
    VoiceOverrides s = plain();
    s.teslaCount = 3;
    s.teslaPhase = 100;
    Voice voice = voiceAt(100.0);
    const double x = 100.0 * kTwoPi / 44100.0;
    const double expected = (std::sin(x) + std::sin(3 * x + kTwoPi / 3) / 3 +
                             std::sin(6 * x + 2 * kTwoPi / 3) / 6 + std::sin(9 * x) / 9) /
                            (1.0 + 1.0 / 3 + 1.0 / 6 + 1.0 / 9);
    EXPECT_NEAR(renderPartials(voice, s), expected, 1e-6);
}

TEST(Oscillator, ThePhaseWrapsAboveTwoPiAndTwoPiItselfStays) {
    double phase = 0.0;
    static_cast<void>(oscillate(phase, 44100.0, 0.0, 0));
    EXPECT_EQ(phase, kTwoPi);
    static_cast<void>(oscillate(phase, 441.0, 0.0, 0));
    EXPECT_NEAR(phase, kTwoPi / 100.0, 1e-12);
    phase = 0.0;
    static_cast<void>(oscillate(phase, 44100.0 * 3.25, 0.0, 0));
    EXPECT_NEAR(phase, kTwoPi / 4.0, 1e-12);
}

TEST(Oscillator, WaveformsAtAQuarterTurnAndPastTheWrap) {
    const auto at = [](int waveform, double offset) {
        double phase = 0.0;
        return oscillate(phase, 11025.0, offset, waveform);  // x = pi / 2 + offset
    };
    EXPECT_NEAR(at(0, 0.0), 1.0, 1e-7);
    EXPECT_NEAR(at(1, 0.0), -0.5, 1e-7);
    EXPECT_EQ(at(2, 0.0), 1.0f);
    EXPECT_NEAR(at(3, 0.0), 0.0, 1e-7);
    EXPECT_EQ(at(4, 0.0), 0.0f);
    EXPECT_EQ(at(-1, 0.0), 0.0f);
    // Only the phase is wrapped, so an offset of a whole turn goes past the waves' ends.
    EXPECT_NEAR(at(1, kTwoPi), 1.5, 1e-6);
    EXPECT_EQ(at(2, kTwoPi), -1.0f);
    EXPECT_NEAR(at(3, kTwoPi), -2.0, 1e-6);
}

TEST(Overrides, ANegativeFieldTakesTheEnginesValue) {
    const VoiceOverrides globals{.fibonacciCount = 1,
                                 .piCount = 2,
                                 .teslaCount = 3,
                                 .octaveSteps = -2,
                                 .phiSteps = 3,
                                 .fibPhase = 40,
                                 .teslaPhase = 50,
                                 .waveform = 2};
    const VoiceOverrides none{};
    const VoiceOverrides all = resolveSettings(none, globals);
    EXPECT_EQ(all.fibonacciCount, 1);
    EXPECT_EQ(all.piCount, 2);
    EXPECT_EQ(all.teslaCount, 3);
    EXPECT_EQ(all.octaveSteps, -2);
    EXPECT_EQ(all.phiSteps, 3);
    EXPECT_EQ(all.fibPhase, 40);
    EXPECT_EQ(all.teslaPhase, 50);
    EXPECT_EQ(all.waveform, 2);
    const VoiceOverrides own =
        resolveSettings({.fibonacciCount = 0, .octaveSteps = 0, .waveform = 3}, globals);
    EXPECT_EQ(own.fibonacciCount, 0);
    EXPECT_EQ(own.octaveSteps, 0);
    EXPECT_EQ(own.waveform, 3);
    EXPECT_EQ(own.piCount, 2);
}

}  // namespace
}  // namespace veloria
