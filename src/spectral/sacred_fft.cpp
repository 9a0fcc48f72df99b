#include "spectral/sacred_fft.h"

#include <algorithm>

#include "spectral/bin_tables.h"
#include "spectral/block.h"
#include "spectral/fast_block.h"
#include "spectral/time_domain.h"

namespace veloria {

void SacredFft::Init() {
    // Makes the transform's tables and chooses the instruction set now, and not in a callback.
    forwardBlock(*this);
    fillBinTables(*this);
}

float SacredFft::processSample(float sample, const RetunerSettings& settings) {
    if (settings.mode == kModeOff) return sample;
    if (settings.mode == kModeSolfeggio) return processTimeDomain(*this, sample, settings);
    return processSpectral(*this, sample, settings, processBlockFast);
}

void SacredFft::processSamples(std::span<float> samples, const RetunerSettings& settings) {
    if (settings.mode == kModeOff) return;
    if (settings.mode == kModeSolfeggio) {
        for (float& sample : samples)
            sample = processTimeDomain(*this, sample, settings);
        return;
    }
    processSpectralRun(*this, samples, settings, processBlockFast);
}

float SacredFft::processSample(float sample) {
    return processSample(sample, loadSettings(*this));
}

void SacredFft::SetMode(std::int32_t newMode) {
    const std::int32_t oldMode = mode.load(std::memory_order_relaxed);
    if (newMode == oldMode) return;
    mode.store(newMode, std::memory_order_release);
    if (newMode != kModeOff && oldMode == kModeOff) ResetStreams();
}

void SacredFft::ResetStreams() {
    inputRing.fill(0.0f);
    outputRing.fill(0.0f);
    inputPos = 0;
    outputRead = 0;
    outputWrite = 0;
    hopCount = 0;
    fillCount = 0;
    synthPhase.fill(0.0);
    lastPhase.fill(0.0);
    timeRing.fill(0.0f);
    timeWrite = 0;
    timeRead = 0.0;
    timeWarmup = 0;
    sinceFile = kNothingOfFile;
    timeFileEnd = 0;
}

void setModeOff(SacredFft& retuner) {
    if (retuner.mode.load(std::memory_order_relaxed) != kModeOff) {
        retuner.mode.store(kModeOff, std::memory_order_release);
    }
}

RetunerSettings loadSettings(const SacredFft& retuner) {
    constexpr auto kLastTarget = static_cast<std::int32_t>(sacredTargets.size()) - 1;
    // The mode carries the order: who sees a mode other than 0 sees the tables that were filled before it.
    const std::int32_t mode = retuner.mode.load(std::memory_order_acquire);
    return {mode, retuner.strength.load(std::memory_order_relaxed),
            std::clamp(retuner.targetIndex.load(std::memory_order_relaxed), 0, kLastTarget)};
}

RetunerReport report(const SacredFft& retuner) {
    const RetunerSettings settings = loadSettings(retuner);
    return {settings.mode,
            settings.strength,
            settings.targetIndex,
            targetRatio(retuner, settings),
            retuner.avgShiftHz.load(std::memory_order_relaxed),
            retuner.binsShifted.load(std::memory_order_relaxed),
            retuner.peaksFound.load(std::memory_order_relaxed),
            retuner.maxMagnitude,
            retuner.peakCount.load(std::memory_order_relaxed),
            retuner.peaks};
}

}  // namespace veloria
