// Playing a loaded MIDI file: notes that begin within the look-ahead become voices on the engine's clock.
// Main thread only.
#pragma once

#include <cstdint>

#include "engine/synth_engine.h"
#include "media/midi_file.h"

namespace veloria {

inline constexpr double kMidiLookaheadSeconds = 0.15;

// Gives the engine every note that begins within `lookahead` (s) of its clock; a note whose end has passed is
// dropped. Nothing while paused. Holds AudioLock for the whole batch.
void midiTick(MidiFile& file, SynthEngine& engine, double lookahead);

// Begins one note, given on the engine's clock (s). Drops it when its channel is off, or when the channel is
// full and the note ranks above every voice; otherwise a full channel's note ends the highest-ranked newest
// voice. A negative `pan` is replaced by panAffinity. The caller holds AudioLock.
void startMidiNote(SynthEngine& engine, std::int32_t note, float velocity, double startTime, double endTime,
                   std::int32_t channel, float pan);

// Pauses at engine time `now` (s); nothing when paused already, so that the place of the first pause stays.
void pauseMidi(MidiFile& file, double now);

// Goes on where pauseMidi left off; notes that the look-ahead had handed over already are given again.
// Nothing when not paused or without notes.
void resumeMidi(MidiFile& file, const SynthEngine& engine);

// Forgets the notes and all playback state.
void clearMidi(MidiFile& file);

// True when every note was handed over and the last has ended half a second ago.
[[nodiscard]] bool midiFinished(const MidiFile& file, const SynthEngine& engine);

}  // namespace veloria
