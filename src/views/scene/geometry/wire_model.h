// The wire model of a figure: the edges of the triangles in a binary STL file. Main thread.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "views/scene/geometry/point3.h"

namespace veloria {

// In model space: upright, with its middle at the origin.
struct WireEdge {
    Point3 from;
    Point3 to;
};

struct WireModel {
    std::vector<WireEdge> edges;  // each once, in the order of the file
    float centreX = 0.0f;         // the middle of what was kept, in the file's own axes and units
    float centreY = 0.0f;
    float centreZ = 0.0f;
    float scale = 0.0f;   // units of model space to one of the file
    bool loaded = false;  // while false, all else is empty
};

// Makes the model anew from the bytes of a file. The model's largest side is twice `halfSize` long; triangles
// that do not rise above the share `floorCut` (0 to 1) of the file's height in Y are left out, as the
// pedestal they are; corners are merged on a grid of `gridSize` cells (1 to 1024) a side. A file that is
// damaged or torn, that holds a coordinate which is no number, or of which nothing is left leaves the model
// empty.
void readWireModel(WireModel& model, std::span<const std::uint8_t> file, float halfSize, float floorCut,
                   int gridSize);

// The same from a file, of which no more is read than the triangles that it claims to hold.
void loadWireModel(WireModel& model, const char* path, float halfSize, float floorCut, int gridSize);

}  // namespace veloria
