#include "views/scene/geometry/helix.h"

#include <array>

#include "base/format.h"
#include "frequency/codons.h"

namespace veloria {

namespace {

// In the order of the amino acids' numbers.
constexpr std::array<SDL_Color, kAminoAcidCount> kAminoAcidColours = {{
    {255, 180, 60, 255},  {255, 160, 40, 255},  {240, 150, 30, 255},  {255, 215, 0, 255},
    {230, 140, 50, 255},  {80, 220, 180, 255},  {200, 130, 80, 255},  {100, 210, 160, 255},
    {210, 160, 70, 255},  {120, 200, 200, 255}, {100, 140, 255, 255}, {140, 200, 220, 255},
    {120, 210, 190, 255}, {80, 120, 255, 255},  {255, 80, 80, 255},   {255, 100, 100, 255},
    {100, 220, 200, 255}, {255, 200, 80, 255},  {60, 100, 255, 255},  {160, 220, 180, 255},
}};
constexpr SDL_Color kStopColour{100, 100, 100, 255};

}  // namespace

SDL_Color codonColour(int code) {
    const int aminoAcid = aminoAcidOf(code);
    if (aminoAcid < 0 || aminoAcid >= kAminoAcidCount) return kStopColour;
    return kAminoAcidColours[static_cast<std::size_t>(aminoAcid)];
}

std::string codonLabel(int code) {
    const int aminoAcid = aminoAcidOf(code);
    if (aminoAcid == kNoCodon) return {};
    return formatText("%c%c%c/%s", baseLetter(code / 100), baseLetter(code / 10 % 10), baseLetter(code % 10),
                      aminoAcidName(aminoAcid));
}

}  // namespace veloria
