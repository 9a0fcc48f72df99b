#include "spectral/time_domain.h"

#include "spectral/blend.h"
#include "spectral/drain.h"

namespace veloria {

namespace {

constexpr std::int32_t kReadGap = 4;  // samples that the read position keeps behind the write position
constexpr std::int32_t kFarthestBehind = static_cast<std::int32_t>(kTimeRingSize) - 64;

}  // namespace

double targetRatio(const SacredFft& retuner, const RetunerSettings& settings) {
    return retuner.solfeggioRatio[static_cast<std::size_t>(settings.targetIndex)];
}

TimePosition timePosition(const SacredFft& retuner) {
    // The position outgrows 32 bits long before it loses its fraction; its low half counts as timeWrite does.
    const auto whole = static_cast<std::uint64_t>(retuner.timeRead);
    return {static_cast<std::uint32_t>(whole),
            static_cast<float>(retuner.timeRead - static_cast<double>(whole))};
}

std::int32_t samplesBehind(const SacredFft& retuner, std::uint32_t index) {
    return static_cast<std::int32_t>(retuner.timeWrite - index);
}

float timeSample(const SacredFft& retuner, std::uint32_t index) {
    return retuner.timeRing[index % kTimeRingSize];
}

float interpolate(const SacredFft& retuner, const TimePosition& position) {
    const std::uint32_t i = position.index;
    const float f = position.fraction;
    const float ym = timeSample(retuner, i - 1);
    const float y0 = timeSample(retuner, i);
    const float y1 = timeSample(retuner, i + 1);
    const float y2 = timeSample(retuner, i + 2);
    const float c3 = 1.5f * y0 - 0.5f * ym - 1.5f * y1 + 0.5f * y2;
    const float c2 = ym - 2.5f * y0 + 2.0f * y1 - 0.5f * y2;
    const float c1 = 0.5f * y1 - 0.5f * ym;
    return ((c3 * f + c2) * f + c1) * f + y0;
}

void advanceRead(SacredFft& retuner, const TimePosition& position, double ratio) {
    retuner.timeRead += ratio;
    if (ratio < 1.0 && samplesBehind(retuner, position.index) > kFarthestBehind) {
        retuner.timeRead = static_cast<double>(retuner.timeWrite - kReadGap);
    }
}

void feedSample(SacredFft& retuner, float sample) {
    retuner.timeRing[retuner.timeWrite % kTimeRingSize] = sample;
    ++retuner.timeWrite;
}

bool needsFeed(const SacredFft& retuner, const RetunerSettings& settings) {
    return settings.mode == kModeSolfeggio && targetRatio(retuner, settings) > 1.0 &&
           samplesBehind(retuner, timePosition(retuner).index) < kReadGap;
}

float processTimeDomain(SacredFft& retuner, float sample, const RetunerSettings& settings) {
    constexpr std::int32_t kWarmup = 4;
    if (!isReadingOut(retuner)) feedSample(retuner, sample);
    if (retuner.timeWarmup < kWarmup) {
        ++retuner.timeWarmup;
        return 0.0f;
    }
    const TimePosition position = timePosition(retuner);
    const float wet = interpolate(retuner, position);
    advanceRead(retuner, position, targetRatio(retuner, settings));
    const float strength = strengthOf(settings);
    if (!isMixed(strength)) return wet;
    // The dry side is the ring at the read position and not the input: the blend has the pitch of the wet
    // side and changes only how smooth it is.
    return (1.0f - strength) * timeSample(retuner, position.index) + strength * wet;
}

}  // namespace veloria
