// veloria-cli obj: the figure of the 3-D scene as a Wavefront OBJ file.
#pragma once

#include "cli/arguments.h"

namespace veloria::cli {

// Runs the sub-command; the exit status.
[[nodiscard]] int runObj(const Options& options);

}  // namespace veloria::cli
