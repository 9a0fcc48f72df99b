// Presses on the panel's controls and on clips.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::kBottom;
using test::kTop;

class RecorderPress : public test::RecorderPanelTest {};

TEST_F(RecorderPress, MinusAndPlusStopAtOneAndThirtyTwo) {
    for (int i = 0; i < 10; ++i)
        click(1203, 354);
    EXPECT_EQ(recorder.channelCount, 1);
    for (int i = 0; i < 40; ++i)
        click(1241, 370);
    EXPECT_EQ(recorder.channelCount, 32);
    click(1202, 353);
    EXPECT_EQ(recorder.channelCount, 31);
    for (const SDL_Point& beside : {SDL_Point{1201, 360}, {1220, 360}, {1223, 360}, {1242, 360}, {1230, 371}})
        click(beside.x, beside.y);
    EXPECT_EQ(recorder.channelCount, 31) << "a press beside the boxes";
}

TEST_F(RecorderPress, EveryLeftPressInsideIsUsedAndNoneOutside) {
    for (const int y : {350, 385, 400, 430, 600, 655, 670, 689})
        EXPECT_TRUE(down(640, y)) << y;
    up();
    EXPECT_FALSE(down(640, 349));
    EXPECT_FALSE(down(640, 690));
    EXPECT_FALSE(down(1280, 500));
    EXPECT_FALSE(down(640, 500, SDL_BUTTON_RIGHT));
}

TEST_F(RecorderPress, ALeftReleaseIsNeverUsed) {
    clip(0, 440.0, 5.0, 10.0);
    down(at(7), rowY(0));
    EXPECT_FALSE(up(at(7), rowY(0)));
    EXPECT_FALSE(up());
}

TEST_F(RecorderPress, RulerScrubs) {
    down(at(12), 396);
    EXPECT_TRUE(recorder.scrubbing);
    EXPECT_DOUBLE_EQ(recorder.playhead, 12.0);
    EXPECT_TRUE(move(at(20), 100)) << "outside the panel too";
    EXPECT_DOUBLE_EQ(recorder.playhead, 20.0);
    move(20, 400);
    EXPECT_DOUBLE_EQ(recorder.playhead, 0.0) << "never before 0";
    up();
    EXPECT_FALSE(move(at(5), 400));
    EXPECT_DOUBLE_EQ(recorder.playhead, 0.0);
    click(129, 400);
    EXPECT_FALSE(recorder.scrubbing) << "not in the left column";
}

TEST_F(RecorderPress, ScrubbingReachesOverTheScrollBarsColumn) {
    down(1275, 417);
    EXPECT_TRUE(recorder.scrubbing);
    EXPECT_DOUBLE_EQ(recorder.playhead, (1275.0 - 130.0) / 38.0);
}

TEST_F(RecorderPress, CheckBoxTurnsAChannelOffAndOn) {
    click(96, kTop + 34 + 12);
    EXPECT_FALSE(recorder.channels[1].enabled);
    click(107, kTop + 34 + 23);
    EXPECT_TRUE(recorder.channels[1].enabled);
    for (const SDL_Point& beside :
         {SDL_Point{95, kTop + 15}, {108, kTop + 15}, {100, kTop + 11}, {100, kTop + 24}})
        click(beside.x, beside.y);
    EXPECT_TRUE(recorder.channels[0].enabled);
    EXPECT_FALSE(recorder.channels[0].locked);
}

TEST_F(RecorderPress, LockBoxLocksAndUnlocks) {
    click(112, kTop + 12);
    EXPECT_TRUE(recorder.channels[0].locked);
    EXPECT_TRUE(recorder.channels[0].enabled);
    click(123, kTop + 23);
    EXPECT_FALSE(recorder.channels[0].locked);
    click(124, kTop + 23);
    EXPECT_FALSE(recorder.channels[0].locked);
}

TEST_F(RecorderPress, BoxesOfRowsHiddenUnderTheRulerCannotBePressed) {
    recorder.channelCount = 32;
    recorder.scrollY = 30;  // row 0's check box lies at 418 + 12 - 30 = 400
    click(100, 405);
    EXPECT_TRUE(recorder.channels[0].enabled);
    click(100, kTop + 34 + 14 - 30);
    EXPECT_FALSE(recorder.channels[1].enabled);
}

TEST_F(RecorderPress, BoxesBelowTheLastRowDoNothing) {
    click(100, kTop + 4 * 34 + 15);
    for (const RecorderChannel& channel : recorder.channels)
        EXPECT_TRUE(channel.enabled);
}

TEST_F(RecorderPress, RewindGoesToTheStartAndGoesOnPlaying) {
    recorder.playhead = 50.0;
    recorder.viewStart = 40.0;
    recorder.playing = true;
    click(8, 664);
    EXPECT_DOUBLE_EQ(recorder.playhead, 0.0);
    EXPECT_DOUBLE_EQ(recorder.viewStart, 0.0);
    EXPECT_TRUE(recorder.playing);
}

