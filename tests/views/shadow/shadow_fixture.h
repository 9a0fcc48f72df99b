// The SHADOW panel on an off-screen renderer, and its cells worked out from their digits.
#pragma once

#include <algorithm>

#include "tests/ui/offscreen.h"
#include "toolkit/panel_input.h"
#include "views/shadow/shadow_view.h"

namespace veloria::test {

// The panel's body, nothing on it.
inline const SDL_Color kGround = over({22, 20, 30, 248}, kBackdrop);
constexpr SDL_Color kTitleBar{42, 40, 56, 255};

// A cell, worked out from its digits.
struct Digits {
    int a, b, c;
    [[nodiscard]] int code() const { return 100 * a + 10 * b + c; }
    [[nodiscard]] bool equal() const { return a == b && b == c; }
    [[nodiscard]] bool has(int digit) const { return a == digit || b == digit || c == digit; }
    [[nodiscard]] int count(int low, int high) const {
        const auto in = [=](int digit) { return digit >= low && digit <= high ? 1 : 0; };
        return in(a) + in(b) + in(c);
    }
    [[nodiscard]] bool avatar() const { return count(1, 1) == 1 && count(2, 4) == 1 && count(5, 6) == 1; }
};
inline Digits digitsOf(int cell) {
    return {cell / 36 + 1, cell % 36 / 6 + 1, cell % 6 + 1};
}

inline SDL_Color baseColour(const Digits& digits) {
    constexpr int kTable[9][3] = {{220, 180, 60}, {60, 180, 220}, {220, 160, 50},
                                  {180, 50, 50},  {50, 180, 50},  {180, 120, 220},
                                  {60, 200, 160}, {200, 100, 60}, {220, 200, 60}};
    int root = digits.a + digits.b + digits.c;
    while (root > 9)
        root = root / 10 + root % 10;
    const int* row = kTable[root - 1];
    int green = row[1];
    int blue = row[2];
    if (digits.has(6)) {
        blue = std::min(blue + 40, 255);
    } else if (digits.has(5)) {
        green = std::min(green + 30, 255);
    }
    return {static_cast<Uint8>(row[0]), static_cast<Uint8>(green), static_cast<Uint8>(blue), 255};
}
inline SDL_Color seeThrough(SDL_Color colour, int alpha) {
    return {colour.r, colour.g, colour.b, static_cast<Uint8>(alpha)};
}
inline SDL_Color fillOf(int cell, bool on) {
    const SDL_Color base = baseColour(digitsOf(cell));
    if (on) return over(seeThrough(base, 180), kGround);
    const SDL_Color dark{static_cast<Uint8>(base.r / 5), static_cast<Uint8>(base.g / 5),
                         static_cast<Uint8>(base.b / 5), 200};
    return over(dark, kGround);
}

class ShadowPanelTest : public DrawTest {
  protected:
    explicit ShadowPanelTest(int w = 800, int h = 640) : DrawTest(w, h) {
        panel.open = true;
        panel.rect = {180, 80, 480, 520};
    }

    Picture draw(float time = 0.0f) {
        screen.clear(kBackdrop);
        drawShadowPanel(context, panel, state, snapshot, time);
        return picture();
    }
    [[nodiscard]] PanelLayout layout() const { return panelLayout(panel, context.windowW, context.windowH); }
    bool press(int x, int y) { return shadowBodyPress(state, layout().body, engine, x, y); }

    // The whole way of a left press through the common frame.
    PanelAction pressPanel(int x, int y) {
        PanelInput input{7, context.windowW, context.windowH, true, false, {}, {}};
        const PanelLayout now = layout();
        input.titleExtra = [&](int px, int py) { return shadowTitlePress(state, now.frame, px, py); };
        input.bodyExtra = [&](int px, int py) { return shadowBodyPress(state, now.body, engine, px, py); };
        SDL_Event event{};
        event.type = SDL_MOUSEBUTTONDOWN;
        event.button.button = SDL_BUTTON_LEFT;
        event.button.x = x;
        event.button.y = y;
        return panelEvent(panel, resize, input, event).action;
    }
    [[nodiscard]] int heldCount() const {
        return static_cast<int>(std::count(engine.shadowHeld.begin(), engine.shadowHeld.end(), true));
    }
    // In the default place: body (182, 104, 476, 494), cells of 37 by 23 every 39 and 25 pixels from (186,
    // 138).
    static SDL_Rect cellRect(int cell) { return {186 + cell % 12 * 39, 138 + cell / 12 * 25, 37, 23}; }

    PanelState panel;
    PanelResize resize;
    ShadowState state;
    FrameSnapshot snapshot;
    SynthEngine engine;
};

}  // namespace veloria::test
