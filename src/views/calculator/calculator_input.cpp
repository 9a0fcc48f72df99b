// A hidden window takes nothing, and only a left release changes it (it ends a drag). Shown:
//
//   event                          field closed              field open                    consumed
//   text                           nothing                   digits and points appended    field open
//   Return, keypad Enter           nothing                   takes the value, closes       field open
//   Escape                         nothing                   closes                        field open
//   Backspace                      nothing                   removes the last character    field open
//   any other key down             nothing                   nothing                       field open
//   left press inside              acts (below)              closes, then acts             always
//   left press outside             nothing                   nothing                       never
//   another press inside           nothing                   nothing                       always
//   motion while dragging          moves the window, held inside the screen                always
//   left release                   ends the drag             ends the drag                 never
//   anything else                  nothing                   nothing                       never
//
// A left press inside, from the first row that fits to the last: close box, title bar (drag), display (opens
// the field with the value anew), button, nothing.

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>
#include <utility>

#include "base/fixed_text.h"
#include "toolkit/panel_input.h"
#include "toolkit/rect.h"
#include "views/calculator/calculator.h"

namespace veloria {

namespace {

constexpr std::size_t kTypedLimit = 14;  // characters that typing can reach
constexpr std::size_t kTextLimit = 31;   // characters that the field can hold
constexpr int kTextDecimals = 3;

void beginEditing(CalculatorState& state) {
    state.calcText = fixedText(state.calcValue, kTextDecimals).substr(0, kTextLimit);
    state.calcEditing = true;
    SDL_StartTextInput();
}

void hideCalculator(CalculatorState& state) {
    endCalculatorEditing(state);
    state.calcDragging = false;
    state.calcVisible = false;
}

void rememberValue(CalculatorState& state) {
    state.calcPrevious = state.calcValue;
    state.calcHasPrevious = true;
}

void commitEditing(CalculatorState& state) {
    const double typed = parseCalcText(state.calcText);
    if (typed > 0.0) {
        rememberValue(state);
        state.calcValue = typed;
    }
    endCalculatorEditing(state);
}

void appendTyped(CalculatorState& state, const char* text) {
    for (; *text != '\0'; ++text) {
        const bool accepted = (*text >= '0' && *text <= '9') || *text == '.';
        if (accepted && state.calcText.size() < kTypedLimit) state.calcText.push_back(*text);
    }
}

void editingKey(CalculatorState& state, SDL_Keycode key) {
    switch (key) {
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            commitEditing(state);
            break;
        case SDLK_ESCAPE:
            endCalculatorEditing(state);
            break;
        case SDLK_BACKSPACE:
            if (!state.calcText.empty()) state.calcText.pop_back();
            break;
        default:
            break;
    }
}

void pressInside(CalculatorState& state, int x, int y) {
    endCalculatorEditing(state);
    const CalculatorLayout layout = calculatorLayout(state.calcRect);
    if (contains(layout.close, x, y)) {
        hideCalculator(state);
        return;
    }
    if (contains(layout.title, x, y)) {
        state.calcDragging = true;
        state.calcDragX = x - state.calcRect.x;
        state.calcDragY = y - state.calcRect.y;
        return;
    }
    if (contains(layout.displayHit, x, y)) {
        beginEditing(state);
        return;
    }
    for (std::size_t i = 0; i < layout.buttons.size(); ++i) {
        if (contains(layout.buttons[i], x, y)) pressCalcButton(state, kCalcButtons[i]);
    }
}

bool pressEvent(CalculatorState& state, const SDL_MouseButtonEvent& button) {
    if (!contains(state.calcRect, button.x, button.y)) return false;
    if (button.button == SDL_BUTTON_LEFT) pressInside(state, button.x, button.y);
    return true;
}

bool dragEvent(CalculatorState& state, const SDL_MouseMotionEvent& motion, int windowW, int windowH) {
    if (!state.calcDragging) return false;
    state.calcRect.x = motion.x - state.calcDragX;
    state.calcRect.y = motion.y - state.calcDragY;
    clampToWindow(state.calcRect, windowW, windowH);
    return true;
}

}  // namespace

bool calculatorEvent(CalculatorState& state, const SDL_Event& event, int windowW, int windowH) {
    if (event.type == SDL_MOUSEBUTTONUP && event.button.button == SDL_BUTTON_LEFT) {
        state.calcDragging = false;
        return false;
    }
    if (!state.calcVisible) return false;
    switch (event.type) {
        case SDL_TEXTINPUT:
            if (!state.calcEditing) return false;
            appendTyped(state, event.text.text);
            return true;
        case SDL_KEYDOWN:
            if (!state.calcEditing) return false;
            editingKey(state, event.key.keysym.sym);
            return true;
        case SDL_MOUSEBUTTONDOWN:
            return pressEvent(state, event.button);
        case SDL_MOUSEMOTION:
            return dragEvent(state, event.motion, windowW, windowH);
        default:
            return false;
    }
}

bool calculatorContains(const CalculatorState& state, int x, int y) {
    return state.calcVisible && contains(state.calcRect, x, y);
}

void toggleCalculator(CalculatorState& state) {
    if (state.calcVisible) {
        hideCalculator(state);
    } else {
        state.calcVisible = true;
    }
}

void endCalculatorEditing(CalculatorState& state) {
    if (!state.calcEditing) return;
    state.calcEditing = false;
    SDL_StopTextInput();
}

void pressCalcButton(CalculatorState& state, const CalcButton& button) {
    if (button.factor == kCalcUndo) {
        if (state.calcHasPrevious) std::swap(state.calcValue, state.calcPrevious);
        return;
    }
    rememberValue(state);
    if (button.factor == kCalcClear) {
        state.calcValue = kCalcStartHz;
        return;
    }
    state.calcValue = std::clamp(state.calcValue * button.factor, kCalcLowestHz, kCalcHighestHz);
}

double parseCalcText(const std::string& text) {
    double value = 0.0;
    const auto result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return result.ec == std::errc{} ? value : 0.0;
}

}  // namespace veloria
