// Colours made of colours.
#pragma once

#include <SDL.h>

namespace veloria {

// The same colour at alpha 0 to 255; values outside are cut.
[[nodiscard]] SDL_Color withAlpha(SDL_Color color, int alpha);

// Each of red, green and blue raised by `amount`, capped at 255; the alpha stays.
[[nodiscard]] SDL_Color brighten(SDL_Color color, int amount);

// Hue in degrees (any, taken round the circle), saturation and lightness 0 to 1. Single precision, each
// channel truncated; alpha 255.
[[nodiscard]] SDL_Color hslToRgb(float hue, float saturation, float lightness);

}  // namespace veloria
