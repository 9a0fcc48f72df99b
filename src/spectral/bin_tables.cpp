#include "spectral/bin_tables.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "frequency/tuned.h"
#include "frequency/tuned_table.h"

namespace veloria {

namespace {

// The bin whose centre is nearest to `hz`, within 1 to 2048.
std::int32_t nearestBin(double hz) {
    const double bin = std::round(hz * 4096.0 / 44100.0);
    return static_cast<std::int32_t>(std::clamp(bin, 1.0, static_cast<double>(kNyquistBin)));
}

double ratioToNote(double hz, int semitonesFromA) {
    return hz / (std::pow(2.0, semitonesFromA / 12.0) * 440.0);
}

}  // namespace

std::vector<double> retunerFrequencies() {
    constexpr std::size_t kLimit = kFrequencyCount;
    std::vector<double> list;
    list.reserve(kLimit);
    for (const double hz : reflectionFreqs)
        appendFolded(list, hz, kLimit);
    for (const double hz : rotationFreqs)
        appendFolded(list, hz, kLimit);
    for (std::uint32_t i = 0; i < kShadowIndexCount; ++i) {
        if (!isConvergence(i)) appendFolded(list, shadowFrequency(i), kLimit);
    }
    std::sort(list.begin(), list.end());
    return list;
}

void fillBinTables(SacredFft& retuner) {
    const TunedTable table = makeTunedTable(retunerFrequencies());
    retuner.binTarget[0] = 0;
    retuner.binTargetHz[0] = 0.0;
    retuner.binHarmonic[0] = 0;
    for (std::size_t k = 1; k < kBinCount; ++k) {
        const double hz = static_cast<double>(k) * kBinWidthHz;
        const TunedFrequency tuned = nearestTuned(table, foldForTuning(hz).octaves, hz);
        retuner.binTarget[k] = nearestBin(tuned.frequency);
        retuner.binTargetHz[k] = tuned.frequency;
        retuner.binHarmonic[k] = tuned.harmonic;
    }
}

void fillHannWindow(SacredFft& retuner) {
    // The symmetric window: its last entry is 0 again, so the divisor is one less than its length.
    constexpr auto kLast = static_cast<double>(kBlockSize - 1);
    for (std::size_t i = 0; i < kBlockSize; ++i) {
        const double angle = static_cast<double>(i) * 2.0 * std::numbers::pi / kLast;
        retuner.hannWindow[i] = (1.0 - std::cos(angle)) * 0.5;
    }
}

double solfeggioRatioOf(double hz) {
    const double semitones = std::log2(hz / 440.0) * 12.0;
    const int nearest = static_cast<int>(std::round(semitones));
    const double ratio = ratioToNote(hz, nearest);
    // Never so with a tuning of twelve equal steps, where a note lies within 2.9 %.
    if (std::fabs(ratio - 1.0) > 0.05) {
        const int neighbour = semitones > nearest ? nearest + 1 : nearest - 1;
        const double other = ratioToNote(hz, neighbour);
        if (std::fabs(ratio - 1.0) > std::fabs(other - 1.0)) return other;
    }
    return ratio;
}

void fillSolfeggioRatio(SacredFft& retuner) {
    std::transform(sacredTargets.begin(), sacredTargets.end(), retuner.solfeggioRatio.begin(),
                   solfeggioRatioOf);
}

}  // namespace veloria
