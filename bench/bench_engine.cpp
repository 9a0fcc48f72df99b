// The block renderer against the sample-by-sample one, in the same run: "literal/V/P" and "block/V/P" for V
// voices of P partials each. "ns_partial" is the cost of one partial of one frame, "core" the share of a core
// that playing takes. block/V/P@TARGET is the same in another instruction set.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "engine/render.h"
#include "engine/vector_target.h"
#include "engine_scenes.h"

namespace {

constexpr std::size_t kCallbackFrames = 512;

using veloria::bench::fillVoices;

void report(benchmark::State& state, int voices, int partials, std::size_t frames) {
    const double rendered = static_cast<double>(state.iterations()) * static_cast<double>(frames);
    state.SetItemsProcessed(static_cast<std::int64_t>(rendered));
    state.counters["ns_partial"] = benchmark::Counter(
        rendered * voices * partials * 1e-9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["core"] = benchmark::Counter(rendered / veloria::kSampleRate,
                                                benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void literal(benchmark::State& state, int voices, int partials) {
    veloria::SynthEngine engine;
    fillVoices(engine, voices, partials);
    constexpr std::size_t kFrames = 64;
    std::array<float, 2 * kFrames> out;
    for ([[maybe_unused]] auto _ : state) {
        for (std::size_t i = 0; i < kFrames; ++i)
            renderStereoSample(engine, out.data() + 2 * i);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    report(state, voices, partials, kFrames);
}

void block(benchmark::State& state, int voices, int partials, const veloria::VectorTarget& target) {
    veloria::forceVectorTarget(target);
    veloria::SynthEngine engine;
    fillVoices(engine, voices, partials);
    std::array<float, 2 * kCallbackFrames> out;
    renderStereoBlock(engine, out.data(), kCallbackFrames);
    for ([[maybe_unused]] auto _ : state) {
        renderStereoBlock(engine, out.data(), kCallbackFrames);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    report(state, voices, partials, kCallbackFrames);
    veloria::chooseVectorTarget();
}

const int registered = [] {
    const auto targets = veloria::vectorTargets();
    for (const int voices : {1, 16, 64, 256}) {
        for (const int partials : {1, 3, 38}) {
            const std::string size = "/" + std::to_string(voices) + "/" + std::to_string(partials);
            benchmark::RegisterBenchmark(("literal" + size).c_str(), literal, voices, partials);
            for (const veloria::VectorTarget& target : targets) {
                const bool best = &target == &targets.front();
                benchmark::RegisterBenchmark(("block" + size + (best ? "" : "@" + target.name)).c_str(),
                                             block, voices, partials, target);
            }
        }
    }
    return 0;
}();

}  // namespace
