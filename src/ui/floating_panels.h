// The floating panels over the main window.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Draws the open panels, the front one last.
void drawFloatingPanels(AppState& app);

// Does a floating panel or the calculator lie over the point?
[[nodiscard]] bool isUnderFloatingWindow(const AppState& app, int x, int y);

}  // namespace veloria
