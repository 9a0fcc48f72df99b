#include "views/sacred/sacred_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/shared/ring.h"

namespace veloria {

namespace {

constexpr float kNinth = 0.69813174f;    // radians, 40 degrees
constexpr float kShareOfBody = 0.38f;    // of the shorter side
constexpr float kInnerShare = 0.15f;     // of the radius
constexpr float kDigitDistance = 16.0f;  // pixels outside the circle

// A part of the figure is drawn twice: a wide faint glow, and itself over it.
struct Strokes {
    SDL_Color glow;  // added
    SDL_Color core;
};
constexpr Strokes kOuterCircle{{25, 18, 40, 35}, {60, 45, 90, 160}};
constexpr Strokes kInnerCircle{{18, 14, 30, 25}, {40, 30, 65, 80}};
constexpr Strokes kTriangle{{22, 16, 35, 30}, {55, 42, 85, 90}};
constexpr Strokes kHexad{{18, 14, 28, 25}, {45, 35, 70, 70}};
constexpr int kGlowWidth = 4;
constexpr int kOuterSegments = 120;
constexpr int kInnerSegments = 60;

struct Chord {
    int from;
    int to;
};
constexpr std::array<Chord, 3> kTriangleChords = {{{0, 3}, {3, 6}, {6, 0}}};
constexpr std::array<Chord, 6> kHexadChords = {{{1, 4}, {4, 2}, {2, 8}, {8, 5}, {5, 7}, {7, 1}}};

constexpr SDL_Color kPointColour{140, 120, 200, 220};
constexpr SDL_Color kDigitColour{180, 160, 220, 220};
constexpr int kPointReach = 3;  // pixels from the middle of a square to its edges
constexpr int kCornerReach = 4;

constexpr float kNoteAlpha = 210.0f;
constexpr float kFaintestNote = 4.0f;  // alpha
constexpr float kPulseDepth = 0.12f;
constexpr float kPulsePerHz = 0.01f;
constexpr float kPulsePerTime = 3.0f;
constexpr int kNoteGlowWidth = 6;  // seven lines
constexpr int kNoteWidth = 2;      // three
constexpr int kCornerLift = 80;

const SDL_FPoint& pointOf(const SacredLayout& layout, int index) {
    return layout.points[static_cast<std::size_t>(index)];
}

void drawSquare(const DrawContext& context, SDL_FPoint middle, int reach, SDL_Color colour) {
    const int side = 2 * reach + 1;
    fillRect(context.renderer,
             {static_cast<int>(middle.x) - reach, static_cast<int>(middle.y) - reach, side, side}, colour);
}

// One closed line, so that no pixel between two segments is blended twice.
void drawCircle(const DrawContext& context, SDL_FPoint centre, float radius, int segments, SDL_Color colour,
                SDL_BlendMode blend) {
    std::array<SDL_FPoint, kOuterSegments + 1> corners;
    const float step = kTurn / static_cast<float>(segments);
    for (int k = 0; k < segments; ++k) {
        corners[static_cast<std::size_t>(k)] = ringPointF(centre, radius, static_cast<float>(k) * step);
    }
    corners[static_cast<std::size_t>(segments)] = corners[0];
    SDL_SetRenderDrawBlendMode(context.renderer, blend);
    SDL_SetRenderDrawColor(context.renderer, colour.r, colour.g, colour.b, colour.a);
    SDL_RenderDrawLinesF(context.renderer, corners.data(), segments + 1);
}

void drawGlowingCircle(const DrawContext& context, const SacredLayout& layout, float radius, int segments,
                       const Strokes& strokes) {
    for (const float beside : {-1.0f, 1.0f})
        drawCircle(context, layout.centre, radius + beside, segments, strokes.glow, SDL_BLENDMODE_ADD);
    drawCircle(context, layout.centre, radius, segments, strokes.core, SDL_BLENDMODE_BLEND);
}

void drawChords(const DrawContext& context, const SacredLayout& layout, std::span<const Chord> chords,
                const Strokes& strokes) {
    const auto pass = [&](SDL_Color colour, int width, SDL_BlendMode blend) {
        for (const Chord& chord : chords) {
            const SDL_FPoint& from = pointOf(layout, chord.from);
            const SDL_FPoint& to = pointOf(layout, chord.to);
            drawThickLine2dF(context.renderer, from.x, from.y, to.x, to.y, colour, width, blend);
        }
    };
    pass(strokes.glow, kGlowWidth, SDL_BLENDMODE_ADD);
    pass(strokes.core, 1, SDL_BLENDMODE_BLEND);
}

void drawPoints(const DrawContext& context, const SacredLayout& layout) {
    for (std::size_t i = 0; i < layout.points.size(); ++i) {
        drawSquare(context, layout.points[i], kPointReach, kPointColour);
        const SDL_Point& middle = layout.digits[i];
        DrawTextCentered(context, std::to_string(i == 0 ? kSacredPointCount : i), {middle.x, middle.y, 0, 0},
                         context.fonts->fontLabel, kDigitColour);
    }
}

void drawFigure(const DrawContext& context, const SacredLayout& layout) {
    drawGlowingCircle(context, layout, layout.radius, kOuterSegments, kOuterCircle);
    drawGlowingCircle(context, layout, layout.radius * kInnerShare, kInnerSegments, kInnerCircle);
    drawChords(context, layout, kTriangleChords, kTriangle);
    drawChords(context, layout, kHexadChords, kHexad);
    drawPoints(context, layout);
}

void drawSides(const DrawContext& context, const std::array<SDL_FPoint, 3>& corners, SDL_Color colour,
               int width, SDL_BlendMode blend) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const SDL_FPoint& from = corners[i];
        const SDL_FPoint& to = corners[(i + 1) % corners.size()];
        drawThickLine2dF(context.renderer, from.x, from.y, to.x, to.y, colour, width, blend);
    }
}

