// Buttons, sliders and lamps as they look; none of them knows what it is for. Main thread.
#pragma once

#include "toolkit/draw_context.h"

namespace veloria {

// A rounded button that darkens by a quarter from top to foot; `active` adds a golden strip along its top.
// The radius is in pixels; one of more than half the height is allowed.
void DrawGradientButton(const DrawContext& context, const SDL_Rect& rect, int radius, SDL_Color color,
                        bool active);

// A square of 10 by 10 pixels round (x, y).
void DrawKnob(const DrawContext& context, int x, int y, SDL_Color color);

constexpr int kSliderFillAlpha = 200;

// A track with a fill from its left and a knob at the fill's end. The fill is value / maximum of the width,
// held within the track; with a maximum below 1 the track is empty. The alpha of `fillColor` counts for
// nothing.
void DrawSlider(const DrawContext& context, const SDL_Rect& rect, float value, float maximum,
                SDL_Color fillColor, SDL_Color knobColor, int fillAlpha = kSliderFillAlpha);

constexpr int kLampReach = 7;  // pixels from the centre of a lamp to the edge of its glow

// The lamp of a control panel button or a table row, round (cx, cy).
void drawLamp(const DrawContext& context, int cx, int cy, SDL_Color color, bool lit);

// The lamp of a lit button of the top bar; unlit it has none.
void drawSmallLamp(const DrawContext& context, int cx, int cy, SDL_Color color);

}  // namespace veloria
