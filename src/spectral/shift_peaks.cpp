#include "spectral/shift_peaks.h"

#include <algorithm>
#include <span>

#include "spectral/collect_peaks.h"

namespace veloria {

namespace {

constexpr std::ptrdiff_t kReach = 3;  // bins that move with a peak on either side

// Bin 0 never moves: a place counts only within 1 to 2048.
bool isInside(std::ptrdiff_t bin) {
    return bin >= 1 && bin <= static_cast<std::ptrdiff_t>(kNyquistBin);
}

std::span<const std::int32_t> foundPeaks(const SacredFft& retuner) {
    return {retuner.scratch.peakBins.data(), retuner.scratch.peakBinCount};
}

}  // namespace

double measureMagnitudes(SacredFft& retuner) {
    auto& magnitudes = retuner.scratch.magnitudes;
    std::transform(retuner.spectrum.begin(), retuner.spectrum.begin() + kBinCount, magnitudes.begin(),
                   magnitudeOf);
    const double largest = *std::max_element(magnitudes.begin(), magnitudes.end());
    retuner.maxMagnitude = static_cast<float>(largest);
    return largest;
}

void findPeaks(SacredFft& retuner, double threshold) {
    BlockScratch& scratch = retuner.scratch;
    scratch.peakBinCount = 0;
    for (std::size_t k = 2; k <= kNyquistBin - 2; ++k) {
        if (isPeak(scratch.magnitudes, k, threshold)) {
            scratch.peakBins[scratch.peakBinCount++] = static_cast<std::int32_t>(k);
        }
    }
    publishPeakCount(retuner);
}

double movingThreshold(double largest) {
    return 0.01 * largest;
}

void publishPeakCount(SacredFft& retuner) {
    const auto count = static_cast<std::int32_t>(retuner.scratch.peakBinCount);
    retuner.peaksFound.store(count, std::memory_order_relaxed);
}

void startFromInput(SacredFft& retuner) {
    retuner.scratch.newMag = retuner.scratch.magnitudes;
    std::transform(retuner.spectrum.begin(), retuner.spectrum.begin() + kBinCount, retuner.fast.phase.begin(),
                   phaseOf);
    retuner.scratch.newPhase = retuner.fast.phase;
}

void clearMovingPeaks(SacredFft& retuner) {
    for (const std::int32_t p : foundPeaks(retuner)) {
        if (retuner.binTarget[static_cast<std::size_t>(p)] == p) continue;
        for (std::ptrdiff_t bin = p - kReach; bin <= p + kReach; ++bin) {
            if (isInside(bin)) retuner.scratch.newMag[static_cast<std::size_t>(bin)] = 0.0;
        }
    }
}

void movePeak(SacredFft& retuner, std::size_t p, std::size_t t, const std::array<double, kBinCount>& phases) {
    BlockScratch& scratch = retuner.scratch;
    for (std::ptrdiff_t d = -kReach; d <= kReach; ++d) {
        const std::ptrdiff_t source = static_cast<std::ptrdiff_t>(p) + d;
        const std::ptrdiff_t target = static_cast<std::ptrdiff_t>(t) + d;
        if (!isInside(source) || !isInside(target)) continue;
        const auto from = static_cast<std::size_t>(source);
        const auto to = static_cast<std::size_t>(target);
        const double magnitude = scratch.magnitudes[from];
        if (magnitude > scratch.newMag[to]) scratch.newPhase[to] = phases[from];
        scratch.newMag[to] += magnitude;
    }
}

ShiftTally movePeaks(SacredFft& retuner, const std::array<double, kBinCount>& phases) {
    ShiftTally tally;
    for (const std::int32_t peak : foundPeaks(retuner)) {
        const auto p = static_cast<std::size_t>(peak);
        const std::size_t t = targetOf(retuner, p);
        if (t == p) continue;
        movePeak(retuner, p, t, phases);
        countShift(tally, p, t);
    }
    return tally;
}

void synthesisePeaks(SacredFft& retuner) {
    std::transform(retuner.scratch.newMag.begin(), retuner.scratch.newMag.end(),
                   retuner.scratch.newPhase.begin(), retuner.shifted.begin(), atAngle);
}

void ShiftPeaks(SacredFft& retuner) {
    const double largest = measureMagnitudes(retuner);
    findPeaks(retuner, movingThreshold(largest));
    startFromInput(retuner);
    clearMovingPeaks(retuner);
    publishShift(retuner, movePeaks(retuner, retuner.fast.phase));
    synthesisePeaks(retuner);
    CollectPeaks(retuner);
    restoreSpectrum(retuner);
}

}  // namespace veloria
