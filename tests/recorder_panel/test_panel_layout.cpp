// Where everything stands, by hand.
#include <gtest/gtest.h>

#include "recorder_panel/panel_editor.h"
#include "recorder_panel/panel_layout.h"

namespace veloria {
namespace {

constexpr SDL_Rect kArea{10, 350, 1280, 340};

bool same(const SDL_Rect& a, const SDL_Rect& b) {
    return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
}

class RecorderLayoutTest : public testing::Test {
  protected:
    [[nodiscard]] RecorderLayout layout() const { return recorderLayout(recorder, kArea); }
    Recorder recorder;
};

TEST_F(RecorderLayoutTest, TimelineStandsBetweenTheColumnAndTheScrollBar) {
    const RecorderLayout l = layout();
    EXPECT_EQ(l.left, 140);
    EXPECT_EQ(l.width, 1140);
    EXPECT_EQ(l.rowH, 34);
    EXPECT_EQ(l.top, 418);
    EXPECT_EQ(l.bottom, 660);
    EXPECT_EQ(l.rowsH, 242);
    EXPECT_EQ(l.contentH, 136);
}

TEST_F(RecorderLayoutTest, RowHeightIsTruncated) {
    recorder.rowZoom = 0.4f;  // 13.6
    EXPECT_EQ(layout().rowH, 13);
    recorder.rowZoom = 4.0f;
    EXPECT_EQ(layout().rowH, 136);
}

TEST_F(RecorderLayoutTest, TimesAndColumnsAreEachOthersInverse) {
    const RecorderLayout l = layout();
    EXPECT_EQ(pixelOfTime(l, 0.0), 140);
    EXPECT_EQ(pixelOfTime(l, 10.0), 520);
    EXPECT_EQ(pixelOfTime(l, 10.01), 520);  // 520.38
    EXPECT_DOUBLE_EQ(timeOfPixel(l, 520), 10.0);
    EXPECT_DOUBLE_EQ(timeOfPixel(l, 102), -1.0);
    recorder.viewStart = 5.0;
    recorder.viewSpan = 60.0;
    EXPECT_EQ(pixelOfTime(layout(), 5.0), 140);
    EXPECT_DOUBLE_EQ(timeOfPixel(layout(), 140 + 19), 6.0);
}

TEST_F(RecorderLayoutTest, FarTimesStayInsideAnInt) {
    recorder.viewSpan = 2.0;
    EXPECT_GT(pixelOfTime(layout(), 1e300), 1000000);
    EXPECT_LT(pixelOfTime(layout(), -1e300), -1000000);
}

TEST_F(RecorderLayoutTest, WithoutATimelineEveryColumnIsTheViewsStart) {
    recorder.viewStart = 7.0;
    const RecorderLayout narrow = recorderLayout(recorder, {0, 0, 140, 340});
    EXPECT_EQ(narrow.width, 0);
    EXPECT_DOUBLE_EQ(timeOfPixel(narrow, 900), 7.0);
}

TEST_F(RecorderLayoutTest, RowUnderTheMouseFollowsTheScroll) {
    EXPECT_EQ(rowOfPixel(layout(), 418), 0);
    EXPECT_EQ(rowOfPixel(layout(), 451), 0);
    EXPECT_EQ(rowOfPixel(layout(), 452), 1);
    EXPECT_EQ(rowOfPixel(layout(), 418 + 135), 3);
    EXPECT_EQ(rowOfPixel(layout(), 418 + 136), -1);
    recorder.channelCount = 32;
    recorder.scrollY = 40;
    EXPECT_EQ(rowTop(layout(), 2), 418 + 68 - 40);
    EXPECT_EQ(rowOfPixel(layout(), 418), 1);
}

TEST_F(RecorderLayoutTest, LinesJustAboveTheFirstRowAreInNoRow) {
    for (const int y : {417, 410, 385, 384, 0})
        EXPECT_EQ(rowOfPixel(layout(), y), -1) << y;
}

TEST_F(RecorderLayoutTest, RowsOfNoHeightHoldNothing) {
    recorder.rowZoom = 0.02f;
    EXPECT_EQ(layout().rowH, 0);
    EXPECT_EQ(rowOfPixel(layout(), 430), -1);
}

TEST_F(RecorderLayoutTest, BoxesStandWhereTheyAreDrawn) {
    const RecorderLayout l = layout();
    EXPECT_TRUE(same(l.minus, {1212, 353, 18, 18}));
    EXPECT_TRUE(same(l.plus, {1234, 353, 18, 18}));
    EXPECT_TRUE(same(l.playheadBox, {18, 376, 58, 18}));
    EXPECT_TRUE(same(l.rangeStartBox, {146, 376, 52, 18}));
    EXPECT_TRUE(same(l.rangeEndBox, {230, 376, 52, 18}));
    EXPECT_TRUE(same(l.rangeSwitch, {290, 376, 52, 18}));
    EXPECT_TRUE(same(l.ruler, {140, 396, 1140, 22}));
    EXPECT_TRUE(same(l.rewind, {18, 664, 28, 22}));
    EXPECT_TRUE(same(l.play, {48, 664, 50, 22}));
    EXPECT_TRUE(same(l.toEnd, {102, 664, 28, 22}));
    EXPECT_TRUE(same(l.exportButton, {134, 664, 60, 22}));
    EXPECT_TRUE(same(l.calc, {198, 664, 38, 22}));
}

TEST_F(RecorderLayoutTest, CheckBoxAndLockStandInTheMiddleOfTheirRow) {
    const ChannelBoxes boxes = channelBoxes(layout(), 1);
    EXPECT_EQ(boxes.textY, 452 + 12);
    EXPECT_TRUE(same(boxes.check, {106, 464, 10, 10}));
    EXPECT_TRUE(same(boxes.checkHit, {106, 464, 12, 12}));
    EXPECT_TRUE(same(boxes.lockBody, {122, 468, 8, 6}));
    EXPECT_TRUE(same(boxes.lockHit, {122, 464, 12, 12}));
}

TEST_F(RecorderLayoutTest, EdgesOfAClipAreAnEighthOfItBetweenThreeAndSix) {
    EXPECT_EQ(clipPartAt({100, 114}, 100), ClipPart::Body) << "14 wide: no edges";
    EXPECT_EQ(clipPartAt({100, 114}, 114), ClipPart::Body);
    EXPECT_EQ(clipPartAt({100, 115}, 102), ClipPart::Start) << "15 / 8 is raised to 3";
    EXPECT_EQ(clipPartAt({100, 115}, 103), ClipPart::Body);
    EXPECT_EQ(clipPartAt({100, 115}, 112), ClipPart::Body);
    EXPECT_EQ(clipPartAt({100, 115}, 113), ClipPart::End);
    EXPECT_EQ(clipPartAt({100, 140}, 104), ClipPart::Start) << "40 / 8 is 5";
    EXPECT_EQ(clipPartAt({100, 140}, 105), ClipPart::Body);
    EXPECT_EQ(clipPartAt({100, 500}, 105), ClipPart::Start) << "lowered to 6";
    EXPECT_EQ(clipPartAt({100, 500}, 106), ClipPart::Body);
}

TEST_F(RecorderLayoutTest, VerticalThumbIsTheShareOfTheRowsThatIsSeen) {
    EXPECT_FALSE(hasRowThumb(layout()));
    recorder.channelCount = 32;  // 1088 high
    EXPECT_TRUE(hasRowThumb(layout()));
    EXPECT_TRUE(same(rowThumb(layout()), {1281, 418, 8, 53}));  // 242 / 1088 * 242 = 53.8
    recorder.scrollY = 544;
    EXPECT_EQ(rowThumb(layout()).y, 418 + 121);
    recorder.scrollY = 100000;
    EXPECT_EQ(rowThumb(layout()).y, 660 - 53) << "held inside the track";
    recorder.rowZoom = 4.0f;  // 4352 high
    EXPECT_EQ(rowThumb(layout()).h, 20) << "never lower";
}

TEST_F(RecorderLayoutTest, HorizontalThumbIsTheShareOfTheTimeThatIsSeen) {
    EXPECT_TRUE(same(timeThumb(layout(), 0.0), {140, 652, 1140, 7}));
    EXPECT_TRUE(same(timeThumb(layout(), 60.0), {140, 652, 570, 7}));
    recorder.viewStart = 15.0;
    EXPECT_EQ(timeThumb(layout(), 60.0).x, 140 + 285);
    recorder.viewStart = 1000.0;
    EXPECT_EQ(timeThumb(layout(), 60.0).x, 1280 - 570) << "held inside the track";
    EXPECT_EQ(timeThumb(layout(), 1e6).w, 20);
}

TEST_F(RecorderLayoutTest, StepOfTheRulerFollowsTheSpan) {
    const double cases[][2] = {{600.0, 10.0}, {120.1, 10.0}, {120.0, 5.0}, {60.1, 5.0},
                               {60.0, 2.0},   {20.1, 2.0},   {20.0, 1.0},  {10.1, 1.0},
                               {10.0, 0.5},   {5.1, 0.5},    {5.0, 0.25},  {2.0, 0.25}};
    for (const auto& [span, step] : cases)
        EXPECT_DOUBLE_EQ(gridStep(span), step) << span;
}

TEST_F(RecorderLayoutTest, EveryFiveSecondsOrEveryFourthStepIsMajor) {
    EXPECT_TRUE(isMajorMark(0.0, 2.0));
    EXPECT_FALSE(isMajorMark(4.0, 2.0));
    EXPECT_TRUE(isMajorMark(10.0, 2.0));
    EXPECT_TRUE(isMajorMark(15.0, 1.0));
    EXPECT_FALSE(isMajorMark(16.0, 1.0));
    EXPECT_TRUE(isMajorMark(4.0, 0.5));
    EXPECT_FALSE(isMajorMark(5.0, 0.5));
    EXPECT_TRUE(isMajorMark(5.0, 0.25));
    EXPECT_FALSE(isMajorMark(5.25, 0.25));
}

TEST_F(RecorderLayoutTest, HintIsLeftOutWhereItWouldRunOverTheState) {
    EXPECT_TRUE(recorderLayout(recorder, {0, 0, 970, 340}).hintShown);
    EXPECT_FALSE(recorderLayout(recorder, {0, 0, 969, 340}).hintShown);
}

TEST_F(RecorderLayoutTest, EditorIsPushedIntoThePanel) {
    recorder.editX = 5000;
    recorder.editY = 5000;
    EXPECT_TRUE(same(editorBox(recorder, kArea), {1050, 404, 240, 286}));
    recorder.editX = -5000;
    recorder.editY = -5000;
    EXPECT_TRUE(same(editorBox(recorder, kArea), {10, 350, 240, 286}));
    recorder.editX = 300;
    recorder.editY = 380;
    EXPECT_TRUE(same(editorBox(recorder, kArea), {300, 380, 240, 286}));
}

TEST_F(RecorderLayoutTest, EditorOfALowPanelStandsOnItsFoot) {
    recorder.editX = 300;
    recorder.editY = 550;
    EXPECT_TRUE(same(editorBox(recorder, {0, 540, 1280, 150}), {300, 404, 240, 286}));
}

TEST_F(RecorderLayoutTest, EditorOfANarrowPanelKeepsItsLeftEdge) {
    recorder.editX = 90;
    EXPECT_EQ(editorBox(recorder, {20, 350, 200, 340}).x, 20);
}

TEST_F(RecorderLayoutTest, EditorRowsAreTwentyApart) {
    const SDL_Rect box{100, 200, 240, 286};
    EXPECT_TRUE(same(editorRowBoxes(box, 0).track, {156, 226, 140, 8}));
    EXPECT_TRUE(same(editorRowBoxes(box, 11).track, {156, 446, 140, 8}));
    EXPECT_EQ(editorRowBoxes(box, 3).label.x, 104);
    EXPECT_EQ(editorRowBoxes(box, 3).label.y, 284);
    EXPECT_EQ(editorRowAt(box, 151, 230), -1);
    EXPECT_EQ(editorRowAt(box, 152, 222), 0);
    EXPECT_EQ(editorRowAt(box, 300, 238), 0) << "both ends belong to the row";
    EXPECT_EQ(editorRowAt(box, 301, 238), -1);
    EXPECT_EQ(editorRowAt(box, 200, 239), -1);
    EXPECT_EQ(editorRowAt(box, 200, 241), -1);
    EXPECT_EQ(editorRowAt(box, 200, 242), 1);
    EXPECT_EQ(editorRowAt(box, 200, 458), 11);
    EXPECT_EQ(editorRowAt(box, 200, 462), -1);
}

TEST_F(RecorderLayoutTest, EditorPositionIsHeldInsideTheTrack) {
    const SDL_Rect box{100, 200, 240, 286};
    EXPECT_DOUBLE_EQ(editorPositionAt(box, 0), 0.0);
    EXPECT_DOUBLE_EQ(editorPositionAt(box, 156), 0.0);
    EXPECT_DOUBLE_EQ(editorPositionAt(box, 226), 0.5);
    EXPECT_DOUBLE_EQ(editorPositionAt(box, 296), 1.0);
    EXPECT_DOUBLE_EQ(editorPositionAt(box, 300), 1.0);
}

}  // namespace
}  // namespace veloria
