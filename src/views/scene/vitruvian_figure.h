// The human figure of the canon in the scene, with its square, circle and star, and the scale of its
// proportions. Main thread.
#pragma once

#include "views/scene/scene_canvas.h"

namespace veloria {

void drawVitruvianFigure(const SceneCanvas& canvas);

}  // namespace veloria
