#include <gtest/gtest.h>

#include <memory>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "views/shared/frame_snapshot.h"

namespace veloria {
namespace {

int g_holds = 0;

TEST(FrameSnapshot, CopiesSoundScopesPeaksAndHeldButtonsUnderOneHold) {
    SynthEngine engine;
    ScopeBuffer scope;
    const auto retuner = std::make_unique<SacredFft>();
    toggleReflection(engine, 3);
    toggleShadow(engine, 7);
    engine.scopeRing[9] = 0.5f;
    scope.samples[4] = -0.25f;
    scope.write = 5;
    retuner->peaks[0].targetHz = 528.0f;
    retuner->peakCount = 1;
    FrameSnapshot snapshot;
    g_holds = 0;
    installAudioLock({[] { ++g_holds; }, [] {}});
    takeFrameSnapshot(engine, scope, *retuner, snapshot);
    installAudioLock({nullptr, nullptr});
    EXPECT_EQ(g_holds, 1);
    EXPECT_EQ(snapshot.engine.voices.size(), 2u);
    EXPECT_EQ(snapshot.notes.size(), 1u);  // Shadow shows by its button
    EXPECT_EQ(snapshot.voices.size(), 2u);
    EXPECT_TRUE(snapshot.reflectionHeld[3]);
    EXPECT_TRUE(snapshot.shadowHeld[7]);
    EXPECT_FALSE(snapshot.rotationHeld[3]);
    EXPECT_EQ(snapshot.engine.scopeRing[9], 0.5f);
    EXPECT_EQ(snapshot.scope.samples[4], -0.25f);
    EXPECT_EQ(snapshot.scope.write, 5);
    EXPECT_EQ(snapshot.retuner.peakCount, 1);
    EXPECT_EQ(snapshot.retuner.peaks[0].targetHz, 528.0f);
}

}  // namespace
}  // namespace veloria
