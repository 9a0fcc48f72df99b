// A left press, from the first row that fits to the last; nothing happens unless the panel is open, the press
// is meant for it and lies inside its frame:
//
//   where                         not maximised      maximised          consumed
//   close box                     closes             closes             always
//   maximise box                  maximises          goes back          always
//   a control in the title bar    the control        the control        always
//   resize corner                 begins a resize    (next rows)        always
//   title bar                     begins a drag      (next rows)        always
//   a control in the body         the control        the control        always
//   anywhere else                 nothing            nothing            maximised, or not over a side panel
//
// Other events:
//
//   motion while dragging         moves the panel, held inside the window   always
//   motion while not dragging     nothing                                   never
//   left release                  ends the drag                             never: others end theirs as well
//   any other button or event     nothing                                   never

#include "toolkit/panel_input.h"

#include <algorithm>

#include "toolkit/rect.h"

namespace veloria {

namespace {

bool isLeftPress(const SDL_Event& event) {
    return event.type == SDL_MOUSEBUTTONDOWN && event.button.button == SDL_BUTTON_LEFT;
}

bool isLeftRelease(const SDL_Event& event) {
    return event.type == SDL_MOUSEBUTTONUP && event.button.button == SDL_BUTTON_LEFT;
}

void closePanel(PanelState& panel) {
    panel.open = false;
    panel.maximised = false;
    panel.dragging = false;
}

void beginDrag(PanelState& panel, int x, int y) {
    panel.dragging = true;
    panel.dragX = x - panel.rect.x;
    panel.dragY = y - panel.rect.y;
}

void beginResize(PanelResize& resize, const PanelState& panel, int id, int x, int y) {
    resize = {id, true, x, y, panel.rect.w, panel.rect.h};
}

PanelAction pressPanel(PanelState& panel, PanelResize& resize, const PanelInput& input, int x, int y) {
    const PanelLayout layout = panelLayout(panel, input.windowW, input.windowH);
    if (!contains(layout.frame, x, y)) return PanelAction::None;
    if (contains(layout.closeHit, x, y)) {
        closePanel(panel);
        return PanelAction::Closed;
    }
    if (contains(layout.maximiseHit, x, y)) {
        panel.maximised = !panel.maximised;
        return PanelAction::MaximiseToggled;
    }
    const bool onTitle = contains(layout.title, x, y);
    if (onTitle && input.titleExtra && input.titleExtra(x, y)) return PanelAction::TitleExtra;
    if (contains(layout.corner, x, y)) {
        beginResize(resize, panel, input.id, x, y);
        return PanelAction::ResizeBegun;
    }
    if (onTitle && !panel.maximised) {
        beginDrag(panel, x, y);
        return PanelAction::DragBegun;
    }
    if (input.bodyExtra && input.bodyExtra(x, y)) return PanelAction::BodyExtra;
    return PanelAction::InertBody;
}

void dragPanel(PanelState& panel, const PanelInput& input, int x, int y) {
    panel.rect.x = x - panel.dragX;
    panel.rect.y = y - panel.dragY;
    clampToWindow(panel.rect, input.windowW, input.windowH);
}

}  // namespace

PanelOutcome panelEvent(PanelState& panel, PanelResize& resize, const PanelInput& input,
                        const SDL_Event& event) {
    if (isLeftRelease(event)) {
        panel.dragging = false;
        return {};
    }
    if (!panel.open) return {};
    if (isLeftPress(event) && input.targeted) {
        const bool wasMaximised = panel.maximised;
        const PanelAction action = pressPanel(panel, resize, input, event.button.x, event.button.y);
        const bool inert = action == PanelAction::InertBody;
        const bool fallsThrough =
            action == PanelAction::None || (inert && input.overSidePanel && !wasMaximised);
        return {action, !fallsThrough};
    }
    if (event.type == SDL_MOUSEMOTION && panel.dragging) {
        dragPanel(panel, input, event.motion.x, event.motion.y);
        return {PanelAction::Dragged, true};
    }
    return {};
}

bool panelResizeEvent(PanelResize& resize, SDL_Rect& rect, const SDL_Event& event) {
    if (!resize.resizing) return false;
    if (isLeftRelease(event)) {
        resize.resizing = false;
        resize.resizingPanel = -1;
        return false;
    }
    if (event.type != SDL_MOUSEMOTION) return false;
    rect.w = std::max(resize.resizeStartW + event.motion.x - resize.resizeStartX, kPanelMinimumWidth);
    rect.h = std::max(resize.resizeStartH + event.motion.y - resize.resizeStartY, kPanelMinimumHeight);
    return true;
}

bool panelContains(const PanelState& panel, int windowW, int windowH, int x, int y) {
    return panel.open && contains(panelLayout(panel, windowW, windowH).frame, x, y);
}

void clampToWindow(SDL_Rect& rect, int windowW, int windowH) {
    rect.x = std::max(0, std::min(rect.x, windowW - rect.w));
    rect.y = std::max(0, std::min(rect.y, windowH - rect.h));
}

}  // namespace veloria
