// The calculator as it looks, at (30, 20) with its own size of 340 by 378.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/ui/offscreen.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/calculator/calculator.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

const SDL_Color kBodySeen = over({28, 26, 40, 252}, kBackdrop);
constexpr SDL_Color kBarSeen{40, 80, 120, 255};
constexpr SDL_Color kDisplaySeen{18, 16, 28, 255};

class CalculatorDrawing : public test::DrawTest {
  protected:
    CalculatorDrawing() : DrawTest(400, 420) {
        state.calcVisible = true;
        state.calcRect.x = 30;
        state.calcRect.y = 20;
    }

    // What the display must look like, drawn step by step on a screen of its own.
    struct Line {
        std::string text;
        int x;
        int y;
        TTF_Font* font;
        SDL_Color color;
    };
    [[nodiscard]] Picture displayWith(SDL_Color border, const std::vector<Line>& lines) {
        test::Offscreen sheet(400, 420);
        DrawContext own = context;
        TextCache ownCache;
        own.renderer = sheet.renderer;
        own.textCache = &ownCache;
        fillRect(sheet.renderer, {34, 48, 332, 38}, kDisplaySeen);
        outlineRect(sheet.renderer, {34, 48, 332, 38}, border);
        for (const Line& line : lines)
            DrawText(own, line.text, line.x, line.y, line.font, line.color);
        Picture drawn = sheet.picture();
        clearTextCache(ownCache);
        return drawn;
    }
    // Right edge 8 inside the display's, in the middle of its height.
    [[nodiscard]] Line valueLine(const std::string& text, SDL_Color color) const {
        int w = 0;
        int h = 0;
        TTF_SizeText(fonts.fontHeading, text.c_str(), &w, &h);
        return {text, 358 - w, 48 + (38 - h) / 2, fonts.fontHeading, color};
    }
    void expectDisplay(const Picture& wanted) {
        drawCalculator(context, state);
        const Picture seen = picture();
        int different = 0;
        int lit = 0;
        for (int y = 48; y < 86; ++y) {
            for (int x = 34; x < 366; ++x) {
                different += isColor(seen.at(x, y), wanted.at(x, y), 1) ? 0 : 1;
                lit += isColor(wanted.at(x, y), kDisplaySeen) ? 0 : 1;
            }
        }
        EXPECT_EQ(different, 0);
        EXPECT_GT(lit, 800) << "border and text";
    }
    void expectValue(double value, const std::string& figure, const std::string& folded,
                     const std::string& root) {
        state.calcValue = value;
        expectDisplay(
            displayWith({60, 140, 200, 120}, {valueLine(figure, {100, 220, 255, 255}),
                                              {folded, 40, 52, fonts.fontLabel, {120, 180, 220, 160}},
                                              {root, 40, 70, fonts.fontLabel, {180, 150, 255, 180}}}));
    }
    [[nodiscard]] static int countNear(const Picture& seen, const SDL_Rect& area, SDL_Color color) {
        int count = 0;
        for (int y = area.y; y < area.y + area.h; ++y) {
            for (int x = area.x; x < area.x + area.w; ++x)
                count += isColor(seen.at(x, y), color, 6) ? 1 : 0;
        }
        return count;
    }

    CalculatorState state;
};

TEST_F(CalculatorDrawing, HiddenItDrawsNothing) {
    state.calcVisible = false;
    drawCalculator(context, state);
    EXPECT_EQ(touched(), 0);
}

TEST_F(CalculatorDrawing, TheFrameHasItsColoursAndEnds) {
    drawCalculator(context, state);
    const Picture seen = picture();
    EXPECT_TRUE(isColor(seen.at(100, 350), kBodySeen));
    EXPECT_TRUE(isColor(seen.at(32, 44), kBodySeen));
    const SDL_Color border = over({60, 140, 200, 200}, kBodySeen);
    EXPECT_TRUE(isColor(seen.at(30, 300), border, 3));
    EXPECT_TRUE(isColor(seen.at(369, 300), border, 3));
    EXPECT_TRUE(isColor(seen.at(200, 397), border, 3));
    EXPECT_EQ(seen.at(29, 300), kBackdrop);
    EXPECT_EQ(seen.at(370, 300), kBackdrop);
    EXPECT_EQ(seen.at(200, 398), kBackdrop);
    EXPECT_EQ(seen.at(200, 19), kBackdrop);
    EXPECT_EQ(seen.at(200, 20), kBarSeen);
    EXPECT_EQ(seen.at(200, 41), kBarSeen);
    EXPECT_EQ(seen.at(30, 30), kBarSeen);
    EXPECT_TRUE(isColor(seen.at(200, 42), kBodySeen));
}

