#include "views/scene/geometry/sounding.h"

#include <algorithm>
#include <cmath>

namespace veloria {

namespace {

// Halves and doubles end only where there is an octave to find.
bool isPitch(double hz) {
    return hz > 0.0 && std::isfinite(hz);
}

// The octave of `hz` between half and twice `frequency`, both ends outside: what sounds a whole octave above
// or below comes home.
double foldNear(double frequency, double hz) {
    while (hz >= 2.0 * frequency)
        hz *= 0.5;
    while (hz <= frequency / 2.0)
        hz *= 2.0;
    return hz;
}

bool isOctaveWithin(double frequency, double hz, double share) {
    return isPitch(hz) && std::fabs(foldNear(frequency, hz) - frequency) < share * frequency;
}

}  // namespace

bool isSoundingNear(double frequency, std::span<const float> sounding) {
    if (!isPitch(frequency)) return false;
    return std::any_of(sounding.begin(), sounding.end(),
                       [=](float hz) { return isOctaveWithin(frequency, hz, 0.03); });
}

bool isSoundingExact(double frequency, std::span<const float> sounding) {
    if (!isPitch(frequency)) return false;
    return std::any_of(sounding.begin(), sounding.end(), [=](double hz) {
        if (std::fabs(hz - frequency) < 0.5) return true;
        if (hz >= 100.0 && hz < 1000.0) return false;
        return isOctaveWithin(frequency, hz, 0.02);
    });
}

}  // namespace veloria
