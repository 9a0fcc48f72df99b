// The list of the scene's parts with their switches, in the scene's upper left corner. Main thread.
#pragma once

#include <SDL.h>

#include <array>

#include "toolkit/draw_context.h"
#include "views/scene/geometry/camera.h"

namespace veloria {

struct ObjectSetRow {
    const char* label;
    bool KatharaViewState::*field;
    SDL_Color colour;  // when on
};
inline constexpr std::array<ObjectSetRow, 10> kObjectSetRows = {{
    {"Solfeggio", &KatharaViewState::showSolfeggio, {180, 160, 220, 255}},
    {"Reflection", &KatharaViewState::showReflection, {255, 200, 70, 255}},
    {"Rotation", &KatharaViewState::showRotation, {70, 220, 200, 255}},
    {"Shadow", &KatharaViewState::showShadow, {255, 80, 80, 255}},
    {"Merkaba", &KatharaViewState::showMerkaba, {200, 160, 50, 255}},
    {"Enneagram", &KatharaViewState::showEnneagram, {140, 120, 180, 255}},
    {"Vitruvian", &KatharaViewState::showVitruvian, {200, 180, 130, 255}},
    {"Grid", &KatharaViewState::showGrid, {100, 100, 120, 255}},
    {"Centroid", &KatharaViewState::showCentroid, {255, 200, 100, 255}},
    {"Helix", &KatharaViewState::helixLabels, {120, 200, 255, 255}},
}};

inline constexpr int kObjectSetRowHeight = 16;  // pixels

// All in the pixels of the rectangle that the scene is given.
struct ObjectSetLayout {
    SDL_Rect box{};          // the rows lie in it, and clicks on them
    SDL_Point firstRow{};    // upper left corner of row 0
    SDL_Rect coordinates{};  // takes clicks on the coordinate switch below the box
};
[[nodiscard]] ObjectSetLayout objectSetLayout(const SDL_Rect& scene);

// The row at a point of the box; -1 outside and below the last row. The narrow margin above the first row is
// the first row's.
[[nodiscard]] int objectSetRowAt(const ObjectSetLayout& layout, int x, int y);

void drawObjectSet(const DrawContext& context, const ObjectSetLayout& layout, const KatharaViewState& view);

}  // namespace veloria
