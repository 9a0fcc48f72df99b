#include <algorithm>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "ui/draw.h"
#include "ui/scrolling.h"

namespace veloria {

namespace {

constexpr int kRowTrackTop = 69;  // lower than the rows begin: odd, and kept
constexpr int kThumbMinimum = 16;
constexpr SDL_Color kThumbColor{200, 100, 60, 215};

// A track as high as the view, with a thumb for the part of the content that is seen.
void drawScrollBar(const AppState& app, const SDL_Rect& track, int farthest, int scroll) {
    if (farthest <= 0 || track.h <= 0) return;
    fillRect(app.renderer, track, withAlpha(app.theme.themeTrack, 180));
    const int view = track.h;
    const int thumb = std::min(std::max(view * view / (view + farthest), kThumbMinimum), view);
    const int held = std::clamp(scroll, 0, farthest);
    fillRect(app.renderer, {track.x, track.y + held * (view - thumb) / farthest, track.w, thumb},
             kThumbColor);
}

}  // namespace

void drawLeftScrollBar(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    const int top = kTabBottom + 1;  // below the line that closes the tabs
    drawScrollBar(
        app, {app.layout.leftWidth - kScrollBarWidth, top, kScrollBarWidth, app.layout.contentBottom - top},
        maxLeftScroll(app), app.layout.leftScroll);
}

void drawRowScrollBar(const AppState& app) {
    const WindowLayout& layout = app.layout;
    if (!rightPanelShown(layout)) return;
    drawScrollBar(app,
                  {layout.windowW - kScrollBarWidth, kRowTrackTop, kScrollBarWidth,
                   layout.contentBottom - kRowTrackTop},
                  maxRowScroll(layout, shownRows(app).count),
                  app.tableTab == 0 ? app.avatarScroll : app.shadowScroll);
}

}  // namespace veloria
