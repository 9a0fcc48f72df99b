// The functions of polar_inl.h over arrays, with the C library's answer put in where it is wanted.
//
// Compiled once for each instruction set: included between HWY_BEFORE_NAMESPACE and HWY_AFTER_NAMESPACE only.
#if defined(VELORIA_SPECTRAL_POLAR_LOOPS_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef VELORIA_SPECTRAL_POLAR_LOOPS_INL_H
#undef VELORIA_SPECTRAL_POLAR_LOOPS_INL_H
#else
#define VELORIA_SPECTRAL_POLAR_LOOPS_INL_H
#endif

#include <hwy/highway.h>

#include <bit>
#include <cmath>
#include <cstring>

#include "spectral/polar_inl.h"
#include "spectral/sacred_fft.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Notes the lanes of the vector that begins at value `first`.
template <class D, class M>
HWY_INLINE void noteDoubts(D d, M mask, std::size_t first, DoubtBits& doubts) {
    hn::StoreMaskBits(d, mask, doubts.data() + first / hn::Lanes(d));
}

// Calls `exact` with the number of each noted value, eight vectors' bits at a time.
template <class F>
HWY_INLINE void askFor(const DoubtBits& doubts, std::size_t count, F exact) {
    const std::size_t lanes = hn::Lanes(hn::ScalableTag<double>());
    for (std::size_t vector = 0; vector < count / lanes; vector += 8) {
        std::uint64_t bits;
        std::memcpy(&bits, doubts.data() + vector, sizeof bits);
        for (; bits != 0; bits &= bits - 1) {
            const auto bit = static_cast<std::size_t>(std::countr_zero(bits));
            exact((vector + bit / 8) * lanes + bit % 8);
        }
    }
}

// `count` is at most 2048, and a multiple of 64. The library goes two ways in its hypot, beside the diagonal
// and far from it: asked for the one kind and then for the other, the processor foresees which.
HWY_INLINE void magnitudesOf(const double* re, const double* im, std::size_t count, double* out,
                             bool hypotIsCorrectedRoot, DoubtBits& doubts, DoubtBits& moreDoubts) {
    const hn::ScalableTag<double> d;
    const auto ask = [&](std::size_t i) { out[i] = std::hypot(re[i], im[i]); };
    if (hypotIsCorrectedRoot) {
        for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
            const auto result = magnitudeCorrected(d, hn::LoadU(d, re + i), hn::LoadU(d, im + i));
            hn::StoreU(result.value, d, out + i);
            noteDoubts(d, result.doubtful, i, doubts);
        }
        return askFor(doubts, count, ask);
    }
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
        const auto result = magnitudeExact(d, hn::LoadU(d, re + i), hn::LoadU(d, im + i));
        hn::StoreU(result.rounded.value, d, out + i);
        noteDoubts(d, hn::And(result.rounded.doubtful, result.diagonal), i, doubts);
        noteDoubts(d, hn::AndNot(result.diagonal, result.rounded.doubtful), i, moreDoubts);
    }
    askFor(doubts, count, ask);
    askFor(moreDoubts, count, ask);
}

HWY_INLINE void anglesOf(const double* re, const double* im, std::size_t count, double* out,
                         DoubtBits& doubts) {
    const hn::ScalableTag<double> d;
    const TransformTables& tables = transformTables();
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
        const auto result = angleExact(d, tables, hn::LoadU(d, im + i), hn::LoadU(d, re + i));
        hn::StoreU(result.value, d, out + i);
        noteDoubts(d, result.doubtful, i, doubts);
    }
    askFor(doubts, count, [&](std::size_t i) { out[i] = std::atan2(im[i], re[i]); });
}

// `heard` tells for the vector that begins at a value in which lanes the last digit will matter.
template <class F>
HWY_INLINE void sinesOf(const double* angles, std::size_t count, double* sines, double* cosines,
                        DoubtBits& ofSines, DoubtBits& ofCosines, F heard) {
    const hn::ScalableTag<double> d;
    const TransformTables& tables = transformTables();
    for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
        const auto result = sineCosineExact(d, tables, hn::LoadU(d, angles + i));
        hn::StoreU(result.sine.value, d, sines + i);
        hn::StoreU(result.cosine.value, d, cosines + i);
        noteDoubts(d, hn::And(result.sine.doubtful, heard(i)), i, ofSines);
        noteDoubts(d, hn::And(result.cosine.doubtful, heard(i)), i, ofCosines);
    }
    askFor(ofSines, count, [&](std::size_t i) { sines[i] = std::sin(angles[i]); });
    askFor(ofCosines, count, [&](std::size_t i) { cosines[i] = std::cos(angles[i]); });
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#endif
