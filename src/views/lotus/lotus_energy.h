// How much of each Solfeggio frequency is in the sound that goes out: it moves the lotus.
#pragma once

#include "engine/scope_buffer.h"
#include "views/lotus/lotus.h"

namespace veloria {

// Listens to the newest 1024 samples and moves each energy towards what it hears: four tenths of the way up,
// or 8 % of the way down, to 1 at most. Called once a frame, whether the panel is open or not. A full-scale
// tone of a petal's own frequency leads to 0.25. The petals of neighbours less than 86 Hz away rise with it
// in part, so wide does a window of 1024 samples hear; all others stay under 3 % of it. Within 1e-6 of exact
// arithmetic. While one of the samples is not finite all energies fall. Main thread.
void updateLotusEnergy(LotusState& state, const ScopeBuffer& scope);

}  // namespace veloria
