// The partials of a voice: a fundamental and five stacks, each drawn from a number sequence.
#pragma once

#include <array>
#include <cstdint>

#include "engine/voice.h"

namespace veloria {

inline constexpr std::array<std::int32_t, 14> fibonacciMultipliers = {2,  3,  5,   8,   13,  21,  34,
                                                                      55, 89, 144, 233, 377, 610, 987};
// Pi's digits from the second on. The 1 doubles the fundamental on a phase of its own.
inline constexpr std::array<std::int32_t, 14> piDigits = {4, 1, 5, 9, 2, 6, 5, 3, 5, 8, 9, 7, 9, 3};
inline constexpr std::array<std::int32_t, 3> teslaMultipliers = {3, 6, 9};

// Where each partial keeps its phase.
inline constexpr int kFundamentalSlot = 0;
inline constexpr int kFibonacciSlot = 1;  // 14 of them
inline constexpr int kPiSlot = 15;        // 14
inline constexpr int kTeslaSlot = 29;     // 3
inline constexpr int kMaxSteps = 4;       // octave and phi steps

// The slot of octave step 1 to 4. The fourth stands apart, because 35 is the first phi step's.
[[nodiscard]] constexpr int octaveSlot(int step) {
    return step <= 3 ? 31 + step : 39;
}
// The slot of phi step 1 to 4.
[[nodiscard]] constexpr int phiSlot(int step) {
    return 34 + step;
}

// A partial sounds only inside this band; outside it adds no weight and its phase stands still.
[[nodiscard]] constexpr bool isAudible(double hz) {
    return hz >= 20.0 && hz < 22050.0;
}

// One audible partial of a voice.
struct Partial {
    double hz = 0.0;
    double offset = 0.0;  // radians, added to the phase
    float weight = 0.0f;  // share in the voice's sum
    int slot = 0;         // where its phase stands
};

// The fundamental and every stack at its limit.
inline constexpr int kMaxPartials = 1 + 14 + 14 + 3 + 2 * kMaxSteps;
using PartialList = std::array<Partial, kMaxPartials>;

// Writes the audible partials of a voice of `frequency` (Hz) to the head of `partials`, in the order of their
// sum, and gives their number. `settings` are resolved.
[[nodiscard]] int listPartials(double frequency, const VoiceOverrides& settings, PartialList& partials);

// `overrides` with each negative field replaced by the engine's `globals`.
[[nodiscard]] VoiceOverrides resolveSettings(const VoiceOverrides& overrides, const VoiceOverrides& globals);

// Advances the phase (radians) at `phase` by one sample of `hz` and gives the wave at phase + `offset`: -1 to
// 1, but outside for a saw or triangle whose offset reaches past the wrap. `waveform` as in VoiceOverrides.
[[nodiscard]] float oscillate(double& phase, double hz, double offset, std::int32_t waveform);

// One sample of the voice's fundamental and partials, divided by their total weight; 0 when nothing is
// audible. `settings` are resolved. Audio thread.
[[nodiscard]] float renderPartials(Voice& voice, const VoiceOverrides& settings);

}  // namespace veloria
