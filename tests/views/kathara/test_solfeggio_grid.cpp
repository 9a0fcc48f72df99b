// The flat grid's pixels.
#include "views/kathara/solfeggio_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "frequency/tables.h"
#include "tests/ui/offscreen.h"
#include "tests/ui/text_probe.h"
#include "toolkit/text.h"

namespace veloria {
namespace {

using test::isColor;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Rect kRect{10, 20, 520, 560};  // inner: 472 by 540 from (34, 30)
constexpr SDL_Color kEarthly{220, 175, 55, 255};
constexpr SDL_Color kTransit{55, 210, 155, 255};
constexpr SDL_Color kGalactic{155, 95, 220, 255};
constexpr SDL_Color kHole{14, 12, 22, 255};
constexpr float kFullPulse = 1.0471976f;  // sin(1.5 t) is 1

SDL_Color faded(SDL_Color color, int alpha) {
    color.a = static_cast<Uint8>(alpha);
    return color;
}

class SolfeggioGrid : public test::DrawTest {
  protected:
    explicit SolfeggioGrid(int w = 560, int h = 600) : DrawTest(w, h) {}

    Picture draw(const std::vector<float>& sounding, float time = 0.0f, SDL_Texture* backdrop = nullptr) {
        screen.clear(kBackdrop);
        drawSolfeggioGrid(context, rect, sounding, time, backdrop);
        return picture();
    }
    // Everything but the texts.
    Picture drawSilently(const std::vector<float>& sounding, float time = 0.0f) {
        context.fonts = &noFonts;
        const Picture seen = draw(sounding, time);
        context.fonts = &fonts;
        return seen;
    }
    [[nodiscard]] SDL_Point node(int index) const {
        return solfeggioGridLayout(rect).nodes[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] SDL_Point digit(int value) const {
        return solfeggioGridLayout(rect).digits[static_cast<std::size_t>(value - 1)];
    }
    // A sounding node's disc is larger than an idle one's.
    [[nodiscard]] bool isLit(const Picture& seen, int index) const {
        const SDL_Point at = node(index);
        const SDL_Color colour = index < 6 ? kEarthly : index == 6 ? kTransit : kGalactic;
        return static_cast<bool>(isColor(seen.at(at.x, at.y + 15), colour, 40));
    }
    testing::AssertionResult centred(const Picture& seen, const Picture& below, const std::string& text,
                                     SDL_Point at, int drop, TTF_Font* font, SDL_Color color) const {
        int w = 0;
        TTF_SizeUTF8(font, text.c_str(), &w, nullptr);
        return isText(seen, below, text, at.x - w / 2, at.y + drop, font, color);
    }

    SDL_Rect rect = kRect;
    Fonts noFonts;
};

TEST_F(SolfeggioGrid, AnIdleNodeIsADimRing) {
    const Picture seen = drawSilently({});
    const SDL_Point at = node(0);  // the lowest: no line below it
    const SDL_Color ring = over(faded(kEarthly, 110), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 12), ring));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 10), ring));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 9), over(faded(kHole, 225), ring)));
    EXPECT_EQ(seen.at(at.x, at.y + 13), kBackdrop);
    const SDL_Point top = node(11);
    EXPECT_TRUE(isColor(seen.at(top.x, top.y - 12), over(faded(kGalactic, 110), kBackdrop)));
    const SDL_Point transit = node(6);
    EXPECT_TRUE(isColor(seen.at(transit.x - 11, transit.y), over(faded(kTransit, 110), kBackdrop)));
}

TEST_F(SolfeggioGrid, ASoundingNodeIsALargerRingInABreathingGlow) {
    const float time = 0.4f;
    const Picture seen = drawSilently({147.0f}, time);
    const SDL_Point at = node(0);
    const double breath = std::sin(3.0 * 0.4) * 0.3 + 0.7;
    const SDL_Color outer = over(faded(kEarthly, static_cast<int>(breath * 35)), kBackdrop);
    const SDL_Color inner = over(faded(kEarthly, static_cast<int>(breath * 65)), outer);
    const SDL_Color ring = over(faded(kEarthly, 220), inner);
    EXPECT_EQ(seen.at(at.x, at.y + 25), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 24), outer));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 21), outer));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 20), inner));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 17), inner));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 16), ring));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 14), ring));
    EXPECT_TRUE(isColor(seen.at(at.x, at.y + 13), over(faded(kHole, 195), ring)));
}

