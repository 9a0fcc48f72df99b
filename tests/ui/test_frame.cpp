// What lies over what in a whole frame.
#include <gtest/gtest.h>

#include "tests/ui/events.h"
#include "ui/floating_panels.h"

namespace veloria {
namespace {

class Frame : public test::InputTest {
  protected:
    void open(int id, const SDL_Rect& rect) {
        panel(id).open = true;
        panel(id).rect = rect;
        raisePanel(app.panels, id);
    }
};

TEST_F(Frame, TheFrontPanelIsDrawnLast) {
    open(kLotusPanel, {420, 40, 300, 200});
    open(kScopePanel, {500, 40, 300, 200});
    frame();
    const SDL_Color scopeInFront = at(510, 150);
    EXPECT_EQ(scopeInFront, app.theme.scopeBackground);
    raisePanel(app.panels, kLotusPanel);
    frame();
    EXPECT_NE(at(510, 150), scopeInFront);
}

TEST_F(Frame, TheCalculatorLiesOverThePanels) {
    open(kScopePanel, {300, 100, 400, 300});
    frame();
    const SDL_Color scope = at(320, 300);
    toggleCalculator(app.calculator);
    frame();
    EXPECT_NE(at(320, 300), scope);
    EXPECT_EQ(at(300 + 200, 130), (SDL_Color{40, 80, 120, 255}));  // its title bar
}

TEST_F(Frame, TheWelcomeDimsTheWindowButNotThePanels) {
    open(kScopePanel, {420, 60, 300, 200});
    frame(100000);
    const SDL_Color bar = at(20, 5);
    const SDL_Color scope = at(425, 150);
    app.splashStart = 100000;
    frame(100500);
    EXPECT_LT(at(20, 5).r, bar.r);
    EXPECT_EQ(at(425, 150), scope);
    frame(107000);
    EXPECT_EQ(app.splashStart, 0u);
    EXPECT_EQ(at(20, 5), bar);
}

TEST_F(Frame, ALeftPanelTooNarrowTakesOnlyItsOwnContentsAway) {
    app.sizes.leftWidth = 10;
    frame();
    EXPECT_EQ(at(5, 100), app.theme.themeBackground);
    const SDL_Rect load = topBarButtonRect(app.layout, kLoadButton);
    EXPECT_NE(at(load.x + 80, load.y + 3), app.theme.themeTopBar);
    EXPECT_TRUE(isEmpty(app.hits.selectorHit));
}

TEST_F(Frame, TheRecorderLiesBetweenThePanelsAndTheStatusBar) {
    frame();
    const SDL_Rect& area = app.layout.recorder;
    EXPECT_EQ(at(area.x + 600, area.y + 10), (SDL_Color{20, 20, 32, 255}));
    EXPECT_EQ(at(1200, app.layout.statusBar.y + 15), app.theme.themeTopBar);
}

TEST_F(Frame, WhatAFloatingWindowCoversIsNotUnderThePointer) {
    EXPECT_FALSE(isUnderFloatingWindow(app, 580, 16));
    open(kScopePanel, {500, 0, 300, 200});
    EXPECT_TRUE(isUnderFloatingWindow(app, 580, 16));
    EXPECT_FALSE(isUnderFloatingWindow(app, 499, 16));
    panel(kScopePanel).open = false;
    app.calculator.calcRect.x = 500;
    app.calculator.calcRect.y = 0;
    EXPECT_FALSE(isUnderFloatingWindow(app, 580, 16));
    toggleCalculator(app.calculator);
    EXPECT_TRUE(isUnderFloatingWindow(app, 580, 16));
}

TEST_F(Frame, TheMainViewIsDrawnFrom61RowsAndIsNeverTooNarrow) {
    const auto isDrawn = [this] {
        dropSceneTexture(app.kathara);
        frame();
        return app.kathara.sceneTexture != nullptr;
    };
    setRightX(0);
    EXPECT_EQ(app.layout.centre.w, 118);
    EXPECT_TRUE(isDrawn());
    app.sizes.recorderHeight = kMinimumRecorder;
    resize(1280, 32 + 60 + kMinimumRecorder + kStatusBarHeight);
    EXPECT_FALSE(isDrawn());
    resize(1280, 32 + 61 + kMinimumRecorder + kStatusBarHeight);
    EXPECT_TRUE(isDrawn());
}

TEST_F(Frame, EveryPanelHasATitleBarOfItsOwn) {
    for (int id = 0; id < kPanelCount; ++id) {
        frame();
        const test::Picture closed = picture();
        open(id, {450, 60, 300, 200});
        frame();
        EXPECT_FALSE(picture() == closed) << id;
        panel(id).open = false;
    }
}

}  // namespace
}  // namespace veloria
