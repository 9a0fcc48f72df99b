// veloria-cli render with --out-dir: many files, several at once.
#pragma once

#include <string>
#include <vector>

#include "cli/arguments.h"

namespace veloria::cli {

// One file of a run, from and to.
struct BatchFile {
    std::string input;
    std::string output;
};

// `input`'s name in the folder, with .wav in place of its extension.
[[nodiscard]] std::string outputIn(const std::string& folder, const std::string& input);

// What is to be rendered from and to; empty, with the reason, when two inputs would give one output or an
// output is one of the inputs.
[[nodiscard]] std::vector<BatchFile> planBatch(const Options& options, std::string& error);

// Renders all of them; the exit status. Makes the folder when it is missing. One line a file, in the order in
// which they are done, and at the end those that failed.
[[nodiscard]] int runBatch(const Options& options);

}  // namespace veloria::cli