TEST_F(SolfeggioGrid, EachNodesGlowBreathesInItsOwnTime) {
    const Picture seen = drawSilently({963.0f}, 2.0f);
    const SDL_Point at = node(11);
    const int alpha = static_cast<int>((std::sin(11 * 0.5 + 3 * 2.0) * 0.3 + 0.7) * 35);
    EXPECT_TRUE(isColor(seen.at(at.x, at.y - 22), over(faded(kGalactic, alpha), kBackdrop), 1));
}

TEST_F(SolfeggioGrid, TheTextsOfAnIdleNodeStandAboveInAndBelowIt) {
    const Picture below = drawSilently({});
    const Picture seen = draw({});
    TTF_Font* tiny = fonts.fontTiny;
    const SDL_Point at = node(0);
    EXPECT_TRUE(centred(seen, below, "\xD7\x94", at, -7, fonts.fontWide, faded(kEarthly, 175)));
    EXPECT_TRUE(centred(seen, below, "147 Hz", at, -12 - 14, tiny, {240, 235, 210, 150}));
    EXPECT_TRUE(centred(seen, below, "He [5]", at, 12 + 2, tiny, {175, 170, 195, 120}));
    EXPECT_TRUE(centred(seen, below, "Earth Star", at, 26, tiny, {130, 130, 150, 85}));
    EXPECT_TRUE(centred(seen, below, "963 Hz", node(11), -26, tiny, {240, 235, 210, 150}));
    EXPECT_TRUE(centred(seen, below, "Qof [100]", node(11), 14, tiny, {175, 170, 195, 120}));
    EXPECT_TRUE(centred(seen, below, "Soul Star", node(11), 26, tiny, {130, 130, 150, 85}));
    EXPECT_TRUE(centred(seen, below, "\xD7\xA7", node(11), -7, fonts.fontWide, faded(kGalactic, 175)));
}

TEST_F(SolfeggioGrid, TheTextsOfASoundingNodeAreBrightAndGiveWay) {
    rect = {10, 5, 520, 590};  // room for the lowest line
    const std::vector<float> sounding{147.0f};
    const Picture below = drawSilently(sounding);
    const Picture seen = draw(sounding);
    TTF_Font* tiny = fonts.fontTiny;
    const SDL_Point at = node(0);
    EXPECT_TRUE(centred(seen, below, "\xD7\x94", at, -7, fonts.fontWide, kEarthly));
    EXPECT_TRUE(centred(seen, below, "147 Hz", at, -16 - 14, tiny, {240, 235, 210, 255}));
    EXPECT_TRUE(centred(seen, below, "He [5]", at, 16 + 2, tiny, {175, 170, 195, 215}));
    EXPECT_TRUE(centred(seen, below, "Earth Star", at, 30, tiny, {130, 130, 150, 170}));
    EXPECT_TRUE(centred(seen, below, "963 Hz", node(11), -26, tiny, {240, 235, 210, 150}));
}

TEST_F(SolfeggioGrid, TheDigitsAreSmallDiscsWithTheirFigures) {
    const Picture below = drawSilently({});
    const SDL_Point nine = digit(9);
    const SDL_Color disc = over({80, 70, 100, 60}, kBackdrop);
    EXPECT_TRUE(isColor(below.at(nine.x, nine.y - 6), disc));  // lines leave 9 downwards only
    EXPECT_TRUE(isColor(below.at(nine.x, nine.y - 4), over({14, 12, 22, 180}, disc)));
    EXPECT_EQ(below.at(nine.x, nine.y - 7), kBackdrop);
    const Picture seen = draw({});
    for (int value = 1; value <= 9; ++value) {
        EXPECT_TRUE(centred(seen, below, std::to_string(value), digit(value), -5, fonts.fontTiny,
                            {180, 170, 200, 140}))
            << value;
    }
}

