// How far the side panels are scrolled, and how far they may be. Main thread.
#pragma once

#include "ui/app_state.h"

namespace veloria {

inline constexpr int kNotchPixels = 30;  // of the wheel

// Takes over the stored sizes for a window of this size. Every scroll offset is held within what there is now
// to scroll: a larger window, a wider panel or a shorter list leaves none at an empty end.
void layOutWindow(AppState& app, int windowW, int windowH);

// How far the shown tab of the left panel can be scrolled, pixels; 0 where all of it is seen.
[[nodiscard]] int maxLeftScroll(const AppState& app);

// Where the shown tab stands, within that.
[[nodiscard]] int shownLeftScroll(const AppState& app);

}  // namespace veloria
