#include "views/splash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr const char* kWord = "W E L C O M E";
constexpr const char* kName = "V e l o r i a";

struct Bounds {
    int left = 100000;
    int top = 100000;
    int right = -1;
    int bottom = -1;
};

class Splash : public test::DrawTest {
  protected:
    Splash() : DrawTest(800, 400) {}

    // The welcome `elapsed` ms after its start.
    Picture drawAt(std::uint32_t elapsed) {
        screen.clear(kBackdrop);
        splashStart = 1000;
        context.ticks = 1000 + elapsed;
        drawWelcomeSplash(context, splashStart);
        return picture();
    }

    // The same, put together from single pictures: each text rendered for itself and copied.
    static void copyText(SDL_Renderer* renderer, TTF_Font* font, const char* text, SDL_Color color,
                         int textureAlpha, const SDL_Rect* place, int x, int y) {
        SDL_Surface* surface = TTF_RenderText_Blended(font, text, color);
        SDL_Texture* texture = SDL_CreateTextureFromSurface(renderer, surface);
        SDL_SetTextureAlphaMod(texture, static_cast<Uint8>(textureAlpha));
        const SDL_Rect plain{x, y, surface->w, surface->h};
        SDL_RenderCopy(renderer, texture, nullptr, place != nullptr ? place : &plain);
        SDL_DestroyTexture(texture);
        SDL_FreeSurface(surface);
    }
    [[nodiscard]] Picture expectedAt(int elapsed, int w, int h) const {
        test::Offscreen sheet(w, h);
        sheet.clear(kBackdrop);
        const double p = elapsed / 7000.0;
        const double fade = p < 0.3 ? 1.0 : 1.0 - (p - 0.3) / 0.7;
        const double wave = std::sin(elapsed * 0.004) * 0.5 + 0.5;
        const double glow = (wave * 25 + 40) * fade;
        SDL_SetRenderDrawBlendMode(sheet.renderer, SDL_BLENDMODE_BLEND);
        SDL_SetRenderDrawColor(sheet.renderer, 4, 4, 10, static_cast<Uint8>(fade * 120));
        SDL_RenderFillRect(sheet.renderer, nullptr);
        int tw = 0;
        int th = 0;
        TTF_SizeText(fonts.fontSplash, kWord, &tw, &th);
        const int cx = (w - tw) / 2;
        const int cy = (h - th) / 2;
        const SDL_Color glowColor{255, static_cast<Uint8>(wave * 40 + 180),
                                  static_cast<Uint8>(wave * 30 + 30), 255};
        const double alphas[6] = {glow / 6, glow / 5, glow * 0.25, glow / 3, glow * 0.5, glow};
        const SDL_Rect places[6] = {
            {cx - 18, cy - 38, tw + 36, th + 36}, {cx - 15, cy - 35, tw + 30, th + 30},
            {cx - 12, cy - 32, tw + 24, th + 24}, {cx - 9, cy - 29, tw + 18, th + 18},
            {cx - 6, cy - 26, tw + 12, th + 12},  {cx - 3, cy - 23, tw + 6, th + 6}};
        for (int i = 0; i < 6; ++i) {
            copyText(sheet.renderer, fonts.fontSplash, kWord, glowColor, static_cast<int>(alphas[i]),
                     &places[i], 0, 0);
        }
        copyText(sheet.renderer, fonts.fontSplash, kWord,
                 {255, static_cast<Uint8>(wave * 30 + 200), static_cast<Uint8>(wave * 30 + 40),
                  static_cast<Uint8>(fade * 255)},
                 255, nullptr, cx, cy - 20);
        int nw = 0;
        int nh = 0;
        TTF_SizeText(fonts.fontWide, kName, &nw, &nh);
        copyText(sheet.renderer, fonts.fontWide, kName,
                 {static_cast<Uint8>(wave * 35 + 220), static_cast<Uint8>(wave * 40 + 180),
                  static_cast<Uint8>(wave * 30 + 60), static_cast<Uint8>(fade * 180)},
                 255, nullptr, (w - nw) / 2, cy - 20 + th + 12);
        return sheet.picture();
    }

    // Where the picture is brighter than the backdrop, that is where text stands.
    static Bounds bright(const Picture& seen) {
        Bounds bounds;
        for (int y = 0; y < seen.h; ++y) {
            for (int x = 0; x < seen.w; ++x) {
                if (seen.at(x, y).g <= kBackdrop.g + 60) continue;
                bounds.left = std::min(bounds.left, x);
                bounds.top = std::min(bounds.top, y);
                bounds.right = std::max(bounds.right, x);
                bounds.bottom = std::max(bounds.bottom, y);
            }
        }
        return bounds;
    }

    std::uint32_t splashStart = 0;
};

TEST_F(Splash, LooksAsDescribedAtEachTime) {
    for (const int elapsed : {0, 1, 393, 1178, 2000, 2099, 2100, 2500, 4000, 5500, 6600}) {
        EXPECT_TRUE(drawAt(static_cast<std::uint32_t>(elapsed)) == expectedAt(elapsed, 800, 400)) << elapsed;
        EXPECT_EQ(splashStart, 1000u) << elapsed;
    }
}

TEST_F(Splash, DarkensTheWholeWindowAtFullStrengthUntilTwoSecondsAndAPart) {
    for (const std::uint32_t elapsed : {0u, 500u, 1500u, 2099u}) {
        const Picture seen = drawAt(elapsed);
        const SDL_Color dark = over({4, 4, 10, 120}, kBackdrop);
        EXPECT_TRUE(isColor(seen.at(0, 0), dark)) << elapsed;
        EXPECT_TRUE(isColor(seen.at(799, 399), dark)) << elapsed;
        EXPECT_TRUE(isColor(seen.at(0, 399), dark)) << elapsed;
    }
}

