// Opening and closing the window with its fonts and renderer. Main thread.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Starts SDL, the fonts, the window and its renderer. False when the program cannot go on, also where
// there is no display to show the window on; what was opened
// until then is left to shutdownWindowAndFonts. A missing font or icon is no failure.
[[nodiscard]] bool initWindowAndFonts(AppState& app, const char* title, int width, int height);

// Closes what is open; may be called after a failed start.
void shutdownWindowAndFonts(AppState& app);

}  // namespace veloria
