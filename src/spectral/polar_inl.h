// Magnitude, angle, sine and cosine of many values at once, with the C library's own results.
//
// Each function works to some 60 bits and rounds. Where its result is so near to the middle between two
// doubles that the library, which is good to 0.52 units of the last place (0.57 for the magnitude), may have
// rounded the other way, it says so, and the caller asks the library. Every comparison and every sum of
// phases that follows then comes out as in the literal stages: a phase that is off by one unit once stays off
// for as long as the stream runs.
//
// Compiled once for each instruction set: included between HWY_BEFORE_NAMESPACE and HWY_AFTER_NAMESPACE only.
#if defined(VELORIA_SPECTRAL_POLAR_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef VELORIA_SPECTRAL_POLAR_INL_H
#undef VELORIA_SPECTRAL_POLAR_INL_H
#else
#define VELORIA_SPECTRAL_POLAR_INL_H
#endif

#include <hwy/highway.h>

#include "spectral/polar_constants.h"
#include "spectral/twiddles.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

// A value as the sum of two doubles.
template <class V>
struct TwoPart {
    V high;
    V low;
};

// A rounded result, and in which lanes the library has to be asked.
template <class D>
struct Rounded {
    hn::Vec<D> value;
    hn::Mask<D> doubtful;
};

// The exact sum of two values, the larger first.
template <class V>
HWY_INLINE TwoPart<V> orderedSum(V large, V small) {
    const V sum = hn::Add(large, small);
    return {sum, hn::Sub(small, hn::Sub(sum, large))};
}

// The exact difference of two values.
template <class V>
HWY_INLINE TwoPart<V> exactDifference(V a, V b) {
    const V difference = hn::Sub(a, b);
    const V back = hn::Sub(difference, a);
    return {difference, hn::Sub(hn::Sub(a, hn::Sub(difference, back)), hn::Add(b, back))};
}

// The exact product. Without a fused multiply-add both factors are split into halves whose products are
// exact.
template <class D, class V = hn::Vec<D>>
HWY_INLINE TwoPart<V> exactProduct([[maybe_unused]] D d, V a, V b) {
    const V product = hn::Mul(a, b);
#if HWY_NATIVE_FMA
    return {product, hn::MulSub(a, b, product)};
#else
    const V splitter = hn::Set(d, 134217729.0);  // 2^27 + 1
    const V bigA = hn::Mul(a, splitter);
    const V bigB = hn::Mul(b, splitter);
    const V highA = hn::Sub(bigA, hn::Sub(bigA, a));
    const V highB = hn::Sub(bigB, hn::Sub(bigB, b));
    const V lowA = hn::Sub(a, highA);
    const V lowB = hn::Sub(b, highB);
    const V crossed =
        hn::Add(hn::Sub(hn::Mul(highA, highB), product), hn::Add(hn::Mul(highA, lowB), hn::Mul(lowA, highB)));
    return {product, hn::Add(crossed, hn::Mul(lowA, lowB))};
#endif
}

// Rounds high + low. A lane is in doubt when `low`, stretched by `stretch`, would lead to another double;
// also when it is not a number.
template <class D, class V = hn::Vec<D>>
HWY_INLINE Rounded<D> roundSum(D, V high, V low, V stretch) {
    const TwoPart<V> sum = orderedSum(high, low);
    const V stretched = hn::Add(sum.high, hn::Mul(sum.low, stretch));
    return {sum.high, hn::Not(hn::Eq(stretched, sum.high))};
}

// 1 / value to some 11 bits, for values from 1e-30 to 1e30.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V roughInverse(D d, V value) {
    const hn::Rebind<float, D> df;
    return hn::PromoteTo(d, hn::ApproximateReciprocal(hn::DemoteTo(df, value)));
}

// Lanes whose larger value is not within what the functions below are made for.
template <class D, class V = hn::Vec<D>>
HWY_INLINE hn::Mask<D> outside(D d, V large) {
    return hn::Or(hn::Gt(large, hn::Set(d, 1e30)), hn::Lt(large, hn::Set(d, 1e-30)));
}

// A magnitude, and whether the smaller part is above 0.577 of the larger.
template <class D>
struct Magnitude {
    Rounded<D> rounded;
    hn::Mask<D> diagonal;
};

