// A voice of sines: per partial one turn to the middle of the sub-block, four to the centres of its spans,
// and from each centre c the frames k on both sides by
//     sin(c +- k) = sin c cos k +- cos c sin k,
// where the even part (sin c cos k) and the odd part (cos c sin k) are summed over all partials first.
#if defined(VELORIA_ENGINE_BLOCK_SINES_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef VELORIA_ENGINE_BLOCK_SINES_INL_H_
#undef VELORIA_ENGINE_BLOCK_SINES_INL_H_
#else
#define VELORIA_ENGINE_BLOCK_SINES_INL_H_
#endif

#include "engine/vector_math-inl.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

// Sine and cosine of every partial at the centre of each span.
struct alignas(64) CentreValues {
    PerPartial<float> sine[kSpans];
    PerPartial<float> cosine[kSpans];
};

// Turns at the middle of the sub-block; the phases are advanced over the range.
HWY_INLINE void TakeTurns(const PartialTable& table, double* HWY_RESTRICT phases, FrameRange range,
                          PerPartial<double>& turns) {
    const hn::CappedTag<double, 8> d;
    const auto frames = hn::Set(d, range.end - range.first);
    // A phase stands one frame before the range's first.
    const auto toMiddle = hn::Set(d, 0.5 * (kSubBlockFrames - 1) - range.first + 1.0);
    const auto perTurn = hn::Set(d, kPerTurn);
    // As far as FillCentres reads.
    const std::size_t all = 2 * hn::Lanes(d);
    const std::size_t places = (static_cast<std::size_t>(table.count) + all - 1) / all * all;
    for (std::size_t i = 0; i < places; i += hn::Lanes(d)) {
        const auto phase = hn::LoadU(d, phases + i);
        const auto step = hn::Load(d, table.steps.data() + i);
        auto turn = hn::Mul(hn::MulAdd(step, toMiddle, phase), perTurn);
        if (table.hasOffsets) turn = hn::Add(turn, hn::Load(d, table.offsets.data() + i));
        hn::StoreU(turn, d, turns.data() + i);
        hn::StoreU(AdvancePhase(d, phase, step, frames), d, phases + i);
    }
}

HWY_INLINE void FillCentres(const PartialTable& table, const PerPartial<double>& turns,
                            CentreValues& centres) {
    const hn::CappedTag<float, 16> d;
    for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); i += hn::Lanes(d)) {
        auto s = hn::Zero(d);
        auto c = s;
        SinCos(d, LoadTurns(d, turns.data() + i), s, c);
        const auto turnBoth = [&](const PerPartial<float>& cosines, const PerPartial<float>& sines,
                                  std::size_t before, std::size_t after) {
            const auto cosine = hn::Load(d, cosines.data() + i);
            const auto sine = hn::Load(d, sines.data() + i);
            const auto cs = hn::Mul(c, sine);
            const auto ss = hn::Mul(s, sine);
            hn::Store(hn::MulSub(s, cosine, cs), d, centres.sine[before].data() + i);
            hn::Store(hn::MulAdd(s, cosine, cs), d, centres.sine[after].data() + i);
            hn::Store(hn::MulAdd(c, cosine, ss), d, centres.cosine[before].data() + i);
            hn::Store(hn::MulSub(c, cosine, ss), d, centres.cosine[after].data() + i);
        };
        turnBoth(table.farCos, table.farSin, 0, 3);
        turnBoth(table.nearCos, table.nearSin, 1, 2);
    }
}

// Adds one vector of a voice's wave to both sides from frame `at` on.
template <class D, class V>
HWY_INLINE void AddFrames(D d, V wave, std::size_t at, const VoiceGain& gain, StereoSum& sum) {
    if (gain.ramp != nullptr) wave = hn::Mul(wave, hn::Load(d, gain.ramp->data() + at));
    float* left = sum.left.data() + at;
    float* right = sum.right.data() + at;
    hn::Store(hn::MulAdd(wave, hn::Set(d, gain.left), hn::Load(d, left)), d, left);
    hn::Store(hn::MulAdd(wave, hn::Set(d, gain.right), hn::Load(d, right)), d, right);
}

