// veloria-cli render: what PLAY would sound of a music file, to a WAV file.
#pragma once

#include <cstddef>

#include "cli/arguments.h"

namespace veloria::cli {

inline constexpr std::size_t kTailFrames = 44100;  // a second for what still rings

// True when `frames` frames of music (not cut to whole ones yet) and the tail are no more than a WAV file can
// hold.
[[nodiscard]] bool fitsWavFile(double frames);

// Runs the sub-command; the exit status.
[[nodiscard]] int runRender(const Options& options);

}  // namespace veloria::cli
