// Floating windows stay within reach, and what a press on their bodies reaches beneath them.
#include <gtest/gtest.h>

#include "tests/ui/events.h"
#include "ui/floating_panels.h"

namespace veloria {
namespace {

constexpr int kTitleHeight = 22;

class FloatingWindows : public test::InputTest {
  protected:
    FloatingWindows() : test::InputTest(1920, 1080) {}

    // Is the whole title bar, with its boxes, inside the window?
    testing::AssertionResult isWithinReach(const SDL_Rect& rect) const {
        const WindowLayout& window = app.layout;
        if (rect.x >= 0 && rect.y >= 0 && rect.x + rect.w <= window.windowW &&
            rect.y + kTitleHeight <= window.windowH) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << rect.x << ", " << rect.y << ", " << rect.w << " wide, in "
                                           << window.windowW << " by " << window.windowH;
    }
    void shrink(int w, int h) {
        resize(w, h);
        frame();
    }
    // Takes a panel by its title bar as far to the lower right as it goes.
    void dragToTheCorner(const SDL_Rect& rect) {
        down(rect.x + 40, rect.y + 10);
        move(5000, 5000);
        up(5000, 5000);
    }
    void openCalculator() {
        toggleCalculator(app.calculator);
        frame();
    }
};

TEST_F(FloatingWindows, APanelLeftOutsideASmallerWindowComesBackAtOnce) {
    for (int id = 0; id < kPanelCount; ++id) {
        shrink(1920, 1080);
        togglePanel(app.panels, id);
        frame();
        dragToTheCorner(panel(id).rect);
        const SDL_Rect before = panel(id).rect;
        ASSERT_EQ(before.x + before.w, 1920) << id;
        ASSERT_EQ(before.y + before.h, 1080) << id;
        shrink(800, 600);
        EXPECT_TRUE(isWithinReach(panel(id).rect)) << id;
        EXPECT_EQ(panel(id).rect.x, 800 - before.w) << "no farther than needed";
        EXPECT_EQ(panel(id).rect.y, 600 - before.h);
        EXPECT_EQ(panel(id).rect.w, before.w);
        EXPECT_EQ(panel(id).rect.h, before.h);
        const PanelLayout layout = panelLayout(panel(id), 800, 600);
        clickRect(layout.close);
        EXPECT_FALSE(panel(id).open) << id << ": its close box is where it is seen";
    }
}

TEST_F(FloatingWindows, APanelIsBroughtInWhenItIsOpened) {
    for (int id = 0; id < kPanelCount; ++id) {
        panel(id).rect.x = 1920 - panel(id).rect.w;
        panel(id).rect.y = 1080 - panel(id).rect.h;
    }
    shrink(800, 600);
    for (int id = 0; id < kPanelCount; ++id) {
        EXPECT_GT(panel(id).rect.x, 800) << "a closed one stays where it is, for a window that grows again";
        togglePanel(app.panels, id);
        frame();
        EXPECT_TRUE(isWithinReach(panel(id).rect)) << id;
        togglePanel(app.panels, id);
        panel(id).rect.x = 5000;  // and at every opening
        frame();
        togglePanel(app.panels, id);
        frame();
        EXPECT_TRUE(isWithinReach(panel(id).rect)) << id;
        togglePanel(app.panels, id);
    }
}

TEST_F(FloatingWindows, EveryButtonThatOpensAPanelOpensItWithinReach) {
    for (PanelState& each : app.panels.panels)
        each.rect.x = each.rect.y = 3000;
    for (const char* label :
         {"LOTUS", "POLAR", "SPEC 1", "SACRED", "HARMONICS", "KATHARA PANEL", "SCOPE", "SHADOW"}) {
        widget(label).onClick();
        frame();
        for (const PanelState& each : app.panels.panels)
            EXPECT_TRUE(!each.open || isWithinReach(each.rect)) << label;
        widget(label).onClick();
        frame();
    }
    widget("SPEC 2").onClick();
    panel(kSpectrumPanel).rect.x = 3000;
    widget("SPEC 1").onClick();  // the same panel in another palette: it was open all the time
    widget("SPEC 1").onClick();
    frame();
    widget("SPEC 1").onClick();
    frame();
    EXPECT_TRUE(isWithinReach(panel(kSpectrumPanel).rect));
}

TEST_F(FloatingWindows, TheCalculatorIsBroughtInToo) {
    openCalculator();
    dragToTheCorner(app.calculator.calcRect);
    ASSERT_EQ(app.calculator.calcRect.x, 1920 - 340);
    shrink(1366, 768);
    EXPECT_EQ(app.calculator.calcRect.x, 1366 - 340);
    EXPECT_EQ(app.calculator.calcRect.y, 768 - 378);
    toggleCalculator(app.calculator);
    shrink(800, 600);
    EXPECT_EQ(app.calculator.calcRect.x, 1366 - 340) << "hidden it stays";
    openCalculator();
    EXPECT_TRUE(isWithinReach(app.calculator.calcRect));
    EXPECT_EQ(app.calculator.calcRect.w, 340);
    EXPECT_EQ(app.calculator.calcRect.h, 378);
}

TEST_F(FloatingWindows, EitherSideOfTheWindowThatShrinksBringsThemIn) {
    togglePanel(app.panels, kScopePanel);
    frame();
    dragToTheCorner(panel(kScopePanel).rect);
    shrink(1919, 1080);
    EXPECT_EQ(panel(kScopePanel).rect.x, 1919 - 600);
    shrink(1919, 1079);
    EXPECT_EQ(panel(kScopePanel).rect.y, 1079 - 220);
}

TEST_F(FloatingWindows, AMaximisedPanelComesBackWithinReach) {
    togglePanel(app.panels, kScopePanel);
    frame();
    dragToTheCorner(panel(kScopePanel).rect);
    panel(kScopePanel).maximised = true;
    shrink(800, 600);
    EXPECT_TRUE(panel(kScopePanel).maximised);
    clickRect(panelLayout(panel(kScopePanel), 800, 600).maximise);
    frame();
    EXPECT_FALSE(panel(kScopePanel).maximised);
    EXPECT_TRUE(isWithinReach(panel(kScopePanel).rect));
}

TEST_F(FloatingWindows, APanelLargerThanTheWindowIsCutToIt) {
    togglePanel(app.panels, kSpectrumPanel);
    panel(kSpectrumPanel).rect = {100, 50, 1700, 900};
    shrink(800, 600);
    const SDL_Rect all{0, 0, 800, 600};
    EXPECT_TRUE(SDL_RectEquals(&panel(kSpectrumPanel).rect, &all));
    shrink(1280, 720);
    EXPECT_TRUE(SDL_RectEquals(&panel(kSpectrumPanel).rect, &all)) << "a larger window changes nothing";
}

TEST_F(FloatingWindows, OneThatIsNotOutsideStaysWhereItIs) {
    togglePanel(app.panels, kPolarPanel);
    openCalculator();
    const SDL_Rect polar = panel(kPolarPanel).rect;
    const SDL_Rect calculator = app.calculator.calcRect;
    for (const SDL_Point& size : {SDL_Point{1366, 768}, {800, 600}, {1280, 720}, {1920, 1080}}) {
        shrink(size.x, size.y);
        EXPECT_TRUE(SDL_RectEquals(&panel(kPolarPanel).rect, &polar)) << size.x;
        EXPECT_TRUE(SDL_RectEquals(&app.calculator.calcRect, &calculator)) << size.x;
    }
}

TEST_F(FloatingWindows, AWindowThatIsPutAwayMovesNothing) {
    togglePanel(app.panels, kSpectrumPanel);
    openCalculator();
    const SDL_Rect spectrum = panel(kSpectrumPanel).rect;
    const SDL_Rect calculator = app.calculator.calcRect;
    for (const SDL_Point& size : {SDL_Point{0, 0}, {0, 600}, {800, 0}}) {
        app.layout.windowW = size.x;
        app.layout.windowH = size.y;
        settleFloatingWindows(app);
        EXPECT_TRUE(SDL_RectEquals(&panel(kSpectrumPanel).rect, &spectrum)) << size.x << ", " << size.y;
        EXPECT_TRUE(SDL_RectEquals(&app.calculator.calcRect, &calculator)) << size.x << ", " << size.y;
    }
}

// Nothing is moved but on those two occasions: a resize may reach outside while it lasts.
TEST_F(FloatingWindows, APanelInHandIsNotMoved) {
    togglePanel(app.panels, kScopePanel);
    frame();
    panel(kScopePanel).rect.x = 1800;
    frame();
    frame();
    EXPECT_EQ(panel(kScopePanel).rect.x, 1800);
}

class InertBody : public FloatingWindows {
  protected:
    // The scope's body has no controls.
    void openScope(const SDL_Rect& rect) {
        panel(kScopePanel).open = true;
        panel(kScopePanel).rect = rect;
        frame();
        ASSERT_TRUE(SDL_RectEquals(&panel(kScopePanel).rect, &rect));
    }
};

TEST_F(InertBody, LetsPressesThroughToTheSidePanels) {
    openScope({50, 60, 300, 220});
    engine.sacredOptimizer = false;
    click(100, 110);  // "Sacred Optimizer"
    EXPECT_TRUE(engine.sacredOptimizer);
    openScope({1550, 60, 300, 220});
    const SDL_Rect row = gridCell(rowGrid(app.layout, kAvatarRowsTop, 0), 0);
    ASSERT_TRUE(contains(panel(kScopePanel).rect, 1560, row.y + 20));
    click(1560, row.y + 20);
    EXPECT_FALSE(engine.voices.empty());
}

TEST_F(InertBody, ReachesNothingOfTheRecorderBeneath) {
    const int top = app.layout.contentBottom;
    for (const int x : {30, 1600}) {  // left and right of the centre
        openScope({x, top + 4, 250, 300});
        app.recorder.playhead = 1.5;
        click(x + 200, top + 57);  // the ruler
        EXPECT_EQ(app.recorder.playhead, 1.5) << x;
        EXPECT_FALSE(app.recorder.scrubbing);
        click(x + 66, top + 68 + 17);  // the first row's check box, left; right of the centre a row
        EXPECT_TRUE(app.recorder.channels[0].enabled);
    }
    panel(kScopePanel).open = false;
    click(230, top + 57);
    EXPECT_NE(app.recorder.playhead, 1.5) << "without the panel it is the ruler";
}

TEST_F(InertBody, ReachesNeitherTheRecordersEdgeNorTheBars) {
    const int top = app.layout.contentBottom;
    openScope({30, top - 100, 250, 300});
    down(100, top + 1);
    EXPECT_EQ(app.held.splitter, Splitter::None);
    up(100, top + 1);
    app.sizes.leftWidth = 0;
    app.sizes.rightX = 600;  // the top bar's buttons lie beside the centre
    frame();
    const SDL_Rect stop = topBarButtonRect(app.layout, kStopButton);
    openScope({stop.x - 50, 0, 300, 220});
    app.transport.playing = true;
    bool stopped = false;
    app.onStop = [&] { stopped = true; };
    click(stop.x + 10, 26);
    EXPECT_FALSE(stopped) << "the top bar is no side panel";
}

}  // namespace
}  // namespace veloria
