// The renderer: all voices into one stereo sample.
#pragma once

#include "engine/synth_engine.h"

namespace veloria {

// True while the voice sounds at `time` (s): begun, and not yet ended.
[[nodiscard]] inline bool isSounding(double startTime, double endTime, double time) {
    return time >= startTime && endTime > time;
}

// The voice's linear envelope at `time`, 0 to 1: 5 ms of attack (a fifth of a shorter note), 20 ms of
// release; the attack wins where they meet.
[[nodiscard]] float envelopeAt(const Voice& voice, double time);

// The voice's amplitude at `time`, glided linearly to targetVolume over the whole note.
[[nodiscard]] float levelAt(const Voice& voice, double time);

// Advances the clock by one sample, removes ended voices and writes left and right (within -1 to 1). Takes no
// lock: the audio callback calls it, or an offline render while the device is paused. Never allocates.
void renderStereoSample(SynthEngine& engine, float out[2]);

}  // namespace veloria
