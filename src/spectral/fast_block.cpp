#include "spectral/fast_block.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "spectral/blend.h"
#include "spectral/block.h"
#include "spectral/collect_peaks.h"
#include "spectral/half_spectrum.h"
#include "spectral/shift_all.h"
#include "spectral/shift_peaks.h"
#include "spectral/target_lists.h"
#include "spectral/twiddles.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "spectral/fast_block.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

#include "spectral/polar_loops_inl.h"
#include "spectral/transform_inl.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

constexpr std::size_t kMovable = kBinCount - 1;  // bins 1 to 2048: a whole number of vectors
constexpr double kTurn = 6.283185307179586;

// windowInput, for values `first` to `last` of the block, which the ring holds from `from` on.
void windowRun(SacredFft& retuner, std::size_t first, std::size_t last, const float* from) {
    const hn::ScalableTag<double> d;
    const hn::Rebind<float, decltype(d)> df;
    double* out = retuner.fast.input.real();
    const double* window = retuner.hannWindow.data();
    std::size_t i = first;
    for (; i + hn::Lanes(d) <= last; i += hn::Lanes(d), from += hn::Lanes(d)) {
        const auto sample = hn::PromoteTo(d, hn::LoadU(df, from));
        hn::StoreU(hn::Mul(sample, hn::LoadU(d, window + i)), d, out + i);
    }
    for (; i < last; ++i, ++from)
        out[i] = static_cast<double>(*from) * window[i];
}

void forwardOfInput(SacredFft& retuner) {
    forwardHalf(transformTables(), retuner.fast.input.real(), retuner.fast.output);
}

void windowAndTransform(SacredFft& retuner) {
    const auto oldest = static_cast<std::size_t>(retuner.inputPos);
    windowRun(retuner, 0, kBlockSize - oldest, retuner.inputRing.data() + oldest);
    windowRun(retuner, kBlockSize - oldest, kBlockSize, retuner.inputRing.data());
    forwardOfInput(retuner);
}

// Magnitudes and phases of the block's bins.
void measurePolar(SacredFft& retuner) {
    const TransformBuffer& bins = retuner.fast.output;
    auto& magnitudes = retuner.scratch.magnitudes;
    auto& phases = retuner.fast.phase;
    magnitudes[0] = std::hypot(bins.real()[0], bins.imag()[0]);
    phases[0] = std::atan2(bins.imag()[0], bins.real()[0]);
    magnitudesOf(&bins.real()[1], &bins.imag()[1], kMovable, &magnitudes[1],
                 transformTables().hypotIsCorrectedRoot, retuner.fast.doubts, retuner.fast.moreDoubts);
    anglesOf(&bins.real()[1], &bins.imag()[1], kMovable, &phases[1], retuner.fast.doubts);
}

// measureTrueBin for every bin, and what gatherByLists goes on from.
void measureTrueBins(SacredFft& retuner) {
    const hn::ScalableTag<double> d;
    using V = hn::Vec<decltype(d)>;
    const V turn = hn::Set(d, kTurn);
    const V advance = hn::Set(d, kHopAdvance);
    const V half = hn::Set(d, 0.5);
    const V one = hn::Set(d, 1.0);
    for (std::size_t k = 1; k < kBinCount; k += hn::Lanes(d)) {
        const V bin = hn::Iota(d, static_cast<double>(k));
        const V phase = hn::LoadU(d, &retuner.fast.phase[k]);
        V deviation = hn::Sub(phase, hn::LoadU(d, &retuner.lastPhase[k]));
        deviation = hn::Sub(deviation, hn::Mul(bin, advance));
        // std::round: halves away from zero.
        const V turns = hn::Div(deviation, turn);
        const V whole = hn::Trunc(turns);
        const auto up = hn::Ge(hn::Abs(hn::Sub(turns, whole)), half);
        const V rounded = hn::Add(whole, hn::IfThenElseZero(up, hn::CopySign(one, turns)));
        deviation = hn::Sub(deviation, hn::Mul(rounded, turn));
        hn::StoreU(phase, d, &retuner.lastPhase[k]);
        const V trueBin = hn::Add(hn::Div(deviation, advance), bin);
        hn::StoreU(trueBin, d, &retuner.scratch.trueBin[k]);
        hn::StoreU(trueBin, d, &retuner.fast.leadBin[k]);
        const V own = hn::LoadU(d, &retuner.fast.targets.own[k]);
        hn::StoreU(hn::Mul(hn::LoadU(d, &retuner.scratch.magnitudes[k]), own), d, &retuner.scratch.sum[k]);
    }
}

