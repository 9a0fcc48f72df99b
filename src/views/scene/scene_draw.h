// The Kathara scene: the frequency tables as a cloud in space that lights up with the sound.
#pragma once

#include <SDL.h>

#include "toolkit/draw_context.h"
#include "views/scene/geometry/camera.h"
#include "views/scene/geometry/scene_model.h"

namespace veloria {

// Draws the whole picture into the rectangle (pixels), cut to it and to the clip that is set. `time` is the
// view clock. While `view` rotates by itself, each call turns it by a quarter of a degree: the caller gives a
// copy and decides whether the turned azimuth counts. Small labels are in fontTiny, Hebrew letters in
// fontWide; a font that is not open leaves its text out. Main thread.
void drawKatharaScene(const DrawContext& context, int x, int y, int w, int h, const SceneSound& sound,
                      float time, KatharaViewState& view);

}  // namespace veloria
