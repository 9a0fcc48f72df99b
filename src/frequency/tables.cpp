#include "frequency/tables.h"

namespace veloria {

namespace {

using Digits = std::array<std::uint32_t, 3>;

constexpr Digits shadowDigits(std::uint32_t index) {
    return {index / 36 + 1, (index / 6) % 6 + 1, index % 6 + 1};
}

constexpr bool hasOneOfEachBand(const Digits& digits) {
    int ones = 0;
    int middle = 0;
    int high = 0;
    for (const std::uint32_t digit : digits) {
        if (digit == 1) {
            ++ones;
        } else if (digit <= 4) {
            ++middle;
        } else {
            ++high;
        }
    }
    return ones == 1 && middle == 1 && high == 1;
}

// Every number of the three families, so that the count and the distinctness below are checked by the
// compiler.
constexpr bool allDistinct() {
    std::array<bool, 1000> seen{};
    int count = 0;
    const auto take = [&](double hz) {
        const auto n = static_cast<std::size_t>(hz);
        if (n >= seen.size() || seen[n]) return false;
        seen[n] = true;
        ++count;
        return true;
    };
    for (const double hz : reflectionFreqs) {
        if (!take(hz)) return false;
    }
    for (const double hz : rotationFreqs) {
        if (!take(hz)) return false;
    }
    for (std::uint32_t i = 0; i < kShadowIndexCount; ++i) {
        if (!hasOneOfEachBand(shadowDigits(i)) && !take(shadowFrequency(i))) return false;
    }
    return count == kFrequencyCount;
}
static_assert(allDistinct(), "the 342 frequencies are distinct");

}  // namespace

int shadowGroup(std::int32_t index) {
    if (index < 0 || index >= kShadowIndexCount) return -1;
    int group = 0;
    for (const std::uint32_t digit : shadowDigits(static_cast<std::uint32_t>(index))) {
        if (digit == 6) return 2;
        if (digit == 5) group = 1;
    }
    return group;
}

bool isConvergence(std::uint32_t index) {
    return index < kShadowIndexCount && hasOneOfEachBand(shadowDigits(index));
}

}  // namespace veloria
