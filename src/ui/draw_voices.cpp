#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "ui/draw.h"
#include "views/scope.h"

namespace veloria {

namespace {

constexpr int kVoicesTop = 84;
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

// Unscrolled they reach one row into the strip of the tabs.
void drawSubTabs(const AppState& app) {
    const WindowLayout& layout = app.layout;
    const ClipGuard clip(app.renderer,
                         layout.leftScroll == 0 ? leftPanelClip(layout) : leftPanelView(layout));
    drawSubTab(app, 0);
    drawSubTab(app, 1);
}

}  // namespace

int voicesTabEnd(const AppState& app) {
    return app.voicesSubTab == 0 ? kVoicesTop + voiceListHeight(app.snapshot) : frequencyTableEnd(app);
}

void drawVoicesTab(const AppState& app) {
    if (!leftPanelShown(app.layout)) return;
    drawSubTabs(app);
    const ClipGuard clip(app.renderer, leftPanelView(app.layout));
    if (app.voicesSubTab == 0) {
        drawVoices(app.draw, 5, leftPanelY(app.layout, kVoicesTop), app.snapshot);
    } else {
        drawFrequencyTable(app);
    }
}

}  // namespace veloria
