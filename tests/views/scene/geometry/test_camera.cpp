#include "views/scene/geometry/camera.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/views/scene/scene_fixture.h"
#include "views/scene/lines3d.h"

namespace veloria {
namespace {

using test::kBackdrop;
using test::Picture;

constexpr SDL_Color kRed{255, 0, 0, 255};

KatharaViewState cameraAt(float azimuth, float elevation, float zoom, float fov = 1.0f) {
    KatharaViewState view;
    view.azimuth = azimuth;
    view.elevation = elevation;
    view.zoom = zoom;
    view.fov = fov;
    return view;
}

void expectPoint(CameraPoint point, double x, double y, double z) {
    EXPECT_NEAR(static_cast<double>(point.x), x, 1e-5);
    EXPECT_NEAR(static_cast<double>(point.y), y, 1e-5);
    EXPECT_NEAR(static_cast<double>(point.z), z, 1e-5);
}

TEST(Camera, StartsAboveAndBesideTheSceneWithAllButTheHelixShown) {
    const KatharaViewState view;
    EXPECT_EQ(view.azimuth, 25.0f);
    EXPECT_EQ(view.elevation, 20.0f);
    EXPECT_EQ(view.zoom, 12.0f);
    EXPECT_EQ(view.fov, 6.94f);
    EXPECT_FALSE(view.autoRotate);
    EXPECT_TRUE(view.showHz && view.showSolfeggio && view.showReflection && view.showRotation);
    EXPECT_TRUE(view.showShadow && view.showMerkaba && view.showEnneagram && view.showVitruvian);
    EXPECT_TRUE(view.showGrid && view.showCentroid);
    EXPECT_FALSE(view.helixLabels || view.teslaCoordinates);
}

TEST(Camera, StraightOnOnlyTheZoomIsAdded) {
    expectPoint(toCamera({1.0f, 2.0f, 3.0f}, cameraAt(0, 0, 12)), 1, 2, 15);
}

TEST(Camera, TheAzimuthTurnsAboutYThenTheElevationAboutX) {
    expectPoint(toCamera({1.0f, 2.0f, 3.0f}, cameraAt(90, 0, 0)), 3, 2, -1);
    expectPoint(toCamera({1.0f, 2.0f, 3.0f}, cameraAt(0, 90, 0)), 1, -3, 2);
    // 30 degrees: (cos 30, -sin 30) of x; then 60 degrees with z = -0.5: y = sin 60 / 2, z = -cos 60 / 2.
    expectPoint(toCamera({1.0f, 0.0f, 0.0f}, cameraAt(30, 60, 10)), 0.8660254, 0.4330127, 9.75);
}

TEST(Camera, AnAzimuthBeyondAHalfTurnGoesOnRound) {
    const CameraPoint once = toCamera({1.0f, 2.0f, 3.0f}, cameraAt(200, 10, 5));
    const CameraPoint twice = toCamera({1.0f, 2.0f, 3.0f}, cameraAt(-160, 10, 5));
    expectPoint(once, static_cast<double>(twice.x), static_cast<double>(twice.y),
                static_cast<double>(twice.z));
}

TEST(Camera, TheLimitOfTheElevationStillLooksPastThePole) {
    // 89 degrees: a unit up is seen 0.99985 deep and 0.01745 high.
    expectPoint(toCamera({0.0f, 1.0f, 0.0f}, cameraAt(0, 89, 0)), 0, 0.0174524, 0.9998477);
    expectPoint(toCamera({0.0f, 1.0f, 0.0f}, cameraAt(0, -89, 0)), 0, 0.0174524, -0.9998477);
}

TEST(Projection, ProductsAreCutTowardsZeroAndMiddlesHalvedInWholeNumbers) {
    // Half of 301 by 201 is 150 by 100; a unit at depth 4 with factor 2 is 0.5 * 201 * 0.2 = 20.1 pixels.
    const KatharaViewState view = cameraAt(0, 0, 0, 2.0f);
    const ScreenPoint first = projectPoint({1.0f, 2.0f, 4.0f}, view, 10, 20, 301, 201);
    EXPECT_TRUE(first.visible);
    EXPECT_EQ(first.screenX, 10 + 150 + 20);
    EXPECT_EQ(first.screenY, 20 + 100 - 40);
    const ScreenPoint other = projectPoint({-1.0f, -2.0f, 4.0f}, view, 10, 20, 301, 201);
    EXPECT_EQ(other.screenX, 10 + 150 - 20);
    EXPECT_EQ(other.screenY, 20 + 100 + 40);
}

TEST(Projection, TheShorterSideGivesTheScale) {
    const KatharaViewState view = cameraAt(0, 0, 0);
    EXPECT_EQ(projectPoint({1.0f, 0.0f, 1.0f}, view, 0, 0, 1000, 100).screenX, 500 + 20);
    EXPECT_EQ(projectPoint({1.0f, 0.0f, 1.0f}, view, 0, 0, 100, 1000).screenX, 50 + 20);
}

TEST(Projection, WhatIsNearerThanATenthIsNotSeen) {
    const KatharaViewState view = cameraAt(0, 0, 0);
    EXPECT_FALSE(projectPoint({0.0f, 0.0f, 0.0999f}, view, 0, 0, 100, 100).visible);
    EXPECT_FALSE(projectPoint({0.0f, 0.0f, -5.0f}, view, 0, 0, 100, 100).visible);
    EXPECT_TRUE(projectPoint({0.0f, 0.0f, 0.1f}, view, 0, 0, 100, 100).visible);
}

TEST(Projection, NoNumberIsTooLargeForAPixel) {
    const float infinite = std::numeric_limits<float>::infinity();
    const KatharaViewState view = cameraAt(0, 0, 0, 10.0f);
    const ScreenPoint far = projectPoint({1e30f, -1e30f, 0.1f}, view, 0, 0, 100, 100);
    EXPECT_TRUE(far.visible);
    EXPECT_GT(far.screenX, 1000000);
    EXPECT_GT(far.screenY, 1000000);
    EXPECT_GT(projectPoint({infinite, 0.0f, 1.0f}, view, 0, 0, 100, 100).screenX, 1000000);
    EXPECT_FALSE(projectPoint({std::nanf(""), 0.0f, 1.0f}, view, 0, 0, 100, 100).visible);
    EXPECT_FALSE(projectPoint({0.0f, 0.0f, std::nanf("")}, view, 0, 0, 100, 100).visible);
}

TEST(NearPlane, TheEndBehindMovesAlongTheLineToATenth) {
    CameraPoint front{0.0f, 0.0f, 1.1f};
    CameraPoint behind{1.0f, 2.0f, -0.9f};
    ASSERT_TRUE(clipToNearDepth(front, behind));
    expectPoint(front, 0, 0, 1.1);
    expectPoint(behind, 0.5, 1, 0.1);
    EXPECT_EQ(behind.z, 0.1f);

    CameraPoint first{4.0f, 0.0f, -1.9f};
    CameraPoint second{0.0f, 0.0f, 2.1f};
    ASSERT_TRUE(clipToNearDepth(first, second));
    expectPoint(first, 2, 0, 0.1);
    expectPoint(second, 0, 0, 2.1);
}

TEST(NearPlane, ALineWhollyBehindIsGone) {
    CameraPoint a{0.0f, 0.0f, 0.09f};
    CameraPoint b{1.0f, 0.0f, -2.0f};
    EXPECT_FALSE(clipToNearDepth(a, b));
}

class Lines3d : public test::SceneTest {
  protected:
    Lines3d() : SceneTest(400, 300) { view = cameraAt(0, 0, 0); }

