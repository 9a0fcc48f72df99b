#include "cli/output.h"

#include <algorithm>
#include <array>

#include "cli/interrupt.h"

namespace veloria::cli {

namespace {

using Block = std::array<float, 2 * kBlockFrames>;

// The next `frames` frames, at most kBlockFrames, as the device would have them.
void renderBlock(Session& session, std::size_t frames, Block& block) {
    mixOutput(session.sources(), session.gains, block.data(), frames, nullptr);
}

bool writeBlock(const Block& block, std::size_t frames, WavFile& file) {
    std::array<std::int16_t, 2 * kBlockFrames> samples;
    toSamples16({block.data(), 2 * frames}, samples.data());
    return file.write({samples.data(), 2 * frames});
}

}  // namespace

std::string faultLine(const Fault& fault) {
    return "veloria-cli: " + fault.file + ": " + fault.reason + "\n";
}

int statusOf(const Fault& fault) {
    return fault.none() ? kDone : fail(fault.file, fault.reason);
}

Fault writeFault(const std::string& path, bool written) {
    if (written) return {};
    return {path, interrupted() ? "interrupted" : "cannot be written"};
}

bool appendFrames(Session& session, std::size_t frames, WavFile& file) {
    Block block;
    while (frames > 0) {
        if (interrupted()) return false;
        const std::size_t count = std::min(frames, kBlockFrames);
        renderBlock(session, count, block);
        if (!writeBlock(block, count, file)) return false;
        frames -= count;
    }
    return true;
}

Fault renderBlocks(Session& session, std::size_t frames, const std::function<void(std::size_t)>& beforeBlock,
                   const std::string& path, const ProgressOfFile& progress) {
    WavFile file(path, frames);
    bool written = file.good();
    for (std::size_t done = 0; written && done < frames;) {
        beforeBlock(done);
        const std::size_t count = std::min(kBlockFrames, frames - done);
        written = appendFrames(session, count, file);
        done += count;
        drawProgress(progress.bar, progress.file, static_cast<double>(done) / static_cast<double>(frames));
    }
    return writeFault(path, written && file.finish());
}

}  // namespace veloria::cli
