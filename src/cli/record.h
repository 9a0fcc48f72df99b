// veloria-cli record: a MIDI file imported into the recorder, and the recorder exported to a WAV file.
#pragma once

#include "cli/arguments.h"

namespace veloria::cli {

// Runs the sub-command; the exit status.
[[nodiscard]] int runRecord(const Options& options);

}  // namespace veloria::cli
