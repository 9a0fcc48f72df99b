#include "cli/walk.h"

#include <cmath>

#include "cli/output.h"
#include "cli/session.h"
#include "walker/scale_walker.h"

namespace veloria::cli {

namespace {

// The same rows as the process's own table, but nothing is written beside the output.
const ScaleTable& quietScale() {
    static const ScaleTable table = makeScaleTable();
    return table;
}

// The walker's clock: whole milliseconds of sound so far.
std::uint32_t ticksAt(std::size_t frames) {
    return static_cast<std::uint32_t>(std::uint64_t{frames} * 1000 / kSampleRate);
}

}  // namespace

std::size_t walkFrames(double seconds) {
    // Most decimal lengths have no exact double: 0.7 s would come out a frame short.
    constexpr double kSlack = 1e-6;
    const double frames = seconds * kSampleRate;
    const double nearest = std::round(frames);
    return static_cast<std::size_t>(std::fabs(frames - nearest) <= kSlack ? nearest : frames);
}

int runWalk(const Options& options) {
    const auto session = makeSession(options);
    ScaleWalker walker;
    walker.scaleSource = quietScale;
    setWalkerSpeed(walker, options.stepMs);
    walkerStart(walker, session->engine, 0);
    ProgressBar bar(options, 1);
    const Fault fault =
        renderBlocks(*session, walkFrames(options.seconds),
                     [&](std::size_t done) { walkerTick(walker, session->engine, ticksAt(done)); },
                     options.files[0], {bar});
    endProgress(bar);
    return statusOf(fault);
}

}  // namespace veloria::cli
