// The newest samples of the synthesiser, plotted around a circle.
#pragma once

#include <SDL.h>

#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"
#include "views/shared/frame_snapshot.h"

namespace veloria {

struct PolarRoseLayout {
    SDL_Rect body{};  // all is clipped to it
    SDL_Point centre{};
    int radius = 0;  // pixels, of a full-scale sample; 0 or less when the body has no room
};
[[nodiscard]] PolarRoseLayout polarRoseLayout(const SDL_Rect& body);

// The newest 512 samples of the synthesiser's own ring, once around clockwise from the right; the sample's
// size is the distance from the middle. A sample that is no number counts as silence. Main thread, as below.
void drawPolarRose(const DrawContext& context, const SDL_Rect& body, const EngineSnapshot& engine);

// The floating panel "POLAR ROSE  [Audio]" with the rose in it; nothing while it is closed. It has no control
// of its own: its input is that of the common frame.
void drawPolarRosePanel(const DrawContext& context, const PanelState& panel, const FrameSnapshot& snapshot);

}  // namespace veloria
