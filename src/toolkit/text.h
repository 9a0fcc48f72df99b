// Text at a point. A font that is not open and a text that cannot be rendered draw nothing. Main thread.
#pragma once

#include <SDL.h>
#include <SDL_ttf.h>

#include <string_view>

#include "toolkit/draw_context.h"

namespace veloria {

// The text, one byte a Latin-1 letter, with its upper left corner at (x, y) in pixels. At alpha 0 nothing is
// drawn.
void DrawText(const DrawContext& context, std::string_view text, int x, int y, TTF_Font* font,
              SDL_Color color);

// The same with UTF-8: whatever may hold a file name or a letter outside ASCII.
void DrawTextUtf8(const DrawContext& context, std::string_view text, int x, int y, TTF_Font* font,
                  SDL_Color color);

// In the middle of `area` both ways; a text larger than the area sticks out on both sides.
void DrawTextCentered(const DrawContext& context, std::string_view text, const SDL_Rect& area, TTF_Font* font,
                      SDL_Color color);
void DrawTextUtf8Centered(const DrawContext& context, std::string_view text, const SDL_Rect& area,
                          TTF_Font* font, SDL_Color color);

// With its middle at `middleX` and its upper edge at y.
void DrawTextCenteredOn(const DrawContext& context, std::string_view text, int middleX, int y, TTF_Font* font,
                        SDL_Color color);
void DrawTextUtf8CenteredOn(const DrawContext& context, std::string_view text, int middleX, int y,
                            TTF_Font* font, SDL_Color color);

// Width and height in pixels, as (x, y); (0, 0) without a font or on failure.
[[nodiscard]] SDL_Point measureText(TTF_Font* font, std::string_view text);
[[nodiscard]] SDL_Point measureTextUtf8(TTF_Font* font, std::string_view text);

}  // namespace veloria
