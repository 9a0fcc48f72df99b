#include "toolkit/primitives.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "toolkit/parallel_lines.h"

namespace veloria {

namespace {

void setColor(SDL_Renderer* renderer, SDL_Color color, SDL_BlendMode blend) {
    SDL_SetRenderDrawBlendMode(renderer, blend);
    SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
}

}  // namespace

void fillRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color, SDL_BlendMode blend) {
    if (rect.w <= 0 || rect.h <= 0) return;
    // An opaque colour covers what is there: the same pixels, many times faster where the processor draws
    // them.
    const bool covers = blend == SDL_BLENDMODE_BLEND && color.a == SDL_ALPHA_OPAQUE;
    setColor(renderer, color, covers ? SDL_BLENDMODE_NONE : blend);
    SDL_RenderFillRect(renderer, &rect);
}

void outlineRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color, SDL_BlendMode blend) {
    if (rect.w <= 0 || rect.h <= 0) return;
    std::array<SDL_Rect, 4> sides{};
    int count = 0;
    const auto add = [&](const SDL_Rect& side) { sides[static_cast<std::size_t>(count++)] = side; };
    add({rect.x, rect.y, rect.w, 1});
    if (rect.h > 1) add({rect.x, rect.y + rect.h - 1, rect.w, 1});
    if (rect.h > 2) add({rect.x, rect.y + 1, 1, rect.h - 2});
    if (rect.h > 2 && rect.w > 1) add({rect.x + rect.w - 1, rect.y + 1, 1, rect.h - 2});
    setColor(renderer, color, blend);
    SDL_RenderFillRects(renderer, sides.data(), count);
}

void hLine(SDL_Renderer* renderer, int x0, int x1, int y, SDL_Color color, SDL_BlendMode blend) {
    fillRect(renderer, {std::min(x0, x1), y, std::abs(x1 - x0) + 1, 1}, color, blend);
}

void vLine(SDL_Renderer* renderer, int x, int y0, int y1, SDL_Color color, SDL_BlendMode blend) {
    fillRect(renderer, {x, std::min(y0, y1), 1, std::abs(y1 - y0) + 1}, color, blend);
}

void drawLine(SDL_Renderer* renderer, int x0, int y0, int x1, int y1, SDL_Color color, SDL_BlendMode blend) {
    // The software renderer draws nothing for a blended line of one pixel, the others do.
    if (x0 == x1 && y0 == y1) {
        drawPoint(renderer, x0, y0, color, blend);
        return;
    }
    setColor(renderer, color, blend);
    SDL_RenderDrawLine(renderer, x0, y0, x1, y1);
}

void drawPoint(SDL_Renderer* renderer, int x, int y, SDL_Color color, SDL_BlendMode blend) {
    setColor(renderer, color, blend);
    SDL_RenderDrawPoint(renderer, x, y);
}

void drawThickLine2d(SDL_Renderer* renderer, int x0, int y0, int x1, int y1, SDL_Color color, int width,
                     SDL_BlendMode blend) {
    const float dx = static_cast<float>(x1 - x0);
    const float dy = static_cast<float>(y1 - y0);
    const float length = std::sqrt(dx * dx + dy * dy);
    if (length < 0.1f) return;
    setColor(renderer, color, blend);
    for (int k = -(width / 2); k <= width / 2; ++k) {
        const int shiftX = static_cast<int>(static_cast<float>(k) * -dy / length);
        const int shiftY = static_cast<int>(static_cast<float>(k) * dx / length);
        SDL_RenderDrawLine(renderer, x0 + shiftX, y0 + shiftY, x1 + shiftX, y1 + shiftY);
    }
}

void drawThickLine2dF(SDL_Renderer* renderer, float x0, float y0, float x1, float y1, SDL_Color color,
                      int width, SDL_BlendMode blend) {
    setColor(renderer, color, blend);
    parallelLinesF(x0, y0, x1, y1, width, [=](float fromX, float fromY, float toX, float toY) {
        SDL_RenderDrawLineF(renderer, fromX, fromY, toX, toY);
    });
}

void fillCircle(SDL_Renderer* renderer, int cx, int cy, int radius, SDL_Color color, SDL_BlendMode blend) {
    setColor(renderer, color, blend);
    std::array<SDL_Rect, 64> rows;
    int count = 0;
    for (int dy = -radius; dy <= radius; ++dy) {
        const double square = static_cast<double>(radius) * radius - static_cast<double>(dy) * dy;
        const int half = static_cast<int>(std::sqrt(square));
        rows[static_cast<std::size_t>(count++)] = {cx - half, cy + dy, 2 * half + 1, 1};
        if (count == static_cast<int>(rows.size()) || dy == radius) {
            SDL_RenderFillRects(renderer, rows.data(), count);
            count = 0;
        }
    }
}

ClipGuard::ClipGuard(SDL_Renderer* target, const SDL_Rect& area)
    : renderer(target), wasSet(SDL_RenderIsClipEnabled(target) == SDL_TRUE) {
    SDL_Rect clip = area;
    if (wasSet) {
        SDL_RenderGetClipRect(renderer, &previous);
        // No overlap leaves an empty rectangle, through which nothing is drawn.
        if (SDL_IntersectRect(&area, &previous, &clip) == SDL_FALSE) clip = {area.x, area.y, 0, 0};
    }
    SDL_RenderSetClipRect(renderer, &clip);
}

ClipGuard::~ClipGuard() {
    SDL_RenderSetClipRect(renderer, wasSet ? &previous : nullptr);
}

}  // namespace veloria
