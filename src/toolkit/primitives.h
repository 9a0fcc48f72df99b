// Rectangles, lines and discs in a colour. Each sets colour and blend mode for itself and relies on no
// earlier call. Pixels of the render target throughout; nothing is anti-aliased. Main thread.
#pragma once

#include <SDL.h>

namespace veloria {

void fillRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color,
              SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

// One pixel wide, inside the rectangle; every pixel is blended once, the corners too.
void outlineRect(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color,
                 SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

// Both ends belong to the line, in either order.
void hLine(SDL_Renderer* renderer, int x0, int x1, int y, SDL_Color color,
           SDL_BlendMode blend = SDL_BLENDMODE_BLEND);
void vLine(SDL_Renderer* renderer, int x, int y0, int y1, SDL_Color color,
           SDL_BlendMode blend = SDL_BLENDMODE_BLEND);
void drawLine(SDL_Renderer* renderer, int x0, int y0, int x1, int y1, SDL_Color color,
              SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

void drawPoint(SDL_Renderer* renderer, int x, int y, SDL_Color color,
               SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

// 2 * (width / 2) + 1 parallel lines, so that widths of 2 and 3 both give three. Nothing when shorter than
// 0.1 pixels.
void drawThickLine2d(SDL_Renderer* renderer, int x0, int y0, int x1, int y1, SDL_Color color, int width,
                     SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

// The same between points that lie between the pixels. Nothing when shorter than 0.5 pixels.
void drawThickLine2dF(SDL_Renderer* renderer, float x0, float y0, float x1, float y1, SDL_Color color,
                      int width, SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

// The points with dx * dx + dy * dy at most radius * radius; every pixel is blended once. Nothing for a
// negative radius, one point for 0.
void fillCircle(SDL_Renderer* renderer, int cx, int cy, int radius, SDL_Color color,
                SDL_BlendMode blend = SDL_BLENDMODE_BLEND);

// While it lives, drawing is cut to `area`, and to the clip that was set before if there was one; then the
// earlier clip is back.
struct ClipGuard {
    ClipGuard(SDL_Renderer* target, const SDL_Rect& area);
    ~ClipGuard();
    ClipGuard(const ClipGuard&) = delete;
    ClipGuard& operator=(const ClipGuard&) = delete;

    SDL_Renderer* renderer;
    bool wasSet;
    SDL_Rect previous{};
};

}  // namespace veloria
