// Title bar, band, ruler, grid and range as they look.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kBackground{12, 12, 18, 255};
constexpr SDL_Color kTitle{20, 20, 32, 255};
constexpr SDL_Color kBand{16, 16, 26, 255};
constexpr SDL_Color kRuler{18, 18, 28, 255};

class RecorderHead : public test::RecorderPanelTest {
  protected:
    // What additive blending makes of a colour.
    static SDL_Color added(SDL_Color top, SDL_Color below) {
        const auto sum = [&](int a, int b) { return static_cast<Uint8>(std::min(255, b + a * top.a / 255)); };
        return {sum(top.r, below.r), sum(top.g, below.g), sum(top.b, below.b), 255};
    }
};

TEST_F(RecorderHead, FillsItsRectangleAndNoMore) {
    area = {100, 300, 900, 300};
    const Picture seen = drawn();
    for (int x = 0; x < 1280; ++x) {
        EXPECT_EQ(seen.at(x, 299), kBackdrop);
        EXPECT_EQ(seen.at(x, 600), kBackdrop);
    }
    for (int y = 0; y < 720; ++y) {
        EXPECT_EQ(seen.at(99, y), kBackdrop);
        EXPECT_EQ(seen.at(1000, y), kBackdrop);
    }
    EXPECT_FALSE(seen.at(100, 300) == kBackdrop);
    EXPECT_FALSE(seen.at(999, 599) == kBackdrop);
}

TEST_F(RecorderHead, TitleBarHasItsNameAndTheNumberOfClips) {
    clip(0, 440.0, 1.0, 2.0);
    clip(1, 441.0, 1.0, 2.0);
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(700, 360), kTitle));
    EXPECT_TRUE(isColor(seen.at(0, 360), over({80, 140, 255, 200}, kTitle)));
    EXPECT_TRUE(isColor(seen.at(3, 373), over({80, 140, 255, 200}, kTitle)));
    EXPECT_TRUE(isColor(seen.at(4, 360), kTitle));
    expectText(seen, "MIDI RECORDER", 12, 355, fonts.fontRow, {180, 200, 255, 255}, kTitle);
    expectText(seen, "2 clips", 180, 358, fonts.fontLabel, {120, 140, 180, 200}, kTitle);
}

TEST_F(RecorderHead, ChannelCountStandsBetweenItsButtons) {
    recorder.channelCount = 17;
    const Picture seen = drawn();
    const SDL_Color minus = over({50, 25, 25, 220}, kTitle);
    const SDL_Color plus = over({25, 50, 25, 220}, kTitle);
    EXPECT_TRUE(isColor(seen.at(1204, 355), minus));
    EXPECT_TRUE(isColor(seen.at(1202, 353), over({180, 80, 80, 200}, minus)));
    EXPECT_TRUE(isColor(seen.at(1219, 370), over({180, 80, 80, 200}, minus)));
    EXPECT_TRUE(isColor(seen.at(1211, 362), over({180, 80, 80, 200}, minus))) << "the line across";
    EXPECT_TRUE(isColor(seen.at(1211, 358), minus));
    EXPECT_TRUE(isColor(seen.at(1226, 355), plus));
    EXPECT_TRUE(isColor(seen.at(1224, 353), over({80, 180, 80, 200}, plus)));
    EXPECT_TRUE(isColor(seen.at(1230, 362), over({80, 180, 80, 200}, plus)));
    EXPECT_TRUE(isColor(seen.at(1233, 358), over({80, 180, 80, 200}, plus))) << "the cross";
    expectText(seen, "CH:17", 1248, 358, fonts.fontLabel, {140, 160, 200, 200}, kTitle);
}

TEST_F(RecorderHead, BandShowsThePlayheadCutToHundredths) {
    recorder.playhead = 83.459;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(700, 385), kBand));
    EXPECT_TRUE(isColor(seen.at(700, 395), over({36, 36, 56, 200}, kBand)));
    EXPECT_TRUE(isColor(seen.at(8, 376), over({50, 50, 80, 200}, {10, 10, 18, 255})));
    EXPECT_TRUE(isColor(seen.at(65, 393), over({50, 50, 80, 200}, {10, 10, 18, 255})));
    expectText(seen, "01:23.45", 11, 378, fonts.fontLabel, {160, 180, 220, 240}, {10, 10, 18, 255});
}

