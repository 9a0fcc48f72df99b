// Mode 2: only spectral peaks move, each with three bins on either side; all else stays. Audio thread.
#pragma once

#include "spectral/half_spectrum.h"
#include "spectral/sacred_fft.h"

namespace veloria {

// Retunes the half-spectrum in `spectrum`; `shifted`, the statistics and the peaks follow.
void ShiftPeaks(SacredFft& retuner);

// The steps of ShiftPeaks.

// Fills `magnitudes` from `spectrum`, stores `maxMagnitude` and returns it unrounded.
double measureMagnitudes(SacredFft& retuner);

// Finds the bins that stand above both neighbours and above `threshold`, and stores `peaksFound`.
void findPeaks(SacredFft& retuner, double threshold);

// `newMag` and `newPhase` as they would be if nothing moved.
void startFromInput(SacredFft& retuner);

// Empties the places that the moving peaks leave.
void clearMovingPeaks(SacredFft& retuner);

// What a peak has to exceed to be moved, of the largest magnitude.
[[nodiscard]] double movingThreshold(double largest);

// Stores `peaksFound`.
void publishPeakCount(SacredFft& retuner);

// Adds peak `p` and its neighbours to their new places around bin `t`. Where two peaks meet, magnitudes add
// up and the phase of the stronger side stays.
// `phases` are those of the bins before anything moved, radians.
void movePeak(SacredFft& retuner, std::size_t p, std::size_t t, const std::array<double, kBinCount>& phases);

// Moves every peak whose target is another bin.
[[nodiscard]] ShiftTally movePeaks(SacredFft& retuner, const std::array<double, kBinCount>& phases);

// `shifted` from `newMag` and `newPhase`.
void synthesisePeaks(SacredFft& retuner);

}  // namespace veloria
