// Mode 1: every bin moves to the bin of its nearest table frequency. Audio thread.
#pragma once

#include "spectral/half_spectrum.h"
#include "spectral/sacred_fft.h"

namespace veloria {

inline constexpr std::int32_t kNoSource = -1;             // of a target bin that took nothing
inline constexpr double kPhaseLimit = 314.1592653589793;  // 100 pi: a running phase is reduced above it
inline constexpr double kSilentSum = 1e-15;               // a target bin below it is silent
inline constexpr double kLeastTrueBin = 1e-6;             // a true bin up to it is not scaled

// Retunes the half-spectrum in `spectrum`; `shifted`, the statistics and the peaks follow.
void ShiftAllBins(SacredFft& retuner);

// The steps of ShiftAllBins.

// Empties what gatherBins fills.
void clearGathering(SacredFft& retuner);

// The frequency in bin `k`, in bins, that the advance of its phase since the last block tells. `phase` is
// kept for the next block.
[[nodiscard]] double measureTrueBin(SacredFft& retuner, std::size_t k, double phase);

// Adds the magnitude of every bin to its target bin, which remembers the strongest bin that it took, of equal
// ones the lowest.
[[nodiscard]] ShiftTally gatherBins(SacredFft& retuner);

// What the advance of the phase of bin `source` is multiplied by for target `t`: the bin numbers' ratio and
// not the true bin's, so that a tone beside its bin's centre stays as far beside the target's.
[[nodiscard]] inline double phaseScale(std::size_t t, std::int32_t source, double trueBin) {
    return trueBin > kLeastTrueBin ? static_cast<double>(t) / source : 1.0;
}

// Moves the phase of target bin `t` on by one hop at the frequency of its strongest bin, scaled to the
// target.
void advanceSynthPhase(SacredFft& retuner, std::size_t t);

// `shifted` from the gathered magnitudes and the running phases. A silent bin is an exact zero and its phase
// waits, so that no phase ever follows noise.
void synthesiseBins(SacredFft& retuner);

}  // namespace veloria
