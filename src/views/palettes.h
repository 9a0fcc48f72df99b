// The two colours of a frequency.
#pragma once

#include <SDL.h>

namespace veloria {

// `frequency` in Hz. Each channel is held to 0 to 255 and then cut to a whole number; alpha 255.
[[nodiscard]] SDL_Color avatarColour(double frequency);
[[nodiscard]] SDL_Color chakraColour(double frequency);

}  // namespace veloria
