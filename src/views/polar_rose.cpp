#include "views/polar_rose.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "views/shared/ring.h"

namespace veloria {

namespace {

constexpr std::size_t kShown = 512;           // samples
constexpr float kShareOfTurn = 0.001953125f;  // of one sample: 1 / 512
constexpr int kMargin = 12;                   // pixels around the largest circle
constexpr int kRings = 3;
constexpr int kRingSides = 36;
constexpr float kInnermost = 0.12f;  // radius of silence
constexpr float kSwing = 0.88f;      // and what the sample's size adds to it

constexpr SDL_Color kTitleColor{140, 210, 240, 255};
constexpr SDL_Color kRingColor{70, 58, 18, 255};
constexpr SDL_Color kCrossColor{60, 50, 18, 30};
constexpr SDL_Color kGlowColor{200, 170, 50, 25};
constexpr SDL_Color kClosingColor{220, 190, 80, 180};
constexpr SDL_Color kMiddleColor{255, 220, 80, 200};

struct RosePoint {
    SDL_Point at{};
    float size = 0;  // of its sample, 0 to 1
};
using Rose = std::array<RosePoint, kShown>;

float sizeOf(float sample) {
    if (std::isnan(sample)) return 0.0f;
    return std::fabs(std::clamp(sample, -1.0f, 1.0f));
}

Rose rosePoints(const PolarRoseLayout& layout, const EngineSnapshot& engine) {
    const std::size_t first = static_cast<std::size_t>(engine.scopePos) + kScopeRingSize - kShown;
    Rose rose{};
    for (std::size_t i = 0; i < kShown; ++i) {
        const float size = sizeOf(engine.scopeRing[(first + i) % kScopeRingSize]);
        const float radius = (size * kSwing + kInnermost) * static_cast<float>(layout.radius);
        rose[i] = {ringPoint(layout.centre, radius, static_cast<float>(i) * kTurn * kShareOfTurn), size};
    }
    return rose;
}

SDL_Color curveColor(float size) {
    const auto channel = [&](float gain, int rest) {
        return static_cast<Uint8>(size * gain + static_cast<float>(rest));
    };
    return {channel(75.0f, 180), channel(90.0f, 150), channel(140.0f, 30), channel(60.0f, 170)};
}

void drawGround(SDL_Renderer* renderer, const PolarRoseLayout& layout) {
    const SDL_Point& centre = layout.centre;
    for (int k = 1; k <= kRings; ++k) {
        const int radius = layout.radius * k / kRings;
        drawPolygon(renderer, centre, static_cast<float>(radius), kRingSides, 0.0f,
                    withAlpha(kRingColor, (k + 3) * 4));
    }
    hLine(renderer, centre.x - layout.radius, centre.x + layout.radius, centre.y, kCrossColor);
    vLine(renderer, centre.x, centre.y - layout.radius, centre.y + layout.radius, kCrossColor);
}

void join(SDL_Renderer* renderer, const RosePoint& from, const RosePoint& to, SDL_Color color) {
    drawLine(renderer, from.at.x, from.at.y, to.at.x, to.at.y, color);
}

}  // namespace

PolarRoseLayout polarRoseLayout(const SDL_Rect& body) {
    return {body, {body.x + body.w / 2, body.y + body.h / 2}, std::min(body.w, body.h) / 2 - kMargin};
}

void drawPolarRose(const DrawContext& context, const SDL_Rect& body, const EngineSnapshot& engine) {
    const PolarRoseLayout layout = polarRoseLayout(body);
    if (layout.radius <= 0) return;
    SDL_Renderer* renderer = context.renderer;
    const ClipGuard clip(renderer, body);
    drawGround(renderer, layout);
    const Rose rose = rosePoints(layout, engine);
    for (std::size_t i = 1; i < kShown; ++i)
        join(renderer, rose[i - 1], rose[i], kGlowColor);
    for (std::size_t i = 1; i < kShown; ++i)
        join(renderer, rose[i - 1], rose[i], curveColor(rose[i].size));
    join(renderer, rose.back(), rose.front(), kClosingColor);
    fillRect(renderer, {layout.centre.x - 2, layout.centre.y - 2, 4, 4}, kMiddleColor);
}

void drawPolarRosePanel(const DrawContext& context, const PanelState& panel, const FrameSnapshot& snapshot) {
    PanelStyle style;
    style.titleColor = kTitleColor;
    drawPanel(context, panel, "POLAR ROSE  [Audio]", style,
              [&](const PanelLayout& layout) { drawPolarRose(context, layout.body, snapshot.engine); });
}

}  // namespace veloria
