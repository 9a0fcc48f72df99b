// The gathering of mode 1 by lists: what every block would find out anew from `binTarget` is found once.
// Audio thread.
#pragma once

#include "spectral/sacred_fft.h"

namespace veloria {

// Makes the lists for `binTarget` if they are another's. Takes a few microseconds once, at the first block.
void refreshTargetLists(SacredFft& retuner);

// gatherBins and publishShift once `scratch.magnitudes` and `scratch.trueBin` are known; `fast.leadBin` and
// `fast.leadScale` follow. The lists are up to date.
void gatherByLists(SacredFft& retuner);

}  // namespace veloria
