// The retuner's cost in each mode within the audio callback's whole work. "x_mode0" is the time against mode
// 0 in the same run, "realtime" how many seconds of sound one second of computing gives.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <memory>
#include <numbers>
#include <vector>

#include "../tests/spectral/literal_transform.h"
#include "media/mix.h"
#include "spectral/sacred_fft.h"
#include "spectral/transform.h"

namespace {

using veloria::SacredFft;

SacredFft& preparedRetuner() {
    static const std::unique_ptr<SacredFft> retuner = [] {
        auto made = std::make_unique<SacredFft>();
        veloria::fillHannWindow(*made);
        made->Init();
        veloria::fillSolfeggioRatio(*made);
        return made;
    }();
    return *retuner;
}

// A second of noise with a few strong tones, as music has.
const std::vector<float>& testSignal() {
    static const std::vector<float> signal = [] {
        std::vector<float> made(44100);
        unsigned random = 1;
        for (std::size_t n = 0; n < made.size(); ++n) {
            random = random * 1664525u + 1013904223u;
            double x = 0.05 * (static_cast<double>(random >> 8) / 8388608.0 - 1.0);
            for (const double hz : {110.0, 441.0, 1234.5, 6449.0, 9504.0}) {
                x += 0.1 * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n) / 44100.0);
            }
            made[n] = static_cast<float>(x);
        }
        return made;
    }();
    return signal;
}

// A second of the file through the audio callback's own body, in its blocks, with no voices.
void playSecond(SacredFft& retuner) {
    static veloria::SynthEngine engine;
    static veloria::PcmStream file;
    static const veloria::OutputGains gains;
    constexpr std::size_t kCallbackFrames = 512;
    if (file.samples.empty()) file.samples = testSignal();
    file.position = 0;
    file.playing = true;
    std::array<float, 2 * kCallbackFrames> out;
    for (std::size_t done = 0; done < file.samples.size(); done += kCallbackFrames) {
        const std::size_t frames = std::min(kCallbackFrames, file.samples.size() - done);
        veloria::mixOutput({engine, file, retuner}, gains, out.data(), frames, nullptr);
        benchmark::DoNotOptimize(out.data());
    }
}

// Processor time and not the wall's, so that a busy machine does not show.
double secondsSince(std::clock_t start) {
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double modeOffSeconds() {
    static const double seconds = [] {
        SacredFft& retuner = preparedRetuner();
        retuner.SetMode(veloria::kModeOff);
        constexpr int kRuns = 50;
        playSecond(retuner);
        const std::clock_t start = std::clock();
        for (int run = 0; run < kRuns; ++run)
            playSecond(retuner);
        return secondsSince(start) / kRuns;
    }();
    return seconds;
}

void retunerSecond(benchmark::State& state) {
    const double baseline = modeOffSeconds();
    SacredFft& retuner = preparedRetuner();
    veloria::setModeOff(retuner);
    retuner.strength = static_cast<std::int32_t>(state.range(1));
    retuner.SetMode(static_cast<std::int32_t>(state.range(0)));
    const std::clock_t start = std::clock();
    for ([[maybe_unused]] auto _ : state)
        playSecond(retuner);
    const double seconds = secondsSince(start) / static_cast<double>(state.iterations());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(testSignal().size()));
    state.counters["realtime"] = 1.0 / seconds;
    state.counters["x_mode0"] = seconds / baseline;
}
BENCHMARK(retunerSecond)
    ->ArgNames({"mode", "strength"})
    ->Args({0, 100})
    ->Args({1, 100})
    ->Args({1, 50})
    ->Args({2, 100})
    ->Args({2, 50})
    ->Args({3, 100})
    ->Args({3, 50})
    ->Unit(benchmark::kMillisecond);

std::vector<std::complex<double>> blockOfSignal() {
    return {testSignal().begin(), testSignal().begin() + veloria::kBlockSize};
}

void transformOfABlock(benchmark::State& state) {
    const auto signal = blockOfSignal();
    auto values = signal;
    for ([[maybe_unused]] auto _ : state) {
        values = signal;
        veloria::forwardTransform(values);
        benchmark::DoNotOptimize(values.data());
    }
}
BENCHMARK(transformOfABlock)->Unit(benchmark::kMicrosecond);

// The same transform, block after block as the textbook has it: the baseline of the one above.
void textbookTransformOfABlock(benchmark::State& state) {
    const auto signal = blockOfSignal();
    auto values = signal;
    for ([[maybe_unused]] auto _ : state) {
        values = signal;
        veloria::literal::forward(values);
        benchmark::DoNotOptimize(values.data());
    }
}
BENCHMARK(textbookTransformOfABlock)->Unit(benchmark::kMicrosecond);

void initTables(benchmark::State& state) {
    const auto retuner = std::make_unique<SacredFft>();
    for ([[maybe_unused]] auto _ : state) {
        retuner->Init();
        benchmark::DoNotOptimize(retuner->binTarget.data());
    }
}
BENCHMARK(initTables)->Unit(benchmark::kMillisecond);

}  // namespace
