// veloria-cli render: what PLAY would sound of a music file, to a WAV file.
#pragma once

#include <cstddef>
#include <string>

#include "cli/output.h"

namespace veloria::cli {

inline constexpr std::size_t kTailFrames = 44100;  // a second for what still rings

// True when `frames` frames of music (not cut to whole ones yet) and the tail are no more than a WAV file can
// hold.
[[nodiscard]] bool fitsWavFile(double frames);

// Renders one file to another. What comes out depends on the input and the options alone. Any thread.
[[nodiscard]] Fault renderFile(const Options& options, const std::string& input, const std::string& output,
                               const ProgressOfFile& progress);

// Runs the sub-command with one input and one output; the exit status.
[[nodiscard]] int runRender(const Options& options);

}  // namespace veloria::cli