// hypot(x, y).
template <class D, class V = hn::Vec<D>>
HWY_INLINE Magnitude<D> magnitudeExact(D d, V x, V y) {
    constexpr double kStretch = 0.5 / (0.5 - 0.05);
    constexpr double kMoreStretch = 0.5 / (0.5 - 0.09);
    const V ax = hn::Abs(x);
    const V ay = hn::Abs(y);
    const V large = hn::Max(ax, ay);
    const auto a = exactProduct(d, large, large);
    const V small = hn::Min(ax, ay);
    const auto b = exactProduct(d, small, small);
    const auto square = orderedSum(a.high, b.high);
    const V rest = hn::Add(square.low, hn::Add(a.low, b.low));
    const V root = hn::Sqrt(square.high);
    const auto back = exactProduct(d, root, root);
    const V missing = hn::Add(hn::Sub(hn::Sub(square.high, back.high), back.low), rest);
    const V correction = hn::Mul(hn::Mul(missing, hn::Set(d, 0.5)), roughInverse(d, root));
    // The library is less sure of itself near the diagonal and around a slope of 0.6.
    const auto times = [&](double slope) { return hn::Mul(large, hn::Set(d, slope)); };
    const auto unsure =
        hn::Or(hn::And(hn::Gt(small, times(0.52)), hn::Lt(small, times(0.72))), hn::Gt(small, times(0.86)));
    const V stretch = hn::IfThenElse(unsure, hn::Set(d, kMoreStretch), hn::Set(d, kStretch));
    Rounded<D> result = roundSum(d, root, correction, stretch);
    // Silence is exact, and its correction is 0 / 0.
    const auto silent = hn::Eq(large, hn::Zero(d));
    result.value = hn::IfThenZeroElse(silent, result.value);
    result.doubtful = hn::AndNot(silent, hn::Or(result.doubtful, outside(d, large)));
    return {result, hn::Gt(small, times(0.5773502691896258))};
}

// hypot(x, y) for a library whose square root of the squares is put right by what it misses, as
// hypotIsCorrectedRoot finds out: every step with its operands, so that there is nothing to be in doubt about
// but sizes that the library scales first.
template <class D, class V = hn::Vec<D>>
HWY_INLINE Rounded<D> magnitudeCorrected(D d, V x, V y) {
    const V two = hn::Set(d, 2.0);
    const V large = hn::Max(hn::Abs(x), hn::Abs(y));
    const V small = hn::Min(hn::Abs(x), hn::Abs(y));
    const V root = hn::Sqrt(hn::Add(hn::Mul(x, x), hn::Mul(y, y)));
    const auto diagonal = hn::Le(root, hn::Mul(two, small));
    // root^2 - large^2 - small^2, in the two products that lose least.
    const V apart = hn::Sub(root, hn::IfThenElse(diagonal, small, large));
    const V twice = hn::Mul(two, apart);
    const V gap = hn::Sub(large, hn::IfThenElse(diagonal, small, hn::Mul(two, small)));
    const V first =
        hn::Mul(hn::IfThenElse(diagonal, large, twice), hn::IfThenElse(diagonal, hn::Sub(twice, large), gap));
    const V near = hn::Mul(hn::Sub(apart, hn::Mul(two, gap)), apart);
    const V far = hn::Add(hn::Mul(hn::Sub(hn::Mul(two, twice), small), small), hn::Mul(apart, apart));
    const V missed = hn::Add(first, hn::IfThenElse(diagonal, near, far));
    const V value = hn::Sub(root, hn::Div(missed, hn::Mul(two, root)));
    const auto silent = hn::Eq(large, hn::Zero(d));  // exact, where the correction is 0 / 0
    const auto usual = hn::And(hn::Ge(root, hn::Set(d, 1e-30)), hn::Le(root, hn::Set(d, 1e30)));
    return {hn::IfThenZeroElse(silent, value), hn::Not(hn::Or(silent, usual))};
}

// The number of the nearest row of a table, for values from 0 to 2^20 at most: the magic number pushes the
// fraction out of the mantissa.
template <class V>
struct TableRow {
    V whole;     // as a double
    V numbered;  // the same in the low bits
};
template <class D, class V = hn::Vec<D>>
HWY_INLINE TableRow<V> nearestRow(D d, V value) {
    const V magic = hn::Set(d, 6755399441055744.0);  // 1.5 * 2^52
    const V numbered = hn::Add(value, magic);
    return {hn::Sub(numbered, magic), numbered};
}

#if HWY_TARGET == HWY_AVX3 || HWY_TARGET == HWY_AVX3_DL
#define VELORIA_LOOKUP_IN_VECTORS 1

// Of 16 values in two vectors those of the low four bits of `index`.
HWY_INLINE hn::Vec512<double> choose16(const double* table, hn::Vec512<std::int64_t> index) {
    const hn::Full512<double> d;
    return hn::Vec512<double>{
        _mm512_permutex2var_pd(hn::Load(d, table).raw, index.raw, hn::Load(d, table + 8).raw)};
}

HWY_INLINE hn::Vec512<std::int64_t> choose16(const std::int64_t* table, hn::Vec512<std::int64_t> index) {
    const hn::Full512<std::int64_t> d;
    return hn::Vec512<std::int64_t>{
        _mm512_permutex2var_epi64(hn::Load(d, table).raw, index.raw, hn::Load(d, table + 8).raw)};
}
#else
#define VELORIA_LOOKUP_IN_VECTORS 0
#endif

