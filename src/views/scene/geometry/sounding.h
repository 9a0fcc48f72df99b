// Whether a frequency of the tables sounds now.
#pragma once

#include <span>

namespace veloria {

// For the flat views: any octave of a sounding frequency within 3 % counts. All in Hz.
[[nodiscard]] bool isSoundingNear(double frequency, std::span<const float> sounding);

// For the 3-D scene: within 0.5 Hz; only what lies outside 100 to under 1000 Hz also counts as an octave, and
// then within 2 %.
[[nodiscard]] bool isSoundingExact(double frequency, std::span<const float> sounding);

}  // namespace veloria