void drawNote(const DrawContext& context, const SacredLayout& layout, const ColouredNote& note, float time) {
    const std::optional<NoteTriangle> triangle = noteTriangle(note.frequency);
    if (!triangle) return;
    const float pulse = std::sin(note.frequency * kPulsePerHz + time * kPulsePerTime) * kPulseDepth + 1.0f;
    const float bright = pulse * noteEnvelope(note.progress) * kNoteAlpha;
    if (!(bright >= kFaintestNote)) return;
    const SDL_Color colour = withAlpha(note.colour, static_cast<int>(bright));
    const std::array<SDL_FPoint, 3> corners = {pointOf(layout, triangle->cornerA),
                                               pointOf(layout, triangle->cornerB),
                                               sacredPointAt(layout, triangle->cornerC)};
    drawSides(context, corners, glowOf(colour), kNoteGlowWidth, SDL_BLENDMODE_ADD);
    drawSides(context, corners, colour, kNoteWidth, SDL_BLENDMODE_BLEND);
    for (const SDL_FPoint& corner : corners)
        drawSquare(context, corner, kCornerReach, brighten(colour, kCornerLift));
}

SDL_FPoint onCircle(SDL_FPoint centre, float radius, float ninths) {
    return ringPointF(centre, radius, ninths * kNinth - kQuarterTurn);
}

}  // namespace

SacredLayout sacredLayout(const SDL_Rect& body) {
    const auto w = static_cast<float>(body.w);
    const auto h = static_cast<float>(body.h);
    SacredLayout layout;
    layout.centre = {w * 0.5f + static_cast<float>(body.x), h * 0.5f + static_cast<float>(body.y)};
    layout.radius = std::min(w, h) * kShareOfBody;
    for (std::size_t i = 0; i < layout.points.size(); ++i) {
        const auto ninths = static_cast<float>(i);
        layout.points[i] = sacredPointAt(layout, ninths);
        const SDL_FPoint digit = onCircle(layout.centre, layout.radius + kDigitDistance, ninths);
        layout.digits[i] = {static_cast<int>(digit.x), static_cast<int>(digit.y)};
    }
    const int side = static_cast<int>(2.0f * layout.radius);
    layout.backdrop = {body.x + (body.w - side) / 2, body.y + (body.h - side) / 2, side, side};
    return layout;
}

SDL_FPoint sacredPointAt(const SacredLayout& layout, float ninths) {
    return onCircle(layout.centre, layout.radius, ninths);
}

std::optional<NoteTriangle> noteTriangle(float frequency) {
    if (!(frequency > 0.0f)) return std::nullopt;
    const float tenths = frequency * 10.0f;
    if (!std::isfinite(tenths)) return std::nullopt;
    // The remainder before the cut to a whole number, which a large value would not fit into.
    const int v = static_cast<int>(std::fmod(tenths, 10000.0f));
    const auto point = [](int digit) { return digit % kSacredPointCount; };  // 9 stands where 0 would
    return NoteTriangle{point(v / 1000), point(v / 100 % 10),
                        static_cast<float>(point(v / 10 % 10)) + static_cast<float>(v % 10) * 0.1f};
}

void drawSacredGeometry(const DrawContext& context, const SDL_Rect& body, std::span<const ColouredNote> notes,
                        float time, SDL_Texture* backdrop) {
    if (body.w <= 0 || body.h <= 0) return;
    const SacredLayout layout = sacredLayout(body);
    if (backdrop != nullptr) SDL_RenderCopy(context.renderer, backdrop, nullptr, &layout.backdrop);
    drawFigure(context, layout);
    for (const ColouredNote& note : notes)
        drawNote(context, layout, note, time);
}

}  // namespace veloria
