// The operations by which the main thread changes the voice list. Each holds AudioLock by itself for one
// append or one walk of the list; all are main thread only.
#pragma once

#include <cstdint>

#include "engine/synth_engine.h"

namespace veloria {

// A note to begin now on channel 9.
struct NoteSpec {
    double frequency = 0.0;      // Hz
    float volume = 0.0f;         // amplitude at the start
    float pan = 0.5f;            // 0 left, 1 right
    VoiceOverrides overrides{};  // all -1: the engine's settings
    float targetVolume = -1.0f;  // amplitude at the end; negative for no glide
    double duration = 0.0;       // s
};

void noteOn(SynthEngine& engine, const NoteSpec& note);

// Ends every voice of channel 9 within 1 Hz of `frequency` (Hz), whoever started it, by the 20 ms release.
void noteOffByFrequency(SynthEngine& engine, double frequency);

// Ends every voice of channel 9 by the 20 ms release.
void noteOffChannel9(SynthEngine& engine);

// Ends every voice of every channel 20 ms from now, those too that would have ended earlier, and puts out all
// held buttons.
void allNotesOff(SynthEngine& engine);

// Drops all voices at once without a fade, sets the clock to 0, puts out all held buttons and forgets the
// drones.
void hardReset(SynthEngine& engine);

// A press of one frequency button: begins a note of an hour, or ends it with a 150 ms release. An index
// beyond the table does nothing. toggleShadow also plays convergence cases; the lists do not offer them.
void toggleReflection(SynthEngine& engine, std::uint32_t index);
void toggleRotation(SynthEngine& engine, std::uint32_t index);
void toggleShadow(SynthEngine& engine, std::uint32_t index);

// Begins the theta drones that activationMode asks for: a pair 3 Hz apart round 322 Hz, and from mode 3 on a
// second one at 111 Hz. Nothing while they run or while no mode is on.
void startDrones(SynthEngine& engine);

// Ends the drones, and with them any other voice of channel 9 within 1 Hz of theirs.
void stopDrones(SynthEngine& engine);

}  // namespace veloria
