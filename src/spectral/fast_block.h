// The running form of ProcessBlock: the same results to the last bit wherever the C library is as good as it
// says (see polar_inl.h), some ten times as fast. Vectorised for the best instruction set that the machine
// has.
#pragma once

#include "spectral/sacred_fft.h"

namespace veloria {

// As ProcessBlock. Of the work arrays only `shifted` is the literal stages' afterwards; `spectrum` and the
// dry copy stay as they were. Audio thread; transformTables() must have been made before.
void processBlockFast(SacredFft& retuner, const RetunerSettings& settings);

// Its vectorised steps by themselves, for tests and benchmarks.

// Bins 0 to 2048 of the transform of `fast.input.real`, into `fast.output`.
void forwardBlock(SacredFft& retuner);

struct PolarResult {
    double* magnitudes;
    double* phases;  // radians
};

// Magnitude and phase of the `count` values real[i], imag[i]; `count` is a multiple of 64, at most 2048.
// `hypotIsCorrectedRoot` as the transform's tables have it; false, which asks the library where in doubt,
// holds with any.
void polarValues(const double* real, const double* imag, std::size_t count, bool hypotIsCorrectedRoot,
                 PolarResult out, DoubtBits& doubts, DoubtBits& moreDoubts);

struct SineResult {
    double* sines;
    double* cosines;
};

// Sines and cosines of `count` angles in radians, a multiple of 64 and at most 2048.
void sinesAndCosines(const double* angles, std::size_t count, SineResult out, DoubtBits& doubts,
                     DoubtBits& moreDoubts);

}  // namespace veloria
