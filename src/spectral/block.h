// Modes 1 and 2: one block from the input ring through the transform to the output ring, step by step. It is
// the definition and the reference; what runs is processBlockFast. Audio thread.
#pragma once

#include <span>

#include "spectral/sacred_fft.h"

namespace veloria {

// The squared window adds up to 1.5 where four blocks overlap.
inline constexpr float kUnityGain = 0.6666667f;

// A function that makes one block: ProcessBlock, or one that gives the same.
using BlockStep = void (*)(SacredFft& retuner, const RetunerSettings& settings);

// One sample through modes 1 and 2, with `makeBlock` for the blocks: the first is made when the input ring is
// full, the next after every hop.
[[nodiscard]] float processSpectral(SacredFft& retuner, float sample, const RetunerSettings& settings,
                                    BlockStep makeBlock);

// The same for many samples in place, by runs up to the next block.
void processSpectralRun(SacredFft& retuner, std::span<float> samples, const RetunerSettings& settings,
                        BlockStep makeBlock);

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
