// What the landscape of the spectrum is made of: coloured rectangles, each list in the order of drawing.
#pragma once

#include <SDL.h>

#include <vector>

#include "views/spectrum/spectrum_grid.h"
#include "views/spectrum/spectrum_layout.h"

namespace veloria {

struct TintedRect {
    SDL_Rect rect{};
    SDL_Color color{};
};

struct SurfaceColumn {
    SDL_Rect rect{};
    SDL_Color color{};
    int highlights = 0;   // lines at the top over which highlightColor is laid as well, 0 to 2
    bool shaded = false;  // shadeColor is laid over its rightmost line
};
[[nodiscard]] SDL_Color highlightColor(SDL_Color column);
[[nodiscard]] SDL_Color shadeColor(SDL_Color column);

struct SurfaceRow {
    std::vector<SurfaceColumn> columns;  // from left to right
    TintedRect line;                     // across the row, over its columns; empty where there is none
};

struct SpectrumShapes {
    std::vector<TintedRect> glow;   // added; far rows first
    std::vector<SurfaceRow> rows;   // blended; far rows first
    std::vector<TintedRect> crest;  // added
};

// Replaces what `shapes` held and keeps its memory. `time` in seconds of the views' clock.
void makeSpectrumShapes(const SpectrumGrid& grid, const SpectrumLayout& layout, float time,
                        SpectrumShapes& shapes);

}  // namespace veloria
