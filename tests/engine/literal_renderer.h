// A slow, literal computation of the renderer, written apart from it: one voice at a time, all in double but
// where single precision is part of the sound. Tests compare with a tolerance of 1e-5.
#pragma once

#include <cmath>
#include <vector>

#include "engine/synth_engine.h"

namespace veloria::literal {

struct Frame {
    double left;
    double right;
};

struct Partial {
    double hz;
    double weight;
    double offset;
    int slot;
};

inline std::vector<Partial> partialsOf(double f, int fib, int pi, int tesla, int octave, int phi,
                                       int fibPhase, int teslaPhase) {
    const double twoPi = 8.0 * std::atan(1.0);
    const double golden = (1.0 + std::sqrt(5.0)) / 2.0;
    const int fibs[] = {2, 3, 5, 8, 13, 21, 34, 55, 89, 144, 233, 377, 610, 987};
    const int digits[] = {4, 1, 5, 9, 2, 6, 5, 3, 5, 8, 9, 7, 9, 3};
    std::vector<Partial> all{{f, 1.0, 0.0, 0}};
    for (int i = 0; i < fib; ++i) {
        all.push_back({fibs[i] * f, 1.0 / fibs[i], twoPi * i / (golden * golden) * fibPhase / 100.0, 1 + i});
    }
    for (int i = 0; i < pi; ++i)
        all.push_back({digits[i] * f, 1.0 / digits[i], 0.0, 15 + i});
    for (int i = 0; i < tesla; ++i) {
        all.push_back(
            {3.0 * (i + 1) * f, 1.0 / (3.0 * (i + 1)), teslaPhase / 100.0 * twoPi * (i + 1) / 3.0, 29 + i});
    }
    for (int j = 1; j <= std::abs(octave); ++j) {
        all.push_back({f * std::pow(2.0, octave < 0 ? -j : j), 0.5 / j, 0.0, j <= 3 ? 31 + j : 39});
    }
    for (int j = 1; j <= std::abs(phi); ++j) {
        all.push_back({f * std::pow(golden, phi < 0 ? -j : j), 0.5 / j, 0.0, 34 + j});
    }
    return all;
}

inline double wave(double x, int waveform) {
    const double pi = 4.0 * std::atan(1.0);
    switch (waveform) {
        case 0:
            return std::sin(x);
        case 1:
            return x / pi - 1.0;
        case 2:
            return x < pi ? 1.0 : -1.0;
        case 3:
            return x / pi < 1.0 ? 2.0 * x / pi - 1.0 : 3.0 - 2.0 * x / pi;
        default:
            return 0.0;
    }
}

}  // namespace veloria::literal
