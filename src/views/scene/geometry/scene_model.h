// What the Kathara scene consists of, before anything is painted: one item for every node, edge, dot and
// diamond in front of the camera.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>
#include <span>

#include "frequency/tables.h"
#include "views/scene/geometry/camera.h"

namespace veloria {

// What sounds, and what is switched on. A null family has nothing switched on.
struct SceneSound {
    std::span<const float> soundingFrequencies;  // Hz
    std::span<const float> soundingPans;         // 0 left, 1 right, one a frequency; empty when not known
    const std::array<bool, kShadowIndexCount>* shadowActive = nullptr;
    const std::array<bool, kAvatarFamilySize>* reflectionActive = nullptr;
    const std::array<bool, kAvatarFamilySize>* rotationActive = nullptr;
};

enum class SceneItemKind : std::int32_t { Line, Dot, Node, ThickLine, Diamond };

// Where the tags of a family begin; those of different kinds may be the same number.
inline constexpr int kLineTag = -1;
inline constexpr int kRotationTag = kAvatarFamilySize;  // dots; Reflection from 0
inline constexpr int kEnneagramTag = 100;               // nodes; Solfeggio from 0
inline constexpr int kShadowTag = 200;                  // diamonds

struct SceneItem {
    SceneItemKind kind = SceneItemKind::Line;
    std::int32_t x = 0;  // pixels on the screen; the first end of a line
    std::int32_t y = 0;
    std::int32_t x2 = 0;  // the second end; 0 for what is no line
    std::int32_t y2 = 0;
    std::int32_t size = 0;  // pixels: a radius, or the width of a line
    SDL_Color colour{};
    float depth = 0.0f;  // scene units in front of the camera; the mean of a line's ends
    std::int32_t tag = kLineTag;
    std::uint8_t active = 0;  // 1 when it sounds
};

inline constexpr int kMaxSceneItems = 1280;

struct SceneItems {
    std::array<SceneItem, kMaxSceneItems> items;
    int count = 0;

    [[nodiscard]] std::span<SceneItem> all() { return {items.data(), static_cast<std::size_t>(count)}; }
};

// Appends the item; a full list stays as it is.
void appendItem(SceneItems& items, const SceneItem& item);

// All items that `view` switches on, in the order of their families, as seen on `rect` (pixels).
void buildSceneItems(const KatharaViewState& view, const SDL_Rect& rect, const SceneSound& sound,
                     SceneItems& items);

// Far ones first. Those of equal depth keep no particular order.
void sortSceneItems(SceneItems& items);

}  // namespace veloria
