#include "views/kathara/solfeggio_grid.h"

#include <cstddef>
#include <string_view>

#include "base/format.h"
#include "frequency/tables.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/scene/geometry/solfeggio_nodes.h"
#include "views/scene/geometry/sounding.h"
#include "views/scene/vitruvian_assets.h"
#include "views/shared/pulse.h"

namespace veloria {

namespace {

constexpr Uint8 kFaintBackdrop = 30;

constexpr SDL_Color kTree{50, 45, 70, 70};
constexpr SDL_Color kCross{35, 33, 55, 45};
constexpr SDL_Color kHexadLine{100, 85, 120, 40};
constexpr SDL_Color kTritypeSide{65, 58, 85, 28};
constexpr int kActiveEdgeWidth = 2;

struct DigitTriangle {
    std::array<int, 3> digits;
    SDL_Color colour;
};
constexpr std::array<DigitTriangle, 3> kDigitTriangles = {{
    {{1, 4, 7}, {180, 140, 30, 55}},
    {{2, 5, 8}, {30, 140, 130, 55}},
    {{3, 6, 9}, {130, 60, 160, 55}},
}};

// How the dots of a family look.
struct DotLook {
    SDL_Color sounding;
    SDL_Color idle;  // its alpha breathes
    SDL_Color text;
};
constexpr DotLook kReflectionLook{{255, 210, 60, 230}, {180, 140, 40, 255}, {220, 190, 110, 255}};
constexpr DotLook kRotationLook{{60, 230, 210, 230}, {40, 130, 120, 255}, {110, 210, 200, 255}};

constexpr SDL_Color kHole{14, 12, 22, 255};  // the dark middle of a disc
constexpr SDL_Color kHertz{240, 235, 210, 255};
constexpr SDL_Color kLetterName{175, 170, 195, 255};
constexpr SDL_Color kCentreName{130, 130, 150, 255};

constexpr SDL_Color kDigitDisc{80, 70, 100, 60};
constexpr Uint8 kDigitHoleAlpha = 180;
constexpr SDL_Color kDigitText{180, 170, 200, 140};

struct RealmLabel {
    const char* text;
    SDL_Color colour;
};
constexpr std::array<RealmLabel, 3> kRealmLabels = {{
    {"DUNYA", {100, 95, 130, 100}},
    {"GECIS", {55, 180, 130, 100}},
    {"GALAKTIK", {130, 80, 190, 100}},
}};

// What sounds, by the indices of the tables.
struct GridSound {
    std::array<bool, kSolfeggioCount> nodes{};
    std::array<bool, kAvatarFamilySize> reflection{};
    std::array<bool, kAvatarFamilySize> rotation{};
};

// What all steps of one drawing work with.
struct Grid {
    const DrawContext& context;
    const SolfeggioGridLayout& layout;
    const GridSound& sound;
    float time;
    float pulse;

