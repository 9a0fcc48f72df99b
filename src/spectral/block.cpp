#include "spectral/block.h"

#include <algorithm>

#include "spectral/blend.h"
#include "spectral/shift_all.h"
#include "spectral/shift_peaks.h"
#include "spectral/transform.h"

namespace veloria {

float takeOutput(SacredFft& retuner) {
    float& place = retuner.outputRing[static_cast<std::size_t>(retuner.outputRead)];
    const float sample = place;
    place = 0.0f;
    retuner.outputRead = (retuner.outputRead + 1) % static_cast<std::int32_t>(kOutputRingSize);
    return sample;
}

void windowInput(SacredFft& retuner) {
    const auto oldest = static_cast<std::size_t>(retuner.inputPos);
    for (std::size_t i = 0; i < kBlockSize; ++i) {
        const double sample = retuner.inputRing[(oldest + i) % kBlockSize];
        retuner.spectrum[i] = {sample * retuner.hannWindow[i], 0.0};
    }
}

void keepDrySpectrum(SacredFft& retuner) {
    std::copy_n(retuner.spectrum.begin(), kBinCount, retuner.scratch.dry.begin());
}

void shiftSpectrum(SacredFft& retuner, std::int32_t mode) {
    if (mode == kModeFull) ShiftAllBins(retuner);
    if (mode == kModePeak) ShiftPeaks(retuner);
}

void mixSpectrum(SacredFft& retuner, float strength) {
    const double wet = strength;
    const double dry = 1.0 - wet;
    const auto mixReal = [&](std::size_t k) {
        const double real = wet * retuner.spectrum[k].real() + dry * retuner.scratch.dry[k].real();
        retuner.spectrum[k] = {real, 0.0};
    };
    mixReal(0);
    for (std::size_t k = 1; k < kNyquistBin; ++k) {
        retuner.spectrum[k] = wet * retuner.spectrum[k] + dry * retuner.scratch.dry[k];
        retuner.spectrum[kBlockSize - k] = std::conj(retuner.spectrum[k]);
    }
    mixReal(kNyquistBin);
}

void overlapAdd(SacredFft& retuner) {
    const auto start = static_cast<std::size_t>(retuner.outputWrite);
    for (std::size_t i = 0; i < kBlockSize; ++i) {
        const auto sample = static_cast<float>(retuner.spectrum[i].real() * retuner.hannWindow[i]);
        retuner.outputRing[(start + i) % kOutputRingSize] += sample * kUnityGain;
    }
    retuner.outputWrite = static_cast<std::int32_t>((start + kHopSize) % kOutputRingSize);
}

void ProcessBlock(SacredFft& retuner, const RetunerSettings& settings) {
    windowInput(retuner);
    forwardTransform(retuner.spectrum);
    const float strength = strengthOf(settings);
    const bool mixed = isMixed(strength);
    if (mixed) keepDrySpectrum(retuner);
    shiftSpectrum(retuner, settings.mode);
    if (mixed) mixSpectrum(retuner, strength);
    inverseTransform(retuner.spectrum);
    overlapAdd(retuner);
}

float processSpectral(SacredFft& retuner, float sample, const RetunerSettings& settings,
                      BlockStep makeBlock) {
    constexpr auto kFull = static_cast<std::int32_t>(kBlockSize);
    constexpr auto kHop = static_cast<std::int32_t>(kHopSize);
    retuner.inputRing[static_cast<std::size_t>(retuner.inputPos)] = sample;
    retuner.inputPos = (retuner.inputPos + 1) % kFull;
    if (retuner.fillCount < kFull) {
        ++retuner.fillCount;
        if (retuner.fillCount == kFull) {
            makeBlock(retuner, settings);
            retuner.hopCount = 0;
        }
        return 0.0f;
    }
    const float out = takeOutput(retuner);
    ++retuner.hopCount;
    if (retuner.hopCount >= kHop) {
        makeBlock(retuner, settings);
        retuner.hopCount = 0;
    }
    return out;
}

namespace {

// Calls run(first, count, place) for each straight part of `count` places of a ring of `size` from `place`
// on.
template <class Run>
void forRing(std::size_t place, std::size_t size, std::size_t count, Run run) {
    const std::size_t straight = std::min(count, size - place);
    run(std::size_t{0}, straight, place);
    if (straight < count) run(straight, count - straight, std::size_t{0});
}

void takeIn(SacredFft& retuner, std::span<const float> samples) {
    const auto place = static_cast<std::size_t>(retuner.inputPos);
    forRing(place, kBlockSize, samples.size(), [&](std::size_t first, std::size_t count, std::size_t at) {
        std::copy_n(samples.begin() + static_cast<std::ptrdiff_t>(first), count,
                    retuner.inputRing.begin() + static_cast<std::ptrdiff_t>(at));
    });
    retuner.inputPos = static_cast<std::int32_t>((place + samples.size()) % kBlockSize);
}

void giveOut(SacredFft& retuner, std::span<float> samples) {
    const auto place = static_cast<std::size_t>(retuner.outputRead);
    forRing(place, kOutputRingSize, samples.size(),
            [&](std::size_t first, std::size_t count, std::size_t at) {
                float* ring = retuner.outputRing.data() + at;
                std::copy_n(ring, count, samples.begin() + static_cast<std::ptrdiff_t>(first));
                std::fill_n(ring, count, 0.0f);
            });
    retuner.outputRead = static_cast<std::int32_t>((place + samples.size()) % kOutputRingSize);
}

}  // namespace

void processSpectralRun(SacredFft& retuner, std::span<float> samples, const RetunerSettings& settings,
                        BlockStep makeBlock) {
    constexpr auto kFull = static_cast<std::int32_t>(kBlockSize);
    constexpr auto kHop = static_cast<std::int32_t>(kHopSize);
    while (!samples.empty()) {
        const bool filling = retuner.fillCount < kFull;
        std::int32_t& done = filling ? retuner.fillCount : retuner.hopCount;
        const std::int32_t due = filling ? kFull : kHop;
        // At least one: a count beyond its bound makes its block with the next sample.
        const auto left = static_cast<std::size_t>(std::max(due - done, 1));
        const std::span<float> run = samples.first(std::min(left, samples.size()));
        takeIn(retuner, run);
        if (filling) {
            std::fill(run.begin(), run.end(), 0.0f);
        } else {
            giveOut(retuner, run);
        }
        done += static_cast<std::int32_t>(run.size());
        if (done >= due) {
            makeBlock(retuner, settings);
            retuner.hopCount = 0;
        }
        samples = samples.subspan(run.size());
    }
}

}  // namespace veloria
