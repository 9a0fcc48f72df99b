#include "views/scene/geometry/scene_model.h"

#include <algorithm>
#include <cstddef>

#include "views/scene/geometry/helix.h"
#include "views/scene/geometry/kathara_geometry.h"
#include "views/scene/geometry/solfeggio_nodes.h"
#include "views/scene/geometry/sounding.h"

namespace veloria {

namespace {

constexpr SDL_Color kTreeColour{110, 95, 150, 160};
constexpr SDL_Color kCrossColour{80, 70, 120, 100};
constexpr SDL_Color kHexadColour{140, 125, 160, 80};
constexpr SDL_Color kRingColour{90, 85, 115, 70};
constexpr SDL_Color kDigitColour{110, 100, 140, 130};
constexpr int kTreeWidth = 2;

// How the items of a family look, in pixels and colours.
struct Look {
    int activeSize;
    int idleSize;
    SDL_Color active;
    SDL_Color idle;
};
constexpr Look kReflectionLook{5, 2, {255, 220, 70, 245}, {210, 170, 55, 30}};
constexpr Look kRotationLook{5, 2, {70, 240, 220, 245}, {55, 170, 155, 30}};
constexpr int kNodeSize = 9;
constexpr int kActiveNodeSize = 12;
constexpr int kDigitSize = 6;

// By shadowGroup: 444, 555, 666.
constexpr std::array<Look, 3> kShadowLooks = {{
    {10, 3, {255, 50, 50, 250}, {180, 40, 40, 25}},
    {10, 3, {50, 255, 120, 250}, {40, 140, 70, 25}},
    {10, 3, {180, 80, 255, 250}, {100, 50, 160, 25}},
}};

// What all steps of one build work with.
struct Build {
    const KatharaViewState& view;
    const SDL_Rect& rect;
    const SceneSound& sound;
    SceneItems& items;

