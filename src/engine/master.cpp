#include "engine/master.h"

#include <algorithm>
#include <cmath>

namespace veloria {

float polyphonyTarget(std::size_t sounding) {
    if (sounding > 64) return 0.01875f;  // a deliberate step: half of what 64 voices get
    const float n = static_cast<float>(sounding);
    if (sounding <= 8) return 0.3f;
    if (sounding <= 16) {
        const float t = (n - 8.0f) * 0.125f;
        return (1.0f - t) * 0.3f + t * 0.15f;
    }
    if (sounding <= 32) {
        const float t = (n - 16.0f) * 0.0625f;
        return (1.0f - t) * 0.15f + t * 0.075f;
    }
    const float t = (n - 32.0f) * 0.03125f;
    return (1.0f - t) * 0.075f + t * 0.0375f;
}

float tremoloAt(double time) {
    // Ten decimals of phi and no factor of pi: the rate is 2 phi radians a second.
    const double turned = time * 1.6180339887;
    return std::sin(static_cast<float>(turned + turned)) * 0.03f + 1.0f;
}

void feedScopeRing(SynthEngine& engine, const float* mono, std::size_t frames) {
    while (frames > 0) {
        const auto pos = static_cast<std::size_t>(engine.scopePos);
        const std::size_t count = std::min(frames, engine.scopeRing.size() - pos);
        std::copy(mono, mono + count, engine.scopeRing.data() + pos);
        engine.scopePos = static_cast<std::int32_t>(pos + count) & (kScopeRingSize - 1);
        mono += count;
        frames -= count;
    }
}

void writeMaster(SynthEngine& engine, float left, float right, float out[2]) {
    out[0] = std::tanh(engine.masterLevel * left);
    out[1] = std::tanh(engine.masterLevel * right);
    const float mono = (out[0] + out[1]) * 0.5f;
    feedScopeRing(engine, &mono, 1);
}

}  // namespace veloria
