#include "toolkit/primitives.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <utility>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kRed{255, 0, 0, 255};
constexpr SDL_Color kGlass{200, 240, 100, 120};

using Points = std::set<std::pair<int, int>>;

class Primitives : public test::DrawTest {
  protected:
    [[nodiscard]] Points touchedPoints() const {
        const Picture seen = picture();
        Points points;
        for (int y = 0; y < seen.h; ++y) {
            for (int x = 0; x < seen.w; ++x) {
                if (!(seen.at(x, y) == kBackdrop)) points.insert({x, y});
            }
        }
        return points;
    }

    // All touched pixels have the colour of one blend, none of two.
    void expectBlendedOnce(SDL_Color color) const {
        const Picture seen = picture();
        for (const auto& [x, y] : touchedPoints()) {
            EXPECT_TRUE(isColor(seen.at(x, y), over(color, kBackdrop))) << x << ", " << y;
        }
    }

    SDL_Renderer* r = screen.renderer;
};

Points rectPoints(int x, int y, int w, int h) {
    Points points;
    for (int j = 0; j < h; ++j) {
        for (int i = 0; i < w; ++i)
            points.insert({x + i, y + j});
    }
    return points;
}

TEST_F(Primitives, AFilledRectangleCoversItsPixelsAndNoOthers) {
    fillRect(r, {10, 20, 30, 15}, kRed);
    EXPECT_EQ(touchedPoints(), rectPoints(10, 20, 30, 15));
    EXPECT_EQ(picture().at(10, 20), kRed);
}

TEST_F(Primitives, AnEmptyRectangleDrawsNothing) {
    for (const SDL_Rect& rect : {SDL_Rect{5, 5, 0, 9}, SDL_Rect{5, 5, 9, 0}, SDL_Rect{50, 50, -9, 9}}) {
        fillRect(r, rect, kRed);
        outlineRect(r, rect, kRed);
    }
    EXPECT_EQ(touched(), 0);
}

TEST_F(Primitives, ATranslucentColourIsBlendedWhateverModeWasSetBefore) {
    SDL_SetRenderDrawBlendMode(r, SDL_BLENDMODE_NONE);
    fillRect(r, {10, 20, 30, 15}, kGlass);
    EXPECT_EQ(touchedPoints().size(), 30u * 15u);
    expectBlendedOnce(kGlass);
}

TEST_F(Primitives, AddedColourIsAddedByItsAlpha) {
    fillRect(r, {10, 20, 30, 15}, {100, 200, 50, 128}, SDL_BLENDMODE_ADD);
    // 90 + 100 * 128 / 255, 60 + 200 * 128 / 255, 30 + 50 * 128 / 255
    EXPECT_TRUE(isColor(picture().at(15, 25), {140, 160, 55, 255}));
    fillRect(r, {10, 20, 30, 15}, {255, 255, 255, 255}, SDL_BLENDMODE_ADD);
    EXPECT_TRUE(isColor(picture().at(15, 25), {255, 255, 255, 255}, 0));
}

TEST_F(Primitives, AnOutlineBlendsEachOfItsPixelsOnce) {
    Points wanted = rectPoints(10, 20, 30, 15);
    for (const auto& point : rectPoints(11, 21, 28, 13))
        wanted.erase(point);
    outlineRect(r, {10, 20, 30, 15}, kGlass);
    EXPECT_EQ(touchedPoints(), wanted);
    expectBlendedOnce(kGlass);
}

TEST_F(Primitives, AThinOutlineIsAFilledRectangle) {
    Points wanted;
    const auto draw = [&](int x, int w, int h) {
        outlineRect(r, {x, 40, w, h}, kGlass);
        wanted.merge(rectPoints(x, 40, w, h));
    };
    draw(10, 1, 1);
    draw(20, 1, 9);
    draw(30, 9, 1);
    draw(50, 2, 2);
    draw(60, 2, 9);
    draw(70, 9, 2);
    EXPECT_EQ(touchedPoints(), wanted);
    expectBlendedOnce(kGlass);
}

TEST_F(Primitives, BothEndsBelongToALineInEitherOrder) {
    hLine(r, 10, 20, 5, kRed);
    hLine(r, 40, 30, 5, kRed);
    vLine(r, 60, 10, 20, kRed);
    vLine(r, 70, 20, 10, kRed);
    Points wanted = rectPoints(10, 5, 11, 1);
    wanted.merge(rectPoints(30, 5, 11, 1));
    wanted.merge(rectPoints(60, 10, 1, 11));
    wanted.merge(rectPoints(70, 10, 1, 11));
    EXPECT_EQ(touchedPoints(), wanted);
}

TEST_F(Primitives, ASlantedLineRunsFromEndToEnd) {
    drawLine(r, 10, 10, 20, 20, kGlass);
    Points wanted;
    for (int i = 10; i <= 20; ++i)
        wanted.insert({i, i});
    EXPECT_EQ(touchedPoints(), wanted);
    expectBlendedOnce(kGlass);
}

TEST_F(Primitives, ALineFromAPointToItselfIsThatPoint) {
    drawLine(r, 60, 70, 60, 70, kGlass);
    EXPECT_EQ(touchedPoints(), (Points{{60, 70}}));
    expectBlendedOnce(kGlass);
}

