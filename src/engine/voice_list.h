// Adding to the voice list. The list may grow beyond what was reserved; memory for that is had and given back
// outside the audio lock, so that no hold waits for it. Main thread.
#pragma once

#include "engine/synth_engine.h"

namespace veloria {

// Doubles the room of the list and of what the renderer keeps for it. False when there is no memory; the list
// is as it was then.
[[nodiscard]] bool growVoices(SynthEngine& engine);

// Begins `voice` now, for `duration` (s), with the next running number; startTime, endTime and id are set
// here, under one hold of AudioLock. A voice that there is no memory for is dropped.
void startVoice(SynthEngine& engine, Voice voice, double duration);

}  // namespace veloria
