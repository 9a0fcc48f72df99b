#include "ui/floating_panels.h"

#include <algorithm>

#include "views/harmonics_spiral.h"
#include "views/polar_rose.h"

namespace veloria {

namespace {

void drawFloatingPanel(AppState& app, int id) {
    const PanelState& panel = app.panels.panels[static_cast<std::size_t>(id)];
    const DrawContext& draw = app.draw;
    const FrameSnapshot& snapshot = app.snapshot;
    const float time = app.lotus.viewTime;
    switch (id) {
        case kLotusPanel:
            return drawLotusPanel(draw, panel, app.lotus);
        case kPolarPanel:
            return drawPolarRosePanel(draw, panel, snapshot);
        case kSpectrumPanel:
            return drawSpectrumPanel(draw, panel, app.spectrum, snapshot, app.spectrumPalette, time);
        case kSacredPanel:
            return drawSacredPanel(draw, panel, app.sacred, snapshot, app.spectrumPalette, time,
                                   app.assets.bitmapTexture);
        case kHarmonicsPanel:
            return drawHarmonicsPanel(draw, panel, snapshot, app.engine->fibonacciCount, app.spectrumPalette,
                                      time);
        case kKatharaPanel:
            return drawKatharaPanel(draw, panel, app.kathara, snapshot, time, app.assets.bitmapTexture);
        case kScopePanel:
            return drawScopePanel(draw, panel, app.scopeView, snapshot);
        case kShadowPanel:
            return drawShadowPanel(draw, panel, app.shadow, snapshot, time);
        default:
            return;
    }
}

// Has it been opened, or the main window been given another size, since this was last asked? `settledIn` is
// the floating window's own memory of it.
bool mustSettle(bool open, SDL_Point& settledIn, const WindowLayout& layout) {
    const SDL_Point now = open ? SDL_Point{layout.windowW, layout.windowH} : SDL_Point{0, 0};
    const bool changed = now.x != settledIn.x || now.y != settledIn.y;
    settledIn = now;
    return open && changed;
}

}  // namespace

void settleFloatingWindows(AppState& app) {
    const WindowLayout& layout = app.layout;
    if (layout.windowW <= 0 || layout.windowH <= 0) return;  // put away: there is no place to be in
    for (PanelState& panel : app.panels.panels) {
        if (!mustSettle(panel.open, panel.settledIn, layout)) continue;
        panel.rect.w = std::max(kPanelMinimumWidth, std::min(panel.rect.w, layout.windowW));
        panel.rect.h = std::max(kPanelMinimumHeight, std::min(panel.rect.h, layout.windowH));
        clampToWindow(panel.rect, layout.windowW, layout.windowH);
    }
    CalculatorState& calculator = app.calculator;
    if (mustSettle(calculator.calcVisible, calculator.calcSettledIn, layout)) {
        clampToWindow(calculator.calcRect, layout.windowW, layout.windowH);
    }
}

void drawFloatingPanels(AppState& app) {
    for (auto id = app.panels.panelStack.rbegin(); id != app.panels.panelStack.rend(); ++id) {
        drawFloatingPanel(app, *id);
    }
}

bool isUnderFloatingWindow(const AppState& app, int x, int y) {
    return calculatorContains(app.calculator, x, y) ||
           panelAt(app.panels, app.layout.windowW, app.layout.windowH, x, y) >= 0;
}

}  // namespace veloria
