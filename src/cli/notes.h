// veloria-cli notes: the tuned notes of a MIDI file as CSV.
#pragma once

#include "cli/arguments.h"

namespace veloria::cli {

// Runs the sub-command; the exit status.
[[nodiscard]] int runNotes(const Options& options);

}  // namespace veloria::cli
