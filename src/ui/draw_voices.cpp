#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"
#include "views/scope.h"

namespace veloria {

namespace {

constexpr const char* kSubTabCaptions[] = {"VOICE", "FREQUENCY"};

void drawSubTab(const AppState& app, int subTab) {
    const SDL_Rect rect = voicesSubTabRect(app.layout, subTab);
    const Theme& theme = app.theme;
    const bool active = app.voicesSubTab == subTab;
    fillRect(app.renderer, rect,
             active ? withAlpha(theme.themeTabActive, 220) : withAlpha(theme.themeTabIdle, 200));
    outlineRect(app.renderer, rect, active ? theme.themeAccent : withAlpha(theme.themeBorder, 150));
    const ClipGuard clip(app.renderer, rect);
    DrawTextCentered(app.draw, kSubTabCaptions[subTab], rect, app.fonts.fontLabel,
                     active ? theme.themeText : theme.themeTextDim);
}

}  // namespace

void drawVoicesTab(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    const ClipGuard clip(app.renderer, leftPanelClip(app.layout));
    drawSubTab(app, 0);
    drawSubTab(app, 1);
    if (app.voicesSubTab == 0) {
        drawVoices(app.draw, 5, 84, app.snapshot);
    } else {
        drawFrequencyTable(app);
    }
}

}  // namespace veloria
