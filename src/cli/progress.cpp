#include "cli/progress.h"

#include <algorithm>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace veloria::cli {

namespace {

bool isTerminal() {
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(fileno(stderr)) != 0;
#endif
}

struct Standing {
    int percent;
    std::size_t done;  // files
};

Standing standingOf(const ProgressBar& bar) {
    double sum = 0.0;
    std::size_t done = 0;
    for (const auto& fraction : bar.fractions) {
        const float value = fraction.load(std::memory_order_relaxed);
        sum += static_cast<double>(value);
        done += value >= 1.0f ? 1 : 0;
    }
    return {static_cast<int>(sum * 100.0 / static_cast<double>(bar.fractions.size())), done};
}

void draw(ProgressBar& bar, const Standing& now) {
    bar.lastPercent = now.percent;
    bar.lastDone = now.done;
    const std::string filled(static_cast<std::size_t>(now.percent / 2), '#');
    std::fprintf(stderr, "\r[%-50s] %3d%%", filled.c_str(), now.percent);
    const std::size_t files = bar.fractions.size();
    if (files > 1) std::fprintf(stderr, "  %zu of %zu files", now.done, files);
}

}  // namespace

ProgressBar::ProgressBar(const Options& options, std::size_t files)
    : shown(!options.quiet && isTerminal()), fractions(std::max<std::size_t>(files, 1)) {}

void drawProgress(ProgressBar& bar, std::size_t file, double fraction) {
    if (!bar.shown) return;
    const auto value = static_cast<float>(std::clamp(fraction, 0.0, 1.0));
    bar.fractions[file].store(value, std::memory_order_relaxed);
    const std::lock_guard lock(bar.drawing);
    const Standing now = standingOf(bar);
    if (now.percent != bar.lastPercent || now.done != bar.lastDone) draw(bar, now);
}

void printLine(ProgressBar& bar, std::FILE* stream, const std::string& line) {
    const std::lock_guard lock(bar.drawing);
    if (bar.shown && bar.lastPercent >= 0) std::fputs("\r\033[K", stderr);
    std::fputs(line.c_str(), stream);
    std::fflush(stream);
    if (bar.shown && bar.lastPercent >= 0) draw(bar, standingOf(bar));
}

void endProgress(ProgressBar& bar) {
    const std::lock_guard lock(bar.drawing);
    if (bar.shown && bar.lastPercent >= 0) std::fputs("\n", stderr);
    bar.lastPercent = -1;
}

}  // namespace veloria::cli
