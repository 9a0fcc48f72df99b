#include "spectral/block.h"

#include <algorithm>

#include "spectral/blend.h"
#include "spectral/shift_all.h"
#include "spectral/shift_peaks.h"
#include "spectral/transform.h"

namespace veloria {

namespace {

// The squared window adds up to 1.5 where four blocks overlap.
constexpr float kUnityGain = 0.6666667f;

}  // namespace

float takeOutput(SacredFft& retuner) {
    float& place = retuner.outputRing[static_cast<std::size_t>(retuner.outputRead)];
    const float sample = place;
    place = 0.0f;
    retuner.outputRead = (retuner.outputRead + 1) % static_cast<std::int32_t>(kOutputRingSize);
    return sample;
}

void windowInput(SacredFft& retuner) {
    const auto oldest = static_cast<std::size_t>(retuner.inputPos);
    for (std::size_t i = 0; i < kBlockSize; ++i) {
        const double sample = retuner.inputRing[(oldest + i) % kBlockSize];
        retuner.spectrum[i] = {sample * retuner.hannWindow[i], 0.0};
    }
}

void keepDrySpectrum(SacredFft& retuner) {
    std::copy_n(retuner.spectrum.begin(), kBinCount, retuner.scratch.dry.begin());
}

void shiftSpectrum(SacredFft& retuner, std::int32_t mode) {
    if (mode == kModeFull) ShiftAllBins(retuner);
    if (mode == kModePeak) ShiftPeaks(retuner);
}

void mixSpectrum(SacredFft& retuner, float strength) {
    const double wet = strength;
    const double dry = 1.0 - wet;
    const auto mixReal = [&](std::size_t k) {
        const double real = wet * retuner.spectrum[k].real() + dry * retuner.scratch.dry[k].real();
        retuner.spectrum[k] = {real, 0.0};
    };
    mixReal(0);
    for (std::size_t k = 1; k < kNyquistBin; ++k) {
        retuner.spectrum[k] = wet * retuner.spectrum[k] + dry * retuner.scratch.dry[k];
        retuner.spectrum[kBlockSize - k] = std::conj(retuner.spectrum[k]);
    }
    mixReal(kNyquistBin);
}

void overlapAdd(SacredFft& retuner) {
    const auto start = static_cast<std::size_t>(retuner.outputWrite);
    for (std::size_t i = 0; i < kBlockSize; ++i) {
        const auto sample = static_cast<float>(retuner.spectrum[i].real() * retuner.hannWindow[i]);
        retuner.outputRing[(start + i) % kOutputRingSize] += sample * kUnityGain;
    }
    retuner.outputWrite = static_cast<std::int32_t>((start + kHopSize) % kOutputRingSize);
}

void ProcessBlock(SacredFft& retuner, const RetunerSettings& settings) {
    windowInput(retuner);
    forwardTransform(retuner.spectrum);
    const float strength = strengthOf(settings);
    const bool mixed = isMixed(strength);
    if (mixed) keepDrySpectrum(retuner);
    shiftSpectrum(retuner, settings.mode);
    if (mixed) mixSpectrum(retuner, strength);
    inverseTransform(retuner.spectrum);
    overlapAdd(retuner);
}

}  // namespace veloria
