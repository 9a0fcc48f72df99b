// The genetic code over three-digit numbers: the digits 1, 2, 3, 4 stand for the bases A, T, G, C, so that a
// number of them is a codon.
#pragma once

#include <cstdint>

namespace veloria {

inline constexpr int kAminoAcidCount = 20;
inline constexpr int kCodonCount = 64;  // 111, 112, ... 444 with digits of 1 to 4
inline constexpr int kNoCodon = -1;
inline constexpr int kStopCodon = 255;

// The amino acid, 0 to 19, that a number codes for; kStopCodon for one that ends a chain; kNoCodon for a
// number that has not three digits, or one outside 1 to 4.
[[nodiscard]] int aminoAcidOf(std::int32_t number);

// "Phe", "Leu", ... for 0 to 19, "STP" for kStopCodon; empty for any other.
[[nodiscard]] const char* aminoAcidName(int aminoAcid);

// 'A', 'T', 'G', 'C' for a digit of 1 to 4; 0 for any other.
[[nodiscard]] char baseLetter(int digit);

}  // namespace veloria
