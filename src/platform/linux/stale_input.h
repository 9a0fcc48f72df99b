// Input that came while a modal window stood in front of the program's own.
#pragma once

#include <cstdint>

namespace veloria::platform {

// Takes from SDL's queue the presses of buttons and keys, the wheel and the text that arrived at or after
// `sinceTicks` (of SDL_GetTicks): they were not meant for a window that was blocked. Releases stay, so that
// nothing hangs pressed, and so do quit and the window's own events.
void dropStaleInput(std::uint32_t sinceTicks);

}  // namespace veloria::platform
