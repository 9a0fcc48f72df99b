// What stands on the recorder's timeline.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <string>

#include "engine/voice.h"

namespace veloria {

// Which list a clip's frequency came from. Shadow has two numbers: clips keep what made them.
inline constexpr std::int32_t kSourceReflection = 6;
inline constexpr std::int32_t kSourceRotation = 7;
inline constexpr std::int32_t kSourceShadow = 8;           // dragged from the list
inline constexpr std::int32_t kSourceImportedShadow = 10;  // made by an import

// One row of the timeline.
struct RecorderChannel {
    std::string name;
    bool enabled = true;  // off: neither sounds nor is exported
    bool locked = false;  // its clips cannot be moved or resized
};

// A stretch of time at one frequency. The frequency is no field: it is the key of the bucket that the clip
// lies in.
struct RecorderClip {
    std::int32_t id = 0;       // an import counts from 1, so a clip made after it may share its number
    double start = 0.0;        // s on the timeline, never negative
    double end = 0.0;          // s
    float gainInDb = 0.0f;     // level at the start
    float gainOutDb = 0.0f;    // level that it glides to by the end
    VoiceOverrides overrides;  // negative: the engine's own setting
    float pan = 0.5f;          // 0 left, 1 right
    SDL_Color colour{100, 180, 255, 255};
    std::string label;
    std::int32_t sourceKind = 0;   // one of the kSource numbers; 0 none
    std::int32_t sourceIndex = 0;  // row of that list
    bool selected = false;
    bool optimized = false;   // imported with the Sacred Optimizer on
    std::string tuningLabel;  // "Sacred Optimizer", "Original MIDI" or empty
    bool bassFilter = false;  // the switch as it stood when the clip was made

    std::uint64_t serial = 0;  // never given twice, unlike id; set by addClip
};

// A copied clip with the place it came from.
struct ClipboardClip {
    std::int32_t channel = 0;
    double frequency = 0.0;  // Hz
    RecorderClip clip;
};

// The bucket of a frequency (Hz, 0 and above): hundredths of a hertz, rounded half up.
[[nodiscard]] constexpr std::int64_t frequencyKey(double frequency) {
    // The clips' own rule, and constant: lround is neither.
    return static_cast<std::int64_t>(frequency * 100.0 + 0.5);  // NOLINT(bugprone-incorrect-roundings)
}

// The frequency (Hz) that all clips of a bucket sound at.
[[nodiscard]] constexpr double keyFrequency(std::int64_t key) {
    return static_cast<double>(key) / 100.0;
}

}  // namespace veloria