    [[nodiscard]] SDL_Renderer* renderer() const { return context.renderer; }
    [[nodiscard]] TTF_Font* labelFont() const { return context.fonts->fontTiny; }
    [[nodiscard]] SDL_Point node(int index) const { return layout.nodes[static_cast<std::size_t>(index)]; }
    [[nodiscard]] SDL_Point digit(int value) const {
        return layout.digits[static_cast<std::size_t>(value - 1)];
    }
    void line(SDL_Point from, SDL_Point to, SDL_Color colour) const {
        drawLine(renderer(), from.x, from.y, to.x, to.y, colour);
    }
    void thickLine(SDL_Point from, SDL_Point to, SDL_Color colour, int width) const {
        drawThickLine2d(renderer(), from.x, from.y, to.x, to.y, colour, width);
    }
    void disc(SDL_Point at, int radius, SDL_Color colour) const {
        fillCircle(renderer(), at.x, at.y, radius, colour);
    }
    void label(std::string_view text, SDL_Point at, int drop, SDL_Color colour) const {
        DrawTextCenteredOn(context, text, at.x, at.y + drop, labelFont(), colour);
    }
};

template <std::size_t Count>
std::array<bool, Count> whichSound(const std::array<double, Count>& frequencies,
                                   std::span<const float> sounding) {
    std::array<bool, Count> result{};
    for (std::size_t i = 0; i < Count; ++i)
        result[i] = isSoundingNear(frequencies[i], sounding);
    return result;
}

void drawBackdrop(const Grid& grid, SDL_Texture* backdrop) {
    const SDL_Rect& place = grid.layout.backdrop;
    if (backdrop == nullptr || place.w <= 0) return;
    SDL_SetTextureAlphaMod(backdrop, kFaintBackdrop);
    SDL_RenderCopy(grid.renderer(), backdrop, nullptr, &place);
    SDL_SetTextureAlphaMod(backdrop, kBackdropAlpha);
}

void drawIdleEdges(const Grid& grid) {
    for (const NodeEdge& edge : treeEdges)
        grid.thickLine(grid.node(edge.from), grid.node(edge.to), kTree, 1);
    for (const NodeEdge& edge : crossEdges)
        grid.line(grid.node(edge.from), grid.node(edge.to), kCross);
}

void drawDigitLines(const Grid& grid) {
    for (const DigitTriangle& triangle : kDigitTriangles) {
        const auto& [a, b, c] = triangle.digits;
        grid.thickLine(grid.digit(a), grid.digit(b), triangle.colour, 1);
        grid.thickLine(grid.digit(b), grid.digit(c), triangle.colour, 1);
        grid.thickLine(grid.digit(c), grid.digit(a), triangle.colour, 1);
    }
    for (std::size_t i = 0; i < kHexad.size(); ++i)
        grid.line(grid.digit(kHexad[i] + 1), grid.digit(kHexad[(i + 1) % kHexad.size()] + 1), kHexadLine);
}

void drawDots(const Grid& grid, const std::array<SDL_Point, 3>& dots, const double* frequencies,
              const bool* sounding, const DotLook& look) {
    const auto idleAlpha = static_cast<Uint8>(30.0f * grid.pulse + 70.0f);
    for (std::size_t k = 0; k < dots.size(); ++k) {
        const bool sounds = sounding[k];
        grid.disc(dots[k], sounds ? 4 : 2, sounds ? look.sounding : withAlpha(look.idle, idleAlpha));
        grid.label(formatText("%d", static_cast<int>(frequencies[k])), dots[k], -10,
                   withAlpha(look.text, sounds ? 230 : 55));
    }
}

// Each cluster lies over the triangles before its own, and under the sides of those behind.
void drawTritypes(const Grid& grid) {
    for (std::size_t t = 0; t < tritypes.size(); ++t) {
        const auto& [a, b, c] = tritypes[t];
        grid.line(grid.digit(a), grid.digit(b), kTritypeSide);
        grid.line(grid.digit(b), grid.digit(c), kTritypeSide);
        grid.line(grid.digit(c), grid.digit(a), kTritypeSide);
        const TritypeCluster& cluster = grid.layout.clusters[t];
        drawDots(grid, cluster.reflectionDots, &reflectionFreqs[3 * t], &grid.sound.reflection[3 * t],
                 kReflectionLook);
        drawDots(grid, cluster.rotationDots, &rotationFreqs[3 * t], &grid.sound.rotation[3 * t],
                 kRotationLook);
    }
}

SDL_Color meanColour(SDL_Color a, SDL_Color b) {
    const auto mean = [](Uint8 one, Uint8 other) { return static_cast<Uint8>((one + other) / 2); };
    return {mean(a.r, b.r), mean(a.g, b.g), mean(a.b, b.b), 255};
}

void drawActiveEdges(const Grid& grid, std::span<const NodeEdge> edges) {
    const int alpha = static_cast<int>(grid.pulse * 80.0f + 80.0f);
    const auto sounds = [&](int node) { return grid.sound.nodes[static_cast<std::size_t>(node)]; };
    for (const NodeEdge& edge : edges) {
        if (!sounds(edge.from) && !sounds(edge.to)) continue;
        const SDL_Color colour = meanColour(realmColour(edge.from), realmColour(edge.to));
        grid.thickLine(grid.node(edge.from), grid.node(edge.to), withAlpha(colour, alpha), kActiveEdgeWidth);
    }
}

void drawNodeTexts(const Grid& grid, int index, int radius, bool sounds) {
    const SDL_Point at = grid.node(index);
    const SolfeggioNode& node = solfeggioNodes[static_cast<std::size_t>(index)];
    DrawTextUtf8CenteredOn(grid.context, node.letter, at.x, at.y - 7, grid.context.fonts->fontWide,
                           withAlpha(realmColour(index), sounds ? 255 : 175));
    const int hz = static_cast<int>(solfeggio12[static_cast<std::size_t>(index)]);
    grid.label(formatText("%d Hz", hz), at, -radius - 14, withAlpha(kHertz, sounds ? 255 : 150));
    grid.label(formatText("%s [%d]", node.name, node.ebced), at, radius + 2,
               withAlpha(kLetterName, sounds ? 215 : 120));
    grid.label(node.centre, at, sounds ? 30 : 26, withAlpha(kCentreName, sounds ? 170 : 85));
}

void drawNode(const Grid& grid, int index) {
    const bool sounds = grid.sound.nodes[static_cast<std::size_t>(index)];
    const SDL_Point at = grid.node(index);
    const SDL_Color realm = realmColour(index);
    if (sounds) {
        const float breath = pulseAt(static_cast<float>(index) * 0.5f + 3.0f * grid.time);
        grid.disc(at, 24, withAlpha(realm, static_cast<int>(breath * 35.0f)));
        grid.disc(at, 20, withAlpha(realm, static_cast<int>(breath * 65.0f)));
    }
    const int radius = sounds ? 16 : 12;
    grid.disc(at, radius, withAlpha(realm, sounds ? 220 : 110));
    grid.disc(at, sounds ? 13 : 9, withAlpha(kHole, sounds ? 195 : 225));
    drawNodeTexts(grid, index, radius, sounds);
}

void drawDigits(const Grid& grid) {
    for (int value = 1; value <= kDigitCount; ++value) {
        const SDL_Point at = grid.digit(value);
        grid.disc(at, 6, kDigitDisc);
        grid.disc(at, 4, withAlpha(kHole, kDigitHoleAlpha));
        grid.label(formatText("%d", value), at, -5, kDigitText);
    }
}

void drawRealmLabels(const Grid& grid) {
    for (std::size_t i = 0; i < kRealmLabels.size(); ++i) {
        const SDL_Point& at = grid.layout.realmLabels[i];
        DrawText(grid.context, kRealmLabels[i].text, at.x, at.y, grid.labelFont(), kRealmLabels[i].colour);
    }
}

void drawKey(const Grid& grid, SDL_Point at, const char* letter, SDL_Color colour) {
    grid.disc(at, 3, withAlpha(colour, 160));
    DrawText(grid.context, letter, at.x + 6, at.y - 5, grid.labelFont(), withAlpha(colour, 130));
}

}  // namespace

void drawSolfeggioGrid(const DrawContext& context, const SDL_Rect& rect, std::span<const float> sounding,
                       float time, SDL_Texture* backdrop) {
    if (rect.w <= 0 || rect.h <= 0) return;
    const SolfeggioGridLayout layout = solfeggioGridLayout(rect);
    const GridSound sound{whichSound(solfeggio12, sounding), whichSound(reflectionFreqs, sounding),
                          whichSound(rotationFreqs, sounding)};
    const Grid grid{context, layout, sound, time, pulseAt(1.5f * time)};
    const ClipGuard clip(context.renderer, layout.area);
    drawBackdrop(grid, backdrop);
    drawIdleEdges(grid);
    drawDigitLines(grid);
    drawTritypes(grid);
    drawActiveEdges(grid, treeEdges);
    drawActiveEdges(grid, crossEdges);
    for (int index = 0; index < kSolfeggioCount; ++index)
        drawNode(grid, index);
    drawDigits(grid);
    drawRealmLabels(grid);
    drawKey(grid, layout.reflectionKey, "R", kReflectionLook.idle);
    drawKey(grid, layout.rotationKey, "C", kRotationLook.idle);
}

}  // namespace veloria
