#include "engine/stacks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace veloria {

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kPhi = 1.618033988749895;
constexpr double kPhiSquared = 2.618033988749895;
constexpr std::array<double, 3> kTeslaTurns = {2.0943951023931953, 4.1887902047863905, kTwoPi};

using StepRatios = std::array<double, kMaxSteps + 1>;

// base^1 to base^4 at their own index.
StepRatios powersOf(double base) {
    StepRatios ratios{};
    for (int step = 1; step <= kMaxSteps; ++step)
        ratios[static_cast<std::size_t>(step)] = std::pow(base, step);
    return ratios;
}

const StepRatios kOctaveRatios = powersOf(2.0);
const StepRatios kPhiRatios = powersOf(kPhi);

template <class Add>
void visitFibonacci(double frequency, const VoiceOverrides& settings, Add& add) {
    const int count = std::min<int>(settings.fibonacciCount, static_cast<int>(fibonacciMultipliers.size()));
    for (int i = 0; i < count; ++i) {
        const std::int32_t m = fibonacciMultipliers[static_cast<std::size_t>(i)];
        const double offset =
            settings.fibPhase == 0 ? 0.0 : (2.0 * i * kPi / kPhiSquared) * (settings.fibPhase / 100.0);
        add(Partial{m * frequency, offset, 1.0f / static_cast<float>(m), kFibonacciSlot + i});
    }
}

template <class Add>
void visitPi(double frequency, const VoiceOverrides& settings, Add& add) {
    const int count = std::min<int>(settings.piCount, static_cast<int>(piDigits.size()));
    for (int i = 0; i < count; ++i) {
        const std::int32_t m = piDigits[static_cast<std::size_t>(i)];
        add(Partial{m * frequency, 0.0, 1.0f / static_cast<float>(m), kPiSlot + i});
    }
}

template <class Add>
void visitTesla(double frequency, const VoiceOverrides& settings, Add& add) {
    const int count = std::min<int>(settings.teslaCount, static_cast<int>(teslaMultipliers.size()));
    for (int i = 0; i < count; ++i) {
        const auto place = static_cast<std::size_t>(i);
        const std::int32_t m = teslaMultipliers[place];
        const double offset =
            settings.teslaPhase == 0 ? 0.0 : (settings.teslaPhase / 100.0) * kTeslaTurns[place];
        add(Partial{m * frequency, offset, 1.0f / static_cast<float>(m), kTeslaSlot + i});
    }
}

// The steps accumulate: 3 stacks the first, second and third power together.
template <class Add>
void visitSteps(double frequency, std::int32_t steps, const StepRatios& ratios, int (*slotOf)(int),
                Add& add) {
    const int count = std::min(std::abs(steps), kMaxSteps);
    for (int step = 1; step <= count; ++step) {
        double ratio = ratios[static_cast<std::size_t>(step)];
        if (steps < 0) ratio = 1.0 / ratio;
        add(Partial{ratio * frequency, 0.0, 0.5f / static_cast<float>(step), slotOf(step)});
    }
}

// Hands the fundamental and every stacked partial that is audible to `add`, in the order of their sum.
template <class Add>
void visitPartials(double frequency, const VoiceOverrides& settings, Add add) {
    auto addAudible = [&add](const Partial& partial) {
        if (isAudible(partial.hz)) add(partial);
    };
    addAudible(Partial{frequency, 0.0, 1.0f, kFundamentalSlot});
    visitFibonacci(frequency, settings, addAudible);
    visitPi(frequency, settings, addAudible);
    visitTesla(frequency, settings, addAudible);
    visitSteps(frequency, settings.octaveSteps, kOctaveRatios, octaveSlot, addAudible);
    visitSteps(frequency, settings.phiSteps, kPhiRatios, phiSlot, addAudible);
}

}  // namespace

VoiceOverrides resolveSettings(const VoiceOverrides& overrides, const VoiceOverrides& globals) {
    const auto pick = [](std::int32_t own, std::int32_t global) { return own < 0 ? global : own; };
    return {.fibonacciCount = pick(overrides.fibonacciCount, globals.fibonacciCount),
            .piCount = pick(overrides.piCount, globals.piCount),
            .teslaCount = pick(overrides.teslaCount, globals.teslaCount),
            .octaveSteps = pick(overrides.octaveSteps, globals.octaveSteps),
            .phiSteps = pick(overrides.phiSteps, globals.phiSteps),
            .fibPhase = pick(overrides.fibPhase, globals.fibPhase),
            .teslaPhase = pick(overrides.teslaPhase, globals.teslaPhase),
            .waveform = pick(overrides.waveform, globals.waveform)};
}

float oscillate(double& phase, double hz, double offset, std::int32_t waveform) {
    phase += hz * kTwoPi / 44100.0;
    while (phase > kTwoPi)
        phase -= kTwoPi;
    // Only the phase is wrapped: an offset may carry a saw above 1 and a triangle below -1, and does so
    // audibly.
    const double x = phase + offset;
    switch (waveform) {
        case 0:
            return std::sin(static_cast<float>(x));
        case 1:
            return static_cast<float>(x / kPi - 1.0);
        case 2:
            return x < kPi ? 1.0f : -1.0f;
        case 3: {
            const double y = x / kPi;
            return static_cast<float>(y < 1.0 ? 2.0 * y - 1.0 : 3.0 - 2.0 * y);
        }
        default:
            return 0.0f;
    }
}

int listPartials(double frequency, const VoiceOverrides& settings, PartialList& partials) {
    int count = 0;
    visitPartials(frequency, settings, [&partials, &count](const Partial& partial) {
        partials[static_cast<std::size_t>(count++)] = partial;
    });
    return count;
}

float renderPartials(Voice& voice, const VoiceOverrides& settings) {
    float sum = 0.0f;
    float weight = 0.0f;
    visitPartials(voice.frequency, settings, [&](const Partial& partial) {
        double& phase = voice.phases[static_cast<std::size_t>(partial.slot)];
        sum += oscillate(phase, partial.hz, partial.offset, settings.waveform) * partial.weight;
        weight += partial.weight;
    });
    return weight > 0.0f ? sum / weight : sum;
}

}  // namespace veloria
