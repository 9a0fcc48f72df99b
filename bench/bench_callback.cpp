// The audio callback's whole work against the time it has: a callback of 512 frames must be done within its
// period of 11.6 ms. "p50", "p99_9" and "max" are the middle, the 999th of a thousand and the longest
// callback, as shares of the period in per cent, by the processor's time: what else the machine does does not
// show. "wall_p99_9" is the same by the clock on the wall, where it does.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <ctime>
#include <memory>
#include <vector>

#include "engine_scenes.h"
#include "media/mix.h"

namespace {

constexpr std::size_t kFrames = 512;
constexpr double kPeriodSeconds = static_cast<double>(kFrames) / veloria::kSampleRate;
constexpr int kCallbacks = 10000;  // ten beyond the 999th of a thousand

double processorSeconds() {
#ifdef CLOCK_THREAD_CPUTIME_ID
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
#else
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
#endif
}

double wallSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The instrument as the callback sees it.
struct Instrument {
    veloria::SynthEngine engine;
    veloria::PcmStream pcm;
    veloria::SacredFft retuner;
    veloria::OutputGains gains;
    veloria::ScopeBuffer scope;
};

std::unique_ptr<Instrument> makeInstrument() {
    auto made = std::make_unique<Instrument>();
    veloria::fillHannWindow(made->retuner);
    made->retuner.Init();
    veloria::fillSolfeggioRatio(made->retuner);
    made->retuner.ResetStreams();
    return made;
}

// Minutes of noise over a chord, so that the retuner has work throughout.
void playMusic(Instrument& instrument) {
    std::vector<float>& samples = instrument.pcm.samples;
    samples.resize((kCallbacks + 1) * kFrames);
    unsigned random = 1;
    for (std::size_t n = 0; n < samples.size(); ++n) {
        random = random * 1664525u + 1013904223u;
        double x = 0.05 * (static_cast<double>(random >> 8) / 8388608.0 - 1.0);
        for (const double hz : {110.0, 441.0, 1234.5})
            x += 0.1 * std::sin(6.283185307179586 * hz * static_cast<double>(n) / 44100.0);
        samples[n] = static_cast<float>(x);
    }
    instrument.pcm.playing = true;
    instrument.retuner.strength = 100;
    instrument.retuner.SetMode(veloria::kModeFull);
}

double percentAt(std::vector<double>& seconds, double share) {
    std::sort(seconds.begin(), seconds.end());
    const auto place = static_cast<std::size_t>(share * static_cast<double>(seconds.size() - 1));
    return 100.0 * seconds[place] / kPeriodSeconds;
}

void callback(benchmark::State& state, int voices, int partials, bool music) {
    const auto instrument = makeInstrument();
    veloria::bench::fillVoices(instrument->engine, voices, partials);
    if (music) playMusic(*instrument);
    const veloria::MixSources sources{instrument->engine, instrument->pcm, instrument->retuner};
    std::array<float, 2 * kFrames> out;
    std::vector<double> processor;
    std::vector<double> wall;
    for ([[maybe_unused]] auto _ : state) {
        const double wallBegin = wallSeconds();
        const double begin = processorSeconds();
        mixOutput(sources, instrument->gains, out.data(), kFrames, &instrument->scope);
        processor.push_back(processorSeconds() - begin);
        wall.push_back(wallSeconds() - wallBegin);
        benchmark::DoNotOptimize(out.data());
    }
    state.counters["p50"] = percentAt(processor, 0.5);
    state.counters["p99_9"] = percentAt(processor, 0.999);
    state.counters["max"] = percentAt(processor, 1.0);
    state.counters["wall_p99_9"] = percentAt(wall, 0.999);
}

BENCHMARK_CAPTURE(callback, silent, 0, 0, false)->Iterations(kCallbacks)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(callback, 64_default, 64, 3, false)->Iterations(kCallbacks)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(callback, 256x38, 256, 38, false)->Iterations(kCallbacks)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(callback, 256x38_full, 256, 38, true)
    ->Iterations(kCallbacks)
    ->Unit(benchmark::kMicrosecond);

}  // namespace
