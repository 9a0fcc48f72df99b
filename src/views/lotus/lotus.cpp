#include "views/lotus/lotus.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "views/shared/ring.h"

namespace veloria {

namespace {

constexpr float kClockStep = 0.006f;  // a frame
constexpr float kClockLimit = 1e6f;   // the clock itself comes to rest far below it, at 131072
constexpr int kSmallestRadius = 60;   // pixels
constexpr float kSoundThreshold = 0.01f;
constexpr int kRays = 24;
constexpr int kStarStride = 5;

constexpr float kPi = kTurn / 2.0f;
constexpr float kPetalAngle = kTurn / 12.0f;
constexpr float kHalfPetalAngle = 0.2617994f;

constexpr SDL_Color kTitleColor{255, 210, 120, 255};
constexpr SDL_Color kRayColor{120, 110, 220, 255};
constexpr SDL_Color kRingColor{100, 75, 220, 255};
constexpr SDL_Color kStarColor{255, 190, 60, 255};
constexpr SDL_Color kHeartColor{255, 170, 20, 255};
constexpr SDL_Color kCoreColor{255, 210, 40, 220};
constexpr SDL_Color kCoreMiddle{255, 240, 160, 255};

// What all layers of one picture are drawn from.
struct Flower {
    SDL_Renderer* renderer = nullptr;
    SDL_Point centre{};
    float radius = 0;
    float time = 0;
    float mean = 0;  // of the energies
    std::array<float, kPetalCount> energy{};
};

struct Petal {
    float angle = 0;      // of its middle, radians
    float halfWidth = 0;  // radians
    float length = 0;     // pixels
    int steps = 0;
    SDL_Color color{};  // with the alpha of its widest line
};

Flower flowerOf(const DrawContext& context, const LotusLayout& layout, const LotusState& state) {
    Flower flower;
    flower.renderer = context.renderer;
    flower.centre = layout.centre;
    flower.radius = static_cast<float>(layout.radius);
    if (std::fabs(state.viewTime) <= kClockLimit) flower.time = state.viewTime;
    float sum = 0.0f;
    for (std::size_t i = 0; i < kPetalCount; ++i) {
        const float energy = state.lotusEnergy[i];
        flower.energy[i] = energy > 0.0f ? std::min(energy, 1.0f) : 0.0f;
        sum += flower.energy[i];
    }
    flower.mean = sum / static_cast<float>(kPetalCount);
    return flower;
}

// Cut to a whole number, and at the cap.
int wholeUpTo(float value, int cap) {
    return std::min(cap, static_cast<int>(value));
}

// Degrees; one a petal, the whole circle round.
constexpr std::array<float, kPetalCount> petalHues{0, 30, 60, 90, 120, 150, 180, 210, 240, 270, 300, 330};

float angleOf(std::size_t petal) {
    return kPetalAngle * static_cast<float>(petal);
}

// `gain * energy + rest` of the radius, held between two shares of it.
float lengthFor(float radius, float energy, float gain, float rest, float shortest, float longest) {
    return std::max(shortest * radius, std::min(longest * radius, (gain * energy + rest) * radius));
}

void drawRay(const Flower& flower, float length, float angle, SDL_Color color) {
    const SDL_Point tip = ringPoint(flower.centre, length, angle);
    drawLine(flower.renderer, flower.centre.x, flower.centre.y, tip.x, tip.y, color);
}

// A fan of chords that widens on its way out and narrows on its way back: the way back lies over the way out.
void drawPetal(const Flower& flower, const Petal& petal) {
    for (int k = 1; k <= petal.steps; ++k) {
        const float width = std::sin(static_cast<float>(k) / static_cast<float>(petal.steps) * kPi);
        const int alpha = static_cast<int>(static_cast<float>(petal.color.a) * width);
        if (alpha <= 0) continue;  // nothing to see
        const float reach = width * petal.length;
        const SDL_Point from = ringPoint(flower.centre, reach, petal.angle - width * petal.halfWidth);
        const SDL_Point to = ringPoint(flower.centre, reach, petal.angle + width * petal.halfWidth);
        drawLine(flower.renderer, from.x, from.y, to.x, to.y, withAlpha(petal.color, alpha));
    }
}

void drawRays(const Flower& flower) {
    const SDL_Color color = withAlpha(kRayColor, wholeUpTo(flower.mean * 40.0f + 8.0f, 50));
    for (int k = 0; k < kRays; ++k) {
        const float angle = static_cast<float>(k) * kTurn / kRays + 0.18f * flower.time;
        drawRay(flower, 1.4f * flower.radius, angle, color);
    }
}

void drawRings(const Flower& flower) {
    const SDL_Color color = withAlpha(kRingColor, wholeUpTo(flower.mean * 35.0f + 10.0f, 50));
    const float turn = 0.3f * flower.time;
    drawPolygon(flower.renderer, flower.centre, 0.35f * flower.radius, 12, turn, color);
    drawPolygon(flower.renderer, flower.centre, 0.75f * flower.radius, 12, -turn, color);
}

void drawStar(const Flower& flower) {
    const SDL_Color color = withAlpha(kStarColor, wholeUpTo(flower.mean * 80.0f + 20.0f, 100));
    std::array<SDL_Point, kPetalCount> points{};
    for (std::size_t i = 0; i < kPetalCount; ++i) {
        const float radius = lengthFor(flower.radius, flower.energy[i], 2.0f, 0.3f, 0.0f, 1.2f);
        points[i] = ringPoint(flower.centre, radius, angleOf(i) + flower.time);
    }
    for (std::size_t i = 0; i < kPetalCount; ++i) {
        const SDL_Point& to = points[(i + kStarStride) % kPetalCount];
        drawLine(flower.renderer, points[i].x, points[i].y, to.x, to.y, color);
    }
}

void drawRainbow(const Flower& flower) {
    const int alpha = wholeUpTo(flower.mean * 35.0f + 6.0f, 50);
    const float length = lengthFor(flower.radius, flower.mean, 0.8f, 0.8f, 0.0f, 1.4f);
    for (int k = 0; k < kRays; ++k) {
        const float hue = 15.0f * static_cast<float>(k) + 20.0f * flower.time;
        const float angle = static_cast<float>(k) * kTurn / kRays + 0.06f * flower.time;
        drawRay(flower, length, angle, withAlpha(hslToRgb(hue, 0.7f, 0.55f), alpha));
    }
}

// The layer, 2 the outer and 1 the inner.
void drawHalo(const Flower& flower, int layer) {
    const auto share = static_cast<float>(layer);
    const float radius = flower.radius * (1.0f + 0.12f * share);
    const int alpha = wholeUpTo((flower.mean * 80.0f + 18.0f) / share, 80);
    for (std::size_t i = 0; i < kPetalCount; ++i) {
        const float length = lengthFor(radius, flower.energy[i], 2.0f, 0.3f, 0.15f, 1.2f);
        drawPetal(flower, {angleOf(i) + flower.time, 0.4f, length, 16,
                           withAlpha(hslToRgb(petalHues[i], 0.9f, 0.6f), alpha)});
    }
}

void drawMainPetals(const Flower& flower) {
    for (std::size_t i = 0; i < kPetalCount; ++i) {
        const float angle = angleOf(i) + flower.time;
        const float length = lengthFor(flower.radius, flower.energy[i], 2.5f, 0.3f, 0.18f, 1.3f);
        const float lightness = std::min(0.72f, 3.0f * flower.energy[i] + 0.38f);
        drawPetal(flower,
                  {angle, 0.3f, length, 18, withAlpha(hslToRgb(petalHues[i], 0.95f, lightness), 170)});
        drawRay(flower, length, angle, withAlpha(hslToRgb(petalHues[i], 1.0f, 0.85f), 200));
    }
}

// Between the main petals and against their turn, each with the energy of the petal opposite.
void drawCounterPetals(const Flower& flower) {
    for (std::size_t i = 0; i < kPetalCount; ++i) {
        const float energy = flower.energy[(i + kPetalCount / 2) % kPetalCount];
        const float length = lengthFor(flower.radius, energy, 2.0f, 0.18f, 0.1f, 0.8f);
        drawPetal(flower, {angleOf(i) - 1.5f * flower.time + kHalfPetalAngle, 0.22f, length, 12,
                           withAlpha(hslToRgb(petalHues[i] + 180.0f, 0.75f, 0.5f), 120)});
    }
}

void drawSquare(const Flower& flower, int half, SDL_Color color) {
    fillRect(flower.renderer, {flower.centre.x - half, flower.centre.y - half, 2 * half, 2 * half}, color);
}

// Three rings and the core; they grow with the mean energy.
void drawHeart(const Flower& flower) {
    const int size = wholeUpTo(30.0f * flower.mean + 6.0f, 24);
    for (int k = 3; k >= 1; --k) {
        const int alpha = wholeUpTo(40.0f * flower.mean / static_cast<float>(k) + 20.0f, 60);
        drawPolygon(flower.renderer, flower.centre, static_cast<float>(size + 5 * k), 36, 0.0f,
                    withAlpha(kHeartColor, alpha));
    }
    const int half = size / 2;  // 3 to 12: there is always room for the bright middle
    drawSquare(flower, half, kCoreColor);
    drawSquare(flower, half / 2, kCoreMiddle);
}

}  // namespace

void resetLotus(LotusState& state) {
    state = LotusState{};
}

void stepLotusClock(LotusState& state) {
    state.viewTime += kClockStep;
}

LotusLayout lotusLayout(const SDL_Rect& body) {
    const std::int64_t side = std::min(body.w, body.h);
    return {body,
            {body.x + body.w / 2, body.y + body.h / 2},
            std::max(kSmallestRadius, static_cast<int>(2 * side / 3))};
}

void drawLotus(const DrawContext& context, const SDL_Rect& body, const LotusState& state) {
    if (body.w <= 0 || body.h <= 0) return;
    const ClipGuard clip(context.renderer, body);
    const Flower flower = flowerOf(context, lotusLayout(body), state);
    if (flower.mean > kSoundThreshold) {
        drawRays(flower);
        drawRings(flower);
        drawStar(flower);
        drawRainbow(flower);
        drawHalo(flower, 2);
        drawHalo(flower, 1);
    }
    drawMainPetals(flower);
    drawCounterPetals(flower);
    drawHeart(flower);
    SDL_SetRenderDrawBlendMode(context.renderer, SDL_BLENDMODE_NONE);
}

void drawLotusPanel(const DrawContext& context, const PanelState& panel, LotusState& state) {
    if (!panel.open) return;
    stepLotusClock(state);
    PanelStyle style;
    style.titleColor = kTitleColor;
    drawPanel(context, panel, "LOTUS  [12 Solfeggio]", style,
              [&](const PanelLayout& layout) { drawLotus(context, layout.body, state); });
}

}  // namespace veloria
