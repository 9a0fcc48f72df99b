// The walk worked out step by step from digits and whole numbers, to hold the walker against.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "tests/frequency/literal_scale.h"

namespace veloria::test {

struct LiteralStep {
    std::vector<int> hz;
    std::vector<float> pans;
    int height = 0;  // hundredths
    int state[3] = {1, 1, 1};
    int root[3] = {1, 1, 1};
    int kind = 0;
    int triplet = 0;
    int beat = 0;
    int first = 0;
    int second = 1;
    float volume = 0.0f;
    double seconds = 0.0;
    bool key = false;
};

// The triplets where the Heart Key sounds in each mode.
inline std::set<int> heartTriplets(int mode) {
    switch (mode) {
        case 1:
            return {4};
        case 2:
        case 3:
            return {4, 20, 109};
        case 4:
            return {4, 6, 9, 14, 22, 35, 56, 77};
        default:
            return {};
    }
}

inline int rootOf(int number) {
    while (number > 9) {
        int sum = 0;
        for (const char digit : std::to_string(number))
            sum += digit - '0';
        number = sum;
    }
    return number;
}

inline int kindOf(const int root[3]) {
    const std::multiset<int> roots(root, root + 3);
    if (std::set<int>(root, root + 3).size() == 1) return 4;
    if (roots == std::multiset<int>{1, 4, 7}) return 1;
    if (roots == std::multiset<int>{2, 5, 8}) return 2;
    if (roots == std::multiset<int>{3, 6, 9}) return 3;
    const int sum = root[0] + root[1] + root[2];
    return sum == 9 || sum == 18 || sum == 27 ? 5 : 0;
}

// The place of the closest pair among the three, in the order of tests: the earliest of the smallest.
inline void pairUp(LiteralStep& step) {
    if (step.hz.size() < 2) return;
    struct Pair {
        int first, second, beat;
    };
    std::vector<Pair> pairs = {{0, 1, 0}};
    if (step.hz.size() == 3) pairs = {{0, 1, 0}, {0, 2, 0}, {1, 2, 0}};
    for (Pair& p : pairs)
        p.beat = std::abs(step.hz[static_cast<std::size_t>(p.first)] -
                          step.hz[static_cast<std::size_t>(p.second)]);
    const Pair best = *std::min_element(pairs.begin(), pairs.end(),
                                        [](const Pair& a, const Pair& b) { return a.beat < b.beat; });
    step.beat = best.beat;
    step.first = best.first;
    step.second = best.second;
    if (best.beat > 40 || step.key) return;
    const auto a = static_cast<std::size_t>(best.first);
    const auto b = static_cast<std::size_t>(best.second);
    for (std::size_t i = 0; i < step.hz.size(); ++i)
        step.pans[i] = 0.5f;
    const bool swapped = step.hz[a] > step.hz[b];
    step.pans[swapped ? b : a] = 0.0f;
    step.pans[swapped ? a : b] = 1.0f;
}

// All steps of `sweeps` sweeps.
inline std::vector<LiteralStep> literalWalk(int mode, int stepMs, int sweeps) {
    const auto rows = literalScale();
    std::vector<LiteralRow> order(rows.begin(), rows.end());        // down
    order.insert(order.end(), rows.rbegin() + 1, rows.rend() - 1);  // and back without the ends
    const float volumes[] = {0.7f, 0.8f, 0.85f, 0.85f, 0.95f, 0.7f};
    std::vector<LiteralStep> all;
    LiteralStep step;
    for (int n = 0; n < 228 * sweeps; ++n) {
        const int triplet = n % 228;
        const bool down = triplet < 114;
        step.hz.clear();
        step.pans.clear();
        for (std::size_t i = 0; i < 3 && 3u * static_cast<std::size_t>(triplet) + i < order.size(); ++i) {
            const LiteralRow& row = order[3u * static_cast<std::size_t>(triplet) + i];
            if (i == 0) step.height = row.height;
            step.hz.push_back(row.hz);
            step.pans.push_back(row.pan());
        }
        const bool heart = down && heartTriplets(mode).count(triplet) == 1;
        const bool body = down && mode == 3 && triplet == 37;
        step.key = heart || body;
        if (heart) step.hz = {322, 325, 358};
        if (body) step.hz = {111, 114, 127};
        if (step.key) step.pans = {0.0f, 0.5f, 1.0f};
        for (std::size_t i = 0; i < step.hz.size(); ++i) {
            const std::string digits = std::to_string(step.hz[i]);
            const int v = (digits[0] - '0') * step.state[i] + 9 * (digits[1] - '0') + (digits[2] - '0');
            step.state[i] = (v - 1) % 81 + 1;
            step.root[i] = rootOf(step.state[i]);
        }
        step.kind = step.hz.size() == 3 ? kindOf(step.root) : 0;
        step.triplet = triplet;
        step.beat = 0;
        step.first = 0;
        step.second = 1;
        pairUp(step);
        step.volume = volumes[step.kind];
        step.seconds = stepMs / 1000.0 + 0.05;
        if (triplet == 108) step.seconds *= 2;
        if (triplet == 113) step.seconds *= 4;
        all.push_back(step);
    }
    return all;
}

}  // namespace veloria::test
