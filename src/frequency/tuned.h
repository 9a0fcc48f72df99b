// Reaching a frequency from a table: folding into the table's band and the search for the nearest entry.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace veloria {

struct TunedFrequency {
    double frequency;       // Hz
    std::int32_t harmonic;  // row of ratioTable that was used, 1 to 50; 0 for a table entry itself
};

struct FoldedFrequency {
    double frequency;      // Hz, 100 to 1000, both ends inside
    std::int32_t octaves;  // +1 for each halving, -1 for each doubling
};

// Folds for tuning: halve while above 1000 Hz, then double while below 100 Hz. 1000.0 and 100.0 stay.
// A value that is not above 0 or not finite cannot be folded and comes back as it is.
[[nodiscard]] FoldedFrequency foldForTuning(double hz);

// Appends each candidate that is a positive number, folded, until `list` holds `limit` entries.
void appendFolded(std::vector<double>& list, double hz, std::size_t limit);

// The candidate nearest to `target` (Hz) among the entries of `frequencies` (ascending) scaled by 2^octaves
// and, with `useRatios`, those times each row of ratioTable. At equal distance the earliest stays: the lower
// entry, the entry before its ratios, the lower row. An empty list gives the target itself with row 0.
[[nodiscard]] TunedFrequency nearestTuned(std::span<const double> frequencies, std::int32_t octaves,
                                          double target, bool useRatios);

}  // namespace veloria