// The frames k to k + Lanes - 1 on both sides of a centre.
template <class D, class V>
HWY_INLINE void AddHalves(D d, V even, V odd, std::size_t span, std::size_t k, const VoiceGain& gain,
                          StereoSum& sum) {
    const std::size_t middle = span * kSpanFrames + kHalfSpan;
    AddFrames(d, hn::Add(even, odd), middle + k, gain, sum);
    AddFrames(d, hn::Reverse(d, hn::Sub(even, odd)), middle - k - hn::Lanes(d), gain, sum);
}

HWY_INLINE void AddAllSpans(const PartialTable& table, const CentreValues& centres, const VoiceGain& gain,
                            StereoSum& sum) {
    const hn::CappedTag<float, kHalfSpan> d;
    for (std::size_t k = 0; k < kHalfSpan; k += hn::Lanes(d)) {
        auto even0 = hn::Zero(d), even1 = even0, even2 = even0, even3 = even0;
        auto odd0 = even0, odd1 = even0, odd2 = even0, odd3 = even0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); ++i) {
            const auto cosine = hn::Load(d, table.rows[i].cosine.data() + k);
            even0 = hn::MulAdd(hn::Set(d, centres.sine[0][i]), cosine, even0);
            even1 = hn::MulAdd(hn::Set(d, centres.sine[1][i]), cosine, even1);
            even2 = hn::MulAdd(hn::Set(d, centres.sine[2][i]), cosine, even2);
            even3 = hn::MulAdd(hn::Set(d, centres.sine[3][i]), cosine, even3);
            const auto sine = hn::Load(d, table.rows[i].sine.data() + k);
            odd0 = hn::MulAdd(hn::Set(d, centres.cosine[0][i]), sine, odd0);
            odd1 = hn::MulAdd(hn::Set(d, centres.cosine[1][i]), sine, odd1);
            odd2 = hn::MulAdd(hn::Set(d, centres.cosine[2][i]), sine, odd2);
            odd3 = hn::MulAdd(hn::Set(d, centres.cosine[3][i]), sine, odd3);
        }
        AddHalves(d, even0, odd0, 0, k, gain, sum);
        AddHalves(d, even1, odd1, 1, k, gain, sum);
        AddHalves(d, even2, odd2, 2, k, gain, sum);
        AddHalves(d, even3, odd3, 3, k, gain, sum);
    }
}

HWY_INLINE void AddSpan(const PartialTable& table, const CentreValues& centres, std::size_t span,
                        const VoiceGain& gain, StereoSum& sum) {
    const hn::CappedTag<float, kHalfSpan> d;
    for (std::size_t k = 0; k < kHalfSpan; k += hn::Lanes(d)) {
        auto even = hn::Zero(d);
        auto odd = even;
        for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); ++i) {
            even = hn::MulAdd(hn::Set(d, centres.sine[span][i]), hn::Load(d, table.rows[i].cosine.data() + k),
                              even);
            odd = hn::MulAdd(hn::Set(d, centres.cosine[span][i]), hn::Load(d, table.rows[i].sine.data() + k),
                             odd);
        }
        AddHalves(d, even, odd, span, k, gain, sum);
    }
}

HWY_INLINE void AddSines(const PartialTable& table, double* HWY_RESTRICT phases, FrameRange range,
                         const VoiceGain& gain, StereoSum& sum) {
    PerPartial<double> turns;
    CentreValues centres;
    TakeTurns(table, phases, range, turns);
    FillCentres(table, turns, centres);
    const std::size_t firstSpan = static_cast<std::size_t>(range.first / kSpanFrames);
    const std::size_t endSpan = static_cast<std::size_t>((range.end + kSpanFrames - 1) / kSpanFrames);
    if (endSpan - firstSpan > 2) {
        AddAllSpans(table, centres, gain, sum);
    } else {
        for (std::size_t span = firstSpan; span < endSpan; ++span)
            AddSpan(table, centres, span, gain, sum);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#endif