TEST_F(CalculatorDrawing, TheTitleAndTheCloseBoxStandInTheBar) {
    drawCalculator(context, state);
    const Picture seen = picture();
    EXPECT_GT(countNear(seen, {38, 24, 90, 16}, {180, 230, 255, 255}), 20) << "title";
    EXPECT_EQ(countNear(seen, {30, 20, 8, 22}, kBarSeen), 8 * 22) << "left of the title";
    const SDL_Color box = over({160, 40, 40, 220}, kBarSeen);
    EXPECT_TRUE(isColor(seen.at(348, 22), box));
    EXPECT_TRUE(isColor(seen.at(365, 39), box));
    EXPECT_EQ(seen.at(347, 30), kBarSeen);
    EXPECT_EQ(seen.at(366, 30), kBarSeen);
    EXPECT_EQ(seen.at(350, 21), kBarSeen);
    EXPECT_EQ(seen.at(350, 40), kBarSeen);
    int white = 0;
    for (int y = 22; y < 40; ++y) {
        for (int x = 348; x < 366; ++x)
            white += seen.at(x, y).g > 150 ? 1 : 0;
    }
    EXPECT_GT(white, 5) << "the X";
}

TEST_F(CalculatorDrawing, TheDisplayHasItsBorder) {
    drawCalculator(context, state);
    Picture seen = picture();
    const SDL_Color border = over({60, 140, 200, 120}, kDisplaySeen);
    EXPECT_TRUE(isColor(seen.at(34, 48), border));
    EXPECT_TRUE(isColor(seen.at(365, 85), border));
    EXPECT_EQ(seen.at(35, 49), kDisplaySeen);
    EXPECT_TRUE(isColor(seen.at(33, 60), kBodySeen));
    EXPECT_TRUE(isColor(seen.at(366, 60), kBodySeen));
    EXPECT_TRUE(isColor(seen.at(100, 47), kBodySeen));
    EXPECT_TRUE(isColor(seen.at(100, 86), kBodySeen));
    state.calcEditing = true;
    drawCalculator(context, state);
    seen = picture();
    EXPECT_EQ(seen.at(34, 48), (SDL_Color{100, 220, 255, 255}));
    EXPECT_EQ(seen.at(365, 85), (SDL_Color{100, 220, 255, 255}));
}

TEST_F(CalculatorDrawing, TheDisplayTellsTheValueItsOctaveAndItsRoot) {
    expectValue(440.0, "440.000 Hz", "(norm: 440.0)", "DR:8");
}

TEST_F(CalculatorDrawing, AThousandFoldsToFiveHundred) {
    expectValue(1000.0, "1000.000 Hz", "(norm: 500.0)", "DR:1");
}

TEST_F(CalculatorDrawing, ALowValueFoldsUpAndHasNoRootUnderOne) {
    expectValue(0.5, "0.500 Hz", "(norm: 128.0)", "DR:0");
}

TEST_F(CalculatorDrawing, ThreeDecimalsAreRounded) {
    expectValue(99999.9996, "100000.000 Hz", "(norm: 781.2)", "DR:9");
}

TEST_F(CalculatorDrawing, WhileEditingTheDisplayShowsTheTextAndTheHint) {
    state.calcEditing = true;
    state.calcText = "1.2.3";
    expectDisplay(displayWith(
        {100, 220, 255, 255},
        {valueLine("1.2.3_", {255, 255, 100, 255}),
         {"Type Hz, Enter to confirm, Esc to cancel", 38, 52, fonts.fontLabel, {180, 180, 100, 180}}}));
}

