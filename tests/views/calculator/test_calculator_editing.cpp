// The calculator's field: what opens and closes it, and what typing does.
#include <gtest/gtest.h>

#include "tests/views/calculator/calculator_test.h"

namespace veloria {
namespace {

class CalculatorEditing : public test::CalculatorTest {};

TEST_F(CalculatorEditing, TheDisplayOpensTheFieldOverTheFullWidth) {
    for (const SDL_Point& at : {SDL_Point{300, 148}, SDL_Point{639, 185}, SDL_Point{400, 160}}) {
        EXPECT_TRUE(press(at.x, at.y));
        EXPECT_TRUE(state.calcEditing);
        EXPECT_EQ(state.calcText, "440.000");
        EXPECT_TRUE(SDL_IsTextInputActive());
        endCalculatorEditing(state);
        EXPECT_FALSE(SDL_IsTextInputActive());
    }
    for (const int y : {147, 186}) {
        EXPECT_TRUE(press(300, y));
        EXPECT_FALSE(state.calcEditing);
        EXPECT_FALSE(SDL_IsTextInputActive());
    }
}

TEST_F(CalculatorEditing, TypingWithTheFieldClosedIsForOthers) {
    EXPECT_FALSE(type("5"));
    EXPECT_FALSE(key(SDLK_1));
    EXPECT_FALSE(key(SDLK_RETURN));
    EXPECT_FALSE(key(SDLK_BACKSPACE));
    EXPECT_EQ(state.calcText, "440.0");
}

TEST_F(CalculatorEditing, WithTheFieldOpenEveryKeyIsConsumed) {
    pressDisplay();
    for (const SDL_Keycode code : {SDLK_1, SDLK_q, SDLK_f, SDLK_SPACE, SDLK_DELETE, SDLK_F5, SDLK_UP}) {
        EXPECT_TRUE(key(code));
        EXPECT_TRUE(state.calcEditing);
        EXPECT_EQ(state.calcText, "440.000");
    }
    EXPECT_TRUE(key(SDLK_BACKSPACE));
    EXPECT_TRUE(key(SDLK_ESCAPE));
    pressDisplay();
    EXPECT_TRUE(key(SDLK_RETURN));
    EXPECT_FALSE(key(SDLK_RETURN)) << "now it is closed";
}

TEST_F(CalculatorEditing, DigitsAndPointsAreTakenAndNothingElse) {
    openEmptyField();
    EXPECT_TRUE(type("1a2b,3-+ e.4"));
    EXPECT_EQ(state.calcText, "123.4");
    EXPECT_TRUE(type("\xC3\xA9\xD9\xA3"));  // letters of several bytes, a digit of another script among them
    EXPECT_EQ(state.calcText, "123.4");
    EXPECT_TRUE(type(""));
    EXPECT_EQ(state.calcText, "123.4");
}

TEST_F(CalculatorEditing, TheFieldTakesFourteenCharacters) {
    openEmptyField();
    for (int i = 0; i < 13; ++i)
        type("7");
    EXPECT_EQ(state.calcText.size(), 13u);
    type("89");
    EXPECT_EQ(state.calcText, "77777777777778");
    EXPECT_TRUE(type("5"));
    EXPECT_EQ(state.calcText, "77777777777778");
    key(SDLK_BACKSPACE);
    type("9");
    EXPECT_EQ(state.calcText, "77777777777779");
}

TEST_F(CalculatorEditing, ALongValueFillsTheFieldWholeAndCanBeShortened) {
    state.calcValue = 99999999999999.0;
    pressDisplay();
    EXPECT_EQ(state.calcText, "99999999999999.000");
    type("1");
    EXPECT_EQ(state.calcText, "99999999999999.000");
    for (int i = 0; i < 5; ++i)
        key(SDLK_BACKSPACE);
    EXPECT_EQ(state.calcText, "9999999999999");
    type("12");
    EXPECT_EQ(state.calcText, "99999999999991");
}

TEST_F(CalculatorEditing, TheFieldNeverHoldsMoreThanThirtyOneCharacters) {
    state.calcValue = 1e200;
    pressDisplay();
    EXPECT_EQ(state.calcText.size(), 31u);
}

TEST_F(CalculatorEditing, BackspaceEmptiesTheFieldAndStops) {
    openEmptyField();
    type("12");
    key(SDLK_BACKSPACE);
    EXPECT_EQ(state.calcText, "1");
    key(SDLK_BACKSPACE);
    EXPECT_EQ(state.calcText, "");
    EXPECT_TRUE(key(SDLK_BACKSPACE));
    EXPECT_EQ(state.calcText, "");
    EXPECT_TRUE(state.calcEditing);
}

TEST_F(CalculatorEditing, BothEntersTakeTheValue) {
    for (const SDL_Keycode enter : {SDLK_RETURN, SDLK_KP_ENTER}) {
        state.calcValue = 440.0;
        state.calcHasPrevious = false;
        openEmptyField();
        type("432.5");
        EXPECT_TRUE(key(enter));
        EXPECT_EQ(state.calcValue, 432.5);
        EXPECT_EQ(state.calcPrevious, 440.0);
        EXPECT_TRUE(state.calcHasPrevious);
        EXPECT_FALSE(state.calcEditing);
        EXPECT_FALSE(SDL_IsTextInputActive());
    }
}

TEST_F(CalculatorEditing, ATypedValueCanBeUndone) {
    typeAndConfirm("432");
    press(475, 370);  // UNDO
    EXPECT_EQ(state.calcValue, 440.0);
    press(475, 370);
    EXPECT_EQ(state.calcValue, 432.0);
}

TEST_F(CalculatorEditing, SeveralPointsStayInTheFieldAndTheNumberEndsAtTheSecond) {
    openEmptyField();
    type("1.2.3");
    EXPECT_EQ(state.calcText, "1.2.3");
    key(SDLK_RETURN);
    EXPECT_EQ(state.calcValue, 1.2);
}

TEST_F(CalculatorEditing, ATypedValueHasNoBounds) {
    typeAndConfirm("99999999999999");
    EXPECT_EQ(state.calcValue, 99999999999999.0);
    typeAndConfirm("0.0000001");
    EXPECT_EQ(state.calcValue, 0.0000001);
}

TEST_F(CalculatorEditing, WhatIsNotAboveZeroLeavesTheValueAndEndsEditing) {
    for (const char* text : {"", ".", "0", "0.000", "..1"}) {
        typeAndConfirm(text);
        EXPECT_EQ(state.calcValue, 440.0) << text;
        EXPECT_FALSE(state.calcHasPrevious) << text;
        EXPECT_FALSE(state.calcEditing) << text;
        EXPECT_FALSE(SDL_IsTextInputActive()) << text;
    }
}

TEST_F(CalculatorEditing, ConfirmingASmallValueUnchangedLeavesIt) {
    state.calcValue = 0.0000001;
    pressDisplay();
    EXPECT_EQ(state.calcText, "0.000");
    key(SDLK_RETURN);
    EXPECT_EQ(state.calcValue, 0.0000001);
}

TEST_F(CalculatorEditing, EscapeThrowsTheTextAway) {
    openEmptyField();
    type("99");
    EXPECT_TRUE(key(SDLK_ESCAPE));
    EXPECT_FALSE(state.calcEditing);
    EXPECT_FALSE(SDL_IsTextInputActive());
    EXPECT_EQ(state.calcValue, 440.0);
    EXPECT_FALSE(state.calcHasPrevious);
    EXPECT_TRUE(state.calcVisible);
}

TEST_F(CalculatorEditing, APressInsideThrowsTheTextAwayAndThenActs) {
    openEmptyField();
    type("99");
    EXPECT_TRUE(press(304, 192));  // +Oct
    EXPECT_FALSE(state.calcEditing);
    EXPECT_FALSE(SDL_IsTextInputActive());
    EXPECT_EQ(state.calcValue, 880.0);
    EXPECT_EQ(state.calcPrevious, 440.0);
    openEmptyField();
    EXPECT_TRUE(press(400, 450));
    EXPECT_FALSE(state.calcEditing);
    openEmptyField();
    EXPECT_TRUE(press(400, 130));
    EXPECT_FALSE(state.calcEditing);
    EXPECT_TRUE(state.calcDragging);
}

TEST_F(CalculatorEditing, APressOnTheOpenFieldBeginsAnew) {
    openEmptyField();
    type("99");
    EXPECT_TRUE(pressDisplay());
    EXPECT_TRUE(state.calcEditing);
    EXPECT_TRUE(SDL_IsTextInputActive());
    EXPECT_EQ(state.calcText, "440.000");
}

TEST_F(CalculatorEditing, APressOutsideLeavesTheFieldOpen) {
    openEmptyField();
    type("99");
    EXPECT_FALSE(press(100, 100));
    EXPECT_TRUE(state.calcEditing);
    EXPECT_EQ(state.calcText, "99");
}

TEST_F(CalculatorEditing, ClosingEndsEditing) {
    openEmptyField();
    type("99");
    EXPECT_TRUE(press(625, 130));
    EXPECT_FALSE(state.calcVisible);
    EXPECT_FALSE(state.calcEditing);
    EXPECT_FALSE(SDL_IsTextInputActive());
    EXPECT_EQ(state.calcValue, 440.0);
}

TEST_F(CalculatorEditing, TogglingHidesWithEditingAndDragEndedAndShowsAgain) {
    pressDisplay();
    state.calcDragging = true;
    toggleCalculator(state);
    EXPECT_FALSE(state.calcVisible);
    EXPECT_FALSE(state.calcEditing);
    EXPECT_FALSE(state.calcDragging);
    EXPECT_FALSE(SDL_IsTextInputActive());
    EXPECT_FALSE(key(SDLK_1)) << "keys go to others again";
    toggleCalculator(state);
    EXPECT_TRUE(state.calcVisible);
    EXPECT_FALSE(state.calcEditing);
}

TEST_F(CalculatorEditing, EndingFromOutsideStopsOnlyItsOwnTextInput) {
    openEmptyField();
    type("99");
    endCalculatorEditing(state);
    EXPECT_FALSE(state.calcEditing);
    EXPECT_FALSE(SDL_IsTextInputActive());
    EXPECT_EQ(state.calcValue, 440.0);
    SDL_StartTextInput();  // another field
    endCalculatorEditing(state);
    EXPECT_TRUE(SDL_IsTextInputActive());
    toggleCalculator(state);
    EXPECT_TRUE(SDL_IsTextInputActive());
}

}  // namespace
}  // namespace veloria