TEST_F(SolfeggioGrid, TheRealmsAndTheLegendAreNamed) {
    const Picture below = drawSilently({});
    const Picture seen = draw({});
    TTF_Font* tiny = fonts.fontTiny;
    EXPECT_TRUE(isText(seen, below, "DUNYA", 14, 20 + 540 - 20, tiny, {100, 95, 130, 100}));
    EXPECT_TRUE(isText(seen, below, "GECIS", 14, 20 + 270 + 4, tiny, {55, 180, 130, 100}));
    EXPECT_TRUE(isText(seen, below, "GALAKTIK", 14, 34, tiny, {130, 80, 190, 100}));
    const int x = 10 + 472 - 60;
    const int y = 20 + 540 - 8;
    EXPECT_TRUE(isColor(seen.at(x, y + 3), over({180, 140, 40, 160}, kBackdrop)));
    EXPECT_TRUE(isColor(seen.at(x - 3, y), over({180, 140, 40, 160}, kBackdrop)));
    EXPECT_EQ(seen.at(x - 4, y), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(x + 24, y), over({40, 130, 120, 160}, kBackdrop)));
    EXPECT_TRUE(isColor(seen.at(x + 24, y - 3), over({40, 130, 120, 160}, kBackdrop)));
    EXPECT_TRUE(isText(seen, below, "R", x + 6, y - 5, tiny, {180, 140, 40, 130}));
    EXPECT_TRUE(isText(seen, below, "C", x + 30, y - 5, tiny, {40, 130, 120, 130}));
}

TEST_F(SolfeggioGrid, EveryDotOfAnIdleClusterLiesWhereTheOtherFamilysDoes) {
    rect = {10, 20, 540, 570};
    const Picture seen = drawSilently({}, kFullPulse);
    const SolfeggioGridLayout layout = solfeggioGridLayout(rect);
    // A dot's upper and lower row at least are free of lines in some clusters: there both discs show.
    const SDL_Color both = over({40, 130, 120, 100}, over({180, 140, 40, 100}, kBackdrop));
    int shown = 0;
    for (const TritypeCluster& cluster : layout.clusters) {
        for (const SDL_Point& at : cluster.rotationDots)
            shown += isColor(seen.at(at.x, at.y), both, 4) ? 1 : 0;  // rounded down twice
    }
    EXPECT_GE(shown, 20);
}

TEST_F(SolfeggioGrid, IdleDotsBreathe) {
    const SolfeggioGridLayout layout = solfeggioGridLayout(rect);
    const auto shownAt = [&](float time, int alpha) {
        const Picture seen = drawSilently({}, time);
        const SDL_Color both =
            over(faded({40, 130, 120, 0}, alpha), over(faded({180, 140, 40, 0}, alpha), kBackdrop));
        int shown = 0;
        for (const TritypeCluster& cluster : layout.clusters) {
            for (const SDL_Point& at : cluster.rotationDots)
                shown += isColor(seen.at(at.x, at.y), both, 4) ? 1 : 0;  // rounded down twice
        }
        return shown;
    };
    EXPECT_GE(shownAt(kFullPulse, 100), 20);
    EXPECT_GE(shownAt(0.0f, 91), 20);
    EXPECT_GE(shownAt(3 * kFullPulse, 82), 20) << "30 times 0.4 and 70";
    EXPECT_EQ(shownAt(0.0f, 100), 0);
}

