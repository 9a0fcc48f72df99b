#include "walker/triad.h"

#include <algorithm>

namespace veloria {

namespace {

constexpr std::int32_t kStates = 81;

// n mod `modulus`, with the modulus itself in place of 0.
std::int32_t wrapToTop(std::int32_t n, std::int32_t modulus) {
    const std::int32_t rest = n % modulus;
    return rest == 0 ? modulus : rest;
}

}  // namespace

const TriadRow& triadRow(std::int32_t kind) {
    const bool known = kind >= 0 && kind < static_cast<std::int32_t>(kTriadRows.size());
    return kTriadRows[static_cast<std::size_t>(known ? kind : kTriadSilence)];
}

std::int32_t nextDrState(std::int32_t state, std::int32_t frequency) {
    const std::int32_t hundreds = frequency / 100 == 0 ? 9 : frequency / 100;
    const std::int32_t tens = (frequency / 10) % 10;
    const std::int32_t units = frequency % 10;
    return wrapToTop(hundreds * state + 9 * tens + units, kStates);
}

std::int32_t drValueOf(std::int32_t state) {
    return wrapToTop(state, 9);
}

TriadKind classifyTriad(std::array<std::int32_t, 3> roots) {
    using Roots = std::array<std::int32_t, 3>;
    if (roots[0] == roots[1] && roots[1] == roots[2]) return kTriadUnity;
    std::sort(roots.begin(), roots.end());
    // The sets come before the sum: 3 + 6 + 9 is a multiple of 9 as well.
    if (roots == Roots{1, 4, 7}) return kTriadBody;
    if (roots == Roots{2, 5, 8}) return kTriadHeart;
    if (roots == Roots{3, 6, 9}) return kTriadMind;
    return (roots[0] + roots[1] + roots[2]) % 9 == 0 ? kTriadBalance : kTriadSilence;
}

}  // namespace veloria
