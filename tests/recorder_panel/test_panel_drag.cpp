// Clips moved and resized by the mouse.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

class RecorderDrag : public test::RecorderPanelTest {
  protected:
    [[nodiscard]] std::int32_t channelOf(const RecorderClip& wanted) {
        return findClip(recorder, &wanted).channel;
    }
};

TEST_F(RecorderDrag, AClipIsMovedByItsMiddle) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    down(at(7), rowY(0));
    EXPECT_TRUE(recorder.movingClip);
    EXPECT_EQ(recorder.grabbedClip, &made);
    EXPECT_EQ(recorder.grabbedChannel, 0);
    EXPECT_DOUBLE_EQ(recorder.grabOffset, 2.0);
    EXPECT_TRUE(move(at(9), rowY(0)));
    EXPECT_DOUBLE_EQ(made.start, 7.0);
    EXPECT_DOUBLE_EQ(made.end, 12.0);
    up(at(9), rowY(0));
    EXPECT_FALSE(move(at(15), rowY(0)));
    EXPECT_DOUBLE_EQ(made.start, 7.0);
    EXPECT_EQ(recorder.grabbedClip, nullptr);
    EXPECT_EQ(recorder.grabbedChannel, -1);
}

TEST_F(RecorderDrag, AClipStopsAtZeroWithItsLengthKept) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    down(at(7), rowY(0));
    move(0, rowY(0));
    EXPECT_DOUBLE_EQ(made.start, 0.0);
    EXPECT_DOUBLE_EQ(made.end, 5.0);
    move(at(8), rowY(0));
    EXPECT_DOUBLE_EQ(made.start, 6.0) << "the pointer still holds it at the same place";
}

TEST_F(RecorderDrag, TheDragGoesOnOutsideThePanel) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    down(at(7), rowY(0));
    move(at(8), 20);
    EXPECT_DOUBLE_EQ(made.start, 6.0);
    EXPECT_EQ(channelOf(made), 0) << "there is no row up there";
    move(2000, 5000);
    EXPECT_GT(made.start, 30.0);
    EXPECT_EQ(channelOf(made), 0);
}

TEST_F(RecorderDrag, SelectedClipsMoveTogetherAndEachStopsAtZeroOnItsOwn) {
    RecorderClip& first = clip(0, 440.0, 2.0, 3.0);
    RecorderClip& second = clip(1, 440.0, 6.0, 8.0);
    RecorderClip& other = clip(1, 440.0, 12.0, 13.0);
    click(at(2.5), rowY(0));
    ctrlDown(at(7), rowY(1));
    move(at(8), rowY(1));
    EXPECT_NEAR(first.start, 3.0, 1e-9);
    EXPECT_NEAR(second.start, 7.0, 1e-9);
    EXPECT_NEAR(other.start, 12.0, 1e-9);
    move(at(3), rowY(1));  // 5 s back
    EXPECT_NEAR(second.start, 2.0, 1e-9);
    EXPECT_NEAR(second.end, 4.0, 1e-9);
    EXPECT_DOUBLE_EQ(first.start, 0.0);
    EXPECT_NEAR(first.end, 1.0, 1e-9) << "its length is kept";
    move(at(8), rowY(1));  // and forth again: the spacing has shrunk from 4 s to 2 s
    EXPECT_NEAR(second.start - first.start, 2.0, 1e-9);
}

TEST_F(RecorderDrag, SelectedClipsOfLockedChannelsStay) {
    RecorderClip& first = clip(0, 440.0, 2.0, 3.0);
    RecorderClip& second = clip(1, 440.0, 6.0, 8.0);
    recorder.channels[0].locked = true;
    click(at(2.5), rowY(0));
    ctrlDown(at(7), rowY(1));
    move(at(9), rowY(1));
    EXPECT_NEAR(second.start, 8.0, 1e-9);
    EXPECT_DOUBLE_EQ(first.start, 2.0);
}

TEST_F(RecorderDrag, AClipOfALockedChannelIsSelectedAndStays) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    recorder.channels[0].locked = true;
    down(at(7), rowY(0));
    EXPECT_TRUE(made.selected);
    EXPECT_TRUE(move(at(12), rowY(1)));
    EXPECT_DOUBLE_EQ(made.start, 5.0);
    EXPECT_EQ(channelOf(made), 0);
    up();
    input.ticks += 1000;
    down(at(5) + 1, rowY(0));
    EXPECT_TRUE(recorder.resizingStart);
    move(at(2), rowY(0));
    EXPECT_DOUBLE_EQ(made.start, 5.0);
    up();
    input.ticks += 1000;
    down(at(10) - 1, rowY(0));
    EXPECT_TRUE(recorder.resizingEnd);
    move(at(20), rowY(0));
    EXPECT_DOUBLE_EQ(made.end, 10.0);
}

TEST_F(RecorderDrag, AClipIsMovedToAnotherChannelAtItsFrequency) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    clip(2, 900.0, 20.0, 21.0);  // sounds higher: comes last in map order
    down(at(7), rowY(0));
    move(at(7), rowY(2));
    EXPECT_EQ(channelOf(made), 2);
    EXPECT_DOUBLE_EQ(clipFrequency(recorder, &made), 440.0);
    EXPECT_EQ(recorder.grabbedClip, &made) << "the drag goes on with the same clip";
    EXPECT_EQ(recorder.grabbedChannel, 2);
    EXPECT_EQ(recorder.clipCount, 2);
    move(at(8), rowY(1));
    EXPECT_EQ(channelOf(made), 1);
    EXPECT_NEAR(made.start, 6.0, 1e-9);
}

