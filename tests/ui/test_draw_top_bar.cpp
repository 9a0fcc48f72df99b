#include <gtest/gtest.h>

#include "tests/ui/app_fixture.h"
#include "tests/ui/text_probe.h"
#include "toolkit/widgets.h"
#include "ui/draw.h"

namespace veloria {
namespace {

using test::isColor;
using test::isFilled;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kWhite{255, 255, 255, 255};
constexpr SDL_Color kRing{200, 230, 255, 255};

// In a window of 1280 the row of buttons begins at (1280 - 276) / 2 = 502.
class TopBar : public test::AppTest {
  protected:
    Picture buttons() {
        clear();
        drawTopBarButtons(app);
        return picture();
    }
    // The colour of row 20 of a button's 24, over the backdrop.
    static SDL_Color face(SDL_Color color) {
        const double factor = 1.0 - 20.0 / 24.0 * 0.25;
        return over({static_cast<Uint8>(color.r * factor), static_cast<Uint8>(color.g * factor),
                     static_cast<Uint8>(color.b * factor), 235},
                    kBackdrop);
    }
};

TEST_F(TopBar, FillsThirtyTwoRowsWithALineAtItsFoot) {
    drawTopBar(app);
    const Picture seen = picture();
    EXPECT_TRUE(isFilled(seen, {0, 0, 1280, 31}, {84, 84, 84, 255}));
    EXPECT_TRUE(isFilled(seen, {0, 31, 1280, 1}, over({30, 30, 30, 200}, {84, 84, 84, 255})));
    EXPECT_EQ(seen.at(640, 32), kBackdrop);
}

TEST_F(TopBar, FourButtonsStandInTheirColours) {
    const Picture seen = buttons();
    EXPECT_TRUE(isColor(seen.at(510, 24), face({21, 101, 192, 255})));
    EXPECT_TRUE(isColor(seen.at(672, 24), face({110, 25, 25, 255})));
    EXPECT_TRUE(isColor(seen.at(712, 24), face({25, 110, 45, 255})));
    EXPECT_TRUE(isColor(seen.at(752, 24), face({140, 40, 40, 255})));
    EXPECT_EQ(seen.at(501, 16), kBackdrop);
    EXPECT_FALSE(seen.at(661, 16) == kBackdrop);
    EXPECT_EQ(seen.at(663, 16), kBackdrop);  // between the first two
    EXPECT_EQ(seen.at(703, 16), kBackdrop);
    EXPECT_EQ(seen.at(743, 16), kBackdrop);
    EXPECT_EQ(seen.at(782, 16), kBackdrop);
    EXPECT_EQ(seen.at(640, 3), kBackdrop);
    EXPECT_EQ(seen.at(640, 28), kBackdrop);
}

TEST_F(TopBar, AButtonUnderTheMouseIsBrighterByThirtyFive) {
    moveMouse(672, 20);
    const Picture seen = buttons();
    EXPECT_TRUE(isColor(seen.at(672, 24), face({145, 60, 60, 255})));
    EXPECT_TRUE(isColor(seen.at(752, 24), face({140, 40, 40, 255})));
    moveMouse(510, 20);
    EXPECT_TRUE(isColor(buttons().at(510, 24), face({56, 136, 227, 255})));
    moveMouse(510, 28);  // a row below
    EXPECT_TRUE(isColor(buttons().at(510, 24), face({21, 101, 192, 255})));
}

TEST_F(TopBar, TheLoadButtonCarriesItsLabel) {
    const Picture seen = buttons();
    clear();
    DrawGradientButton(app.draw, {502, 4, 160, 24}, 4, {21, 101, 192, 255}, false);
    const SDL_Point place = test::centredPlace("LOAD MUSIC FILE", {502, 4, 160, 24}, app.fonts.fontTab);
    EXPECT_TRUE(isText(seen, picture(), "LOAD MUSIC FILE", place.x, place.y, app.fonts.fontTab, kWhite));
}

TEST_F(TopBar, StopHasASquareOfEightPixels) {
    const Picture seen = buttons();
    EXPECT_TRUE(isFilled(seen, {680, 12, 8, 8}, kWhite));
    EXPECT_FALSE(seen.at(679, 15) == kWhite);
    EXPECT_FALSE(seen.at(688, 15) == kWhite);
    EXPECT_FALSE(seen.at(684, 11) == kWhite);
    EXPECT_FALSE(seen.at(684, 20) == kWhite);
}

TEST_F(TopBar, PlayHasATriangleOfSevenLines) {
    const Picture seen = buttons();
    for (int line = 0; line < 7; ++line) {
        const int x = 721 + line;
        const int half = 6 - line;
        EXPECT_TRUE(isFilled(seen, {x, 16 - half, 1, 2 * half + 1}, kWhite)) << line;
        EXPECT_FALSE(seen.at(x, 16 - half - 1) == kWhite) << line;
        EXPECT_FALSE(seen.at(x, 16 + half + 1) == kWhite) << line;
    }
    EXPECT_FALSE(seen.at(720, 16) == kWhite);
    EXPECT_FALSE(seen.at(728, 16) == kWhite);
}

TEST_F(TopBar, ResetHasARingWithAGapAtItsRight) {
    const Picture seen = buttons();
    EXPECT_TRUE(isColor(seen.at(758, 16), kRing));  // 180 degrees
    EXPECT_TRUE(isColor(seen.at(764, 22), kRing));  // 90
    EXPECT_TRUE(isColor(seen.at(764, 10), kRing));  // 270
    EXPECT_FALSE(isColor(seen.at(770, 16), kRing, 20));
    EXPECT_FALSE(isColor(seen.at(764, 16), kRing, 20));
}

TEST_F(TopBar, OnlyPlayLightsUpAndOnlyWhilePlaying) {
    const Picture idle = buttons();
    app.transport.playing = true;
    const Picture playing = buttons();
    clear();
    DrawGradientButton(app.draw, {706, 4, 36, 24}, 4, {25, 110, 45, 255}, true);
    drawSmallLamp(app.draw, 733, 12, {25, 110, 45, 255});
    const Picture lit = picture();
    EXPECT_EQ(playing.at(732, 11), lit.at(732, 11));  // the spark
    EXPECT_FALSE(idle.at(732, 11) == lit.at(732, 11));
    EXPECT_EQ(playing.at(724, 4), lit.at(724, 4));  // the golden strip
    EXPECT_FALSE(idle.at(724, 4) == lit.at(724, 4));
    for (const int x : {510, 672, 752})
        EXPECT_EQ(playing.at(x, 12), idle.at(x, 12)) << x;
}

TEST_F(TopBar, TheNameOfTheFileFollowsTheButtons) {
    EXPECT_EQ(buttons().at(795, 18), kBackdrop);
    app.transport.fileLabel = "L\u00e4rm \u0416.mid";
    EXPECT_TRUE(isText(buttons(), kBackdrop, "- L\u00e4rm \u0416.mid", 792, 11, app.fonts.fontLabel,
                       {180, 180, 200, 200}));
}

TEST_F(TopBar, WithoutAFileThereIsNoName) {
    EXPECT_TRUE(isFilled(buttons(), {786, 0, 400, 32}, kBackdrop));
}

TEST_F(TopBar, TheButtonsDoNotNeedTheLeftPanel) {
    setLeftWidth(0);
    EXPECT_TRUE(isColor(buttons().at(510, 24), face({21, 101, 192, 255})));
}

TEST_F(TopBar, TheButtonsFollowTheMiddleOfTheWindow) {
    resize(800, 600);  // (800 - 276) / 2 = 262
    const Picture seen = buttons();
    EXPECT_EQ(seen.at(261, 16), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(270, 24), face({21, 101, 192, 255})));
    EXPECT_TRUE(isFilled(seen, {440, 12, 8, 8}, kWhite));
}

}  // namespace
}  // namespace veloria
