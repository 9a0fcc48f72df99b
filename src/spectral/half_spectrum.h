// What both shifting modes share: polar values, the count of what moved, and the way back into the transform.
#pragma once

#include <array>
#include <cmath>
#include <complex>

#include "spectral/sacred_fft.h"

namespace veloria {

[[nodiscard]] inline double magnitudeOf(std::complex<double> value) {
    return std::hypot(value.real(), value.imag());
}

// Radians, -pi to pi.
[[nodiscard]] inline double phaseOf(std::complex<double> value) {
    return std::atan2(value.imag(), value.real());
}

[[nodiscard]] inline std::complex<double> atAngle(double magnitude, double phase) {
    return {magnitude * std::cos(phase), magnitude * std::sin(phase)};
}

// The bin that takes the energy of bin `k`.
[[nodiscard]] inline std::size_t targetOf(const SacredFft& retuner, std::size_t k) {
    return static_cast<std::size_t>(retuner.binTarget[k]);
}

// True when bin `k` (1 to 2047) stands strictly above both its neighbours and above `threshold`.
[[nodiscard]] inline bool isPeak(const std::array<double, kBinCount>& magnitudes, std::size_t k,
                                 double threshold) {
    const double magnitude = magnitudes[k];
    return magnitude > magnitudes[k - 1] && magnitude > magnitudes[k + 1] && magnitude > threshold;
}

// What a block moved, and how far.
struct ShiftTally {
    double totalHz = 0.0;
    std::int32_t count = 0;
};

// Counts a move from bin `from` to another bin `to`.
void countShift(ShiftTally& tally, std::size_t from, std::size_t to);

// Stores `binsShifted`, and in `avgShiftHz` the mean distance or 0 if nothing moved.
void publishShift(SacredFft& retuner, const ShiftTally& tally);

// Writes `shifted` and its mirror image into `spectrum`. The real part of bin 0 stays as the forward
// transform left it: DC is never retuned.
void restoreSpectrum(SacredFft& retuner);

}  // namespace veloria
