// Synthetic SDL events, as a mouse and a keyboard would send them.
#pragma once

#include "tests/ui/app_fixture.h"
#include "ui/frame.h"
#include "ui/input.h"

namespace veloria::test {

inline SDL_Event mouseButton(Uint32 type, int x, int y, Uint8 button) {
    SDL_Event event;
    SDL_zero(event);
    event.type = type;
    event.button.button = button;
    event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.button.x = x;
    event.button.y = y;
    return event;
}

// An interface with its layout, driven by events through the real event function.
class InputTest : public AppTest {
  protected:
    explicit InputTest(int w = 1280, int h = 720) : AppTest(w, h) { frame(); }

    void frame(std::uint32_t nowMs = 100000) { composeFrame(app, nowMs); }
    void down(int x, int y, Uint8 button = SDL_BUTTON_LEFT) {
        handleEvent(app, mouseButton(SDL_MOUSEBUTTONDOWN, x, y, button));
    }
    void up(int x, int y, Uint8 button = SDL_BUTTON_LEFT) {
        handleEvent(app, mouseButton(SDL_MOUSEBUTTONUP, x, y, button));
    }
    void click(int x, int y) {
        down(x, y);
        up(x, y);
    }
    void clickRect(const SDL_Rect& rect) { click(rect.x + rect.w / 2, rect.y + rect.h / 2); }
    void move(int x, int y) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        handleEvent(app, event);
    }
    void wheel(int x, int y, int notches) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_MOUSEWHEEL;
        event.wheel.y = notches;
        event.wheel.mouseX = x;
        event.wheel.mouseY = y;
        handleEvent(app, event);
    }
    void key(SDL_Keycode code, bool repeat = false, Uint16 modifiers = KMOD_NONE) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = code;
        event.key.keysym.mod = modifiers;
        event.key.repeat = repeat ? 1 : 0;
        handleEvent(app, event);
    }
    void keyUp(SDL_Keycode code, Uint16 modifiers = KMOD_NONE) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_KEYUP;
        event.key.keysym.sym = code;
        event.key.keysym.mod = modifiers;
        handleEvent(app, event);
    }
    void type(const char* text) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_TEXTINPUT;
        SDL_strlcpy(event.text.text, text, sizeof event.text.text);
        handleEvent(app, event);
    }
    // Presses a button of the left panel in its own tab.
    void press(const char* label) {
        app.viewMode = tabOfButton(label);
        frame();
        clickRect(leftButtonRect(app.layout, label));
        frame();
    }
    bool lit(const char* label) const { return isLit(app, widget(label)); }
    PanelState& panel(int id) { return app.panels.panels[static_cast<std::size_t>(id)]; }
};

}  // namespace veloria::test
