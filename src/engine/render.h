// The renderer: all voices into one stereo sample.
#pragma once

#include "engine/synth_engine.h"

namespace veloria {

// True while the voice sounds at `time` (s): begun, and not yet ended.
[[nodiscard]] inline bool isSounding(double startTime, double endTime, double time) {
    return time >= startTime && endTime > time;
}

inline constexpr double kReleaseSeconds = 0.02;

// The length of the voice's attack, s: 5 ms, a fifth of a shorter note.
[[nodiscard]] double attackSeconds(const Voice& voice);

// The voice's linear envelope at `time`, 0 to 1: its attack, and 20 ms of release; the attack wins where they
// meet.
[[nodiscard]] float envelopeAt(const Voice& voice, double time);

// The voice's amplitude at `time`, glided linearly to targetVolume over the whole note.
[[nodiscard]] float levelAt(const Voice& voice, double time);

// The engine's settings as they are now.
[[nodiscard]] VoiceOverrides loadGlobals(const GlobalSettings& globals);

// Advances the clock by one sample, removes ended voices and writes left and right (within -1 to 1). Takes no
// lock: the audio callback calls it, or an offline render while the device is paused. Never allocates.
void renderStereoSample(SynthEngine& engine, float out[2]);

// Renders `frames` interleaved stereo frames into `out`: what as many calls of renderStereoSample give,
// within 2e-6, with the same clock and voice list afterwards, at many times the speed. The settings are read
// every 64 frames. On a thread that nothing else renders the engine on; never allocates.
void renderStereoBlock(SynthEngine& engine, float* out, std::size_t frames);

}  // namespace veloria