// The values of an aligned table of 64 at `index`, 0 to 63. Where a vector holds eight, choosing among 16
// values at a time comes sooner than eight loads.
template <class D, class T, class VI>
HWY_INLINE hn::Vec<D> lookUp(D d, const T* table, VI index) {
#if VELORIA_LOOKUP_IN_VECTORS
    if constexpr (hn::MaxLanes(D()) == 8) {
        const hn::RebindToSigned<D> di;
        const auto odd = hn::RebindMask(d, hn::TestBit(index, hn::Set(di, 16)));
        const auto upper = hn::RebindMask(d, hn::TestBit(index, hn::Set(di, 32)));
        const auto first = hn::IfThenElse(odd, choose16(table + 16, index), choose16(table, index));
        const auto second = hn::IfThenElse(odd, choose16(table + 48, index), choose16(table + 32, index));
        return hn::IfThenElse(upper, second, first);
    }
#endif
    return hn::GatherIndex(d, table, index);
}
#undef VELORIA_LOOKUP_IN_VECTORS

// atan(small / large) for 0 <= small <= large, as two parts: the nearest 64th is looked up and a short series
// does the rest.
template <class D, class V = hn::Vec<D>>
HWY_INLINE TwoPart<V> arctangent(D d, const TransformTables& tables, V small, V large) {
    const hn::RebindToSigned<D> di;
    const V slope = hn::Mul(hn::Mul(small, roughInverse(d, large)), hn::Set(d, 64.0));
    const auto row = nearestRow(d, hn::Min(slope, hn::Set(d, 63.0)));
    const V step = hn::Mul(row.whole, hn::Set(d, 1.0 / 64.0));
    const auto index = hn::And(hn::BitCast(di, row.numbered), hn::Set(di, 63));
    const V baseHigh = lookUp(d, tables.arctanHigh.data(), index);
    const V baseLow = lookUp(d, tables.arctanLow.data(), index);
    // tan(angle - base) = (small - step large) / (large + step small)
    const auto over = exactProduct(d, step, large);
    const auto top = exactDifference(small, over.high);
    const V topLow = hn::Sub(top.low, over.low);
    const auto under = exactProduct(d, step, small);
    const auto bottom = orderedSum(large, under.high);
    const V bottomLow = hn::Add(bottom.low, under.low);
    const V inverse = hn::Div(hn::Set(d, 1.0), bottom.high);
    const V t = hn::Mul(top.high, inverse);
    const auto back = exactProduct(d, t, bottom.high);
    const V left = hn::Sub(hn::Sub(top.high, back.high), back.low);
    const V tLow = hn::Mul(hn::Sub(hn::Add(left, topLow), hn::Mul(t, bottomLow)), inverse);
    const V z = hn::Mul(t, t);
    V series = hn::MulAdd(z, hn::Set(d, 1.0 / 9.0), hn::Set(d, -1.0 / 7.0));
    series = hn::MulAdd(z, series, hn::Set(d, 1.0 / 5.0));
    series = hn::MulAdd(z, series, hn::Set(d, -1.0 / 3.0));
    series = hn::Mul(hn::Mul(z, series), t);
    const auto sum = orderedSum(baseHigh, t);
    return {sum.high, hn::Add(sum.low, hn::Add(baseLow, hn::Add(tLow, series)))};
}

// atan2(y, x).
template <class D, class V = hn::Vec<D>>
HWY_INLINE Rounded<D> angleExact(D d, const TransformTables& tables, V y, V x) {
    constexpr double kStretch = 0.5 / (0.5 - 0.028);
    const V zero = hn::Zero(d);
    const V ax = hn::Abs(x);
    const V ay = hn::Abs(y);
    const V small = hn::Min(ax, ay);
    const V large = hn::Max(ax, ay);
    const V one = hn::Set(d, 1.0);
    const auto atOrigin = hn::Eq(large, zero);
    const auto within = arctangent(d, tables, small, hn::IfThenElse(atOrigin, one, large));
    const auto steep = hn::Gt(ay, ax);
    const auto left = hn::Lt(hn::CopySign(one, x), zero);  // also at a negative zero
    const V flat = hn::IfThenElseZero(left, hn::Set(d, kPiParts.high));
    const V flatLow = hn::IfThenElseZero(left, hn::Set(d, kPiParts.low));
    const V from = hn::IfThenElse(steep, hn::Set(d, kHalfPiParts.high), flat);
    const V fromLow = hn::IfThenElse(steep, hn::Set(d, kHalfPiParts.low), flatLow);
    // Steep and left, or neither: the angle within the octant is added, else taken away.
    const V minus = hn::SignBit(d);
    const V sign = hn::Xor(hn::And(x, minus), hn::IfThenElseZero(steep, minus));
    const auto sum = orderedSum(from, hn::Xor(within.high, sign));
    const V low = hn::Add(sum.low, hn::Add(fromLow, hn::Xor(within.low, sign)));
    Rounded<D> result = roundSum(d, sum.high, low, hn::Set(d, kStretch));
    result.value = hn::CopySign(result.value, y);
    const auto vanishing = hn::And(hn::Gt(small, zero), hn::Lt(small, hn::Set(d, 1e-140)));
    const auto strange = hn::AndNot(atOrigin, hn::Or(vanishing, outside(d, large)));
    result.doubtful = hn::Or(result.doubtful, strange);
    return result;
}

