// What stands over the window while an export runs: how far it is, and a button that ends it. Nothing else in
// the window takes an event meanwhile. Main thread.
#pragma once

#include <vector>

#include "ui/app_state.h"

namespace veloria {

struct ExportOverlayLayout {
    SDL_Rect box;     // in the middle of the window
    SDL_Rect text;    // its upper part
    SDL_Rect track;   // the bar at its foot
    SDL_Rect cancel;  // the button at its right
};

[[nodiscard]] ExportOverlayLayout exportOverlayLayout(const WindowLayout& layout);

// `progress` 0 to 1, values outside are cut.
void drawExportOverlay(const AppState& app, float progress);

// The window's events during an export.
struct ExportEvents {
    std::vector<SDL_Event> kept;  // for the window, when the export is over
};

// Drains the event queue. False when the user ends the export: by Escape, by the button or by closing the
// window, which is kept. So are releases, so that nothing that was held before stays so; all other presses
// are nobody's.
[[nodiscard]] bool exportGoesOn(AppState& app, ExportEvents& events);

// Puts what was kept back into the queue.
void giveBackEvents(ExportEvents& events);

}  // namespace veloria
