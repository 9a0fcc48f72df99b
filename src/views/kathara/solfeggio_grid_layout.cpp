#include <algorithm>
#include <cmath>
#include <cstddef>

#include "views/kathara/solfeggio_grid.h"

namespace veloria {

namespace {

// Margins, room for the texts that hang at the outer nodes.
constexpr int kMarginX = 24;
constexpr int kMarginY = 10;

struct Place {
    float x;  // shares of the inner rectangle
    float y;
};

// A tree: the lowest frequency is the root.
constexpr std::array<Place, kSolfeggioCount> kNodePlaces = {{
    {0.5f, 0.95f},
    {0.72f, 0.82f},
    {0.28f, 0.82f},
    {0.88f, 0.66f},
    {0.12f, 0.66f},
    {0.72f, 0.5f},
    {0.28f, 0.5f},
    {0.88f, 0.34f},
    {0.12f, 0.34f},
    {0.72f, 0.18f},
    {0.28f, 0.18f},
    {0.5f, 0.05f},
}};

constexpr std::array<Place, kDigitCount> kDigitPlaces = {{
    {0.68f, 0.27f},
    {0.78f, 0.43f},
    {0.74f, 0.62f},
    {0.6f, 0.74f},
    {0.4f, 0.74f},
    {0.26f, 0.62f},
    {0.22f, 0.43f},
    {0.32f, 0.27f},
    {0.5f, 0.2f},
}};

// Triangles that share digits share their middles nearly: each cluster is moved off in a direction and by a
// distance of its own.
constexpr float kShiftTurn = 2.399f;  // radians from one tritype to the next
constexpr int kShiftSteps = 7;
constexpr float kShiftStep = 2.5f;  // pixels
constexpr float kShiftLeast = 6.0f;

constexpr float kDotDistance = 7.0f;  // from the cluster's middle
constexpr float kDotTurn = 2.0944f;
// A third of a turn apart, each family's dots stand where the other's do, and Rotation lies over Reflection:
// odd, and kept.
constexpr float kReflectionTurn = -1.5708f;
constexpr float kRotationTurn = 0.5236f;

SDL_Point onRect(const SDL_Rect& rect, Place place) {
    return {rect.x + static_cast<int>(place.x * static_cast<float>(rect.w)),
            rect.y + static_cast<int>(place.y * static_cast<float>(rect.h))};
}

SDL_FPoint clusterMiddle(const SolfeggioGridLayout& layout, std::size_t tritype) {
    SDL_Point sum{0, 0};
    for (const int digit : tritypes[tritype]) {
        const SDL_Point& at = layout.digits[static_cast<std::size_t>(digit - 1)];
        sum.x += at.x;
        sum.y += at.y;
    }
    const SDL_FPoint middle{static_cast<float>(sum.x) / 3.0f, static_cast<float>(sum.y) / 3.0f};
    const float angle = static_cast<float>(tritype) * kShiftTurn;
    const float radius = static_cast<float>(tritype % kShiftSteps) * kShiftStep + kShiftLeast;
    return {middle.x + std::cos(angle) * radius, middle.y + std::sin(angle) * radius};
}

std::array<SDL_Point, 3> dotsAround(SDL_FPoint middle, float firstAngle) {
    std::array<SDL_Point, 3> dots{};
    for (std::size_t k = 0; k < dots.size(); ++k) {
        const float angle = static_cast<float>(k) * kDotTurn + firstAngle;
        dots[k] = {static_cast<int>(middle.x + std::cos(angle) * kDotDistance),
                   static_cast<int>(middle.y + std::sin(angle) * kDotDistance)};
    }
    return dots;
}

SDL_Rect squareIn(const SDL_Rect& rect) {
    const int side = std::min(rect.w, rect.h);
    return {rect.x + (rect.w - side) / 2, rect.y + (rect.h - side) / 2, side, side};
}

}  // namespace

SolfeggioGridLayout solfeggioGridLayout(const SDL_Rect& rect) {
    SolfeggioGridLayout layout;
    layout.area = rect;
    layout.inner = {rect.x + kMarginX, rect.y + kMarginY, rect.w - 2 * kMarginX, rect.h - 2 * kMarginY};
    const int w = layout.inner.w;
    const int h = layout.inner.h;
    layout.backdrop = squareIn(layout.inner);
    for (std::size_t i = 0; i < layout.nodes.size(); ++i)
        layout.nodes[i] = onRect(layout.inner, kNodePlaces[i]);
    for (std::size_t i = 0; i < layout.digits.size(); ++i)
        layout.digits[i] = onRect(layout.inner, kDigitPlaces[i]);
    for (std::size_t t = 0; t < layout.clusters.size(); ++t) {
        const SDL_FPoint middle = clusterMiddle(layout, t);
        layout.clusters[t] = {dotsAround(middle, kReflectionTurn), dotsAround(middle, kRotationTurn)};
    }
    // These go by the inner rectangle's size but by the outer one's corner.
    const int left = rect.x + 4;
    const int half = static_cast<int>(static_cast<float>(h) * 0.5f);
    layout.realmLabels = {{{left, rect.y + h - 20}, {left, rect.y + half + 4}, {left, rect.y + 14}}};
    layout.reflectionKey = {rect.x + w - 60, rect.y + h - 8};
    layout.rotationKey = {layout.reflectionKey.x + 24, layout.reflectionKey.y};
    return layout;
}

}  // namespace veloria
