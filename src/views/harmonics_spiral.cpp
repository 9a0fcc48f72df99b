#include "views/harmonics_spiral.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "toolkit/line_batch.h"
#include "toolkit/primitives.h"
#include "views/shared/ring.h"

namespace veloria {

namespace {

constexpr float kShareOfBody = 0.45f;  // of the shorter side, for all radii together
constexpr float kFadePerArc = 0.3f;
constexpr std::int32_t kDefaultSteps = 6;

constexpr int kFewestSegments = 12;
constexpr int kMostSegments = 40;
constexpr float kSegmentsPerPixel = 0.1f;

constexpr float kTurnPerHz = 0.01f;
constexpr float kTurnPerTime = 0.3f;

constexpr float kSmallestRadius = 1.0f;  // pixels
constexpr int kFaintestArc = 3;          // alpha
constexpr int kGlowWidth = 4;            // five lines

constexpr float kNoteAlpha = 200.0f;
constexpr int kFaintestNote = 4;  // alpha
constexpr SDL_Color kBaseColour{70, 55, 90, 40};
constexpr SDL_Color kMiddleColour{180, 160, 220, 150};
constexpr int kMiddleReach = 3;  // pixels from the middle to the square's edges
constexpr SDL_Color kTitleColour{230, 190, 140, 255};

SDL_Color faded(SDL_Color colour, float fade) {
    const auto cut = [=](Uint8 value) { return static_cast<Uint8>(static_cast<float>(value) * fade); };
    return {cut(colour.r), cut(colour.g), cut(colour.b), cut(colour.a)};
}

void drawArc(const DrawContext& context, LineBatch& batch, const SpiralArc& arc, SDL_Color colour) {
    if (!(arc.radius >= kSmallestRadius) || colour.a < kFaintestArc) return;
    std::array<SDL_FPoint, kMostSegments + 1> corners;
    const float step = kQuarterTurn / static_cast<float>(arc.segments);
    const auto count = static_cast<std::size_t>(arc.segments);
    for (std::size_t k = 0; k <= count; ++k)
        corners[k] = ringPointF(arc.centre, arc.radius, arc.startAngle + static_cast<float>(k) * step);
    for (std::size_t k = 1; k <= count; ++k)
        addThickLine2dF(batch, corners[k - 1].x, corners[k - 1].y, corners[k].x, corners[k].y, kGlowWidth);
    drawBatch(context.renderer, batch, glowOf(colour), SDL_BLENDMODE_ADD);
    for (std::size_t k = 1; k <= count; ++k)
        addLineF(batch, corners[k - 1].x, corners[k - 1].y, corners[k].x, corners[k].y);
    drawBatch(context.renderer, batch, colour, SDL_BLENDMODE_BLEND);
}

void drawSpiral(const DrawContext& context, LineBatch& batch, const HarmonicsLayout& layout, float startAngle,
                SDL_Color colour) {
    const std::array<SpiralArc, kMostArcs> arcs = spiralArcs(layout, startAngle);
    for (const SpiralArc& arc : std::span(arcs).first(static_cast<std::size_t>(layout.steps)))
        drawArc(context, batch, arc, faded(colour, arc.fade));
}

void drawNote(const DrawContext& context, LineBatch& batch, const HarmonicsLayout& layout,
              const ColouredNote& note, float time) {
    if (!(note.frequency > 0.0f)) return;
    const int alpha = static_cast<int>(noteEnvelope(note.progress) * kNoteAlpha);
    if (alpha < kFaintestNote) return;
    const float angle = spiralAngle(note.frequency, time);
    if (!std::isfinite(angle)) return;
    const SDL_Color colour = note.colour;
    drawSpiral(context, batch, layout, angle, {colour.r, colour.g, colour.b, static_cast<Uint8>(alpha)});
}

}  // namespace

HarmonicsLayout harmonicsLayout(const SDL_Rect& body, std::int32_t steps) {
    const std::int32_t wanted = steps < 1 ? kDefaultSteps : steps;
    const int count = std::min(wanted, static_cast<std::int32_t>(kMostArcs));
    const std::int32_t sum = std::accumulate(fibonacciRadii.begin(), fibonacciRadii.begin() + count, 0);
    const auto w = static_cast<float>(body.w);
    const auto h = static_cast<float>(body.h);
    const SDL_FPoint centre{static_cast<float>(body.x) + w * 0.5f, static_cast<float>(body.y) + h * 0.5f};
    return {centre, std::min(w, h) * kShareOfBody / static_cast<float>(sum), count};
}

std::array<SpiralArc, kMostArcs> spiralArcs(const HarmonicsLayout& layout, float startAngle) {
    std::array<SpiralArc, kMostArcs> arcs;
    SDL_FPoint centre = layout.centre;
    float angle = startAngle;
    for (std::size_t i = 0; i < static_cast<std::size_t>(layout.steps); ++i) {
        const float radius = static_cast<float>(fibonacciRadii[i]) * layout.unit;
        const float more = std::min(radius * kSegmentsPerPixel, float{kMostSegments - kFewestSegments});
        arcs[i] = {centre, radius, angle, 1.0f / (static_cast<float>(i) * kFadePerArc + 1.0f),
                   kFewestSegments + static_cast<int>(more)};
        angle += kQuarterTurn;
        centre.x += std::cos(angle) * radius - std::cos(angle + kQuarterTurn) * radius;
        centre.y += std::sin(angle) * radius - std::sin(angle + kQuarterTurn) * radius;
    }
    return arcs;
}

float spiralAngle(float frequency, float time) {
    return std::fmod(frequency * kTurnPerHz, kTurn) + time * kTurnPerTime;
}

void drawHarmonics(const DrawContext& context, const SDL_Rect& body, std::int32_t steps,
                   std::span<const ColouredNote> notes, float time) {
    if (body.w <= 0 || body.h <= 0) return;
    const HarmonicsLayout layout = harmonicsLayout(body, steps);
    LineBatch batch;
    drawSpiral(context, batch, layout, 0.0f, kBaseColour);
    for (const ColouredNote& note : notes)
        drawNote(context, batch, layout, note, time);
    constexpr int kSide = 2 * kMiddleReach + 1;
    fillRect(context.renderer,
             {static_cast<int>(layout.centre.x) - kMiddleReach,
              static_cast<int>(layout.centre.y) - kMiddleReach, kSide, kSide},
             kMiddleColour);
}

void drawHarmonicsPanel(const DrawContext& context, const PanelState& panel, const FrameSnapshot& snapshot,
                        std::int32_t steps, std::int32_t spectrumPalette, float time) {
    PanelStyle style;
    style.titleColor = kTitleColour;
    drawPanel(context, panel, "HARMONICS  [Fibonacci Spiral]", style, [&](const PanelLayout& layout) {
        drawHarmonics(context, layout.body, steps, colouredNotes(snapshot.notes, spectrumPalette), time);
    });
}

}  // namespace veloria
