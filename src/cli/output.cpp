#include "cli/output.h"

#include <algorithm>
#include <array>
#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "media/wav_writer.h"

namespace veloria::cli {

namespace {

bool isTerminal() {
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(fileno(stderr)) != 0;
#endif
}

}  // namespace

ProgressBar makeProgressBar(const Options& options) {
    return {!options.quiet && isTerminal(), -1};
}

void drawProgress(ProgressBar& bar, double fraction) {
    if (!bar.shown) return;
    const int percent = static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100.0);
    if (percent == bar.lastPercent) return;
    bar.lastPercent = percent;
    const std::string done(static_cast<std::size_t>(percent / 2), '#');
    std::fprintf(stderr, "\r[%-50s] %3d%%", done.c_str(), percent);
}

void endProgress(ProgressBar& bar) {
    if (bar.shown) std::fputs("\n", stderr);
    bar.shown = false;
}

void appendFrames(Session& session, std::size_t frames, std::vector<std::int16_t>& samples) {
    std::array<float, 2 * kBlockFrames> block;
    while (frames > 0) {
        const std::size_t count = std::min(frames, kBlockFrames);
        mixOutput(session.sources(), session.gains, block.data(), count, nullptr);
        for (std::size_t i = 0; i < 2 * count; ++i)
            samples.push_back(toSample16(block[i]));
        frames -= count;
    }
}

void renderBlocks(Session& session, std::size_t frames, const std::function<void(std::size_t)>& beforeBlock,
                  ProgressBar& bar, std::vector<std::int16_t>& samples) {
    samples.reserve(samples.size() + 2 * frames);
    for (std::size_t done = 0; done < frames;) {
        beforeBlock(done);
        const std::size_t count = std::min(kBlockFrames, frames - done);
        appendFrames(session, count, samples);
        done += count;
        drawProgress(bar, static_cast<double>(done) / static_cast<double>(frames));
    }
    endProgress(bar);
}

int outputStatus(const std::string& path, bool written) {
    return written ? kDone : fail(path, "cannot be written");
}

int writeOutput(const std::string& path, const std::vector<std::int16_t>& samples) {
    return outputStatus(path, writeWavFile(path, samples));
}

}  // namespace veloria::cli
