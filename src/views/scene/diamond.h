// Squares that stand on a corner, of up to kMaxDiamond pixels from the middle to it. Every pixel is blended
// once. Main thread.
#pragma once

#include <SDL.h>

namespace veloria {

inline constexpr int kMaxDiamond = 32;

void fillDiamond(SDL_Renderer* renderer, int x, int y, int radius, SDL_Color colour);
void outlineDiamond(SDL_Renderer* renderer, int x, int y, int radius, SDL_Color colour);

}  // namespace veloria
