// A hop of the retuner by its literal stages and as it runs, and its cost in each mode within the audio
// callback's whole work. "x_mode0" is the time against mode 0 in the same run, "realtime" how many seconds of
// sound one second of computing gives.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <memory>
#include <numbers>
#include <span>
#include <vector>

#include "../tests/spectral/literal_transform.h"
#include "media/mix.h"
#include "spectral/block.h"
#include "spectral/fast_block.h"
#include "spectral/sacred_fft.h"
#include "spectral/transform.h"
#include "spectral/twiddles.h"

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

// A hop of a mode that works by blocks: 1024 samples in and out and the block that they make due. "literal"
// takes sample by sample through the literal stages, "fast" is what the audio callback calls.
using Hop = void (*)(SacredFft& retuner, std::span<float> samples, const veloria::RetunerSettings& settings);

void literalHop(SacredFft& retuner, std::span<float> samples, const veloria::RetunerSettings& settings) {
    for (float& sample : samples)
        sample = veloria::processSpectral(retuner, sample, settings, veloria::ProcessBlock);
}

void fastHop(SacredFft& retuner, std::span<float> samples, const veloria::RetunerSettings& settings) {
    retuner.processSamples(samples, settings);
}

void hop(benchmark::State& state, Hop process, std::int32_t mode) {
    SacredFft& retuner = preparedRetuner();
    retuner.ResetStreams();
    const veloria::RetunerSettings settings{mode, 100, 8};
    const std::vector<float>& signal = testSignal();
    std::array<float, veloria::kHopSize> samples;
    std::size_t at = 0;
    const auto play = [&] {
        std::copy_n(signal.begin() + static_cast<std::ptrdiff_t>(at), samples.size(), samples.begin());
        at = (at + samples.size()) % (signal.size() - samples.size());
        process(retuner, samples, settings);
        benchmark::DoNotOptimize(samples.data());
    };
    for (int warmup = 0; warmup < 8; ++warmup)
        play();
    for ([[maybe_unused]] auto _ : state)
        play();
}
BENCHMARK_CAPTURE(hop, literal full, literalHop, veloria::kModeFull)->Name("literal/1");
BENCHMARK_CAPTURE(hop, fast full, fastHop, veloria::kModeFull)->Name("fast/1");
BENCHMARK_CAPTURE(hop, literal peak, literalHop, veloria::kModePeak)->Name("literal/2");
BENCHMARK_CAPTURE(hop, fast peak, fastHop, veloria::kModePeak)->Name("fast/2");

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

// What runs: the real signal's half-spectrum.
void fastTransformOfABlock(benchmark::State& state) {
    SacredFft& retuner = preparedRetuner();
    std::copy_n(testSignal().begin(), veloria::kBlockSize, retuner.fast.input.real());
    for ([[maybe_unused]] auto _ : state) {
        veloria::forwardBlock(retuner);
        benchmark::DoNotOptimize(retuner.fast.output.real());
    }
}
BENCHMARK(fastTransformOfABlock)->Unit(benchmark::kMicrosecond);

// Magnitude and angle, and sine and cosine, of a half-spectrum's worth of values.
void polarOfABlock(benchmark::State& state) {
    SacredFft& retuner = preparedRetuner();
    std::copy_n(testSignal().begin(), veloria::kBlockSize, retuner.fast.input.real());
    std::copy_n(testSignal().begin() + 5000, veloria::kBlockSize, retuner.fast.input.imag());
    for ([[maybe_unused]] auto _ : state) {
        veloria::polarValues(retuner.fast.input.real(), retuner.fast.input.imag(), veloria::kBlockSize / 2,
                             veloria::transformTables().hypotIsCorrectedRoot,
                             {retuner.fast.output.real(), retuner.fast.output.imag()}, retuner.fast.doubts,
                             retuner.fast.moreDoubts);
        benchmark::DoNotOptimize(retuner.fast.output.real());
    }
}
BENCHMARK(polarOfABlock)->Unit(benchmark::kMicrosecond);

void sinesOfABlock(benchmark::State& state) {
    SacredFft& retuner = preparedRetuner();
    for (std::size_t i = 0; i < veloria::kBlockSize; ++i)
        retuner.fast.input.real()[i] = 314.0 * testSignal()[i];
    for ([[maybe_unused]] auto _ : state) {
        veloria::sinesAndCosines(retuner.fast.input.real(), veloria::kBlockSize / 2,
                                 {retuner.fast.output.real(), retuner.fast.output.imag()},
                                 retuner.fast.doubts, retuner.fast.moreDoubts);
        benchmark::DoNotOptimize(retuner.fast.output.real());
    }
}
BENCHMARK(sinesOfABlock)->Unit(benchmark::kMicrosecond);

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
