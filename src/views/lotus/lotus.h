// The flower of twelve petals that opens with the sound, and the view clock.
#pragma once

#include <SDL.h>

#include <array>
#include <cstddef>

#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"

namespace veloria {

inline constexpr std::size_t kPetalCount = 12;  // one for each of solfeggio12

struct LotusState {
    float viewTime = 0;                            // the clock of all views' pulses; no unit
    std::array<float, kPetalCount> lotusEnergy{};  // 0 to 1, in the order of solfeggio12
};

// Clock and energies to zero.
void resetLotus(LotusState& state);

// Moves the clock by a frame. Only an open panel does: without it the pulse of all other views stands still.
void stepLotusClock(LotusState& state);

struct LotusLayout {
    SDL_Rect body{};  // all is clipped to it
    SDL_Point centre{};
    int radius = 0;  // pixels; two thirds of the smaller side, so that the open flower outgrows its body
};
[[nodiscard]] LotusLayout lotusLayout(const SDL_Rect& body);

// The flower in `body` as the state has it; an energy that is no number counts as none. Leaves the blend mode
// at none. Main thread, as all here.
void drawLotus(const DrawContext& context, const SDL_Rect& body, const LotusState& state);

// The floating panel "LOTUS  [12 Solfeggio]": a step of the clock, then the flower; nothing while it is
// closed. It has no control of its own: its input is that of the common frame.
void drawLotusPanel(const DrawContext& context, const PanelState& panel, LotusState& state);

}  // namespace veloria
