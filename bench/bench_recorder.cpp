// The recorder at the size of a large arrangement: a frame's tick, and an export against the time that it
// would play.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "engine/control.h"
#include "recorder/clips.h"
#include "recorder/playback.h"
#include "recorder/wav_export.h"

namespace {

using veloria::Recorder;
using veloria::RecorderClip;

constexpr double kFrameSeconds = 0.016;

// Clips of 2 s, spread evenly over `seconds` and over all 32 channels.
void fill(Recorder& recorder, int clips, double seconds) {
    recorder.channelCount = veloria::kMaxRecorderChannels;
    for (int i = 0; i < clips; ++i) {
        RecorderClip clip;
        clip.id = recorder.nextClipId++;
        clip.start = (seconds - 2.0) * i / clips;
        clip.end = clip.start + 2.0;
        clip.gainInDb = clip.gainOutDb = -12.0f;
        veloria::addClip(recorder, i % veloria::kMaxRecorderChannels, 110.0 + i * 7 % 800, clip);
    }
}

// One frame's tick while playing through the arrangement, the beginning and ending of voices included.
void tick(benchmark::State& state) {
    veloria::SynthEngine engine;
    Recorder recorder;
    recorder.engine = &engine;
    fill(recorder, static_cast<int>(state.range(0)), 600.0);
    recorder.playing = true;
    for (auto _ : state) {
        veloria::tickRecorder(recorder, static_cast<float>(kFrameSeconds));
        if (recorder.playhead > 600.0) {
            state.PauseTiming();
            veloria::stopPlayback(recorder);
            veloria::hardReset(engine);
            recorder.playing = true;
            state.ResumeTiming();
        }
    }
    state.counters["clips"] = static_cast<double>(state.range(0));
}

// The worst frame that there can be: every clip sounds, and none begins or ends.
void tickWithAllSounding(benchmark::State& state) {
    veloria::SynthEngine engine;
    Recorder recorder;
    recorder.engine = &engine;
    fill(recorder, static_cast<int>(state.range(0)), 600.0);
    for (RecorderClip* clip : veloria::allClips(recorder)) {
        clip->start = 0.0;
        clip->end = 1e9;
    }
    recorder.playing = true;
    for (auto _ : state)
        veloria::tickRecorder(recorder, static_cast<float>(kFrameSeconds));
    state.counters["clips"] = static_cast<double>(state.range(0));
}

// The sound of ten minutes with the clips in it; "times_real_time" is that time over what the render took.
void exportTenMinutes(benchmark::State& state) {
    constexpr double kSeconds = 600.0;
    veloria::SynthEngine engine;
    Recorder recorder;
    recorder.engine = &engine;
    fill(recorder, static_cast<int>(state.range(0)), kSeconds);
    std::vector<std::int16_t> samples;
    for (auto _ : state) {
        if (veloria::renderRecorder(recorder, {}, samples) != veloria::RenderOutcome::Done) {
            state.SkipWithError("not rendered");
            break;
        }
        benchmark::DoNotOptimize(samples.data());
    }
    state.counters["clips"] = static_cast<double>(state.range(0));
    state.counters["times_real_time"] =
        benchmark::Counter(kSeconds, benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK(tick)->Arg(1000)->Arg(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(tickWithAllSounding)->Arg(5000)->Unit(benchmark::kMicrosecond);
BENCHMARK(exportTenMinutes)->Arg(100)->Arg(1000)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace
