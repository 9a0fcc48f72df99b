#include "toolkit/text.h"

#include <string>

#include "toolkit/text_cache.h"

namespace veloria {

namespace {

RenderedText rendered(const DrawContext& context, const TextKey& key) {
    // SDL_ttf renders alpha 0 as opaque, for the sake of old programs: a text that fades out would flash up
    // once at its end.
    if (key.color.a == 0) return {};
    return renderedText(*context.textCache, context.renderer, key, context.ticks);
}

void drawAt(const DrawContext& context, const TextKey& key, int x, int y) {
    const RenderedText text = rendered(context, key);
    if (text.texture == nullptr) return;
    const SDL_Rect place{x, y, text.w, text.h};
    SDL_RenderCopy(context.renderer, text.texture, nullptr, &place);
}

void drawCentered(const DrawContext& context, const TextKey& key, const SDL_Rect& area) {
    const RenderedText text = rendered(context, key);
    if (text.texture == nullptr) return;
    const SDL_Rect place{area.x + (area.w - text.w) / 2, area.y + (area.h - text.h) / 2, text.w, text.h};
    SDL_RenderCopy(context.renderer, text.texture, nullptr, &place);
}

void drawCenteredOn(const DrawContext& context, const TextKey& key, int middleX, int y) {
    const RenderedText text = rendered(context, key);
    if (text.texture == nullptr) return;
    const SDL_Rect place{middleX - text.w / 2, y, text.w, text.h};
    SDL_RenderCopy(context.renderer, text.texture, nullptr, &place);
}

SDL_Point measure(TTF_Font* font, std::string_view text,
                  int (*sizeOf)(TTF_Font*, const char*, int* w, int* h)) {
    SDL_Point size{0, 0};
    if (font == nullptr || text.empty()) return size;
    if (sizeOf(font, std::string(text).c_str(), &size.x, &size.y) != 0) return {0, 0};
    return size;
}

}  // namespace

void DrawText(const DrawContext& context, std::string_view text, int x, int y, TTF_Font* font,
              SDL_Color color) {
    drawAt(context, {font, false, color, text}, x, y);
}

void DrawTextUtf8(const DrawContext& context, std::string_view text, int x, int y, TTF_Font* font,
                  SDL_Color color) {
    drawAt(context, {font, true, color, text}, x, y);
}

void DrawTextCentered(const DrawContext& context, std::string_view text, const SDL_Rect& area, TTF_Font* font,
                      SDL_Color color) {
    drawCentered(context, {font, false, color, text}, area);
}

void DrawTextUtf8Centered(const DrawContext& context, std::string_view text, const SDL_Rect& area,
                          TTF_Font* font, SDL_Color color) {
    drawCentered(context, {font, true, color, text}, area);
}

void DrawTextCenteredOn(const DrawContext& context, std::string_view text, int middleX, int y, TTF_Font* font,
                        SDL_Color color) {
    drawCenteredOn(context, {font, false, color, text}, middleX, y);
}

void DrawTextUtf8CenteredOn(const DrawContext& context, std::string_view text, int middleX, int y,
                            TTF_Font* font, SDL_Color color) {
    drawCenteredOn(context, {font, true, color, text}, middleX, y);
}

SDL_Point measureText(TTF_Font* font, std::string_view text) {
    return measure(font, text, TTF_SizeText);
}

SDL_Point measureTextUtf8(TTF_Font* font, std::string_view text) {
    return measure(font, text, TTF_SizeUTF8);
}

}  // namespace veloria
