// veloria-cli render: what PLAY would sound of a music file, to a WAV file.
#pragma once

#include "cli/arguments.h"

namespace veloria::cli {

// Runs the sub-command; the exit status.
[[nodiscard]] int runRender(const Options& options);

}  // namespace veloria::cli
