#include "toolkit/line_batch.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "tests/ui/offscreen.h"
#include "toolkit/primitives.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kGlass{200, 240, 100, 60};
constexpr unsigned kSeed = 20261121;

struct Line {
    float x0, y0, x1, y1;
};

class LineBatchDrawing : public test::DrawTest {
  protected:
    // From anywhere in the picture to at most `reach` pixels away, and never out of it.
    static std::vector<Line> someLines(int count, float reach) {
        std::mt19937 random(kSeed);
        std::uniform_real_distribution<float> x(50.0f, 350.0f);
        std::uniform_real_distribution<float> y(50.0f, 250.0f);
        std::uniform_real_distribution<float> step(-reach, reach);
        std::vector<Line> lines;
        for (int i = 0; i < count; ++i) {
            const float x0 = x(random);
            const float y0 = y(random);
            lines.push_back({x0, y0, x0 + step(random), y0 + step(random)});
        }
        return lines;
    }
    Picture drawn(SDL_BlendMode blend = SDL_BLENDMODE_BLEND) {
        screen.clear(kBackdrop);
        drawBatch(r, batch, kGlass, blend);
        return picture();
    }

    SDL_Renderer* r = screen.renderer;
    LineBatch batch;
};

TEST_F(LineBatchDrawing, HasThePixelsOfLinesDrawnOneByOne) {
    for (const float reach : {1.5f, 8.0f, 40.0f}) {
        for (const SDL_BlendMode blend : {SDL_BLENDMODE_BLEND, SDL_BLENDMODE_ADD}) {
            const std::vector<Line> lines = someLines(400, reach);
            screen.clear(kBackdrop);
            SDL_SetRenderDrawBlendMode(r, blend);
            SDL_SetRenderDrawColor(r, kGlass.r, kGlass.g, kGlass.b, kGlass.a);
            for (const Line& line : lines)
                SDL_RenderDrawLineF(r, line.x0, line.y0, line.x1, line.y1);
            const Picture oneByOne = picture();
            for (const Line& line : lines)
                addLineF(batch, line.x0, line.y0, line.x1, line.y1);
            EXPECT_TRUE(drawn(blend) == oneByOne) << "reach " << reach << ", seed " << kSeed;
            EXPECT_GT(touched(), 300);
        }
    }
}

TEST_F(LineBatchDrawing, HasThePixelsOfThickLinesDrawnOneByOne) {
    for (const int width : {1, 2, 4, 6}) {
        const std::vector<Line> lines = someLines(200, 10.0f);
        screen.clear(kBackdrop);
        for (const Line& line : lines)
            drawThickLine2dF(r, line.x0, line.y0, line.x1, line.y1, kGlass, width);
        const Picture oneByOne = picture();
        for (const Line& line : lines)
            addThickLine2dF(batch, line.x0, line.y0, line.x1, line.y1, width);
        EXPECT_TRUE(drawn() == oneByOne) << "width " << width << ", seed " << kSeed;
    }
}

TEST_F(LineBatchDrawing, WhereTwoLinesMeetTheColourIsBlendedTwice) {
    addLineF(batch, 10.0f, 20.0f, 30.0f, 20.0f);
    addLineF(batch, 30.0f, 20.0f, 50.0f, 20.0f);
    const Picture seen = drawn();
    const SDL_Color once = over(kGlass, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(10, 20), once));
    EXPECT_TRUE(isColor(seen.at(29, 20), once));
    EXPECT_TRUE(isColor(seen.at(30, 20), over(kGlass, once)));
    EXPECT_TRUE(isColor(seen.at(50, 20), once));
    EXPECT_EQ(touched(), 41);
}

TEST_F(LineBatchDrawing, CoordinatesAreCutToWholePixels) {
    addLineF(batch, 10.9f, 20.9f, 13.1f, 20.2f);
    drawn();
    EXPECT_EQ(touched(), 4);
    EXPECT_FALSE(picture().at(10, 20) == kBackdrop);
    EXPECT_FALSE(picture().at(13, 20) == kBackdrop);
}

TEST_F(LineBatchDrawing, ALineWithinOnePixelHasNone) {
    addLineF(batch, 10.1f, 20.1f, 10.9f, 20.9f);
    drawn();
    EXPECT_EQ(touched(), 0);
}

TEST_F(LineBatchDrawing, DrawingEmptiesTheBatch) {
    addLineF(batch, 10.0f, 20.0f, 30.0f, 20.0f);
    drawn();
    EXPECT_GT(touched(), 0);
    drawn();
    EXPECT_EQ(touched(), 0);
}

TEST_F(LineBatchDrawing, ALineThatLeavesThePictureIsNotBent) {
    addLineF(batch, 350.0f, 100.0f, 450.0f, 133.0f);
    addLineF(batch, -40.0f, 10.0f, 20.0f, -5.0f);
    const Picture seen = drawn();
    for (int x = 350; x < 400; ++x) {
        const int y = static_cast<int>(std::floor(100.5 + 0.33 * (x - 350)));
        EXPECT_TRUE(isColor(seen.at(x, y), over(kGlass, kBackdrop))) << x;
    }
    EXPECT_EQ(touched(), 50 + 2) << "and where the other one goes over the corner";
    EXPECT_TRUE(isColor(seen.at(0, 0), over(kGlass, kBackdrop)));
    EXPECT_TRUE(isColor(seen.at(1, 0), over(kGlass, kBackdrop)));
}

TEST_F(LineBatchDrawing, CoordinatesThatAreNoPlaceAreLeftOut) {
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    for (const float wild : {kNaN, std::numeric_limits<float>::infinity(), 1e30f, -1e30f, 16385.0f}) {
        addLineF(batch, wild, 20.0f, 30.0f, 20.0f);
        addLineF(batch, 30.0f, wild, 30.0f, 20.0f);
        addLineF(batch, 30.0f, 20.0f, wild, 20.0f);
        addLineF(batch, 30.0f, 20.0f, 30.0f, wild);
        addThickLine2dF(batch, wild, wild, 30.0f, 20.0f, 4);
        EXPECT_TRUE(batch.points.empty()) << wild;
    }
}

}  // namespace
}  // namespace veloria
