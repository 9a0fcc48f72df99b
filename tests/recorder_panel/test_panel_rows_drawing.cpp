// Channel rows and the playhead as they look.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kTop;
using test::over;
using test::Picture;

constexpr SDL_Color kEven{14, 14, 22, 255};
constexpr SDL_Color kOdd{10, 10, 18, 255};
constexpr SDL_Color kColumn{16, 16, 26, 255};
constexpr SDL_Color kBackground{12, 12, 18, 255};
constexpr SDL_Color kPlayhead{80, 160, 255, 230};

class RecorderRows : public test::RecorderPanelTest {};

TEST_F(RecorderRows, EvenAndOddRowsDiffer) {
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(600, kTop), kEven));
    EXPECT_TRUE(isColor(seen.at(600, kTop + 34), kOdd));
    EXPECT_TRUE(isColor(seen.at(600, kTop + 68), kEven));
    EXPECT_TRUE(isColor(seen.at(600, kTop + 33), over({30, 30, 48, 150}, kEven))) << "the line on its foot";
    EXPECT_TRUE(isColor(seen.at(90, kTop + 5), kColumn));
    EXPECT_TRUE(isColor(seen.at(603, kTop + 140), kBackground)) << "below the last row";
}

TEST_F(RecorderRows, StripRunsThroughItsColoursModulo256) {
    recorder.channelCount = 7;
    recorder.channels[6].enabled = false;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(0, kTop + 3), over({100, 140, 180, 200}, kColumn))) << "-76 is 180";
    EXPECT_TRUE(isColor(seen.at(2, kTop + 34 + 3), over({118, 128, 186, 200}, kColumn)));
    EXPECT_TRUE(isColor(seen.at(0, kTop + 6 * 34 + 3), over({208, 68, 216, 60}, kColumn)));
    EXPECT_TRUE(isColor(seen.at(3, kTop + 3), kColumn));
}

TEST_F(RecorderRows, LateStripsWrapRound) {
    recorder.channelCount = 32;
    recorder.scrollY = 100000;
    const Picture seen = drawn();  // 1088 - 242 = 846 scrolled: row 31 begins at 418 + 1054 - 846
    EXPECT_EQ(recorder.scrollY, 846);
    // 100 + 558 = 658 is 146; 140 - 372 = -232 is 24; 186 - 76 = 110.
    EXPECT_TRUE(isColor(seen.at(1, 626 + 5), over({146, 24, 110, 200}, kColumn)));
}

TEST_F(RecorderRows, NameAndCheckBoxShowWhetherTheChannelIsOn) {
    recorder.channels[1].enabled = false;
    const Picture seen = drawn();
    expectText(seen, "Channel 1", 8, kTop + 12, fonts.fontLabel, {190, 200, 230, 255}, kColumn);
    expectText(seen, "Channel 2", 8, kTop + 46, fonts.fontLabel, {80, 80, 100, 150}, kColumn);
    EXPECT_TRUE(isColor(seen.at(96, kTop + 12), over({50, 50, 70, 200}, kColumn)));
    EXPECT_TRUE(isColor(seen.at(98, kTop + 14), {100, 220, 120, 255}));
    EXPECT_TRUE(isColor(seen.at(104, kTop + 20), {100, 220, 120, 255}));
    EXPECT_TRUE(isColor(seen.at(97, kTop + 14), kColumn));
    EXPECT_TRUE(isColor(seen.at(100, kTop + 50), kColumn)) << "no fill in row 2";
}

TEST_F(RecorderRows, LockIsFilledAndClosedOrOutlinedAndOpen) {
    recorder.channels[0].locked = true;
    const Picture seen = drawn();
    const SDL_Color locked = over({220, 160, 60, 200}, kColumn);
    const SDL_Color unlocked = over({60, 60, 80, 150}, kColumn);
    EXPECT_TRUE(isColor(seen.at(112, kTop + 16), locked));
    EXPECT_TRUE(isColor(seen.at(115, kTop + 18), locked)) << "filled";
    EXPECT_TRUE(isColor(seen.at(119, kTop + 21), locked));
    EXPECT_TRUE(isColor(seen.at(113, kTop + 15), locked)) << "left of the bow";
    EXPECT_TRUE(isColor(seen.at(118, kTop + 15), locked)) << "right of the bow";
    EXPECT_TRUE(isColor(seen.at(112, kTop + 50), unlocked));
    EXPECT_TRUE(isColor(seen.at(115, kTop + 52), kColumn)) << "hollow";
    EXPECT_TRUE(isColor(seen.at(113, kTop + 49), unlocked));
    EXPECT_TRUE(isColor(seen.at(118, kTop + 49), kColumn)) << "open";
}

TEST_F(RecorderRows, ScrollIsHeldAndRowsAreCutAtTheRuler) {
    recorder.channelCount = 8;  // 272 high: 30 may be scrolled
    recorder.scrollY = 500;
    const Picture seen = drawn();
    EXPECT_EQ(recorder.scrollY, 30);
    EXPECT_TRUE(isColor(seen.at(600, kTop), kEven));
    EXPECT_TRUE(isColor(seen.at(600, kTop + 4), kOdd));
    EXPECT_TRUE(isColor(seen.at(80, 417), {16, 16, 24, 255})) << "the ruler's column is untouched";
    EXPECT_TRUE(isColor(seen.at(600, 657), over({30, 30, 48, 150}, kOdd)) ||
                isColor(seen.at(600, 651), kOdd));
    recorder.scrollY = -20;
    drawn();
    EXPECT_EQ(recorder.scrollY, 0);
}

TEST_F(RecorderRows, RowsEndAtTheTransportBar) {
    recorder.channelCount = 32;
    recorder.rowZoom = 4.0f;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(600, 640), kOdd));
    EXPECT_TRUE(isColor(seen.at(600, 661), {18, 18, 28, 255}));
}

TEST_F(RecorderRows, PlayheadRunsThroughRowsAndRulerUnderItsTriangle) {
    recorder.playhead = 15.0;
    recorder.channelCount = 1;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(at(15), kTop + 10), over(kPlayhead, kEven)));
    EXPECT_TRUE(isColor(seen.at(at(15) + 1, kTop + 10), over(kPlayhead, kEven)));
    EXPECT_TRUE(isColor(seen.at(at(15) + 2, kTop + 10), kEven));
    EXPECT_TRUE(isColor(seen.at(at(15) - 1, kTop + 10), kEven));
    EXPECT_TRUE(isColor(seen.at(at(15), 640), over(kPlayhead, kBackground)));
    EXPECT_TRUE(isColor(seen.at(at(15), 415), over(kPlayhead, {18, 18, 28, 255})));
    EXPECT_TRUE(isColor(seen.at(at(15) - 3, 396), over(kPlayhead, {18, 18, 28, 255}))) << "wide above";
    EXPECT_TRUE(isColor(seen.at(at(15) - 3, 403), {18, 18, 28, 255})) << "pointed below";
}

TEST_F(RecorderRows, PlayheadOutsideTheViewIsNotDrawn) {
    recorder.viewStart = 20.0;
    const Picture without = drawn();
    recorder.playhead = 0.001;  // the same text in its box, and another place left of the timeline
    EXPECT_TRUE(drawn() == without);
}

}  // namespace
}  // namespace veloria