TEST_F(Primitives, APointIsOnePixel) {
    drawPoint(r, 33, 44, kGlass);
    EXPECT_EQ(touchedPoints(), (Points{{33, 44}}));
    expectBlendedOnce(kGlass);
}

TEST_F(Primitives, ADiscIsTheSetOfPointsWithinTheRadius) {
    for (const int radius : {0, 1, 2, 3, 4, 5, 7, 25, 31, 32, 100}) {
        screen.clear(kBackdrop);
        fillCircle(r, 150, 140, radius, kGlass);
        Points wanted;
        for (int dy = -radius; dy <= radius; ++dy) {
            for (int dx = -radius; dx <= radius; ++dx) {
                if (dx * dx + dy * dy <= radius * radius) wanted.insert({150 + dx, 140 + dy});
            }
        }
        EXPECT_EQ(touchedPoints(), wanted) << radius;
        expectBlendedOnce(kGlass);
    }
}

TEST_F(Primitives, ADiscOfNegativeRadiusIsNothing) {
    fillCircle(r, 150, 140, -1, kRed);
    EXPECT_EQ(touched(), 0);
}

TEST_F(Primitives, WidthsOfTwoAndThreeAreThreeLines) {
    const auto rowsOf = [&](int width) {
        screen.clear(kBackdrop);
        drawThickLine2d(r, 50, 100, 90, 100, kRed, width);
        return touchedPoints();
    };
    EXPECT_EQ(rowsOf(1), rectPoints(50, 100, 41, 1));
    EXPECT_EQ(rowsOf(2), rectPoints(50, 99, 41, 3));
    EXPECT_EQ(rowsOf(3), rectPoints(50, 99, 41, 3));
    EXPECT_EQ(rowsOf(4), rectPoints(50, 98, 41, 5));
    EXPECT_EQ(rowsOf(6), rectPoints(50, 97, 41, 7));
}

TEST_F(Primitives, TheOffsetsOfASlantedThickLineAreTruncated) {
    // (30, 40) is 50 long: the offsets of k are trunc(k * -0.8) and trunc(k * 0.6), for k = 2 (-1, 1).
    drawThickLine2d(r, 100, 100, 130, 140, kRed, 4);
    const Points thick = touchedPoints();
    screen.clear(kBackdrop);
    drawLine(r, 100, 100, 130, 140, kRed);
    drawLine(r, 101, 99, 131, 139, kRed);
    drawLine(r, 99, 101, 129, 141, kRed);
    EXPECT_EQ(thick, touchedPoints());
}

TEST_F(Primitives, AThickLineWithoutLengthIsNothing) {
    drawThickLine2d(r, 50, 50, 50, 50, kRed, 5);
    drawThickLine2dF(r, 50.0f, 50.0f, 50.3f, 50.3f, kRed, 5);  // 0.42 long
    EXPECT_EQ(touched(), 0);
    drawThickLine2d(r, 50, 50, 50, 51, kRed, 1);
    drawThickLine2dF(r, 80.7f, 80.0f, 81.3f, 80.0f, kRed, 1);  // 0.6 long
    EXPECT_EQ(touchedPoints().count({50, 51}), 1u);
    EXPECT_EQ(touchedPoints().count({80, 80}), 1u);
}

TEST_F(Primitives, AThickLineBetweenPixelsHasTheSameNumberOfLines) {
    drawThickLine2dF(r, 50.0f, 100.0f, 90.0f, 100.0f, kRed, 2);
    EXPECT_EQ(touchedPoints(), rectPoints(50, 99, 41, 3));
}

TEST_F(Primitives, AClipCutsAndIsGoneAfterwards) {
    {
        const ClipGuard clip(r, {20, 20, 10, 10});
        fillRect(r, {0, 0, 400, 300}, kRed);
    }
    EXPECT_EQ(touchedPoints(), rectPoints(20, 20, 10, 10));
    EXPECT_EQ(SDL_RenderIsClipEnabled(r), SDL_FALSE);
    fillRect(r, {0, 0, 5, 5}, kRed);
    EXPECT_EQ(picture().at(0, 0), kRed);
}

TEST_F(Primitives, AClipWithinAClipIsTheirOverlapAndGivesTheOuterBack) {
    const SDL_Rect outer{10, 10, 50, 50};
    SDL_RenderSetClipRect(r, &outer);
    {
        const ClipGuard clip(r, {40, 40, 100, 5});
        fillRect(r, {0, 0, 400, 300}, kRed);
    }
    EXPECT_EQ(touchedPoints(), rectPoints(40, 40, 20, 5));
    SDL_Rect after{};
    SDL_RenderGetClipRect(r, &after);
    EXPECT_EQ(SDL_RectEquals(&after, &outer), SDL_TRUE);
    EXPECT_EQ(SDL_RenderIsClipEnabled(r), SDL_TRUE);
}

TEST_F(Primitives, ClipsThatDoNotMeetLetNothingThrough) {
    {
        const ClipGuard outer(r, {10, 10, 50, 50});
        const ClipGuard inner(r, {200, 200, 50, 50});
        fillRect(r, {0, 0, 400, 300}, kRed);
    }
    EXPECT_EQ(touched(), 0);
}

}  // namespace
}  // namespace veloria
