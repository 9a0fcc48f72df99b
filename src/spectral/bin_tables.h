// The tables that the retuner works by, and the steps that make them. Main thread, at start-up.
#pragma once

#include <vector>

#include "spectral/sacred_fft.h"

namespace veloria {

// The 342 frequencies folded into 100 to 1000 Hz, ascending.
[[nodiscard]] std::vector<double> retunerFrequencies();

// Fills `binTarget`, `binTargetHz` and `binHarmonic`.
void fillBinTables(SacredFft& retuner);

// The factor that moves the equal-tempered note nearest to `hz` (A = 440 Hz) onto `hz`; `hz` above 0.
[[nodiscard]] double solfeggioRatioOf(double hz);

}  // namespace veloria
