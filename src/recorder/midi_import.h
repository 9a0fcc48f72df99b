// Making an arrangement of the loaded MIDI file: one clip for each note that is loud and long enough. Main
// thread only.
#pragma once

#include <cstdint>
#include <string>

#include "media/midi_file.h"
#include "recorder/drone_list.h"
#include "recorder/recorder.h"

namespace veloria {

// What an import did, and what it tells the user.
struct ImportReport {
    bool hadNotes = false;      // false: the recorder was left as it was
    std::int32_t clips = 0;     // notes that became clips
    std::int32_t filtered = 0;  // notes that were too soft, too short, or have no finite times
    std::int32_t pairs = 0;     // close overlapping clips that were set left and right
};

// Replaces the recorder's clips by the file's notes, with the engine's settings as they are. Shows nothing.
ImportReport importMidiClips(const MidiFile& file, Recorder& recorder, SynthEngine& engine);

// The one line that tells of an import.
[[nodiscard]] std::string importMessage(const ImportReport& report);

// As importMidiClips, and tells the user in one message box.
void importMidiToRecorder(const MidiFile& file, Recorder& recorder, SynthEngine& engine);

// A clip's text: the row that it is named after and its own frequency (Hz), cut to 63 characters.
[[nodiscard]] std::string importedLabel(const DroneEntry& entry, double frequency);

}  // namespace veloria
