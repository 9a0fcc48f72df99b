// Folding a frequency into the band that the views show.
#pragma once

#include <cmath>

namespace veloria {

// The same note between 100 and under 1000 Hz: halved while it is 1000 or more, doubled while it is under
// 100. The note tuner's fold keeps 1000.0 as it is; this one makes 500.0 of it. A value that is not above 0
// or not finite has no such octave and comes back as it is.
[[nodiscard]] inline double foldForView(double hz) {
    if (!(hz > 0.0) || !std::isfinite(hz)) return hz;
    while (hz >= 1000.0)
        hz *= 0.5;
    while (hz < 100.0)
        hz *= 2.0;
    return hz;
}

}  // namespace veloria