TEST_F(RecorderHead, RangeBoxesShowTheirValues) {
    recorder.rangeStart = 2.25;
    const Picture seen = drawn();
    expectText(seen, "From", 104, 379, fonts.fontLabel, {160, 180, 220, 240}, kBand);
    expectText(seen, "2.2", 139, 378, fonts.fontLabel, {160, 180, 220, 240}, {10, 10, 18, 255});
    expectText(seen, "To", 201, 379, fonts.fontLabel, {160, 180, 220, 240}, kBand);
    expectText(seen, "250.0", 223, 378, fonts.fontLabel, {160, 180, 220, 240}, {10, 10, 18, 255});
}

TEST_F(RecorderHead, OpenRangeBoxIsLitAndShowsTheTypingWithACursor) {
    click(150, 385);
    recorder.rangeText = "7.5";
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(136, 376), {100, 220, 255, 255}));
    EXPECT_TRUE(isColor(seen.at(220, 376), over({50, 50, 80, 200}, {10, 10, 18, 255})));
    expectText(seen, "7.5_", 139, 378, fonts.fontLabel, {160, 180, 220, 240}, {10, 10, 18, 255});
}

TEST_F(RecorderHead, LongTypingStaysInsideItsBoxAndShowsItsEnd) {
    click(150, 385);
    recorder.rangeText = std::string(5000, '1');
    const Picture before = drawn();
    EXPECT_TRUE(isColor(before.at(190, 385), kBand));
    EXPECT_TRUE(isColor(before.at(134, 385), kBand));
    recorder.rangeText += "7";
    EXPECT_FALSE(drawn() == before) << "the last character is seen";
}

TEST_F(RecorderHead, SwitchIsLitWhileTheRangeIsOn) {
    const Picture off = drawn();
    EXPECT_TRUE(isColor(off.at(283, 379), {30, 30, 45, 255}));
    EXPECT_TRUE(isColor(off.at(280, 376), over({60, 130, 255, 160}, {30, 30, 45, 255})));
    recorder.rangeEnabled = true;
    EXPECT_TRUE(isColor(drawn().at(283, 379), over({40, 80, 180, 220}, kBand)));
}

TEST_F(RecorderHead, RulerHasALabelAtEachMarkAndATickOverEachRow) {
    const Picture seen = drawn();  // 30 s: a mark every 2 s, 76 pixels apart
    EXPECT_TRUE(isColor(seen.at(60, 400), {16, 16, 24, 255}));
    EXPECT_TRUE(isColor(seen.at(500, 397), kRuler));
    EXPECT_TRUE(isColor(seen.at(at(4), 412), over({80, 80, 120, 200}, kRuler)));
    EXPECT_TRUE(isColor(seen.at(at(4), 417), over({80, 80, 120, 200}, kRuler)));
    EXPECT_TRUE(isColor(seen.at(at(4), 411), kRuler));
    EXPECT_TRUE(isColor(seen.at(at(5), 414), kRuler)) << "no mark at 5 s";
    expectText(seen, "0:04", at(4) + 2, 399, fonts.fontLabel, {110, 120, 160, 200}, kRuler);
    expectText(seen, "0:10", at(10) + 2, 399, fonts.fontLabel, {110, 120, 160, 200}, kRuler);
}

TEST_F(RecorderHead, GridLinesShowOnTheRowsAndBelowTheLast) {
    const Picture seen = drawn();  // four rows end at y 554
    EXPECT_TRUE(isColor(seen.at(at(4), 600), over({28, 28, 42, 120}, kBackground)));
    EXPECT_TRUE(isColor(seen.at(at(10), 600), over({40, 40, 60, 180}, kBackground))) << "major";
    EXPECT_TRUE(isColor(seen.at(at(5), 600), kBackground));
    constexpr SDL_Color kEven{14, 14, 22, 255};
    constexpr SDL_Color kOdd{10, 10, 18, 255};
    EXPECT_TRUE(isColor(seen.at(at(4), 430), over({28, 28, 42, 120}, kEven), 1)) << "on the first row";
    EXPECT_TRUE(isColor(seen.at(at(10), 430), over({40, 40, 60, 180}, kEven), 1));
    EXPECT_TRUE(isColor(seen.at(at(10), 464), over({40, 40, 60, 180}, kOdd), 1));
    EXPECT_TRUE(isColor(seen.at(at(5), 430), kEven, 1));
}

