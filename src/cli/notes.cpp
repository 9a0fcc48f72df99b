#include "cli/notes.h"

#include <cstdio>

#include "base/fixed_text.h"
#include "cli/session.h"
#include "frequency/ratio_table.h"
#include "media/midi_tuning.h"

namespace veloria::cli {

int runNotes(const Options& options) {
    const auto session = makeSession(options);
    const std::string& path = options.files[0];
    const std::string fault = loadMidi(*session, path);
    if (!fault.empty()) return fail(path, fault);

    std::fputs("index,start,end,key,velocity,channel,frequency,ratio,pan\n", stdout);
    std::size_t index = 0;
    for (const MidiNote& note : session->midi.notes) {
        const double hz = midiToFrequency(session->engine, note.note, note.channel);
        std::printf("%zu,%s,%s,%d,%s,%d,%s,%s,%s\n", index++, fixedText(note.start, 9).c_str(),
                    fixedText(note.end, 9).c_str(), note.note, fixedText(note.velocity, 6).c_str(),
                    note.channel, fixedText(hz, 9).c_str(), ratioLabel(session->engine.midiTuningTag),
                    fixedText(note.pan, 1).c_str());
    }
    std::fprintf(stderr, "%zu notes, %d binaural pairs, %s s\n", session->midi.notes.size(),
                 session->midi.binauralPairs, fixedText(session->midi.duration, 3).c_str());
    return finishOutput();
}

}  // namespace veloria::cli
