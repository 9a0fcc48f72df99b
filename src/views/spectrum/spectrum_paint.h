// The landscape of the spectrum on a renderer. Main thread.
#pragma once

#include <SDL.h>

#include "views/spectrum/spectrum_pixels.h"
#include "views/spectrum/spectrum_shapes.h"

namespace veloria {

// By the way that is fast on this renderer; both show the same picture.
void paintSpectrum(SDL_Renderer* renderer, const SpectrumShapes& shapes, SpectrumScratch& scratch);

// Rectangle by rectangle: well suited to a graphics card, slow where the processor draws.
void paintSpectrumShapes(SDL_Renderer* renderer, const SpectrumShapes& shapes);

// Takes the picture below into memory, draws there and puts it back. Only for a software renderer, neither
// scaled nor shifted: false, and nothing drawn, on any other and on failure.
[[nodiscard]] bool paintSpectrumPixels(SDL_Renderer* renderer, const SpectrumShapes& shapes,
                                       SpectrumScratch& scratch);

}  // namespace veloria
