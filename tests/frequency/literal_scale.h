// The order of the scale worked out from digits alone: which numbers belong to which family, and their
// heights in whole hundredths. Shares nothing with the tables of the instrument.
#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

namespace veloria::test {

struct LiteralRow {
    int hz;
    char family;  // R, T or S
    int height;   // hundredths

    float pan() const { return family == 'R' ? 0.0f : family == 'T' ? 1.0f : 0.5f; }
};

// The centre that a digit belongs to: 0 for 2, 3, 4, 1 for 5, 6, 7, 2 for 1, 8, 9; -1 for 0.
inline int centreOf(int digit) {
    if (digit >= 2 && digit <= 4) return 0;
    if (digit >= 5 && digit <= 7) return 1;
    return digit == 0 ? -1 : 2;
}

// The family of a three-digit number; 0 when it is in none.
inline char familyOf(int hz) {
    const std::array<int, 3> digits = {hz / 100, hz / 10 % 10, hz % 10};
    const std::array<int, 3> centres = {centreOf(digits[0]), centreOf(digits[1]), centreOf(digits[2])};
    std::array<int, 3> sorted = centres;
    std::sort(sorted.begin(), sorted.end());
    if (sorted == std::array<int, 3>{0, 1, 2}) {
        // Even orders of the centres turn round in a circle.
        return centres[1] == (centres[0] + 1) % 3 ? 'T' : 'R';
    }
    const bool shadow = std::all_of(digits.begin(), digits.end(), [](int d) { return d >= 1 && d <= 6; });
    return shadow ? 'S' : '\0';
}

inline std::vector<LiteralRow> literalScale() {
    std::vector<LiteralRow> rows;
    for (int hz = 111; hz <= 999; ++hz) {
        const char family = familyOf(hz);
        if (family == '\0') continue;
        const int shift = family == 'R' ? 60 : family == 'T' ? -60 : 0;
        rows.push_back({hz, family, (hz / 100 - 5) * 28 + shift});
    }
    std::sort(rows.begin(), rows.end(), [](const LiteralRow& a, const LiteralRow& b) {
        return a.height != b.height ? a.height > b.height : a.hz < b.hz;
    });
    return rows;
}

// The text of the dump file, by printf and from whole hundredths.
inline std::string literalDump() {
    std::string text = "342 freqs sorted by world Y (top to bottom)\nTriplets marked with | separator\n\n";
    int index = 0;
    for (const LiteralRow& row : literalScale()) {
        char line[64];
        std::snprintf(line, sizeof line, "%3d  %4.0f  %c  Y=%+.3f%s\n", index, static_cast<double>(row.hz),
                      row.family, row.height / 100.0, index % 3 == 2 ? "  |" : "");
        text += line;
        ++index;
    }
    return text;
}

}  // namespace veloria::test
