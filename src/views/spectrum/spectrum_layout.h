// The false perspective of the spectrum: where its rows and columns stand in a body.
#pragma once

#include <SDL.h>

namespace veloria {

// In pixels. In a body lower than 54 pixels the far edge lies below the near one, and the picture stands on
// its head.
struct SpectrumLayout {
    SDL_Rect body{};
    int baseY = 0;  // of the near edge
    int topY = 0;   // of the far edge, beyond the farthest row
    int spanY = 0;
    int centreX = 0;
    int halfW = 0;
    SDL_Point lowLabel{};   // upper left corner of "100"
    SDL_Point highLabel{};  // of "1000 Hz"
};
[[nodiscard]] SpectrumLayout spectrumLayout(const SDL_Rect& body);

// A row as it lies in the body.
struct SpectrumRow {
    float fraction = 0.0f;  // 0 at the near edge, below 1 at the farthest row
    float fade = 1.0f;      // 1 near to 0.3 far
    float tallest = 0.0f;   // pixels that a column rises at most
    int y = 0;              // what stands in the row ends above this line
    int left = 0;
    int half = 0;         // half the row's width
    int columnWidth = 1;  // whole pixels; some columns are one wider, so that no gap is left
};
[[nodiscard]] SpectrumRow spectrumRow(const SpectrumLayout& layout, int row);

// The left edge of a column; that of column 80 is the row's right edge.
[[nodiscard]] int spectrumColumnX(const SpectrumRow& row, int column);

// From this column's edge to the next one's, one pixel at least.
[[nodiscard]] int spectrumColumnSpan(const SpectrumRow& row, int column);

}  // namespace veloria