TEST_F(Splash, FadesInAStraightLineAfterwards) {
    // 120 * (1 - (t / 7000 - 0.3) / 0.7), cut to whole steps.
    const struct {
        std::uint32_t elapsed;
        Uint8 alpha;
    } steps[] = {{2500, 110}, {3000, 97}, {4000, 73}, {5000, 48}, {6000, 24}, {6800, 4}};
    for (const auto& step : steps) {
        const SDL_Color dark = over({4, 4, 10, step.alpha}, kBackdrop);
        EXPECT_TRUE(isColor(drawAt(step.elapsed).at(2, 2), dark, 1)) << step.elapsed;
    }
}

TEST_F(Splash, TheWordIsOpaqueAtFullStrength) {
    // The wave stands at its middle at the start: green 200 + 15, blue 40 + 15.
    const Picture seen = drawAt(0);
    int opaque = 0;
    for (const SDL_Color& pixel : seen.pixels)
        opaque += isColor(pixel, {255, 215, 55, 255}, 1) ? 1 : 0;
    EXPECT_GT(opaque, 300);
}

TEST_F(Splash, IsOverAtSevenSeconds) {
    const Picture last = drawAt(6999);
    EXPECT_EQ(splashStart, 1000u);
    EXPECT_EQ(last.at(400, 180), kBackdrop) << "already too faint to be seen";
    drawAt(7000);
    EXPECT_EQ(splashStart, 0u);
    EXPECT_EQ(touched(), 0);
    drawAt(90000);
    EXPECT_EQ(splashStart, 0u);
    EXPECT_EQ(touched(), 0);
}

TEST_F(Splash, NothingFlashesUpInTheLastMoments) {
    for (std::uint32_t elapsed = 6970; elapsed < 7000; elapsed += 3) {
        const Picture seen = drawAt(elapsed);
        int strongest = 0;
        for (const SDL_Color& pixel : seen.pixels)
            strongest = std::max(strongest, std::abs(pixel.r - kBackdrop.r));
        EXPECT_LE(strongest, 3) << elapsed;
    }
}

TEST_F(Splash, FinishedItDrawsNothingAtAnyTime) {
    for (const std::uint32_t ticks : {0u, 100u, 6000u, 50000u}) {
        splashStart = 0;
        context.ticks = ticks;
        drawWelcomeSplash(context, splashStart);
        EXPECT_EQ(splashStart, 0u);
        EXPECT_EQ(touched(), 0);
    }
}

TEST_F(Splash, RunsOverTheWrapOfTheClock) {
    splashStart = 0xFFFFFF00u;
    context.ticks = 137;  // 256 + 137 = 393 ms later
    drawWelcomeSplash(context, splashStart);
    EXPECT_TRUE(picture() == expectedAt(393, 800, 400));
    EXPECT_EQ(splashStart, 0xFFFFFF00u);
}

TEST_F(Splash, StandsInTheMiddleOfEverySize) {
    const Bounds wide = bright(drawAt(0));
    EXPECT_NEAR(wide.left + wide.right, 799, 4);
    test::Offscreen larger(1000, 600);
    larger.clear(kBackdrop);
    TextCache largerCache;
    DrawContext own = context;
    own.renderer = larger.renderer;
    own.textCache = &largerCache;
    own.windowW = 1000;
    own.windowH = 600;
    drawWelcomeSplash(own, splashStart);
    const Picture seen = larger.picture();
    EXPECT_TRUE(seen == expectedAt(0, 1000, 600));
    const Bounds moved = bright(seen);
    EXPECT_EQ(moved.left, wide.left + 100);
    EXPECT_EQ(moved.right, wide.right + 100);
    EXPECT_EQ(moved.top, wide.top + 100);
    EXPECT_EQ(moved.bottom, wide.bottom + 100);
    clearTextCache(largerCache);
}

TEST_F(Splash, WithoutItsFontNothingIsDrawnAndTheTimeStillEnds) {
    Fonts without = fonts;
    without.fontSplash = nullptr;
    context.fonts = &without;
    drawAt(500);
    EXPECT_EQ(touched(), 0);
    EXPECT_EQ(splashStart, 1000u);
    drawAt(7000);
    EXPECT_EQ(splashStart, 0u);
}

TEST_F(Splash, WithoutTheSmallerFontOnlyTheNameIsMissing) {
    const Picture whole = drawAt(0);
    Fonts without = fonts;
    without.fontWide = nullptr;
    context.fonts = &without;
    const Picture seen = drawAt(0);
    int w = 0;
    int h = 0;
    TTF_SizeText(fonts.fontSplash, kWord, &w, &h);
    const int nameTop = (400 - h) / 2 - 20 + h + 12;
    const SDL_Color dark = over({4, 4, 10, 120}, kBackdrop);
    int lost = 0;
    for (int y = 0; y < 400; ++y) {
        for (int x = 0; x < 800; ++x) {
            if (y < nameTop) {
                EXPECT_EQ(seen.at(x, y), whole.at(x, y));
            } else if (y >= nameTop + 4) {  // the widest glow ends two rows above the name's own place
                EXPECT_TRUE(isColor(seen.at(x, y), dark));
                lost += isColor(whole.at(x, y), dark) ? 0 : 1;
            }
        }
    }
    EXPECT_GT(lost, 100);
}

TEST_F(Splash, KeepsNoPictures) {
    for (std::uint32_t elapsed = 0; elapsed < 300; elapsed += 16)
        drawAt(elapsed);
    EXPECT_EQ(cache.entries.size(), 0u);
    EXPECT_EQ(cache.misses, 0u);
}

}  // namespace
}  // namespace veloria
