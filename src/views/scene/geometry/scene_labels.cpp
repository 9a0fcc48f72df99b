#include "views/scene/geometry/scene_labels.h"

#include <cstddef>

namespace veloria {

bool labelsOverlap(const LabelRect& a, const LabelRect& b) {
    return a.x < b.x + b.w && a.x + a.w > b.x && a.y < b.y + b.h && a.y + a.h > b.y;
}

bool placeLabel(SceneLabels& labels, const LabelRect& label) {
    for (int i = 0; i < labels.count; ++i) {
        if (labelsOverlap(label, labels.rects[static_cast<std::size_t>(i)])) return false;
    }
    if (labels.count < kMaxSceneLabels) labels.rects[static_cast<std::size_t>(labels.count++)] = label;
    return true;
}

}  // namespace veloria
