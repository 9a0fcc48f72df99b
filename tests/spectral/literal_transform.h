// The textbook transform, block after block, against which the retuner's is held bit by bit.
#pragma once

#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <utility>
#include <vector>

namespace veloria::literal {

using Complex = std::complex<double>;

inline Complex times(Complex a, Complex b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

inline void forward(std::vector<Complex>& x) {
    const std::size_t n = x.size();
    for (std::size_t i = 1, j = 0; i < n; ++i) {
        std::size_t bit = n >> 1;
        for (; j & bit; bit >>= 1)
            j ^= bit;
        j ^= bit;
        if (i < j) std::swap(x[i], x[j]);
    }
    for (std::size_t length = 2; length <= n; length <<= 1) {
        const double angle = -2.0 * std::numbers::pi / static_cast<double>(length);
        const Complex step(std::cos(angle), std::sin(angle));
        for (std::size_t block = 0; block < n; block += length) {
            Complex w(1.0, 0.0);
            for (std::size_t j = 0; j < length / 2; ++j) {
                const Complex u = x[block + j];
                const Complex v = times(x[block + j + length / 2], w);
                x[block + j] = u + v;
                x[block + j + length / 2] = u - v;
                w = times(w, step);
            }
        }
    }
}

inline void inverse(std::vector<Complex>& x) {
    for (Complex& value : x)
        value = std::conj(value);
    forward(x);
    const double n = static_cast<double>(x.size());
    for (Complex& value : x)
        value = Complex(value.real() / n, -value.imag() / n);
}

}  // namespace veloria::literal
