// What the user does to the window. Main thread.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Drains the event queue. False once the window is to be closed.
[[nodiscard]] bool pollEvents(AppState& app);

}  // namespace veloria
