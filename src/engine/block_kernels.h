// The vectorised inside of renderStereoBlock. Each function runs in the widest vectors that the processor
// has, see vector_target.h. Audio thread; none of them allocates, locks or calls the system.
#pragma once

#include <array>

#include "engine/partial_table.h"

namespace veloria {

// One value for each frame of a sub-block.
template <class T>
struct alignas(64) PerFrame : std::array<T, kSubBlockFrames> {};

struct StereoSum {
    PerFrame<float> left;
    PerFrame<float> right;
};

// The frames of a sub-block in which a voice sounds: `first` up to but not `end`.
struct FrameRange {
    int first = 0;
    int end = 0;
};

// What a voice's normalised wave is multiplied by on its way to the two sides.
struct VoiceGain {
    float left = 0.0f;
    float right = 0.0f;
    const PerFrame<float>* ramp = nullptr;  // and by this at each frame; null while nothing moves
};

// Adds one voice's partials to `sum` and advances `phases` (radians, one for each slot) by the range's
// frames. Frames outside the range are written too: where it is not the whole sub-block, gain.ramp must be 0
// there or nobody may read them. The waves are those of `oscillate`; any other number than 0 to 3 only
// advances.
void addVoice(const PartialTable& table, PhaseArray& phases, FrameRange range, const VoiceGain& gain,
              StereoSum& sum);

// The linear ramps of a voice: envelope and glide.
struct VoiceRamp {
    double startTime = 0.0;  // s
    double endTime = 0.0;    // s
    double attack = 0.0;     // s
    double level = 0.0;      // at the start
    double glide = 0.0;      // what the level gains by the end
};

// Envelope times level at each of `times` (s).
void fillRamp(const VoiceRamp& ramp, const PerFrame<double>& times, PerFrame<float>& out);

// What a sub-block puts out. Past its frames there is nothing of use.
struct BlockOutput {
    alignas(64) std::array<float, 2 * kSubBlockFrames> stereo;  // interleaved
    PerFrame<float> mono;
};

// The master stage: the tremolo at `times` (s), `levels` and the soft limit.
void limitSum(const StereoSum& sum, const PerFrame<double>& times, const PerFrame<float>& levels,
              BlockOutput& out);

}  // namespace veloria
