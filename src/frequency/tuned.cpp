#include "frequency/tuned.h"

#include <cmath>

#include "frequency/ratio_table.h"

namespace veloria {

FoldedFrequency foldForTuning(double hz) {
    FoldedFrequency folded{hz, 0};
    if (!(hz > 0.0) || std::isinf(hz)) return folded;
    while (folded.frequency > 1000.0) {
        folded.frequency *= 0.5;
        ++folded.octaves;
    }
    while (folded.frequency < 100.0) {
        folded.frequency *= 2.0;
        --folded.octaves;
    }
    return folded;
}

void appendFolded(std::vector<double>& list, double hz, std::size_t limit) {
    if (!(hz > 0.0) || list.size() >= limit) return;
    list.push_back(foldForTuning(hz).frequency);
}

TunedFrequency nearestTuned(std::span<const double> frequencies, std::int32_t octaves, double target,
                            bool useRatios) {
    const double scale = std::ldexp(1.0, octaves);
    double best = 1e18;
    TunedFrequency result{target, 0};
    for (const double entry : frequencies) {
        const double base = scale * entry;
        if (best > std::fabs(base - target)) {
            best = std::fabs(base - target);
            result = {base, 0};
        }
        if (!useRatios) continue;
        for (std::int32_t row = 1; row <= kRatioCount; ++row) {
            const double candidate = base * ratioTable[static_cast<std::size_t>(row - 1)].ratio;
            if (best > std::fabs(candidate - target)) {
                best = std::fabs(candidate - target);
                result = {candidate, row};
            }
        }
    }
    return result;
}

}  // namespace veloria
