#include "views/scene/diamond.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace veloria {

namespace {

constexpr std::size_t kRows = 2 * kMaxDiamond + 1;

void setColour(SDL_Renderer* renderer, SDL_Color colour) {
    SDL_SetRenderDrawBlendMode(renderer, SDL_BLENDMODE_BLEND);
    SDL_SetRenderDrawColor(renderer, colour.r, colour.g, colour.b, colour.a);
}

}  // namespace

void fillDiamond(SDL_Renderer* renderer, int x, int y, int radius, SDL_Color colour) {
    const int size = std::clamp(radius, 0, kMaxDiamond);
    std::array<SDL_Rect, kRows> rows;
    int count = 0;
    for (int dy = -size; dy <= size; ++dy) {
        const int half = size - std::abs(dy);
        rows[static_cast<std::size_t>(count++)] = {x - half, y + dy, 2 * half + 1, 1};
    }
    setColour(renderer, colour);
    SDL_RenderFillRects(renderer, rows.data(), count);
}

void outlineDiamond(SDL_Renderer* renderer, int x, int y, int radius, SDL_Color colour) {
    const int size = std::clamp(radius, 0, kMaxDiamond);
    std::array<SDL_Point, 2 * kRows> points;
    int count = 0;
    for (int dy = -size; dy <= size; ++dy) {
        const int half = size - std::abs(dy);
        points[static_cast<std::size_t>(count++)] = {x - half, y + dy};
        if (half > 0) points[static_cast<std::size_t>(count++)] = {x + half, y + dy};
    }
    setColour(renderer, colour);
    SDL_RenderDrawPoints(renderer, points.data(), count);
}

}  // namespace veloria
