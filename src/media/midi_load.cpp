#include "media/midi_load.h"

#include <new>
#include <vector>

#include "engine/control.h"
#include "media/midi_parser.h"
#include "platform/message_box.h"

namespace veloria {

bool readMidiFile(MidiFile& file, const std::string& path, SynthEngine& engine) {
    hardReset(engine);
    engine.nextVoiceId = 0;
    engine.midiTuningTag = 0;
    file.notes.clear();
    file.nextNote = 0;
    file.paused = false;
    file.pausedAt = 0.0;
    file.timeOffset = 0.0;

    const std::vector<MidiEvent> events = parseMidiEvents(path);
    if (events.empty()) return false;
    try {
        file.notes = pairMidiNotes(events);
    } catch (const std::bad_alloc&) {
        return false;
    }
    file.duration = lastNoteEnd(file.notes);
    return true;
}

bool loadMidiFile(MidiFile& file, const std::string& path, SynthEngine& engine) {
    const bool read = readMidiFile(file, path, engine);
    if (!read) platform::messageBox("Failed to parse MIDI file!", "Error", platform::MessageIcon::Error);
    return read;
}

}  // namespace veloria
