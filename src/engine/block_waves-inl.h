// Voices of saws, squares and triangles. A phase is a whole number of 2^-32 turns from half a turn before the
// wrap: it wraps by itself, and a step falls on the frame where the exact phase has it, but for phases within
// 2^-27 of a turn of the step.
#if defined(VELORIA_ENGINE_BLOCK_WAVES_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef VELORIA_ENGINE_BLOCK_WAVES_INL_H_
#undef VELORIA_ENGINE_BLOCK_WAVES_INL_H_
#else
#define VELORIA_ENGINE_BLOCK_WAVES_INL_H_
#endif

#include "engine/block_sines-inl.h"
#include "engine/vector_math-inl.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

constexpr double kTwoTo32 = 4294967296.0;

// Phases at the sub-block's first frame less half a turn, and what they gain per frame.
struct WholePhases {
    PerPartial<std::int32_t> phases;
    PerPartial<std::int32_t> steps;
};

HWY_INLINE void TakeWholePhases(const PartialTable& table, double* HWY_RESTRICT phases, FrameRange range,
                                WholePhases& whole) {
    const hn::CappedTag<double, 8> d;
    const hn::Rebind<std::int32_t, decltype(d)> di;
    const auto frames = hn::Set(d, range.end - range.first);
    const auto toFirst = hn::Set(d, 1.0 - range.first);
    const auto scale = hn::Set(d, kTwoTo32);
    for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); i += hn::Lanes(d)) {
        const auto phase = hn::LoadU(d, phases + i);
        const auto step = hn::Load(d, table.steps.data() + i);
        const auto turn = hn::Mul(hn::MulAdd(step, toFirst, phase), hn::Set(d, kPerTurn));
        // Half a turn less wraps with the rounding: what is nearest to it lies within half a turn of 0.
        const auto late = hn::Sub(turn, hn::Set(d, 0.5));
        const auto fraction = hn::Sub(late, Nearest(d, late));
        hn::StoreU(hn::DemoteTo(di, hn::Mul(fraction, scale)), di, whole.phases.data() + i);
        const auto stepTurns = hn::Mul(step, hn::Set(d, kPerTurn));
        hn::StoreU(hn::DemoteTo(di, hn::Mul(stepTurns, scale)), di, whole.steps.data() + i);
        hn::StoreU(AdvancePhase(d, phase, step, frames), d, phases + i);
    }
}

// Below, p is a phase from -1 at the wrap over 0 at half a turn to 1, and o the partial's offset in half
// turns.

// p + o, the offsets being summed apart.
struct SawOf {
    float weight = 0.0f;
    SawOf(const PartialTable& table, std::size_t i) : weight(table.weights[i]) {}

    template <class D, class VI, class V>
    HWY_INLINE V Add(D d, VI phase, V sum) const {
        return hn::MulAdd(hn::ConvertTo(d, phase), hn::Set(d, weight * 0x1p-31f), sum);
    }
};

// 1 while p + 1 + o is below 1, else -1.
struct SquareOf {
    float weight = 0.0f;
    std::int32_t threshold = 0;
    bool alwaysLow = false;
    SquareOf(const PartialTable& table, std::size_t i) : weight(table.weights[i]) {
        const double at = -2.0 * table.offsets[i];
        alwaysLow = at <= -1.0;
        threshold = static_cast<std::int32_t>(std::clamp(at, -1.0, 0.9999999995) * 0x1p31);
    }

    template <class D, class VI, class V>
    HWY_INLINE V Add(D d, VI phase, V sum) const {
        const hn::RebindToSigned<D> di;
        const V low = hn::Set(d, -weight);
        if (alwaysLow) return hn::Add(sum, low);
        const auto below = hn::Lt(phase, hn::Set(di, threshold));
        return hn::Add(sum, hn::IfThenElse(hn::RebindMask(d, below), hn::Set(d, weight), low));
    }
};

// 1 - 2 |p + o|, the ones being summed apart.
struct TriangleOf {
    float weight = 0.0f;
    float offset = 0.0f;
    TriangleOf(const PartialTable& table, std::size_t i)
        : weight(table.weights[i]), offset(static_cast<float>(2.0 * table.offsets[i])) {}

    template <class D, class VI, class V>
    HWY_INLINE V Add(D d, VI phase, V sum) const {
        const V y = hn::MulAdd(hn::ConvertTo(d, phase), hn::Set(d, 0x1p-31f), hn::Set(d, offset));
        return hn::NegMulAdd(hn::Abs(y), hn::Set(d, 2.0f * weight), sum);
    }
};

// Four vectors of frames at a time, from `constant` up.
template <class Wave>
HWY_INLINE void AddWave(const PartialTable& table, const WholePhases& whole, float constant,
                        const VoiceGain& gain, StereoSum& sum) {
    const hn::CappedTag<float, 16> d;
    const hn::RebindToSigned<decltype(d)> di;
    const std::size_t lanes = hn::Lanes(d);
    for (std::size_t at = 0; at < kSubBlockFrames; at += 4 * lanes) {
        auto sum0 = hn::Set(d, constant), sum1 = sum0, sum2 = sum0, sum3 = sum0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); ++i) {
            const Wave wave(table, i);
            const auto step = hn::Set(di, whole.steps[i]);
            const auto frame = hn::Iota(di, static_cast<std::int32_t>(at));
            const auto phase = hn::Add(hn::Set(di, whole.phases[i]), hn::Mul(step, frame));
            const auto stride = hn::Mul(step, hn::Set(di, static_cast<std::int32_t>(lanes)));
            sum0 = wave.Add(d, phase, sum0);
            const auto phase1 = hn::Add(phase, stride);
            sum1 = wave.Add(d, phase1, sum1);
            const auto phase2 = hn::Add(phase1, stride);
            sum2 = wave.Add(d, phase2, sum2);
            sum3 = wave.Add(d, hn::Add(phase2, stride), sum3);
        }
        AddFrames(d, sum0, at, gain, sum);
        AddFrames(d, sum1, at + lanes, gain, sum);
        AddFrames(d, sum2, at + 2 * lanes, gain, sum);
        AddFrames(d, sum3, at + 3 * lanes, gain, sum);
    }
}

// The sum of what a saw's offsets add.
HWY_INLINE float SumOfOffsets(const PartialTable& table) {
    if (!table.hasOffsets) return 0.0f;
    double sum = 0.0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); ++i)
        sum += 2.0 * table.offsets[i] * static_cast<double>(table.weights[i]);
    return static_cast<float>(sum);
}

HWY_INLINE void AddWaves(const PartialTable& table, double* HWY_RESTRICT phases, FrameRange range,
                         const VoiceGain& gain, StereoSum& sum) {
    WholePhases whole;
    TakeWholePhases(table, phases, range, whole);
    switch (table.settings.waveform) {
        case 1:
            return AddWave<SawOf>(table, whole, SumOfOffsets(table), gain, sum);
        case 2:
            return AddWave<SquareOf>(table, whole, 0.0f, gain, sum);
        case 3:
            return AddWave<TriangleOf>(table, whole, table.weight, gain, sum);
        default:
            return;  // silence, but the phases have moved
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#endif
