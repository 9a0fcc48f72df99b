// The master stage: a gain that falls as polyphony rises, a slow tremolo, a soft limit.
#pragma once

#include <cstddef>

#include "engine/synth_engine.h"

namespace veloria {

// The gain for `sounding` voices: 0.3 up to 8, halved at each doubling to 64, and half of that beyond.
[[nodiscard]] float polyphonyTarget(std::size_t sounding);

// One sample of the one-pole glide of `level` towards `target`; time constant about 2222 samples (50 ms).
[[nodiscard]] inline float glideMasterLevel(float level, float target) {
    return level + (target - level) * 0.00045f;
}

// The gain that all voices share at `time` (s): 1 +- 3 %, about 0.515 Hz.
[[nodiscard]] float tremoloAt(double time);

// Writes mono output into the scope ring. Audio thread.
void feedScopeRing(SynthEngine& engine, const float* mono, std::size_t frames);

// Soft-limits the voices' sums into out[0], out[1] (within -1 to 1) and feeds the scope ring. Audio thread.
void writeMaster(SynthEngine& engine, float left, float right, float out[2]);

}  // namespace veloria
