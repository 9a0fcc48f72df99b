// The transform of a block, vectorised: the additions and products of transform.h, each with the same
// operands, so that its results are those to the last bit. What is faster is the order: two stages are taken
// in one pass, several butterflies at once, twiddles looked up, and what is not needed of the last stage is
// left out.
//
// Compiled once for each instruction set: included between HWY_BEFORE_NAMESPACE and HWY_AFTER_NAMESPACE only.
#if defined(VELORIA_SPECTRAL_TRANSFORM_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef VELORIA_SPECTRAL_TRANSFORM_INL_H
#undef VELORIA_SPECTRAL_TRANSFORM_INL_H
#else
#define VELORIA_SPECTRAL_TRANSFORM_INL_H
#endif

#include <hwy/highway.h>

#include <cstring>

#include "spectral/twiddles.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// Complex values, their real and imaginary parts apart.
template <class V>
struct Pair {
    V re;
    V im;
};

template <class V>
HWY_INLINE Pair<V> plus(Pair<V> a, Pair<V> b) {
    return {hn::Add(a.re, b.re), hn::Add(a.im, b.im)};
}

template <class V>
HWY_INLINE Pair<V> minus(Pair<V> a, Pair<V> b) {
    return {hn::Sub(a.re, b.re), hn::Sub(a.im, b.im)};
}

// The real part of a product and the whole: never fused, which would round otherwise.
template <class V>
HWY_INLINE V timesReal(Pair<V> a, Pair<V> w) {
    return hn::Sub(hn::Mul(a.re, w.re), hn::Mul(a.im, w.im));
}

