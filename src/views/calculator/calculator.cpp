#include "views/calculator/calculator.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/fixed_text.h"
#include "base/format.h"
#include "toolkit/color.h"
#include "toolkit/panel_frame.h"
#include "toolkit/primitives.h"
#include "toolkit/rect.h"
#include "toolkit/text.h"
#include "views/scene/geometry/fold.h"

namespace veloria {

// The factors of "xR3" and "/R3" are not quite the square root of three: they stand as they were first typed,
// and values worked out with them are to stay reproducible.
const std::array<CalcButton, kCalcButtonCount> kCalcButtons = {{
    {"+Oct", 2.0, {60, 180, 80, 255}},
    {"-Oct", 0.5, {60, 180, 80, 255}},
    {"xPHI", 1.618033988749895, {200, 160, 40, 255}},
    {"/PHI", 0.6180339887498948, {200, 160, 40, 255}},
    {"xPHI2", 2.618033988749895, {180, 140, 30, 255}},
    {"/PHI2", 0.38196601125010515, {180, 140, 30, 255}},
    {"xPHI3", 4.23606797749979, {160, 120, 20, 255}},
    {"/PHI3", 0.2360679774997897, {160, 120, 20, 255}},
    {"xPI", 3.141592653589793, {80, 140, 220, 255}},
    {"/PI", 0.3183098861837907, {80, 140, 220, 255}},
    {"xR2", 1.414213562373095, {80, 180, 200, 255}},
    {"/R2", 0.7071067811865476, {80, 180, 200, 255}},
    {"xR3", 1.73205080856857, {60, 160, 180, 255}},
    {"/R3", 0.5773502688563948, {60, 160, 180, 255}},
    {"xR5", 2.23606797749979, {40, 140, 160, 255}},
    {"/R5", 0.4472135954999579, {40, 140, 160, 255}},
    {"x2", 2.0, {120, 80, 180, 255}},
    {"/2", 0.5, {120, 80, 180, 255}},
    {"x3", 3.0, {140, 80, 180, 255}},
    {"/3", 0.3333333333333333, {140, 80, 180, 255}},
    {"x5", 5.0, {160, 60, 160, 255}},
    {"/5", 0.2, {160, 60, 160, 255}},
    {"x7", 7.0, {140, 60, 140, 255}},
    {"/7", 0.14285714285714285, {140, 60, 140, 255}},
    {"x13", 13.0, {100, 80, 160, 255}},
    {"/13", 0.07692307692307693, {100, 80, 160, 255}},
    {"x21", 21.0, {90, 70, 150, 255}},
    {"/21", 0.047619047619047616, {90, 70, 150, 255}},
    {"x9", 9.0, {180, 60, 80, 255}},
    {"/9", 0.1111111111111111, {180, 60, 80, 255}},
    {"UNDO", kCalcUndo, {80, 80, 90, 255}},
    {"CLR", kCalcClear, {100, 40, 40, 255}},
}};

namespace {

constexpr int kTitleHeight = 22;
constexpr int kCloseFromRight = 22;  // of the box's left edge
constexpr int kCloseTop = 2;
constexpr int kCloseSize = 18;
constexpr int kEdge = 4;  // between the window's edge and what is in it
constexpr int kDisplayTop = 28;
constexpr int kDisplayHeight = 38;
constexpr int kDisplayTextInset = 8;  // right of the text
constexpr int kGridTop = 72;
constexpr int kGridColumns = 4;
constexpr int kGridGap = 3;
constexpr int kGridPitchY = 25;
constexpr int kButtonHeight = 22;
constexpr int kHoverRise = 40;
constexpr int kButtonAlpha = 220;

constexpr SDL_Color kBody{28, 26, 40, 252};
constexpr SDL_Color kBorder{60, 140, 200, 200};
constexpr SDL_Color kTitleBar{40, 80, 120, 255};
constexpr SDL_Color kTitleText{180, 230, 255, 255};
constexpr SDL_Color kCloseColor{160, 40, 40, 220};
constexpr SDL_Color kDisplayFill{18, 16, 28, 255};
constexpr SDL_Color kDisplayBorder{60, 140, 200, 120};
constexpr SDL_Color kEditingBorder{100, 220, 255, 255};
constexpr SDL_Color kValueText{100, 220, 255, 255};
constexpr SDL_Color kEditingText{255, 255, 100, 255};
constexpr SDL_Color kHintText{180, 180, 100, 180};
constexpr SDL_Color kFoldedText{120, 180, 220, 160};
constexpr SDL_Color kRootText{180, 150, 255, 180};
constexpr SDL_Color kButtonOutline{255, 255, 255, 40};
constexpr SDL_Color kButtonText{255, 255, 255, 230};

void drawFrame(const DrawContext& context, const CalculatorLayout& layout) {
    fillRect(context.renderer, layout.frame, kBody);
    outlineRect(context.renderer, layout.frame, kBorder);
    fillRect(context.renderer, layout.title, kTitleBar);
    DrawText(context, "FREQ CALC", layout.frame.x + 8, layout.frame.y + 4, context.fonts->fontTab,
             kTitleText);
    drawCloseBox(context, layout.close, kCloseColor);
}

void drawDisplayText(const DrawContext& context, const SDL_Rect& display, const std::string& text,
                     SDL_Color color) {
    TTF_Font* font = context.fonts->fontHeading;
    const SDL_Point size = measureText(font, text);
    DrawText(context, text, display.x + display.w - kDisplayTextInset - size.x,
             display.y + (display.h - size.y) / 2, font, color);
}

void drawDisplay(const DrawContext& context, const CalculatorState& state, const CalculatorLayout& layout) {
    const int left = layout.frame.x;
    const int top = layout.frame.y;
    TTF_Font* small = context.fonts->fontLabel;
    fillRect(context.renderer, layout.display, kDisplayFill);
    outlineRect(context.renderer, layout.display, state.calcEditing ? kEditingBorder : kDisplayBorder);
    if (state.calcEditing) {
        drawDisplayText(context, layout.display, state.calcText + "_", kEditingText);
        DrawText(context, "Type Hz, Enter to confirm, Esc to cancel", left + 8, top + 32, small, kHintText);
        return;
    }
    drawDisplayText(context, layout.display, fixedText(state.calcValue, 3) + " Hz", kValueText);
    DrawText(context, "(norm: " + fixedText(foldForView(state.calcValue), 1) + ")", left + 10, top + 32,
             small, kFoldedText);
    DrawText(context, formatText("DR:%d", calcDigitalRoot(state.calcValue)), left + 10, top + 50, small,
             kRootText);
}

void drawButton(const DrawContext& context, const SDL_Rect& rect, const CalcButton& button) {
    const bool hovered = contains(rect, context.mouseX, context.mouseY);
    fillRect(context.renderer, rect,
             withAlpha(hovered ? brighten(button.color, kHoverRise) : button.color, kButtonAlpha));
    outlineRect(context.renderer, rect, kButtonOutline);
    DrawTextCentered(context, button.label, rect, context.fonts->fontLabel, kButtonText);
}

}  // namespace

CalculatorLayout calculatorLayout(const SDL_Rect& rect) {
    CalculatorLayout layout{};
    layout.frame = rect;
    layout.title = {rect.x, rect.y, rect.w, kTitleHeight};
    layout.close = {rect.x + rect.w - kCloseFromRight, rect.y + kCloseTop, kCloseSize, kCloseSize};
    layout.display = {rect.x + kEdge, rect.y + kDisplayTop, rect.w - 2 * kEdge, kDisplayHeight};
    layout.displayHit = {rect.x, rect.y + kDisplayTop, rect.w, kDisplayHeight};
    const int width = (rect.w - 2 * kEdge - (kGridColumns - 1) * kGridGap) / kGridColumns;
    for (int i = 0; i < kCalcButtonCount; ++i) {
        layout.buttons[static_cast<std::size_t>(i)] = {rect.x + kEdge + i % kGridColumns * (width + kGridGap),
                                                       rect.y + kGridTop + i / kGridColumns * kGridPitchY,
                                                       width, kButtonHeight};
    }
    return layout;
}

void drawCalculator(const DrawContext& context, const CalculatorState& state) {
    if (!state.calcVisible) return;
    const CalculatorLayout layout = calculatorLayout(state.calcRect);
    drawFrame(context, layout);
    drawDisplay(context, state, layout);
    for (std::size_t i = 0; i < kCalcButtons.size(); ++i)
        drawButton(context, layout.buttons[i], kCalcButtons[i]);
}

std::int32_t calcDigitalRoot(double value) {
    const double whole = std::trunc(std::fabs(value));
    if (!(whole >= 1.0) || !std::isfinite(whole)) return 0;
    // Digit sums keep the remainder by nine, and fmod is exact however many digits there are.
    const auto remainder = static_cast<std::int32_t>(std::fmod(whole, 9.0));
    return remainder == 0 ? 9 : remainder;
}

}  // namespace veloria
