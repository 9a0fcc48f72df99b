// Points and polygons around a middle, for the flat views. Main thread.
#pragma once

#include <SDL.h>

namespace veloria {

// Radians.
inline constexpr float kTurn = 6.2831855f;
inline constexpr float kQuarterTurn = 1.5707964f;

// The pixel at `radius` (pixels) from the middle; each distance is cut towards the middle. The angle
// (radians) grows clockwise from the right. Both are finite.
[[nodiscard]] SDL_Point ringPoint(SDL_Point middle, float radius, float angle);

// The same between the pixels.
[[nodiscard]] SDL_FPoint ringPointF(SDL_FPoint middle, float radius, float angle);

// One blended line a side, so that a corner is blended twice. The first corner stands at the angle `turn`.
void drawPolygon(SDL_Renderer* renderer, SDL_Point middle, float radius, int sides, float turn,
                 SDL_Color color);

}  // namespace veloria
