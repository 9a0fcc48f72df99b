// The floating panels over the main window.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Keeps the open panels and the calculator within reach: one that has just been opened, and all of them when
// the window's size has changed, are moved so that their title bars lie inside the window. A panel that was
// made larger than the window is cut to it, or its boxes and its corner would lie outside. Once a frame, when
// the layout is known.
void settleFloatingWindows(AppState& app);

// Draws the open panels, the front one last.
void drawFloatingPanels(AppState& app);

// Does a floating panel or the calculator lie over the point?
[[nodiscard]] bool isUnderFloatingWindow(const AppState& app, int x, int y);

}  // namespace veloria
