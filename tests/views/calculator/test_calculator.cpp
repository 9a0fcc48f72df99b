// The calculator's sums: its table, its buttons, its undo, what it says about a value.
#include "views/calculator/calculator.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "views/scene/geometry/fold.h"

namespace veloria {
namespace {

// As the user knows them, typed a second time.
struct WantedButton {
    const char* label;
    double factor;
    int r;
    int g;
    int b;
};
const double kPhi = (1.0 + std::sqrt(5.0)) / 2.0;
constexpr double kPi = 3.14159265358979323846;
const std::array<WantedButton, 32> kWanted = {{
    {"+Oct", 2, 60, 180, 80},
    {"-Oct", 1.0 / 2, 60, 180, 80},
    {"xPHI", kPhi, 200, 160, 40},
    {"/PHI", 1 / kPhi, 200, 160, 40},
    {"xPHI2", kPhi* kPhi, 180, 140, 30},
    {"/PHI2", 1 / (kPhi * kPhi), 180, 140, 30},
    {"xPHI3", kPhi* kPhi* kPhi, 160, 120, 20},
    {"/PHI3", 1 / (kPhi * kPhi * kPhi), 160, 120, 20},
    {"xPI", kPi, 80, 140, 220},
    {"/PI", 1 / kPi, 80, 140, 220},
    {"xR2", std::sqrt(2.0), 80, 180, 200},
    {"/R2", 1 / std::sqrt(2.0), 80, 180, 200},
    {"xR3", std::sqrt(3.0), 60, 160, 180},
    {"/R3", 1 / std::sqrt(3.0), 60, 160, 180},
    {"xR5", std::sqrt(5.0), 40, 140, 160},
    {"/R5", 1 / std::sqrt(5.0), 40, 140, 160},
    {"x2", 2, 120, 80, 180},
    {"/2", 1.0 / 2, 120, 80, 180},
    {"x3", 3, 140, 80, 180},
    {"/3", 1.0 / 3, 140, 80, 180},
    {"x5", 5, 160, 60, 160},
    {"/5", 1.0 / 5, 160, 60, 160},
    {"x7", 7, 140, 60, 140},
    {"/7", 1.0 / 7, 140, 60, 140},
    {"x13", 13, 100, 80, 160},
    {"/13", 1.0 / 13, 100, 80, 160},
    {"x21", 21, 90, 70, 150},
    {"/21", 1.0 / 21, 90, 70, 150},
    {"x9", 9, 180, 60, 80},
    {"/9", 1.0 / 9, 180, 60, 80},
    {"UNDO", 0, 80, 80, 90},
    {"CLR", -1, 100, 40, 40},
}};

const CalcButton& button(const std::string& label) {
    for (const CalcButton& candidate : kCalcButtons) {
        if (label == candidate.label) return candidate;
    }
    ADD_FAILURE() << "no button " << label;
    return kCalcButtons[0];
}

CalculatorState stateAt(double hz) {
    CalculatorState state;
    state.calcVisible = true;
    state.calcValue = hz;
    return state;
}

TEST(CalculatorTable, LabelsFactorsAndColoursStandInTheirOrder) {
    for (std::size_t i = 0; i < kWanted.size(); ++i) {
        const CalcButton& seen = kCalcButtons[i];
        const WantedButton& wanted = kWanted[i];
        EXPECT_STREQ(seen.label, wanted.label);
        // The two of the third root are off by 1e-9 and have a test of their own.
        EXPECT_NEAR(seen.factor, wanted.factor, std::fabs(wanted.factor) * 1e-8) << wanted.label;
        EXPECT_EQ(seen.color.r, wanted.r) << wanted.label;
        EXPECT_EQ(seen.color.g, wanted.g) << wanted.label;
        EXPECT_EQ(seen.color.b, wanted.b) << wanted.label;
    }
}

TEST(CalculatorTable, AllRatiosButTheThirdRootsAreExactToTheLastPlaces) {
    for (std::size_t i = 0; i < kWanted.size(); ++i) {
        const std::string label = kWanted[i].label;
        if (label == "xR3" || label == "/R3") continue;
        EXPECT_NEAR(kCalcButtons[i].factor, kWanted[i].factor, std::fabs(kWanted[i].factor) * 1e-15) << label;
    }
}

TEST(CalculatorTable, TheThirdRootsStandAsTyped) {
    EXPECT_EQ(button("xR3").factor, 1.73205080856857);
    EXPECT_EQ(button("/R3").factor, 0.5773502688563948);
    EXPECT_GT(std::fabs(button("xR3").factor - std::sqrt(3.0)), 5e-10);
    EXPECT_GT(std::fabs(button("/R3").factor - 1.0 / std::sqrt(3.0)), 2e-10);
}

TEST(CalculatorLayout, EverythingStandsByTheWindowsCorner) {
    const CalculatorLayout layout = calculatorLayout({300, 120, 340, 378});
    const auto same = [](const SDL_Rect& seen, const SDL_Rect& wanted) {
        return SDL_RectEquals(&seen, &wanted) == SDL_TRUE;
    };
    EXPECT_TRUE(same(layout.frame, {300, 120, 340, 378}));
    EXPECT_TRUE(same(layout.title, {300, 120, 340, 22}));
    EXPECT_TRUE(same(layout.close, {618, 122, 18, 18}));
    EXPECT_TRUE(same(layout.display, {304, 148, 332, 38}));
    EXPECT_TRUE(same(layout.displayHit, {300, 148, 340, 38}));
    // (340 - 17) / 4 = 80 wide, 83 apart; 25 from row to row.
    EXPECT_TRUE(same(layout.buttons[0], {304, 192, 80, 22}));
    EXPECT_TRUE(same(layout.buttons[1], {387, 192, 80, 22}));
    EXPECT_TRUE(same(layout.buttons[2], {470, 192, 80, 22}));
    EXPECT_TRUE(same(layout.buttons[3], {553, 192, 80, 22}));
    EXPECT_TRUE(same(layout.buttons[4], {304, 217, 80, 22}));
    EXPECT_TRUE(same(layout.buttons[31], {553, 367, 80, 22}));
}

TEST(CalculatorButtons, EachRatioMultipliesAndRemembers) {
    for (std::size_t i = 0; i < 30; ++i) {
        CalculatorState state = stateAt(300.0);
        pressCalcButton(state, kCalcButtons[i]);
        EXPECT_NEAR(state.calcValue, 300.0 * kWanted[i].factor, 1e-5) << kWanted[i].label;
        EXPECT_EQ(state.calcPrevious, 300.0) << kWanted[i].label;
        EXPECT_TRUE(state.calcHasPrevious) << kWanted[i].label;
    }
}

TEST(CalculatorButtons, ARatioStaysWithinItsBounds) {
    CalculatorState state = stateAt(99999.0);
    pressCalcButton(state, button("xPHI3"));
    EXPECT_EQ(state.calcValue, 99999.0);
    EXPECT_EQ(state.calcPrevious, 99999.0);
    state = stateAt(0.01);
    pressCalcButton(state, button("/21"));
    EXPECT_EQ(state.calcValue, 0.01);
    state = stateAt(0.04);
    pressCalcButton(state, button("-Oct"));
    EXPECT_EQ(state.calcValue, 0.02);
    state = stateAt(49999.5);
    pressCalcButton(state, button("+Oct"));
    EXPECT_EQ(state.calcValue, 99999.0);
    state = stateAt(50000.0);
    pressCalcButton(state, button("+Oct"));
    EXPECT_EQ(state.calcValue, 99999.0);
}

TEST(CalculatorButtons, ARatioBringsATypedGiantBackIntoBounds) {
    CalculatorState state = stateAt(1e13);
    pressCalcButton(state, button("/2"));
    EXPECT_EQ(state.calcValue, 99999.0);
    EXPECT_EQ(state.calcPrevious, 1e13);
    pressCalcButton(state, button("UNDO"));
    EXPECT_EQ(state.calcValue, 1e13) << "what was typed comes back whole";
}

TEST(CalculatorButtons, UndoSwapsSoTwiceIsTheLaterValue) {
    CalculatorState state = stateAt(440.0);
    pressCalcButton(state, button("x3"));
    pressCalcButton(state, button("UNDO"));
    EXPECT_EQ(state.calcValue, 440.0);
    EXPECT_EQ(state.calcPrevious, 1320.0);
    pressCalcButton(state, button("UNDO"));
    EXPECT_EQ(state.calcValue, 1320.0);
    EXPECT_EQ(state.calcPrevious, 440.0);
}

TEST(CalculatorButtons, UndoIsOneStepDeep) {
    CalculatorState state = stateAt(100.0);
    pressCalcButton(state, button("x2"));
    pressCalcButton(state, button("x5"));
    pressCalcButton(state, button("UNDO"));
    EXPECT_EQ(state.calcValue, 200.0);
    pressCalcButton(state, button("UNDO"));
    EXPECT_EQ(state.calcValue, 1000.0);
}

TEST(CalculatorButtons, UndoBeforeAnythingDoesNothing) {
    CalculatorState state = stateAt(300.0);
    state.calcPrevious = 123.0;
    pressCalcButton(state, button("UNDO"));
    EXPECT_EQ(state.calcValue, 300.0);
    EXPECT_EQ(state.calcPrevious, 123.0);
    EXPECT_FALSE(state.calcHasPrevious);
}

TEST(CalculatorButtons, ClearGoesTo440AndCanBeUndone) {
    CalculatorState state = stateAt(1234.5);
    pressCalcButton(state, button("CLR"));
    EXPECT_EQ(state.calcValue, 440.0);
    EXPECT_EQ(state.calcPrevious, 1234.5);
    EXPECT_TRUE(state.calcHasPrevious);
    pressCalcButton(state, button("UNDO"));
    EXPECT_EQ(state.calcValue, 1234.5);
}

TEST(CalculatorText, AsMuchAsMakesANumberCounts) {
    EXPECT_EQ(parseCalcText("432"), 432.0);
    EXPECT_EQ(parseCalcText("1.2.3"), 1.2);
    EXPECT_EQ(parseCalcText("5."), 5.0);
    EXPECT_EQ(parseCalcText(".5"), 0.5);
    EXPECT_EQ(parseCalcText("5.."), 5.0);
    EXPECT_EQ(parseCalcText("0007"), 7.0);
    EXPECT_EQ(parseCalcText("99999999999999"), 99999999999999.0);
}

TEST(CalculatorText, WhatIsNoNumberIsZero) {
    EXPECT_EQ(parseCalcText(""), 0.0);
    EXPECT_EQ(parseCalcText("."), 0.0);
    EXPECT_EQ(parseCalcText(".."), 0.0);
    EXPECT_EQ(parseCalcText("..5"), 0.0);
    EXPECT_EQ(parseCalcText("0.000"), 0.0);
}

TEST(CalculatorDigitalRoot, AddsTheDigitsOfTheWholePart) {
    EXPECT_EQ(calcDigitalRoot(440.0), 8);
    EXPECT_EQ(calcDigitalRoot(440.999), 8);
    EXPECT_EQ(calcDigitalRoot(9.0), 9);
    EXPECT_EQ(calcDigitalRoot(18.0), 9);
    EXPECT_EQ(calcDigitalRoot(99999.0), 9);
    EXPECT_EQ(calcDigitalRoot(19.0), 1);
    EXPECT_EQ(calcDigitalRoot(1.0), 1);
    EXPECT_EQ(calcDigitalRoot(-528.0), 6);
    EXPECT_EQ(calcDigitalRoot(12345678901234.0), 1);  // 55, 10, 1
}

TEST(CalculatorDigitalRoot, AValueUnderOneHasNone) {
    EXPECT_EQ(calcDigitalRoot(0.999), 0);
    EXPECT_EQ(calcDigitalRoot(0.01), 0);
    EXPECT_EQ(calcDigitalRoot(0.0), 0);
    EXPECT_EQ(calcDigitalRoot(-0.5), 0);
    EXPECT_EQ(calcDigitalRoot(std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(calcDigitalRoot(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(FoldForView, HalvesFrom1000AndDoublesBelow100) {
    EXPECT_EQ(foldForView(440.0), 440.0);
    EXPECT_EQ(foldForView(100.0), 100.0);
    EXPECT_EQ(foldForView(1000.0), 500.0);
    EXPECT_EQ(foldForView(999.999), 999.999);
    EXPECT_EQ(foldForView(2000.0), 500.0);
    EXPECT_EQ(foldForView(1999.0), 999.5);
    EXPECT_EQ(foldForView(99.5), 199.0);
    EXPECT_EQ(foldForView(0.5), 128.0);
    EXPECT_EQ(foldForView(99999.0), 781.2421875);  // seven octaves down
}

TEST(FoldForView, WhatHasNoOctaveStaysAsItIs) {
    EXPECT_EQ(foldForView(0.0), 0.0);
    EXPECT_EQ(foldForView(-300.0), -300.0);
    EXPECT_EQ(foldForView(-3000.0), -3000.0);
    EXPECT_TRUE(std::isinf(foldForView(std::numeric_limits<double>::infinity())));
    EXPECT_TRUE(std::isnan(foldForView(std::numeric_limits<double>::quiet_NaN())));
    const double smallest = foldForView(std::numeric_limits<double>::denorm_min());
    EXPECT_GE(smallest, 100.0);
    EXPECT_LT(smallest, 1000.0);
}

}  // namespace
}  // namespace veloria
