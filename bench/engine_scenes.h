// Voices for the benchmarks of the sound.
#pragma once

#include "engine/synth_engine.h"

namespace veloria::bench {

// Settings that stack `partials`: 1, 3 (the default) or 38 (all stacks at their limit).
inline VoiceOverrides settingsOf(int partials) {
    VoiceOverrides none{.fibonacciCount = 0,
                        .piCount = 0,
                        .teslaCount = 0,
                        .octaveSteps = 0,
                        .phiSteps = 0,
                        .fibPhase = 0,
                        .teslaPhase = 0,
                        .waveform = 0};
    if (partials == 3) none.fibonacciCount = 2;
    if (partials == 38) {
        none.fibonacciCount = 14;
        none.piCount = 14;
        none.teslaCount = 3;
        none.octaveSteps = 3;
        none.phiSteps = 3;
    }
    return none;
}

// Voices that sound throughout. The highest of 38 partials is the 987th: only from 20 to 22.3 Hz are all of
// them in the audible range.
inline void fillVoices(SynthEngine& engine, int voices, int partials) {
    const double base = partials == 38 ? 20.1 : 110.0;
    const double span = partials == 38 ? 2.2 : 800.0;
    engine.voices.clear();
    for (int i = 0; i < voices; ++i) {
        Voice voice;
        voice.frequency = base + span * i / 256.0;
        voice.volume = 0.5f;
        voice.startTime = -1.0;
        voice.endTime = 1e6;
        voice.channel = kNoteChannel;
        voice.pan = static_cast<float>(i % 5) / 4.0f;
        voice.overrides = settingsOf(partials);
        engine.voices.push_back(voice);
    }
}

}  // namespace veloria::bench
