// A whole frame of the window at 1280 by 720 on the software renderer, with 64 voices sounding and the walker
// running. `frame`: the scope and the calculator open and the list of sounding frequencies shown, with and
// without the text cache. `panels`: all eight floating panels open at once (8), none (-1), or the one of this
// number alone; what a panel costs is its time less that of -1.
#include <SDL.h>
#include <SDL_ttf.h>
#include <benchmark/benchmark.h>

#include <memory>

#include "engine/control.h"
#include "engine/render.h"
#include "ui/frame.h"

namespace {

using namespace veloria;

struct Window {
    Window() : retuner(std::make_unique<SacredFft>()) {
        TTF_Init();
        openFonts(app.fonts);
        fillSolfeggioRatio(*retuner);
        buildWidgetLists(app);
        surface = SDL_CreateRGBSurfaceWithFormat(0, 1280, 720, 32, SDL_PIXELFORMAT_ARGB8888);
        app.renderer = SDL_CreateSoftwareRenderer(surface);
        app.recorder.engine = &engine;
        app.viewMode = kVoicesTab;
        app.voicesSubTab = 1;
        app.panels.panels[kScopePanel].open = true;
        toggleCalculator(app.calculator);
        engine.activationMode = 3;
        for (std::uint32_t i = 0; i < 21; ++i) {
            toggleReflection(engine, i);
            toggleRotation(engine, i);
        }
        for (std::uint32_t i = 0; engine.voices.size() < 64; ++i) {
            if (!isConvergence(i)) toggleShadow(engine, i);
        }
        walkerStart(app.walker, engine, now);
    }
    ~Window() {
        clearTextCache(app.textCache);
        dropSceneTexture(app.kathara);
        freeAssets(app.assets);
        SDL_DestroyRenderer(app.renderer);
        SDL_FreeSurface(surface);
        closeFonts(app.fonts);
        TTF_Quit();
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    // A sixtieth of a second of sound, then the frame that shows it.
    void advance() {
        float out[2];
        for (int i = 0; i < 735; ++i) {
            renderStereoSample(engine, out);
            app.scope.samples[static_cast<std::size_t>(app.scope.write)] = out[0];
            app.scope.write = (app.scope.write + 1) % kScopeBufferSize;
        }
        now += 16;
    }

    std::uint32_t now = 100000;
    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner;
    OutputGains gains;
    SDL_Surface* surface = nullptr;
    AppState app{engine, {engine, midi, pcm, *retuner}, gains};
};

void frame(benchmark::State& state) {
    Window window;
    if (state.range(0) == 0) window.app.textCache.maxCount = 0;
    for (auto _ : state) {
        state.PauseTiming();
        window.advance();
        state.ResumeTiming();
        composeFrame(window.app, window.now);
    }
}

void panels(benchmark::State& state) {
    Window window;
    toggleCalculator(window.app.calculator);
    for (int id = 0; id < kPanelCount; ++id) {
        const bool open = state.range(0) == kPanelCount || state.range(0) == id;
        window.app.panels.panels[static_cast<std::size_t>(id)].open = open;
    }
    for (auto _ : state) {
        state.PauseTiming();
        window.advance();
        state.ResumeTiming();
        composeFrame(window.app, window.now);
    }
}

BENCHMARK(panels)->ArgName("panel")->DenseRange(-1, kPanelCount)->Unit(benchmark::kMillisecond);
BENCHMARK(frame)->ArgName("text_cache")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
