// A voice of sines. Per partial: sine and cosine at the middle of the sub-block from one polynomial; by the
// angle's addition those at the two centres on both sides of it, and from there at the frames k on both sides
// of a centre:
//     sin(c +- k) = sin c cos k +- cos c sin k.
// All that is summed over the partials is products; they are put together to the frames once a voice.
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

// Sine and cosine of each partial at the middle, each times the cosine and the sine of the turn to a centre.
// At the later centre the sine is sineCos + cosineSin, at the earlier one sineCos - cosineSin; the cosines
// are cosineCos -+ sineSin.
struct alignas(64) Centres {
    PerPartial<float> sineCos, cosineSin, cosineCos, sineSin;
};

// Turns at the middle of the sub-block, in single precision without their whole part; the phases are advanced
// over the range.
template <class D>
class TurnTaker {
  public:
    TurnTaker(const PartialTable& table, double* phases, FrameRange range)
        : table_(table),
          phases_(phases),
          frames_(range.end - range.first),
          // A phase stands one frame before the range's first.
          toMiddle_(0.5 * (kSubBlockFrames - 1) - range.first + 1.0) {}

    // Those of the partials from `i` on.
    HWY_INLINE hn::Vec<D> Take(D d, std::size_t i) const {
#if HWY_TARGET == HWY_SCALAR
        return TakePart(d, i);
#else
        const hn::Half<D> half;
        const auto lower = TakePart(half, i);
        return hn::Combine(d, TakePart(half, i + hn::Lanes(half)), lower);
#endif
    }

  private:
    template <class DF>
    HWY_INLINE hn::Vec<DF> TakePart(DF df, std::size_t i) const {
        const hn::Rebind<double, DF> d;
        const auto phase = hn::LoadU(d, phases_ + i);
        const auto step = hn::Load(d, table_.steps.data() + i);
        auto turn = hn::Mul(hn::MulAdd(step, hn::Set(d, toMiddle_), phase), hn::Set(d, kPerTurn));
        if (table_.hasOffsets) turn = hn::Add(turn, hn::Load(d, table_.offsets.data() + i));
        hn::StoreU(AdvancePhase(d, phase, step, hn::Set(d, frames_)), d, phases_ + i);
        return hn::DemoteTo(df, hn::Sub(turn, Nearest(d, turn)));
    }

    const PartialTable& table_;
    double* HWY_RESTRICT phases_;
    double frames_;
    double toMiddle_;
};

HWY_INLINE void FillCentres(const PartialTable& table, double* phases, FrameRange range, Centres& centres) {
    const hn::CappedTag<float, 16> d;
    const TurnTaker<decltype(d)> turns(table, phases, range);
    for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); i += hn::Lanes(d)) {
        auto sine = hn::Zero(d);
        auto cosine = sine;
        SinCos(d, turns.Take(d, i), sine, cosine);
        const auto c = hn::Load(d, table.centreCos.data() + i);
        const auto s = hn::Load(d, table.centreSin.data() + i);
        hn::Store(hn::Mul(sine, c), d, centres.sineCos.data() + i);
        hn::Store(hn::Mul(cosine, s), d, centres.cosineSin.data() + i);
        hn::Store(hn::Mul(cosine, c), d, centres.cosineCos.data() + i);
        hn::Store(hn::Mul(sine, s), d, centres.sineSin.data() + i);
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
HWY_INLINE void AddHalves(D d, V even, V odd, std::size_t centre, std::size_t k, const VoiceGain& gain,
                          StereoSum& sum) {
    AddFrames(d, hn::Add(even, odd), centre + k, gain, sum);
    AddFrames(d, hn::Reverse(d, hn::Sub(even, odd)), centre - k - hn::Lanes(d), gain, sum);
}

// The sums over all partials of the products for frames k to k + Lanes - 1.
template <class D>
struct Products {
    using V = hn::Vec<D>;
    V sineCos, cosineSin, cosineCos, sineSin;

    explicit HWY_INLINE Products(D d)
        : sineCos(hn::Zero(d)), cosineSin(sineCos), cosineCos(sineCos), sineSin(sineCos) {}

    HWY_INLINE void AddEven(V sc, V cs, V cosine) {
        sineCos = hn::MulAdd(sc, cosine, sineCos);
        cosineSin = hn::MulAdd(cs, cosine, cosineSin);
    }
    HWY_INLINE void AddOdd(V cc, V ss, V sine) {
        cosineCos = hn::MulAdd(cc, sine, cosineCos);
        sineSin = hn::MulAdd(ss, sine, sineSin);
    }
    HWY_INLINE void Finish(D d, std::size_t k, const VoiceGain& gain, StereoSum& sum) const {
        AddHalves(d, hn::Sub(sineCos, cosineSin), hn::Add(cosineCos, sineSin), kHalfSpan, k, gain, sum);
        AddHalves(d, hn::Add(sineCos, cosineSin), hn::Sub(cosineCos, sineSin), kSpanFrames + kHalfSpan, k,
                  gain, sum);
    }
};

HWY_INLINE void AddSines(const PartialTable& table, double* phases, FrameRange range, const VoiceGain& gain,
                         StereoSum& sum) {
    Centres centres;
    FillCentres(table, phases, range, centres);
    // Two vectors at a time: every number that is spread over a vector serves twice.
    const hn::CappedTag<float, kHalfSpan / 2> d;
    const std::size_t lanes = hn::Lanes(d);
    for (std::size_t k = 0; k < kHalfSpan; k += 2 * lanes) {
        Products products(d);
        Products more(d);
        for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); ++i) {
            const float* cosines = table.rows[i].cosine.data() + k;
            const auto sc = hn::Set(d, centres.sineCos[i]);
            const auto cs = hn::Set(d, centres.cosineSin[i]);
            products.AddEven(sc, cs, LoadOnce(d, cosines));
            more.AddEven(sc, cs, LoadOnce(d, cosines + lanes));
            const float* sines = table.rows[i].sine.data() + k;
            const auto cc = hn::Set(d, centres.cosineCos[i]);
            const auto ss = hn::Set(d, centres.sineSin[i]);
            products.AddOdd(cc, ss, LoadOnce(d, sines));
            more.AddOdd(cc, ss, LoadOnce(d, sines + lanes));
        }
        products.Finish(d, k, gain, sum);
        more.Finish(d, k + lanes, gain, sum);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#endif
