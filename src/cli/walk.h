// veloria-cli walk: the scale walker from its start, to a WAV file.
#pragma once

#include <cstddef>

#include "cli/arguments.h"

namespace veloria::cli {

// Frames of a walk of `seconds` (0 or above): whole frames, with what lies within a millionth of a frame of a
// whole number taken as that number.
[[nodiscard]] std::size_t walkFrames(double seconds);

// Runs the sub-command; the exit status.
[[nodiscard]] int runWalk(const Options& options);

}  // namespace veloria::cli
