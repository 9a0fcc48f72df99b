#include "platform/linux/stale_input.h"

#include <SDL_events.h>
#include <SDL_timer.h>

namespace veloria::platform {

namespace {

bool isBlockedInput(std::uint32_t type) {
    switch (type) {
        case SDL_MOUSEBUTTONDOWN:
        case SDL_MOUSEWHEEL:
        case SDL_KEYDOWN:
        case SDL_TEXTINPUT:
        case SDL_TEXTEDITING:
        case SDL_TEXTEDITING_EXT:
            return true;
        default:
            return false;
    }
}

int SDLCALL keepEvent(void* sinceTicks, SDL_Event* event) {
    const std::uint32_t since = *static_cast<const std::uint32_t*>(sinceTicks);
    const bool arrivedMeanwhile = SDL_TICKS_PASSED(event->common.timestamp, since);
    return isBlockedInput(event->type) && arrivedMeanwhile ? 0 : 1;
}

}  // namespace

void dropStaleInput(std::uint32_t sinceTicks) {
    SDL_FilterEvents(keepEvent, &sinceTicks);
}

}  // namespace veloria::platform
