// Mode 3: the whole stream resampled by one fixed ratio.
#pragma once

#include "spectral/sacred_fft.h"

namespace veloria {

// Where the ring is read: the whole sample at or before the position, and how far behind it the position is.
struct TimePosition {
    std::uint32_t index;  // in the count of `timeWrite`
    float fraction;       // 0 to 1, samples
};

// The resampling ratio of the chosen target.
[[nodiscard]] double targetRatio(const SacredFft& retuner, const RetunerSettings& settings);

[[nodiscard]] TimePosition timePosition(const SacredFft& retuner);

// Samples between `index` and the write position; right across the wrap of the counter.
[[nodiscard]] std::int32_t samplesBehind(const SacredFft& retuner, std::uint32_t index);

// The ring sample at `index`.
[[nodiscard]] float timeSample(const SacredFft& retuner, std::uint32_t index);

// The stream at `position`: the Catmull-Rom cubic through the two samples on either side.
[[nodiscard]] float interpolate(const SacredFft& retuner, const TimePosition& position);

// Moves the read position on by `ratio`. A ratio below 1 falls ever farther behind: when the ring is nearly
// full the position jumps to just behind the newest sample, and the sound between is skipped.
void advanceRead(SacredFft& retuner, const TimePosition& position, double ratio);

// One sample through mode 3. Audio thread.
[[nodiscard]] float processTimeDomain(SacredFft& retuner, float sample, const RetunerSettings& settings);

}  // namespace veloria