// floor(phase / turn). The product with the inverse is off by a few units of the last place, which shows only
// beside a whole number.
template <class D, class V = hn::Vec<D>>
HWY_INLINE V wholeTurns(D d, V phase) {
    const V turns = hn::Mul(phase, hn::Set(d, 1.0 / kTurn));
    const auto beside = hn::Lt(hn::Abs(hn::Sub(turns, hn::Round(turns))), hn::Set(d, 1e-9));
    if (HWY_LIKELY(hn::AllFalse(d, beside))) return hn::Floor(turns);
    return hn::Floor(hn::Div(phase, hn::Set(d, kTurn)));
}

// The running phase of every target bin that sounds, as advanceSynthPhase has it.
void advancePhases(SacredFft& retuner) {
    const hn::ScalableTag<double> d;
    using V = hn::Vec<decltype(d)>;
    const V turn = hn::Set(d, kTurn);
    for (std::size_t t = 1; t < kBinCount; t += hn::Lanes(d)) {
        const auto sounds = hn::Ge(hn::LoadU(d, &retuner.scratch.sum[t]), hn::Set(d, kSilentSum));
        const V lead =
            hn::Mul(hn::LoadU(d, &retuner.fast.leadScale[t]), hn::LoadU(d, &retuner.fast.leadBin[t]));
        const V old = hn::LoadU(d, &retuner.synthPhase[t]);
        V phase = hn::Add(old, hn::Mul(lead, hn::Set(d, kHopAdvance)));
        const V reduced = hn::Sub(phase, hn::Mul(wholeTurns(d, phase), turn));
        phase = hn::IfThenElse(hn::Gt(phase, hn::Set(d, kPhaseLimit)), reduced, phase);
        hn::StoreU(hn::IfThenElse(sounds, phase, old), d, &retuner.synthPhase[t]);
    }
}

// `shifted` for bins 1 to 2048: `magnitudes` at angle `phases`, an exact zero where a magnitude is below
// `silent`.
void synthesise(SacredFft& retuner, const double* magnitudes, const double* phases, double silent) {
    const hn::ScalableTag<double> d;
    using V = hn::Vec<decltype(d)>;
    double* sines = retuner.fast.input.imag();
    double* cosines = retuner.fast.input.real();
    sinesOf(phases + 1, kMovable, sines, cosines, retuner.fast.doubts, retuner.fast.moreDoubts,
            [&](std::size_t i) {
                const V magnitude = hn::LoadU(d, magnitudes + 1 + i);
                return hn::And(hn::Gt(magnitude, hn::Zero(d)), hn::Ge(magnitude, hn::Set(d, silent)));
            });
    double* out = reinterpret_cast<double*>(retuner.shifted.data());
    for (std::size_t k = 1; k < kBinCount; k += hn::Lanes(d)) {
        const V magnitude = hn::LoadU(d, magnitudes + k);
        const auto mute = hn::Lt(magnitude, hn::Set(d, silent));
        const V re = hn::IfThenZeroElse(mute, hn::Mul(magnitude, hn::LoadU(d, cosines + k - 1)));
        const V im = hn::IfThenZeroElse(mute, hn::Mul(magnitude, hn::LoadU(d, sines + k - 1)));
        hn::StoreInterleaved2(re, im, d, out + 2 * k);
    }
}

