#include "views/scene/lines3d.h"

#include <cmath>

#include "toolkit/primitives.h"

namespace veloria {

namespace {

// The part of a line that is left, as shares of its length.
struct Span {
    double start = 0.0;
    double end = 1.0;
};

// Keeps what lies at or above `low` of a coordinate that goes from `from` by `step`. The caller turns both
// about for an upper bound.
bool keepAbove(Span& span, double from, double step, double low) {
    if (step == 0.0) return from >= low;
    const double crossing = (low - from) / step;
    if (step > 0.0 && crossing > span.start) span.start = crossing;
    if (step < 0.0 && crossing < span.end) span.end = crossing;
    return span.start <= span.end;
}

bool project(Point3 from, Point3 to, const KatharaViewState& view, const SDL_Rect& rect, SDL_Point& start,
             SDL_Point& end) {
    CameraPoint a = toCamera(from, view);
    CameraPoint b = toCamera(to, view);
    if (!clipToNearDepth(a, b)) return false;
    const ScreenPoint first = projectPoint(a, view, rect.x, rect.y, rect.w, rect.h);
    const ScreenPoint second = projectPoint(b, view, rect.x, rect.y, rect.w, rect.h);
    start = {first.screenX, first.screenY};
    end = {second.screenX, second.screenY};
    return first.visible && second.visible && cutToSurroundings(rect, start, end);
}

}  // namespace

void drawLine3d(SDL_Renderer* renderer, Point3 from, Point3 to, const KatharaViewState& view, int rectW,
                int rectH, int rectX, int rectY, SDL_Color color) {
    SDL_Point a;
    SDL_Point b;
    if (!project(from, to, view, {rectX, rectY, rectW, rectH}, a, b)) return;
    drawLine(renderer, a.x, a.y, b.x, b.y, color);
}

void drawThickLine3d(SDL_Renderer* renderer, Point3 from, Point3 to, const KatharaViewState& view, int rectW,
                     int rectH, int rectX, int rectY, SDL_Color color, int width) {
    SDL_Point a;
    SDL_Point b;
    if (!project(from, to, view, {rectX, rectY, rectW, rectH}, a, b)) return;
    drawThickLine2d(renderer, a.x, a.y, b.x, b.y, color, width);
}

bool cutToSurroundings(const SDL_Rect& rect, SDL_Point& from, SDL_Point& to) {
    const SDL_Rect area{rect.x - rect.w, rect.y - rect.h, 3 * rect.w, 3 * rect.h};
    if (SDL_PointInRect(&from, &area) == SDL_TRUE && SDL_PointInRect(&to, &area) == SDL_TRUE) return true;
    const double x = from.x;
    const double y = from.y;
    const double dx = to.x - x;
    const double dy = to.y - y;
    Span span;
    if (!keepAbove(span, x, dx, area.x) || !keepAbove(span, -x, -dx, -(area.x + area.w - 1)) ||
        !keepAbove(span, y, dy, area.y) || !keepAbove(span, -y, -dy, -(area.y + area.h - 1))) {
        return false;
    }
    const auto at = [&](double part) {
        return SDL_Point{static_cast<int>(std::lround(x + dx * part)),
                         static_cast<int>(std::lround(y + dy * part))};
    };
    from = at(span.start);
    to = at(span.end);
    return true;
}

}  // namespace veloria
