// Rendering frames into a file, block by block: no more than a block of sound is ever held.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "cli/progress.h"
#include "cli/session.h"
#include "media/wav_writer.h"

namespace veloria::cli {

inline constexpr std::size_t kBlockFrames = 512;  // as the audio device asks for

// Why a file was not made, and the file that is to blame; nothing when all went well.
struct Fault {
    std::string file;
    std::string reason;

    [[nodiscard]] bool none() const { return reason.empty(); }
};

// "veloria-cli: FILE: reason", a whole line.
[[nodiscard]] std::string faultLine(const Fault& fault);

// The exit status of a run with this fault, which is told.
[[nodiscard]] int statusOf(const Fault& fault);

// The fault of a file that was written or not.
[[nodiscard]] Fault writeFault(const std::string& path, bool written);

// Where one file's progress is told.
struct ProgressOfFile {
    ProgressBar& bar;
    std::size_t file = 0;
};

// Renders the next `frames` frames into the file. False when they cannot be written or the run is
// interrupted.
[[nodiscard]] bool appendFrames(Session& session, std::size_t frames, WavFile& file);

// Renders `frames` frames to a whole file at `path` in blocks of kBlockFrames, calling `beforeBlock` with the
// frames rendered so far.
[[nodiscard]] Fault renderBlocks(Session& session, std::size_t frames,
                                 const std::function<void(std::size_t)>& beforeBlock, const std::string& path,
                                 const ProgressOfFile& progress);

}  // namespace veloria::cli
