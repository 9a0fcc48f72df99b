// Paints the scene's items, with their labels. Main thread.
#pragma once

#include "views/scene_canvas.h"
#include "views/scene_labels.h"
#include "views/scene_model.h"

namespace veloria {

void paintSceneItem(const SceneCanvas& canvas, const SceneItem& item, SceneLabels& labels);

}  // namespace veloria
