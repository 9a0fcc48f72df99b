// The table of sounding voices: who stands in which column, what each row says and which voices beat against
// each other. Arithmetic only; nothing here draws.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/reports.h"

namespace veloria {

enum TableColumn : int { kLeftColumn, kRightColumn, kShadowColumn, kTableColumnCount };

struct TableVoice {
    double frequency;        // Hz
    std::int32_t tuningTag;  // row of ratioTable, 0 for none
    bool centred;            // heard on both sides; only in the left column
};

// A pair of voices, one a side, close enough to beat.
struct BinauralPair {
    double left;   // Hz
    double right;  // Hz
    float beatHz;  // above 0.1, at most 40
};

struct FrequencyTable {
    std::array<std::vector<TableVoice>, kTableColumnCount> columns;  // each ascending by frequency
    std::vector<BinauralPair> pairs;                                 // in the left column's order
};

inline constexpr std::size_t kBinauralPairLimit = 16;
inline constexpr std::size_t kBinauralSearchLimit = 64;  // voices of either side that are looked at

// Channel 10 stands in the third column whatever its pan; else a pan above 0.7 in the second, any other in
// the first.
[[nodiscard]] FrequencyTable makeFrequencyTable(const std::vector<VoiceInfo>& voices);

// For each left voice in order the nearest right voice that is still free, at most 16 pairs. Both lists
// ascending by frequency.
[[nodiscard]] std::vector<BinauralPair> binauralPairs(const std::vector<TableVoice>& left,
                                                      const std::vector<TableVoice>& right);

// What a left or right voice was tuned from.
struct AvatarBase {
    double frequency;  // Hz, the nearest of the 162
    const char* type;  // "Ref" or "Rot", by the table it stands in
};

// The base of a voice of `hz` that was reached by row `tuningTag` of ratioTable: the Avatar frequency nearest
// to the voice with that ratio taken off, folded into 100 to 1000 Hz. Reflection wins a tie.
[[nodiscard]] AvatarBase avatarBase(double hz, std::int32_t tuningTag);

// "NM" of a Shadow voice: the amino acid that its whole Hz code for, "STP", or "DR" with the digital root.
[[nodiscard]] std::string shadowSymbol(double hz);

// "DIFF": Hz above (or, negative, below) the nearest of the 216 Shadow numbers; of two, the lower.
[[nodiscard]] double shadowDifference(double hz);

}  // namespace veloria
