#include "views/scene/scene_overlays.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/format.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/scene/geometry/fold.h"
#include "views/scene/geometry/kathara_geometry.h"

namespace veloria {

namespace {

// Floor; scene units.
constexpr float kFloorY = -2.5f;
constexpr float kFloorEdge = 10.0f;
constexpr float kFloorStep = 0.5f;
constexpr int kFloorLines = 20;  // on either side of the middle
constexpr SDL_Color kEvenLine{55, 52, 68, 100};
constexpr SDL_Color kOddLine{38, 36, 48, 70};
constexpr SDL_Color kMiddleLine{80, 78, 95, 140};

struct Axis {
    Point3 from;
    Point3 to;
    SDL_Color colour;
};
// The upright one begins at the origin, not on the floor.
constexpr std::array<Axis, 3> kAxes = {{
    {{0.0f, kFloorY, 0.0f}, {6.0f, kFloorY, 0.0f}, {200, 55, 55, 200}},
    {{0.0f, kFloorY, 0.0f}, {0.0f, kFloorY, 6.0f}, {55, 55, 200, 200}},
    {{0.0f, 0.0f, 0.0f}, {0.0f, 3.5f, 0.0f}, {55, 200, 55, 200}},
}};

constexpr std::array<SDL_Color, kPyramidCount> kPyramidColours = {
    {{230, 185, 50, 255}, {50, 185, 170, 255}, {170, 85, 210, 255}}};
constexpr std::array<NodeEdge, 6> kPyramidEdges = {{{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}}};

// How one side's centroid looks.
struct CentroidMarker {
    SDL_Color glow;  // its alpha breathes
    SDL_Color core;
    const char* format;
    SDL_Color text;
    SDL_Color place;  // colour of the line with the coordinates
};
constexpr CentroidMarker kLeftMarker{
    {255, 160, 60, 255}, {255, 200, 100, 200}, "L(Ref)", {255, 190, 100, 210}, {220, 170, 100, 160}};
constexpr CentroidMarker kRightMarker{
    {60, 160, 255, 255}, {100, 220, 255, 200}, "R(Rot)", {100, 210, 255, 210}, {80, 180, 220, 160}};

// Sums while the notes are walked, means at the end.
void addNote(Centroid& group, double hz, float yOffset) {
    const Point3 place = freqTo3D(hz, yOffset);
    group.mean = {group.mean.x + place.x, group.mean.y + place.y, group.mean.z + place.z};
    group.meanHz += hz;
    ++group.count;
}

void endSums(Centroid& group) {
    if (group.count == 0) return;
    const auto n = static_cast<float>(group.count);
    group.mean = {group.mean.x / n, group.mean.y / n, group.mean.z / n};
    group.meanHz /= group.count;
}

void drawMarker(const SceneCanvas& canvas, const CentroidMarker& marker, Point3 place) {
    const ScreenPoint at = canvas.project(place);
    if (!at.visible) return;
    SDL_Renderer* renderer = canvas.renderer();
    const int x = at.screenX;
    const int y = at.screenY;
    fillCircle(renderer, x, y, 14, withAlpha(marker.glow, canvas.pulsed(20)));
    fillCircle(renderer, x, y, 9, withAlpha(marker.glow, canvas.pulsed(60)));
    fillCircle(renderer, x, y, 5, marker.core);
    fillCircle(renderer, x, y, 2, {255, 255, 255, 230});
    const SDL_Color cross = withAlpha(marker.core, canvas.pulsed(100));
    hLine(renderer, x - 16, x - 6, y, cross);
    hLine(renderer, x + 6, x + 16, y, cross);
    vLine(renderer, x, y - 16, y - 6, cross);
    vLine(renderer, x, y + 6, y + 16, cross);
}

void drawTextToRight(const SceneCanvas& canvas, const std::string& text, int y, SDL_Color colour) {
    const int right = canvas.rect.x + canvas.rect.w - 6;
    DrawText(canvas.context, text, right - measureText(canvas.labelFont(), text).x, y, canvas.labelFont(),
             colour);
}

// Draws one side and moves `y` to where the next one's figures begin.
void drawCentroid(const SceneCanvas& canvas, const CentroidMarker& marker, const Centroid& group, int& y) {
    if (group.count == 0) return;
    drawMarker(canvas, marker, group.mean);
    drawTextToRight(canvas, formatText("%s: %.0f Hz  [%d]", marker.format, group.meanHz, group.count), y,
                    marker.text);
    const Point3 mean = group.mean;
    drawTextToRight(canvas,
                    formatText("  XYZ: %+.2f %+.2f %+.2f", static_cast<double>(mean.x),
                               static_cast<double>(mean.y), static_cast<double>(mean.z)),
                    y + 13, marker.place);
    y += 28;
}

void drawLegendEntry(const SceneCanvas& canvas, const char* text, int x, int y, SDL_Color colour) {
    fillCircle(canvas.renderer(), x, y, 3, withAlpha(colour, 190));
    DrawText(canvas.context, text, x + 6, y - 5, canvas.labelFont(), withAlpha(colour, 150));
}

void drawPyramid(const SceneCanvas& canvas, int pyramid) {
    std::array<ScreenPoint, 4> corners;
    const PyramidCorners inSpace = pyramidCorners(pyramid);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = canvas.project(inSpace[i]);
        if (!corners[i].visible) return;
    }
    const SDL_Color colour = kPyramidColours[static_cast<std::size_t>(pyramid)];
    const auto vertex = [&](int corner) {
        const ScreenPoint& at = corners[static_cast<std::size_t>(corner)];
        return SDL_Vertex{{static_cast<float>(at.screenX), static_cast<float>(at.screenY)},
                          withAlpha(colour, 40),
                          {0.0f, 0.0f}};
    };
    SDL_SetRenderDrawBlendMode(canvas.renderer(), SDL_BLENDMODE_BLEND);
    for (const auto& face : kPyramidFaces) {
        const std::array<SDL_Vertex, 3> triangle = {vertex(face[0]), vertex(face[1]), vertex(face[2])};
        SDL_RenderGeometry(canvas.renderer(), nullptr, triangle.data(), 3, nullptr, 0);
    }
    for (const NodeEdge& edge : kPyramidEdges)
        canvas.line(inSpace[static_cast<std::size_t>(edge.from)], inSpace[static_cast<std::size_t>(edge.to)],
                    withAlpha(colour, 100));
    const ScreenPoint& apex = corners[kPyramidApex];
    fillCircle(canvas.renderer(), apex.screenX, apex.screenY, 4, colour);
}

}  // namespace