template <class F>
HWY_INLINE void forLanes(unsigned bits, F take) {
    for (; bits != 0; bits &= bits - 1)
        take(static_cast<std::size_t>(std::countr_zero(bits)));
}

// The lanes of `mask` as bits.
template <class D, class M>
HWY_INLINE unsigned bitsOf(D d, M mask) {
    std::uint8_t bytes[8] = {};
    hn::StoreMaskBits(d, mask, bytes);
    return bytes[0];
}

double largestOf(const std::array<double, kBinCount>& values) {
    const hn::ScalableTag<double> d;
    auto largest = hn::Set(d, values[0]);
    for (std::size_t k = 1; k < kBinCount; k += hn::Lanes(d))
        largest = hn::Max(largest, hn::LoadU(d, &values[k]));
    return hn::GetLane(hn::MaxOfLanes(d, largest));
}

// Calls `take` with each bin from 2 to 2046 that stands above `share` of its neighbours and of `threshold`,
// ascending.
template <class F>
HWY_INLINE void forPeaks(const std::array<double, kBinCount>& values, double threshold, double share,
                         F take) {
    const hn::ScalableTag<double> d;
    std::size_t k = 2;
    for (; k + hn::Lanes(d) <= kNyquistBin - 1; k += hn::Lanes(d)) {
        const auto around = hn::Max(hn::LoadU(d, &values[k - 1]), hn::LoadU(d, &values[k + 1]));
        const auto least = hn::Mul(hn::Max(around, hn::Set(d, threshold)), hn::Set(d, share));
        const auto peaks = hn::Gt(hn::LoadU(d, &values[k]), least);
        forLanes(bitsOf(d, peaks), [&](std::size_t lane) { take(k + lane); });
    }
    for (; k <= kNyquistBin - 2; ++k) {
        if (values[k] > std::max({values[k - 1], values[k + 1], threshold}) * share) take(k);
    }
}

// The magnitudes of `shifted` are `magnitudes` but for their last digits, which are worked out only where
// they can decide: of what may be the largest, of what may be a peak, and of its neighbours.
constexpr double kAlmost = 1.0 - 1e-14;

// magnitudeOf, by the vector's arithmetic where that is the library's: it has no branches to guess at.
HWY_INLINE double exactMagnitude(std::complex<double> value) {
    const hn::CappedTag<double, 1> d;
    if (!transformTables().hypotIsCorrectedRoot) return magnitudeOf(value);
    const auto result = magnitudeCorrected(d, hn::Set(d, value.real()), hn::Set(d, value.imag()));
    if (HWY_LIKELY(hn::AllFalse(d, result.doubtful))) return hn::GetLane(result.value);
    return magnitudeOf(value);
}

double exactLargest(const SacredFft& retuner, const std::array<double, kBinCount>& magnitudes) {
    const hn::ScalableTag<double> d;
    const double least = largestOf(magnitudes) * kAlmost;
    double largest = exactMagnitude(retuner.shifted[0]);
    for (std::size_t k = 1; k < kBinCount; k += hn::Lanes(d)) {
        const auto high = hn::Ge(hn::LoadU(d, &magnitudes[k]), hn::Set(d, least));
        if (HWY_LIKELY(hn::AllFalse(d, high))) continue;
        forLanes(bitsOf(d, high), [&](std::size_t lane) {
            largest = std::max(largest, exactMagnitude(retuner.shifted[k + lane]));
        });
    }
    return largest;
}

// CollectPeaks, where `magnitudes` went into `shifted`.
void collectPeaksFast(SacredFft& retuner, const std::array<double, kBinCount>& magnitudes) {
    const double largest = exactLargest(retuner, magnitudes);
    const double threshold = peakThreshold(largest);
    auto& exact = retuner.scratch.shiftedMag;
    auto& bins = retuner.fast.peakBins;
    std::size_t count = 0;
    forPeaks(magnitudes, threshold, kAlmost, [&](std::size_t k) {
        exact[k] = exactMagnitude(retuner.shifted[k]);
        const double around = std::max(magnitudes[k - 1], magnitudes[k + 1]);
        bool peak = exact[k] > threshold;
        if (!(magnitudes[k] * kAlmost > around)) {
            exact[k - 1] = exactMagnitude(retuner.shifted[k - 1]);
            exact[k + 1] = exactMagnitude(retuner.shifted[k + 1]);
            peak = isPeak(exact, k, threshold);
        }
        if (peak) bins[count++] = static_cast<std::int32_t>(k);
    });
    rankPeaks(retuner, largest, {bins.data(), count});
}

