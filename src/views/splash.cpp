#include "views/splash.h"

#include <array>
#include <cmath>

#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/text_cache.h"

namespace veloria {

namespace {

constexpr const char* kWord = "W E L C O M E";
constexpr const char* kName = "V e l o r i a";
constexpr std::uint32_t kLength = 7000;  // ms
constexpr double kFullShare = 0.3;       // of the length, before the fade begins
constexpr double kFillAlpha = 120.0;
constexpr double kNameAlpha = 180.0;
constexpr int kRise = 20;      // pixels that the word stands above the middle
constexpr int kNameDrop = 12;  // pixels between the word and the name

// One picture of the word, larger than the word itself and centred on it.
struct GlowLayer {
    int margin;      // pixels on every side
    double divisor;  // of the glow's alpha
};
constexpr std::array<GlowLayer, 6> kGlowLayers = {{
    {18, 6.0},
    {15, 5.0},
    {12, 4.0},
    {9, 3.0},
    {6, 2.0},
    {3, 1.0},
}};

Uint8 toByte(double value) {
    return static_cast<Uint8>(value);
}

// Its strength, 0 to 1; 0 once it is over.
double fadeAt(std::uint32_t elapsed) {
    if (elapsed >= kLength) return 0.0;
    const double part = elapsed / static_cast<double>(kLength);
    return part < kFullShare ? 1.0 : 1.0 - (part - kFullShare) / (1.0 - kFullShare);
}

void drawGlow(const DrawContext& context, const SDL_Rect& word, double wave, double fade) {
    const SDL_Color color{255, toByte(wave * 40.0 + 180.0), toByte(wave * 30.0 + 30.0), 255};
    const RenderedText text = renderedText(*context.textCache, context.renderer,
                                           {context.fonts->fontSplash, false, color, kWord}, context.ticks);
    if (text.texture == nullptr) return;
    const double glow = (wave * 25.0 + 40.0) * fade;
    for (const GlowLayer& layer : kGlowLayers) {
        const SDL_Rect place{word.x - layer.margin, word.y - layer.margin, word.w + 2 * layer.margin,
                             word.h + 2 * layer.margin};
        SDL_SetTextureAlphaMod(text.texture, toByte(glow / layer.divisor));
        SDL_RenderCopy(context.renderer, text.texture, nullptr, &place);
    }
}

void drawName(const DrawContext& context, int y, double wave, double fade) {
    TTF_Font* font = context.fonts->fontWide;
    if (font == nullptr) return;
    const SDL_Color color{toByte(wave * 35.0 + 220.0), toByte(wave * 40.0 + 180.0),
                          toByte(wave * 30.0 + 60.0), toByte(fade * kNameAlpha)};
    DrawText(context, kName, (context.windowW - measureText(font, kName).x) / 2, y, font, color);
}

void drawWelcome(const DrawContext& context, std::uint32_t elapsed, double fade) {
    const SDL_Rect window{0, 0, context.windowW, context.windowH};
    fillRect(context.renderer, window, {4, 4, 10, toByte(fade * kFillAlpha)});
    const SDL_Point size = measureText(context.fonts->fontSplash, kWord);
    const SDL_Rect word{(context.windowW - size.x) / 2, (context.windowH - size.y) / 2 - kRise, size.x,
                        size.y};
    const double wave = std::sin(elapsed * 0.004) * 0.5 + 0.5;
    drawGlow(context, word, wave, fade);
    DrawText(context, kWord, word.x, word.y, context.fonts->fontSplash,
             {255, toByte(wave * 30.0 + 200.0), toByte(wave * 30.0 + 40.0), toByte(fade * 255.0)});
    drawName(context, word.y + word.h + kNameDrop, wave, fade);
}

}  // namespace

void drawWelcomeSplash(const DrawContext& context, std::uint32_t& splashStart) {
    if (splashStart == 0) return;
    const std::uint32_t elapsed = context.ticks - splashStart;  // right across the wrap of the ticks as well
    const double fade = fadeAt(elapsed);
    if (fade <= 0.0) {
        splashStart = 0;
        return;
    }
    if (context.fonts->fontSplash == nullptr) return;
    // Its colours change with every frame: kept pictures would never be used again, only push others out.
    TextCache throwaway;
    throwaway.maxCount = 0;
    DrawContext own = context;
    own.textCache = &throwaway;
    drawWelcome(own, elapsed, fade);
    clearTextCache(throwaway);
}

}  // namespace veloria