TEST_F(RecorderPress, PlayGoesRoundPlayingAndPaused) {
    clip(0, 440.0, 0.0, 5.0);
    click(38, 685);
    EXPECT_TRUE(recorder.playing);
    tickRecorder(recorder, 0.05f);
    EXPECT_EQ(recorder.activeClips.size(), 1u);
    click(87, 664);
    EXPECT_TRUE(recorder.playing && recorder.paused);
    EXPECT_TRUE(recorder.activeClips.empty());
    click(60, 670);
    EXPECT_TRUE(recorder.playing);
    EXPECT_FALSE(recorder.paused);
}

TEST_F(RecorderPress, ToTheEndShowsTheEnd) {
    click(92, 670);
    EXPECT_DOUBLE_EQ(recorder.playhead, 0.0) << "nothing there";
    clip(0, 440.0, 1.0, 25.0);
    click(119, 670);
    EXPECT_DOUBLE_EQ(recorder.playhead, 25.0);
    EXPECT_DOUBLE_EQ(recorder.viewStart, 0.0) << "within one view";
    clip(7, 440.0, 1.0, 100.0);  // of a hidden channel
    click(105, 670);
    EXPECT_DOUBLE_EQ(recorder.playhead, 100.0);
    EXPECT_DOUBLE_EQ(recorder.viewStart, 73.0);
}

TEST_F(RecorderPress, ToTheEndOfLessThanAHundredthIsTheStart) {
    clip(0, 440.0, 0.0, 0.009);
    recorder.playhead = 3.0;
    click(105, 670);
    EXPECT_DOUBLE_EQ(recorder.playhead, 0.0);
}

TEST_F(RecorderPress, ExportAndCalcCallTheirOwners) {
    click(150, 670);
    click(200, 670);
    int exports = 0;
    int toggles = 0;
    recorder.onExportRecorder = [&] { ++exports; };
    recorder.onToggleCalc = [&] { ++toggles; };
    click(124, 664);
    click(183, 685);
    EXPECT_EQ(exports, 2);
    click(188, 664);
    click(225, 685);
    click(226, 685);
    click(186, 685);
    EXPECT_EQ(exports, 2);
    EXPECT_EQ(toggles, 2);
}

TEST_F(RecorderPress, ButtonsEndWithTheirRow) {
    click(60, 663);
    click(60, 686);
    EXPECT_FALSE(recorder.playing);
}

TEST_F(RecorderPress, APressSelectsOneClipAndAnEmptyPlaceNone) {
    RecorderClip& first = clip(0, 440.0, 1.0, 3.0);
    RecorderClip& second = clip(1, 440.0, 1.0, 3.0);
    click(at(2), rowY(0));
    EXPECT_TRUE(first.selected);
    EXPECT_EQ(recorder.lastClickClip, &first);
    click(at(2), rowY(1));
    EXPECT_FALSE(first.selected);
    EXPECT_TRUE(second.selected);
    click(at(10), rowY(1));
    EXPECT_FALSE(second.selected);
    EXPECT_EQ(recorder.lastClickClip, nullptr);
}

TEST_F(RecorderPress, ClipsOwnTheirEdges) {
    RecorderClip& made = clip(0, 440.0, 10.0, 12.0);
    const auto hits = [&](int x, int y) {
        made.selected = false;
        click(x, y);
        input.ticks += 1000;
        return made.selected;
    };
    EXPECT_TRUE(hits(510, rowY(0)));
    EXPECT_TRUE(hits(586, rowY(0)));
    EXPECT_FALSE(hits(509, rowY(0)));
    EXPECT_FALSE(hits(587, rowY(0)));
    EXPECT_TRUE(hits(550, kTop + 2));
    EXPECT_TRUE(hits(550, kTop + 32));
    EXPECT_FALSE(hits(550, kTop + 1));
    EXPECT_FALSE(hits(550, kTop + 33));
}

TEST_F(RecorderPress, TheClipDrawnLastIsTheOneHit) {
    clip(0, 500.0, 1.0, 5.0);
    clip(0, 300.0, 1.0, 5.0);
    RecorderClip& top = clip(0, 500.0, 1.0, 5.0);
    click(at(3), rowY(0));
    EXPECT_EQ(recorder.lastClickClip, &top);
}

TEST_F(RecorderPress, HiddenChannelsCannotBeHit) {
    recorder.channelCount = 8;
    RecorderClip& made = clip(4, 440.0, 1.0, 5.0);
    click(at(3), rowY(4));
    EXPECT_TRUE(made.selected);
    click(at(20), rowY(0));
    recorder.channelCount = 4;
    click(at(3), rowY(4));
    EXPECT_FALSE(made.selected);
}

