// "FREQ CALC": a floating window that applies fixed ratios to one frequency. It sounds nothing.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>
#include <string>

#include "toolkit/draw_context.h"

namespace veloria {

inline constexpr int kCalcButtonCount = 32;
inline constexpr double kCalcStartHz = 440.0;
inline constexpr double kCalcLowestHz = 0.01;  // of a ratio's result; a typed value has no bounds
inline constexpr double kCalcHighestHz = 99999.0;

struct CalculatorState {
    bool calcVisible = false;
    SDL_Rect calcRect{300, 120, 340, 378};  // pixels of the window
    bool calcDragging = false;
    int calcDragX = 0;  // from the left edge to the pointer that holds the window
    int calcDragY = 0;
    SDL_Point calcSettledIn{};           // as a panel's settledIn
    double calcValue = kCalcStartHz;     // Hz, above 0
    double calcPrevious = kCalcStartHz;  // Hz, what "UNDO" changes places with
    bool calcHasPrevious = false;
    bool calcEditing = false;        // the field is open and all typing goes to it
    std::string calcText = "440.0";  // the field: digits and points, at most 31
};

// Factors that are no ratio.
inline constexpr double kCalcUndo = 0.0;
inline constexpr double kCalcClear = -1.0;

struct CalcButton {
    const char* label;
    double factor;  // what the value is multiplied by, or one of the two above
    SDL_Color color;
};
extern const std::array<CalcButton, kCalcButtonCount> kCalcButtons;

struct CalculatorLayout {
    SDL_Rect frame;
    SDL_Rect title;
    SDL_Rect close;
    SDL_Rect display;     // as drawn
    SDL_Rect displayHit;  // the same rows over the full width
    std::array<SDL_Rect, kCalcButtonCount> buttons;
};
[[nodiscard]] CalculatorLayout calculatorLayout(const SDL_Rect& rect);

// Nothing while it is hidden. Main thread, as all below.
void drawCalculator(const DrawContext& context, const CalculatorState& state);

// One event, before anything else in the window may have it. True when consumed; a left release never is.
// Opening the field here does not close a field elsewhere: whoever owns both closes that at the press, before
// this has it.
bool calculatorEvent(CalculatorState& state, const SDL_Event& event, int windowW, int windowH);

// Is the point on the window, while it is shown?
[[nodiscard]] bool calculatorContains(const CalculatorState& state, int x, int y);

// Shows or hides the window. Hiding ends editing and dragging.
void toggleCalculator(CalculatorState& state);

// Closes the field and throws the typed text away; nothing while it is closed. SDL's text input stops with
// it, so another field that opens calls this first and starts its own text input afterwards.
void endCalculatorEditing(CalculatorState& state);

// What pressing a button does.
void pressCalcButton(CalculatorState& state, const CalcButton& button);

// The typed text as a number: as many characters from the start as make one, so "1.2.3" is 1.2. 0 when there
// are none. The point is a point in every locale.
[[nodiscard]] double parseCalcText(const std::string& text);

// Digit sums of the whole part of the absolute value, until one digit is left. 0 for a value under 1, where
// the tables' digital root has 9, and for one that is not finite.
[[nodiscard]] std::int32_t calcDigitalRoot(double value);

}  // namespace veloria