template <class V>
HWY_INLINE Pair<V> times(Pair<V> a, Pair<V> w) {
    return {timesReal(a, w), hn::Add(hn::Mul(a.re, w.im), hn::Mul(a.im, w.re))};
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE Pair<V> loadPair(D d, const double* re, const double* im, std::size_t at) {
    return {hn::LoadU(d, re + at), hn::LoadU(d, im + at)};
}

template <class D, class V = hn::Vec<D>>
HWY_INLINE void storePair(D d, Pair<V> value, double* re, double* im, std::size_t at) {
    hn::StoreU(value.re, d, re + at);
    hn::StoreU(value.im, d, im + at);
}

// The four values of a pass after its first stage.
template <class V>
struct Four {
    Pair<V> a, b, c, d;
};

template <class V>
HWY_INLINE Four<V> firstStage(Pair<V> a, Pair<V> b, Pair<V> c, Pair<V> d, Pair<V> twiddle) {
    const Pair<V> turnedB = times(b, twiddle);
    const Pair<V> turnedD = times(d, twiddle);
    return {plus(a, turnedB), minus(a, turnedB), plus(c, turnedD), minus(c, turnedD)};
}

// Stores the values y of the groups from `group` on, each group's four side by side at the place that the
// order of reversed bits gives it.
template <class D, class V = hn::Vec<D>>
HWY_INLINE void storeGroups(D d, const TransformTables& tables, std::size_t group, V y0, V y1, V y2, V y3,
                            double* out) {
    HWY_ALIGN double together[4 * hn::MaxLanes(d)];
    hn::StoreInterleaved4(y0, y1, y2, y3, d, together);
    for (std::size_t lane = 0; lane < hn::Lanes(d); ++lane)
        std::memcpy(out + tables.groupPlace[group + lane], together + 4 * lane, 4 * sizeof(double));
}

// Pass 1, over groups of four values that lie a quarter of the block apart in `inRe` and `inIm` (not read,
// all imaginary parts are 0, when `kReal`).
template <bool kReal>
HWY_INLINE void firstPass(const TransformTables& tables, const double* inRe, const double* inIm,
                          TransformBuffer& out) {
    const hn::ScalableTag<double> d;
    using V = hn::Vec<decltype(d)>;
    constexpr std::size_t kQuarterBlock = kBlockSize / 4;
    const auto& w = tables.pass1;
    const auto constant = [&](double re, double im) { return Pair<V>{hn::Set(d, re), hn::Set(d, im)}; };
    const Pair<V> first = constant(w.firstReal[0], w.firstImag[0]);
    const Pair<V> low = constant(w.lowReal[0], w.lowImag[0]);
    const Pair<V> high = constant(w.highReal[0], w.highImag[0]);
    for (std::size_t group = 0; group < kQuarterBlock; group += hn::Lanes(d)) {
        const auto take = [&](std::size_t quarter) {
            const std::size_t at = quarter * kQuarterBlock + group;
            if constexpr (kReal) return Pair<V>{hn::LoadU(d, inRe + at), hn::Zero(d)};
            return Pair<V>{hn::LoadU(d, inRe + at), hn::LoadU(d, inIm + at)};
        };
        const Four<V> x = firstStage(take(0), take(2), take(1), take(3), first);
        const Pair<V> turnedC = times(x.c, low);
        const Pair<V> turnedD = times(x.d, high);
        const Pair<V> y0 = plus(x.a, turnedC);
        const Pair<V> y1 = plus(x.b, turnedD);
        const Pair<V> y2 = minus(x.a, turnedC);
        const Pair<V> y3 = minus(x.b, turnedD);
        storeGroups(d, tables, group, y0.re, y1.re, y2.re, y3.re, out.real());
        storeGroups(d, tables, group, y0.im, y1.im, y2.im, y3.im, out.imag());
    }
}

template <std::size_t Quarter, class D>
HWY_INLINE Four<hn::Vec<D>> loadPass(D d, const PassTwiddles<Quarter>& w, const TransformBuffer& buffer,
                                     std::size_t at, std::size_t j) {
    const double* re = buffer.real();
    const double* im = buffer.imag();
    const auto twiddle = loadPair(d, w.firstReal.data(), w.firstImag.data(), j);
    return firstStage(loadPair(d, re, im, at), loadPair(d, re, im, at + Quarter),
                      loadPair(d, re, im, at + 2 * Quarter), loadPair(d, re, im, at + 3 * Quarter), twiddle);
}

// Two stages over the blocks of four times `Quarter` values from `first` up to `last`, in place.
template <std::size_t Quarter>
HWY_INLINE void middlePass(const PassTwiddles<Quarter>& w, TransformBuffer& buffer, std::size_t first,
                           std::size_t last) {
    const hn::CappedTag<double, Quarter> d;
    double* re = buffer.real();
    double* im = buffer.imag();
    for (std::size_t block = first; block < last; block += 4 * Quarter) {
        for (std::size_t j = 0; j < Quarter; j += hn::Lanes(d)) {
            const std::size_t at = block + j;
            const auto x = loadPass(d, w, buffer, at, j);
            const auto turnedC = times(x.c, loadPair(d, w.lowReal.data(), w.lowImag.data(), j));
            const auto turnedD = times(x.d, loadPair(d, w.highReal.data(), w.highImag.data(), j));
            storePair(d, plus(x.a, turnedC), re, im, at);
            storePair(d, plus(x.b, turnedD), re, im, at + Quarter);
            storePair(d, minus(x.a, turnedC), re, im, at + 2 * Quarter);
            storePair(d, minus(x.b, turnedD), re, im, at + 3 * Quarter);
        }
    }
}

// Quarter by quarter, which stays in the nearest cache from pass to pass.
HWY_INLINE void middlePasses(const TransformTables& tables, TransformBuffer& buffer) {
    constexpr std::size_t kPart = kBlockSize / 4;
    for (std::size_t first = 0; first < kBlockSize; first += kPart) {
        middlePass(tables.pass2, buffer, first, first + kPart);
        middlePass(tables.pass3, buffer, first, first + kPart);
        middlePass(tables.pass4, buffer, first, first + kPart);
        middlePass(tables.pass5, buffer, first, first + kPart);
    }
}

// The forward transform of the real values `in`; only bins 0 to 2048 of `buffer` are valid after it.
HWY_INLINE void forwardHalf(const TransformTables& tables, const double* in, TransformBuffer& buffer) {
    const hn::ScalableTag<double> d;
    constexpr std::size_t kQuarter = kBlockSize / 4;
    firstPass<true>(tables, in, nullptr, buffer);
    middlePasses(tables, buffer);
    const auto& w = tables.pass6;
    double* re = buffer.real();
    double* im = buffer.imag();
    for (std::size_t j = 0; j < kQuarter; j += hn::Lanes(d)) {
        const auto x = loadPass(d, w, buffer, j, j);
        const auto turnedC = times(x.c, loadPair(d, w.lowReal.data(), w.lowImag.data(), j));
        const auto turnedD = times(x.d, loadPair(d, w.highReal.data(), w.highImag.data(), j));
        storePair(d, plus(x.a, turnedC), re, im, j);
        storePair(d, plus(x.b, turnedD), re, im, j + kQuarter);
        // Bin 2048 is the first of the other half, whose rest nobody reads.
        if (j == 0) storePair(d, minus(x.a, turnedC), re, im, 2 * kQuarter);
    }
}

// The inverse transform, real parts only and before the division by 4096: of the values whose conjugates are
// in `inRe` and `inIm`. Only the real parts of `buffer` are valid after it.
HWY_INLINE void inverseReal(const TransformTables& tables, const double* inRe, const double* inIm,
                            TransformBuffer& buffer) {
    const hn::ScalableTag<double> d;
    constexpr std::size_t kQuarter = kBlockSize / 4;
    firstPass<false>(tables, inRe, inIm, buffer);
    middlePasses(tables, buffer);
    const auto& w = tables.pass6;
    double* re = buffer.real();
    for (std::size_t j = 0; j < kQuarter; j += hn::Lanes(d)) {
        const auto x = loadPass(d, w, buffer, j, j);
        const auto turnedC = timesReal(x.c, loadPair(d, w.lowReal.data(), w.lowImag.data(), j));
        const auto turnedD = timesReal(x.d, loadPair(d, w.highReal.data(), w.highImag.data(), j));
        hn::StoreU(hn::Add(x.a.re, turnedC), d, re + j);
        hn::StoreU(hn::Add(x.b.re, turnedD), d, re + j + kQuarter);
        hn::StoreU(hn::Sub(x.a.re, turnedC), d, re + j + 2 * kQuarter);
        hn::StoreU(hn::Sub(x.b.re, turnedD), d, re + j + 3 * kQuarter);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#endif
