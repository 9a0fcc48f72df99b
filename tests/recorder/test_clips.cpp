#include "tests/recorder/recorder_fixture.h"

namespace veloria {
namespace {

using Clips = test::RecorderTest;
using Ids = std::vector<std::int32_t>;

TEST_F(Clips, ANewRecorderIsEmptyWithFourRowsOfThirtyTwo) {
    EXPECT_EQ(recorder.channels.size(), 32u);
    EXPECT_EQ(recorder.channels.front().name, "Channel 1");
    EXPECT_EQ(recorder.channels.back().name, "Channel 32");
    EXPECT_TRUE(recorder.channels[7].enabled);
    EXPECT_FALSE(recorder.channels[7].locked);
    EXPECT_EQ(recorder.channelCount, 4);
    EXPECT_EQ(recorder.nextClipId, 1);
    EXPECT_EQ(recorder.clipCount, 0);
    EXPECT_EQ(recorder.viewStart, 0.0);
    EXPECT_EQ(recorder.viewSpan, 30.0);
    EXPECT_EQ(recorder.rowZoom, 1.0f);
    EXPECT_FALSE(recorder.playing);
    EXPECT_FALSE(recorder.paused);
    EXPECT_FALSE(recorder.rangeEnabled);
    EXPECT_EQ(recorder.rangeStart, 0.0);
    EXPECT_EQ(recorder.rangeEnd, 250.0);
    EXPECT_EQ(recorder.clipboardStart, 1e18);
    EXPECT_EQ(recorder.grabbedChannel, -1);
    EXPECT_EQ(recorder.editRow, -1);
    EXPECT_EQ(recorderEnd(recorder), 0.0);
    EXPECT_TRUE(allClips(recorder).empty());
}

TEST_F(Clips, ANewClipIsLightBlueInTheMiddleWithTheEnginesSettings) {
    const RecorderClip clip;
    EXPECT_EQ(clip.colour.r, 100);
    EXPECT_EQ(clip.colour.g, 180);
    EXPECT_EQ(clip.colour.b, 255);
    EXPECT_EQ(clip.colour.a, 255);
    EXPECT_EQ(clip.pan, 0.5f);
    EXPECT_EQ(clip.overrides.waveform, -1);
    EXPECT_FALSE(clip.selected);
}

TEST_F(Clips, AKeyIsTheFrequencyInHundredthsRoundedHalfUp) {
    EXPECT_EQ(frequencyKey(440.0), 44000);
    EXPECT_EQ(frequencyKey(440.004), 44000);
    EXPECT_EQ(frequencyKey(440.006), 44001);
    EXPECT_EQ(frequencyKey(0.004), 0);
    EXPECT_EQ(frequencyKey(0.0), 0);
    EXPECT_EQ(keyFrequency(44001), 440.01);
    // A bucket's own frequency leads back to it, for every hundredth of the audible range.
    for (std::int64_t key = 0; key < 2205000; ++key)
        ASSERT_EQ(frequencyKey(keyFrequency(key)), key);
}

TEST_F(Clips, FrequenciesWithinAHundredthShareABucketAndItsFrequency) {
    const RecorderClip& first = add(0, 440.0, 0.0, 1.0);
    const RecorderClip& second = add(0, 440.004, 0.0, 1.0);
    const RecorderClip& third = add(0, 440.02, 0.0, 1.0);
    EXPECT_EQ(recorder.clips[0].size(), 2u);
    EXPECT_EQ(clipFrequency(recorder, &first), 440.0);
    EXPECT_EQ(clipFrequency(recorder, &second), 440.0);
    EXPECT_EQ(clipFrequency(recorder, &third), 440.02);
}

TEST_F(Clips, AllClipsGoByChannelThenFrequencyThenOrderOfArrival) {
    add(2, 300.0, 0.0, 1.0);  // 1
    add(0, 500.0, 0.0, 1.0);  // 2
    add(0, 200.0, 9.0, 9.5);  // 3
    add(0, 200.0, 0.0, 1.0);  // 4: later into the bucket, though earlier in time
    add(1, 100.0, 0.0, 1.0);  // 5
    EXPECT_EQ(ids(), (Ids{3, 4, 2, 5, 1}));
    EXPECT_EQ(recorder.clipCount, 5);
    EXPECT_EQ(clipsOfChannel(recorder, 0).size(), 3u);
    EXPECT_EQ(clipsOfChannel(recorder, 0)[2]->id, 2);
    EXPECT_TRUE(clipsOfChannel(recorder, 3).empty());
}

TEST_F(Clips, AClipThatIsNotThereHasNoFrequencyAndCannotBeMoved) {
    add(0, 440.0, 0.0, 1.0);
    RecorderClip stranger;
    EXPECT_EQ(clipFrequency(recorder, &stranger), 0.0);
    EXPECT_EQ(clipFrequency(recorder, nullptr), 0.0);
    EXPECT_EQ(moveClipToFrequency(recorder, &stranger, 300.0), nullptr);
    EXPECT_EQ(moveClipToChannel(recorder, &stranger, 1), nullptr);
    EXPECT_EQ(recorder.clipCount, 1);
}

TEST_F(Clips, TheEndIsThatOfTheLastClipOnWhateverChannel) {
    add(0, 440.0, 0.0, 3.0);
    add(20, 300.0, 1.0, 7.5);
    recorder.channels[20].enabled = false;
    add(1, 200.0, 6.0, 6.5);
    EXPECT_EQ(recorderEnd(recorder), 7.5);
}

TEST_F(Clips, ClipsKeepTheirAddressWhileOthersComeGoAndMove) {
    RecorderClip& kept = add(0, 440.0, 0.0, 1.0);
    for (int i = 0; i < 1000; ++i)
        add(0, 440.0, i, i + 1.0).selected = i % 2 == 0;
    removeSelected(recorder);
    EXPECT_EQ(recorder.clipCount, 501);
    EXPECT_EQ(allClips(recorder).front(), &kept);
    EXPECT_EQ(moveClipToFrequency(recorder, &kept, 300.0), &kept);
    EXPECT_EQ(moveClipToChannel(recorder, &kept, 3), &kept);
    EXPECT_EQ(kept.id, 1);
    EXPECT_EQ(clipFrequency(recorder, &kept), 300.0);
    EXPECT_EQ(findClip(recorder, &kept).channel, 3);
    EXPECT_EQ(recorder.clipCount, 501);
}

TEST_F(Clips, AMovedClipComesLastInItsNewBucketAndLeavesTheOldOneEmpty) {
    RecorderClip& moved = add(0, 300.0, 0.0, 1.0);  // 1
    add(0, 400.0, 0.0, 1.0);                        // 2
    add(0, 400.0, 5.0, 6.0);                        // 3
    EXPECT_EQ(moveClipToFrequency(recorder, &moved, 400.0), &moved);
    EXPECT_EQ(ids(), (Ids{2, 3, 1}));
    EXPECT_EQ(recorder.clipCount, 3);
    ASSERT_EQ(recorder.clips[0].count(30000), 1u);
    EXPECT_TRUE(recorder.clips[0][30000].empty());
}

TEST_F(Clips, AMoveWithinTheSameBucketPutsTheClipLast) {
    RecorderClip& moved = add(0, 300.0, 0.0, 1.0);
    add(0, 300.0, 2.0, 3.0);
    EXPECT_EQ(moveClipToFrequency(recorder, &moved, 300.004), &moved);
    EXPECT_EQ(ids(), (Ids{2, 1}));
}

TEST_F(Clips, AMoveToAnotherChannelKeepsTheFrequency) {
    RecorderClip& moved = add(0, 300.0, 0.0, 1.0);
    add(1, 300.0, 0.0, 1.0);
    add(1, 900.0, 0.0, 1.0);
    EXPECT_EQ(moveClipToChannel(recorder, &moved, 1), &moved);
    EXPECT_EQ(clipFrequency(recorder, &moved), 300.0);
    EXPECT_EQ(ids(), (Ids{2, 1, 3}));
    EXPECT_TRUE(clipsOfChannel(recorder, 0).empty());
}

TEST_F(Clips, RemovingTheSelectedKeepsTheOrderOfTheOthers) {
    for (int i = 0; i < 6; ++i)
        add(i / 3, 440.0, i, i + 1.0).selected = i % 3 == 1;
    removeSelected(recorder);
    EXPECT_EQ(ids(), (Ids{1, 3, 4, 6}));
    EXPECT_EQ(recorder.clipCount, 4);
    removeSelected(recorder);
    EXPECT_EQ(recorder.clipCount, 4);
}

TEST_F(Clips, RemovingAClipTakesItOutOfEveryReference) {
    RecorderClip& kept = add(0, 300.0, 0.0, 1.0);
    RecorderClip& gone = add(0, 440.0, 0.0, 1.0);
    gone.selected = true;
    recorder.grabbedClip = recorder.editClip = recorder.lastClickClip = &gone;
    recorder.grabbedChannel = 0;
    recorder.movingClip = recorder.editOpen = true;
    recorder.editRow = 3;
    removeSelected(recorder);
    EXPECT_EQ(recorder.grabbedClip, nullptr);
    EXPECT_EQ(recorder.grabbedChannel, -1);
    EXPECT_FALSE(recorder.movingClip);
    EXPECT_EQ(recorder.editClip, nullptr);
    EXPECT_FALSE(recorder.editOpen);
    EXPECT_EQ(recorder.editRow, -1);
    EXPECT_EQ(recorder.lastClickClip, nullptr);

    recorder.grabbedClip = &kept;
    add(0, 500.0, 0.0, 1.0).selected = true;
    removeSelected(recorder);
    EXPECT_EQ(recorder.grabbedClip, &kept);
}

TEST_F(Clips, AClearTakesEverythingThatPointsAtClips) {
    RecorderClip& clip = add(0, 440.0, 0.0, 1.0);
    const std::uint64_t serial = clip.serial;
    recorder.grabbedClip = recorder.editClip = recorder.lastClickClip = &clip;
    recorder.grabbedChannel = recorder.editChannel = recorder.editRow = 0;
    recorder.editOpen = recorder.movingClip = recorder.resizingEnd = recorder.resizingStart = true;
    recorder.lastClickTicks = 77;
    recorder.playing = true;
    recorder.playhead = 4.0;
    recorder.channelCount = 9;
    clearRecorder(recorder);
    EXPECT_EQ(recorder.clipCount, 0);
    EXPECT_EQ(recorder.nextClipId, 1);
    EXPECT_TRUE(recorder.clips.empty());
    EXPECT_EQ(recorder.grabbedClip, nullptr);
    EXPECT_EQ(recorder.grabbedChannel, -1);
    EXPECT_EQ(recorder.editClip, nullptr);
    EXPECT_EQ(recorder.editChannel, -1);
    EXPECT_EQ(recorder.editRow, -1);
    EXPECT_FALSE(recorder.editOpen || recorder.movingClip || recorder.resizingEnd || recorder.resizingStart);
    EXPECT_EQ(recorder.lastClickClip, nullptr);
    EXPECT_EQ(recorder.lastClickTicks, 0u);
    // The transport and the rows are not the clips'.
    EXPECT_TRUE(recorder.playing);
    EXPECT_EQ(recorder.playhead, 4.0);
    EXPECT_EQ(recorder.channelCount, 9);
    // Numbers begin anew, serials never do.
    EXPECT_EQ(add(0, 440.0, 0.0, 1.0).id, 1);
    EXPECT_GT(allClips(recorder).front()->serial, serial);
}

TEST_F(Clips, RowsAreAddedToThirtyTwoAndTakenToOne) {
    for (int i = 0; i < 40; ++i)
        addChannel(recorder);
    EXPECT_EQ(recorder.channelCount, 32);
    for (int i = 0; i < 40; ++i)
        removeChannel(recorder);
    EXPECT_EQ(recorder.channelCount, 1);
}

TEST_F(Clips, AClipOnALostRowIsKept) {
    add(3, 440.0, 0.0, 1.0);
    removeChannel(recorder);
    EXPECT_EQ(recorder.clipCount, 1);
    EXPECT_EQ(allClips(recorder).size(), 1u);
}

TEST_F(Clips, SelectionReachesEveryClip) {
    EXPECT_FALSE(anySelected(recorder));
    add(0, 440.0, 0.0, 1.0);
    add(30, 300.0, 0.0, 1.0);
    EXPECT_FALSE(anySelected(recorder));
    selectAll(recorder);
    for (const RecorderClip* clip : allClips(recorder))
        EXPECT_TRUE(clip->selected);
    EXPECT_TRUE(anySelected(recorder));
    deselectAll(recorder);
    EXPECT_FALSE(anySelected(recorder));
}

}  // namespace
}  // namespace veloria