    void line(Point3 from, Point3 to) {
        drawLine3d(context.renderer, from, to, view, rect.w, rect.h, rect.x, rect.y, kRed);
    }
    void thick(Point3 from, Point3 to, int width) {
        drawThickLine3d(context.renderer, from, to, view, rect.w, rect.h, rect.x, rect.y, kRed, width);
    }
    // A unit at depth 1 is 60 pixels.
    void expectRow(int x0, int x1, int y) const {
        const Picture seen = picture();
        for (int x = 0; x < seen.w; ++x)
            EXPECT_EQ(seen.at(x, y), x >= x0 && x <= x1 ? kRed : kBackdrop) << x << ", " << y;
    }
};

TEST_F(Lines3d, JoinsTheTwoPoints) {
    line({-1.0f, 0.5f, 1.0f}, {1.0f, 0.5f, 1.0f});
    expectRow(140, 260, 120);
    EXPECT_EQ(touched(), 121);
}

TEST_F(Lines3d, EndsAtTheNearDepthInsteadOfVanishing) {
    // Half way back, at depth 0.1, it is 0.0105 off the middle: 0.0105 / 0.1 * 60 = 6.3 pixels.
    line({0.0f, 0.0f, 1.1f}, {0.021f, 0.0f, -0.9f});
    expectRow(200, 206, 150);
}

TEST_F(Lines3d, BehindTheCameraIsNothing) {
    line({-1.0f, 0.0f, -1.0f}, {1.0f, 0.0f, 0.05f});
    thick({-1.0f, 0.0f, -1.0f}, {1.0f, 0.0f, 0.05f}, 3);
    EXPECT_EQ(touched(), 0);
}

TEST_F(Lines3d, OneSeenFromItsEndIsAPointWhenThinAndNothingWhenThick) {
    thick({0.0f, 0.0f, 1.0f}, {0.0f, 0.0f, 2.0f}, 3);
    EXPECT_EQ(touched(), 0);
    line({0.0f, 0.0f, 1.0f}, {0.0f, 0.0f, 2.0f});
    EXPECT_EQ(touched(), 1);
}

TEST_F(Lines3d, WidthsOfTwoAndThreeAreThreeLines) {
    thick({-1.0f, 0.0f, 1.0f}, {1.0f, 0.0f, 1.0f}, 2);
    for (int y = 149; y <= 151; ++y)
        expectRow(140, 260, y);
    EXPECT_EQ(touched(), 3 * 121);
    thick({-1.0f, 0.0f, 1.0f}, {1.0f, 0.0f, 1.0f}, 3);
    EXPECT_EQ(touched(), 3 * 121);
    thick({-1.0f, 1.0f, 1.0f}, {1.0f, 1.0f, 1.0f}, 1);
    EXPECT_EQ(touched(), 4 * 121);
}

TEST_F(Lines3d, AcrossASlopeTheOffsetsAreCutToWholePixels) {
    // 45 degrees: every offset is 0.7 pixels and cut to 0, so that the three lines are one.
    thick({-1.0f, -1.0f, 1.0f}, {1.0f, 1.0f, 1.0f}, 2);
    EXPECT_EQ(touched(), 121);
}

TEST_F(Lines3d, OneThatRunsOnForHundredsOfThousandsOfPixelsIsStillDrawn) {
    view.fov = 10.0f;
    // Level, from far left in front to far right at the near depth: 6000 pixels a unit there.
    line({-30.0f, 0.0f, 0.1f}, {30.0f, 0.0f, 0.1f});
    expectRow(0, 399, 150);
    EXPECT_EQ(touched(), 400);
}

TEST(Surroundings, ALineNearThePictureStaysAsItIs) {
    const SDL_Rect rect{100, 50, 200, 100};
    SDL_Point from{-100, -50};  // the corner of the surroundings
    SDL_Point to{499, 249};
    ASSERT_TRUE(cutToSurroundings(rect, from, to));
    EXPECT_EQ(from.x, -100);
    EXPECT_EQ(from.y, -50);
    EXPECT_EQ(to.x, 499);
    EXPECT_EQ(to.y, 249);
}

TEST(Surroundings, AFarEndIsMovedOntoTheirBorder) {
    const SDL_Rect rect{100, 50, 200, 100};
    SDL_Point from{0, 0};
    SDL_Point to{1000000, 100000};  // one up in ten
    ASSERT_TRUE(cutToSurroundings(rect, from, to));
    EXPECT_EQ(from.x, 0);
    EXPECT_EQ(to.x, 499);
    EXPECT_EQ(to.y, 50);
    SDL_Point left{-1000000, 150};
    SDL_Point right{200, 150};
    ASSERT_TRUE(cutToSurroundings(rect, left, right));
    EXPECT_EQ(left.x, -100);
    EXPECT_EQ(left.y, 150);
    EXPECT_EQ(right.x, 200);
}

TEST(Surroundings, ALineThatMissesThemIsGone) {
    const SDL_Rect rect{100, 50, 200, 100};
    SDL_Point from{-5000, 900};
    SDL_Point to{5000, 900};
    EXPECT_FALSE(cutToSurroundings(rect, from, to));
    SDL_Point low{-300, 0};
    SDL_Point high{0, 900};
    EXPECT_FALSE(cutToSurroundings(rect, low, high));
}

}  // namespace
}  // namespace veloria
