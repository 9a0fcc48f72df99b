// How much of the retuned sound is heard.
#pragma once

#include "spectral/sacred_fft.h"

namespace veloria {

// The share of the retuned sound, 0 to 1.
[[nodiscard]] inline float strengthOf(const RetunerSettings& settings) {
    return static_cast<float>(settings.strength) * 0.01f;
}

// False at 100 %, where nothing is mixed, so that full strength costs nothing extra.
[[nodiscard]] inline bool isMixed(float strength) {
    return strength < 0.999f;
}

}  // namespace veloria
