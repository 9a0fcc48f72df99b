#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/ui/app_fixture.h"
#include "tests/ui/text_probe.h"
#include "ui/draw.h"
#include "ui/export_overlay.h"

namespace veloria {
namespace {

using test::isColor;
using test::isFilled;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kBar{84, 84, 84, 255};
constexpr SDL_Color kGold{255, 215, 0, 255};

class StatusBar : public test::AppTest {
  protected:
    Picture draw() {
        clear();
        drawStatusBar(app);
        return picture();
    }
    // The text stands in the middle of the bar's 30 rows from 690.
    testing::AssertionResult says(const Picture& seen, const std::string& text) {
        TTF_Font* font = app.fonts.fontLabel;
        return isText(seen, kBar, text, 20, 690 + (30 - TTF_FontHeight(font)) / 2, font, kGold);
    }
};

TEST_F(StatusBar, StandsAtTheWindowsFootWithALineAtItsTop) {
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {0, 690, 1280, 1}, {30, 30, 30, 255}));
    EXPECT_TRUE(isFilled(seen, {0, 691, 20, 29}, kBar));
    EXPECT_TRUE(isFilled(seen, {1100, 691, 180, 29}, kBar));
    EXPECT_EQ(seen.at(640, 689), kBackdrop);
}

TEST_F(StatusBar, TellsVoicesAndKeys) {
    EXPECT_TRUE(says(draw(),
                     "Veloria V3.6 | 342 = 162 Avatar + 180 Shadow | 0 voices | [1-4] Mode | [Q-R] Wave | "
                     "[F] Filter | Stereo: L=Reflect R=Rotate C=Shadow"));
}

TEST_F(StatusBar, TellsTheFileIfThereIsOne) {
    app.transport.fileLabel = "\u00dcbung \u2665.mid";
    addVoice(440, 0.5f);
    addVoice(550, 0.5f, 10);
    EXPECT_TRUE(
        says(draw(),
             "Veloria V3.6 | 342 = 162 Avatar + 180 Shadow | \u00dcbung \u2665.mid | 2 voices | [1-4] "
             "Mode | [Q-R] Wave | [F] Filter | Stereo: L=Reflect R=Rotate C=Shadow"));
}

TEST_F(StatusBar, AWaitingVoiceDoesNotCount) {
    addVoice(440, 0.5f).startTime = 500.0;
    takeSnapshot();
    EXPECT_TRUE(says(draw(),
                     "Veloria V3.6 | 342 = 162 Avatar + 180 Shadow | 0 voices | [1-4] Mode | [Q-R] Wave | "
                     "[F] Filter | Stereo: L=Reflect R=Rotate C=Shadow"));
}

TEST_F(StatusBar, FollowsASmallWindow) {
    resize(800, 600);
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {0, 570, 800, 1}, {30, 30, 30, 255}));
    EXPECT_TRUE(isColor(seen.at(5, 599), kBar));
    EXPECT_TRUE(isFilled(seen, {785, 571, 15, 29}, kBar));  // the whole text fits
}

const SDL_Color kBox = over({12, 12, 18, 235}, kBackdrop);

class ExportOverlay : public test::AppTest {
  protected:
    Picture draw(float progress) {
        clear();
        drawExportOverlay(app, progress);
        return picture();
    }
    // How many pixels of the bar are done.
    static int done(const Picture& seen) {
        int count = 0;
        for (int x = 480; x < 800; ++x)
            count += isColor(seen.at(x, 370), {60, 180, 100, 255}) ? 1 : 0;
        return count;
    }
};

TEST_F(ExportOverlay, StandsInTheMiddleOfTheWindow) {
    const Picture seen = draw(0.0f);
    const SDL_Color border = over({60, 160, 200, 220}, kBox);
    EXPECT_TRUE(isFilled(seen, {480, 336, 320, 1}, border));
    EXPECT_TRUE(isFilled(seen, {480, 383, 320, 1}, border));
    EXPECT_TRUE(isFilled(seen, {480, 336, 1, 48}, border));
    EXPECT_TRUE(isFilled(seen, {799, 336, 1, 48}, border));
    EXPECT_TRUE(isColor(seen.at(483, 340), kBox));
    EXPECT_EQ(seen.at(479, 360), kBackdrop);
    EXPECT_EQ(seen.at(640, 384), kBackdrop);
}

TEST_F(ExportOverlay, CountsInPerCent) {
    const Picture seen = draw(0.425f);
    const SDL_Rect area{480, 341, 320, 18};
    const SDL_Point place = test::centredPlace("Rendering WAV... 42%", area, app.fonts.fontTab);
    EXPECT_TRUE(isText(seen, kBox, "Rendering WAV... 42%", place.x, place.y, app.fonts.fontTab,
                       {230, 230, 230, 255}));
}

TEST_F(ExportOverlay, ABarGrowsBelow) {
    EXPECT_EQ(done(draw(0.0f)), 0);
    EXPECT_EQ(done(draw(0.5f)), 148);
    EXPECT_EQ(done(draw(1.0f)), 296);
}

TEST_F(ExportOverlay, ACancelButtonStandsBesideIt) {
    const SDL_Rect at = exportOverlayLayout(app.layout).cancel;
    const SDL_Rect expected{806, 336, 70, 48};
    EXPECT_TRUE(SDL_RectEquals(&at, &expected));
    const Picture seen = draw(0.5f);
    EXPECT_NE(seen.at(812, 360), kBackdrop);
    EXPECT_EQ(seen.at(803, 360), kBackdrop);
    EXPECT_EQ(seen.at(876, 360), kBackdrop);
    const SDL_Color idle = seen.at(812, 360);
    app.draw.mouseX = 830;
    app.draw.mouseY = 350;
    EXPECT_GT(draw(0.5f).at(812, 360).r, idle.r) << "lights up under the pointer";
}

TEST_F(ExportOverlay, ValuesOutsideAreCut) {
    EXPECT_EQ(done(draw(-1.0f)), 0);
    EXPECT_EQ(done(draw(7.0f)), 296);
    EXPECT_EQ(done(draw(std::numeric_limits<float>::quiet_NaN())), 0);
}

}  // namespace
}  // namespace veloria
