// Milliseconds since the program's start, and waiting. Only the main loop and the loading of files ask for
// these; everything else is handed its ticks.
#pragma once

#include <cstdint>

namespace veloria::platform {

[[nodiscard]] std::uint32_t ticksMs();
void waitMs(std::uint32_t milliseconds);

}  // namespace veloria::platform
