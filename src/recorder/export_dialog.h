// The button EXPORT: asks for a file name and renders the arrangement into it, with the window kept alive.
#pragma once

#include <cstdint>
#include <functional>

#include "engine/scope_buffer.h"
#include "media/midi_file.h"
#include "recorder/recorder.h"

namespace veloria {

// What an export needs of the program around it. Each may be missing.
struct ExportSurroundings {
    MidiFile* midi = nullptr;      // paused while the engine's clock is taken away, if it plays
    bool* exporting = nullptr;     // true while rendering: frames must then not begin or end any voice
    ScopeBuffer* scope = nullptr;  // emptied afterwards, under AudioLock
    std::function<bool()> goesOn;  // takes the window's events; false when the user ends the export
    std::function<void(std::uint32_t nowMs)> drawFrame;  // a whole frame; may throw for want of memory
    std::function<void()>
        resetViews;  // afterwards: what the views have gathered of the sound, and the frame clock
};

// Returns at once without clips. Else asks for the path, pauses the device, drops all of the engine's voices
// and renders; a cancelled dialog changes nothing. The user is told nothing of the outcome, and one who ends
// it finds no file. The arrangement, if playing, goes on where it was. Main thread.
void exportRecorderDialog(Recorder& recorder, SynthEngine& engine, const ExportSurroundings& surroundings);

}  // namespace veloria
