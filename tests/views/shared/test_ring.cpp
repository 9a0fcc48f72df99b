// Points and polygons around a middle.
#include "views/shared/ring.h"

#include <gtest/gtest.h>

#include "tests/ui/offscreen.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

TEST(RingPoint, CutsBothDistancesTowardsTheMiddle) {
    const SDL_Point right = ringPoint({100, 50}, 10.9f, 0.0f);
    EXPECT_EQ(right.x, 110);
    EXPECT_EQ(right.y, 50);
    const SDL_Point left = ringPoint({100, 50}, 10.9f, kTurn / 2.0f);
    EXPECT_EQ(left.x, 90);
    EXPECT_EQ(left.y, 50);
    const SDL_Point above = ringPoint({100, 50}, 10.9f, -kTurn / 4.0f);
    EXPECT_EQ(above.x, 100);
    EXPECT_EQ(above.y, 40);
}

TEST(RingPoint, AnglesGrowClockwise) {
    const SDL_Point at = ringPoint({0, 0}, 100.0f, kTurn / 12.0f);  // 86.6, 50
    EXPECT_EQ(at.x, 86);
    EXPECT_NEAR(at.y, 50, 1);
    EXPECT_GT(at.y, 0);
}

class Polygon : public test::DrawTest {};

TEST_F(Polygon, DrawsOneLineASideAndBlendsTheCornersTwice) {
    const SDL_Color color{200, 220, 240, 100};
    drawPolygon(screen.renderer, {200, 150}, 100.5f, 4, 0.0f, color);
    const Picture seen = picture();
    const SDL_Color side = over(color, kBackdrop);
    const SDL_Color corner = over(color, side);
    EXPECT_TRUE(isColor(seen.at(300, 150), corner));
    EXPECT_TRUE(isColor(seen.at(200, 250), corner));
    EXPECT_TRUE(isColor(seen.at(100, 150), corner));
    EXPECT_TRUE(isColor(seen.at(200, 50), corner));
    EXPECT_TRUE(isColor(seen.at(250, 200), side));
    EXPECT_TRUE(isColor(seen.at(150, 100), side));
    EXPECT_EQ(seen.at(200, 150), kBackdrop);
    EXPECT_EQ(touched(), 400);
}

TEST_F(Polygon, TurnsItsFirstCorner) {
    drawPolygon(screen.renderer, {200, 150}, 100.5f, 3, kTurn / 4.0f, {255, 255, 255, 255});
    const Picture seen = picture();
    EXPECT_TRUE(isColor(seen.at(200, 250), {255, 255, 255, 255}));
    EXPECT_EQ(seen.at(300, 150), kBackdrop);
}

}  // namespace
}  // namespace veloria
