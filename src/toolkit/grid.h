// Cells of equal size in columns and lines, scrolled up and down: where the rows of a table stand.
#pragma once

#include <SDL.h>

namespace veloria {

constexpr int kGridPitch = 43;       // pixels from line to line
constexpr int kGridCellHeight = 40;  // pixels

struct GridLayout {
    int x = 0;          // left edge of the first column, pixels
    int top = 0;        // of the first line, the scroll already taken off
    int columns = 1;    // at least 1
    int cellWidth = 0;  // pixels; below 1 in a panel too narrow for any cell
};

// The grid of a panel that starts at panelX and is panelW wide; `top` is where its first line stands
// unscrolled.
[[nodiscard]] GridLayout gridLayout(int panelX, int panelW, int top, int scroll);

// The place of a cell, counted from 0. Empty when the panel is too narrow.
[[nodiscard]] SDL_Rect gridCell(const GridLayout& grid, int index);

// The cell under a point, or -1: between cells, past `count` of them, or in a panel too narrow.
[[nodiscard]] int gridCellAt(const GridLayout& grid, int count, int x, int y);

// How many lines `count` cells fill.
[[nodiscard]] int gridLines(const GridLayout& grid, int count);

}  // namespace veloria
