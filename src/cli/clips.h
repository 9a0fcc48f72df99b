// veloria-cli clips: the recorder clips that an import of a MIDI file makes, as CSV.
#pragma once

#include "cli/arguments.h"

namespace veloria::cli {

// Runs the sub-command; the exit status.
[[nodiscard]] int runClips(const Options& options);

}  // namespace veloria::cli