TEST_F(RecorderPress, AClipUnderTheTransportBarOrTheColumnIsNotHit) {
    recorder.channelCount = 32;
    RecorderClip& low = clip(7, 440.0, 0.0, 30.0);  // row 7 from 656 to 690
    click(at(3), kBottom + 1);
    EXPECT_FALSE(low.selected);
    RecorderClip& early = clip(0, 440.0, 0.0, 30.0);
    recorder.viewStart = 10.0;
    click(60, rowY(0));
    EXPECT_FALSE(early.selected);
    click(1275, rowY(2));
    EXPECT_FALSE(early.selected) << "the scroll bar's column";
}

TEST_F(RecorderPress, CtrlAddsAndTakesAway) {
    RecorderClip& first = clip(0, 440.0, 1.0, 3.0);
    RecorderClip& second = clip(1, 440.0, 1.0, 3.0);
    click(at(2), rowY(0));
    ctrlDown(at(2), rowY(1));
    up();
    EXPECT_TRUE(first.selected && second.selected);
    input.ticks += 1000;
    ctrlDown(at(2), rowY(1));
    EXPECT_TRUE(first.selected);
    EXPECT_FALSE(second.selected);
    EXPECT_EQ(recorder.grabbedClip, &second) << "deselected and yet in hand";
    EXPECT_TRUE(recorder.movingClip);
    move(at(2) + 38, rowY(1));
    EXPECT_NEAR(second.start, 2.0, 1e-9);
    EXPECT_NEAR(first.start, 1.0, 1e-9) << "an unselected clip moves alone";
}

TEST_F(RecorderPress, TwoQuickPressesOpenTheEditor) {
    RecorderClip& made = clip(1, 440.0, 1.0, 3.0);
    doubleClick(at(2), rowY(1), 399);
    EXPECT_TRUE(recorder.editOpen);
    EXPECT_EQ(recorder.editClip, &made);
    EXPECT_EQ(recorder.editChannel, 1);
    EXPECT_EQ(recorder.lastClickClip, nullptr);
    EXPECT_EQ(recorder.lastClickTicks, 0u);
    EXPECT_EQ(recorder.grabbedClip, nullptr) << "nothing is held";
}

TEST_F(RecorderPress, FourHundredMillisecondsAreTwoPresses) {
    clip(1, 440.0, 1.0, 3.0);
    doubleClick(at(2), rowY(1), 400);
    EXPECT_FALSE(recorder.editOpen);
    input.ticks -= 1000;
    input.ticks += 399;
    click(at(2), rowY(1));
    EXPECT_TRUE(recorder.editOpen) << "the second was the first of another pair";
}

TEST_F(RecorderPress, TheTicksMayRunOver) {
    clip(1, 440.0, 1.0, 3.0);
    input.ticks = 0xFFFFFF80u;
    doubleClick(at(2), rowY(1), 300);
    EXPECT_TRUE(recorder.editOpen);
}

TEST_F(RecorderPress, PressesOnTwoClipsAreNoDoubleClick) {
    clip(0, 440.0, 1.0, 3.0);
    clip(1, 440.0, 1.0, 3.0);
    click(at(2), rowY(0));
    input.ticks += 50;
    click(at(2), rowY(1));
    EXPECT_FALSE(recorder.editOpen);
    input.ticks += 50;
    click(at(10), rowY(1));
    input.ticks += 50;
    click(at(2), rowY(1));
    EXPECT_FALSE(recorder.editOpen) << "the empty place came between";
}

TEST_F(RecorderPress, MiddleButtonPansUntilItsRelease) {
    recorder.viewStart = 10.0;
    EXPECT_TRUE(down(600, 500, SDL_BUTTON_MIDDLE));
    EXPECT_TRUE(move(600 - 76, 100));
    EXPECT_NEAR(recorder.viewStart, 12.0, 1e-9);
    move(600 + 3800, 100);
    EXPECT_DOUBLE_EQ(recorder.viewStart, 0.0) << "never before 0";
    up(0, 0, SDL_BUTTON_LEFT);
    EXPECT_TRUE(recorder.panning);
    EXPECT_TRUE(up(0, 0, SDL_BUTTON_MIDDLE));
    EXPECT_FALSE(recorder.panning);
    EXPECT_FALSE(move(600, 500));
    EXPECT_FALSE(up(0, 0, SDL_BUTTON_MIDDLE)) << "nothing to end";
    EXPECT_FALSE(down(600, 300, SDL_BUTTON_MIDDLE)) << "outside";
}

TEST_F(RecorderPress, OtherEventsAreNotUsed) {
    SDL_Event event;
    SDL_zero(event);
    event.type = SDL_WINDOWEVENT;
    EXPECT_FALSE(send(event));
    EXPECT_FALSE(move(600, 500));
    EXPECT_FALSE(type("1"));
}

}  // namespace
}  // namespace veloria
