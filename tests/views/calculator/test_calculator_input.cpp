// The calculator under the mouse: pressing, dragging, closing. The window stands at (300, 120).
#include <gtest/gtest.h>

#include <cstddef>

#include "tests/views/calculator/calculator_test.h"

namespace veloria {
namespace {

class CalculatorInput : public test::CalculatorTest {};

TEST_F(CalculatorInput, StartsHiddenAt440WithNothingToUndo) {
    const CalculatorState fresh;
    EXPECT_FALSE(fresh.calcVisible);
    EXPECT_EQ(fresh.calcRect.x, 300);
    EXPECT_EQ(fresh.calcRect.y, 120);
    EXPECT_EQ(fresh.calcRect.w, 340);
    EXPECT_EQ(fresh.calcRect.h, 378);
    EXPECT_EQ(fresh.calcValue, 440.0);
    EXPECT_EQ(fresh.calcPrevious, 440.0);
    EXPECT_FALSE(fresh.calcHasPrevious);
    EXPECT_FALSE(fresh.calcEditing);
    EXPECT_FALSE(fresh.calcDragging);
    EXPECT_EQ(fresh.calcText, "440.0");
}

TEST_F(CalculatorInput, HiddenItTakesNothing) {
    state.calcVisible = false;
    EXPECT_FALSE(press(400, 160));
    EXPECT_FALSE(press(340, 200));
    EXPECT_FALSE(press(400, 130));
    EXPECT_FALSE(press(400, 200, SDL_BUTTON_RIGHT));
    EXPECT_FALSE(move(400, 200));
    EXPECT_FALSE(key(SDLK_RETURN));
    EXPECT_FALSE(type("5"));
    EXPECT_FALSE(calculatorContains(state, 400, 160));
    EXPECT_EQ(state.calcValue, 440.0);
    EXPECT_FALSE(state.calcEditing);
    EXPECT_FALSE(state.calcDragging);
}

TEST_F(CalculatorInput, ItIsHitInsideItsRectangleOnly) {
    EXPECT_TRUE(press(300, 120));
    EXPECT_TRUE(press(639, 497));
    EXPECT_FALSE(press(299, 300));
    EXPECT_FALSE(press(640, 300));
    EXPECT_FALSE(press(400, 119));
    EXPECT_FALSE(press(400, 498));
    EXPECT_TRUE(calculatorContains(state, 300, 120));
    EXPECT_TRUE(calculatorContains(state, 639, 497));
    EXPECT_FALSE(calculatorContains(state, 640, 497));
    EXPECT_FALSE(calculatorContains(state, 639, 498));
}

TEST_F(CalculatorInput, APressOnItsEmptyPartIsConsumedWithoutEffect) {
    EXPECT_TRUE(press(400, 450));  // under the buttons
    EXPECT_TRUE(press(385, 200));  // between two columns
    EXPECT_TRUE(press(340, 215));  // between two rows
    EXPECT_TRUE(press(400, 144));  // between title and display
    EXPECT_TRUE(press(400, 188));  // between display and buttons
    EXPECT_EQ(state.calcValue, 440.0);
    EXPECT_FALSE(state.calcHasPrevious);
    EXPECT_FALSE(state.calcEditing);
    EXPECT_FALSE(state.calcDragging);
}

TEST_F(CalculatorInput, OtherButtonsOverItAreConsumedWithoutEffect) {
    EXPECT_TRUE(press(340, 200, SDL_BUTTON_RIGHT));
    EXPECT_TRUE(press(620, 130, SDL_BUTTON_MIDDLE));
    EXPECT_TRUE(state.calcVisible);
    EXPECT_EQ(state.calcValue, 440.0);
    EXPECT_FALSE(press(700, 200, SDL_BUTTON_RIGHT));
    pressDisplay();
    EXPECT_TRUE(press(340, 200, SDL_BUTTON_RIGHT));
    EXPECT_TRUE(state.calcEditing) << "only a left press ends editing";
}

TEST_F(CalculatorInput, TheCloseBoxHidesIt) {
    EXPECT_TRUE(press(617, 130)) << "left of the box is title";
    EXPECT_TRUE(state.calcVisible);
    EXPECT_TRUE(state.calcDragging);
    release();
    EXPECT_TRUE(press(636, 130)) << "right of the box is title";
    EXPECT_TRUE(state.calcVisible);
    release();
    EXPECT_TRUE(press(625, 121)) << "above the box is title";
    EXPECT_TRUE(state.calcVisible);
    release();
    EXPECT_TRUE(press(625, 140)) << "below the box is title";
    EXPECT_TRUE(state.calcVisible);
    release();
    EXPECT_TRUE(press(618, 122));
    EXPECT_FALSE(state.calcVisible);
    EXPECT_FALSE(state.calcDragging);
    state.calcVisible = true;
    EXPECT_TRUE(press(635, 139));
    EXPECT_FALSE(state.calcVisible);
}

TEST_F(CalculatorInput, EachButtonIsPressedWhereItIsDrawn) {
    for (int i = 0; i < 32; ++i) {
        const int left = 304 + i % 4 * 83;
        const int top = 192 + i / 4 * 25;
        CalculatorState expected;
        expected.calcValue = 700.0;
        expected.calcPrevious = 100.0;
        expected.calcHasPrevious = true;
        pressCalcButton(expected, kCalcButtons[static_cast<std::size_t>(i)]);
        ASSERT_NE(expected.calcValue, 700.0);
        for (const SDL_Point& corner : {SDL_Point{left, top}, SDL_Point{left + 79, top + 21}}) {
            state.calcValue = 700.0;
            state.calcPrevious = 100.0;
            state.calcHasPrevious = true;
            EXPECT_TRUE(press(corner.x, corner.y));
            EXPECT_EQ(state.calcValue, expected.calcValue) << "button " << i;
            EXPECT_EQ(state.calcPrevious, expected.calcPrevious) << "button " << i;
        }
        for (const SDL_Point& beside : {SDL_Point{left - 1, top}, SDL_Point{left + 80, top},
                                        SDL_Point{left, top - 1}, SDL_Point{left, top + 22}}) {
            state.calcValue = 700.0;
            EXPECT_TRUE(press(beside.x, beside.y));
            EXPECT_EQ(state.calcValue, 700.0) << "beside button " << i;
        }
    }
}

TEST_F(CalculatorInput, TheTitleDragsIt) {
    EXPECT_TRUE(press(310, 141));
    EXPECT_TRUE(state.calcDragging);
    EXPECT_EQ(state.calcDragX, 10);
    EXPECT_EQ(state.calcDragY, 21);
    EXPECT_TRUE(move(360, 171));
    EXPECT_EQ(state.calcRect.x, 350);
    EXPECT_EQ(state.calcRect.y, 150);
    EXPECT_EQ(state.calcRect.w, 340);
    EXPECT_EQ(state.calcRect.h, 378);
    EXPECT_FALSE(release(360, 171)) << "others end their drags by it as well";
    EXPECT_FALSE(state.calcDragging);
    EXPECT_FALSE(move(500, 500));
    EXPECT_EQ(state.calcRect.x, 350);
}

TEST_F(CalculatorInput, BelowTheTitleNothingIsDragged) {
    EXPECT_TRUE(press(310, 142));
    EXPECT_FALSE(state.calcDragging);
}

TEST_F(CalculatorInput, ADragEndsAtTheScreensEdges) {
    press(310, 130);
    EXPECT_TRUE(move(-500, -500));
    EXPECT_EQ(state.calcRect.x, 0);
    EXPECT_EQ(state.calcRect.y, 0);
    EXPECT_TRUE(move(5000, 5000));
    EXPECT_EQ(state.calcRect.x, 940);
    EXPECT_EQ(state.calcRect.y, 342);
    EXPECT_TRUE(move(500, 300)) << "and goes on with the same hold";
    EXPECT_EQ(state.calcRect.x, 490);
    EXPECT_EQ(state.calcRect.y, 290);
}

TEST_F(CalculatorInput, InAScreenSmallerThanItselfItStaysAtTheCorner) {
    press(310, 130);
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = 150;
    event.motion.y = 150;
    EXPECT_TRUE(calculatorEvent(state, event, 200, 200));
    EXPECT_EQ(state.calcRect.x, 0);
    EXPECT_EQ(state.calcRect.y, 0);
}

TEST_F(CalculatorInput, AReleaseEndsADragEvenWhileHidden) {
    press(310, 130);
    state.calcVisible = false;
    EXPECT_FALSE(release());
    EXPECT_FALSE(state.calcDragging);
}

TEST_F(CalculatorInput, OnlyTheLeftButtonsReleaseEndsADrag) {
    press(310, 130);
    EXPECT_FALSE(send(test::mouseButton(SDL_MOUSEBUTTONUP, SDL_BUTTON_RIGHT, 310, 130)));
    EXPECT_TRUE(state.calcDragging);
}

TEST_F(CalculatorInput, AReleaseInsideIsNeverConsumed) {
    EXPECT_FALSE(release(400, 160));
    pressDisplay();
    EXPECT_FALSE(release(400, 160));
    EXPECT_TRUE(state.calcEditing);
}

TEST_F(CalculatorInput, AMovedWindowIsHitWhereItIs) {
    state.calcRect = {10, 40, 340, 378};
    EXPECT_FALSE(press(400, 160));
    EXPECT_TRUE(press(14, 112));  // +Oct
    EXPECT_EQ(state.calcValue, 880.0);
    EXPECT_TRUE(press(330, 44));
    EXPECT_FALSE(state.calcVisible);
}

TEST_F(CalculatorInput, TheWheelAndMotionWithoutADragAreForOthers) {
    SDL_Event wheel{};
    wheel.type = SDL_MOUSEWHEEL;
    wheel.wheel.y = 1;
    EXPECT_FALSE(send(wheel));
    EXPECT_FALSE(move(400, 160));
    EXPECT_EQ(state.calcRect.x, 300);
}

}  // namespace
}  // namespace veloria
