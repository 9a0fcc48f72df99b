// A retuner with its tables filled, and the signals that the tests send through it.
#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <vector>

#include "spectral/sacred_fft.h"

namespace veloria::fixture {

// The tables as the program has them, made once.
inline const SacredFft& tables() {
    static const std::unique_ptr<SacredFft> made = [] {
        auto retuner = std::make_unique<SacredFft>();
        fillHannWindow(*retuner);
        retuner->Init();
        fillSolfeggioRatio(*retuner);
        return retuner;
    }();
    return *made;
}

inline std::unique_ptr<SacredFft> makeRetuner() {
    auto retuner = std::make_unique<SacredFft>();
    retuner->hannWindow = tables().hannWindow;
    retuner->binTarget = tables().binTarget;
    retuner->binTargetHz = tables().binTargetHz;
    retuner->binHarmonic = tables().binHarmonic;
    retuner->solfeggioRatio = tables().solfeggioRatio;
    return retuner;
}

inline std::vector<float> tone(double hz, std::size_t samples, double amplitude = 0.5, double phase = 0.0) {
    std::vector<float> out(samples);
    for (std::size_t n = 0; n < samples; ++n) {
        const double angle = 2.0 * std::numbers::pi * hz * static_cast<double>(n) / 44100.0 + phase;
        out[n] = static_cast<float>(amplitude * std::sin(angle));
    }
    return out;
}

inline std::vector<float> noise(std::size_t samples, unsigned seed, float amplitude = 0.5f) {
    std::mt19937 random(seed);
    std::vector<float> out(samples);
    for (float& x : out)
        x = amplitude * (static_cast<float>(random() % 20001) / 10000.0f - 1.0f);
    return out;
}

inline std::vector<float> run(SacredFft& retuner, const std::vector<float>& input) {
    std::vector<float> out(input.size());
    std::transform(input.begin(), input.end(), out.begin(),
                   [&](float x) { return retuner.processSample(x); });
    return out;
}

}  // namespace veloria::fixture
