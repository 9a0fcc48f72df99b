#include "toolkit/line_batch.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "toolkit/parallel_lines.h"

namespace veloria {

namespace {

constexpr float kFarthest = 16384.0f;  // pixels

bool isNear(float value) {
    return std::fabs(value) <= kFarthest;  // a NaN is not
}

}  // namespace

void addLineF(LineBatch& batch, float x0, float y0, float x1, float y1) {
    if (!isNear(x0) || !isNear(y0) || !isNear(x1) || !isNear(y1)) return;
    const int fromX = static_cast<int>(x0);
    const int fromY = static_cast<int>(y0);
    const int dx = static_cast<int>(x1) - fromX;
    const int dy = static_cast<int>(y1) - fromY;
    if (dx == 0 && dy == 0) return;
    const bool isFlat = std::abs(dx) >= std::abs(dy);
    const int longSide = isFlat ? std::abs(dx) : std::abs(dy);
    const int shortSide = isFlat ? std::abs(dy) : std::abs(dx);
    const float signX = dx < 0 ? -1.0f : 1.0f;
    const float signY = dy < 0 ? -1.0f : 1.0f;
    // Every pixel goes one along the long side; when the error has run up, one along the short side too.
    const SDL_FPoint straight = isFlat ? SDL_FPoint{signX, 0.0f} : SDL_FPoint{0.0f, signY};
    const SDL_FPoint oblique{signX, signY};
    SDL_FPoint at{static_cast<float>(fromX), static_cast<float>(fromY)};
    int error = 2 * shortSide - longSide;
    std::size_t end = batch.points.size();
    batch.points.resize(end + static_cast<std::size_t>(longSide) + 1);
    for (; end < batch.points.size(); ++end) {
        batch.points[end] = at;
        const bool turns = error >= 0;
        const SDL_FPoint step = turns ? oblique : straight;
        at = {at.x + step.x, at.y + step.y};
        error += 2 * (turns ? shortSide - longSide : shortSide);
    }
}

void addThickLine2dF(LineBatch& batch, float x0, float y0, float x1, float y1, int width) {
    parallelLinesF(x0, y0, x1, y1, width, [&](float fromX, float fromY, float toX, float toY) {
        addLineF(batch, fromX, fromY, toX, toY);
    });
}

void drawBatch(SDL_Renderer* renderer, LineBatch& batch, SDL_Color color, SDL_BlendMode blend) {
    if (batch.points.empty()) return;
    SDL_SetRenderDrawBlendMode(renderer, blend);
    SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
    SDL_RenderDrawPointsF(renderer, batch.points.data(), static_cast<int>(batch.points.size()));
    batch.points.clear();
}

}  // namespace veloria
