#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kEdgeAlpha = 200;
constexpr int kTabSideAlpha = 160;
constexpr int kUnderlineAlpha = 230;

void drawTab(const AppState& app, int tab) {
    const SDL_Rect rect = leftTabRect(app.layout, tab);
    const bool active = app.viewMode == tab;
    fillRect(app.renderer, rect, active ? app.theme.themeTabActive : app.theme.themeTabIdle);
    const LeftTab& row = kLeftTabs[tab];
    if (active) {
        fillRect(app.renderer, {rect.x + 1, rect.y + rect.h - 2, rect.w - 2, 2},
                 withAlpha(row.underline, kUnderlineAlpha));
    }
    vLine(app.renderer, rect.x, rect.y, rect.y + rect.h, withAlpha(app.theme.themeBorder, kTabSideAlpha));
    const ClipGuard clip(app.renderer, rect);  // a caption wider than its tab
    DrawTextCentered(app.draw, row.caption, rect, app.fonts.fontTab,
                     active ? app.theme.themeText : app.theme.themeTextDim);
}

}  // namespace

void drawLeftPanelFrame(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    const SDL_Rect panel = leftPanelClip(app.layout);
    fillRect(app.renderer, panel, app.theme.themePanel);
    // In the one column between the panel and the centre.
    fillRect(app.renderer, {panel.x + panel.w, panel.y, 1, panel.h},
             withAlpha(app.theme.themeBorder, kEdgeAlpha));
    const ClipGuard clip(app.renderer, panel);
    for (int tab = 0; tab < kTabCount; ++tab)
        drawTab(app, tab);
    hLine(app.renderer, 0, panel.w - 1, kTabTop + kTabHeight, withAlpha(app.theme.themeBorder, kEdgeAlpha));
}

}  // namespace veloria
