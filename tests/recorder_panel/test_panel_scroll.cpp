// The wheel's three meanings and the two scroll bars.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::kTop;

class RecorderScroll : public test::RecorderPanelTest {
  protected:
    [[nodiscard]] double timeAt(int x) const {
        return recorder.viewStart + (x - 130.0) / 1140.0 * recorder.viewSpan;
    }
};

TEST_F(RecorderScroll, WheelZoomsRoundTheTimeUnderThePointer) {
    recorder.viewStart = 40.0;
    const double before = timeAt(700);
    EXPECT_TRUE(wheel(700, 500, 1));
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 25.5);
    EXPECT_NEAR(timeAt(700), before, 1e-9);
    wheel(700, 500, -1);
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 25.5 * 1.18);
    EXPECT_NEAR(timeAt(700), before, 1e-9);
}

TEST_F(RecorderScroll, SpanStaysBetweenTwoSecondsAndTenMinutes) {
    for (int i = 0; i < 60; ++i)
        wheel(700, 500, 1);
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 2.0);
    for (int i = 0; i < 100; ++i)
        wheel(700, 500, -1);
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 600.0);
}

TEST_F(RecorderScroll, AtTheWidestTheViewStaysWhereItIs) {
    recorder.viewSpan = 600.0;
    recorder.viewStart = 50.0;
    wheel(300, 500, -1);
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 600.0);
    EXPECT_NEAR(recorder.viewStart, 50.0, 1e-9);
}

TEST_F(RecorderScroll, ZoomingOutStopsAtZero) {
    recorder.viewStart = 0.5;
    wheel(1200, 500, -1);
    EXPECT_DOUBLE_EQ(recorder.viewStart, 0.0);
}

TEST_F(RecorderScroll, SidewaysWheelZoomsNothing) {
    EXPECT_TRUE(wheel(700, 500, 0)) << "and yet is the panel's";
    EXPECT_TRUE(wheel(700, 500, 0, KMOD_LCTRL));
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 30.0);
    EXPECT_FLOAT_EQ(recorder.rowZoom, 1.0f);
}

TEST_F(RecorderScroll, WheelOutsideThePanelIsNotUsed) {
    EXPECT_FALSE(wheel(700, 349, 1));
    EXPECT_FALSE(wheel(700, 690, 1));
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 30.0);
}

TEST_F(RecorderScroll, CtrlZoomsTheRowsRoundThePointer) {
    recorder.channelCount = 32;
    recorder.scrollY = 200;
    EXPECT_TRUE(wheel(700, kTop + 100, 1, KMOD_RCTRL));
    EXPECT_FLOAT_EQ(recorder.rowZoom, 1.15f);
    // 39 pixels a row: 1248 * (200 + 100) / 1088 - 100 = 244.1
    EXPECT_EQ(recorder.scrollY, 244);
    EXPECT_DOUBLE_EQ(recorder.viewSpan, 30.0);
}

TEST_F(RecorderScroll, RowZoomStaysBetweenItsLimitsAndTheScrollInItsOwn) {
    recorder.channelCount = 32;
    for (int i = 0; i < 30; ++i)
        wheel(700, 650, 1, KMOD_LCTRL);
    EXPECT_FLOAT_EQ(recorder.rowZoom, 4.0f);
    EXPECT_LE(recorder.scrollY, 32 * 136 - 242);
    for (int i = 0; i < 60; ++i)
        wheel(700, 500, -1, KMOD_LCTRL);
    EXPECT_FLOAT_EQ(recorder.rowZoom, 0.4f);
    EXPECT_LE(recorder.scrollY, 32 * 13 - 242);
    EXPECT_GE(recorder.scrollY, 0);
}

