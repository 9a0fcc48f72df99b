// Functions of vectors, once for each instruction set: included by the files that foreach_target compiles
// again and again, hence the guard that toggles.
#if defined(VELORIA_ENGINE_VECTOR_MATH_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef VELORIA_ENGINE_VECTOR_MATH_INL_H_
#undef VELORIA_ENGINE_VECTOR_MATH_INL_H_
#else
#define VELORIA_ENGINE_VECTOR_MATH_INL_H_
#endif

#include "engine/stacks.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

inline constexpr double kPerTurn = 1.0 / kPhaseTurn;    // turns a radian
inline constexpr double kRounder = 6755399441055744.0;  // 1.5 * 2^52: adding it leaves no room for a fraction

// Loads a vector that several operations use. 2026-11-22: g++ 12 loads it anew for each of them, and loads
// are what the loop over the partials waits for.
template <class D>
HWY_INLINE hn::Vec<D> LoadOnce(D d, const float* HWY_RESTRICT from) {
    auto v = hn::Load(d, from);
#if HWY_ARCH_X86 && HWY_COMPILER_GCC_ACTUAL && HWY_TARGET != HWY_SCALAR && HWY_TARGET != HWY_EMU128
    asm("" : "+x"(v.raw));
#endif
    return v;
}

// The nearest whole number, for |x| below 2^51.
template <class D, class V>
HWY_INLINE V Nearest(D d, V x) {
    const V rounder = hn::Set(d, kRounder);
    return hn::Sub(hn::Add(x, rounder), rounder);
}

// Turns in double precision to single precision, -0.5 to 0.5, without their whole part.
template <class DF>
HWY_INLINE hn::Vec<DF> LoadFraction(DF df, const double* HWY_RESTRICT turns) {
    const hn::Rebind<double, DF> d;
    const auto x = hn::LoadU(d, turns);
    return hn::DemoteTo(df, hn::Sub(x, Nearest(d, x)));
}

template <class D>
HWY_INLINE hn::Vec<D> LoadTurns(D d, const double* HWY_RESTRICT turns) {
#if HWY_TARGET == HWY_SCALAR
    return LoadFraction(d, turns);
#else
    const hn::Half<D> half;
    return hn::Combine(d, LoadFraction(half, turns + hn::Lanes(half)), LoadFraction(half, turns));
#endif
}

// Sine and cosine of `turns`, -0.5 to 0.5, within 6e-7 and on the average within 7e-8: by those of the half
// angle, which need no cases. Pi has a second part and the coefficients were sought among numbers of single
// precision, so that the errors have no bias: it is the same in every voice, and hundreds of them add it up.
template <class D, class V>
HWY_INLINE void SinCos(D d, V turns, V& sine, V& cosine) {
    const V z = hn::Mul(turns, turns);
    V s = hn::MulAdd(z, hn::Set(d, 0.0776332915f), hn::Set(d, -0.598282158f));
    s = hn::MulAdd(z, s, hn::Set(d, 2.55007744f));
    s = hn::MulAdd(z, s, hn::Set(d, -5.1677103f));
    s = hn::MulAdd(z, s, hn::Set(d, -8.74227766e-8f));
    s = hn::MulAdd(turns, hn::Set(d, 3.14159274f), hn::Mul(turns, s));
    V c = hn::MulAdd(z, hn::Set(d, -0.0246492717f), hn::Set(d, 0.23506324f));
    c = hn::MulAdd(z, c, hn::Set(d, -1.33522904f));
    c = hn::MulAdd(z, c, hn::Set(d, 4.05870914f));
    c = hn::MulAdd(z, c, hn::Set(d, -4.93480206f));
    c = hn::MulAdd(z, c, hn::Set(d, 1.0f));
    const V twice = hn::Add(s, s);
    sine = hn::Mul(twice, c);
    cosine = hn::NegMulAdd(twice, s, hn::Set(d, 1.0f));
}

// tanh within a few units in the last place: by exp(-2|x|) - 1, which keeps its digits near 0.
template <class D, class V>
HWY_INLINE V Tanh(D d, V x) {
    const hn::RebindToSigned<D> di;
    const V one = hn::Set(d, 1.0f);
    const V y = hn::Neg(hn::Min(hn::Abs(hn::Add(x, x)), hn::Set(d, 40.0f)));  // 1 from 9 on
    const auto power = hn::NearestInt(hn::Mul(y, hn::Set(d, 1.44269504f)));
    const V n = hn::ConvertTo(d, power);
    // ln 2 in two parts: the first has so few digits that its product with n is exact.
    V r = hn::NegMulAdd(n, hn::Set(d, 0.693359375f), y);
    r = hn::NegMulAdd(n, hn::Set(d, -2.12194440e-4f), r);
    V p = hn::MulAdd(r, hn::Set(d, 0.0013933730714346738f), hn::Set(d, 0.008369220291838174f));
    p = hn::MulAdd(r, p, hn::Set(d, 0.041666464197433244f));
    p = hn::MulAdd(r, p, hn::Set(d, 0.1666650461303226f));
    p = hn::MulAdd(r, p, hn::Set(d, 0.5000000013538719f));
    p = hn::Mul(hn::MulAdd(r, p, one), r);
    const V scale = hn::BitCast(d, hn::ShiftLeft<23>(hn::Add(power, hn::Set(di, 127))));
    const V rise = hn::NegMulAdd(scale, p, hn::Sub(one, scale));  // 1 - exp(y)
    return hn::CopySign(hn::Div(rise, hn::Sub(hn::Set(d, 2.0f), rise)), x);
}

// A phase (radians, up to a turn) after `frames` steps, wrapped to above 0 and up to a turn as adding step by
// step does it. A phase that takes steps of 0 stays.
template <class D, class V>
HWY_INLINE V AdvancePhase(D d, V phase, V step, V frames) {
    const V turn = hn::Set(d, kPhaseTurn);
    const V far = hn::MulAdd(step, frames, phase);
    // A little more than a half, so that a whole number of turns counts as one turn less and is kept as a
    // whole one; what is beyond by that little is cut.
    const V whole = Nearest(d, hn::MulAdd(far, hn::Set(d, kPerTurn), hn::Set(d, -0.5000000000001)));
    return hn::Min(hn::NegMulAdd(hn::Max(whole, hn::Zero(d)), turn, far), turn);
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#endif
