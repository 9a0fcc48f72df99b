#include "views/spectrum/spectrum_grid.h"

#include <algorithm>
#include <cmath>

#include "views/shared/palettes.h"

namespace veloria {

namespace {

constexpr float kLowest = 100.0f;       // Hz, the left edge of column 0
constexpr float kColumnWidth = 11.25f;  // Hz
constexpr float kReach = 75.0f;         // Hz to either side of a note: three spreads
constexpr float kSpread = 25.0f;        // Hz
constexpr float kHighest = kLowest + kColumnWidth * static_cast<float>(kSpectrumColumns);
constexpr float kFarthestLoss = 0.8f;  // of a note's strength, at the far end of its rows
constexpr float kUsedFrom = 0.01f;
constexpr int kLastRow = kSpectrumRows - 1;
constexpr int kLastColumn = kSpectrumColumns - 1;

// What a note adds to one column of its nearest row.
struct Strength {
    float full;
    int column;
};

void addToCell(SpectrumCell& cell, SDL_Color colour, float strength) {
    cell.red += strength * static_cast<float>(colour.r) / 255.0f;
    cell.green += strength * static_cast<float>(colour.g) / 255.0f;
    cell.blue += strength * static_cast<float>(colour.b) / 255.0f;
    cell.weight += strength;
}

// A note that has just begun stands in the farthest row and comes nearer as it sounds.
int rowOfAge(float progress) {
    const float row = (1.0f - progress) * static_cast<float>(kLastRow);
    return static_cast<int>(std::clamp(row, 0.0f, static_cast<float>(kLastRow)));
}

}  // namespace

float spectrumColumnFrequency(int column) {
    return kLowest + (static_cast<float>(column) + 0.5f) * kColumnWidth;
}

void clearSpectrumGrid(SpectrumGrid& grid) {
    for (auto& row : grid.cells)
        row.fill({});
    grid.rowUsed.fill(false);
}

void addSpectrumNote(SpectrumGrid& grid, const ActiveNote& note, std::int32_t spectrumPalette) {
    const float hz = note.frequency;
    if (!(hz >= kLowest - kReach && hz <= kHighest + kReach) || std::isnan(note.progress)) return;
    const SDL_Color colour = paletteColour(spectrumPalette, static_cast<double>(hz));
    const int first = std::max(0, static_cast<int>((hz - kReach - kLowest) / kColumnWidth));
    const int last = std::min(kLastColumn, static_cast<int>((hz + kReach - kLowest) / kColumnWidth));
    std::array<Strength, kSpectrumColumns> strengths;
    std::size_t count = 0;
    for (int column = first; column <= last; ++column) {
        const float u = (spectrumColumnFrequency(column) - hz) / kSpread;
        strengths[count++] = {std::exp(-0.5f * u * u), column};
    }
    const int nearest = rowOfAge(note.progress);
    const int rows = kSpectrumRows - nearest;
    for (int k = 0; k < rows; ++k) {
        const auto row = static_cast<std::size_t>(nearest + k);
        const float decay =
            rows == 1 ? 1.0f : 1.0f - kFarthestLoss * static_cast<float>(k) / static_cast<float>(rows - 1);
        for (std::size_t i = 0; i < count; ++i) {
            const float strength = strengths[i].full * decay;
            addToCell(grid.cells[row][static_cast<std::size_t>(strengths[i].column)], colour, strength);
            if (strength > kUsedFrom) grid.rowUsed[row] = true;
        }
    }
}

void fillSpectrumGrid(SpectrumGrid& grid, std::span<const ActiveNote> notes, std::int32_t spectrumPalette) {
    clearSpectrumGrid(grid);
    for (const ActiveNote& note : notes)
        addSpectrumNote(grid, note, spectrumPalette);
}

}  // namespace veloria
