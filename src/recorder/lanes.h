// Packing notes onto the rows of the timeline.
#pragma once

#include <cstdint>
#include <vector>

#include "recorder/recorder.h"

namespace veloria {

// Up to 32 lanes, each remembering when its last note ends (s). A note takes the first free lane, or else a
// new one, or else, when all 32 are taken, the one that is free first.
struct LanePacker {
    std::vector<double> ends = {0.0};

    // The lane of a note (s); notes come in by ascending start.
    [[nodiscard]] std::int32_t place(double start, double end);
};

}  // namespace veloria
