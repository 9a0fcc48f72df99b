// What lies behind and before the scene's items and takes no part in their order. Main thread.
#pragma once

#include "views/scene/geometry/point3.h"
#include "views/scene/geometry/scene_model.h"
#include "views/scene/scene_canvas.h"

namespace veloria {

// The grid on which all stands, and the three axes.
void drawFloor(const SceneCanvas& canvas);

// Three glassy pyramids.
void drawMerkaba(const SceneCanvas& canvas);

// Where the sounding notes of one side have their middle.
struct Centroid {
    int count = 0;  // notes; with 0 the rest means nothing
    Point3 mean;
    double meanHz = 0.0;  // of the frequencies folded into 100 to under 1000
};
struct Centroids {
    Centroid left;   // pan under 0.3
    Centroid right;  // pan over 0.7; what lies between counts for neither
};
[[nodiscard]] Centroids centroidsOf(const SceneSound& sound);

// A marker and two lines of figures for each side that sounds; nothing while the pans are not known.
void drawCentroids(const SceneCanvas& canvas, const SceneSound& sound);

// Which colour is which family, in the lower right corner.
void drawSceneLegend(const SceneCanvas& canvas);

// The camera's numbers, in the upper left corner.
void drawStatusLine(const SceneCanvas& canvas);

}  // namespace veloria
