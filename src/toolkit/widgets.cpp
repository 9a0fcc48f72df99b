#include "toolkit/widgets.h"

#include <cmath>

#include "toolkit/color.h"
#include "toolkit/primitives.h"

namespace veloria {

namespace {

constexpr int kButtonAlpha = 235;
constexpr float kButtonDarkening = 0.25f;  // of the colour, from the first row to one below the last
constexpr int kActiveStripHeight = 3;
constexpr SDL_Color kActiveStripColor{255, 215, 0, 40};
constexpr int kKnobSize = 10;
constexpr SDL_Color kKnobOutline{255, 255, 255, 60};
constexpr int kLampBoost = 80;
constexpr SDL_Color kSparkColor{255, 255, 255, 235};

Uint8 scaled(Uint8 channel, float factor) {
    return static_cast<Uint8>(static_cast<float>(channel) * factor);
}

// What row `row` of a rounded rectangle loses on each side. A row in both corner zones counts as one of the
// top.
int cornerInset(int row, int height, int radius) {
    int distance = 0;  // from the row on which the corner's centre lies
    if (row < radius) {
        distance = radius - row;
    } else if (row >= height - radius) {
        distance = row - (height - 1 - radius);
    } else {
        return 0;
    }
    const float r = static_cast<float>(radius);
    const float d = static_cast<float>(distance);
    return static_cast<int>(r - std::sqrt(r * r - d * d));
}

// In pixels. Written so that a value that is no number gives an empty track.
int sliderFill(float value, float maximum, int width) {
    if (!(maximum >= 1.0f)) return 0;
    const float fill = value / maximum * static_cast<float>(width);
    if (!(fill > 0.0f)) return 0;
    return fill < static_cast<float>(width) ? static_cast<int>(fill) : width;
}

}  // namespace

void DrawGradientButton(const DrawContext& context, const SDL_Rect& rect, int radius, SDL_Color color,
                        bool active) {
    for (int row = 0; row < rect.h; ++row) {
        const float factor = 1.0f - static_cast<float>(row) / static_cast<float>(rect.h) * kButtonDarkening;
        const SDL_Color rowColor{scaled(color.r, factor), scaled(color.g, factor), scaled(color.b, factor),
                                 kButtonAlpha};
        const int inset = cornerInset(row, rect.h, radius);
        fillRect(context.renderer, {rect.x + inset, rect.y + row, rect.w - 2 * inset, 1}, rowColor);
    }
    if (!active) return;
    fillRect(context.renderer, {rect.x + radius, rect.y, rect.w - 2 * radius, kActiveStripHeight},
             kActiveStripColor);
}

void DrawKnob(const DrawContext& context, int x, int y, SDL_Color color) {
    const SDL_Rect knob{x - kKnobSize / 2, y - kKnobSize / 2, kKnobSize, kKnobSize};
    fillRect(context.renderer, knob, color);
    outlineRect(context.renderer, knob, kKnobOutline);
}

void DrawSlider(const DrawContext& context, const SDL_Rect& rect, float value, float maximum,
                SDL_Color fillColor, SDL_Color knobColor, int fillAlpha) {
    fillRect(context.renderer, rect, context.theme->themeTrack);
    const int fill = sliderFill(value, maximum, rect.w);
    fillRect(context.renderer, {rect.x, rect.y, fill, rect.h}, withAlpha(fillColor, fillAlpha));
    DrawKnob(context, rect.x + fill, rect.y + rect.h / 2, knobColor);
}

void drawLamp(const DrawContext& context, int cx, int cy, SDL_Color color, bool lit) {
    SDL_Renderer* renderer = context.renderer;
    if (!lit) {
        fillCircle(renderer, cx, cy, 4, withAlpha(context.theme->themeTrack, 215));
        fillCircle(renderer, cx, cy, 2, withAlpha(context.theme->themeBox, 200));
        return;
    }
    fillCircle(renderer, cx, cy, kLampReach, withAlpha(color, 58));
    fillCircle(renderer, cx, cy, 4, withAlpha(brighten(color, kLampBoost), 200));
    fillRect(renderer, {cx - 1, cy - 1, 2, 2}, kSparkColor);
}

void drawSmallLamp(const DrawContext& context, int cx, int cy, SDL_Color color) {
    SDL_Renderer* renderer = context.renderer;
    fillCircle(renderer, cx, cy, 5, withAlpha(color, 58));
    fillCircle(renderer, cx, cy, 3, withAlpha(brighten(color, kLampBoost), 220));
    hLine(renderer, cx - 1, cx, cy - 1, kSparkColor);
}

}  // namespace veloria
