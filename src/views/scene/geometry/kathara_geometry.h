// Where the figures of the Kathara views stand in space. The scene, its flat form and the exported file go by
// the same numbers.
#pragma once

#include <array>
#include <cstddef>

#include "frequency/tables.h"
#include "views/scene/geometry/point3.h"

namespace veloria {

inline constexpr int kSolfeggioCount = 12;

// Heights added by family to the place that a frequency's digits give.
inline constexpr float kReflectionOffset = 0.6f;
inline constexpr float kRotationOffset = -0.6f;
inline constexpr float kShadowOffset = 0.0f;

// The digits of a frequency (Hz) on the circle of nine: ones and tens give the direction, hundreds the
// height. Callers fold into 100 to under 1000 Hz before.
[[nodiscard]] Point3 freqTo3D(double frequency, float yOffset);

using SolfeggioPoints = std::array<Point3, kSolfeggioCount>;  // in the order of solfeggio12

// The Tree of Life.
inline constexpr SolfeggioPoints solfeggioTreePoints = {{
    {0.0f, -2.4f, 0.0f},
    {1.0f, -1.8f, 0.35f},
    {-1.0f, -1.8f, -0.35f},
    {1.6f, -0.9f, 0.55f},
    {-1.6f, -0.9f, -0.55f},
    {1.0f, 0.0f, 0.35f},
    {-1.0f, 0.0f, -0.35f},
    {1.6f, 0.9f, 0.55f},
    {-1.6f, 0.9f, -0.55f},
    {1.0f, 1.6f, 0.35f},
    {-1.0f, 1.6f, -0.35f},
    {0.0f, 2.2f, 0.0f},
}};

// The same frequencies by freqTo3D, as the scene raises and lowers them, and as the exported file does. The
// two differ at 6, 8 and 10, and are meant to.
using SolfeggioOffsets = std::array<float, kSolfeggioCount>;
inline constexpr SolfeggioOffsets kSceneTeslaOffsets = {-0.6f, 0.6f, -0.6f, 0.6f, -0.6f, 0.6f,
                                                        0.6f,  0.6f, 0.6f,  0.6f, 0.6f,  0.6f};
inline constexpr SolfeggioOffsets kExportTeslaOffsets = {-0.6f, 0.6f, -0.6f, 0.6f, -0.6f, 0.6f,
                                                         -0.6f, 0.6f, -0.6f, 0.6f, -0.6f, 0.6f};
[[nodiscard]] SolfeggioPoints solfeggioTesla(const SolfeggioOffsets& offsets);

// The graph of the twelve nodes, by their indices.
struct NodeEdge {
    int from;
    int to;
};
inline constexpr std::array<NodeEdge, 15> treeEdges = {{
    {11, 10},
    {11, 9},
    {0, 2},
    {0, 1},
    {10, 9},
    {6, 5},
    {2, 1},
    {10, 8},
    {9, 7},
    {8, 6},
    {7, 5},
    {6, 4},
    {5, 3},
    {4, 2},
    {3, 1},
}};
inline constexpr std::array<NodeEdge, 8> crossEdges = {{
    {10, 7},
    {9, 8},
    {8, 5},
    {7, 6},
    {6, 3},
    {5, 4},
    {4, 1},
    {3, 2},
}};

// Digit 1 to 9 on the ring: 9 on top, then clockwise.
[[nodiscard]] Point3 enneagramPoint(int digit);

// The cycle 1-4-2-8-5-7, as places in the order of the digits 1 to 9.
inline constexpr std::array<int, 6> kHexad = {0, 3, 1, 7, 4, 6};

// Three pyramids, each a third of a turn about Y from the last.
inline constexpr int kPyramidCount = 3;
inline constexpr int kPyramidApex = 3;  // the corners before it are the base
using PyramidCorners = std::array<Point3, 4>;
[[nodiscard]] PyramidCorners pyramidCorners(int pyramid);
// By their corners. They do not all turn the same way round.
inline constexpr std::array<std::array<int, 3>, 4> kPyramidFaces = {
    {{0, 1, 2}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}}};

// All that never moves, worked out once.
struct ScenePoints {
    std::array<Point3, kAvatarFamilySize> reflectionPoints;
    std::array<Point3, kAvatarFamilySize> rotationPoints;
    std::array<Point3, kShadowIndexCount> shadowPoints;  // the convergence cases included
    SolfeggioPoints solfeggioTeslaPoints;
};
[[nodiscard]] const ScenePoints& scenePoints();

}  // namespace veloria
