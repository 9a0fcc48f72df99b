// The digital-root state of the walk, and the kind of triad that the three roots of a step form.
#pragma once

#include <array>
#include <cstdint>

#include "base/rgba.h"

namespace veloria {

enum TriadKind : std::int32_t {
    kTriadSilence = 0,  // none of the others, or fewer than three notes
    kTriadBody = 1,     // the roots 1, 4, 7 in any order
    kTriadHeart = 2,    // 2, 5, 8
    kTriadMind = 3,     // 3, 6, 9
    kTriadUnity = 4,    // all three equal
    kTriadBalance = 5,  // a sum divisible by 9
};

struct TriadRow {
    const char* text;  // as the status panel shows it
    Rgba colour;       // of that text
    float volume;      // amplitude of the step's notes
};

// Row n is the kind n.
inline constexpr std::array<TriadRow, 6> kTriadRows = {{
    {"Silence", {140, 140, 160, 200}, 0.7f},
    {"Body/147", {255, 120, 80, 230}, 0.8f},
    {"Heart/258", {80, 220, 180, 230}, 0.85f},
    {"Mind/369", {220, 100, 255, 255}, 0.85f},
    {"Unity", {255, 255, 80, 255}, 0.95f},
    {"Balance", {120, 200, 255, 230}, 0.7f},
}};

// The row of `kind`; that of silence for a number that is no kind.
[[nodiscard]] const TriadRow& triadRow(std::int32_t kind);

// The state (1 to 81) that `state` becomes under the whole-hertz `frequency` (0 or above).
[[nodiscard]] std::int32_t nextDrState(std::int32_t state, std::int32_t frequency);

// The digital root, 1 to 9, of a state.
[[nodiscard]] std::int32_t drValueOf(std::int32_t state);

// The kind of three digital roots, each 1 to 9.
[[nodiscard]] TriadKind classifyTriad(std::array<std::int32_t, 3> roots);

}  // namespace veloria
