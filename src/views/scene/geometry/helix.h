// The Shadow numbers as codons: their colours and labels in the scene.
#pragma once

#include <SDL.h>

#include <string>

namespace veloria {

// The colour of the amino acid that a number of digits 1 to 4 codes for; grey for a stop codon and for what
// is no codon. Alpha 255.
[[nodiscard]] SDL_Color codonColour(int code);

// "ATG/Met": the three bases and the amino acid; empty when a digit lies outside 1 to 4.
[[nodiscard]] std::string codonLabel(int code);

}  // namespace veloria
