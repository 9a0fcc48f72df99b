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

constexpr SDL_Color kPanel{64, 64, 64, 255};
constexpr SDL_Color kStrip{84, 84, 84, 255};
constexpr SDL_Color kIdle{58, 58, 58, 255};

SDL_Color at110(SDL_Color color) {
    color.a = 110;
    return over(color, kStrip);
}

// In a window of 1280 the panel stands from 880, its halves 200 wide.
class RightPanel : public test::AppTest {
  protected:
    Picture draw() {
        clear();
        drawRightPanel(app);
        return picture();
    }
    Picture bar() {
        clear();
        drawRowScrollBar(app);
        return picture();
    }
    testing::AssertionResult caption(const Picture& seen, const std::string& text, const SDL_Rect& rect,
                                     TTF_Font* font, SDL_Color color, SDL_Color below) {
        const SDL_Point place = test::centredPlace(text, rect, font);
        return isText(seen, below, text, place.x, place.y, font, color);
    }
};

TEST_F(RightPanel, ReachesToTheWindowsEdge) {
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {881, 84, 398, 265}, kPanel));
    const SDL_Color outline = over({30, 30, 30, 200}, kPanel);
    EXPECT_TRUE(isFilled(seen, {880, 84, 1, 266}, outline));
    EXPECT_TRUE(isFilled(seen, {1279, 84, 1, 266}, outline));
    EXPECT_TRUE(isFilled(seen, {880, 349, 400, 1}, outline));
    EXPECT_EQ(seen.at(879, 200), kBackdrop);
    EXPECT_EQ(seen.at(1000, 350), kBackdrop);
    EXPECT_EQ(seen.at(1000, 31), kBackdrop);
}

TEST_F(RightPanel, TheShownTableTabIsLitInItsColour) {
    const SDL_Color colors[] = {{200, 100, 60, 255}, {200, 60, 60, 255}};
    const char* captions[] = {"162 AVATAR", "180 SHADOW"};
    for (int shown = 0; shown < 2; ++shown) {
        app.tableTab = shown;
        const Picture seen = draw();
        for (int tab = 0; tab < 2; ++tab) {
            const SDL_Rect rect{880 + 200 * tab, 33, 200, 24};
            const bool lit = tab == shown;
            const SDL_Color fill = lit ? at110(colors[tab]) : kIdle;
            EXPECT_TRUE(isColor(seen.at(rect.x + 10, 34), fill));
            EXPECT_TRUE(isColor(seen.at(rect.x + 10, 55), lit ? colors[tab] : kIdle));
            EXPECT_TRUE(isColor(seen.at(rect.x + 10, 56), lit ? colors[tab] : kIdle));
            EXPECT_TRUE(isColor(seen.at(rect.x + 10, 54), fill));
            EXPECT_TRUE(caption(seen, captions[tab], rect, app.fonts.fontTab,
                                lit ? SDL_Color{230, 230, 230, 255} : SDL_Color{160, 160, 160, 255}, fill));
        }
        EXPECT_TRUE(isColor(seen.at(900, 32), kStrip));
        EXPECT_TRUE(isColor(seen.at(900, 57), kStrip));
        EXPECT_TRUE(isColor(seen.at(900, 58), over({30, 30, 30, 200}, kPanel)));
    }
}

TEST_F(RightPanel, ALineInTheTablesColourClosesTheTabs) {
    EXPECT_TRUE(isFilled(draw(), {880, 59, 400, 1}, over({200, 100, 60, 160}, kStrip)));
    app.tableTab = 1;
    EXPECT_TRUE(isFilled(draw(), {882, 59, 396, 1}, over({200, 60, 60, 160}, kPanel)));
}

TEST_F(RightPanel, TheAvatarTableHasTwoSubTabs) {
    const SDL_Color colors[] = {{200, 100, 60, 255}, {60, 150, 200, 255}};
    const char* captions[] = {"REFLECTION", "ROTATION"};
    for (int shown = 0; shown < 2; ++shown) {
        app.avatarSubTab = shown;
        const Picture seen = draw();
        for (int tab = 0; tab < 2; ++tab) {
            const SDL_Rect rect{880 + 200 * tab, 60, 200, 22};
            const bool lit = tab == shown;
            const SDL_Color fill = lit ? at110(colors[tab]) : kIdle;
            EXPECT_TRUE(isColor(seen.at(rect.x + 10, 61), fill));
            EXPECT_TRUE(isColor(seen.at(rect.x + 10, 81), lit ? colors[tab] : kIdle));
            EXPECT_TRUE(caption(seen, captions[tab], rect, app.fonts.fontLabel,
                                lit ? SDL_Color{230, 230, 230, 255} : SDL_Color{160, 160, 160, 255}, fill));
        }
        EXPECT_TRUE(isColor(seen.at(900, 83), over({30, 30, 30, 200}, kPanel)));
    }
}

TEST_F(RightPanel, TheShadowTableHasNone) {
    app.tableTab = 1;
    EXPECT_TRUE(isFilled(draw(), {881, 60, 398, 100}, kPanel));
}

