// One test for each row of the table above the code, then the rules beside it.
#include "toolkit/panel_input.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace veloria {
namespace {

constexpr int kWindowW = 1280;
constexpr int kWindowH = 720;

SDL_Event mouseButton(Uint32 type, Uint8 button, int x, int y) {
    SDL_Event event{};
    event.type = type;
    event.button.button = button;
    event.button.x = x;
    event.button.y = y;
    return event;
}

SDL_Event press(int x, int y) {
    return mouseButton(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, x, y);
}

SDL_Event release() {
    return mouseButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, 5, 5);
}

SDL_Event motion(int x, int y) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = x;
    event.motion.y = y;
    return event;
}

// A panel of 360 by 340 at (100, 120): its boxes end at x 460, its corner at (460, 460).
class PanelInputTest : public testing::Test {
  protected:
    PanelInputTest() {
        panel.open = true;
        panel.rect = {100, 120, 360, 340};
        input.id = 3;
        input.windowW = kWindowW;
        input.windowH = kWindowH;
        input.targeted = true;
    }

    PanelOutcome send(const SDL_Event& event) { return panelEvent(panel, resize, input, event); }

    void expectAction(const SDL_Event& event, PanelAction action, bool consumed) {
        const PanelOutcome outcome = send(event);
        EXPECT_EQ(outcome.action, action);
        EXPECT_EQ(outcome.consumed, consumed);
    }

    // Controls of the panel's own: one in the title bar, one in the body, one over the resize corner.
    void addExtras() {
        input.titleExtra = [this](int x, int y) {
            calls.push_back("title");
            return x >= 300 && x < 340 && y >= 122 && y < 138;
        };
        input.bodyExtra = [this](int x, int y) {
            calls.push_back("body");
            return (x >= 120 && x < 160 && y >= 200 && y < 216) || (x >= 440 && y >= 440);
        };
    }

    void expectUnchanged() const {
        EXPECT_TRUE(panel.open);
        EXPECT_FALSE(panel.maximised);
        EXPECT_FALSE(panel.dragging);
        EXPECT_FALSE(resize.resizing);
        EXPECT_EQ(panel.rect.x, 100);
        EXPECT_EQ(panel.rect.y, 120);
    }

    PanelState panel;
    PanelResize resize;
    PanelInput input;
    std::vector<std::string> calls;
};

TEST_F(PanelInputTest, TheCloseBoxCloses) {
    expectAction(press(445, 130), PanelAction::Closed, true);
    EXPECT_FALSE(panel.open);
}

TEST_F(PanelInputTest, TheCloseBoxOfAMaximisedPanelClosesItAndClearsMaximised) {
    panel.maximised = true;
    expectAction(press(1275, 5), PanelAction::Closed, true);
    EXPECT_FALSE(panel.open);
    EXPECT_FALSE(panel.maximised);
}

TEST_F(PanelInputTest, TheMaximiseBoxMaximisesAndGoesBackToTheOldPlace) {
    expectAction(press(420, 130), PanelAction::MaximiseToggled, true);
    EXPECT_TRUE(panel.maximised);
    expectAction(press(1240, 10), PanelAction::MaximiseToggled, true);
    EXPECT_FALSE(panel.maximised);
    EXPECT_EQ(panel.rect.x, 100);
    EXPECT_EQ(panel.rect.w, 360);
}

TEST_F(PanelInputTest, AControlInTheTitleBarComesBeforeTheDrag) {
    addExtras();
    expectAction(press(310, 130), PanelAction::TitleExtra, true);
    EXPECT_FALSE(panel.dragging);
    EXPECT_EQ(calls, (std::vector<std::string>{"title"}));
}

TEST_F(PanelInputTest, AControlInTheTitleBarOfAMaximisedPanelIsReached) {
    addExtras();
    input.titleExtra = [](int x, int y) { return x > 1100 && y < 20; };
    panel.maximised = true;
    expectAction(press(1150, 10), PanelAction::TitleExtra, true);
}

TEST_F(PanelInputTest, TheCornerBeginsAResizeEvenOverAControl) {
    addExtras();
    expectAction(press(450, 455), PanelAction::ResizeBegun, true);
    EXPECT_TRUE(resize.resizing);
    EXPECT_EQ(resize.resizingPanel, 3);
    EXPECT_EQ(resize.resizeStartX, 450);
    EXPECT_EQ(resize.resizeStartY, 455);
    EXPECT_EQ(resize.resizeStartW, 360);
    EXPECT_EQ(resize.resizeStartH, 340);
    EXPECT_TRUE(calls.empty());
}

TEST_F(PanelInputTest, AMaximisedPanelHasNoCorner) {
    panel.maximised = true;
    expectAction(press(1275, 715), PanelAction::InertBody, true);
    EXPECT_FALSE(resize.resizing);
}

