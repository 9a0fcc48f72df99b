#include "engine/block_kernels.h"

#include <algorithm>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "engine/block_kernels.cpp"
#include "hwy/foreach_target.h"

#include "engine/block_sines-inl.h"
#include "engine/block_waves-inl.h"
#include "engine/vector_math-inl.h"
#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace veloria {
namespace HWY_NAMESPACE {

constexpr double kReleaseSeconds = 0.02;

// Brings the phases of a voice whose partials lie scattered over its slots together for as long as it lives.
class GatheredPhases {
  public:
    GatheredPhases(const PartialTable& table, PhaseArray& phases) : table_(table), phases_(phases) {
        if (table.inPlace) return;
        for (std::size_t i = 0; i < static_cast<std::size_t>(table.count); ++i)
            gathered_[i] = phases[table.slots[i]];
        for (std::size_t i = static_cast<std::size_t>(table.count); i < gathered_.size(); ++i)
            gathered_[i] = 0.0;
    }
    ~GatheredPhases() {
        if (table_.inPlace) return;
        for (std::size_t i = 0; i < static_cast<std::size_t>(table_.count); ++i)
            phases_[table_.slots[i]] = gathered_[i];
    }
    GatheredPhases(const GatheredPhases&) = delete;
    GatheredPhases& operator=(const GatheredPhases&) = delete;

    double* data() { return table_.inPlace ? phases_.data() : gathered_.data(); }

  private:
    const PartialTable& table_;
    PhaseArray& phases_;
    PhaseArray gathered_;
};

void AddVoice(const PartialTable& table, PhaseArray& phases, FrameRange range, const VoiceGain& gain,
              StereoSum& sum) {
    GatheredPhases gathered(table, phases);
    if (table.settings.waveform == 0) {
        AddSines(table, gathered.data(), range, gain, sum);
    } else {
        AddWaves(table, gathered.data(), range, gain, sum);
    }
}

void FillRamp(const VoiceRamp& ramp, const PerFrame<double>& times, PerFrame<float>& out) {
    const hn::CappedTag<double, 8> d;
    const hn::Rebind<float, decltype(d)> df;
    const double duration = ramp.endTime - ramp.startTime;
    const auto zero = hn::Zero(d);
    const auto one = hn::Set(d, 1.0);
    const auto start = hn::Set(d, ramp.startTime);
    const auto end = hn::Set(d, ramp.endTime);
    const auto attack = hn::Set(d, ramp.attack);
    const auto perAttack = hn::Set(d, ramp.attack > 0.0 ? 1.0 / ramp.attack : 0.0);
    const auto perDuration = hn::Set(d, duration > 0.0 ? 1.0 / duration : 0.0);
    for (std::size_t i = 0; i < kSubBlockFrames; i += hn::Lanes(d)) {
        const auto time = hn::Load(d, times.data() + i);
        const auto age = hn::Sub(time, start);
        const auto left = hn::Sub(end, time);
        const auto released = hn::IfThenElse(hn::Lt(left, hn::Set(d, kReleaseSeconds)),
                                             hn::Mul(left, hn::Set(d, 1.0 / kReleaseSeconds)), one);
        const auto envelope = hn::IfThenElse(hn::Lt(age, attack), hn::Mul(age, perAttack), released);
        const auto progress = hn::Min(hn::Max(hn::Mul(age, perDuration), zero), one);
        const auto level = hn::MulAdd(progress, hn::Set(d, ramp.glide), hn::Set(d, ramp.level));
        const auto value = hn::Mul(hn::Min(hn::Max(envelope, zero), one), level);
        hn::Store(hn::DemoteTo(df, value), df, out.data() + i);
    }
}

// The sine of the tremolo's angle, which is rounded to single precision before it is turned into turns: the
// tremolo of a clock that has run for a day is that coarse.
void FillTremolo(const PerFrame<double>& times, PerFrame<double>& turns) {
    const hn::CappedTag<double, 8> d;
    const hn::Rebind<float, decltype(d)> df;
    for (std::size_t i = 0; i < kSubBlockFrames; i += hn::Lanes(d)) {
        const auto turned = hn::Mul(hn::Load(d, times.data() + i), hn::Set(d, 1.6180339887));
        const auto angle = hn::PromoteTo(d, hn::DemoteTo(df, hn::Add(turned, turned)));
        hn::Store(hn::Mul(angle, hn::Set(d, kPerTurn)), d, turns.data() + i);
    }
}

void LimitSum(const StereoSum& sum, const PerFrame<double>& times, const PerFrame<float>& levels,
              BlockOutput& out) {
    PerFrame<double> turns;
    FillTremolo(times, turns);
    const hn::CappedTag<float, 16> d;
    for (std::size_t i = 0; i < kSubBlockFrames; i += hn::Lanes(d)) {
        auto sine = hn::Zero(d);
        auto cosine = sine;
        SinCos(d, LoadTurns(d, turns.data() + i), sine, cosine);
        const auto tremolo = hn::MulAdd(sine, hn::Set(d, 0.03f), hn::Set(d, 1.0f));
        const auto gain = hn::Mul(hn::Load(d, levels.data() + i), tremolo);
        const auto left = Tanh(d, hn::Mul(gain, hn::Load(d, sum.left.data() + i)));
        const auto right = Tanh(d, hn::Mul(gain, hn::Load(d, sum.right.data() + i)));
        hn::StoreInterleaved2(left, right, d, out.stereo.data() + 2 * i);
        hn::Store(hn::Mul(hn::Add(left, right), hn::Set(d, 0.5f)), d, out.mono.data() + i);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace veloria
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace veloria {

HWY_EXPORT(AddVoice);
HWY_EXPORT(FillRamp);
HWY_EXPORT(LimitSum);

void addVoice(const PartialTable& table, PhaseArray& phases, FrameRange range, const VoiceGain& gain,
              StereoSum& sum) {
    HWY_DYNAMIC_DISPATCH(AddVoice)(table, phases, range, gain, sum);
}

void fillRamp(const VoiceRamp& ramp, const PerFrame<double>& times, PerFrame<float>& out) {
    HWY_DYNAMIC_DISPATCH(FillRamp)(ramp, times, out);
}

void limitSum(const StereoSum& sum, const PerFrame<double>& times, const PerFrame<float>& levels,
              BlockOutput& out) {
    HWY_DYNAMIC_DISPATCH(LimitSum)(sum, times, levels, out);
}

}  // namespace veloria
#endif
