// Reads a Standard MIDI File into note events, and pairs note events into notes. Any damage ends the walk of
// a track or of the file, and what was gathered up to there is kept; no fault of the bytes is reported.
#pragma once

#include <cmath>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "media/midi_file.h"

namespace veloria {

// Order of times in seconds, with a NaN behind every other value: a file with a division of 0 has such times,
// and a sort by < alone would have no defined outcome on them.
[[nodiscard]] inline bool timeBefore(double a, double b) {
    return a < b || (std::isnan(b) && !std::isnan(a));
}

// The note events of the file in `bytes`, sorted by time, in file order at equal times. Empty when the bytes
// are no MIDI file, hold no note event, or memory does not suffice. Memory use is proportional to the number
// of bytes.
[[nodiscard]] std::vector<MidiEvent> parseMidiEvents(std::span<const std::uint8_t> bytes);

// As above, for a file on disk; empty when it cannot be read.
[[nodiscard]] std::vector<MidiEvent> parseMidiEvents(const std::string& path);

// Pairs each note-off with the last note-on before it of the same channel and key, with pan undecided.
// `events` in time order; the notes are sorted by start, in pairing order at equal starts. A second note-on
// swallows an open first one, and notes still open at the end are dropped. Throws std::bad_alloc, which the
// load of the file takes for its failure.
[[nodiscard]] std::vector<MidiNote> pairMidiNotes(const std::vector<MidiEvent>& events);

// The largest end in seconds, 0 with no notes. A NaN counts as larger than any number, so that a file with
// times that mean nothing also has a duration that means nothing, whichever order its notes are in.
[[nodiscard]] double lastNoteEnd(const std::vector<MidiNote>& notes);

}  // namespace veloria