TEST_F(RecorderHead, ClipsLieOverTheGridAndTheRange) {
    recorder.rangeEnabled = true;
    recorder.rangeStart = 8.0;
    recorder.rangeEnd = 12.0;
    RecorderClip& made = clip(0, 440.0, 9.0, 11.0);
    made.colour = {200, 100, 50, 255};
    made.selected = true;
    const Picture seen = drawn();
    const SDL_Color tinted = added({40, 80, 180, 25}, over({40, 40, 60, 180}, {14, 14, 22, 255}));
    const SDL_Color body = over({66, 33, 16, 220}, tinted);
    EXPECT_TRUE(isColor(seen.at(at(10), 430), body, 3)) << "the clip's ground over a major line";
    const SDL_Color odd = added({40, 80, 180, 25}, {10, 10, 18, 255});
    EXPECT_TRUE(isColor(seen.at(at(9), 464), odd, 1)) << "the next row, tinted by the range";
    EXPECT_TRUE(isColor(seen.at(at(13), 464), {10, 10, 18, 255}, 1)) << "beside the range";
}

TEST_F(RecorderHead, FineStepsAreLabelledAtTheMajorMarksOnly) {
    recorder.viewSpan = 4.0;  // a mark every quarter second, 71.25 pixels apart; a major one every second
    recorder.viewStart = 61.0;
    const Picture seen = drawn();
    expectText(seen, "1:02.00", 130 + 285 + 2, 399, fonts.fontLabel, {110, 120, 160, 200}, kRuler);
    for (int x = 130 + 72; x < 130 + 285; ++x)
        EXPECT_TRUE(isColor(seen.at(x, 405), kRuler) || x < 130 + 60) << "no label between, x " << x;
    EXPECT_TRUE(isColor(seen.at(130 + 71, 414), over({80, 80, 120, 200}, kRuler))) << "but a tick";
}

TEST_F(RecorderHead, AMarkBeforeTheViewStaysOutOfTheLeftColumn) {
    recorder.viewStart = 1.0;
    const Picture seen = drawn();  // the mark at 0 s would lie at x 92
    EXPECT_TRUE(isColor(seen.at(92, 414), {16, 16, 24, 255}));
    EXPECT_TRUE(isColor(seen.at(92, 600), kBackground));
}

TEST_F(RecorderHead, AViewBeyondAllMarksHasNoGrid) {
    recorder.viewStart = 1e200;
    recorder.playhead = 1e250;
    clip(0, 440.0, 1e199, 1e201);
    const Picture seen = drawn();
    for (int x = 140; x < 1260; ++x)
        ASSERT_TRUE(isColor(seen.at(x, 414), kRuler)) << x;
}

TEST_F(RecorderHead, RangeBrightensRulerAndGround) {
    recorder.rangeStart = 5.0;
    recorder.rangeEnd = 9.0;
    EXPECT_TRUE(isColor(drawn().at(at(7), 397), kRuler)) << "switched off";
    recorder.rangeEnabled = true;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(at(7), 397), added({40, 80, 180, 35}, kRuler)));
    EXPECT_TRUE(isColor(seen.at(at(7), 600), added({40, 80, 180, 25}, kBackground)));
    EXPECT_TRUE(isColor(seen.at(at(9), 600), added({60, 130, 255, 160}, kBackground)));
    EXPECT_TRUE(
        isColor(seen.at(at(5), 397), added({60, 130, 255, 160}, added({40, 80, 180, 35}, kRuler)), 3));
    EXPECT_TRUE(isColor(seen.at(at(9) + 3, 600), kBackground));
    recorder.rangeEnd = 5.0;
    EXPECT_TRUE(isColor(drawn().at(at(5), 600), kBackground)) << "an empty range is none";
}

TEST_F(RecorderHead, RangeFarOutsideTheViewColoursNoneOfTheColumn) {
    recorder.rangeEnabled = true;
    recorder.viewStart = 100.0;
    recorder.rangeStart = 0.0;
    recorder.rangeEnd = 1e12;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(60, 600), kBackground));
    EXPECT_TRUE(isColor(seen.at(1275, 398), kBackground));
    EXPECT_TRUE(isColor(seen.at(200, 600), added({40, 80, 180, 25}, kBackground)));
}

}  // namespace
}  // namespace veloria