TEST_F(RightPanel, AnOddWidthGivesTheRestToTheSecondTab) {
    setRightX(879);  // 401: 200 and 201
    app.tableTab = 1;
    const Picture seen = draw();
    EXPECT_TRUE(isColor(seen.at(1078, 40), kIdle));
    EXPECT_TRUE(isColor(seen.at(1079, 40), at110({200, 60, 60, 255})));
    EXPECT_TRUE(isColor(seen.at(1279, 40), at110({200, 60, 60, 255})));
}

TEST_F(RightPanel, IsGoneWhereItIsTooNarrow) {
    resize(130, 720);  // 120 for the centre, and 10
    EXPECT_TRUE(isFilled(draw(), {0, 0, 130, 720}, kBackdrop));
    EXPECT_TRUE(isFilled(bar(), {0, 0, 130, 720}, kBackdrop));
    resize(131, 720);
    EXPECT_TRUE(isColor(draw().at(125, 200), kPanel));
}

TEST_F(RightPanel, KeepsTwoHundredPixelsInAWindowNarrowerThanItsPlace) {
    resize(800, 600);  // 880 is stored; the left panel's 400 leave it where it is asked to be
    Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {0, 0, 600, 600}, kBackdrop));
    EXPECT_TRUE(isFilled(seen, {601, 90, 198, 100}, kPanel));
    EXPECT_FALSE(bar().at(798, 100) == kBackdrop);
    setRightX(1500);
    EXPECT_TRUE(isFilled(draw(), {601, 90, 198, 100}, kPanel));
}

TEST_F(RightPanel, ARecorderOverAllLeavesNothingOfIt) {
    resize(1280, 20 + kMinimumRecorder + kStatusBarHeight);
    EXPECT_TRUE(isFilled(draw(), {800, 0, 480, 200}, kBackdrop));
    EXPECT_TRUE(isFilled(bar(), {800, 0, 480, 200}, kBackdrop));
}

// 388 / 160 = 2 columns: 81 rows are 41 lines of 43 pixels, 1763. The view is 350 - 69 = 281 high, so the
// list can be scrolled by 1482, and the thumb is 281 * 281 / 1763 = 44 high.
TEST_F(RightPanel, TheScrollBarShowsTheSeenPart) {
    const SDL_Color track = over({38, 38, 38, 180}, kBackdrop);
    const SDL_Color thumb = over({200, 100, 60, 215}, track);
    Picture seen = bar();
    EXPECT_TRUE(isFilled(seen, {1276, 69, 4, 44}, thumb));
    EXPECT_TRUE(isFilled(seen, {1276, 113, 4, 237}, track));
    EXPECT_EQ(seen.at(1275, 200), kBackdrop);
    EXPECT_EQ(seen.at(1277, 68), kBackdrop);
    EXPECT_EQ(seen.at(1277, 350), kBackdrop);
    app.avatarScroll = 1482;
    seen = bar();
    EXPECT_TRUE(isFilled(seen, {1276, 69, 4, 237}, track));
    EXPECT_TRUE(isFilled(seen, {1276, 306, 4, 44}, thumb));
    app.avatarScroll = 741;
    EXPECT_TRUE(isFilled(bar(), {1276, 187, 4, 44}, thumb));  // 69 + 237 / 2
}

// 216 rows are 108 lines, 4644: 281 * 281 / 4644 = 17.
TEST_F(RightPanel, EachTableHasItsOwnScroll) {
    app.tableTab = 1;
    app.avatarScroll = 1482;
    const SDL_Color track = over({38, 38, 38, 180}, kBackdrop);
    const Picture seen = bar();
    EXPECT_TRUE(isFilled(seen, {1276, 69, 4, 17}, over({200, 100, 60, 215}, track)));
    EXPECT_TRUE(isFilled(seen, {1276, 86, 4, 264}, track));
}

TEST_F(RightPanel, TheThumbIsAtLeastSixteenHigh) {
    app.tableTab = 1;
    setContentBottom(169);  // a view of 100: 100 * 100 / 4644 = 2
    const SDL_Color track = over({38, 38, 38, 180}, kBackdrop);
    const Picture seen = bar();
    EXPECT_TRUE(isFilled(seen, {1276, 69, 4, 16}, over({200, 100, 60, 215}, track)));
    EXPECT_TRUE(isFilled(seen, {1276, 85, 4, 84}, track));
}

TEST_F(RightPanel, AStaleScrollKeepsTheThumbInItsTrack) {
    app.avatarScroll = 9000;
    const Picture seen = bar();
    EXPECT_TRUE(isFilled(seen, {1276, 350, 4, 300}, kBackdrop));
    EXPECT_TRUE(isColor(seen.at(1277, 349), over({200, 100, 60, 215}, over({38, 38, 38, 180}, kBackdrop))));
}

TEST_F(RightPanel, AListThatFitsHasNoScrollBar) {
    setLeftWidth(0);
    setRightX(120);  // 1148 / 160 = 7 columns: 12 lines, 516
    setContentBottom(585);
    EXPECT_TRUE(isFilled(bar(), {1270, 0, 10, 720}, kBackdrop));
    setContentBottom(584);
    EXPECT_FALSE(bar().at(1277, 300) == kBackdrop);
}

}  // namespace
}  // namespace veloria
