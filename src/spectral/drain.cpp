#include "spectral/drain.h"

#include <algorithm>
#include <cmath>

#include "spectral/time_domain.h"

namespace veloria {

namespace {

// Each sample is in blocks that reach up to a block's length behind it, and a block is given out over its own
// length again.
constexpr auto kBlockDelay = static_cast<std::uint32_t>(2 * kBlockSize - 1);

// The cubic reaches two samples ahead of the one at the read position, and one back.
constexpr std::int32_t kReachAhead = 2;
constexpr std::int32_t kReachBack = 1;

// From the read position to the place where nothing of the file is within reach any more, in whole samples.
std::int32_t samplesToRead(const SacredFft& retuner, const TimePosition& position) {
    return static_cast<std::int32_t>(retuner.timeFileEnd - position.index) + kReachBack;
}

std::uint32_t framesToRead(const SacredFft& retuner, const RetunerSettings& settings) {
    const TimePosition position = timePosition(retuner);
    const double samples = samplesToRead(retuner, position) - static_cast<double>(position.fraction);
    if (samples <= 0.0) return 0;
    const double frames = std::ceil(samples / targetRatio(retuner, settings));
    return static_cast<std::uint32_t>(std::min(frames, static_cast<double>(kMostFramesToCome)));
}

bool holdsFile(const SacredFft& retuner) {
    return retuner.sinceFile < kNothingOfFile;
}

}  // namespace

void noteIntake(SacredFft& retuner, std::size_t ofFile, std::size_t ofSilence) {
    if (ofFile > 0) {
        retuner.sinceFile = 0;
        retuner.timeFileEnd = retuner.timeWrite + 1;
    }
    const std::size_t since = retuner.sinceFile + ofSilence;
    retuner.sinceFile = static_cast<std::uint32_t>(std::min<std::size_t>(since, kNothingOfFile));
}

std::uint32_t framesToCome(const SacredFft& retuner, const RetunerSettings& settings) {
    if (settings.mode == kModeOff || !holdsFile(retuner)) return 0;
    if (settings.mode == kModeSolfeggio) return framesToRead(retuner, settings);
    return kBlockDelay - std::min(retuner.sinceFile, kBlockDelay);
}

bool isReadingOut(const SacredFft& retuner) {
    if (!holdsFile(retuner)) return false;
    const auto silence = static_cast<std::int32_t>(retuner.timeWrite - retuner.timeFileEnd);
    return silence > kReachAhead + kReachBack && samplesToRead(retuner, timePosition(retuner)) > 0;
}

}  // namespace veloria