void shiftAllFast(SacredFft& retuner) {
    measurePolar(retuner);
    refreshTargetLists(retuner);
    measureTrueBins(retuner);
    gatherByLists(retuner);
    advancePhases(retuner);
    retuner.shifted[0] = 0.0;
    synthesise(retuner, retuner.scratch.sum.data(), retuner.synthPhase.data(), kSilentSum);
    collectPeaksFast(retuner, retuner.scratch.sum);
}

void shiftPeaksFast(SacredFft& retuner) {
    BlockScratch& scratch = retuner.scratch;
    measurePolar(retuner);
    const double largest = largestOf(scratch.magnitudes);
    retuner.maxMagnitude = static_cast<float>(largest);
    scratch.peakBinCount = 0;
    forPeaks(scratch.magnitudes, movingThreshold(largest), 1.0,
             [&](std::size_t k) { scratch.peakBins[scratch.peakBinCount++] = static_cast<std::int32_t>(k); });
    publishPeakCount(retuner);
    scratch.newMag = scratch.magnitudes;
    scratch.newPhase = retuner.fast.phase;
    clearMovingPeaks(retuner);
    publishShift(retuner, movePeaks(retuner, retuner.fast.phase));
    retuner.shifted[0] = atAngle(scratch.newMag[0], scratch.newPhase[0]);
    synthesise(retuner, scratch.newMag.data(), scratch.newPhase.data(), 0.0);
    collectPeaksFast(retuner, scratch.newMag);
}

// The inverse transform's input: what restoreSpectrum and mixSpectrum make, conjugated.
void prepareInverse(SacredFft& retuner, float strength) {
    const hn::ScalableTag<double> d;
    using V = hn::Vec<decltype(d)>;
    const bool mixed = isMixed(strength);
    const double wet = strength;
    const double dry = 1.0 - wet;
    const V wets = hn::Set(d, wet);
    const V drys = hn::Set(d, dry);
    const TransformBuffer& bins = retuner.fast.output;
    TransformBuffer& in = retuner.fast.input;
    const double* pairs = reinterpret_cast<const double*>(retuner.shifted.data());
    for (std::size_t k = 1; k < kBinCount; k += hn::Lanes(d)) {
        V re, im;
        hn::LoadInterleaved2(d, pairs + 2 * k, re, im);
        if (mixed) {
            re = hn::Add(hn::Mul(wets, re), hn::Mul(drys, hn::LoadU(d, &bins.real()[k])));
            im = hn::Add(hn::Mul(wets, im), hn::Mul(drys, hn::LoadU(d, &bins.imag()[k])));
        }
        hn::StoreU(re, d, &in.real()[k]);
        hn::StoreU(hn::Neg(im), d, &in.imag()[k]);
        const std::size_t mirrored = kBlockSize - k - (hn::Lanes(d) - 1);
        hn::StoreU(hn::Reverse(d, re), d, &in.real()[mirrored]);
        hn::StoreU(hn::Reverse(d, im), d, &in.imag()[mirrored]);
    }
    const double first = bins.real()[0];
    in.real()[0] = mixed ? wet * first + dry * first : first;
    in.imag()[0] = -0.0;
    in.imag()[kNyquistBin] = -0.0;
}

