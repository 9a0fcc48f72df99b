#include "toolkit/color.h"

#include <algorithm>
#include <cmath>

namespace veloria {

namespace {

Uint8 toByte(int value) {
    return static_cast<Uint8>(std::clamp(value, 0, 255));
}

Uint8 channel(float value) {
    return toByte(static_cast<int>(value * 255.0f));
}

}  // namespace

SDL_Color withAlpha(SDL_Color color, int alpha) {
    return {color.r, color.g, color.b, toByte(alpha)};
}

SDL_Color brighten(SDL_Color color, int amount) {
    return {toByte(color.r + amount), toByte(color.g + amount), toByte(color.b + amount), color.a};
}

SDL_Color hslToRgb(float hue, float saturation, float lightness) {
    float degrees = std::fmod(hue, 360.0f);
    if (degrees < 0.0f) degrees += 360.0f;
    const float chroma = (1.0f - std::fabs(2.0f * lightness - 1.0f)) * saturation;
    const float middle = chroma * (1.0f - std::fabs(std::fmod(degrees / 60.0f, 2.0f) - 1.0f));
    const float offset = lightness - chroma / 2.0f;
    const Uint8 c = channel(chroma + offset);
    const Uint8 x = channel(middle + offset);
    const Uint8 zero = channel(offset);
    switch (static_cast<int>(degrees / 60.0f)) {
        case 0:
            return {c, x, zero, 255};
        case 1:
            return {x, c, zero, 255};
        case 2:
            return {zero, c, x, 255};
        case 3:
            return {zero, x, c, 255};
        case 4:
            return {x, zero, c, 255};
        default:
            return {c, zero, x, 255};
    }
}

}  // namespace veloria
