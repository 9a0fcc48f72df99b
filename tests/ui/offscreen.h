// A software renderer without a window, and the pixels that it drew: what every test of a picture begins
// with.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <ostream>
#include <vector>

#include "toolkit/draw_context.h"
#include "toolkit/text_cache.h"

// For gtest, which looks in SDL_Color's own namespace.
inline void PrintTo(const SDL_Color& color, std::ostream* out) {
    *out << "(" << int{color.r} << ", " << int{color.g} << ", " << int{color.b} << ", " << int{color.a}
         << ")";
}
inline bool operator==(const SDL_Color& left, const SDL_Color& right) {
    return left.r == right.r && left.g == right.g && left.b == right.b && left.a == right.a;
}

namespace veloria::test {

struct Picture {
    int w = 0;
    int h = 0;
    std::vector<SDL_Color> pixels;  // row by row

    // Fully transparent black outside the picture, which no renderer of this file draws.
    [[nodiscard]] SDL_Color at(int x, int y) const {
        if (x < 0 || y < 0 || x >= w || y >= h) return {0, 0, 0, 0};
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(w) +
                      static_cast<std::size_t>(x)];
    }
    bool operator==(const Picture& other) const {
        return w == other.w && h == other.h && pixels == other.pixels;
    }
};

// All that the renderer has drawn so far, with or without a window.
inline Picture readPicture(SDL_Renderer* renderer) {
    Picture picture;
    SDL_GetRendererOutputSize(renderer, &picture.w, &picture.h);
    const std::size_t count = static_cast<std::size_t>(picture.w) * static_cast<std::size_t>(picture.h);
    std::vector<Uint8> bytes(count * 4);
    const SDL_Rect all{0, 0, picture.w, picture.h};
    EXPECT_EQ(SDL_RenderReadPixels(renderer, &all, SDL_PIXELFORMAT_RGBA32, bytes.data(), picture.w * 4), 0)
        << SDL_GetError();
    picture.pixels.reserve(count);
    for (std::size_t i = 0; i < bytes.size(); i += 4) {
        picture.pixels.push_back({bytes[i], bytes[i + 1], bytes[i + 2], bytes[i + 3]});
    }
    return picture;
}

// How `top` looks over the opaque colour `below`, to the nearest step.
inline SDL_Color over(SDL_Color top, SDL_Color below) {
    const auto mix = [&](Uint8 a, Uint8 b) {
        return static_cast<Uint8>((a * top.a + b * (255 - top.a) + 127) / 255);
    };
    return {mix(top.r, below.r), mix(top.g, below.g), mix(top.b, below.b), 255};
}

// The software renderer rounds a blend down once or twice: two steps a channel count as the same.
inline testing::AssertionResult isColor(SDL_Color seen, SDL_Color wanted, int tolerance = 2) {
    if (std::abs(seen.r - wanted.r) <= tolerance && std::abs(seen.g - wanted.g) <= tolerance &&
        std::abs(seen.b - wanted.b) <= tolerance) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << testing::PrintToString(seen) << " is not " << testing::PrintToString(wanted);
}

// The renderer and its surface.
struct Offscreen {
    Offscreen(int w, int h)
        : surface(SDL_CreateRGBSurfaceWithFormat(0, w, h, 32, SDL_PIXELFORMAT_ARGB8888)),
          renderer(SDL_CreateSoftwareRenderer(surface)) {
        clear({0, 0, 0, 255});
    }
    ~Offscreen() {
        SDL_DestroyRenderer(renderer);
        SDL_FreeSurface(surface);
    }
    Offscreen(const Offscreen&) = delete;
    Offscreen& operator=(const Offscreen&) = delete;

    void clear(SDL_Color color) {
        SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, 255);
        SDL_RenderClear(renderer);
    }
    [[nodiscard]] Picture picture() const { return readPicture(renderer); }

    SDL_Surface* surface;
    SDL_Renderer* renderer;
};

constexpr SDL_Color kBackdrop{90, 60, 30, 255};

// An off-screen window with fonts, theme and text cache, in a plain colour.
class DrawTest : public testing::Test {
  protected:
    explicit DrawTest(int w = 400, int h = 300) : screen(w, h) {
        EXPECT_EQ(TTF_Init(), 0);
        openFonts(fonts);
        screen.clear(kBackdrop);
        context.renderer = screen.renderer;
        context.fonts = &fonts;
        context.theme = &theme;
        context.textCache = &cache;
        context.mouseX = -1;
        context.mouseY = -1;
        context.windowW = w;
        context.windowH = h;
    }
    ~DrawTest() override {
        clearTextCache(cache);
        closeFonts(fonts);
        TTF_Quit();
    }

    [[nodiscard]] Picture picture() const { return screen.picture(); }

    // Pixels of the picture that are not the backdrop.
    [[nodiscard]] int touched() const {
        int count = 0;
        for (const SDL_Color& pixel : picture().pixels)
            count += pixel == kBackdrop ? 0 : 1;
        return count;
    }

    Offscreen screen;
    Fonts fonts;
    Theme theme;
    TextCache cache;
    DrawContext context;
};

}  // namespace veloria::test
