#include "spectral/collect_peaks.h"

#include <algorithm>

#include "spectral/half_spectrum.h"

namespace veloria {

namespace {

constexpr double kSilence = 1e-12;

PeakEntry peakAt(const SacredFft& retuner, std::size_t k, double largest) {
    return {static_cast<float>(static_cast<double>(k) * kBinWidthHz),
            static_cast<float>(retuner.binTargetHz[k]),
            static_cast<float>(retuner.scratch.shiftedMag[k] / largest), retuner.binHarmonic[k]};
}

}  // namespace

void insertPeak(PeakTable& table, const PeakEntry& entry) {
    constexpr auto kRows = static_cast<std::int32_t>(kPeakRows);
    const auto begin = table.rows.begin();
    const auto last = begin + std::min(table.count, kRows - 1);
    const auto position =
        std::find_if(begin, last, [&](const PeakEntry& row) { return row.level < entry.level; });
    std::move_backward(position, last, last + 1);
    *position = entry;
    if (table.count < kRows) ++table.count;
}

double peakThreshold(double largest) {
    return 0.02 * largest;
}

void rankPeaks(SacredFft& retuner, double largest, std::span<const std::int32_t> bins) {
    if (largest < kSilence) {
        retuner.peakCount.store(0, std::memory_order_relaxed);
        return;
    }
    PeakTable table;
    for (const std::int32_t bin : bins)
        insertPeak(table, peakAt(retuner, static_cast<std::size_t>(bin), largest));
    retuner.peaks = table.rows;
    retuner.peakCount.store(table.count, std::memory_order_relaxed);
}

void CollectPeaks(SacredFft& retuner) {
    auto& magnitudes = retuner.scratch.shiftedMag;
    std::transform(retuner.shifted.begin(), retuner.shifted.end(), magnitudes.begin(), magnitudeOf);
    const double largest = *std::max_element(magnitudes.begin(), magnitudes.end());
    auto& bins = retuner.fast.peakBins;
    std::size_t count = 0;
    for (std::size_t k = 2; k <= kNyquistBin - 2; ++k) {
        if (isPeak(magnitudes, k, peakThreshold(largest))) bins[count++] = static_cast<std::int32_t>(k);
    }
    rankPeaks(retuner, largest, {bins.data(), count});
}

}  // namespace veloria
