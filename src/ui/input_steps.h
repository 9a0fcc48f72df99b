// The steps of an event's way through the window. Each returns true when the event goes no further.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Where a pointer event points and what it does, whichever SDL record it comes in.
struct PointerEvent {
    bool leftDown = false;
    bool leftUp = false;
    bool otherDown = false;  // right or middle
    bool motion = false;
    bool wheel = false;
    int x = 0;  // pixels of the window
    int y = 0;
};
[[nodiscard]] PointerEvent pointerEvent(const SDL_Event& event);

// Floating panels: the resize that is under way, then the panel under a press, then drags and releases.
bool panelsEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer);

// Is a key with these modifiers part of a combination: not the letter, the digit or the sign that it types?
[[nodiscard]] constexpr bool isCombination(std::uint16_t modifiers) {
    return (modifiers & (KMOD_CTRL | KMOD_ALT | KMOD_GUI)) != 0;
}

// What a combination's key would have typed. The text says nothing of its modifiers, and the keyboard may be
// farther on than the events: the key events before it are what tells.
bool combinationTextEvent(AppState& app, const SDL_Event& event);

// What the renderer kept in the graphics card's memory is gone. Never takes the event.
void renderMemoryEvent(AppState& app, const SDL_Event& event);

// The centre view: presses and the wheel in it, and the drags that began there. The bands of the splitters
// round it are not its own.
bool centreViewEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer);

// The two gain sliders of the "TUNING" tab and the three splitters.
bool splittersEvent(AppState& app, const PointerEvent& pointer);

// The recorder's panel and its clip editor.
bool recorderEvent(AppState& app, const SDL_Event& event);

// A table row that is dragged with the right button onto the recorder.
bool rowDragEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer);

// The sliders of the "FX" tab.
bool fxSlidersEvent(AppState& app, const PointerEvent& pointer);

// The retuner's selector, its strength, and the walker's speed.
bool tuningControlsEvent(AppState& app, const PointerEvent& pointer);

// The wheel over the right panel's rows.
bool rowWheelEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer);

// The wheel over the left panel's content.
bool leftPanelWheelEvent(AppState& app, const SDL_Event& event, const PointerEvent& pointer);

// The keys of the window. Every key down ends here.
bool keyEvent(AppState& app, const SDL_Event& event);

// A left release lets go of every slider and splitter. Never takes the event.
void releaseControls(AppState& app, const PointerEvent& pointer);

}  // namespace veloria