// overlapAdd, for values `first` to `last` of the block, which go to the ring from `to` on.
void overlapRun(SacredFft& retuner, std::size_t first, std::size_t last, float* to) {
    const hn::ScalableTag<double> d;
    const hn::Rebind<float, decltype(d)> df;
    constexpr double kShare = 1.0 / static_cast<double>(kBlockSize);
    const double* block = retuner.fast.output.real();
    const double* window = retuner.hannWindow.data();
    std::size_t i = first;
    for (; i + hn::Lanes(d) <= last; i += hn::Lanes(d), to += hn::Lanes(d)) {
        const auto value = hn::Mul(hn::LoadU(d, block + i), hn::Set(d, kShare));
        const auto sample = hn::DemoteTo(df, hn::Mul(value, hn::LoadU(d, window + i)));
        hn::StoreU(hn::Add(hn::LoadU(df, to), hn::Mul(sample, hn::Set(df, kUnityGain))), df, to);
    }
    for (; i < last; ++i, ++to)
        *to += static_cast<float>(block[i] * kShare * window[i]) * kUnityGain;
}

void inverseAndOverlap(SacredFft& retuner) {
    TransformBuffer& in = retuner.fast.input;
    inverseReal(transformTables(), in.real(), in.imag(), retuner.fast.output);
    const auto start = static_cast<std::size_t>(retuner.outputWrite);
    const std::size_t straight = std::min(kBlockSize, kOutputRingSize - start);
    overlapRun(retuner, 0, straight, retuner.outputRing.data() + start);
    overlapRun(retuner, straight, kBlockSize, retuner.outputRing.data());
    retuner.outputWrite = static_cast<std::int32_t>((start + kHopSize) % kOutputRingSize);
}

void wholeBlock(SacredFft& retuner, const RetunerSettings& settings) {
    windowAndTransform(retuner);
    if (settings.mode == kModeFull) shiftAllFast(retuner);
    if (settings.mode == kModePeak) shiftPeaksFast(retuner);
    prepareInverse(retuner, strengthOf(settings));
    inverseAndOverlap(retuner);
}

void polarLoop(const double* real, const double* imag, std::size_t count, bool hypotIsCorrectedRoot,
               PolarResult out, DoubtBits& doubts, DoubtBits& moreDoubts) {
    magnitudesOf(real, imag, count, out.magnitudes, hypotIsCorrectedRoot, doubts, moreDoubts);
    anglesOf(real, imag, count, out.phases, doubts);
}

void sineLoop(const double* angles, std::size_t count, SineResult out, DoubtBits& doubts,
              DoubtBits& moreDoubts) {
    const hn::ScalableTag<double> d;
    sinesOf(angles, count, out.sines, out.cosines, doubts, moreDoubts,
            [&](std::size_t) { return hn::Eq(hn::Zero(d), hn::Zero(d)); });
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace veloria {

HWY_EXPORT(wholeBlock);
HWY_EXPORT(forwardOfInput);
HWY_EXPORT(polarLoop);
HWY_EXPORT(sineLoop);

void processBlockFast(SacredFft& retuner, const RetunerSettings& settings) {
    // A mode of no kind passes the block on through both transforms, as the literal stages do.
    if (settings.mode != kModeFull && settings.mode != kModePeak) return ProcessBlock(retuner, settings);
    HWY_DYNAMIC_DISPATCH(wholeBlock)(retuner, settings);
}

void forwardBlock(SacredFft& retuner) {
    HWY_DYNAMIC_DISPATCH(forwardOfInput)(retuner);
}

void polarValues(const double* real, const double* imag, std::size_t count, bool hypotIsCorrectedRoot,
                 PolarResult out, DoubtBits& doubts, DoubtBits& moreDoubts) {
    HWY_DYNAMIC_DISPATCH(polarLoop)(real, imag, count, hypotIsCorrectedRoot, out, doubts, moreDoubts);
}

void sinesAndCosines(const double* angles, std::size_t count, SineResult out, DoubtBits& doubts,
                     DoubtBits& moreDoubts) {
    HWY_DYNAMIC_DISPATCH(sineLoop)(angles, count, out, doubts, moreDoubts);
}

}  // namespace veloria

#endif  // HWY_ONCE
