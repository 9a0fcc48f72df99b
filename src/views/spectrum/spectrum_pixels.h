// The landscape of the spectrum drawn in memory, where thousands of small translucent rectangles cost less.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <vector>

#include "views/spectrum/spectrum_shapes.h"

namespace veloria {

// A piece of the picture, four bytes a pixel: blue, green, red, alpha (SDL_PIXELFORMAT_BGRA32).
struct PixelArea {
    SDL_Rect rect{};  // where it lies, in the shapes' pixels; not empty
    std::uint8_t* pixels = nullptr;
    int pitch = 0;  // bytes from line to line
};

// Memory that lasts from frame to frame; nothing in it matters between two calls.
struct SpectrumScratch {
    std::vector<int> firstEdge;          // of each line: its first edge of a glow, -1 for none
    std::vector<int> nextEdge;           // on the same line, -1 for none
    std::vector<std::uint64_t> changes;  // of the glow from pixel to pixel, on the present line
    std::vector<std::uint16_t> band;     // some lines of the picture, 16 bits a channel
};

// The smallest rectangle that holds all shapes; empty if there is none.
[[nodiscard]] SDL_Rect spectrumReach(const SpectrumShapes& shapes);

// Draws all shapes over the pixels, to the step as SDL's software renderer does.
void blendSpectrum(const SpectrumShapes& shapes, const PixelArea& area, SpectrumScratch& scratch);

}  // namespace veloria
