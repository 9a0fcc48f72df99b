// The master stage: a gain that falls as polyphony rises, a slow tremolo, a soft limit.
#pragma once

#include <cstddef>

#include "engine/synth_engine.h"

namespace veloria {

// The gain for `sounding` voices: 0.3 up to 8, halved at each doubling to 64, and half of that beyond.
[[nodiscard]] float polyphonyTarget(std::size_t sounding);

// One sample of the one-pole glide of `level` towards `target`; time constant about 2222 samples (50 ms).
[[nodiscard]] float glideMasterLevel(float level, float target);

// The gain that all voices share at `time` (s): 1 +- 3 %, about 0.515 Hz.
[[nodiscard]] float tremoloAt(double time);

// Writes the mono of one output frame into the scope ring. Audio thread.
void feedScopeRing(SynthEngine& engine, float left, float right);

// Soft-limits the voices' sums into out[0], out[1] (within -1 to 1) and feeds the scope ring. Audio thread.
void writeMaster(SynthEngine& engine, float left, float right, float out[2]);

}  // namespace veloria
