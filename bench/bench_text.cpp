// What the text cache saves: one screen of interface text per iteration, on the software renderer at 1280 by
// 720.
#include <SDL.h>
#include <SDL_ttf.h>
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "base/format.h"
#include "toolkit/text.h"
#include "toolkit/text_cache.h"

namespace {

using veloria::DrawContext;
using veloria::formatText;

constexpr int kRows = 216;

// A table of rows with a label and a detail each, and the lines of a panel with figures that change.
struct Screen {
    Screen() {
        TTF_Init();
        veloria::openFonts(fonts);
        surface = SDL_CreateRGBSurfaceWithFormat(0, 1280, 720, 32, SDL_PIXELFORMAT_ARGB8888);
        renderer = SDL_CreateSoftwareRenderer(surface);
        context.renderer = renderer;
        context.fonts = &fonts;
        context.textCache = &cache;
        for (int i = 0; i < kRows; ++i) {
            labels.push_back(formatText("%d Shadow", 111 + i * 3));
            details.push_back(formatText("%d Hz | DR%d | 666", 111 + i * 3, i % 9 + 1));
        }
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

    void drawFrame() {
        SDL_SetRenderDrawColor(renderer, 48, 48, 48, 255);
        SDL_RenderClear(renderer);
        for (int i = 0; i < kRows; ++i) {
            const auto row = static_cast<std::size_t>(i);
            const SDL_Rect cell{10 + i % 8 * 158, 10 + i / 8 * 26, 150, 12};
            const SDL_Rect below{cell.x, cell.y + 13, 150, 12};
            DrawTextUtf8Centered(context, labels[row], cell, fonts.fontRow, {255, 255, 255, 255});
            DrawTextUtf8Centered(context, details[row], below, fonts.fontRow, {220, 220, 180, 180});
        }
        for (int i = 0; i < changing; ++i) {
            const std::string line =
                formatText("%d/%d  %d+%d  Y=%.2f", frame % 324, 324, i, frame, frame * 0.01);
            DrawText(context, line, 10 + i % 4 * 300, 560 + i / 4 * 14, fonts.fontLabel,
                     {180, 140, 255, 220});
        }
        SDL_RenderFlush(renderer);
        ++frame;
        context.ticks += 16;
    }

    SDL_Surface* surface = nullptr;
    SDL_Renderer* renderer = nullptr;
    veloria::Fonts fonts;
    veloria::TextCache cache;
    DrawContext context;
    std::vector<std::string> labels;
    std::vector<std::string> details;
    int changing = 0;  // lines that are new in every frame
    int frame = 0;
};

void runFrames(benchmark::State& state, bool keep) {
    Screen screen;
    screen.changing = static_cast<int>(state.range(0));
    if (!keep) screen.cache.maxCount = 0;
    screen.drawFrame();
    for (auto _ : state)
        screen.drawFrame();
    const double asked = static_cast<double>(screen.cache.hits + screen.cache.misses);
    state.counters["hits"] = static_cast<double>(screen.cache.hits) / asked;
    state.counters["texts"] = 2.0 * kRows + static_cast<double>(state.range(0));
}

void cachedText(benchmark::State& state) {
    runFrames(state, true);
}

void uncachedText(benchmark::State& state) {
    runFrames(state, false);
}

BENCHMARK(uncachedText)->Arg(0)->Arg(40)->Unit(benchmark::kMillisecond);
BENCHMARK(cachedText)->Arg(0)->Arg(40)->Unit(benchmark::kMillisecond);

}  // namespace
