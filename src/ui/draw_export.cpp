#include <algorithm>

#include "base/format.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kWidth = 320;
constexpr int kHeight = 48;
constexpr int kTextTop = 5;
constexpr int kTextHeight = 18;
constexpr int kBarInset = 12;
constexpr int kBarTop = 30;
constexpr int kBarHeight = 8;

}  // namespace

void drawExportOverlay(const AppState& app, float progress) {
    const float done = progress > 0.0f ? std::min(progress, 1.0f) : 0.0f;  // a NaN shows as 0
    const SDL_Rect box{(app.layout.windowW - kWidth) / 2, (app.layout.windowH - kHeight) / 2, kWidth,
                       kHeight};
    fillRect(app.renderer, box, {12, 12, 18, 235});
    outlineRect(app.renderer, box, {60, 160, 200, 220});
    DrawTextCentered(app.draw, formatText("Rendering WAV... %d%%", static_cast<int>(done * 100.0f)),
                     {box.x, box.y + kTextTop, box.w, kTextHeight}, app.fonts.fontTab, app.theme.themeText);
    const SDL_Rect track{box.x + kBarInset, box.y + kBarTop, box.w - 2 * kBarInset, kBarHeight};
    fillRect(app.renderer, track, app.theme.themeTrack);
    fillRect(app.renderer, {track.x, track.y, static_cast<int>(done * static_cast<float>(track.w)), track.h},
             {60, 180, 100, 255});
}

}  // namespace veloria
