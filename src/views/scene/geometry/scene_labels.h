// Which labels of the scene find room.
#pragma once

#include <array>
#include <cstdint>

namespace veloria {

struct LabelRect {
    std::int32_t x = 0;  // pixels
    std::int32_t y = 0;
    std::int32_t w = 0;
    std::int32_t h = 0;
};

inline constexpr int kMaxSceneLabels = 512;

// The labels of one drawing, emptied for the next.
struct SceneLabels {
    std::array<LabelRect, kMaxSceneLabels> rects;
    int count = 0;
};

[[nodiscard]] bool labelsOverlap(const LabelRect& a, const LabelRect& b);

// True when the label overlaps none before it; it is then remembered, as long as there is room to.
[[nodiscard]] bool placeLabel(SceneLabels& labels, const LabelRect& label);

}  // namespace veloria