TEST_F(SolfeggioGrid, Sounding396LightsItsNodeItsDotAndEveryEdgeThatTouchesIt) {
    const Picture idle = drawSilently({}, kFullPulse);
    const Picture seen = drawSilently({396.0f}, kFullPulse);
    EXPECT_TRUE(isLit(seen, 5));
    EXPECT_FALSE(isLit(idle, 5));
    for (int index = 0; index < 12; ++index)
        EXPECT_EQ(isLit(seen, index), index == 5) << index;
    // Tritype 369, the nineteenth; 396 is the first of its Reflection frequencies, and the only one near.
    const SolfeggioGridLayout layout = solfeggioGridLayout(rect);
    const SDL_Point dot = layout.clusters[18].reflectionDots[0];
    int gold = 0;  // an edge and sides of later triangles run over some of its rim
    for (const SDL_Point& away : {SDL_Point{4, 0}, SDL_Point{-4, 0}, SDL_Point{0, 4}, SDL_Point{0, -4}}) {
        const SDL_Point at{dot.x + away.x, dot.y + away.y};
        gold += isColor(seen.at(at.x, at.y), over({255, 210, 60, 230}, idle.at(at.x, at.y)), 3) ? 1 : 0;
        EXPECT_FALSE(isColor(idle.at(at.x, at.y), {255, 210, 60, 255}, 60)) << away.x << ", " << away.y;
    }
    EXPECT_GE(gold, 1);
    const auto changed = [&](const NodeEdge& edge) {
        // A third of the way, past the glow and before the digits.
        const SDL_Point a = node(edge.from);
        const SDL_Point b = node(edge.to);
        const int x = a.x + (b.x - a.x) * 35 / 100;
        const int y = a.y + (b.y - a.y) * 35 / 100;
        for (int dy = -2; dy <= 2; ++dy) {
            if (!isColor(seen.at(x, y + dy), idle.at(x, y + dy), 1)) return true;
        }
        return false;
    };
    int lit = 0;
    for (const auto& edges : {std::vector<NodeEdge>(treeEdges.begin(), treeEdges.end()),
                              std::vector<NodeEdge>(crossEdges.begin(), crossEdges.end())}) {
        for (const NodeEdge& edge : edges) {
            const bool touches = edge.from == 5 || edge.to == 5;
            EXPECT_EQ(changed(edge), touches) << edge.from << "-" << edge.to;
            lit += touches ? 1 : 0;
        }
    }
    EXPECT_EQ(lit, 5);
}

TEST_F(SolfeggioGrid, AnActiveEdgeIsThreeLinesInTheMeanColourOfItsRealms) {
    // 6 to 5 is level: the three lines lie in rows of their own.
    const SDL_Color mean{137, 192, 105, 0};
    for (const float time : {kFullPulse, 3 * kFullPulse}) {
        const Picture idle = drawSilently({}, time);
        const Picture seen = drawSilently({396.0f}, time);
        const int alpha = time == kFullPulse ? 160 : 112;
        const int y = node(6).y;
        int matching = 0;
        for (int x = node(6).x + 30; x < node(6).x + 60; ++x) {
            bool column = true;
            for (int dy = -1; dy <= 1; ++dy)
                column = column && isColor(seen.at(x, y + dy), over(faded(mean, alpha), idle.at(x, y + dy)));
            matching += column ? 1 : 0;
            EXPECT_EQ(seen.at(x, y + 2), idle.at(x, y + 2));
            EXPECT_EQ(seen.at(x, y - 2), idle.at(x, y - 2));
        }
        EXPECT_EQ(matching, 30) << "nothing lies over it there";
    }
}

TEST_F(SolfeggioGrid, AnOctaveLightsANodeWithinThreePerCent) {
    EXPECT_TRUE(isLit(drawSilently({792.0f}), 5));
    EXPECT_TRUE(isLit(drawSilently({198.0f}), 5));
    EXPECT_TRUE(isLit(drawSilently({800.0f}), 5)) << "400";
    EXPECT_TRUE(isLit(drawSilently({193.0f}), 5)) << "386";
    EXPECT_TRUE(isLit(drawSilently({1600.0f}), 5));
    EXPECT_TRUE(isLit(drawSilently({407.0f}), 5));
    EXPECT_FALSE(isLit(drawSilently({408.0f}), 5)) << "12 of 11.88";
    EXPECT_FALSE(isLit(drawSilently({816.0f}), 5));
    EXPECT_FALSE(isLit(drawSilently({600.0f}), 5));
}

