// Paints the scene's items, with their labels. Main thread.
#pragma once

#include "views/scene/geometry/scene_labels.h"
#include "views/scene/geometry/scene_model.h"
#include "views/scene/scene_canvas.h"

namespace veloria {

void paintSceneItem(const SceneCanvas& canvas, const SceneItem& item, SceneLabels& labels);

}  // namespace veloria
