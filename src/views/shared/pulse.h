// How what is drawn breathes.
#pragma once

#include <cmath>

namespace veloria {

// From 0.4 to 1, by the sine of an angle in radians. An angle that is no number stands still.
[[nodiscard]] inline float pulseAt(float angle) {
    return std::isfinite(angle) ? std::sin(angle) * 0.3f + 0.7f : 0.7f;
}

}  // namespace veloria