void drawFloor(const SceneCanvas& canvas) {
    const auto cross = [&](float c, SDL_Color colour) {
        canvas.line({c, kFloorY, kFloorEdge}, {c, kFloorY, -kFloorEdge}, colour);
        canvas.line({-kFloorEdge, kFloorY, c}, {kFloorEdge, kFloorY, c}, colour);
    };
    for (int i = -kFloorLines; i <= kFloorLines; ++i)
        cross(static_cast<float>(i) * kFloorStep, i % 2 == 0 ? kEvenLine : kOddLine);
    canvas.line({0.0f, kFloorY, -kFloorEdge}, {0.0f, kFloorY, kFloorEdge}, kMiddleLine);
    canvas.line({-kFloorEdge, kFloorY, 0.0f}, {kFloorEdge, kFloorY, 0.0f}, kMiddleLine);
    for (const Axis& axis : kAxes)
        canvas.thickLine(axis.from, axis.to, axis.colour, 2);
}

void drawMerkaba(const SceneCanvas& canvas) {
    for (int pyramid = 0; pyramid < kPyramidCount; ++pyramid)
        drawPyramid(canvas, pyramid);
}

Centroids centroidsOf(const SceneSound& sound) {
    Centroids groups;
    const std::size_t notes = std::min(sound.soundingFrequencies.size(), sound.soundingPans.size());
    for (std::size_t i = 0; i < notes; ++i) {
        const double hz = foldForView(static_cast<double>(sound.soundingFrequencies[i]));
        const float pan = sound.soundingPans[i];
        if (pan < 0.3f) addNote(groups.left, hz, kReflectionOffset);
        if (pan > 0.7f) addNote(groups.right, hz, kRotationOffset);
    }
    endSums(groups.left);
    endSums(groups.right);
    return groups;
}

void drawCentroids(const SceneCanvas& canvas, const SceneSound& sound) {
    const Centroids groups = centroidsOf(sound);
    int y = canvas.rect.y + 18;
    drawCentroid(canvas, kLeftMarker, groups.left, y);
    drawCentroid(canvas, kRightMarker, groups.right, y);
}

void drawSceneLegend(const SceneCanvas& canvas) {
    const int x = canvas.rect.x + canvas.rect.w - 100;
    const int y = canvas.rect.y + canvas.rect.h - 20;
    drawLegendEntry(canvas, "Refl", x, y, {180, 140, 40, 255});
    drawLegendEntry(canvas, "Rot", x + 50, y, {40, 140, 130, 255});
}

void drawStatusLine(const SceneCanvas& canvas) {
    const KatharaViewState& view = canvas.view;
    const std::string text = formatText(
        "Az:%.0f  El:%.0f  Zm:%.1f  FOV:%.1f", static_cast<double>(view.azimuth),
        static_cast<double>(view.elevation), static_cast<double>(view.zoom), static_cast<double>(view.fov));
    DrawText(canvas.context, text, canvas.rect.x + 6, canvas.rect.y + 4, canvas.labelFont(),
             {220, 220, 230, 200});
}

}  // namespace veloria
