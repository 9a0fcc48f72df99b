// What every step of the scene's drawing needs.
#pragma once

#include <SDL.h>

#include "toolkit/draw_context.h"
#include "views/scene/geometry/camera.h"
#include "views/scene/lines3d.h"

namespace veloria {

struct SceneCanvas {
    const DrawContext& context;
    SDL_Rect rect{};               // pixels
    const KatharaViewState& view;  // as it is now: rotation moves it on between two steps
    float pulse = 1.0f;            // 0.4 to 1, the breath of what sounds

    [[nodiscard]] SDL_Renderer* renderer() const { return context.renderer; }
    [[nodiscard]] TTF_Font* labelFont() const { return context.fonts->fontTiny; }
    [[nodiscard]] TTF_Font* hebrewFont() const { return context.fonts->fontWide; }

    [[nodiscard]] ScreenPoint project(Point3 point) const {
        return projectPoint(toCamera(point, view), view, rect.x, rect.y, rect.w, rect.h);
    }
    void line(Point3 from, Point3 to, SDL_Color colour) const {
        drawLine3d(renderer(), from, to, view, rect.w, rect.h, rect.x, rect.y, colour);
    }
    void thickLine(Point3 from, Point3 to, SDL_Color colour, int width) const {
        drawThickLine3d(renderer(), from, to, view, rect.w, rect.h, rect.x, rect.y, colour, width);
    }
    // An alpha that breathes, `full` at its strongest.
    [[nodiscard]] Uint8 pulsed(float full) const { return static_cast<Uint8>(pulse * full); }
};

}  // namespace veloria
