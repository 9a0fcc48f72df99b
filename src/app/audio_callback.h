// The audio thread's way in.
#pragma once

#include <cstdint>

#include "ui/app_state.h"

namespace veloria {

// What the callback speaks to: set by the entry function right after each object was made, before the device
// opens, and never changed while it runs.
extern SynthEngine* g_engine;
extern AppState* g_app;

// SDL's audio callback: stereo 32-bit float. Leaves the buffer untouched while there is no engine.
void audioCallback(void* userdata, std::uint8_t* stream, int byteCount);

}  // namespace veloria
