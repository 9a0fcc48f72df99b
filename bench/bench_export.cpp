// A minute of the recorder to a file: `tool` as the command-line tool does it, `window` as the button EXPORT
// does it in a window of 1280 by 720 on the software renderer, its frames drawn meanwhile. The argument is
// the number of clips. What the window costs is its time over the tool's; "frames" is how many it drew.
#include <SDL.h>
#include <SDL_ttf.h>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "app/wiring.h"
#include "engine/audio_lock.h"
#include "platform/audio_device.h"
#include "platform/fake/fake_platform.h"
#include "recorder/clips.h"
#include "recorder/wav_export.h"
#include "ui/frame.h"

namespace {

using namespace veloria;

constexpr double kSeconds = 60.0;

std::string outputPath() {
    return (std::filesystem::temp_directory_path() / "veloria_bench_export.wav").string();
}

// Clips of 2 s with the default partials, spread evenly over the minute.
void fill(Recorder& recorder, int clips) {
    recorder.channelCount = kMaxRecorderChannels;
    for (int i = 0; i < clips; ++i) {
        RecorderClip clip;
        clip.id = recorder.nextClipId++;
        clip.start = (kSeconds - 2.0) * i / clips;
        clip.end = clip.start + 2.0;
        clip.gainInDb = clip.gainOutDb = -12.0f;
        addClip(recorder, i % kMaxRecorderChannels, 110.0 + i * 7 % 800, clip);
    }
}

struct Window {
    explicit Window(int clips) : retuner(std::make_unique<SacredFft>()) {
        SDL_Init(SDL_INIT_EVENTS | SDL_INIT_TIMER);
        TTF_Init();
        openFonts(app.fonts);
        fillSolfeggioRatio(*retuner);
        buildWidgetLists(app);
        surface = SDL_CreateRGBSurfaceWithFormat(0, 1280, 720, 32, SDL_PIXELFORMAT_ARGB8888);
        app.renderer = SDL_CreateSoftwareRenderer(surface);
        app.recorder.engine = &engine;
        fill(app.recorder, clips);
        installTransport(app);
        installAudioLock({platform::lockAudioDevice, platform::unlockAudioDevice});
        platform::fakePlatform().clock = SDL_GetTicks;
    }
    ~Window() {
        installAudioLock({nullptr, nullptr});
        platform::fakePlatform().reset();
        clearTextCache(app.textCache);
        dropSceneTexture(app.kathara);
        freeAssets(app.assets);
        SDL_DestroyRenderer(app.renderer);
        SDL_FreeSurface(surface);
        closeFonts(app.fonts);
        TTF_Quit();
        SDL_Quit();
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner;
    OutputGains gains;
    SDL_Surface* surface = nullptr;
    AppState app{engine, {engine, midi, pcm, *retuner}, gains};
};

void tool(benchmark::State& state) {
    SynthEngine engine;
    Recorder recorder;
    recorder.engine = &engine;
    fill(recorder, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        if (renderRecorderToWav(recorder, outputPath(), {}) != RenderOutcome::Done) {
            state.SkipWithError("not written");
            break;
        }
    }
    std::filesystem::remove(outputPath());
}

void window(benchmark::State& state) {
    Window program(static_cast<int>(state.range(0)));
    renderFrame(program.app, SDL_GetTicks());  // what is only made once
    int frames = 0;
    std::uint32_t lastFrame = 0;
    for (auto _ : state) {
        platform::fakePlatform().dialogPaths = {outputPath()};
        platform::fakePlatform().onCall = [&](const std::string& entry) {
            // A frame takes the lock once, with its own time.
            if (entry != "lock" || !program.app.exporting || program.app.lastFrameMs == lastFrame) return;
            lastFrame = program.app.lastFrameMs;
            ++frames;
        };
        program.app.recorder.onExportRecorder();
        if (!std::filesystem::exists(outputPath())) {
            state.SkipWithError("not written");
            break;
        }
    }
    std::filesystem::remove(outputPath());
    state.counters["frames"] = benchmark::Counter(frames, benchmark::Counter::kAvgIterations);
}

BENCHMARK(tool)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(window)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
