#include <gtest/gtest.h>

#include "engine/reports.h"

namespace veloria {
namespace {

Voice voiceOn(std::int32_t channel, double start, double end) {
    Voice voice;
    voice.frequency = 400.0 + channel;
    voice.channel = channel;
    voice.startTime = start;
    voice.endTime = end;
    voice.volume = 0.5f;
    voice.pan = 0.25f;
    voice.tuningTag = 12;
    voice.midiNote = 60;
    return voice;
}

class Reports : public ::testing::Test {
  protected:
    void SetUp() override {
        engine.time = 1.0;
        engine.voices = {voiceOn(8, 1.0, 2.0), voiceOn(9, 0.0, 4.0), voiceOn(10, 0.0, 2.0),
                         voiceOn(9, 1.5, 2.0), voiceOn(9, 0.0, 1.0)};
    }
    SynthEngine engine;
};

TEST_F(Reports, CountOnlyVoicesBegunAndNotYetEnded) {
    EXPECT_EQ(activeVoiceCount(engine), 3);
    EXPECT_EQ(activeVoiceCountOnChannel(engine, 9), 1);
    EXPECT_EQ(activeVoiceCountOnChannel(engine, 10), 1);
    EXPECT_EQ(activeVoiceCountOnChannel(engine, 0), 0);
}

TEST_F(Reports, BarsLeaveOutTheShadowChannelAndGiveProgress) {
    const auto bars = activeVoiceBars(engine);
    ASSERT_EQ(bars.size(), 2u);
    EXPECT_EQ(bars[0].frequency, 408.0f);
    EXPECT_EQ(bars[0].progress, 0.0f);
    EXPECT_EQ(bars[1].frequency, 409.0f);
    EXPECT_EQ(bars[1].progress, 0.25f);
    EXPECT_EQ(bars[1].pan, 0.25f);
}

TEST_F(Reports, InfoListsAllChannelsInListOrder) {
    const auto info = activeVoiceInfo(engine);
    ASSERT_EQ(info.size(), 3u);
    EXPECT_EQ(info[0].channel, 8);
    EXPECT_EQ(info[2].channel, 10);
    EXPECT_EQ(info[2].frequency, 410.0);
    EXPECT_EQ(info[2].midiNote, 60);
    EXPECT_EQ(info[2].volume, 0.5f);
    EXPECT_EQ(info[2].tuningTag, 12);
    EXPECT_EQ(info[2].pan, 0.25f);
}

TEST_F(Reports, ASnapshotHoldsTheWaitingVoicesAndTheRing) {
    engine.scopeRing[5] = 0.75f;
    engine.scopePos = 6;
    const EngineSnapshot snapshot = takeSnapshot(engine);
    EXPECT_EQ(snapshot.voices.size(), 5u);
    EXPECT_EQ(snapshot.voices[3].startTime, 1.5);
    EXPECT_EQ(snapshot.voices[3].endTime, 2.0);
    EXPECT_EQ(snapshot.time, 1.0);
    EXPECT_EQ(snapshot.scopeRing[5], 0.75f);
    EXPECT_EQ(snapshot.scopePos, 6);
}

TEST_F(Reports, ACopyIntoAReservedSnapshotAllocatesNothing) {
    EngineSnapshot snapshot;
    reserveSnapshot(engine, snapshot);
    const SnapshotVoice* before = snapshot.voices.data();
    copySnapshot(engine, snapshot);
    EXPECT_EQ(snapshot.voices.data(), before);
    EXPECT_EQ(snapshot.voices.size(), 5u);
}

}  // namespace
}  // namespace veloria
