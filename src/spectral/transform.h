// The discrete Fourier transform of the retuner.
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace veloria {

// Both work in place on a power of two of values, allocate nothing and may run on any thread. The twiddle of
// a stage is carried along by repeated multiplication and not looked up, so a result is off the exact
// transform by some 1e-13 of the largest value; that error is part of the retuner's sound and stays.
void forwardTransform(std::span<std::complex<double>> values);

// The inverse of the above, scaled by 1 / N: forward and inverse together give the values back.
void inverseTransform(std::span<std::complex<double>> values);

// The twiddles that the stage over blocks of `length` carries along, in its order: half as many as `length`.
[[nodiscard]] std::vector<std::complex<double>> stageTwiddles(std::size_t length);

}  // namespace veloria
