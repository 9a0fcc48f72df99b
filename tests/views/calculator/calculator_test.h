// A calculator that is shown at (300, 120), 340 by 378, in a screen of 1280 by 720, and a hand at mouse and
// keyboard.
#pragma once

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstring>

#include "views/calculator/calculator.h"

namespace veloria::test {

inline SDL_Event mouseButton(Uint32 type, Uint8 which, int x, int y) {
    SDL_Event event{};
    event.type = type;
    event.button.button = which;
    event.button.x = x;
    event.button.y = y;
    return event;
}

class CalculatorTest : public testing::Test {
  protected:
    CalculatorTest() {
        SDL_StopTextInput();
        state.calcVisible = true;
    }
    ~CalculatorTest() override { SDL_StopTextInput(); }

    bool send(const SDL_Event& event) { return calculatorEvent(state, event, 1280, 720); }
    bool press(int x, int y, Uint8 which = SDL_BUTTON_LEFT) {
        return send(mouseButton(SDL_MOUSEBUTTONDOWN, which, x, y));
    }
    bool release(int x = 5, int y = 5) { return send(mouseButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, x, y)); }
    bool move(int x, int y) {
        SDL_Event event{};
        event.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        return send(event);
    }
    bool key(SDL_Keycode code) {
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = code;
        return send(event);
    }
    bool type(const char* text) {
        SDL_Event event{};
        event.type = SDL_TEXTINPUT;
        std::strncpy(event.text.text, text, sizeof event.text.text - 1);
        return send(event);
    }
    bool pressDisplay() { return press(400, 160); }
    // Opens the field with nothing in it.
    void openEmptyField() {
        pressDisplay();
        state.calcText.clear();
    }
    void typeAndConfirm(const char* text) {
        openEmptyField();
        type(text);
        key(SDLK_RETURN);
    }

    CalculatorState state;
};

}  // namespace veloria::test
