#include "views/lotus/lotus_energy.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "engine/synth_engine.h"
#include "frequency/tables.h"

namespace veloria {

namespace {

static_assert(kPetalCount == solfeggio12.size());

constexpr std::size_t kHeard = 1024;  // samples
constexpr double kRising = 0.4;
constexpr double kFalling = 0.08;

using Samples = std::array<double, kHeard>;
using PerPetal = std::array<double, kPetalCount>;

struct Tables {
    Samples window{};  // Hann; it reaches 0 at both ends
    PerPetal coefficient{};
};

Tables makeTables() {
    Tables tables;
    for (std::size_t i = 0; i < kHeard; ++i) {
        const double part = static_cast<double>(i) / (kHeard - 1);
        tables.window[i] = (1.0 - std::cos(2.0 * std::numbers::pi * part)) / 2.0;
    }
    for (std::size_t k = 0; k < kPetalCount; ++k)
        tables.coefficient[k] = 2.0 * std::cos(2.0 * std::numbers::pi * solfeggio12[k] / kSampleRate);
    return tables;
}

// The newest samples, the oldest of them first, under the window.
Samples heardSamples(const ScopeBuffer& scope, const Samples& window) {
    Samples heard;
    const std::size_t first = static_cast<std::size_t>(scope.write) + kScopeBufferSize - kHeard;
    for (std::size_t i = 0; i < kHeard; ++i) {
        const std::size_t index = (first + i) % kScopeBufferSize;
        heard[i] = static_cast<double>(scope.samples[index]) * window[i];
    }
    return heard;
}

// Goertzel filters, all petals side by side: each waits for nothing but its own last values. In double
// precision; single would be off by up to 3e-6, for the coefficients are so close to 2.
PerPetal magnitudesOf(const Samples& heard, const PerPetal& coefficient) {
    PerPetal last{};
    PerPetal lastButOne{};
    for (const double sample : heard) {
        for (std::size_t k = 0; k < kPetalCount; ++k) {
            const double next = sample + coefficient[k] * last[k] - lastButOne[k];
            lastButOne[k] = last[k];
            last[k] = next;
        }
    }
    PerPetal magnitudes{};
    for (std::size_t k = 0; k < kPetalCount; ++k) {
        const double power =
            last[k] * last[k] + lastButOne[k] * lastButOne[k] - coefficient[k] * last[k] * lastButOne[k];
        magnitudes[k] = std::sqrt(std::fabs(power)) / kHeard;
    }
    return magnitudes;
}

}  // namespace

void updateLotusEnergy(LotusState& state, const ScopeBuffer& scope) {
    static const Tables tables = makeTables();
    const PerPetal magnitudes = magnitudesOf(heardSamples(scope, tables.window), tables.coefficient);
    for (std::size_t k = 0; k < kPetalCount; ++k) {
        const double energy = state.lotusEnergy[k];
        const double magnitude = std::isfinite(magnitudes[k]) ? magnitudes[k] : 0.0;
        const double rate = magnitude > energy ? kRising : kFalling;
        const double next = (1.0 - rate) * energy + rate * magnitude;
        state.lotusEnergy[k] = static_cast<float>(std::min(next, 1.0));
    }
}

}  // namespace veloria