template <class D>
struct SineCosine {
    Rounded<D> sine, cosine;
};

// sin and cos of an angle in radians.
template <class D, class V = hn::Vec<D>>
HWY_INLINE SineCosine<D> sineCosineExact(D d, const TransformTables& tables, V angle) {
    constexpr double kStretch = 0.5 / (0.5 - 0.023);
    constexpr double kFarthest = 100000.0;  // the step count stays below 2^20
    const hn::RebindToSigned<D> di;
    const auto step = nearestRow(d, hn::Mul(angle, hn::Set(d, kStepsPerRadian)));
    const auto row = hn::And(hn::BitCast(di, step.numbered), hn::Set(di, 63));
    const V s = lookUp(d, tables.sineHigh.data(), row);
    const V c = lookUp(d, tables.sineHigh.data() + 16, row);  // a quarter turn on
    const auto lows = lookUp(di, tables.lowParts.data(), row);
    const V sLow = hn::BitCast(d, hn::And(lows, hn::Set(di, static_cast<std::int64_t>(~0xFFFFFFFFULL))));
    const V cLow = hn::BitCast(d, hn::ShiftLeft<32>(lows));
    // What is left of the angle, within pi / 64, as two parts.
    const V rough = hn::Sub(angle, hn::Mul(step.whole, hn::Set(d, kStepHigh)));
    const auto finer = exactDifference(rough, hn::Mul(step.whole, hn::Set(d, kStepMiddle)));
    const auto r = orderedSum(finer.high, hn::Sub(finer.low, hn::Mul(step.whole, hn::Set(d, kStepLow))));
    const V z = hn::Mul(r.high, r.high);
    V sineSeries = hn::MulAdd(z, hn::Set(d, 1.0 / 362880.0), hn::Set(d, -1.0 / 5040.0));
    sineSeries = hn::MulAdd(z, sineSeries, hn::Set(d, 1.0 / 120.0));
    sineSeries = hn::MulAdd(z, sineSeries, hn::Set(d, -1.0 / 6.0));
    const V sineRest = hn::Add(r.low, hn::Mul(hn::Mul(z, sineSeries), r.high));
    V cosineSeries = hn::MulAdd(z, hn::Set(d, 1.0 / 40320.0), hn::Set(d, -1.0 / 720.0));
    cosineSeries = hn::MulAdd(z, cosineSeries, hn::Set(d, 1.0 / 24.0));
    cosineSeries = hn::MulAdd(z, cosineSeries, hn::Set(d, -0.5));
    const V cosineLess = hn::Sub(hn::Mul(z, cosineSeries), hn::Mul(r.high, r.low));
    const auto doubt = hn::Not(hn::Le(hn::Abs(angle), hn::Set(d, kFarthest)));
    // sin(base + r) = s + c r + (c (sin r - r) + s (cos r - 1)), and the cosine likewise.
    const auto cr = exactProduct(d, c, r.high);
    const auto sineSum = orderedSum(s, cr.high);
    const V sineLow = hn::Add(hn::Add(sineSum.low, hn::Add(cr.low, hn::MulAdd(cLow, r.high, sLow))),
                              hn::MulAdd(c, sineRest, hn::Mul(s, cosineLess)));
    const auto sr = exactProduct(d, s, r.high);
    const auto cosineSum = orderedSum(c, hn::Neg(sr.high));
    const V cosineLow = hn::Add(hn::Add(cosineSum.low, hn::Sub(hn::NegMulAdd(sLow, r.high, cLow), sr.low)),
                                hn::NegMulAdd(s, sineRest, hn::Mul(c, cosineLess)));
    SineCosine<D> result{roundSum(d, sineSum.high, sineLow, hn::Set(d, kStretch)),
                         roundSum(d, cosineSum.high, cosineLow, hn::Set(d, kStretch))};
    result.sine.doubtful = hn::Or(result.sine.doubtful, doubt);
    result.cosine.doubtful = hn::Or(result.cosine.doubtful, doubt);
    return result;
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#endif
