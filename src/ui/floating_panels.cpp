#include "ui/floating_panels.h"

namespace veloria {

namespace {

// What stands in a panel's title bar.
const char* panelTitle(const AppState& app, int id) {
    switch (id) {
        case kLotusPanel:
            return "LOTUS  [12 Solfeggio]";
        case kPolarPanel:
            return "POLAR ROSE  [Audio]";
        case kSpectrumPanel:
            return app.spectrumPalette == 0 ? "SPECTRUM 3D  [Avatar]" : "SPECTRUM 3D  [Chakra]";
        case kSacredPanel:
            return "SACRED GEOMETRY  [Enneagram]";
        case kHarmonicsPanel:
            return "HARMONICS  [Fibonacci Spiral]";
        case kKatharaPanel:
            return app.researchMode ? "KATHARA  [Research]" : "KATHARA  [Solfeggio Grid]";
        case kShadowPanel:
            return "SHADOW  [666 Frequencies]";
        default:
            return "";
    }
}

void drawFloatingPanel(AppState& app, int id) {
    const PanelState& panel = app.panels.panels[static_cast<std::size_t>(id)];
    if (id == kScopePanel) {
        drawScopePanel(app.draw, panel, app.scopeView, app.snapshot);
        return;
    }
    drawPanel(app.draw, panel, panelTitle(app, id), {}, [](const PanelLayout&) {});
}

}  // namespace

void drawFloatingPanels(AppState& app) {
    for (auto id = app.panels.panelStack.rbegin(); id != app.panels.panelStack.rend(); ++id) {
        drawFloatingPanel(app, *id);
    }
}

}  // namespace veloria
