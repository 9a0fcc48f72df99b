// The welcome: a glowing word over the main view for the first seven seconds.
#pragma once

#include <cstdint>

#include "toolkit/draw_context.h"

namespace veloria {

// Draws the welcome in the middle of the window, as it looks at context.ticks. `splashStart` is the tick (ms)
// at which it began; it becomes 0 once the welcome is over, and with 0 nothing is drawn. Nothing is drawn
// without the splash font either. Main thread.
void drawWelcomeSplash(const DrawContext& context, std::uint32_t& splashStart);

}  // namespace veloria
