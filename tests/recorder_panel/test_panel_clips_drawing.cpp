// Clips as they look: what each width has room for.
#include <cmath>

#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kTop;
using test::over;
using test::Picture;

constexpr SDL_Color kRow{14, 14, 22, 255};
constexpr SDL_Color kFull{150, 210, 90, 255};
constexpr SDL_Color kThird{50, 70, 30, 255};

SDL_Color alpha(SDL_Color color, int a) {
    color.a = static_cast<Uint8>(a);
    return color;
}

class RecorderClips : public test::RecorderPanelTest {
  protected:
    // In the first row, so many pixels wide from x 548, between two lines of the grid.
    RecorderClip& wide(int pixels, double hz = 440.0) {
        RecorderClip& made = clip(0, hz, 11.0, 11.0 + (pixels + 0.5) / 38.0);
        made.colour = kFull;
        return made;
    }
    const SDL_Color body = over(alpha(kThird, 160), kRow);
    const SDL_Color band = over(alpha(kFull, 160), body);
    static constexpr int x0 = 548;
};

TEST_F(RecorderClips, NarrowestIsALine) {
    RecorderClip& made = wide(2);
    made.colour.a = 200;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 2), over(alpha(kFull, 200), kRow)));
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 30), over(alpha(kFull, 200), kRow)));
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 1), kRow));
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 31), kRow));
    EXPECT_TRUE(isColor(seen.at(x0 + 1, kTop + 10), kRow)) << "one column only";
}

TEST_F(RecorderClips, LinesOfABucketInOneColumnAreDrawnOnce) {
    wide(1).colour.a = 100;
    wide(0).colour.a = 100;
    EXPECT_TRUE(isColor(drawn().at(x0, kTop + 9), over(alpha(kFull, 100), kRow)));
    wide(1, 500.0).colour.a = 100;  // another bucket
    EXPECT_TRUE(isColor(drawn().at(x0, kTop + 9), over(alpha(kFull, 100), over(alpha(kFull, 100), kRow))));
}

TEST_F(RecorderClips, AWiderClipBetweenDoesNotBringALineBack) {
    wide(1).colour.a = 100;
    clip(0, 440.0, 20.0, 21.0);
    wide(1).colour.a = 100;
    EXPECT_TRUE(isColor(drawn().at(x0, kTop + 9), over(alpha(kFull, 100), kRow)));
}

TEST_F(RecorderClips, ThreePixelsHaveABodyWithABandOnTop) {
    wide(3);
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 2), band));
    EXPECT_TRUE(isColor(seen.at(x0 + 2, kTop + 4), band));
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 5), body));
    EXPECT_TRUE(isColor(seen.at(x0 + 2, kTop + 31), body));
    EXPECT_TRUE(isColor(seen.at(x0 + 2, kTop + 32), kRow));
    EXPECT_TRUE(isColor(seen.at(x0 + 3, kTop + 10), kRow));
}

TEST_F(RecorderClips, BorderFromSevenPixelsOn) {
    wide(6);
    EXPECT_TRUE(isColor(drawn().at(x0, kTop + 10), body));
    recorder.clips.clear();
    wide(7);
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 10), over(alpha(kFull, 100), body)));
    EXPECT_TRUE(isColor(seen.at(x0 + 6, kTop + 31), over(alpha(kFull, 100), body)));
    EXPECT_TRUE(isColor(seen.at(x0 + 1, kTop + 10), body));
}

TEST_F(RecorderClips, SelectedIsStrongerAndHasGripLinesFromThirteenPixels) {
    wide(12).selected = true;
    const SDL_Color strong = over(alpha(kThird, 220), kRow);
    Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(x0, kTop + 10), kFull)) << "opaque border";
    EXPECT_TRUE(isColor(seen.at(x0 + 9, kTop + 10), strong)) << "no grip yet";
    recorder.clips.clear();
    RecorderClip& gripped = wide(13);
    gripped.selected = true;
    gripped.gainInDb = -60.0f;
    seen = drawn();
    const SDL_Color grip = over({255, 255, 255, 80}, strong);
    EXPECT_TRUE(isColor(seen.at(x0 + 10, kTop + 5), grip));
    EXPECT_TRUE(isColor(seen.at(x0 + 10, kTop + 27), grip));
    EXPECT_TRUE(isColor(seen.at(x0 + 10, kTop + 29), strong));
    EXPECT_TRUE(isColor(seen.at(x0 + 8, kTop + 10), grip));
    EXPECT_TRUE(isColor(seen.at(x0 + 9, kTop + 10), strong));
}

