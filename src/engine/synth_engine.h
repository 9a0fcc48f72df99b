// The synthesiser's whole state.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/relaxed.h"
#include "engine/partial_table.h"
#include "engine/voice.h"
#include "frequency/tables.h"

namespace veloria {

inline constexpr int kSampleRate = 44100;
inline constexpr double kSampleSeconds = 2.2675736961451248e-05;  // 1 / 44100
inline constexpr int kChannelCount = 16;
inline constexpr int kVoiceFigure = 256;  // shown to the user and reserved; the list may grow beyond it
inline constexpr int kScopeRingSize = 1024;

// The eight settings that voices without overrides follow. Set on the main thread, read by the renderer once
// per sample; the ranges are kept where a control sets them.
struct GlobalSettings {
    Relaxed<std::int32_t> fibonacciCount{2};  // 0 to 14
    Relaxed<std::int32_t> piCount{0};         // 0 to 14
    Relaxed<std::int32_t> teslaCount{0};      // 0 to 3
    Relaxed<std::int32_t> octaveSteps{0};     // -3 to 3
    Relaxed<std::int32_t> phiSteps{0};        // -3 to 3
    Relaxed<std::int32_t> fibPhase{0};        // per cent, 0 to 100
    Relaxed<std::int32_t> teslaPhase{0};      // per cent, 0 to 100
    Relaxed<std::int32_t> waveform{0};        // as VoiceOverrides::waveform
};

// Threads: the voice list is changed by the main thread under AudioLock and by the renderer; time,
// masterLevel and the scope ring are written by the renderer (and by operations that hold the lock); all else
// belongs to the main thread.
struct SynthEngine : GlobalSettings {
    SynthEngine() { voices.reserve(kVoiceFigure); }

    std::array<bool, kAvatarFamilySize> reflectionHeld{};
    std::array<bool, kAvatarFamilySize> rotationHeld{};
    std::array<bool, kShadowIndexCount> shadowHeld{};

    // What renderStereoBlock worked out for the voices at the same places of the list. It belongs to the
    // renderer; a table that does not fit its voice is built anew. Grows with the list's room (growVoices).
    std::vector<PartialTable> partialTables{kVoiceFigure + 1};
    std::vector<Voice> voices;  // order is not stable: an ended voice's place is taken by the last
    std::array<ChannelState, kChannelCount> channels;
    Relaxed<double> time{0.0};  // s, the sample clock
    std::uint32_t nextVoiceId = 0;

    std::int32_t midiTuningMode = 0;    // any other value: every key sounds at 440 Hz
    std::int32_t midiTuningTag = 0;     // row of ratioTable that the last tuned key used; 0 none
    bool bassFilter = false;            // folds low and high keys into the middle
    bool sacredOptimizer = true;        // off: equal temperament
    std::int32_t midiTableSetting = 0;  // the Avatar list's sub-tab; nothing reads it
    std::int32_t midiTableChoice = 0;   // 1: keys are tuned to the Shadow numbers, else to the Avatar ones
    std::int32_t activationMode = 0;    // 0 off, 1 single, 2 Heart, 3 Trinity, 4 Fibonacci
    bool dronesOn = false;

    float masterLevel = 0.3f;                       // smoothed polyphony gain
    std::array<float, kScopeRingSize> scopeRing{};  // mono output of the synthesiser alone
    std::int32_t scopePos = 0;                      // next place to be written
};

}  // namespace veloria
