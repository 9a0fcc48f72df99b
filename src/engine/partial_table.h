// What the block renderer keeps of a voice's partials while its frequency and settings stay as they are.
#pragma once

#include <array>
#include <cstdint>
#include <limits>

#include "engine/stacks.h"
#include "engine/voice.h"

namespace veloria {

// A sub-block, the longest run of frames between two looks at the settings, lies in two spans round a centre
// each, and each has as many frames before its centre as after it: 0.5 to 15.5 away.
inline constexpr int kSubBlockFrames = 64;
inline constexpr int kSpanFrames = kSubBlockFrames / 2;
inline constexpr int kHalfSpan = kSpanFrames / 2;

// Places for partials, rounded up to whole vectors of any machine. What lies past `count` is 0, and a phase
// that is advanced by it stays.
inline constexpr int kTablePlaces = kPhaseSlots;
static_assert(kTablePlaces >= kMaxPartials && kTablePlaces % 16 == 0);

template <class T>
using PerPartial = std::array<T, kTablePlaces>;

struct PartialTable {
    // What the table was built from; NaN is never equal, so a new table belongs to no voice.
    double frequency = std::numeric_limits<double>::quiet_NaN();
    VoiceOverrides settings;

    int count = 0;
    bool inPlace = false;     // the slots are 0 to count - 1: the voice's own phases serve as the vector
    bool hasOffsets = false;  // else all offsets are 0
    float weight = 0.0f;      // sum of the weights
    PerPartial<std::uint8_t> slots{};
    alignas(64) PerPartial<double> steps{};    // radians a frame
    alignas(64) PerPartial<double> offsets{};  // turns
    alignas(64) PerPartial<float> weights{};

    // For sines only: cosine and sine of the turn from the middle of the sub-block to a centre, and of the
    // turns from a centre to the frames of its half span, those times the weight.
    alignas(64) PerPartial<float> centreCos{}, centreSin{};
    struct Row {
        std::array<float, kHalfSpan> cosine, sine;
    };
    alignas(64) PerPartial<Row> rows{};
};

// Makes `table` that of a voice of `frequency` (Hz) under `settings` (resolved), unless it is so already. Any
// thread that owns the table; never allocates.
void updatePartialTable(PartialTable& table, double frequency, const VoiceOverrides& settings);

}  // namespace veloria