TEST_F(PanelInputTest, TheTitleBarBeginsADragWithItsOffsets) {
    addExtras();
    expectAction(press(130, 141), PanelAction::DragBegun, true);
    EXPECT_TRUE(panel.dragging);
    EXPECT_EQ(panel.dragX, 30);
    EXPECT_EQ(panel.dragY, 21);
}

TEST_F(PanelInputTest, TheTitleBarOfAMaximisedPanelIsInert) {
    panel.maximised = true;
    expectAction(press(300, 10), PanelAction::InertBody, true);
    EXPECT_FALSE(panel.dragging);
}

TEST_F(PanelInputTest, AControlInTheBodyActs) {
    addExtras();
    expectAction(press(130, 205), PanelAction::BodyExtra, true);
    EXPECT_EQ(calls, (std::vector<std::string>{"body"}));
    expectUnchanged();
}

TEST_F(PanelInputTest, APressOnTheInertBodyIsConsumedOverTheCentre) {
    addExtras();
    expectAction(press(300, 300), PanelAction::InertBody, true);
    expectUnchanged();
}

TEST_F(PanelInputTest, APressOnTheInertBodyFallsThroughOverASidePanel) {
    input.overSidePanel = true;
    expectAction(press(300, 300), PanelAction::InertBody, false);
}

TEST_F(PanelInputTest, NothingFallsThroughAMaximisedPanel) {
    input.overSidePanel = true;
    panel.maximised = true;
    expectAction(press(300, 300), PanelAction::InertBody, true);
}

TEST_F(PanelInputTest, WhatAControlUsesIsConsumedOverASidePanelToo) {
    addExtras();
    input.overSidePanel = true;
    expectAction(press(310, 130), PanelAction::TitleExtra, true);
    expectAction(press(130, 205), PanelAction::BodyExtra, true);
    expectAction(press(450, 455), PanelAction::ResizeBegun, true);
    expectAction(press(130, 125), PanelAction::DragBegun, true);
    expectAction(press(420, 130), PanelAction::MaximiseToggled, true);
    expectAction(press(1275, 5), PanelAction::Closed, true);
}

TEST_F(PanelInputTest, AMotionWhileDraggingMovesThePanel) {
    send(press(130, 130));
    expectAction(motion(230, 180), PanelAction::Dragged, true);
    EXPECT_EQ(panel.rect.x, 200);
    EXPECT_EQ(panel.rect.y, 170);
    EXPECT_EQ(panel.rect.w, 360);
    EXPECT_EQ(panel.rect.h, 340);
}

TEST_F(PanelInputTest, AMotionWithoutADragIsNotThePanels) {
    expectAction(motion(300, 300), PanelAction::None, false);
    expectUnchanged();
}

TEST_F(PanelInputTest, ALeftReleaseEndsTheDragAndIsLeftToOthers) {
    send(press(130, 130));
    expectAction(release(), PanelAction::None, false);
    EXPECT_FALSE(panel.dragging);
    expectAction(motion(500, 500), PanelAction::None, false);
    EXPECT_EQ(panel.rect.x, 100);
}

TEST_F(PanelInputTest, OtherButtonsAndTheWheelAreNotTheFrames) {
    addExtras();
    for (const Uint8 button : {Uint8{SDL_BUTTON_RIGHT}, Uint8{SDL_BUTTON_MIDDLE}}) {
        expectAction(mouseButton(SDL_MOUSEBUTTONDOWN, button, 445, 130), PanelAction::None, false);
    }
    SDL_Event wheel{};
    wheel.type = SDL_MOUSEWHEEL;
    expectAction(wheel, PanelAction::None, false);
    EXPECT_TRUE(calls.empty());
    expectUnchanged();
}

TEST_F(PanelInputTest, ARightReleaseDoesNotEndTheDrag) {
    send(press(130, 130));
    send(mouseButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_RIGHT, 1, 1));
    EXPECT_TRUE(panel.dragging);
}

TEST_F(PanelInputTest, APressMeantForAnotherPanelDoesNothing) {
    input.targeted = false;
    expectAction(press(445, 130), PanelAction::None, false);
    expectUnchanged();
}

TEST_F(PanelInputTest, APressOutsideTheFrameDoesNothing) {
    for (const SDL_Point& point : {SDL_Point{99, 200}, {460, 200}, {200, 119}, {200, 460}}) {
        expectAction(press(point.x, point.y), PanelAction::None, false);
    }
    expectUnchanged();
}

TEST_F(PanelInputTest, AClosedPanelTakesNothing) {
    panel.open = false;
    expectAction(press(445, 130), PanelAction::None, false);
    panel.dragging = true;
    expectAction(motion(300, 300), PanelAction::None, false);
    send(release());
    EXPECT_FALSE(panel.dragging);
}

