// The scene on an off-screen renderer, and a second way to work out where a point of it must be seen.
#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "tests/ui/offscreen.h"
#include "toolkit/text.h"
#include "views/scene/geometry/scene_model.h"
#include "views/scene/scene_canvas.h"

namespace veloria::test {

// In double precision by turning the axes: the scene's Y axis stays up, the camera looks along its own Z.
struct Seen {
    int x;
    int y;
    double depth;
};
inline Seen see(Point3 point, const KatharaViewState& view, const SDL_Rect& rect) {
    const double turn = static_cast<double>(view.azimuth) * M_PI / 180.0;
    const double tilt = static_cast<double>(view.elevation) * M_PI / 180.0;
    const double across = point.x * std::cos(turn) + point.z * std::sin(turn);
    const double away = point.z * std::cos(turn) - point.x * std::sin(turn);
    const double up = point.y * std::cos(tilt) - away * std::sin(tilt);
    const double depth = point.y * std::sin(tilt) + away * std::cos(tilt) + static_cast<double>(view.zoom);
    const double pixels = std::min(rect.w, rect.h) * 0.2 * static_cast<double>(view.fov) / depth;
    return {rect.x + rect.w / 2 + static_cast<int>(std::trunc(across * pixels)),
            rect.y + rect.h / 2 - static_cast<int>(std::trunc(up * pixels)), depth};
}

// A camera that looks straight on, with all parts of the scene switched off.
inline KatharaViewState emptyView() {
    KatharaViewState view;
    view.azimuth = 0.0f;
    view.elevation = 0.0f;
    view.showSolfeggio = view.showReflection = view.showRotation = view.showShadow = false;
    view.showMerkaba = view.showEnneagram = view.showVitruvian = view.showGrid = false;
    view.showCentroid = false;
    return view;
}

class SceneTest : public DrawTest {
  protected:
    explicit SceneTest(int w = 640, int h = 400) : DrawTest(w, h), rect{0, 0, w, h} {}

    [[nodiscard]] SceneCanvas canvas() const { return {context, rect, view, pulse}; }
    [[nodiscard]] Seen seen(Point3 point) const { return see(point, view, rect); }
    void closeAllFonts() { closeFonts(fonts); }

    // Whether `text` stands in the picture with its upper left corner at (x, y), in this very colour: every
    // pixel that it covers, and a margin of one around it, as drawn on the plain `ground`.
    [[nodiscard]] bool showsText(const Picture& picture, const std::string& text, int x, int y,
                                 TTF_Font* font, SDL_Color color, SDL_Color ground = kBackdrop) const {
        const SDL_Point size = measureTextUtf8(font, text);
        Offscreen sheet(picture.w, picture.h);
        sheet.clear(ground);
        DrawContext own = context;
        TextCache ownCache;
        own.renderer = sheet.renderer;
        own.textCache = &ownCache;
        DrawTextUtf8(own, text, x, y, font, color);
        const Picture wanted = sheet.picture();
        clearTextCache(ownCache);
        int lit = 0;
        for (int py = y; py < y + size.y; ++py) {
            for (int px = x; px < x + size.x; ++px) {
                if (!isColor(picture.at(px, py), wanted.at(px, py), 3)) return false;
                if (!isColor(wanted.at(px, py), ground, 6)) ++lit;
            }
        }
        return lit > 3;
    }

    SDL_Rect rect;
    KatharaViewState view = emptyView();
    float pulse = 1.0f;
};

}  // namespace veloria::test
