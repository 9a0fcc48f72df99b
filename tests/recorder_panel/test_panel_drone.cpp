// A frequency dragged from the list: the ghost and the drop.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::kBottom;
using test::kTop;
using test::over;

class RecorderDrone : public test::RecorderPanelTest {
  protected:
    RecorderDrone() {
        sample.gainInDb = -6.0f;
        sample.gainOutDb = -6.0f;
        sample.overrides = {4, 3, 2, 1, 0, 50, 60, 2};
        sample.bassFilter = true;
        sample.selected = true;  // must not be taken over
        sample.label = "sample";
    }
    bool drop(int x, int y, std::int32_t kind = 6) {
        beginDroneDrag(recorder, "528 Reflect", 528.0, kColour, kind, 9);
        return dropDrone(recorder, x, y, area, sample);
    }
    static constexpr SDL_Color kColour{200, 100, 50, 255};
    RecorderClip sample;
};

TEST_F(RecorderDrone, ADropOnARowMakesAClipOfTwoSeconds) {
    recorder.nextClipId = 7;
    EXPECT_TRUE(drop(at(5), rowY(2)));
    EXPECT_FALSE(recorder.droneDragging);
    const auto clips = clipsOfChannel(recorder, 2);
    ASSERT_EQ(clips.size(), 1u);
    const RecorderClip& made = *clips[0];
    EXPECT_EQ(made.id, 7);
    EXPECT_EQ(recorder.nextClipId, 8);
    EXPECT_DOUBLE_EQ(made.start, 5.0);
    EXPECT_DOUBLE_EQ(made.end, 7.0);
    EXPECT_DOUBLE_EQ(clipFrequency(recorder, &made), 528.0);
    EXPECT_EQ(made.label, "528 Reflect");
    EXPECT_EQ(made.sourceKind, 6);
    EXPECT_EQ(made.sourceIndex, 9);
    EXPECT_TRUE(made.colour == kColour);
    EXPECT_FLOAT_EQ(made.gainInDb, -6.0f);
    EXPECT_EQ(made.overrides.fibonacciCount, 4);
    EXPECT_EQ(made.overrides.waveform, 2);
    EXPECT_TRUE(made.bassFilter);
    EXPECT_FALSE(made.optimized);
    EXPECT_FALSE(made.selected);
    EXPECT_EQ(recorder.clipCount, 1);
}

TEST_F(RecorderDrone, EachListHasItsSide) {
    drop(at(1), rowY(0), 6);
    drop(at(1), rowY(1), 7);
    drop(at(1), rowY(2), 8);
    const auto clips = allClips(recorder);
    ASSERT_EQ(clips.size(), 3u);
    EXPECT_FLOAT_EQ(clips[0]->pan, 0.0f);
    EXPECT_FLOAT_EQ(clips[1]->pan, 1.0f);
    EXPECT_FLOAT_EQ(clips[2]->pan, 0.5f);
}

TEST_F(RecorderDrone, DropsOutsideTheRowsAddNothing) {
    EXPECT_FALSE(drop(129, rowY(0))) << "the left column";
    EXPECT_FALSE(drop(1271, rowY(0)));
    EXPECT_FALSE(drop(at(5), kTop - 1));
    EXPECT_FALSE(drop(at(5), kTop + 136)) << "below the last row";
    EXPECT_FALSE(recorder.droneDragging) << "the drag is over all the same";
    EXPECT_EQ(recorder.clipCount, 0);
    EXPECT_EQ(recorder.nextClipId, 1);
    EXPECT_TRUE(drop(130, kTop));
    EXPECT_TRUE(drop(1270, kTop + 135));
    EXPECT_EQ(recorder.clipCount, 2);
}

TEST_F(RecorderDrone, ADropBelowThePanelAddsNothing) {
    recorder.channelCount = 32;
    EXPECT_FALSE(drop(at(5), kBottom));
    EXPECT_TRUE(drop(at(5), kBottom - 1));
    EXPECT_EQ(clipsOfChannel(recorder, 7).size(), 1u);
}

TEST_F(RecorderDrone, ADropFollowsScrollAndView) {
    recorder.channelCount = 32;
    recorder.scrollY = 340;
    recorder.viewStart = 100.0;
    EXPECT_TRUE(drop(at(2), rowY(1)));
    ASSERT_EQ(clipsOfChannel(recorder, 11).size(), 1u);
    EXPECT_DOUBLE_EQ(clipsOfChannel(recorder, 11)[0]->start, 102.0);
}

TEST_F(RecorderDrone, ALockedRowTakesNoDrop) {
    recorder.channels[0].locked = true;
    EXPECT_FALSE(drop(at(2), rowY(0)));
    EXPECT_FALSE(recorder.droneDragging) << "the drag is over all the same";
    EXPECT_EQ(recorder.clipCount, 0);
    EXPECT_EQ(recorder.nextClipId, 1);
    EXPECT_TRUE(drop(at(2), rowY(1))) << "the row below it";
}

TEST_F(RecorderDrone, WithoutADragNothingIsDropped) {
    EXPECT_FALSE(dropDrone(recorder, at(2), rowY(0), area, sample));
    EXPECT_EQ(recorder.clipCount, 0);
}

TEST_F(RecorderDrone, ADroppedClipCanBeTakenAtOnce) {
    drop(at(5), rowY(0));
    down(at(6), rowY(0));
    move(at(8), rowY(3));
    up();
    ASSERT_EQ(clipsOfChannel(recorder, 3).size(), 1u);
    EXPECT_DOUBLE_EQ(clipsOfChannel(recorder, 3)[0]->start, 7.0);
}

TEST_F(RecorderDrone, GhostStandsRoundTheMouse) {
    setDragMouse(recorder, 400, 200);
    drawDroneGhost(context, recorder);
    EXPECT_EQ(touched(), 0) << "no drag, no ghost";
    beginDroneDrag(recorder, "528", 528.0, kColour, 6, 9);
    drawDroneGhost(context, recorder);
    const test::Picture seen = picture();
    const SDL_Color fill = over({200, 100, 50, 120}, kBackdrop);
    const SDL_Color border = over({200, 100, 50, 220}, fill);
    EXPECT_TRUE(isColor(seen.at(350, 186), border));
    EXPECT_TRUE(isColor(seen.at(449, 213), border));
    EXPECT_TRUE(isColor(seen.at(440, 210), fill));
    EXPECT_EQ(seen.at(349, 200), kBackdrop);
    EXPECT_EQ(seen.at(450, 200), kBackdrop);
    EXPECT_EQ(seen.at(400, 185), kBackdrop);
    EXPECT_EQ(seen.at(400, 214), kBackdrop);
    expectText(seen, "528", 354, 190, fonts.fontLabel, {240, 240, 255, 230}, fill);
}

TEST_F(RecorderDrone, GhostsTextStaysInItsBox) {
    setDragMouse(recorder, 400, 200);
    beginDroneDrag(recorder, "a name much longer than its little box", 528.0, kColour, 6, 9);
    drawDroneGhost(context, recorder);
    for (int y = 186; y < 214; ++y)
        EXPECT_EQ(picture().at(450, y), kBackdrop);
}

}  // namespace
}  // namespace veloria
