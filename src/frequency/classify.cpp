#include "frequency/classify.h"

#include <cmath>

namespace veloria {

std::int32_t digitalRoot(double hz) {
    // Beyond this a double's whole part is no longer known to the unit, and soon no integer holds it.
    if (!(std::fabs(hz) < 9.0e15)) return 9;
    const auto root = static_cast<std::int32_t>(static_cast<std::int64_t>(hz) % 9);
    return root == 0 ? 9 : root;
}

const char* bandName(float hz) {
    if (!(hz > 0.0f)) return "";
    if (hz <= 4.0f) return "Delta";
    if (hz <= 8.0f) return "Theta";
    if (hz <= 13.0f) return "Alpha";
    if (hz <= 30.0f) return "Beta";
    return "Gamma";
}

}  // namespace veloria
