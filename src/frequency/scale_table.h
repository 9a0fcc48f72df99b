// The 342 frequencies in one order, from the top of the world to the bottom: each family is a ladder of nine
// (Shadow: six) steps, and the three ladders stand shifted against each other.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "frequency/tables.h"

namespace veloria {

struct ScaleEntry {
    double frequency;  // Hz
    float worldX;      // 0 Reflection, 1 Rotation, 0.5 Shadow; also the pan that the walker gives the row
    float worldY;      // height, -1.72 to 1.72
};

struct ScaleTable {
    std::array<ScaleEntry, kFrequencyCount> rows{};
    std::int32_t count = 0;  // valid rows: 0, and 342 after the build
    bool built = false;
};

inline constexpr const char* kScaleDumpName = "scale_table_dump.txt";

// The built table, made anew at each call.
[[nodiscard]] ScaleTable makeScaleTable();

// The text of the dump file: one line a row, every third marked.
[[nodiscard]] std::string scaleDumpText(const ScaleTable& table);

// The process's own table. The first call builds it and writes kScaleDumpName in the working directory, and
// says nothing if that file cannot be written; any later call only returns it. Called by the walker alone: a
// view must not be what makes the file appear. Main thread.
const ScaleTable& buildScaleTable();

// The process's own table as it stands, empty until buildScaleTable was called. Main thread.
[[nodiscard]] const ScaleTable& scaleTable();

// Rows of scaleTable(): 0 before the build, 342 after it.
[[nodiscard]] std::int32_t scaleCount();

}  // namespace veloria
