// The two colours of a frequency.
#pragma once

#include <SDL.h>

#include <cstdint>

namespace veloria {

// `frequency` in Hz. Each channel is held to 0 to 255 and then cut to a whole number; alpha 255.
[[nodiscard]] SDL_Color avatarColour(double frequency);
[[nodiscard]] SDL_Color chakraColour(double frequency);

// `spectrumPalette` is 0 for the Avatar palette and anything else for the Chakra one.
[[nodiscard]] SDL_Color paletteColour(std::int32_t spectrumPalette, double hz);

}  // namespace veloria
