#include "spectral/transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>

#include "tests/spectral/literal_transform.h"

namespace veloria {
namespace {

using literal::Complex;

std::vector<Complex> randomValues(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> range(-1.0, 1.0);
    std::vector<Complex> values(count);
    for (Complex& value : values) {
        const double real = range(random);
        value = Complex(real, range(random));
    }
    return values;
}

// The definition, with the angle reduced first so that it is good to the last digits.
std::vector<Complex> directTransform(const std::vector<Complex>& x, int direction) {
    const std::size_t n = x.size();
    std::vector<Complex> turn(n);
    for (std::size_t i = 0; i < n; ++i) {
        turn[i] = std::polar(
            1.0, direction * 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(n));
    }
    std::vector<Complex> y(n);
    for (std::size_t k = 0; k < n; ++k) {
        for (std::size_t i = 0; i < n; ++i)
            y[k] += literal::times(x[i], turn[(i * k) % n]);
    }
    return y;
}

double largestDistance(const std::vector<Complex>& a, const std::vector<Complex>& b) {
    double largest = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        largest = std::max(largest, std::abs(a[i] - b[i]));
    return largest;
}

bool sameBits(const std::vector<Complex>& a, const std::vector<Complex>& b) {
    return std::memcmp(a.data(), b.data(), a.size() * sizeof(Complex)) == 0;
}

TEST(Transform, agreesWithTheDefinitionOnEverySmallSize) {
    for (std::size_t n = 1; n <= 512; n *= 2) {
        const std::vector<Complex> x = randomValues(n, 7);
        std::vector<Complex> y = x;
        forwardTransform(y);
        EXPECT_LT(largestDistance(y, directTransform(x, -1)), 1e-11) << n;
        inverseTransform(y);
        EXPECT_LT(largestDistance(y, x), 1e-13) << n;
    }
}

TEST(Transform, staysCloseToTheDefinitionAtTheBlockSize) {
    const std::vector<Complex> x = randomValues(4096, 8);
    std::vector<Complex> y = x;
    forwardTransform(y);
    // The carried twiddle drifts: 1e-13 per step would show as 1e-9 here. Measured 1.1e-10 on values of 150.
    EXPECT_LT(largestDistance(y, directTransform(x, -1)), 1e-9);
}

TEST(Transform, isTheTextbookLoopBitForBit) {
    for (const std::size_t n : {2u, 4u, 8u, 64u, 1024u, 4096u}) {
        std::vector<Complex> expected = randomValues(n, static_cast<unsigned>(n));
        std::vector<Complex> actual = expected;
        literal::forward(expected);
        forwardTransform(actual);
        EXPECT_TRUE(sameBits(actual, expected)) << n;
        literal::inverse(expected);
        inverseTransform(actual);
        EXPECT_TRUE(sameBits(actual, expected)) << n;
    }
}

TEST(Transform, realSignalsKeepTheSignsOfZeroOfTheTextbookLoop) {
    // The phase of a bin whose imaginary part is 0 hangs on the sign of that 0.
    std::vector<Complex> expected(4096);
    for (std::size_t i = 0; i < 4096; i += 3)
        expected[i] = Complex(i % 2 == 0 ? 0.25 : -0.25, 0.0);
    std::vector<Complex> actual = expected;
    literal::forward(expected);
    forwardTransform(actual);
    EXPECT_TRUE(sameBits(actual, expected));
}

TEST(Transform, anImpulseIsFlatAndAConstantIsDcAlone) {
    std::vector<Complex> impulse(4096);
    impulse[0] = 1.0;
    forwardTransform(impulse);
    for (const Complex value : impulse)
        EXPECT_EQ(value, Complex(1.0, 0.0));

    std::vector<Complex> constant(4096, Complex(1.0, 0.0));
    forwardTransform(constant);
    EXPECT_EQ(constant[0].real(), 4096.0);
    for (std::size_t k = 1; k < 4096; ++k)
        EXPECT_LT(std::abs(constant[k]), 1e-9);
}

TEST(Transform, theForwardDirectionTurnsClockwise) {
    // exp(+i 2 pi 3 n / 16) is bin 3 of the forward transform, not bin 13.
    std::vector<Complex> x(16);
    for (std::size_t n = 0; n < 16; ++n) {
        x[n] = std::polar(1.0, 2.0 * std::numbers::pi * 3.0 * static_cast<double>(n) / 16.0);
    }
    forwardTransform(x);
    EXPECT_NEAR(x[3].real(), 16.0, 1e-12);
    EXPECT_NEAR(std::abs(x[13]), 0.0, 1e-12);
}

}  // namespace
}  // namespace veloria
