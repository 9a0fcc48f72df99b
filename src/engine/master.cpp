#include "engine/master.h"

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

float glideMasterLevel(float level, float target) {
    return level + (target - level) * 0.00045f;
}

float tremoloAt(double time) {
    // Ten decimals of phi and no factor of pi: the rate is 2 phi radians a second.
    const double turned = time * 1.6180339887;
    return std::sin(static_cast<float>(turned + turned)) * 0.03f + 1.0f;
}

void feedScopeRing(SynthEngine& engine, float left, float right) {
    engine.scopeRing[static_cast<std::size_t>(engine.scopePos)] = (left + right) * 0.5f;
    engine.scopePos = (engine.scopePos + 1) & (kScopeRingSize - 1);
}

void writeMaster(SynthEngine& engine, float left, float right, float out[2]) {
    out[0] = std::tanh(engine.masterLevel * left);
    out[1] = std::tanh(engine.masterLevel * right);
    feedScopeRing(engine, out[0], out[1]);
}

}  // namespace veloria
