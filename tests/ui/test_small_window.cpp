// A window made smaller and larger: what is shown of the stored sizes, and the splitters in between.
#include <gtest/gtest.h>

#include "tests/ui/events.h"

namespace veloria {
namespace {

class SmallWindow : public test::InputTest {
  protected:
    SmallWindow() : test::InputTest(1920, 1080) {}
    void size(int w, int h) {
        resize(w, h);
        frame();
    }
};

TEST_F(SmallWindow, ShrinkingAndGrowingBringsBackEverySize) {
    app.sizes.leftWidth = 900;
    app.sizes.recorderHeight = 880;
    frame();
    const WindowLayout large = app.layout;
    ASSERT_EQ(large.leftWidth, 900);
    ASSERT_EQ(large.rightX, 1520);
    ASSERT_EQ(large.contentBottom, 170);
    const SDL_Point sizes[] = {{800, 600}, {1366, 768}, {1280, 720}, {800, 600}};
    for (const SDL_Point& s : sizes) {
        size(s.x, s.y);
        EXPECT_EQ(app.sizes.leftWidth, 900);
        EXPECT_EQ(app.sizes.rightX, 1520);
        EXPECT_EQ(app.sizes.recorderHeight, 880);
        EXPECT_GE(app.layout.contentBottom, 170);
        EXPECT_EQ(app.layout.rightPanel.x + app.layout.rightPanel.w, s.x);
        EXPECT_GE(app.layout.rightPanel.w, 200);
        EXPECT_TRUE(centreShown(app.layout));
    }
    size(1920, 1080);
    EXPECT_EQ(app.layout.leftWidth, large.leftWidth);
    EXPECT_EQ(app.layout.rightX, large.rightX);
    EXPECT_EQ(app.layout.contentBottom, large.contentBottom);
}

TEST_F(SmallWindow, RowsAreListedAndPressedInANarrowWindow) {
    size(800, 600);
    EXPECT_EQ(app.layout.rightX, 600);
    clickRect(gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 1));
    EXPECT_TRUE(engine.reflectionHeld[1]);
}

TEST_F(SmallWindow, ADragBeginsWhereTheSplitterIsShown) {
    app.sizes.leftWidth = 900;
    app.sizes.recorderHeight = 880;
    size(800, 600);
    ASSERT_EQ(app.layout.leftWidth, 480);
    ASSERT_EQ(app.layout.rightX, 600);
    ASSERT_EQ(app.layout.contentBottom, 170);
    down(300, 170);
    EXPECT_EQ(app.held.splitter, Splitter::Recorder);
    move(300, 190);
    EXPECT_EQ(app.sizes.recorderHeight, 380);
    up(300, 190);
    frame();
    down(480, 100);
    EXPECT_EQ(app.held.splitter, Splitter::Left);
    move(450, 100);
    EXPECT_EQ(app.sizes.leftWidth, 450);
    up(450, 100);
    frame();
    down(600, 100);
    EXPECT_EQ(app.held.splitter, Splitter::Right);
    move(590, 100);
    EXPECT_EQ(app.sizes.rightX, 600);  // it stands nearer to the left panel than it may be dragged
    move(640, 100);
    EXPECT_EQ(app.sizes.rightX, 640);
    up(640, 100);
    EXPECT_EQ(app.sizes.recorderHeight, 380);
    EXPECT_EQ(app.sizes.leftWidth, 450);
}

TEST_F(SmallWindow, APressOnASplitterAloneStoresNothing) {
    app.sizes.leftWidth = 900;
    app.sizes.recorderHeight = 880;
    size(800, 600);
    for (const SDL_Point place : {SDL_Point{300, 170}, SDL_Point{480, 100}, SDL_Point{600, 100}}) {
        down(place.x, place.y);
        EXPECT_NE(app.held.splitter, Splitter::None);
        move(place.x, place.y);
        up(place.x, place.y);
        frame();
    }
    EXPECT_EQ(app.sizes.leftWidth, 900);
    EXPECT_EQ(app.sizes.rightX, 1520);
    EXPECT_EQ(app.sizes.recorderHeight, 880);
}

TEST_F(SmallWindow, ASplitterThatStandsBeyondItsLimitDoesNotJumpWhenItIsTaken) {
    app.sizes = {true, 400, 400, 340};
    size(800, 600);  // as a window of 800 begins: 120 pixels between the side panels
    ASSERT_EQ(app.layout.rightX, 520);
    down(400, 100);
    move(399, 100);
    EXPECT_EQ(app.sizes.leftWidth, 399);
    frame();
    move(398, 100);
    EXPECT_EQ(app.sizes.leftWidth, 398);
    move(440, 100);
    EXPECT_EQ(app.sizes.leftWidth, 400);
    up(440, 100);
}

TEST_F(SmallWindow, TheRowsScrollIsHeldByEveryLayout) {
    size(1280, 720);
    app.sizes.rightX = 1080;  // one column
    frame();
    wheel(1200, 200, -1000);
    app.tableTab = 1;
    frame();
    wheel(1200, 200, -1000);
    const int avatar = app.avatarScroll;
    const int shadow = app.shadowScroll;
    ASSERT_EQ(avatar, maxRowScroll(app.layout, kAvatarFamilySize));
    ASSERT_EQ(shadow, maxRowScroll(app.layout, kShadowIndexCount));
    down(1080, 100);
    move(600, 100);  // four columns
    up(600, 100);
    frame();
    EXPECT_LT(app.avatarScroll, avatar);
    EXPECT_LT(app.shadowScroll, shadow);
    EXPECT_EQ(app.avatarScroll, maxRowScroll(app.layout, kAvatarFamilySize));
    EXPECT_EQ(app.shadowScroll, maxRowScroll(app.layout, kShadowIndexCount));
    // The last row stands above the recorder, and is pressed there.
    const SDL_Rect last = gridCell(rowGrid(app.layout, kShadowRowsTop, app.shadowScroll), 215);
    EXPECT_LT(last.y, app.layout.contentBottom);
    EXPECT_GT(last.y, kShadowRowsTop);
    size(1920, 1080);
    EXPECT_EQ(app.avatarScroll, maxRowScroll(app.layout, kAvatarFamilySize));
    EXPECT_EQ(app.shadowScroll, maxRowScroll(app.layout, kShadowIndexCount));
}

}  // namespace
}  // namespace veloria
