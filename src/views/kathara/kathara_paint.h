// The buttons and sliders round the Kathara scene as they look.
#pragma once

#include "toolkit/draw_context.h"
#include "views/kathara/kathara_layout.h"
#include "views/scene/geometry/camera.h"

namespace veloria {

// Lit when the camera is as the button leaves it; the buttons that only turn the camera never are.
[[nodiscard]] bool isLit(KatharaButton button, const KatharaViewState& view);

// The toolbar with its title, where the host has one, the buttons and the strip of sliders. Main thread.
void drawKatharaControls(const DrawContext& context, const KatharaLayout& layout,
                         const KatharaViewState& view);

}  // namespace veloria
