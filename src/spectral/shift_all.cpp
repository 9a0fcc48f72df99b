#include "spectral/shift_all.h"

#include <cmath>
#include <numbers>

#include "spectral/collect_peaks.h"

namespace veloria {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;

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

void advanceSynthPhase(SacredFft& retuner, std::size_t t) {
    const std::int32_t source = retuner.scratch.source[t];
    if (source < 0) return;
    const double trueBin = retuner.scratch.trueBin[static_cast<std::size_t>(source)];
    const double scale = phaseScale(t, source, trueBin);
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
