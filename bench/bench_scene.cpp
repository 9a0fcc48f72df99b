// A full redraw of the 3-D scene on the software renderer at 1280 by 720, against clearing a picture of that
// size.
#include <SDL.h>
#include <SDL_ttf.h>
#include <benchmark/benchmark.h>

#include <vector>

#include "frequency/tables.h"
#include "toolkit/text_cache.h"
#include "views/scene/scene_draw.h"

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;

struct Screen {
    Screen() {
        TTF_Init();
        veloria::openFonts(fonts);
        surface = SDL_CreateRGBSurfaceWithFormat(0, kWidth, kHeight, 32, SDL_PIXELFORMAT_ARGB8888);
        renderer = SDL_CreateSoftwareRenderer(surface);
        context.renderer = renderer;
        context.fonts = &fonts;
        context.theme = &theme;
        context.textCache = &cache;
    }
    ~Screen() {
        veloria::clearTextCache(cache);
        SDL_DestroyRenderer(renderer);
        SDL_FreeSurface(surface);
        veloria::closeFonts(fonts);
        TTF_Quit();
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    SDL_Surface* surface = nullptr;
    SDL_Renderer* renderer = nullptr;
    veloria::Fonts fonts;
    veloria::Theme theme;
    veloria::TextCache cache;
    veloria::DrawContext context;
};

// Notes from all over the two Avatar tables, on both sides.
void sounding(std::size_t count, std::vector<float>& frequencies, std::vector<float>& pans) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto& table = i % 2 == 0 ? veloria::reflectionFreqs : veloria::rotationFreqs;
        frequencies.push_back(static_cast<float>(table[i / 2]));
        pans.push_back(i % 2 == 0 ? 0.0f : 1.0f);
    }
}

void clearPicture(benchmark::State& state) {
    Screen screen;
    for (auto _ : state) {
        SDL_SetRenderDrawColor(screen.renderer, 22, 20, 30, 255);
        SDL_RenderClear(screen.renderer);
        SDL_RenderFlush(screen.renderer);
    }
}

// With so many notes, and turning, so that every item moves in every picture.
void redrawScene(benchmark::State& state) {
    Screen screen;
    std::vector<float> frequencies;
    std::vector<float> pans;
    sounding(static_cast<std::size_t>(state.range(0)), frequencies, pans);
    const veloria::SceneSound sound{frequencies, pans, nullptr, nullptr, nullptr};
    veloria::KatharaViewState view;
    view.autoRotate = true;
    float time = 0.0f;
    const auto draw = [&] {
        veloria::drawKatharaScene(screen.context, 0, 0, kWidth, kHeight, sound, time, view);
        SDL_RenderFlush(screen.renderer);
        time += 0.006f;
        screen.context.ticks += 16;
    };
    draw();
    for (auto _ : state)
        draw();
    state.counters["notes"] = static_cast<double>(state.range(0));
}

BENCHMARK(clearPicture)->Unit(benchmark::kMillisecond);
BENCHMARK(redrawScene)->Arg(0)->Arg(128)->Unit(benchmark::kMillisecond);

}  // namespace
