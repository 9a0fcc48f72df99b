// The gathering of mode 1 by lists: what every block would find out anew from `binTarget` is found once.
// Audio thread.
#pragma once

#include "spectral/sacred_fft.h"

namespace veloria {

// Makes the lists for `binTarget` if they are another's. Takes a few microseconds once, at the first block.
void refreshTargetLists(SacredFft& retuner);

// gatherBins and publishShift, for what the lists cannot foresee. Before it `scratch.magnitudes` and
// `scratch.trueBin` are known, `scratch.sum` holds the magnitudes of own bins and 0 elsewhere, and
// `fast.leadBin` the true bins; after it all targets' sums, true bins and `fast.leadScale` are right. The
// lists are up to date.
void gatherByLists(SacredFft& retuner);

}  // namespace veloria
