// The sounding notes as a landscape: frequency across, age in depth. Nothing stays in it from frame to frame;
// how old a note is comes with the note.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/reports.h"

namespace veloria {

inline constexpr int kSpectrumRows = 50;     // 0 the nearest, where old notes arrive; 49 the farthest
inline constexpr int kSpectrumColumns = 80;  // 11.25 Hz each, from 100 Hz on

// What the notes left at one place: their colours, 0 to 1 a channel and each times the note's strength there,
// and the sum of the strengths.
struct SpectrumCell {
    float red = 0.0f;
    float green = 0.0f;
    float blue = 0.0f;
    float weight = 0.0f;
};

// 64 kB: to be kept in a record that lasts, not on the stack.
struct SpectrumGrid {
    std::array<std::array<SpectrumCell, kSpectrumColumns>, kSpectrumRows> cells{};
    std::array<bool, kSpectrumRows> rowUsed{};  // something in it is strong enough to be drawn

    [[nodiscard]] const SpectrumCell& at(int row, int column) const {
        return cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }
    [[nodiscard]] bool used(int row) const { return rowUsed[static_cast<std::size_t>(row)]; }
};

// The frequency in the middle of a column, in Hz.
[[nodiscard]] float spectrumColumnFrequency(int column);

void clearSpectrumGrid(SpectrumGrid& grid);

// Adds a note from the row of its age to the farthest, weaker with the distance. Ignored: a frequency outside
// 25 to 1075 Hz, and a frequency or a progress that is not a number. A progress outside 0 to 1 counts as the
// nearer end. Main thread, as all here.
void addSpectrumNote(SpectrumGrid& grid, const ActiveNote& note, std::int32_t spectrumPalette);

// The grid of these notes alone.
void fillSpectrumGrid(SpectrumGrid& grid, std::span<const ActiveNote> notes, std::int32_t spectrumPalette);

}  // namespace veloria
