#include <gtest/gtest.h>

#include <string>

#include "tests/ui/app_fixture.h"
#include "tests/ui/text_probe.h"
#include "ui/draw.h"

namespace veloria {
namespace {

using test::isColor;
using test::isFilled;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kFigure{255, 220, 100, 255};

class RetunerStatus : public test::AppTest {
  protected:
    RetunerStatus() {
        setContentBottom(690);
        retuner->mode = kModeFull;
    }
    Picture draw() {
        clear();
        takeSnapshot();
        drawRetunerStatus(app);
        return picture();
    }
    testing::AssertionResult says(const Picture& seen, const std::string& text, int x, int y,
                                  SDL_Color color) {
        return isText(seen, kBackdrop, text, x, y, app.fonts.fontLabel, color);
    }
    testing::AssertionResult heading(const Picture& seen, const std::string& text) {
        return isText(seen, kBackdrop, text, 8, 497, app.fonts.fontHeading, kFigure);
    }
    void fillPeaks(std::int32_t count) {
        for (std::size_t row = 0; row < kPeakRows; ++row)
            retuner->peaks[row] = {100.0f + static_cast<float>(row), 300.0f, 0.5f, 0};
        retuner->peakCount = count;
    }
    // How many rows of the table of peaks are to be seen.
    static int rowsOf(const Picture& seen) {
        int rows = 0;
        for (int row = 0; row < 12; ++row) {
            bool ink = false;
            for (int x = 12; x < 60; ++x)
                ink = ink || !(seen.at(x, 547 + 13 * row + 6) == kBackdrop);
            rows += ink ? 1 : 0;
        }
        return rows;
    }
};

TEST_F(RetunerStatus, SaysNothingWhileOff) {
    retuner->mode = kModeOff;
    EXPECT_TRUE(isFilled(draw(), {0, 470, 400, 200}, kBackdrop));
}

TEST_F(RetunerStatus, NamesItsMode) {
    const char* words[] = {"", "SACRED FFT: FULL", "SACRED FFT: PEAK", "SACRED FFT: SOLFEGGIO"};
    for (std::int32_t mode = 1; mode <= 3; ++mode) {
        retuner->mode = mode;
        const Picture seen = draw();
        EXPECT_TRUE(says(seen, words[mode], 8, 481, {80, 200, 255, 230}));
        EXPECT_TRUE(isFilled(seen, {5, 476, 391, 1}, over({60, 160, 200, 100}, kBackdrop)));
        EXPECT_EQ(seen.at(4, 476), kBackdrop);
        EXPECT_EQ(seen.at(396, 476), kBackdrop);
    }
}

TEST_F(RetunerStatus, SolfeggioShowsTargetCentsAndBlend) {
    retuner->mode = kModeSolfeggio;
    retuner->strength = 70;
    retuner->targetIndex = 8;
    const Picture seen = draw();
    EXPECT_TRUE(heading(seen, "528 Hz"));
    EXPECT_TRUE(says(seen, "+15.6 cents (time-domain)", 8, 517, {160, 200, 220, 180}));
    EXPECT_TRUE(says(seen, "Blend: 70%", 8, 533, {140, 180, 200, 160}));
    retuner->targetIndex = 12;
    const Picture below = draw();
    EXPECT_TRUE(heading(below, "963 Hz"));
    EXPECT_TRUE(says(below, "-44.0 cents (time-domain)", 8, 517, {160, 200, 220, 180}));
}

TEST_F(RetunerStatus, SolfeggioHasNoTableOfPeaks) {
    retuner->mode = kModeSolfeggio;
    fillPeaks(8);
    EXPECT_EQ(rowsOf(draw()), 0);
}

TEST_F(RetunerStatus, TheSpectralModesShowTheirStatistics) {
    retuner->avgShiftHz = 3.25f;
    retuner->binsShifted = 117;
    for (const std::int32_t mode : {kModeFull, kModePeak}) {
        retuner->mode = mode;
        const Picture seen = draw();
        EXPECT_TRUE(heading(seen, "Avg Shift: 3.2 Hz"));
        EXPECT_TRUE(says(seen, "Bins shifted: 117", 8, 517, {160, 200, 220, 180}));
    }
}

TEST_F(RetunerStatus, PeaksTellWhereTheyWent) {
    retuner->peaks[0] = {440.0f, 441.0f, 1.0f, 0};
    retuner->peaks[1] = {640.2f, 639.0f, 0.5f, 0};
    retuner->peaks[2] = {285.0f, 285.5f, 0.254f, 0};  // half a hertz is none
    retuner->peaks[3] = {286.0f, 285.5f, 0.02f, 0};
    retuner->peakCount = 4;
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "Top Peaks:", 8, 533, {140, 160, 180, 160}));
    EXPECT_TRUE(says(seen, "440 -> 441 Hz  (100%)", 12, 547, {100, 220, 180, 200}));
    EXPECT_TRUE(says(seen, "640 -> 639 Hz  (50%)", 12, 560, {220, 160, 100, 200}));
    EXPECT_TRUE(says(seen, "285 -> 286 Hz  (25%)", 12, 573, {180, 180, 180, 160}));
    EXPECT_TRUE(says(seen, "286 -> 286 Hz  (2%)", 12, 586, {180, 180, 180, 160}));
    EXPECT_EQ(rowsOf(seen), 4);
}

TEST_F(RetunerStatus, NoPeaksMeansNoTable) {
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {0, 533, 400, 150}, kBackdrop));
}

// The panel scrolls to what the recorder covers, so that nothing is left out for want of room.
TEST_F(RetunerStatus, ALowPanelLeavesNothingOut) {
    fillPeaks(8);
    const Picture whole = draw();
    EXPECT_EQ(rowsOf(whole), 8);
    for (const int bottom : {655, 563, 496, 250}) {
        setContentBottom(bottom);
        EXPECT_TRUE(draw() == whole) << bottom;
    }
}

TEST_F(RetunerStatus, ScrollsWithItsTab) {
    fillPeaks(8);
    setContentBottom(400);
    app.leftScroll[kTuningTab] = 120;
    takeSnapshot();
    layOut();
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {5, 356, 391, 1}, over({60, 160, 200, 100}, kBackdrop)));
    EXPECT_TRUE(says(seen, "SACRED FFT: FULL", 8, 361, {80, 200, 255, 230}));
    EXPECT_TRUE(says(seen, "Top Peaks:", 8, 413, {140, 160, 180, 160}));
    EXPECT_TRUE(says(seen, "107 -> 300 Hz  (50%)", 12, 427 + 7 * 13, {100, 220, 180, 200}));
}

}  // namespace
}  // namespace veloria
