#include "spectral/transform.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

namespace veloria {

namespace {

using Complex = std::complex<double>;

// Written out: the library's product tests for NaN, which costs more than the product.
inline Complex product(Complex a, Complex b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

void permuteByReversedBits(std::span<Complex> values) {
    std::size_t reversed = 0;
    for (std::size_t i = 1; i < values.size(); ++i) {
        std::size_t bit = values.size() >> 1;
        while ((reversed & bit) != 0) {
            reversed ^= bit;
            bit >>= 1;
        }
        reversed ^= bit;
        if (i < reversed) std::swap(values[i], values[reversed]);
    }
}

inline void butterfly(Complex& low, Complex& high, Complex twiddle) {
    const Complex turned = product(high, twiddle);
    high = low - turned;
    low += turned;
}

// By what a stage over blocks of `length` multiplies its twiddle at each step.
Complex stageStep(std::size_t length) {
    const double angle = -2.0 * std::numbers::pi / static_cast<double>(length);
    return {std::cos(angle), std::sin(angle)};
}

// One stage over blocks of `length`. Every block runs through the same twiddles, so a few blocks are taken
// together: the recurrence, whose steps wait for each other, then costs once for all of them, and the values
// are those of block after block. More than a few would step through the cache in large powers of two.
void runStage(std::span<Complex> values, std::size_t length) {
    constexpr std::size_t kMaxBlocks = 4;
    const Complex step = stageStep(length);
    const std::size_t half = length / 2;
    const std::size_t together = std::min(kMaxBlocks, values.size() / length) * length;
    for (std::size_t first = 0; first < values.size(); first += together) {
        Complex twiddle{1.0, 0.0};
        for (std::size_t j = first; j < first + half; ++j) {
            for (std::size_t i = j; i < first + together; i += length) {
                butterfly(values[i], values[i + half], twiddle);
            }
            twiddle = product(twiddle, step);
        }
    }
}

}  // namespace

std::vector<Complex> stageTwiddles(std::size_t length) {
    const Complex step = stageStep(length);
    std::vector<Complex> twiddles(length / 2);
    Complex twiddle{1.0, 0.0};
    for (Complex& entry : twiddles) {
        entry = twiddle;
        twiddle = product(twiddle, step);
    }
    return twiddles;
}

void forwardTransform(std::span<Complex> values) {
    permuteByReversedBits(values);
    for (std::size_t length = 2; length <= values.size(); length *= 2) {
        runStage(values, length);
    }
}

void inverseTransform(std::span<Complex> values) {
    for (Complex& value : values) {
        value = std::conj(value);
    }
    forwardTransform(values);
    const auto count = static_cast<double>(values.size());
    for (Complex& value : values) {
        value = {value.real() / count, -value.imag() / count};
    }
}

}  // namespace veloria
