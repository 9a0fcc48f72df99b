// The floating panels' share of the input.
#include "ui/input_steps.h"
#include "ui/panels.h"
#include "views/kathara/kathara_input.h"

namespace veloria {

namespace {

// The order in which panels see motion and releases. A press is meant for one panel alone.
constexpr PanelId kPanelOrder[] = {kLotusPanel,  kPolarPanel,     kScopePanel,   kSpectrumPanel,
                                   kSacredPanel, kHarmonicsPanel, kKatharaPanel, kShadowPanel};

PanelLayout layoutOf(const AppState& app, int id) {
    return panelLayout(app.panels.panels[static_cast<std::size_t>(id)], app.layout.windowW,
                       app.layout.windowH);
}

// The controls that a panel has beside those of the common frame.
void addOwnControls(AppState& app, int id, PanelInput& input) {
    const PanelLayout layout = layoutOf(app, id);
    switch (id) {
        case kKatharaPanel:
            input.titleExtra = [&app, layout](int x, int y) {
                return katharaTitlePress(app.kathara, layout, x, y);
            };
            input.bodyExtra = [&app, layout](int x, int y) {
                return katharaPress(app.kathara, katharaPanelLayout(layout), x, y);
            };
            break;
        case kSacredPanel:
            input.titleExtra = [&app, layout](int x, int y) {
                return sacredTitlePress(app.sacred, layout, x, y);
            };
            break;
        case kShadowPanel:
            input.titleExtra = [&app, layout](int x, int y) {
                return shadowTitlePress(app.shadow, layout.frame, x, y);
            };
            input.bodyExtra = [&app, layout](int x, int y) {
                return shadowBodyPress(app.shadow, layout.body, *app.engine, x, y);
            };
            break;
        default:
            break;
    }
}

// The close box leads a panel back to its picture.
void endResearch(AppState& app, int id) {
    if (id == kKatharaPanel) app.kathara.researchMode = false;
    if (id == kSacredPanel) app.sacred.sacredResearchMode = false;
}

bool offerToPanel(AppState& app, int id, bool targeted, const PointerEvent& pointer, const SDL_Event& event) {
    PanelState& panel = app.panels.panels[static_cast<std::size_t>(id)];
    if (!panel.open) return false;
    PanelInput input;
    input.id = id;
    input.windowW = app.layout.windowW;
    input.windowH = app.layout.windowH;
    input.targeted = targeted;
    input.overSidePanel = contains(app.layout.leftPanel, pointer.x, pointer.y) ||
                          contains(app.layout.rightPanel, pointer.x, pointer.y);
    addOwnControls(app, id, input);
    const PanelOutcome outcome = panelEvent(panel, app.panelResize, input, event);
    if (outcome.action == PanelAction::Closed) endResearch(app, id);
    return outcome.consumed;
}

bool resizeEvent(AppState& app, const SDL_Event& event) {
    if (!app.panelResize.resizing) return false;
    PanelState& panel = app.panels.panels[static_cast<std::size_t>(app.panelResize.resizingPanel)];
    return panelResizeEvent(app.panelResize, panel.rect, event);
}

// The wheel over a panel; one that has no use for it takes it all the same, so that nothing beneath it moves.
void wheelOverPanel(AppState& app, int id, const SDL_Event& event) {
    if (id == kKatharaPanel) katharaWheel(app.kathara, KatharaHost::Panel, event.wheel.y);
    if (id == kSacredPanel) sacredWheel(app.sacred, event.wheel.y);
}

// What was begun with a press on a control of the panel's own.
bool ownDragEvent(AppState& app, const PointerEvent& pointer) {
    if (!pointer.motion || app.kathara.dragHost != KatharaHost::Panel) return false;
    return katharaMotion(app.kathara, katharaPanelLayout(layoutOf(app, kKatharaPanel)), pointer.x, pointer.y);
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
        if (pointer.wheel) wheelOverPanel(app, target, event);
        if (!pointer.leftDown) return true;  // other presses: nothing beneath the panel may have them
        return offerToPanel(app, target, true, pointer, event);
    }
    if (!pointer.motion && !pointer.leftUp) return false;
    if (ownDragEvent(app, pointer)) return true;
    for (const PanelId id : kPanelOrder) {
        if (offerToPanel(app, id, false, pointer, event)) return true;
    }
    return false;
}

}  // namespace veloria
