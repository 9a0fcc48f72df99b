#include "ui/floating_panels.h"

#include "views/polar_rose.h"

namespace veloria {

namespace {

// What stands in a panel's title bar.
const char* panelTitle(const AppState& app, int id) {
    switch (id) {
        case kSpectrumPanel:
            return app.spectrumPalette == 0 ? "SPECTRUM 3D  [Avatar]" : "SPECTRUM 3D  [Chakra]";
        case kSacredPanel:
            return "SACRED GEOMETRY  [Enneagram]";
        case kHarmonicsPanel:
            return "HARMONICS  [Fibonacci Spiral]";
        default:
            return "";
    }
}

void drawFloatingPanel(AppState& app, int id) {
    const PanelState& panel = app.panels.panels[static_cast<std::size_t>(id)];
    const DrawContext& draw = app.draw;
    const FrameSnapshot& snapshot = app.snapshot;
    switch (id) {
        case kLotusPanel:
            return drawLotusPanel(draw, panel, app.lotus);
        case kPolarPanel:
            return drawPolarRosePanel(draw, panel, snapshot);
        case kKatharaPanel:
            return drawKatharaPanel(draw, panel, app.kathara, snapshot, app.lotus.viewTime, nullptr);
        case kScopePanel:
            return drawScopePanel(draw, panel, app.scopeView, snapshot);
        case kShadowPanel:
            return drawShadowPanel(draw, panel, app.shadow, snapshot, app.lotus.viewTime);
        default:
            return drawPanel(draw, panel, panelTitle(app, id), {}, [](const PanelLayout&) {});
    }
}

}  // namespace

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
