// Rendering frames into memory and writing them to a file.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "cli/session.h"

namespace veloria::cli {

inline constexpr std::size_t kBlockFrames = 512;  // as the audio device asks for

// A bar on standard error, drawn only on a terminal.
struct ProgressBar {
    bool shown = false;
    int lastPercent = -1;
};

[[nodiscard]] ProgressBar makeProgressBar(const Options& options);
void drawProgress(ProgressBar& bar, double fraction);
void endProgress(ProgressBar& bar);

// Renders `frames` frames to the end of `samples`.
void appendFrames(Session& session, std::size_t frames, std::vector<std::int16_t>& samples);

// Renders `frames` in blocks of kBlockFrames, calling `beforeBlock` with the frames rendered so far.
void renderBlocks(Session& session, std::size_t frames, const std::function<void(std::size_t)>& beforeBlock,
                  ProgressBar& bar, std::vector<std::int16_t>& samples);

// The exit status of a file that was written or not, and the words for one that was not.
[[nodiscard]] int outputStatus(const std::string& path, bool written);

// Writes the samples as a WAV file; the exit status.
[[nodiscard]] int writeOutput(const std::string& path, const std::vector<std::int16_t>& samples);

}  // namespace veloria::cli
