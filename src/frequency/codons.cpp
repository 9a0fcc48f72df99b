#include "frequency/codons.h"

#include <array>

namespace veloria {

namespace {

constexpr int kStop = kStopCodon;

// By (d1 - 1) * 16 + (d2 - 1) * 4 + (d3 - 1).
// clang-format off
constexpr std::array<int, kCodonCount> kAminoAcids = {
    13, 12, 13, 12,      2,  2,  3,  2,  18,  5, 18,  5,   7,  7,  7,  7,
    kStop, 9, kStop, 9,  1,  0,  1,  0,  kStop, 16, 17, 16,  5,  5,  5,  5,
    15, 14, 15, 14,      4,  4,  4,  4,  19, 19, 19, 19,   8,  8,  8,  8,
    11, 10, 11, 10,      1,  1,  1,  1,  18, 18, 18, 18,   6,  6,  6,  6,
};
// clang-format on

constexpr std::array<const char*, kAminoAcidCount> kNames = {"Phe", "Leu", "Ile", "Met", "Val", "Ser", "Pro",
                                                             "Thr", "Ala", "Tyr", "His", "Gln", "Asn", "Lys",
                                                             "Asp", "Glu", "Cys", "Trp", "Arg", "Gly"};

constexpr bool isBase(int digit) {
    return digit >= 1 && digit <= 4;
}

}  // namespace

int aminoAcidOf(std::int32_t number) {
    if (number < 111 || number > 444) return kNoCodon;
    const int first = number / 100;
    const int second = number / 10 % 10;
    const int third = number % 10;
    if (!isBase(first) || !isBase(second) || !isBase(third)) return kNoCodon;
    return kAminoAcids[static_cast<std::size_t>((first - 1) * 16 + (second - 1) * 4 + (third - 1))];
}

const char* aminoAcidName(int aminoAcid) {
    if (aminoAcid == kStopCodon) return "STP";
    if (aminoAcid < 0 || aminoAcid >= kAminoAcidCount) return "";
    return kNames[static_cast<std::size_t>(aminoAcid)];
}

char baseLetter(int digit) {
    constexpr std::array<char, 4> kLetters = {'A', 'T', 'G', 'C'};
    return isBase(digit) ? kLetters[static_cast<std::size_t>(digit - 1)] : '\0';
}

}  // namespace veloria
