// What the main thread does for the sound, whether frames are drawn or a dialog stands. Main thread.
#pragma once

#include <cstdint>

#include "ui/app_state.h"

namespace veloria {

// Hands the notes of a playing MIDI file that begin within the look-ahead to the engine.
void feedNotes(AppState& app);

// All of it at `nowMs`: the notes, the file's end (which loads the file anew), the recorder, the walker. Once
// a frame, and every few milliseconds while a dialog stands. Again at the same `nowMs` it does nothing; while
// an export has the engine's voices it only takes the time over.
void tickSound(AppState& app, std::uint32_t nowMs);

}  // namespace veloria
