#include <gtest/gtest.h>

#include <cmath>

#include "engine/master.h"

namespace veloria {
namespace {

TEST(Master, TheGainHalvesAtEachDoublingAndJumpsPast64) {
    EXPECT_FLOAT_EQ(polyphonyTarget(0), 0.3f);
    EXPECT_FLOAT_EQ(polyphonyTarget(1), 0.3f);
    EXPECT_FLOAT_EQ(polyphonyTarget(8), 0.3f);
    EXPECT_FLOAT_EQ(polyphonyTarget(9), 0.28125f);
    EXPECT_FLOAT_EQ(polyphonyTarget(16), 0.15f);
    EXPECT_FLOAT_EQ(polyphonyTarget(24), 0.1125f);
    EXPECT_FLOAT_EQ(polyphonyTarget(32), 0.075f);
    EXPECT_FLOAT_EQ(polyphonyTarget(48), 0.05625f);
    EXPECT_FLOAT_EQ(polyphonyTarget(64), 0.0375f);
    EXPECT_FLOAT_EQ(polyphonyTarget(65), 0.01875f);
    EXPECT_FLOAT_EQ(polyphonyTarget(5000), 0.01875f);
}

TEST(Master, TheGlideCoversOneTimeConstantIn2222Samples) {
    float level = 0.3f;
    for (int i = 0; i < 2222; ++i)
        level = glideMasterLevel(level, 0.01875f);
    EXPECT_NEAR(level, 0.01875 + (0.3 - 0.01875) / std::exp(1.0), 2e-3);
    EXPECT_FLOAT_EQ(glideMasterLevel(0.3f, 0.3f), 0.3f);
    EXPECT_FLOAT_EQ(glideMasterLevel(0.0f, 1.0f), 0.00045f);
}

TEST(Master, TheTremoloTurnsAtTwicePhiRadiansASecondByThreePerCent) {
    EXPECT_FLOAT_EQ(tremoloAt(0.0), 1.0f);
    const double quarter = 1.5707963267948966 / (2.0 * 1.6180339887);
    EXPECT_NEAR(tremoloAt(quarter), 1.03, 1e-6);
    EXPECT_NEAR(tremoloAt(3.0 * quarter), 0.97, 1e-6);
    EXPECT_NEAR(tremoloAt(123.456), std::sin(123.456 * 3.2360679774) * 0.03 + 1.0, 1e-5);
}

TEST(Master, TheOutputIsSoftlyLimitedAndFeedsTheRing) {
    SynthEngine engine;
    engine.scopePos = kScopeRingSize - 1;
    float out[2];
    writeMaster(engine, 2.0f, -1000.0f, out);
    EXPECT_NEAR(out[0], std::tanh(0.6), 1e-6);
    EXPECT_EQ(out[1], -1.0f);
    EXPECT_FLOAT_EQ(engine.scopeRing[kScopeRingSize - 1], (out[0] + out[1]) * 0.5f);
    EXPECT_EQ(engine.scopePos, 0);
}

}  // namespace
}  // namespace veloria
