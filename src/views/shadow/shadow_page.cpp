#include "views/shadow/shadow_page.h"

#include <algorithm>
#include <cmath>

#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/shared/pulse.h"
#include "views/shared/research_page.h"

namespace veloria {

namespace {

using enum LineRole;

constexpr int kLinePitch = 14;
constexpr int kTextLeft = 10;
constexpr int kTextTop = 12;
constexpr int kFigureDrop = 60;  // of its middle, below the body's
constexpr float kPi = 3.1415927f;
constexpr float kInnerRadius = 0.382f;  // of the pentagon inside the pentagram, in radii of the outer one
constexpr int kRingGap = 10;
constexpr int kRingDisc = 3;
constexpr SDL_Color kGold{255, 215, 0, 255};
constexpr SDL_Color kViolet{180, 140, 255, 255};
constexpr SDL_Color kGreen{60, 200, 180, 255};

constexpr PageEntry kMatrixTitle[] = {
    pageLine(Heading, "666 SHADOW MATRIX — Full S3 Permutations"),
};

constexpr PageEntry kQuintessence[] = {
    pageLine(Heading, "555 QUINTESSENCE — Fifth Element Bridge"),
    pageLine(Body, "Mean of 9 Solfeggio = 555 Hz exactly"),
    pageLine(Body, "555 = 5 x 111 (pentagonal x eigenvalue)"),
    pageLine(Dim, "DR(555) = 6 (Tesla key)"),
    pageGap(10),
    pageLine(Heading, "GEOMETRIC PROGRESSION"),
    pageLine(Body, "444 (Tetrahedron/Fire) = 4 x 111"),
    pageLine(Body, "555 (Dodecahedron/Aether) = 5 x 111"),
    pageLine(Body, "666 (Cube/Earth) = 6 x 111"),
    pageLine(Dim, "Each step = +111 (circulant eigenvalue)"),
    pageGap(10),
    pageLine(Heading, "DODECAHEDRON PROPERTIES"),
    pageLine(Body, "12 faces = Kathara 12-Tree Grid"),
    pageLine(Body, "20 vertices = 12 selected + 8 shadow energy"),
    pageLine(Body, "30 edges = 3 x 10 (Yud completion)"),
    pageLine(Dim, "Each face = pentagon (5 sides) -> 5-5-5"),
    pageGap(10),
    pageLine(Heading, "555 + 445 = 1000"),
    pageLine(Body, "Mean Solfeggio + Total Kathara Ebced = 1000"),
    pageLine(Dim, "3x37 (eigenvalue) + F(11) (Fibonacci prime) = 200"),
};

// Goes on where the text above ends, over the figure.
constexpr PageEntry kVitruvian[] = {
    pageGap(4),
    pageLine(Heading, "VITRUVIAN CONNECTION"),
    pageLine(Body, "Mem Sofit(600) - 555 = 45 degrees"),
    pageLine(Body, "45 = Vitruvian arm angle = 360/8"),
    pageLine(Dim, "45 = 1+2+3+4+5+6+7+8+9 (digit sum)"),
};

struct PentagramFigure {
    SDL_Renderer* renderer;
    SDL_Point centre;  // pixels
    int radius;        // pixels
    float pulse;       // 0.4 to 1

    [[nodiscard]] SDL_Color pulsed(SDL_Color colour, float full) const {
        return withAlpha(colour, static_cast<int>(pulse * full));
    }
    // The angle counts anticlockwise from the right, in radians.
    [[nodiscard]] SDL_Point at(float angle, float distance) const {
        return {centre.x + static_cast<int>(std::cos(angle) * distance),
                centre.y - static_cast<int>(std::sin(angle) * distance)};
    }
};

// A line from each of five corners to the one `step` further on.
void drawFiveLines(const PentagramFigure& figure, int step, float turn, float radius, SDL_Color colour) {
    for (int k = 0; k <= 8; k += 2) {
        const float from = static_cast<float>(k) * kPi / 5.0f + kPi / 2.0f + turn;
        const float to = static_cast<float>((k / 2 + step) % 5) * 2.0f * kPi / 5.0f + kPi / 2.0f + turn;
        const SDL_Point start = figure.at(from, radius);
        const SDL_Point end = figure.at(to, radius);
        drawLine(figure.renderer, start.x, start.y, end.x, end.y, colour);
    }
}

void drawRing(const PentagramFigure& figure) {
    for (int k = 0; k <= 22; k += 2) {
        const float angle = static_cast<float>(k) * kPi / 12.0f + kPi / 2.0f;
        const SDL_Point middle = figure.at(angle, static_cast<float>(figure.radius + kRingGap));
        fillCircle(figure.renderer, middle.x, middle.y, kRingDisc, figure.pulsed(kGold, 180.0f));
    }
}

void drawPentagram(const DrawContext& context, const SDL_Rect& body, float time) {
    const PentagramFigure figure{context.renderer,
                                 {body.x + body.w / 2, body.y + kFigureDrop + body.h / 2},
                                 std::min(body.w, body.h) / 4,
                                 pulseAt(1.5f * time)};
    const float radius = static_cast<float>(figure.radius);
    drawFiveLines(figure, 1, 0.0f, radius, figure.pulsed(kGold, 120.0f));
    drawFiveLines(figure, 2, 0.0f, radius, figure.pulsed(kViolet, 80.0f));
    drawFiveLines(figure, 1, kPi, radius * kInnerRadius, figure.pulsed(kGreen, 100.0f));
    DrawTextCentered(context, "555 Hz", {figure.centre.x, figure.centre.y, 0, 0}, context.fonts->fontLabel,
                     kGold);
    drawRing(figure);
}

}  // namespace

void drawShadowPage(const DrawContext& context, const SDL_Rect& body, float time, int page) {
    ScrolledCursor cursor{body, body.x + kTextLeft, body.y + kTextTop, kLinePitch, context.fonts->fontLabel};
    if (page == 0) {
        drawPageEntries(context, cursor, kMatrixTitle, kPageHeading);
        return;
    }
    drawPageEntries(context, cursor, kQuintessence, kPageHeading);
    drawPentagram(context, body, time);
    drawPageEntries(context, cursor, kVitruvian, kPageHeading);
}

}  // namespace veloria