TEST_F(RecorderScroll, ShiftScrollsByARow) {
    recorder.channelCount = 32;
    EXPECT_TRUE(wheel(700, 500, -1, KMOD_LSHIFT));
    EXPECT_EQ(recorder.scrollY, 34);
    wheel(700, 500, -3, KMOD_RSHIFT);
    EXPECT_EQ(recorder.scrollY, 68) << "one row, however many notches";
    wheel(700, 500, 1, KMOD_LSHIFT);
    EXPECT_EQ(recorder.scrollY, 34);
    wheel(700, 500, 0, KMOD_LSHIFT);
    EXPECT_EQ(recorder.scrollY, 0) << "no movement counts as upward";
    wheel(700, 500, 1, KMOD_LSHIFT);
    EXPECT_EQ(recorder.scrollY, 0);
    for (int i = 0; i < 50; ++i)
        wheel(700, 500, -1, KMOD_LSHIFT);
    EXPECT_EQ(recorder.scrollY, 846);
}

TEST_F(RecorderScroll, CtrlComesBeforeShift) {
    recorder.channelCount = 32;
    wheel(700, kTop, -1, static_cast<SDL_Keymod>(KMOD_LCTRL | KMOD_LSHIFT));
    EXPECT_FLOAT_EQ(recorder.rowZoom, 0.87f);
}

TEST_F(RecorderScroll, VerticalBarFollowsTheShareOfItsTrack) {
    recorder.channelCount = 32;
    EXPECT_TRUE(down(1275, 430));
    EXPECT_TRUE(recorder.draggingRowScroll);
    move(100, 430 + 121);
    EXPECT_EQ(recorder.scrollY, 544);
    move(100, 5000);
    EXPECT_EQ(recorder.scrollY, 846);
    move(100, -5000);
    EXPECT_EQ(recorder.scrollY, 0);
    move(100, 431);
    EXPECT_EQ(recorder.scrollY, 4);  // 1088 / 242 = 4.49
    up();
    EXPECT_FALSE(recorder.draggingRowScroll);
}

TEST_F(RecorderScroll, VerticalBarWithoutAThumbCannotBeHeld) {
    down(1275, 430);
    EXPECT_FALSE(recorder.draggingRowScroll);
}

TEST_F(RecorderScroll, HorizontalBarFollowsALittleMoreThanTheArrangement) {
    clip(0, 440.0, 0.0, 95.0);
    EXPECT_TRUE(down(300, 652));
    EXPECT_TRUE(recorder.draggingTimeScroll);
    move(300 + 114, 100);
    EXPECT_NEAR(recorder.viewStart, 10.0, 1e-9);  // a tenth of 95 + 5
    move(-500, 100);
    EXPECT_DOUBLE_EQ(recorder.viewStart, 0.0);
    up();
    EXPECT_FALSE(recorder.draggingTimeScroll);
}

TEST_F(RecorderScroll, EmptyArrangementScrollsByOneAndAHalfViews) {
    down(1270, 658);
    EXPECT_TRUE(recorder.draggingTimeScroll) << "the column behind the timeline";
    move(1270 + 114, 658);
    EXPECT_NEAR(recorder.viewStart, 4.5, 1e-9);
}

TEST_F(RecorderScroll, HorizontalBarIsSevenHigh) {
    for (const int y : {651, 659}) {
        down(300, y);
        EXPECT_FALSE(recorder.draggingTimeScroll) << y;
        up();
    }
    down(129, 655);
    EXPECT_FALSE(recorder.draggingTimeScroll);
}

TEST_F(RecorderScroll, TheVerticalBarWinsTheCorner) {
    recorder.channelCount = 32;
    down(1270, 655);
    EXPECT_TRUE(recorder.draggingRowScroll);
    EXPECT_FALSE(recorder.draggingTimeScroll);
}

TEST_F(RecorderScroll, AGrownPanelHoldsTheScrollAnew) {
    recorder.channelCount = 10;
    recorder.scrollY = 98;  // 340 - 242
    area = {0, 300, 1280, 390};
    settleRecorderPanel(recorder, area);
    EXPECT_EQ(recorder.scrollY, 48);
}

}  // namespace
}  // namespace veloria
