#include "ui/frame.h"

namespace veloria {

void renderFrame(AppState& app) {
    SDL_GetWindowSize(app.window, &app.windowW, &app.windowH);
    const SDL_Color& background = app.theme.themeBackground;
    SDL_SetRenderDrawColor(app.renderer, background.r, background.g, background.b, background.a);
    SDL_RenderClear(app.renderer);
    SDL_RenderPresent(app.renderer);
}

}  // namespace veloria
