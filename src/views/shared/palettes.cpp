#include "views/shared/palettes.h"

#include <algorithm>

namespace veloria {

namespace {

// Not-a-number gives 0.
Uint8 channel(double value) {
    if (!(value > 0.0)) return 0;
    return static_cast<Uint8>(std::min(value, 255.0));
}

SDL_Color opaque(double red, double green, double blue) {
    return {channel(red), channel(green), channel(blue), 255};
}

}  // namespace

SDL_Color avatarColour(double frequency) {
    const double f = frequency;
    return opaque(255 * (f - 147) / 594, 255 * (f - 258) / 594, 255 * (f - 369) / 594);
}

SDL_Color chakraColour(double frequency) {
    const double f = frequency;
    if (f < 162) return opaque(f * 255 / 162, 0, 0);
    if (f < 285) return opaque(255, (f - 162) * 165 / 123, 0);
    if (f < 396) return opaque(255, (f - 285) * 90 / 111 + 165, 0);
    if (f < 528) return opaque(255 - (f - 396) * 255 / 132, 255, 0);
    if (f < 639) {
        const double u = (f - 528) / 111 * 255;
        return opaque(0, 255 - u, u);
    }
    if (f < 741) return opaque((f - 639) / 102 * 75, 0, 255 - (f - 639) / 102 * 125);
    if (f <= 963) return opaque((f - 741) / 222 * 180 + 75, 0, (f - 741) / 222 * 125 + 130);
    return opaque(255, 0, 255);
}

SDL_Color paletteColour(std::int32_t spectrumPalette, double hz) {
    return spectrumPalette == 0 ? avatarColour(hz) : chakraColour(hz);
}

}  // namespace veloria