TEST_F(RecorderClips, LevelBarIsAsLongAsTheAmplitude) {
    RecorderClip& made = wide(44);
    made.gainInDb = -6.0f;
    const int length = static_cast<int>(std::pow(10.0, -0.3) * 40.0);  // 20
    EXPECT_EQ(length, 20);
    const SDL_Color level = over({60, 180, 100, 120}, body);
    Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(x0 + 2, kTop + 27), level));
    EXPECT_TRUE(isColor(seen.at(x0 + 21, kTop + 28), level));
    EXPECT_TRUE(isColor(seen.at(x0 + 22, kTop + 27), body));
    EXPECT_TRUE(isColor(seen.at(x0 + 5, kTop + 29), body));
    made.gainInDb = 0.0f;
    EXPECT_TRUE(isColor(drawn().at(x0 + 41, kTop + 27), level));
    made.gainInDb = 3.0f;
    EXPECT_TRUE(isColor(drawn().at(x0 + 5, kTop + 27), body)) << "longer than the clip: none";
    made.gainInDb = -60.0f;
    EXPECT_TRUE(isColor(drawn().at(x0 + 2, kTop + 27), body)) << "under a pixel: none";
    recorder.clips.clear();
    wide(10);
    EXPECT_TRUE(isColor(drawn().at(x0 + 2, kTop + 27), body)) << "too narrow for a bar";
}

TEST_F(RecorderClips, LevelBarIsCutToWholePixelsAndNotRounded) {
    RecorderClip& made = wide(44);
    const SDL_Color level = over({60, 180, 100, 120}, body);
    made.gainInDb = -2.0f;  // 0.794 of 40: 31.77
    Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(x0 + 2 + 30, kTop + 27), level));
    EXPECT_TRUE(isColor(seen.at(x0 + 2 + 31, kTop + 27), body));
    made.gainInDb = -33.0f;  // 0.9: less than a pixel
    EXPECT_TRUE(isColor(drawn().at(x0 + 2, kTop + 27), body));
    made.gainInDb = 0.1f;  // 40.46: already longer than the clip has room for
    EXPECT_TRUE(isColor(drawn().at(x0 + 5, kTop + 27), body));
}

TEST_F(RecorderClips, ALevelBeyondAllNumbersHasNoBar) {
    RecorderClip& made = wide(44);
    for (const float db : {1e30f, -1e30f, std::nanf("")}) {
        made.gainInDb = db;
        EXPECT_TRUE(isColor(drawn().at(x0 + 5, kTop + 27), body)) << db;
    }
}

TEST_F(RecorderClips, LabelFromFortyNinePixelsOn) {
    wide(48).label = "528";
    EXPECT_TRUE(isColor(drawn().at(x0 + 20, kTop + 10), body));
    int lit = 0;
    recorder.clips.clear();
    wide(49).label = "528";
    const Picture seen = drawn();
    for (int y = kTop + 5; y < kTop + 17; ++y) {
        for (int x = x0 + 2; x < x0 + 47; ++x)
            lit += isColor(seen.at(x, y), body) ? 0 : 1;
    }
    EXPECT_GT(lit, 20);
    expectText(seen, "528", x0 + 4, kTop + 5, fonts.fontLabel, {220, 220, 240, 230}, body);
}

TEST_F(RecorderClips, LabelIsCutAtTheClip) {
    wide(60).label = "A label that is far too long for its clip";
    const Picture seen = drawn();
    for (int y = kTop; y < kTop + 33; ++y)
        EXPECT_TRUE(isColor(seen.at(x0 + 60, y), kRow)) << y;
}

