// The lines of the flat grid while nothing sounds.
#include <gtest/gtest.h>

#include <vector>

#include "tests/ui/offscreen.h"
#include "toolkit/primitives.h"
#include "views/kathara/solfeggio_grid.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Rect kRect{10, 20, 520, 560};  // inner: 472 by 540 from (34, 30)

class SolfeggioGridLines : public test::DrawTest {
  protected:
    SolfeggioGridLines() : DrawTest(560, 600) {}

    // Everything but the texts.
    Picture draw() {
        const Fonts none;
        context.fonts = &none;
        screen.clear(kBackdrop);
        drawSolfeggioGrid(context, kRect, {}, 0.0f, nullptr);
        context.fonts = &fonts;
        return picture();
    }
    [[nodiscard]] SDL_Point node(int index) const { return layout.nodes[static_cast<std::size_t>(index)]; }
    [[nodiscard]] SDL_Point digit(int value) const {
        return layout.digits[static_cast<std::size_t>(value - 1)];
    }

    const SolfeggioGridLayout layout = solfeggioGridLayout(kRect);
};

// Is the colour to be seen in a column near this row? Lines between whole pixels may round either way.
bool inColumn(const Picture& seen, int x, int y, SDL_Color wanted) {
    for (int dy = -1; dy <= 1; ++dy) {
        if (isColor(seen.at(x, y + dy), wanted, 1)) return true;
    }
    return false;
}

TEST_F(SolfeggioGridLines, IdleEdgesAreFaint) {
    const Picture seen = draw();
    const auto quarter = [&](int from, int to) {
        return SDL_Point{(3 * node(from).x + node(to).x) / 4, (3 * node(from).y + node(to).y) / 4};
    };
    const SDL_Color tree = over({50, 45, 70, 70}, kBackdrop);
    for (const NodeEdge& edge : {NodeEdge{11, 10}, NodeEdge{0, 1}, NodeEdge{9, 7}, NodeEdge{6, 4}}) {
        const SDL_Point at = quarter(edge.from, edge.to);
        EXPECT_TRUE(inColumn(seen, at.x, at.y, tree)) << edge.from << "-" << edge.to;
    }
    const SDL_Color cross = over({35, 33, 55, 45}, kBackdrop);
    for (const NodeEdge& edge : {NodeEdge{7, 10}, NodeEdge{8, 9}, NodeEdge{3, 2}, NodeEdge{4, 1}}) {
        const SDL_Point at = quarter(edge.from, edge.to);
        EXPECT_TRUE(inColumn(seen, at.x, at.y, cross)) << edge.from << "-" << edge.to;
    }
}

TEST_F(SolfeggioGridLines, TheDigitsTrianglesAndHexadShow) {
    const Picture seen = draw();
    // 4 to 2 is of the hexad alone. It is steep: what crosses it takes a few of its rows.
    const SDL_Point four = digit(4);
    const SDL_Point two = digit(2);
    const SDL_Color hexad = over({100, 85, 120, 40}, kBackdrop);
    int rows = 0;
    for (int y = two.y + 12; y < four.y - 12; ++y) {
        const int x = two.x + (four.x - two.x) * (y - two.y) / (four.y - two.y);
        const bool shown = isColor(seen.at(x - 1, y), hexad) || isColor(seen.at(x, y), hexad) ||
                           isColor(seen.at(x + 1, y), hexad);
        rows += shown ? 1 : 0;
    }
    EXPECT_GE(rows, (four.y - two.y) / 2);
    // 3 to 6 is a side of the digits' triangle and of the tritypes 136, 368 and 369: four colours in turn.
    const SDL_Point six = digit(6);
    SDL_Color sides = over({130, 60, 160, 55}, kBackdrop);
    for (int i = 0; i < 3; ++i)
        sides = over({65, 58, 85, 28}, sides);
    EXPECT_TRUE(isColor(seen.at(six.x + 12, six.y), sides, 5));
    EXPECT_FALSE(isColor(seen.at(six.x + 12, six.y), over({130, 60, 160, 55}, kBackdrop), 5));
}

// What these colours make, laid over the backdrop one after the other, to the step.
SDL_Color stacked(const std::vector<SDL_Color>& colours) {
    test::Offscreen sheet(2, 2);
    sheet.clear(kBackdrop);
    for (const SDL_Color& colour : colours)
        drawPoint(sheet.renderer, 1, 1, colour);
    return sheet.picture().at(1, 1);
}

constexpr SDL_Color kSide{65, 58, 85, 28};  // of a tritype; each side of the three triangles has three
constexpr SDL_Color kHexadSide{100, 85, 120, 40};

TEST_F(SolfeggioGridLines, EachOfTheThreeTrianglesHasItsColourUnderTheHexadAndTheTritypes) {
    const Picture seen = draw();
    const struct {
        int from, to;
        SDL_Color colour;
        bool hexad;
    } sides[] = {
        {1, 4, {180, 140, 30, 55}, true},  {4, 7, {180, 140, 30, 55}, false},
        {7, 1, {180, 140, 30, 55}, true},  {2, 5, {30, 140, 130, 55}, false},
        {5, 8, {30, 140, 130, 55}, true},  {8, 2, {30, 140, 130, 55}, true},
        {3, 6, {130, 60, 160, 55}, false}, {6, 9, {130, 60, 160, 55}, false},
        {9, 3, {130, 60, 160, 55}, false},
    };
    for (const auto& side : sides) {
        const SDL_Color wanted = side.hexad ? stacked({side.colour, kHexadSide, kSide, kSide, kSide})
                                            : stacked({side.colour, kSide, kSide, kSide});
        const SDL_Point a = digit(side.from);
        const SDL_Point b = digit(side.to);
        int found = 0;
        for (int step = 10; step < 90; ++step) {
            const int x = a.x + (b.x - a.x) * step / 100;
            const int y = a.y + (b.y - a.y) * step / 100;
            found += isColor(seen.at(x, y), wanted, 0) ? 1 : 0;
        }
        EXPECT_GE(found, 8) << side.from << "-" << side.to;
    }
}

TEST_F(SolfeggioGridLines, TheEdgesLieUnderTheTriangles) {
    const Picture seen = draw();
    // From 6 to 5 runs a level edge, which the side from 4 to 1 crosses.
    const SDL_Color tree{50, 45, 70, 70};
    const SDL_Color gold{180, 140, 30, 55};
    const SDL_Color wanted = stacked({tree, gold, kHexadSide, kSide, kSide, kSide});
    const int y = node(6).y;
    int found = 0;
    for (int x = node(6).x + 30; x < node(5).x - 30; ++x)
        found += isColor(seen.at(x, y), wanted, 0) ? 1 : 0;
    EXPECT_GE(found, 1);
}

}  // namespace
}  // namespace veloria
