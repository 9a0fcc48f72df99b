// What all drawing of one frame works from: the sound at one instant.
#pragma once

#include <array>
#include <vector>

#include "engine/reports.h"
#include "engine/scope_buffer.h"
#include "spectral/sacred_fft.h"

namespace veloria {

struct FrameSnapshot {
    EngineSnapshot engine;          // voices, clock, the synthesiser's own scope ring
    ScopeBuffer scope;              // all sound
    RetunerReport retuner{};        // settings, statistics and whole peak rows
    std::vector<ActiveNote> notes;  // activeVoiceBars of `engine`
    std::vector<VoiceInfo> voices;  // activeVoiceInfo of `engine`
    std::array<bool, kAvatarFamilySize> reflectionHeld{};
    std::array<bool, kAvatarFamilySize> rotationHeld{};
    std::array<bool, kShadowIndexCount> shadowHeld{};
};

// Takes the copy under one short hold of AudioLock; memory is reserved before it. Main thread.
void takeFrameSnapshot(const SynthEngine& engine, const ScopeBuffer& scope, const SacredFft& retuner,
                       FrameSnapshot& snapshot);

}  // namespace veloria
