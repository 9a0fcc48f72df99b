#include "spectral/twiddles.h"

#include <bit>
#include <cmath>
#include <complex>
#include <memory>
#include <random>
#include <vector>

#include "spectral/polar_constants.h"
#include "spectral/transform.h"

namespace veloria {

namespace {

using Complex = std::complex<double>;

template <std::size_t Quarter>
void fillPass(PassTwiddles<Quarter>& pass) {
    const std::vector<Complex> half = stageTwiddles(2 * Quarter);
    const std::vector<Complex> whole = stageTwiddles(4 * Quarter);
    for (std::size_t j = 0; j < Quarter; ++j) {
        pass.firstReal[j] = half[j].real();
        pass.firstImag[j] = half[j].imag();
        pass.lowReal[j] = whole[j].real();
        pass.lowImag[j] = whole[j].imag();
        pass.highReal[j] = whole[j + Quarter].real();
        pass.highImag[j] = whole[j + Quarter].imag();
    }
}

// The ten bits of a group's number, reversed.
std::int32_t reversed(std::size_t group) {
    std::int32_t value = 0;
    for (std::size_t bit = 1; bit < kBlockSize / 4; bit *= 2)
        value = value * 2 + ((group & bit) != 0 ? 1 : 0);
    return value;
}

// Row `i` of a full turn of 64 rows and a quarter beyond, from the quarter that is kept.
TwoPartConstant sineOf(std::size_t i) {
    const std::size_t inHalf = i % 32;
    const TwoPartConstant sine = kQuarterSines[inHalf <= 16 ? inHalf : 32 - inHalf];
    return i % 64 < 32 ? sine : TwoPartConstant{-sine.high, -sine.low};
}

void fillAngles(TransformTables& tables) {
    for (std::size_t i = 0; i < tables.arctanHigh.size(); ++i) {
        tables.arctanHigh[i] = kArctangents[i].high;
        tables.arctanLow[i] = kArctangents[i].low;
    }
    for (std::size_t i = 0; i < tables.sineHigh.size(); ++i)
        tables.sineHigh[i] = sineOf(i).high;
    for (std::size_t i = 0; i < tables.lowParts.size(); ++i) {
        const auto sine = std::bit_cast<std::uint64_t>(sineOf(i).low) >> 32;
        const auto cosine = std::bit_cast<std::uint64_t>(sineOf(i + 16).low) >> 32;
        tables.lowParts[i] = static_cast<std::int64_t>(sine << 32 | cosine);
    }
}

double correctedRoot(double large, double small) {
    const double root = std::sqrt(large * large + small * small);
    const bool diagonal = root <= 2.0 * small;
    const double apart = root - (diagonal ? small : large);
    const double missed =
        diagonal ? large * (2.0 * apart - large) + (apart - 2.0 * (large - small)) * apart
                 : 2.0 * apart * (large - 2.0 * small) + ((4.0 * apart - small) * small + apart * apart);
    return root - missed / (2.0 * root);
}

// By trial. A correctly rounded result differs in one of 180 values, fused products in one of eight.
bool isHypotCorrectedRoot() {
    std::mt19937_64 random(1);
    const auto share = [&] { return static_cast<double>(random() >> 11) * 0x1p-53; };
    for (int i = 0; i < 20000; ++i) {
        const double large = 1.0 + share();
        const double small = large * std::ldexp(share(), i % 8 == 0 ? -i % 27 : 0);
        if (std::hypot(large, small) != correctedRoot(large, small)) return false;
    }
    return true;
}

std::unique_ptr<const TransformTables> makeTables() {
    auto tables = std::make_unique<TransformTables>();
    for (std::size_t group = 0; group < tables->groupPlace.size(); ++group)
        tables->groupPlace[group] = 4 * reversed(group);
    fillPass(tables->pass1);
    fillPass(tables->pass2);
    fillPass(tables->pass3);
    fillPass(tables->pass4);
    fillPass(tables->pass5);
    fillPass(tables->pass6);
    fillAngles(*tables);
    tables->hypotIsCorrectedRoot = isHypotCorrectedRoot();
    return tables;
}

}  // namespace

const TransformTables& transformTables() {
    static const std::unique_ptr<const TransformTables> tables = makeTables();
    return *tables;
}

}  // namespace veloria
