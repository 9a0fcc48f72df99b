// One frame of the window, from back to front. Main thread.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Advances what depends on time, draws everything and presents it. `nowMs` is the tick of this frame.
void renderFrame(AppState& app, std::uint32_t nowMs);

// The same without the presenting, so that a test can read the picture.
void composeFrame(AppState& app, std::uint32_t nowMs);

}  // namespace veloria
