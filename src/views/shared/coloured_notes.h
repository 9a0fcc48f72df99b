// What sounds, in the colours of a palette: what the views of geometry draw.
#pragma once

#include <SDL.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/reports.h"

namespace veloria {

struct ColouredNote {
    float frequency;   // Hz
    float progress;    // 0 to 1 over the note's length
    SDL_Color colour;  // opaque; a view sets an alpha of its own
};

inline constexpr std::size_t kMostColouredNotes = 128;

// The first 128 notes. `spectrumPalette` as in paletteColour.
[[nodiscard]] std::vector<ColouredNote> colouredNotes(std::span<const ActiveNote> notes,
                                                      std::int32_t spectrumPalette);

// How brightly a note is drawn at this point of its length, 0 to 1: it rises over the first twentieth and
// falls over the last tenth. 0 for progress outside 0 to 1 and for not-a-number.
[[nodiscard]] float noteEnvelope(float progress);

// A third of each channel, alpha too: what is added around a line of this colour.
[[nodiscard]] SDL_Color glowOf(SDL_Color colour);

}  // namespace veloria
