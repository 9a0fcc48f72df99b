// Making a file on disk the one loaded MIDI file. Main thread, with the audio device paused.
#pragma once

#include <string>

#include "engine/synth_engine.h"
#include "media/midi_file.h"

namespace veloria {

// Resets the engine (voices, clock, note numbers), reads the file's notes and stands at their start, not
// paused. False when the file holds no note event: the notes are gone then, `duration` and `binauralPairs`
// keep their old values.
[[nodiscard]] bool readMidiFile(MidiFile& file, const std::string& path, SynthEngine& engine);

}  // namespace veloria
