// One sounding note.
#pragma once

#include <array>
#include <cstdint>

namespace veloria {

inline constexpr int kPhaseSlots = 48;

// Channels with a fixed meaning. MIDI notes keep the channel of their file, 0 to 15, and may share these.
inline constexpr std::int32_t kToggleChannel = 8;   // Reflection and Rotation buttons
inline constexpr std::int32_t kNoteChannel = 9;     // walker, drones, key tones, recorder
inline constexpr std::int32_t kShadowChannel = 10;  // Shadow buttons

// Settings of the partial stacks. In a voice a negative field means the engine's own setting, read anew at
// each sample; a voice can therefore not carry octaveSteps or phiSteps of its own below 0.
struct VoiceOverrides {
    std::int32_t fibonacciCount = -1;  // partials, 0 to 14; values above are cut
    std::int32_t piCount = -1;         // partials, 0 to 14; values above are cut
    std::int32_t teslaCount = -1;      // partials, 0 to 3; values above are cut
    std::int32_t octaveSteps = -1;     // octaves stacked, up or (engine only) down; cut at 4
    std::int32_t phiSteps = -1;        // powers of phi stacked, up or (engine only) down; cut at 4
    std::int32_t fibPhase = -1;        // per cent of a golden angle per partial, 0 to 100
    std::int32_t teslaPhase = -1;      // per cent of 120, 240, 360 degrees, 0 to 100
    std::int32_t waveform = -1;        // 0 sine, 1 saw, 2 square, 3 triangle; any other number is silence
};

using PhaseArray = std::array<double, kPhaseSlots>;

// A note lives from startTime to endTime on the engine's clock; a note-off only moves endTime.
struct Voice {
    double frequency = 0.0;      // Hz, the fundamental
    std::int32_t midiNote = -1;  // key number; -1 for a note that did not come from MIDI
    float volume = 0.0f;         // amplitude at the start
    float targetVolume = -1.0f;  // amplitude to reach at the end; negative for no glide
    double startTime = 0.0;      // s; in the future, the voice waits, silent and unchanged
    double endTime = 0.0;        // s
    std::int32_t channel = 0;    // 0 to 15
    PhaseArray phases{};         // radians, 0 to 2 pi; the map of slots stands with the stacks
    float pan = 0.5f;            // 0 left, 1 right
    std::int32_t stealRank = 0;  // the highest is stolen first when a MIDI channel is full
    std::uint32_t id = 0;        // running number
    VoiceOverrides overrides;
    std::int32_t tuningTag = 0;  // row of ratioTable that the tuner used; 0 none. Not read by the renderer
};

// A mixer strip: MIDI's limits and a level for all voices of the channel.
struct ChannelState {
    bool enabled = true;
    float volume = 1.0f;
    float pan = 0.5f;
    std::int32_t maxVoices = 64;  // sounding voices at which a new MIDI note steals
};

}  // namespace veloria
