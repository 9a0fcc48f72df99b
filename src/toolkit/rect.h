// Questions to a rectangle.
#pragma once

#include <SDL.h>

namespace veloria {

// Its right and lower edges lie outside it; an empty one contains nothing.
[[nodiscard]] constexpr bool contains(const SDL_Rect& rect, int x, int y) {
    return x >= rect.x && x < rect.x + rect.w && y >= rect.y && y < rect.y + rect.h;
}

[[nodiscard]] constexpr bool isEmpty(const SDL_Rect& rect) {
    return rect.w <= 0 || rect.h <= 0;
}

}  // namespace veloria
