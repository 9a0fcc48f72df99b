// The records of a MIDI file: what the reader gathers while it works, and what is left of the file when it is
// done.
#pragma once

#include <cstdint>
#include <vector>

namespace veloria {

// One entry of the tempo map; lives only while a file is read.
struct TempoChange {
    std::uint32_t tick;              // absolute tick at which the tempo starts
    std::uint32_t microsPerQuarter;  // microseconds per quarter note
};

// One note-on or note-off; lives only while a file is loaded.
struct MidiEvent {
    double time;            // s from the start of the file; not finite in a file with a division of 0
    std::int32_t note;      // key number as it stands in the file, 0 to 255 in a damaged one
    std::int32_t velocity;  // the velocity byte of a note-on; 0 for a note-off whatever its data byte says
    bool isNoteOn;          // status 0x90 with a velocity other than 0
    std::int32_t channel;   // 0 to 15
    std::uint32_t tick;     // absolute tick in the event's own track
};

// One finished note.
struct MidiNote {
    double start;          // s
    double end;            // s
    std::int32_t note;     // key number
    float velocity;        // velocity byte / 127: 0 to 1, up to 2.01 from a damaged file
    std::int32_t channel;  // 0 to 15
    float pan;             // 0.0 left, 0.5 centre, 1.0 right; -1.0 while not decided
};

// The one loaded MIDI file. Main thread only.
struct MidiFile {
    std::uint8_t normalizeMatch =
        0;  // copy of the MIDI Normalize switch, taken before an import into the recorder
    std::int32_t binauralPairs = 0;  // pairs that the optimiser split
    std::vector<MidiNote> notes;     // sorted by start
    std::uint64_t nextNote = 0;      // index of the next note to schedule
    bool paused = false;
    double pausedAt = 0.0;    // engine s at which the pause began
    double timeOffset = 0.0;  // s; file time + timeOffset = engine time
    double duration = 0.0;    // s; the largest end of any note, 0 with no notes
};

}  // namespace veloria
