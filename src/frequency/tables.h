// The 342 frequencies of the instrument, in hertz, and the smaller sets drawn from them.
#pragma once

#include <array>
#include <cstdint>

namespace veloria {

inline constexpr int kAvatarFamilySize = 81;   // entries of each Avatar table: 27 tritypes, three orders each
inline constexpr int kShadowIndexCount = 216;  // three digits of 1 to 6
inline constexpr int kShadowFrequencyCount = 180;  // the 216 less the 36 that are Avatar numbers already
inline constexpr int kFrequencyCount = 342;        // 2 x 81 + 180

// A tritype is a digit of each centre: a of {2, 3, 4}, b of {5, 6, 7}, c of {1, 8, 9}. Its six orders are two
// triples, each sorted ascending: Reflection the odd permutations, Rotation the even ones. Triple t stands at
// 3t, 3t+1, 3t+2: first the nine tritypes with c = 1 (a outer, b inner), then a outer, b middle, c of {8, 9}
// inner.
// clang-format off
inline constexpr std::array<double, kAvatarFamilySize> reflectionFreqs = {
    152.0, 215.0, 521.0,  162.0, 216.0, 621.0,  172.0, 217.0, 721.0,
    153.0, 315.0, 531.0,  163.0, 316.0, 631.0,  173.0, 317.0, 731.0,
    154.0, 415.0, 541.0,  164.0, 416.0, 641.0,  174.0, 417.0, 741.0,
    285.0, 528.0, 852.0,  295.0, 529.0, 952.0,  286.0, 628.0, 862.0,
    296.0, 629.0, 962.0,  287.0, 728.0, 872.0,  297.0, 729.0, 972.0,
    385.0, 538.0, 853.0,  395.0, 539.0, 953.0,  386.0, 638.0, 863.0,
    396.0, 639.0, 963.0,  387.0, 738.0, 873.0,  397.0, 739.0, 973.0,
    485.0, 548.0, 854.0,  495.0, 549.0, 954.0,  486.0, 648.0, 864.0,
    496.0, 649.0, 964.0,  487.0, 748.0, 874.0,  497.0, 749.0, 974.0,
};

inline constexpr std::array<double, kAvatarFamilySize> rotationFreqs = {
    125.0, 251.0, 512.0,  126.0, 261.0, 612.0,  127.0, 271.0, 712.0,
    135.0, 351.0, 513.0,  136.0, 361.0, 613.0,  137.0, 371.0, 713.0,
    145.0, 451.0, 514.0,  146.0, 461.0, 614.0,  147.0, 471.0, 714.0,
    258.0, 582.0, 825.0,  259.0, 592.0, 925.0,  268.0, 682.0, 826.0,
    269.0, 692.0, 926.0,  278.0, 782.0, 827.0,  279.0, 792.0, 927.0,
    358.0, 583.0, 835.0,  359.0, 593.0, 935.0,  368.0, 683.0, 836.0,
    369.0, 693.0, 936.0,  378.0, 783.0, 837.0,  379.0, 793.0, 937.0,
    458.0, 584.0, 845.0,  459.0, 594.0, 945.0,  468.0, 684.0, 846.0,
    469.0, 694.0, 946.0,  478.0, 784.0, 847.0,  479.0, 794.0, 947.0,
};
// clang-format on

// The 12 frequencies of the Kathara grid.
inline constexpr std::array<double, 12> solfeggio12 = {147, 174, 258, 285, 369, 396,
                                                       417, 528, 639, 741, 852, 963};

// The 13 targets of the Solfeggio retuner: the 12 above with 432 after 417.
inline constexpr std::array<double, 13> sacredTargets = {147, 174, 258, 285, 369, 396, 417,
                                                         432, 528, 639, 741, 852, 963};

// The nine standard Solfeggio frequencies; their mean is 555.
inline constexpr std::array<double, 9> standardSolfeggio = {174, 285, 396, 417, 528, 639, 741, 852, 963};

// Key tones: a pair 3 Hz apart, and the tone above it.
inline constexpr std::array<double, 3> heartKey = {322, 325, 358};
inline constexpr std::array<double, 3> bodyKey = {111, 114, 127};

// The Reflection frequency at index 0 to 80, in Hz; 0.0 beyond.
[[nodiscard]] constexpr double reflectionFrequency(std::uint32_t index) {
    return index < reflectionFreqs.size() ? reflectionFreqs[index] : 0.0;
}

// The number that index 0 to 215 names with its three digits of 1 to 6, in Hz: 111 to 666; 0.0 beyond.
// Convergence cases are answered too: a caller that wants the 180 asks isConvergence first.
[[nodiscard]] constexpr double shadowFrequency(std::uint32_t index) {
    if (index >= kShadowIndexCount) return 0.0;
    const std::uint32_t number = 100 * (index / 36 + 1) + 10 * ((index / 6) % 6 + 1) + (index % 6 + 1);
    return static_cast<double>(number);
}

// 2 if any digit of the number is 6, else 1 if any is 5, else 0; -1 for an index outside 0 to 215.
[[nodiscard]] int shadowGroup(std::int32_t index);

// True for the 36 indices whose number is an Avatar frequency: exactly one digit 1, exactly one of 2 to 4 and
// exactly one of 5 to 6. False beyond 215.
[[nodiscard]] bool isConvergence(std::uint32_t index);

}  // namespace veloria
