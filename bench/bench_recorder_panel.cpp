// An arrangement of 5,000 clips on 32 channels, played and drawn: one tick and one picture of the panel per
// iteration, on the software renderer at 1280 by 720. The frame allows 4 ms. In 600 seconds the clips of a
// channel hardly touch; in 60 three of them sound at once.
#include <SDL.h>
#include <SDL_ttf.h>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>

#include "base/format.h"
#include "recorder/clips.h"
#include "recorder/playback.h"
#include "recorder_panel/panel.h"
#include "toolkit/text_cache.h"

namespace {

using namespace veloria;

constexpr int kClips = 5000;
constexpr int kChannels = 32;
constexpr SDL_Rect kArea{0, 350, 1280, 340};

// Notes of a quarter second to two seconds, spread evenly over channels and time as an import lays them.
void fill(Recorder& recorder, double seconds) {
    recorder.channelCount = kChannels;
    for (int i = 0; i < kClips; ++i) {
        RecorderClip clip;
        clip.id = i + 1;
        clip.start = seconds * i / kClips;
        clip.end = clip.start + 0.25 + i % 8 * 0.25;
        clip.gainInDb = clip.gainOutDb = -6.0f - static_cast<float>(i % 7);
        clip.overrides = {2, 0, 0, 0, 0, 0, 0, i % 4};
        clip.label = formatText("Reflect/%d %.1fHz", i % 27, 111.0 + i % 180 * 4.5);
        addClip(recorder, i % kChannels, 111.0 + i % 180 * 4.5, clip);
    }
}

struct Panel {
    explicit Panel(double seconds) {
        TTF_Init();
        openFonts(fonts);
        surface = SDL_CreateRGBSurfaceWithFormat(0, 1280, 720, 32, SDL_PIXELFORMAT_ARGB8888);
        renderer = SDL_CreateSoftwareRenderer(surface);
        context.renderer = renderer;
        context.fonts = &fonts;
        context.textCache = &cache;
        recorder->engine = &engine;
        fill(*recorder, seconds);
        recorder->playing = true;
    }
    ~Panel() {
        clearTextCache(cache);
        SDL_DestroyRenderer(renderer);
        SDL_FreeSurface(surface);
        closeFonts(fonts);
        TTF_Quit();
    }
    Panel(const Panel&) = delete;
    Panel& operator=(const Panel&) = delete;

    void frame() {
        tickRecorder(*recorder, 0.016f);
        drawRecorder(context, *recorder, kArea);
        SDL_RenderFlush(renderer);
        // What the audio callback does with voices that have ended.
        if (engine.voices.size() > 64) engine.voices.clear();
        context.ticks += 16;
    }

    SDL_Surface* surface = nullptr;
    SDL_Renderer* renderer = nullptr;
    Fonts fonts;
    TextCache cache;
    DrawContext context;
    SynthEngine engine;
    std::unique_ptr<Recorder> recorder = std::make_unique<Recorder>();
};

void run(benchmark::State& state, double seconds, double span, float rowZoom) {
    Panel panel(seconds);
    panel.recorder->viewSpan = span;
    panel.recorder->rowZoom = rowZoom;
    panel.frame();
    for (auto _ : state)
        panel.frame();
    state.counters["clips"] = panel.recorder->clipCount;
}

// The arrangement's length and the span, in seconds, and the row zoom in hundredths.
void tickAndDraw(benchmark::State& state) {
    run(state, static_cast<double>(state.range(0)), static_cast<double>(state.range(1)),
        static_cast<float>(state.range(2)) * 0.01f);
}

// The same with a view that the pointer drags along, so that each picture is a new one.
void tickAndDrawDragged(benchmark::State& state) {
    Panel panel(static_cast<double>(state.range(0)));
    panel.recorder->viewSpan = static_cast<double>(state.range(1));
    panel.recorder->rowZoom = static_cast<float>(state.range(2)) * 0.01f;
    panel.recorder->playing = false;
    bool forth = false;
    for (auto _ : state) {
        forth = !forth;
        panel.recorder->viewStart = forth ? 0.1 : 0.0;
        panel.frame();
    }
}

void tickAlone(benchmark::State& state) {
    Panel panel(600.0);
    for (auto _ : state)
        tickRecorder(*panel.recorder, 0.016f);
}

BENCHMARK(tickAndDraw)
    ->Args({600, 30, 100})
    ->Args({600, 30, 40})
    ->Args({600, 120, 100})
    ->Args({600, 120, 40})
    ->Args({600, 600, 100})
    ->Args({600, 600, 40})
    ->Args({60, 60, 100})
    ->Args({60, 60, 40})
    ->Args({60, 10, 100})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(tickAndDrawDragged)
    ->Args({600, 30, 100})
    ->Args({60, 60, 100})
    ->Args({60, 60, 40})
    ->Args({60, 10, 100})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(tickAlone)->Unit(benchmark::kMillisecond);

}  // namespace
