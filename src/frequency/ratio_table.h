// The 50 fixed multipliers by which a frequency is reached from a table entry.
#pragma once

#include <array>
#include <cstdint>

namespace veloria {

struct RatioRow {
    double ratio;       // factor on the table entry
    const char* label;  // as the panels show it: "x" multiplies, "/" divides; P is phi, R a square root
};

inline constexpr int kRatioCount = 50;

// Rows are numbered from 1 where they are stored with a note; row n stands at ratioTable[n - 1].
extern const std::array<RatioRow, kRatioCount> ratioTable;

// The label of row 1 to 50; the empty text for any other number.
[[nodiscard]] const char* ratioLabel(std::int32_t row);

}  // namespace veloria