    [[nodiscard]] ScreenPoint onScreen(CameraPoint point) const {
        return projectPoint(point, view, rect.x, rect.y, rect.w, rect.h);
    }
    [[nodiscard]] bool sounds(double frequency) const {
        return isSoundingExact(frequency, sound.soundingFrequencies);
    }
};

// Unlike lines in space, an edge with an end behind the near depth is left out and not cut.
void addLine(Build& build, SceneItemKind kind, Point3 from, Point3 to, int width, SDL_Color colour) {
    const CameraPoint a = toCamera(from, build.view);
    const CameraPoint b = toCamera(to, build.view);
    const ScreenPoint first = build.onScreen(a);
    const ScreenPoint second = build.onScreen(b);
    if (!first.visible || !second.visible) return;
    appendItem(build.items, {kind, first.screenX, first.screenY, second.screenX, second.screenY, width,
                             colour, (a.z + b.z) * 0.5f, kLineTag, 0});
}

void addPoint(Build& build, SceneItemKind kind, Point3 point, int size, SDL_Color colour, int tag,
              bool active) {
    const CameraPoint seen = toCamera(point, build.view);
    const ScreenPoint place = build.onScreen(seen);
    if (!place.visible) return;
    appendItem(build.items, {kind, place.screenX, place.screenY, 0, 0, size, colour, seen.z, tag,
                             static_cast<std::uint8_t>(active ? 1 : 0)});
}

void addLook(Build& build, SceneItemKind kind, Point3 point, const Look& look, int tag, bool active) {
    addPoint(build, kind, point, active ? look.activeSize : look.idleSize, active ? look.active : look.idle,
             tag, active);
}

void addEdges(Build& build, const SolfeggioPoints& nodes) {
    const auto at = [&](int node) { return nodes[static_cast<std::size_t>(node)]; };
    for (const NodeEdge& edge : treeEdges)
        addLine(build, SceneItemKind::ThickLine, at(edge.from), at(edge.to), kTreeWidth, kTreeColour);
    for (const NodeEdge& edge : crossEdges)
        addLine(build, SceneItemKind::Line, at(edge.from), at(edge.to), 1, kCrossColour);
}

void addEnneagramLines(Build& build) {
    for (std::size_t i = 0; i < kHexad.size(); ++i) {
        const int next = kHexad[(i + 1) % kHexad.size()];
        addLine(build, SceneItemKind::Line, enneagramPoint(kHexad[i] + 1), enneagramPoint(next + 1), 1,
                kHexadColour);
    }
    for (int digit = 1; digit <= 9; ++digit)
        addLine(build, SceneItemKind::Line, enneagramPoint(digit), enneagramPoint(digit % 9 + 1), 1,
                kRingColour);
}

void addAvatar(Build& build, const std::array<double, kAvatarFamilySize>& frequencies,
               const std::array<Point3, kAvatarFamilySize>& points,
               const std::array<bool, kAvatarFamilySize>* switchedOn, const Look& look, int firstTag) {
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        const bool active = (switchedOn != nullptr && (*switchedOn)[i]) || build.sounds(frequencies[i]);
        addLook(build, SceneItemKind::Dot, points[i], look, firstTag + static_cast<int>(i), active);
    }
}

Look shadowLook(std::uint32_t index, bool helix) {
    const int group = shadowGroup(static_cast<std::int32_t>(index));
    Look look = kShadowLooks[static_cast<std::size_t>(group)];
    if (!helix || group != 0) return look;
    const SDL_Color colour = codonColour(static_cast<int>(shadowFrequency(index)));
    look.active = {colour.r, colour.g, colour.b, 250};
    look.idle = {static_cast<Uint8>(colour.r / 2), static_cast<Uint8>(colour.g / 2),
                 static_cast<Uint8>(colour.b / 2), 30};
    return look;
}

void addShadow(Build& build) {
    for (std::uint32_t i = 0; i < kShadowIndexCount; ++i) {
        if (isConvergence(i)) continue;
        const auto* switchedOn = build.sound.shadowActive;
        const bool active = (switchedOn != nullptr && (*switchedOn)[i]) || build.sounds(shadowFrequency(i));
        addLook(build, SceneItemKind::Diamond, scenePoints().shadowPoints[i],
                shadowLook(i, build.view.helixLabels), kShadowTag + static_cast<int>(i), active);
    }
}

void addNodes(Build& build, const SolfeggioPoints& nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const bool active = build.sounds(solfeggio12[i]);
        const int index = static_cast<int>(i);
        addPoint(build, SceneItemKind::Node, nodes[i], active ? kActiveNodeSize : kNodeSize,
                 realmColour(index), index, active);
    }
}

void addDigits(Build& build) {
    for (int digit = 1; digit <= 9; ++digit)
        addPoint(build, SceneItemKind::Node, enneagramPoint(digit), kDigitSize, kDigitColour,
                 kEnneagramTag + digit - 1, false);
}

}  // namespace

void appendItem(SceneItems& items, const SceneItem& item) {
    if (items.count >= kMaxSceneItems) return;
    items.items[static_cast<std::size_t>(items.count++)] = item;
}

void buildSceneItems(const KatharaViewState& view, const SDL_Rect& rect, const SceneSound& sound,
                     SceneItems& items) {
    items.count = 0;
    Build build{view, rect, sound, items};
    const ScenePoints& points = scenePoints();
    const SolfeggioPoints& nodes = view.teslaCoordinates ? points.solfeggioTeslaPoints : solfeggioTreePoints;
    if (view.showSolfeggio) addEdges(build, nodes);
    if (view.showEnneagram) addEnneagramLines(build);
    if (view.showReflection) {
        addAvatar(build, reflectionFreqs, points.reflectionPoints, sound.reflectionActive, kReflectionLook,
                  0);
    }
    if (view.showRotation) {
        addAvatar(build, rotationFreqs, points.rotationPoints, sound.rotationActive, kRotationLook,
                  kRotationTag);
    }
    if (view.showShadow) addShadow(build);
    if (view.showSolfeggio) addNodes(build, nodes);
    if (view.showEnneagram) addDigits(build);
}

void sortSceneItems(SceneItems& items) {
    const std::span<SceneItem> all = items.all();
    std::sort(all.begin(), all.end(),
              [](const SceneItem& a, const SceneItem& b) { return a.depth > b.depth; });
}

}  // namespace veloria
