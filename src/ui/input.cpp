#include "ui/input.h"

namespace veloria {

bool pollEvents(AppState& /*app*/) {
    bool running = true;
    for (SDL_Event event; SDL_PollEvent(&event) != 0;) {
        if (event.type == SDL_QUIT) running = false;
    }
    return running;
}

}  // namespace veloria
