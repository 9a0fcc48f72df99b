#include "frequency/tuned_table.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "frequency/ratio_table.h"

namespace veloria {

namespace {

using Candidate = TunedTable::Candidate;

constexpr std::uint32_t kTrials = kRatioCount + 1;  // of each entry: itself and its ratios
constexpr double kFarthest = 1e18;                  // a candidate as far away as this does not count

// Within these bounds scaling by a power of two rounds nothing, so that candidates keep their order and their
// distances in every octave.
constexpr double kLeastEntry = 1e-50;
constexpr double kLargestEntry = 1e50;
constexpr std::int32_t kMostOctaves = 200;
constexpr double kLeastTarget = 1e-100;

bool isExact(double value, double least, double largest) {
    return value == 0.0 || (std::fabs(value) >= least && std::fabs(value) <= largest);
}

std::vector<Candidate> candidatesOf(std::span<const double> frequencies) {
    std::vector<Candidate> all;
    all.reserve(frequencies.size() * kTrials);
    std::uint32_t rank = 0;
    for (const double entry : frequencies) {
        if (!isExact(entry, kLeastEntry, kLargestEntry)) return {};
        all.push_back({entry, rank++});
        for (const RatioRow& row : ratioTable)
            all.push_back({entry * row.ratio, rank++});
    }
    std::sort(all.begin(), all.end(), [](const Candidate& a, const Candidate& b) {
        return a.hz < b.hz || (a.hz == b.hz && a.rank < b.rank);
    });
    const auto sameHz = [](const Candidate& a, const Candidate& b) { return a.hz == b.hz; };
    all.erase(std::unique(all.begin(), all.end(), sameHz), all.end());
    return all;
}

// The candidate that the trials would end with: of those at the smallest distance, as a double has it, the
// first in their order. Distances grow to either side of `target`, but not strictly: they are rounded.
const Candidate& firstOfNearest(const std::vector<Candidate>& candidates, double target) {
    const auto above = std::lower_bound(candidates.begin(), candidates.end(), target,
                                        [](const Candidate& a, double hz) { return a.hz < hz; });
    const auto distanceOf = [target](const Candidate& a) { return std::fabs(a.hz - target); };
    const bool hasAbove = above != candidates.end();
    const bool hasBelow = above != candidates.begin();
    double best = hasAbove ? distanceOf(*above) : distanceOf(*(above - 1));
    if (hasBelow) best = std::min(best, distanceOf(*(above - 1)));
    const Candidate* first = nullptr;
    const auto take = [&first](const Candidate& a) {
        if (first == nullptr || a.rank < first->rank) first = &a;
    };
    for (auto it = above; it != candidates.end() && distanceOf(*it) == best; ++it)
        take(*it);
    for (auto it = above; it != candidates.begin() && distanceOf(*(it - 1)) == best; --it)
        take(*(it - 1));
    return *first;
}

}  // namespace

TunedTable makeTunedTable(std::span<const double> frequencies) {
    return {{frequencies.begin(), frequencies.end()}, candidatesOf(frequencies)};
}

TunedFrequency nearestTuned(const TunedTable& table, std::int32_t octaves, double target) {
    const bool scalable = octaves >= -kMostOctaves && octaves <= kMostOctaves;
    if (table.candidates.empty() || !scalable || !isExact(target, kLeastTarget, kFarthest)) {
        return nearestTuned(std::span<const double>(table.frequencies), octaves, target, true);
    }
    const double scale = std::ldexp(1.0, octaves);
    const Candidate& nearest = firstOfNearest(table.candidates, target / scale);
    const double hz = nearest.hz * scale;
    if (!(std::fabs(hz - target) < kFarthest)) return {target, 0};
    return {hz, static_cast<std::int32_t>(nearest.rank % kTrials)};
}

}  // namespace veloria
