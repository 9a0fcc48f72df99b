// Modes 1 and 2: one block from the input ring through the transform to the output ring. Audio thread.
#pragma once

#include "spectral/sacred_fft.h"

namespace veloria {

// The sample at the read position of the output ring; its place becomes empty and the position moves on.
[[nodiscard]] float takeOutput(SacredFft& retuner);

// Retunes the last 4096 samples and adds them to the output.
void ProcessBlock(SacredFft& retuner, const RetunerSettings& settings);

// The steps of ProcessBlock.

// `spectrum` from the input ring, oldest sample first, under the window.
void windowInput(SacredFft& retuner);

// Keeps the half-spectrum aside for mixSpectrum.
void keepDrySpectrum(SacredFft& retuner);

// ShiftAllBins in mode 1, ShiftPeaks in mode 2.
void shiftSpectrum(SacredFft& retuner, std::int32_t mode);

// Blends the dry half-spectrum into the retuned one; `strength` 0 to 1 is the share of the retuned one.
void mixSpectrum(SacredFft& retuner, float strength);

// Adds the block, under the window again, to the output ring and moves the write position by one hop.
void overlapAdd(SacredFft& retuner);

}  // namespace veloria
