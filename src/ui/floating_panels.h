// The floating panels over the main window.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Draws the open panels, the front one last.
void drawFloatingPanels(AppState& app);

}  // namespace veloria