TEST_F(RecorderClips, DetailLineNeedsAWideClipAndAHighRow) {
    RecorderClip& made = wide(400);
    made.gainInDb = 3.0f;  // too loud for a level bar, which would run through the text
    made.overrides = {3, 2, 1, -2, 0, 40, 60, 2};
    made.pan = 0.8f;
    made.optimized = true;
    const std::string text = "440.0Hz +3dB F3 P2 1 O-2 Fp40 Tp60 SQR R OPT";
    expectText(drawn(), text, x0 + 4, kTop + 17, fonts.fontLabel, {150, 200, 150, 200}, body);
}

TEST_F(RecorderClips, DetailLineNamesTheSide) {
    RecorderClip& made = wide(400);
    made.overrides = {0, 0, 0, 0, 0, 0, 0, 3};
    made.gainInDb = -60.0f;
    made.pan = 0.29f;
    expectText(drawn(), "440.0Hz -60dB F0 P0 0 O+0 Fp0 Tp0 TRI L", x0 + 4, kTop + 17, fonts.fontLabel,
               {150, 200, 150, 200}, body);
    made.pan = 0.7f;
    expectText(drawn(), "440.0Hz -60dB F0 P0 0 O+0 Fp0 Tp0 TRI C", x0 + 4, kTop + 17, fonts.fontLabel,
               {150, 200, 150, 200}, body);
}

TEST_F(RecorderClips, NoDetailLineAt120PixelsOrInALowRow) {
    const auto lit = [this](int width, float zoom) {
        recorder.clips.clear();
        recorder.rowZoom = zoom;
        wide(width).gainInDb = -60.0f;
        const Picture seen = drawn();
        int count = 0;
        for (int x = x0 + 4; x < x0 + 100; ++x) {
            for (int y = kTop + 17; y < kTop + 21; ++y)
                count += isColor(seen.at(x, y), body) ? 0 : 1;
        }
        return count;
    };
    EXPECT_GT(lit(121, 1.0f), 0);
    EXPECT_EQ(lit(120, 1.0f), 0);
    EXPECT_GT(lit(121, 0.75f), 0) << "25 high";
    EXPECT_EQ(lit(121, 0.73f), 0) << "24 high";
}

TEST_F(RecorderClips, ClipIsCutAtBothEndsOfTheTimeline) {
    clip(0, 440.0, 0.0, 1000.0).colour = kFull;
    recorder.viewStart = 100.0;
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(129, kTop + 9), over({50, 50, 80, 200}, {16, 16, 26, 255})))
        << "the line between column and timeline";
    EXPECT_TRUE(isColor(seen.at(131, kTop + 20), body));
    EXPECT_TRUE(isColor(seen.at(1268, kTop + 20), body));
    EXPECT_FALSE(isColor(seen.at(1271, kTop + 20), body));
}

TEST_F(RecorderClips, ClipsOutOfViewAreNotDrawn) {
    const Picture empty = drawn();
    clip(0, 440.0, 30.0, 31.0);
    clip(0, 441.0, 500.0, 1e9);
    clip(9, 441.0, 1.0, 2.0);  // a hidden channel
    recorder.clipCount = 0;
    // The horizontal thumb shrinks; all above it is as it was.
    const Picture seen = drawn();
    for (int y = 350; y < 650; ++y) {
        for (int x = 0; x < 1280; ++x)
            ASSERT_TRUE(seen.at(x, y) == empty.at(x, y)) << x << " " << y;
    }
}

TEST_F(RecorderClips, AClipThatEndsWhereTheViewBeginsLeavesNothing) {
    clip(0, 440.0, 0.0, 11.0).colour = kFull;
    recorder.viewStart = 11.0;
    EXPECT_TRUE(isColor(drawn().at(130, kTop + 20), kRow));
    clip(0, 441.0, 11.0, 11.0).colour = kFull;
    EXPECT_TRUE(isColor(drawn().at(130, kTop + 20), kFull)) << "one that begins there is a line";
}

TEST_F(RecorderClips, HigherFrequenciesLieOverLowerOnes) {
    wide(20, 300.0).colour = {255, 0, 0, 255};
    wide(20, 200.0).colour = {0, 0, 255, 255};
    const Picture seen = drawn();
    const SDL_Color blue = over({0, 0, 85, 160}, kRow);
    EXPECT_TRUE(isColor(seen.at(x0 + 5, kTop + 12), over({85, 0, 0, 160}, blue), 3));
}

}  // namespace
}  // namespace veloria
