// The harmonics panel: a Fibonacci spiral of quarter circles for each note that sounds. Main thread.
#pragma once

#include <SDL.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/stacks.h"
#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"
#include "views/shared/coloured_notes.h"
#include "views/shared/frame_snapshot.h"

namespace veloria {

// The spiral's arcs are as long as the partials of the Fibonacci stack are high.
inline constexpr const auto& fibonacciRadii = fibonacciMultipliers;
inline constexpr std::size_t kMostArcs = fibonacciRadii.size();

struct HarmonicsLayout {
    SDL_FPoint centre{};  // pixels
    float unit = 0;       // pixels to a step of fibonacciRadii
    int steps = 0;        // arcs, 1 to 14
};
// `steps` as the engine's Fibonacci depth: below 1 means 6, and above 14 there is nothing to add.
[[nodiscard]] HarmonicsLayout harmonicsLayout(const SDL_Rect& body, std::int32_t steps);

// A quarter circle, clockwise on the screen from `startAngle` (radians).
struct SpiralArc {
    SDL_FPoint centre{};  // pixels
    float radius = 0;     // pixels
    float startAngle = 0;
    float fade = 0;    // share of the spiral's colour and alpha
    int segments = 0;  // straight lines that it is drawn of, 12 to 40
};
// The first `layout.steps` of them are filled. The arcs do not join end to end (odd, and kept): each centre
// is moved by the angle at which the next arc begins.
[[nodiscard]] std::array<SpiralArc, kMostArcs> spiralArcs(const HarmonicsLayout& layout, float startAngle);

// Where the spiral of a frequency (Hz) begins, in radians: pitch turns it, and so does time.
[[nodiscard]] float spiralAngle(float frequency, float time);

// The faint spiral, the notes' spirals over it and a square in the middle. Notes without a finite frequency
// above 0 are left out. `body` is the clip already.
void drawHarmonics(const DrawContext& context, const SDL_Rect& body, std::int32_t steps,
                   std::span<const ColouredNote> notes, float time);

// The floating panel "HARMONICS  [Fibonacci Spiral]"; nothing while it is closed. It has no control of its
// own: its input is that of the common frame.
void drawHarmonicsPanel(const DrawContext& context, const PanelState& panel, const FrameSnapshot& snapshot,
                        std::int32_t steps, std::int32_t spectrumPalette, float time);

}  // namespace veloria
