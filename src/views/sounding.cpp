#include "views/sounding.h"

#include <algorithm>
#include <cmath>

namespace veloria {

namespace {

// Halves and doubles end only where there is an octave to find.
bool isPitch(double hz) {
    return hz > 0.0 && std::isfinite(hz);
}

// An octave of `hz` from half to twice `frequency`, both ends inside: what sounds at twice the frequency
// stays there and is not taken for it.
double foldNear(double frequency, double hz) {
    while (hz > 2.0 * frequency)
        hz *= 0.5;
    while (hz < frequency / 2.0)
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