TEST_F(CalculatorDrawing, AnEmptyFieldShowsOnlyTheCursor) {
    state.calcEditing = true;
    state.calcText.clear();
    expectDisplay(displayWith(
        {100, 220, 255, 255},
        {valueLine("_", {255, 255, 100, 255}),
         {"Type Hz, Enter to confirm, Esc to cancel", 38, 52, fonts.fontLabel, {180, 180, 100, 180}}}));
}

TEST_F(CalculatorDrawing, EachButtonHasItsColourPlaceAndLabel) {
    drawCalculator(context, state);
    const Picture seen = picture();
    for (int i = 0; i < 32; ++i) {
        const int x = 34 + i % 4 * 83;
        const int y = 92 + i / 4 * 25;
        SDL_Color color = kCalcButtons[static_cast<std::size_t>(i)].color;
        color.a = 220;
        const SDL_Color face = over(color, kBodySeen);
        const SDL_Color edge = over({255, 255, 255, 40}, face);
        EXPECT_TRUE(isColor(seen.at(x + 1, y + 1), face)) << i;
        EXPECT_TRUE(isColor(seen.at(x + 78, y + 20), face)) << i;
        EXPECT_TRUE(isColor(seen.at(x, y), edge, 3)) << i;
        EXPECT_TRUE(isColor(seen.at(x + 79, y + 21), edge, 3)) << i;
        EXPECT_TRUE(isColor(seen.at(x - 1, y + 10), kBodySeen)) << i;
        EXPECT_TRUE(isColor(seen.at(x + 80, y + 10), kBodySeen)) << i;
        EXPECT_TRUE(isColor(seen.at(x + 40, y + 22), kBodySeen)) << i;
        const SDL_Color white = over({255, 255, 255, 230}, face);
        EXPECT_GT(countNear(seen, {x + 20, y + 4, 40, 14}, white), 0) << i;
        EXPECT_EQ(countNear(seen, {x + 1, y + 1, 12, 20}, white), 0) << i << ": the label is centred";
    }
    EXPECT_EQ(countNear(seen, {31, 290, 338, 106}, kBodySeen), 338 * 106) << "the rest stays empty";
}

TEST_F(CalculatorDrawing, TheButtonUnderTheMouseIsBrighter) {
    context.mouseX = 34 + 83;  // the left upper corner of "-Oct"
    context.mouseY = 92;
    drawCalculator(context, state);
    const Picture seen = picture();
    EXPECT_TRUE(isColor(seen.at(34 + 83 + 2, 94), over({100, 220, 120, 220}, kBodySeen)));
    EXPECT_TRUE(isColor(seen.at(36, 94), over({60, 180, 80, 220}, kBodySeen))) << "its neighbour is not";
}

TEST_F(CalculatorDrawing, ABrighterChannelStopsAtItsTop) {
    context.mouseX = 34 + 79;  // the right lower corner of "xPI", whose blue is 220
    context.mouseY = 92 + 2 * 25 + 21;
    drawCalculator(context, state);
    EXPECT_TRUE(isColor(picture().at(36, 92 + 52), over({120, 180, 255, 220}, kBodySeen)));
}

TEST_F(CalculatorDrawing, BetweenTheButtonsNoneIsBrighter) {
    drawCalculator(context, state);
    const Picture before = picture();
    context.mouseX = 34 + 80;
    context.mouseY = 95;
    screen.clear(kBackdrop);
    drawCalculator(context, state);
    EXPECT_TRUE(picture() == before);
}

TEST_F(CalculatorDrawing, WithoutFontsTheRestStillStands) {
    const Fonts none;
    context.fonts = &none;
    drawCalculator(context, state);
    const Picture seen = picture();
    EXPECT_EQ(countNear(seen, {36, 50, 328, 34}, kDisplaySeen), 328 * 34);
    EXPECT_TRUE(isColor(seen.at(348, 22), over({160, 40, 40, 220}, kBarSeen)));
}

}  // namespace
}  // namespace veloria
