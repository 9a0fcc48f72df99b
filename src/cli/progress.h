// How far a run is: a bar on standard error, drawn only on a terminal.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

#include "cli/arguments.h"

namespace veloria::cli {

// One bar over all files of a run. Any thread may tell; `shown` never changes.
struct ProgressBar {
    ProgressBar(const Options& options, std::size_t files);

    const bool shown;
    std::vector<std::atomic<float>> fractions;  // of each file, 0 to 1
    std::mutex drawing;                         // of the terminal and what follows
    int lastPercent = -1;
    std::size_t lastDone = 0;
};

// Tells how far file number `file` is, 0 to 1.
void drawProgress(ProgressBar& bar, std::size_t file, double fraction);

// Writes a line of its own, with its newline, to `stream`, above the bar.
void printLine(ProgressBar& bar, std::FILE* stream, const std::string& line);

// Leaves the bar as it stands. To be called when nobody tells any more.
void endProgress(ProgressBar& bar);

}  // namespace veloria::cli
