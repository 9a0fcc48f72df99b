#include "ui/input.h"

#include "recorder_panel/panel.h"
#include "ui/floating_panels.h"
#include "ui/input_steps.h"

namespace veloria {

bool pollEvents(AppState& app) {
    for (SDL_Event event; SDL_PollEvent(&event) != 0;) {
        if (event.type == SDL_QUIT) return false;
        handleEvent(app, event);
    }
    return true;
}

PointerEvent pointerEvent(const SDL_Event& event) {
    PointerEvent pointer;
    switch (event.type) {
        case SDL_MOUSEBUTTONDOWN:
            pointer.leftDown = event.button.button == SDL_BUTTON_LEFT;
            pointer.otherDown = !pointer.leftDown;
            pointer.x = event.button.x;
            pointer.y = event.button.y;
            break;
        case SDL_MOUSEBUTTONUP:
            pointer.leftUp = event.button.button == SDL_BUTTON_LEFT;
            pointer.x = event.button.x;
            pointer.y = event.button.y;
            break;
        case SDL_MOUSEMOTION:
            pointer.motion = true;
            pointer.x = event.motion.x;
            pointer.y = event.motion.y;
            break;
        case SDL_MOUSEWHEEL:
            pointer.wheel = true;
            pointer.x = event.wheel.mouseX;
            pointer.y = event.wheel.mouseY;
            break;
        default:
            break;
    }
    return pointer;
}

void handleEvent(AppState& app, const SDL_Event& event) {
    renderMemoryEvent(app, event);
    if (!app.sizes.layoutReady || combinationTextEvent(app, event)) return;
    const PointerEvent pointer = pointerEvent(event);
    // Before anyone takes the press: what is left by it is left whoever that is.
    if (pointer.leftDown) {
        leaveRecorderFields(app.recorder, app.layout.recorder, pointer.x, pointer.y,
                            isUnderFloatingWindow(app, pointer.x, pointer.y));
    }
    // A release is nobody's alone: it goes all the way, so that no drag outlives it.
    if (calculatorEvent(app.calculator, event, app.layout.windowW, app.layout.windowH)) return;
    if (panelsEvent(app, event, pointer)) return;
    // The clip editor reaches above the recorder, over what lies there. What is held moves and ends over it
    // as elsewhere.
    const bool forEditor = (pointer.leftDown || pointer.otherDown || pointer.wheel) &&
                           recorderEditContains(app.recorder, app.layout.recorder, pointer.x, pointer.y);
    if (!forEditor && centreViewEvent(app, event, pointer)) return;
    if (!forEditor && splittersEvent(app, pointer)) return;
    if (recorderEvent(app, event) || forEditor) return;
    if (rowDragEvent(app, event, pointer)) return;
    if (fxSlidersEvent(app, pointer)) return;
    if (tuningControlsEvent(app, pointer)) return;
    if (rowWheelEvent(app, event, pointer)) return;
    if (leftPanelWheelEvent(app, event, pointer)) return;
    if (keyEvent(app, event)) return;
    releaseControls(app, pointer);
    if (pointer.leftDown) handleClick(app, pointer.x, pointer.y);
}

}  // namespace veloria
