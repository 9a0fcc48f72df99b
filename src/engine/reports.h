// What sounds now, for the views. Main thread only.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/synth_engine.h"

namespace veloria {

struct VoiceInfo {
    double frequency;        // Hz
    std::int32_t midiNote;   // -1 for none
    float volume;            // amplitude at the start
    std::int32_t tuningTag;  // row of ratioTable, 0 for none
    float pan;               // 0 left, 1 right
    std::int32_t channel;
};

// A sounding voice as the views draw it.
struct ActiveNote {
    float frequency;  // Hz
    float progress;   // 0 to 1 over the note's length; 1 when it has none
    float pan;        // 0 left, 1 right
};

struct SnapshotVoice {
    VoiceInfo info;
    double startTime;  // s on the engine's clock
    double endTime;    // s
};

// A copy of the engine's state at one instant, so that all drawing of a frame sees the same sound.
struct EngineSnapshot {
    std::vector<SnapshotVoice> voices;  // waiting ones included
    double time = 0.0;                  // s
    std::array<float, kScopeRingSize> scopeRing{};
    std::int32_t scopePos = 0;
};

// Makes room for a copy; called before the lock is taken, so that the copy allocates nothing under it.
void reserveSnapshot(const SynthEngine& engine, EngineSnapshot& snapshot);

// Copies the engine's state. The caller holds AudioLock.
void copySnapshot(const SynthEngine& engine, EngineSnapshot& snapshot);

// Both of the above under one short hold.
[[nodiscard]] EngineSnapshot takeSnapshot(const SynthEngine& engine);

// The reports proper. Those of an engine take the lock and copy; a frame asks its snapshot.
[[nodiscard]] std::int32_t activeVoiceCount(const EngineSnapshot& snapshot);
[[nodiscard]] std::int32_t activeVoiceCount(const SynthEngine& engine);
[[nodiscard]] std::int32_t activeVoiceCountOnChannel(const EngineSnapshot& snapshot, std::uint32_t channel);
[[nodiscard]] std::int32_t activeVoiceCountOnChannel(const SynthEngine& engine, std::uint32_t channel);
// The sounding voices but those of channel 10, which the views show by their buttons.
[[nodiscard]] std::vector<ActiveNote> activeVoiceBars(const EngineSnapshot& snapshot);
[[nodiscard]] std::vector<ActiveNote> activeVoiceBars(const SynthEngine& engine);
// The sounding voices of all channels.
[[nodiscard]] std::vector<VoiceInfo> activeVoiceInfo(const EngineSnapshot& snapshot);
[[nodiscard]] std::vector<VoiceInfo> activeVoiceInfo(const SynthEngine& engine);

}  // namespace veloria
