#include "spectral/half_spectrum.h"

namespace veloria {

void countShift(ShiftTally& tally, std::size_t from, std::size_t to) {
    const double bins = static_cast<double>(to) - static_cast<double>(from);
    tally.totalHz += std::fabs(bins * kBinWidthHz);
    ++tally.count;
}

void publishShift(SacredFft& retuner, const ShiftTally& tally) {
    const double mean = tally.count < 1 ? 0.0 : tally.totalHz / tally.count;
    retuner.binsShifted.store(tally.count, std::memory_order_relaxed);
    retuner.avgShiftHz.store(static_cast<float>(mean), std::memory_order_relaxed);
}

void restoreSpectrum(SacredFft& retuner) {
    retuner.spectrum[0].imag(0.0);
    for (std::size_t k = 1; k < kNyquistBin; ++k) {
        retuner.spectrum[k] = retuner.shifted[k];
        retuner.spectrum[kBlockSize - k] = std::conj(retuner.shifted[k]);
    }
    retuner.spectrum[kNyquistBin] = {retuner.shifted[kNyquistBin].real(), 0.0};
}

}  // namespace veloria
