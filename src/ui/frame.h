// One frame of the window, from back to front. Main thread.
#pragma once

#include "ui/app_state.h"

namespace veloria {

void renderFrame(AppState& app);

}  // namespace veloria
