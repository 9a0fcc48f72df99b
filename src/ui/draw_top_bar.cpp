#include <array>
#include <cmath>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "toolkit/widgets.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kLineAlpha = 200;
constexpr int kHoverRise = 35;
constexpr int kCornerRadius = 4;
constexpr SDL_Color kWhite{255, 255, 255, 255};
constexpr SDL_Color kRingColor{200, 230, 255, 255};
constexpr SDL_Color kFileNameColor{180, 180, 200, 200};

constexpr int kStopSize = 8;
constexpr int kPlayHalf = 6;  // rows above and below the middle at the triangle's left side
constexpr double kRingRadius = 6.0;
constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

SDL_Point middleOf(const SDL_Rect& rect) {
    return {rect.x + rect.w / 2, rect.y + rect.h / 2};
}

void drawStopIcon(SDL_Renderer* renderer, const SDL_Rect& rect) {
    fillRect(renderer,
             {rect.x + (rect.w - kStopSize) / 2, rect.y + (rect.h - kStopSize) / 2, kStopSize, kStopSize},
             kWhite);
}

// Seven upright lines, the first from -6 to +6, the last a point.
void drawPlayIcon(SDL_Renderer* renderer, const SDL_Rect& rect) {
    const SDL_Point middle = middleOf(rect);
    for (int line = 0; line <= kPlayHalf; ++line) {
        const int half = kPlayHalf - line;
        vLine(renderer, middle.x - kPlayHalf / 2 + line, middle.y - half, middle.y + half, kWhite);
    }
}

SDL_Point ringPoint(SDL_Point middle, int degrees) {
    const double angle = degrees * kRadiansPerDegree;
    return {middle.x + static_cast<int>(std::lround(kRingRadius * std::cos(angle))),
            middle.y + static_cast<int>(std::lround(kRingRadius * std::sin(angle)))};
}

// A ring open at its right, with an arrow head at the upper end of the gap.
void drawResetIcon(SDL_Renderer* renderer, const SDL_Rect& rect) {
    constexpr int kFrom = 30;
    constexpr int kTo = 330;
    constexpr int kHead = 3;
    const SDL_Point middle = middleOf(rect);
    for (int degrees = kFrom; degrees <= kTo; degrees += 3) {
        const SDL_Point dot = ringPoint(middle, degrees);
        drawPoint(renderer, dot.x, dot.y, kRingColor);
    }
    const SDL_Point tip = ringPoint(middle, kTo);
    drawLine(renderer, tip.x, tip.y, tip.x - kHead, tip.y, kRingColor);
    drawLine(renderer, tip.x, tip.y, tip.x, tip.y - kHead, kRingColor);
}

void drawFace(const AppState& app, const Widget& widget, int button, const SDL_Rect& rect) {
    switch (button) {
        case kLoadButton:
            DrawTextCentered(app.draw, widget.label, rect, app.fonts.fontTab, kWhite);
            break;
        case kStopButton:
            drawStopIcon(app.renderer, rect);
            break;
        case kPlayButton:
            drawPlayIcon(app.renderer, rect);
            break;
        default:
            drawResetIcon(app.renderer, rect);
            break;
    }
}

void drawButton(const AppState& app, const Widget& widget, int button) {
    const SDL_Rect rect = topBarButtonRect(app.layout, button);
    const bool hover = contains(rect, app.draw.mouseX, app.draw.mouseY);
    const SDL_Color color = hover ? brighten(widget.color, kHoverRise) : widget.color;
    const bool lit = isLit(app, widget);
    DrawGradientButton(app.draw, rect, kCornerRadius, color, lit);
    drawFace(app, widget, button, rect);
    if (lit) drawSmallLamp(app.draw, rect.x + rect.w - 9, rect.y + 8, color);
}

}  // namespace

void drawTopBar(const AppState& app) {
    const SDL_Rect& bar = app.layout.topBar;
    fillRect(app.renderer, bar, app.theme.themeTopBar);
    hLine(app.renderer, 0, bar.w - 1, bar.h - 1, withAlpha(app.theme.themeBorder, kLineAlpha));
}

void drawTopBarButtons(const AppState& app) {
    int button = 0;  // they stand in the list in the order of TopBarButton
    for (const Widget& widget : app.widgets) {
        if (widget.group == kTopBarGroup && button < kTopBarButtonCount) drawButton(app, widget, button++);
    }
    if (app.transport.fileLabel.empty()) return;
    const SDL_Point place = fileNamePlace(app.layout);
    DrawTextUtf8(app.draw, "- " + app.transport.fileLabel, place.x, place.y, app.fonts.fontLabel,
                 kFileNameColor);
}

}  // namespace veloria
