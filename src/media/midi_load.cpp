#include "media/midi_load.h"

#include <new>
#include <vector>

#include "engine/control.h"
#include "media/midi_parser.h"

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

}  // namespace veloria
