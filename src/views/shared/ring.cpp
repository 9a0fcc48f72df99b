#include "views/shared/ring.h"

#include <cmath>

#include "toolkit/primitives.h"

namespace veloria {

SDL_Point ringPoint(SDL_Point middle, float radius, float angle) {
    return {middle.x + static_cast<int>(std::cos(angle) * radius),
            middle.y + static_cast<int>(std::sin(angle) * radius)};
}

SDL_FPoint ringPointF(SDL_FPoint middle, float radius, float angle) {
    return {middle.x + std::cos(angle) * radius, middle.y + std::sin(angle) * radius};
}

void drawPolygon(SDL_Renderer* renderer, SDL_Point middle, float radius, int sides, float turn,
                 SDL_Color color) {
    SDL_Point from = ringPoint(middle, radius, turn);
    for (int k = 1; k <= sides; ++k) {
        const float angle = static_cast<float>(k) * kTurn / static_cast<float>(sides) + turn;
        const SDL_Point to = ringPoint(middle, radius, angle);
        drawLine(renderer, from.x, from.y, to.x, to.y, color);
        from = to;
    }
}

}  // namespace veloria
