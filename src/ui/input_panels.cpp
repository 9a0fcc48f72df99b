// The floating panels' share of the input.
#include "ui/input_steps.h"
#include "ui/panels.h"

namespace veloria {

namespace {

// The order in which panels see motion and releases. A press is meant for one panel alone.
constexpr PanelId kPanelOrder[] = {kLotusPanel,  kPolarPanel,     kScopePanel,   kSpectrumPanel,
                                   kSacredPanel, kHarmonicsPanel, kKatharaPanel, kShadowPanel};

bool offerToPanel(AppState& app, int id, bool targeted, const PointerEvent& pointer, const SDL_Event& event) {
    PanelState& panel = app.panels.panels[static_cast<std::size_t>(id)];
    if (!panel.open) return false;
    PanelInput input;
    input.id = id;
    input.windowW = app.layout.windowW;
    input.windowH = app.layout.windowH;
    input.targeted = targeted;
    input.outsideCentre = pointer.x < app.layout.leftWidth || pointer.x >= app.layout.rightX;
    return panelEvent(panel, app.panelResize, input, event).consumed;
}

bool resizeEvent(AppState& app, const SDL_Event& event) {
    if (!app.panelResize.resizing) return false;
    PanelState& panel = app.panels.panels[static_cast<std::size_t>(app.panelResize.resizingPanel)];
    return panelResizeEvent(app.panelResize, panel.rect, event);
}

}  // namespace

bool panelsEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer) {
    if (resizeEvent(app, event)) return true;
    const bool press = pointer.leftDown || pointer.otherDown;
    int target = -1;
    if (press || pointer.wheel) {
        // The calculator lies over all panels.
        if (calculatorContains(app.calculator, pointer.x, pointer.y)) return true;
        target = panelAt(app.panels, app.layout.windowW, app.layout.windowH, pointer.x, pointer.y);
        if (target < 0) return false;
        if (pointer.leftDown) raisePanel(app.panels, target);
        // A panel takes other presses, and a wheel that it has no use for, so that nothing beneath it moves.
        if (!pointer.leftDown) return true;
        return offerToPanel(app, target, true, pointer, event);
    }
    if (!pointer.motion && !pointer.leftUp) return false;
    for (const PanelId id : kPanelOrder) {
        if (offerToPanel(app, id, false, pointer, event)) return true;
    }
    return false;
}

}  // namespace veloria