TEST_F(RecorderDrag, OnlyTheClipInHandChangesItsChannel) {
    RecorderClip& first = clip(0, 440.0, 2.0, 3.0);
    RecorderClip& second = clip(1, 440.0, 6.0, 8.0);
    click(at(2.5), rowY(0));
    ctrlDown(at(7), rowY(1));
    move(at(8), rowY(3));
    EXPECT_EQ(channelOf(second), 3);
    EXPECT_EQ(channelOf(first), 0);
    EXPECT_NEAR(first.start, 3.0, 1e-9) << "but moves in time";
}

TEST_F(RecorderDrag, ALockedChannelTakesNoClip) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    recorder.channels[1].locked = true;
    down(at(7), rowY(0));
    move(at(8), rowY(1));
    EXPECT_EQ(channelOf(made), 0);
    EXPECT_NEAR(made.start, 6.0, 1e-9);
    move(at(8), rowY(2));
    EXPECT_EQ(channelOf(made), 2) << "the next one does";
}

TEST_F(RecorderDrag, ChangingTheChannelEndsTheVoicesThatSound) {
    RecorderClip& made = clip(0, 440.0, 0.0, 10.0);
    clip(1, 600.0, 0.0, 10.0);
    recorder.playing = true;
    tickRecorder(recorder, 0.05f);
    ASSERT_EQ(recorder.activeClips.size(), 2u);
    ASSERT_EQ(engine.voices.size(), 2u);
    down(at(5), rowY(0));
    move(at(5), rowY(2));
    EXPECT_TRUE(recorder.activeClips.empty());
    for (const Voice& voice : engine.voices)
        EXPECT_LT(voice.endTime, 1.0) << "released, not left to sound to its end";
    tickRecorder(recorder, 0.01f);
    EXPECT_EQ(recorder.activeClips.size(), 2u);
    EXPECT_EQ(channelOf(made), 2);
}

TEST_F(RecorderDrag, AClipWhoseRowHasGoneIsLetGoOf) {
    RecorderClip& made = clip(3, 440.0, 5.0, 10.0);
    down(at(7), rowY(3));
    recorder.channelCount = 2;
    move(at(12), rowY(0));
    EXPECT_DOUBLE_EQ(made.start, 5.0);
    EXPECT_FALSE(recorder.movingClip);
    EXPECT_EQ(recorder.grabbedClip, nullptr);
    EXPECT_FALSE(move(at(13), rowY(0)));
}

TEST_F(RecorderDrag, TheRightEdgeMovesTheEnd) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    down(at(10) - 5, rowY(0));
    EXPECT_TRUE(recorder.resizingEnd);
    EXPECT_FALSE(recorder.movingClip);
    move(at(15), rowY(3));
    EXPECT_DOUBLE_EQ(made.end, 15.0);
    EXPECT_DOUBLE_EQ(made.start, 5.0);
    EXPECT_EQ(channelOf(made), 0) << "a resize changes no channel";
    move(at(1), rowY(0));
    EXPECT_DOUBLE_EQ(made.end, 5.05) << "never shorter";
    up();
    EXPECT_FALSE(recorder.resizingEnd);
}

TEST_F(RecorderDrag, TheLeftEdgeMovesTheStart) {
    RecorderClip& made = clip(0, 440.0, 5.0, 10.0);
    down(at(5) + 5, rowY(0));
    EXPECT_TRUE(recorder.resizingStart);
    move(at(2), rowY(0));
    EXPECT_DOUBLE_EQ(made.start, 2.0);
    EXPECT_DOUBLE_EQ(made.end, 10.0);
    move(at(20), rowY(0));
    EXPECT_DOUBLE_EQ(made.start, 9.95);
    move(0, rowY(0));
    EXPECT_DOUBLE_EQ(made.start, 0.0);
    up();
    EXPECT_FALSE(recorder.resizingStart);
}

TEST_F(RecorderDrag, ANarrowClipHasNoEdges) {
    clip(0, 440.0, 10.0, 10.0 + 14.5 / 38.0);  // 14 pixels from x 510
    for (const int x : {510, 512, 523, 524}) {
        down(x, rowY(0));
        EXPECT_TRUE(recorder.movingClip) << x;
        up();
        input.ticks += 1000;
    }
}

TEST_F(RecorderDrag, EdgesAreWhereTheWholeClipHasThem) {
    clip(0, 440.0, 0.0, 40.0);
    recorder.viewStart = 5.0;
    down(132, rowY(0));
    EXPECT_TRUE(recorder.movingClip) << "its start is out of sight, and no edge is at the view's";
}

TEST_F(RecorderDrag, RemovingTheClipInHandEndsTheDrag) {
    clip(0, 440.0, 5.0, 10.0);
    down(at(7), rowY(0));
    EXPECT_TRUE(key(SDLK_DELETE));
    EXPECT_FALSE(move(at(8), rowY(0)));
    EXPECT_EQ(recorder.clipCount, 0);
}

}  // namespace
}  // namespace veloria
