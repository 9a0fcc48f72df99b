// The panel's table of the strongest peaks in the retuned spectrum. Audio thread.
#pragma once

#include <span>

#include "spectral/sacred_fft.h"

namespace veloria {

// The table while it is being made: strongest first.
struct PeakTable {
    std::array<PeakEntry, kPeakRows> rows{};
    std::int32_t count = 0;
};

// Puts `entry` before the first weaker row, or at the end. A full table loses its last row in any case, even
// to a weaker peak: row 7 is the last weak peak met and not the eighth strongest. The panel has always shown
// it so.
void insertPeak(PeakTable& table, const PeakEntry& entry);

// What a peak of the retuned spectrum has to exceed, of the largest magnitude.
[[nodiscard]] double peakThreshold(double largest);

// Fills `peaks` and `peakCount` from the peaks at `bins` (ascending), whose magnitudes are in
// `scratch.shiftedMag`.
void rankPeaks(SacredFft& retuner, double largest, std::span<const std::int32_t> bins);

// Fills `peaks` and `peakCount` from `shifted`. In silence the count is 0 and the rows stay.
void CollectPeaks(SacredFft& retuner);

}  // namespace veloria
