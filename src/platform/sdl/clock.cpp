#include "platform/clock.h"

#include <SDL_timer.h>

namespace veloria::platform {

std::uint32_t ticksMs() {
    return SDL_GetTicks();
}

void waitMs(std::uint32_t milliseconds) {
    SDL_Delay(milliseconds);
}

}  // namespace veloria::platform
