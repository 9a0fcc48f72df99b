// The text pages of the SHADOW panel.
#pragma once

#include <SDL.h>

#include "toolkit/draw_context.h"

namespace veloria {

// Page 1, "555": text on the fifth element with its pentagram laid over it. Page 0, "666": a title alone,
// which the panel never asks for. `time` is the view clock. Clips nothing. Main thread.
void drawShadowPage(const DrawContext& context, const SDL_Rect& body, float time, int page);

}  // namespace veloria
