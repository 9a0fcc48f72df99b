// The MIDI reader against a plain second one, and what the pairing makes of its events.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "../tests/media/literal_midi.h"
#include "media/midi_parser.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    const auto events = veloria::parseMidiEvents(bytes);
    require(events == veloria::test::LiteralMidi(bytes).events());
    const auto notes = veloria::pairMidiNotes(events);
    require(notes.size() * 2 <= events.size());
    const double last = veloria::lastNoteEnd(notes);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        require(i == 0 || !veloria::timeBefore(notes[i].start, notes[i - 1].start));
        require(!veloria::timeBefore(notes[i].end, notes[i].start));
        require(!veloria::timeBefore(last, notes[i].end));
    }
    return 0;
}