TEST_F(SolfeggioGrid, ASoundingDotIsLargerAndBrighterInEitherFamily) {
    // 126 of Rotation: tritype 126 is the second, and 126 its first.
    const SolfeggioGridLayout layout = solfeggioGridLayout(rect);
    const Picture idle = drawSilently({});
    const Picture seen = drawSilently({126.0f});
    const SDL_Point dot = layout.clusters[1].rotationDots[0];
    EXPECT_TRUE(isColor(seen.at(dot.x + 4, dot.y), over({60, 230, 210, 230}, idle.at(dot.x + 4, dot.y)), 6));
    EXPECT_TRUE(isColor(seen.at(dot.x, dot.y + 4), over({60, 230, 210, 230}, idle.at(dot.x, dot.y + 4)), 6));
    EXPECT_FALSE(isColor(seen.at(dot.x + 5, dot.y), {60, 230, 210, 255}, 40));
}

TEST_F(SolfeggioGrid, ADotsFigureStandsAboveIt) {
    rect = {0, 0, 560, 600};
    const SolfeggioGridLayout layout = solfeggioGridLayout(rect);
    const Picture below = drawSilently({});
    const Picture seen = draw({});
    // Figures of dots beside each other overlap. The third dot of Rotation is the uppermost of its cluster
    // and drawn last: where no cluster of later stands near, nothing is over its figure.
    int shown = 0;
    for (std::size_t t = 0; t < 27; ++t) {
        const SDL_Point at = layout.clusters[t].rotationDots[2];
        Picture ground = below;
        // Reflection's figure lies below at the same place.
        TTF_Font* tiny = fonts.fontTiny;
        const std::string under = std::to_string(static_cast<int>(reflectionFreqs[3 * t]));
        const std::string upper = std::to_string(static_cast<int>(rotationFreqs[3 * t + 2]));
        test::Offscreen sheet(560, 600);
        DrawContext own = context;
        TextCache ownCache;
        own.renderer = sheet.renderer;
        own.textCache = &ownCache;
        SDL_Surface* picture = SDL_CreateRGBSurfaceWithFormatFrom(ground.pixels.data(), 560, 600, 32, 560 * 4,
                                                                  SDL_PIXELFORMAT_RGBA32);
        SDL_Texture* texture = SDL_CreateTextureFromSurface(sheet.renderer, picture);
        SDL_RenderCopy(sheet.renderer, texture, nullptr, nullptr);
        const SDL_Point left = layout.clusters[t].reflectionDots[0];
        DrawTextCenteredOn(own, under, left.x, left.y - 10, tiny, {220, 190, 110, 55});
        ground = sheet.picture();
        SDL_DestroyTexture(texture);
        SDL_FreeSurface(picture);
        clearTextCache(ownCache);
        shown += centred(seen, ground, upper, at, -10, tiny, {110, 210, 200, 55}) ? 1 : 0;
    }
    EXPECT_GE(shown, 4);
}

TEST_F(SolfeggioGrid, TheBackdropIsFaintAndItsAlphaComesBack) {
    SDL_Surface* paper = SDL_CreateRGBSurfaceWithFormat(0, 4, 4, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_FillRect(paper, nullptr, SDL_MapRGBA(paper->format, 255, 255, 255, 255));
    SDL_Texture* texture = SDL_CreateTextureFromSurface(screen.renderer, paper);
    SDL_FreeSurface(paper);
    SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_BLEND);
    SDL_SetTextureAlphaMod(texture, 110);
    const Picture seen = draw({}, 0.0f, texture);
    Uint8 alpha = 0;
    SDL_GetTextureAlphaMod(texture, &alpha);
    EXPECT_EQ(alpha, 110);
    SDL_DestroyTexture(texture);
    // A square of 472 from (34, 64), under all else.
    const SDL_Color faint = over({255, 255, 255, 30}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(34, 64), faint));
    EXPECT_TRUE(isColor(seen.at(34 + 471, 64), faint));
    EXPECT_TRUE(isColor(seen.at(34, 64 + 471), faint));
    EXPECT_EQ(seen.at(33, 64), kBackdrop);
    EXPECT_EQ(seen.at(34, 63), kBackdrop);
    EXPECT_EQ(seen.at(34 + 472, 64), kBackdrop);
    EXPECT_EQ(seen.at(34, 64 + 472), kBackdrop);
    const SDL_Point transit = node(6);
    EXPECT_TRUE(isColor(seen.at(transit.x - 11, transit.y), over(faded(kTransit, 110), faint)));
}

