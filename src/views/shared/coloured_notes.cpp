#include "views/shared/coloured_notes.h"

#include <algorithm>

#include "views/shared/palettes.h"

namespace veloria {

namespace {

constexpr float kRise = 0.05f;
constexpr float kFallFrom = 0.9f;
constexpr float kFall = 0.1f;
constexpr int kGlowShare = 3;

}  // namespace

std::vector<ColouredNote> colouredNotes(std::span<const ActiveNote> notes, std::int32_t spectrumPalette) {
    std::vector<ColouredNote> coloured;
    const std::size_t count = std::min(notes.size(), kMostColouredNotes);
    coloured.reserve(count);
    for (const ActiveNote& note : notes.first(count)) {
        const SDL_Color colour = paletteColour(spectrumPalette, static_cast<double>(note.frequency));
        coloured.push_back({note.frequency, note.progress, colour});
    }
    return coloured;
}

float noteEnvelope(float progress) {
    if (!(progress >= 0.0f && progress <= 1.0f)) return 0.0f;
    if (progress < kRise) return progress / kRise;
    if (progress > kFallFrom) return (1.0f - progress) / kFall;
    return 1.0f;
}

SDL_Color glowOf(SDL_Color colour) {
    const auto share = [](Uint8 value) { return static_cast<Uint8>(value / kGlowShare); };
    return {share(colour.r), share(colour.g), share(colour.b), share(colour.a)};
}

}  // namespace veloria