// The boxes take presses up to the panel's edge and up to each other's side, less the gap of two.
TEST_F(PanelInputTest, TheEdgesOfTheBoxesAreExact) {
    const auto actionAt = [&](int x, int y) {
        panel.open = true;
        panel.maximised = false;
        panel.dragging = false;
        return send(press(x, y)).action;
    };
    EXPECT_EQ(actionAt(440, 122), PanelAction::Closed);
    EXPECT_EQ(actionAt(459, 139), PanelAction::Closed);
    EXPECT_EQ(actionAt(445, 121), PanelAction::DragBegun);
    EXPECT_EQ(actionAt(445, 140), PanelAction::DragBegun);
    EXPECT_EQ(actionAt(439, 130), PanelAction::DragBegun);
    EXPECT_EQ(actionAt(438, 130), PanelAction::DragBegun);
    EXPECT_EQ(actionAt(437, 130), PanelAction::MaximiseToggled);
    EXPECT_EQ(actionAt(418, 122), PanelAction::MaximiseToggled);
    EXPECT_EQ(actionAt(417, 122), PanelAction::DragBegun);
    EXPECT_EQ(actionAt(200, 141), PanelAction::DragBegun);
    EXPECT_EQ(actionAt(200, 142), PanelAction::InertBody);
    EXPECT_EQ(actionAt(446, 446), PanelAction::ResizeBegun);
    EXPECT_EQ(actionAt(445, 446), PanelAction::InertBody);
    EXPECT_EQ(actionAt(446, 445), PanelAction::InertBody);
    EXPECT_EQ(actionAt(459, 459), PanelAction::ResizeBegun);
}

TEST_F(PanelInputTest, ADraggedPanelStaysInsideTheWindow) {
    send(press(130, 130));
    send(motion(-500, -500));
    EXPECT_EQ(panel.rect.x, 0);
    EXPECT_EQ(panel.rect.y, 0);
    send(motion(5000, 5000));
    EXPECT_EQ(panel.rect.x, kWindowW - 360);
    EXPECT_EQ(panel.rect.y, kWindowH - 340);
}

TEST_F(PanelInputTest, APanelLargerThanTheWindowShowsItsLeftAndTop) {
    panel.rect = {100, 120, 2000, 1000};
    send(press(130, 130));
    send(motion(600, 600));
    EXPECT_EQ(panel.rect.x, 0);
    EXPECT_EQ(panel.rect.y, 0);
}

TEST_F(PanelInputTest, AResizeFollowsThePointerFromThePress) {
    send(press(450, 455));
    EXPECT_TRUE(panelResizeEvent(resize, panel.rect, motion(500, 475)));
    EXPECT_EQ(panel.rect.w, 410);
    EXPECT_EQ(panel.rect.h, 360);
    EXPECT_EQ(panel.rect.x, 100);
    EXPECT_EQ(panel.rect.y, 120);
}

TEST_F(PanelInputTest, AResizeStopsAt200By150AndHasNoUpperBound) {
    send(press(450, 455));
    panelResizeEvent(resize, panel.rect, motion(-900, -900));
    EXPECT_EQ(panel.rect.w, 200);
    EXPECT_EQ(panel.rect.h, 150);
    panelResizeEvent(resize, panel.rect, motion(450 - 159, 455 - 189));
    EXPECT_EQ(panel.rect.w, 201);
    EXPECT_EQ(panel.rect.h, 151);
    panelResizeEvent(resize, panel.rect, motion(3450, 3455));
    EXPECT_EQ(panel.rect.w, 3360);
    EXPECT_EQ(panel.rect.h, 3340);
}

TEST_F(PanelInputTest, ALeftReleaseEndsTheResizeAndIsLeftToOthers) {
    send(press(450, 455));
    EXPECT_FALSE(panelResizeEvent(resize, panel.rect, release()));
    EXPECT_FALSE(resize.resizing);
    EXPECT_EQ(resize.resizingPanel, -1);
    EXPECT_FALSE(panelResizeEvent(resize, panel.rect, motion(900, 900)));
    EXPECT_EQ(panel.rect.w, 360);
}

TEST_F(PanelInputTest, OtherEventsDoNotEndTheResize) {
    send(press(450, 455));
    EXPECT_FALSE(
        panelResizeEvent(resize, panel.rect, mouseButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_RIGHT, 1, 1)));
    EXPECT_TRUE(resize.resizing);
}

TEST_F(PanelInputTest, AnOpenPanelHoldsThePointsOfItsFrame) {
    EXPECT_TRUE(panelContains(panel, kWindowW, kWindowH, 100, 120));
    EXPECT_TRUE(panelContains(panel, kWindowW, kWindowH, 459, 459));
    EXPECT_FALSE(panelContains(panel, kWindowW, kWindowH, 460, 459));
    panel.maximised = true;
    EXPECT_TRUE(panelContains(panel, kWindowW, kWindowH, 1279, 719));
    EXPECT_FALSE(panelContains(panel, kWindowW, kWindowH, 1280, 719));
    panel.open = false;
    EXPECT_FALSE(panelContains(panel, kWindowW, kWindowH, 200, 200));
}

}  // namespace
}  // namespace veloria
