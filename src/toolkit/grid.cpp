#include "toolkit/grid.h"

#include <algorithm>

#include "toolkit/rect.h"

namespace veloria {

namespace {

constexpr int kGap = 3;            // between columns and at the left
constexpr int kMargins = 12;       // of the panel's width, for the edges and the scroll bar
constexpr int kColumnWidth = 160;  // a column is added for each of these

}  // namespace

GridLayout gridLayout(int panelX, int panelW, int top, int scroll) {
    GridLayout grid;
    grid.x = panelX + kGap;
    grid.top = top - scroll;
    grid.columns = std::max((panelW - kMargins) / kColumnWidth, 1);
    grid.cellWidth = (panelW - kMargins - grid.columns * kGap + kGap) / grid.columns;
    return grid;
}

SDL_Rect gridCell(const GridLayout& grid, int index) {
    const int x = grid.x + (grid.cellWidth + kGap) * (index % grid.columns);
    const int y = grid.top + index / grid.columns * kGridPitch;
    return {x, y, std::max(grid.cellWidth, 0), grid.cellWidth < 1 ? 0 : kGridCellHeight};
}

int gridCellAt(const GridLayout& grid, int count, int x, int y) {
    if (grid.cellWidth < 1 || x < grid.x || y < grid.top) return -1;
    const int column = (x - grid.x) / (grid.cellWidth + kGap);
    const int index = (y - grid.top) / kGridPitch * grid.columns + column;
    // A column past the last one gives a cell of the next line, which does not hold the point.
    return index < count && contains(gridCell(grid, index), x, y) ? index : -1;
}

int gridLines(const GridLayout& grid, int count) {
    return (count - 1 + grid.columns) / grid.columns;
}

}  // namespace veloria
