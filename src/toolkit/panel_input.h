// What the pointer does to the common frame of a floating panel. Main thread.
#pragma once

#include <functional>

#include "toolkit/panel_frame.h"

namespace veloria {

constexpr int kPanelMinimumWidth = 200;  // pixels
constexpr int kPanelMinimumHeight = 150;

// The one panel that is being resized.
struct PanelResize {
    int resizingPanel = -1;  // its id, or -1
    bool resizing = false;
    int resizeStartX = 0;  // the pointer at the press
    int resizeStartY = 0;
    int resizeStartW = 0;  // the panel at the press
    int resizeStartH = 0;
};

enum class PanelAction {
    None,
    Closed,
    MaximiseToggled,
    TitleExtra,
    ResizeBegun,
    DragBegun,
    Dragged,
    BodyExtra,
    InertBody,
};

struct PanelOutcome {
    PanelAction action = PanelAction::None;
    bool consumed = false;  // nobody behind this panel may have the event
};

// What a panel is given with an event.
struct PanelInput {
    int id = -1;      // noted when a resize begins
    int windowW = 0;  // pixels
    int windowH = 0;
    bool targeted = false;       // the press is meant for this panel, or for none
    bool overSidePanel = false;  // the press lies over one of the side panels
    // A control of the panel's own at this point of its title bar, or anywhere else inside: acts and returns
    // true, or returns false. Either may be empty.
    std::function<bool(int x, int y)> titleExtra;
    std::function<bool(int x, int y)> bodyExtra;
};

// One event for one panel: a left press that is meant for it, the motion of its drag, a left release.
PanelOutcome panelEvent(PanelState& panel, PanelResize& resize, const PanelInput& input,
                        const SDL_Event& event);

// One event while a panel is being resized; `rect` is that panel's. True when consumed. A left release ends
// the resize and is not consumed. Does nothing while none is resized.
bool panelResizeEvent(PanelResize& resize, SDL_Rect& rect, const SDL_Event& event);

// Is the point inside an open panel? Maximised, it fills the window.
[[nodiscard]] bool panelContains(const PanelState& panel, int windowW, int windowH, int x, int y);

// Moves a window into the screen: its left and top win where it is larger than that.
void clampToWindow(SDL_Rect& rect, int windowW, int windowH);

}  // namespace veloria
