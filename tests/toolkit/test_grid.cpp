#include "toolkit/grid.h"

#include <gtest/gtest.h>

namespace veloria {
namespace {

// The right panel of a window of 1280 pixels: 400 wide from 880.
TEST(Grid, ACellStandsInItsColumnAndLine) {
    const GridLayout grid = gridLayout(880, 400, 84, 0);
    EXPECT_EQ(grid.columns, 2);      // (400 - 12) / 160
    EXPECT_EQ(grid.cellWidth, 192);  // (400 - 12 - 6 + 3) / 2
    const SDL_Rect first = gridCell(grid, 0);
    EXPECT_EQ(first.x, 883);
    EXPECT_EQ(first.y, 84);
    EXPECT_EQ(first.w, 192);
    EXPECT_EQ(first.h, 40);
    const SDL_Rect second = gridCell(grid, 1);
    EXPECT_EQ(second.x, 883 + 195);
    EXPECT_EQ(second.y, 84);
    const SDL_Rect last = gridCell(grid, 80);
    EXPECT_EQ(last.x, 883);
    EXPECT_EQ(last.y, 84 + 40 * 43);
}

TEST(Grid, TheScrollLiftsTheCells) {
    EXPECT_EQ(gridCell(gridLayout(880, 400, 62, 100), 5).y, 62 + 2 * 43 - 100);
}

TEST(Grid, AColumnIsAddedForEach160Pixels) {
    EXPECT_EQ(gridLayout(0, 171, 0, 0).columns, 1);
    EXPECT_EQ(gridLayout(0, 331, 0, 0).columns, 1);
    EXPECT_EQ(gridLayout(0, 332, 0, 0).columns, 2);
    EXPECT_EQ(gridLayout(0, 492, 0, 0).columns, 3);
    EXPECT_EQ(gridLayout(0, 492, 0, 0).cellWidth, (492 - 12 - 9 + 3) / 3);
}

TEST(Grid, APanelTooNarrowHasNoCellsAndNoHits) {
    for (const int width : {-500, 0, 10, 12}) {
        const GridLayout grid = gridLayout(100, width, 84, 0);
        EXPECT_EQ(grid.columns, 1) << width;
        const SDL_Rect cell = gridCell(grid, 0);
        EXPECT_EQ(SDL_RectEmpty(&cell), SDL_TRUE) << width;
        for (int x = 90; x < 120; ++x)
            EXPECT_EQ(gridCellAt(grid, 81, x, 90), -1) << width;
    }
    EXPECT_EQ(gridLayout(100, 13, 84, 0).cellWidth, 1);
    EXPECT_EQ(gridCellAt(gridLayout(100, 13, 84, 0), 81, 103, 84), 0);
}

TEST(Grid, ThePointFindsTheCellThatHoldsIt) {
    constexpr int kCount = 11;
    for (const int width : {150, 400, 520}) {
        const GridLayout grid = gridLayout(30, width, 84, 17);
        for (int y = 40; y < 620; ++y) {
            for (int x = 20; x < 30 + width + 10; x += 1) {
                int wanted = -1;
                for (int i = 0; i < kCount; ++i) {
                    const SDL_Rect cell = gridCell(grid, i);
                    if (x >= cell.x && x < cell.x + cell.w && y >= cell.y && y < cell.y + cell.h) wanted = i;
                }
                ASSERT_EQ(gridCellAt(grid, kCount, x, y), wanted) << width << ": " << x << ", " << y;
            }
        }
    }
}

// Left and right presses on one table start from different tops on purpose.
TEST(Grid, ATopFourPixelsLowerMovesTheHitsByFour) {
    const GridLayout left = gridLayout(880, 400, 84, 0);
    const GridLayout right = gridLayout(880, 400, 88, 0);
    EXPECT_EQ(gridCellAt(left, 81, 900, 84), 0);
    EXPECT_EQ(gridCellAt(right, 81, 900, 87), -1);
    EXPECT_EQ(gridCellAt(right, 81, 900, 88), 0);
    EXPECT_EQ(gridCellAt(left, 81, 900, 124), -1);
    EXPECT_EQ(gridCellAt(right, 81, 900, 127), 0);
}

TEST(Grid, AStartedLineCounts) {
    EXPECT_EQ(gridLines(gridLayout(0, 400, 0, 0), 81), 41);
    EXPECT_EQ(gridLines(gridLayout(0, 400, 0, 0), 80), 40);
    EXPECT_EQ(gridLines(gridLayout(0, 492, 0, 0), 216), 72);
    EXPECT_EQ(gridLines(gridLayout(0, 0, 0, 0), 216), 216);
    EXPECT_EQ(gridLines(gridLayout(0, 400, 0, 0), 0), 0);
}

}  // namespace
}  // namespace veloria
