// veloria-cli walk: the scale walker from its start, to a WAV file.
#pragma once

#include "cli/arguments.h"

namespace veloria::cli {

// Runs the sub-command; the exit status.
[[nodiscard]] int runWalk(const Options& options);

}  // namespace veloria::cli