TEST_F(SolfeggioGrid, ARendererChangeRebuildsThe162Textures) {
    const Picture first = draw({});
    const std::uint64_t texts = cache.misses;
    EXPECT_GE(texts, 162U);
    draw({});
    EXPECT_EQ(cache.misses, texts) << "kept from frame to frame";
    test::Offscreen other(560, 600);
    other.clear(kBackdrop);
    DrawContext moved = context;
    moved.renderer = other.renderer;
    drawSolfeggioGrid(moved, rect, {}, 0.0f, nullptr);
    EXPECT_EQ(cache.misses, 2 * texts);
    EXPECT_TRUE(other.picture() == first);
    clearTextCache(cache);  // while that renderer lives
}

TEST_F(SolfeggioGrid, WithoutFontsTheRestStands) {
    const Picture seen = drawSilently({147.0f});
    EXPECT_TRUE(isLit(seen, 0));
    EXPECT_EQ(cache.misses, 0U);
}

TEST_F(SolfeggioGrid, NothingIsDrawnOutsideItsRectangle) {
    for (const SDL_Rect& area : {SDL_Rect{100, 150, 200, 150}, SDL_Rect{100, 150, 60, 40},
                                 SDL_Rect{100, 150, 1, 1}, SDL_Rect{100, 150, 30, 300}}) {
        rect = area;
        const Picture seen = draw({147.0f, 528.0f, 963.0f}, 1.0f);
        for (int y = 0; y < seen.h; ++y) {
            for (int x = 0; x < seen.w; ++x) {
                const SDL_Point at{x, y};
                if (SDL_PointInRect(&at, &area) == SDL_TRUE) continue;
                ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y << " of " << area.w << " by " << area.h;
            }
        }
    }
    rect = {100, 150, 200, 150};
    draw({});
    EXPECT_GT(touched(), 2000);
}

TEST_F(SolfeggioGrid, ARectangleOfNoSizeDrawsNothing) {
    for (const SDL_Rect& area :
         {SDL_Rect{100, 150, 0, 150}, SDL_Rect{100, 150, 200, -5}, SDL_Rect{0, 0, 0, 0}}) {
        rect = area;
        draw({147.0f});
        EXPECT_EQ(touched(), 0);
    }
}

TEST_F(SolfeggioGrid, NumbersThatAreNoneDoNoHarm) {
    const float infinite = std::numeric_limits<float>::infinity();
    const float largest = std::numeric_limits<float>::max();
    const Picture still = draw({});
    EXPECT_TRUE(draw({0.0f, -1.0f, infinite, std::nanf("")}) == still);
    for (const float time : {infinite, -infinite, std::nanf(""), largest, -largest}) {
        draw({147.0f}, time);
        EXPECT_TRUE(isLit(picture(), 0)) << time;
    }
}

class MaximisedSolfeggioGrid : public SolfeggioGrid {
  protected:
    MaximisedSolfeggioGrid() : SolfeggioGrid(1920, 1080) { rect = {0, 0, 1920, 1080}; }
};

TEST_F(MaximisedSolfeggioGrid, A128NotesShowTheirNodes) {
    std::vector<float> sounding;
    for (int i = 0; i < 128; ++i)
        sounding.push_back(static_cast<float>(i % 2 == 0 ? reflectionFreqs[static_cast<std::size_t>(i / 2)]
                                                         : rotationFreqs[static_cast<std::size_t>(i / 2)]));
    draw(sounding);
    const Picture seen = drawSilently(sounding);
    for (int index = 0; index < 12; ++index)
        EXPECT_TRUE(isLit(seen, index)) << index;
    EXPECT_EQ(node(0).x, 24 + 936);
    EXPECT_EQ(node(0).y, 10 + 1007);
}

}  // namespace
}  // namespace veloria
