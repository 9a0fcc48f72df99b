#include "spectral/shift_all.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "spectral/collect_peaks.h"

namespace veloria {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr std::int32_t kNoSource = -1;

}  // namespace

void clearGathering(SacredFft& retuner) {
    retuner.scratch.sum.fill(0.0);
    retuner.scratch.trueBin.fill(0.0);
    retuner.scratch.strongest.fill(0.0);
    retuner.scratch.source.fill(kNoSource);
}

double measureTrueBin(SacredFft& retuner, std::size_t k, double phase) {
    const auto bin = static_cast<double>(k);
    double deviation = phase - retuner.lastPhase[k] - bin * kHopAdvance;
    deviation -= std::round(deviation / kTwoPi) * kTwoPi;
    retuner.lastPhase[k] = phase;
    return deviation / kHopAdvance + bin;
}

ShiftTally gatherBins(SacredFft& retuner) {
    BlockScratch& scratch = retuner.scratch;
    ShiftTally tally;
    for (std::size_t k = 1; k < kBinCount; ++k) {
        const double magnitude = magnitudeOf(retuner.spectrum[k]);
        scratch.trueBin[k] = measureTrueBin(retuner, k, phaseOf(retuner.spectrum[k]));
        const std::size_t t = targetOf(retuner, k);
        scratch.sum[t] += magnitude;
        if (magnitude > scratch.strongest[t]) {
            scratch.strongest[t] = magnitude;
            scratch.source[t] = static_cast<std::int32_t>(k);
        }
        if (t != k) countShift(tally, k, t);
    }
    return tally;
}

void gatherMeasured(SacredFft& retuner) {
    BlockScratch& scratch = retuner.scratch;
    scratch.sum.fill(0.0);
    scratch.strongest.fill(0.0);
    scratch.source.fill(kNoSource);
    std::int32_t distance = 0;
    std::int32_t moved = 0;
    for (std::int32_t k = 1; k < static_cast<std::int32_t>(kBinCount); ++k) {
        const std::int32_t away = std::abs(retuner.binTarget[static_cast<std::size_t>(k)] - k);
        distance += away;
        moved += away != 0 ? 1 : 0;
    }
    for (std::size_t k = 1; k < kBinCount; ++k) {
        const double magnitude = scratch.magnitudes[k];
        const std::size_t t = targetOf(retuner, k);
        const bool stronger = magnitude > scratch.strongest[t];
        scratch.sum[t] += magnitude;
        // Chosen and not branched to: which bin is the stronger follows no pattern.
        scratch.strongest[t] = stronger ? magnitude : scratch.strongest[t];
        scratch.source[t] = stronger ? static_cast<std::int32_t>(k) : scratch.source[t];
    }
    // Whole multiples of the bin width are exact in a double, so their sum does not hang on its order.
    publishShift(retuner, {distance * kBinWidthHz, moved});
}

void advanceSynthPhase(SacredFft& retuner, std::size_t t) {
    const std::int32_t source = retuner.scratch.source[t];
    if (source < 0) return;
    const double trueBin = retuner.scratch.trueBin[static_cast<std::size_t>(source)];
    // Scaled by the bin numbers and not by the true bin: a tone beside its bin's centre stays as far beside
    // the target's.
    const double scale = trueBin > kLeastTrueBin ? static_cast<double>(t) / source : 1.0;
    double& phase = retuner.synthPhase[t];
    phase += scale * trueBin * kHopAdvance;
    if (phase > kPhaseLimit) phase -= std::floor(phase / kTwoPi) * kTwoPi;
}

void synthesiseBins(SacredFft& retuner) {
    retuner.shifted[0] = 0.0;
    for (std::size_t t = 1; t < kBinCount; ++t) {
        const double sum = retuner.scratch.sum[t];
        if (sum < kSilentSum) {
            retuner.shifted[t] = 0.0;
            continue;
        }
        advanceSynthPhase(retuner, t);
        retuner.shifted[t] = atAngle(sum, retuner.synthPhase[t]);
    }
}

void ShiftAllBins(SacredFft& retuner) {
    clearGathering(retuner);
    publishShift(retuner, gatherBins(retuner));
    synthesiseBins(retuner);
    CollectPeaks(retuner);
    restoreSpectrum(retuner);
}

}  // namespace veloria
