#include <algorithm>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"

namespace veloria {

namespace {

constexpr int kBorderAlpha = 200;
constexpr int kActiveFillAlpha = 110;
constexpr int kStripTop = 32;
constexpr int kSubStripTop = 59;

struct TabLook {
    const char* caption;
    SDL_Color color;  // of the tab while it is active
};
constexpr TabLook kTableTabs[] = {{"162 AVATAR", {200, 100, 60, 255}}, {"180 SHADOW", {200, 60, 60, 255}}};
constexpr TabLook kAvatarSubTabs[] = {{"REFLECTION", {200, 100, 60, 255}}, {"ROTATION", {60, 150, 200, 255}}};

SDL_Rect clipOf(const WindowLayout& layout) {
    const SDL_Rect& panel = layout.rightPanel;
    return {panel.x, panel.y, panel.w, std::max(panel.h, 0)};
}

void drawTab(const AppState& app, const TabLook& look, const SDL_Rect& rect, bool active, TTF_Font* font) {
    fillRect(app.renderer, rect, active ? withAlpha(look.color, kActiveFillAlpha) : app.theme.themeTabIdle);
    if (active) fillRect(app.renderer, {rect.x, rect.y + rect.h - 2, rect.w, 2}, look.color);
    const ClipGuard clip(app.renderer, rect);
    DrawTextCentered(app.draw, look.caption, rect, font,
                     active ? app.theme.themeText : app.theme.themeTextDim);
}

void drawAvatarSubTabs(const AppState& app) {
    for (int subTab = 0; subTab < 2; ++subTab) {
        drawTab(app, kAvatarSubTabs[subTab], avatarSubTabRect(app.layout, subTab), app.avatarSubTab == subTab,
                app.fonts.fontLabel);
    }
}

}  // namespace

void drawRightPanel(const AppState& app) {
    if (!rightPanelShown(app.layout)) return;
    const SDL_Rect panel = clipOf(app.layout);
    const ClipGuard clip(app.renderer, panel);
    const SDL_Color border = withAlpha(app.theme.themeBorder, kBorderAlpha);
    const int right = panel.x + panel.w - 1;
    fillRect(app.renderer, panel, app.theme.themePanel);
    outlineRect(app.renderer, panel, border);
    fillRect(app.renderer, {panel.x, kStripTop, panel.w, 26}, app.theme.themeTopBar);
    for (int tab = 0; tab < 2; ++tab) {
        drawTab(app, kTableTabs[tab], tableTabRect(app.layout, tab), app.tableTab == tab, app.fonts.fontTab);
    }
    hLine(app.renderer, panel.x, right, 58, border);
    const bool avatar = app.tableTab == 0;
    if (avatar) fillRect(app.renderer, {panel.x, kSubStripTop, panel.w, 24}, app.theme.themeTopBar);
    hLine(app.renderer, panel.x, right, kSubStripTop, withAlpha(kTableTabs[avatar ? 0 : 1].color, 160));
    if (!avatar) return;
    drawAvatarSubTabs(app);
    hLine(app.renderer, panel.x, right, 83, border);
}

}  // namespace veloria
