// What the user does to the window. Main thread.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Drains the event queue. False once the window is to be closed.
[[nodiscard]] bool pollEvents(AppState& app);

// One event, offered to everything in the window in a fixed order; the first taker ends its way. Before the
// first layout nothing takes any.
void handleEvent(AppState& app, const SDL_Event& event);

// A left click that no control above took: top bar, tabs, buttons and rows.
void handleClick(AppState& app, int x, int y);

}  // namespace veloria
