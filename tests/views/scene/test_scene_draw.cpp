// The whole scene at known camera angles.
#include "views/scene/scene_draw.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "tests/views/scene/scene_fixture.h"
#include "toolkit/primitives.h"
#include "views/scene/geometry/kathara_geometry.h"
#include "views/scene/object_set.h"
#include "views/scene/scene_overlays.h"
#include "views/scene/vitruvian_figure.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;
using test::Seen;

constexpr SDL_Color kSpace{22, 20, 30, 255};

class SceneDraw : public test::SceneTest {
  protected:
    SceneDraw() { shadowFlags.fill(false); }

    // At time 0, where the pulse is 0.7.
    Picture draw(float time = 0.0f) {
        SceneSound sound{sounding, pans, &shadowFlags, nullptr, nullptr};
        drawKatharaScene(context, rect.x, rect.y, rect.w, rect.h, sound, time, view);
        return picture();
    }
    Picture drawSilently() {
        closeAllFonts();
        return draw();
    }

    std::vector<float> sounding;
    std::vector<float> pans;
    std::array<bool, kShadowIndexCount> shadowFlags{};
};

TEST_F(SceneDraw, WithAllSwitchedOffGroundLegendStatusAndPanelStay) {
    const Picture seen = draw();
    EXPECT_EQ(seen.at(320, 200), kSpace);
    EXPECT_EQ(seen.at(639, 0), kSpace);
    EXPECT_EQ(seen.at(0, 399), kSpace);
    EXPECT_TRUE(isColor(seen.at(540, 380), over({180, 140, 40, 190}, kSpace)));
    EXPECT_TRUE(isColor(seen.at(590, 380), over({40, 140, 130, 190}, kSpace)));
    EXPECT_TRUE(showsText(seen, "Refl", 546, 375, fonts.fontTiny, {180, 140, 40, 150}, kSpace));
    EXPECT_TRUE(showsText(seen, "Rot", 596, 375, fonts.fontTiny, {40, 140, 130, 150}, kSpace));
    EXPECT_TRUE(
        showsText(seen, "Az:0  El:0  Zm:12.0  FOV:6.9", 6, 4, fonts.fontTiny, {220, 220, 230, 200}, kSpace));
    EXPECT_TRUE(isColor(seen.at(100, 120), over({18, 16, 26, 200}, kSpace)));
}

TEST_F(SceneDraw, ASmallRectangleIsNotLeft) {
    view = KatharaViewState{};
    drawKatharaScene(context, 50, 40, 300, 200, SceneSound{}, 0.0f, view);
    const Picture seen = picture();
    for (int y = 0; y < seen.h; ++y) {
        for (int x = 0; x < seen.w; ++x) {
            const bool inside = x >= 50 && x < 350 && y >= 40 && y < 240;
            if (!inside) {
                ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y;
            }
        }
    }
    EXPECT_EQ(SDL_RenderIsClipEnabled(context.renderer), SDL_FALSE);
    EXPECT_NE(seen.at(51, 41), kBackdrop);
}

TEST_F(SceneDraw, AnEarlierClipStillHoldsAndIsThereAgain) {
    const SDL_Rect clip{0, 0, 100, 400};
    SDL_RenderSetClipRect(context.renderer, &clip);
    draw();
    SDL_Rect after{};
    SDL_RenderGetClipRect(context.renderer, &after);
    EXPECT_TRUE(SDL_RectEquals(&after, &clip) == SDL_TRUE);
    EXPECT_EQ(picture().at(100, 200), kBackdrop);
    EXPECT_EQ(picture().at(99, 300), kSpace);
}

TEST_F(SceneDraw, NoRoomIsNoPicture) {
    drawKatharaScene(context, 0, 0, 0, 100, SceneSound{}, 0.0f, view);
    drawKatharaScene(context, 0, 0, 100, -5, SceneSound{}, 0.0f, view);
    EXPECT_EQ(touched(), 0);
}

TEST_F(SceneDraw, SoundingFrequenciesLightUpWhereTheCameraSeesThem) {
    view.showSolfeggio = view.showReflection = view.showRotation = view.showShadow = true;
    view.azimuth = 25.0f;
    view.elevation = 20.0f;
    view.zoom = 5.0f;  // near enough to tell them apart
    sounding = {962.0f, 639.0f, 947.0f};
    shadowFlags[0] = true;  // 111
    const Picture seen = drawSilently();
    const Seen reflection = SceneTest::seen(freqTo3D(962, 0.6f));
    EXPECT_TRUE(isColor(seen.at(reflection.x, reflection.y), {250, 215, 70, 255}, 14));
    const Seen node = SceneTest::seen(solfeggioTreePoints[8]);
    // Inside the hole: the galactic realm under (14, 12, 22, 190).
    EXPECT_TRUE(isColor(seen.at(node.x + 2, node.y), {47, 32, 66, 255}, 14));
    const Seen rotation = SceneTest::seen(freqTo3D(947, -0.6f));
    EXPECT_TRUE(isColor(seen.at(rotation.x, rotation.y), {68, 234, 214, 255}, 14));
    const Seen diamond = SceneTest::seen(freqTo3D(111, 0.0f));
    EXPECT_TRUE(isColor(seen.at(diamond.x, diamond.y), {250, 50, 50, 255}, 14));
}

TEST_F(SceneDraw, WhatSwitchesAndAnglesLightGoesOutAgain) {
    view.showShadow = true;
    view.zoom = 5.0f;
    shadowFlags[0] = true;
    const Picture lit = drawSilently();
    const Seen place = seen(freqTo3D(111, 0.0f));
    shadowFlags[0] = false;
    const Picture idle = draw();
    EXPECT_TRUE(isColor(lit.at(place.x + 5, place.y), {250, 50, 50, 255}, 10));
    EXPECT_TRUE(isColor(idle.at(place.x + 5, place.y), kSpace)) << "an idle diamond is 3 wide";
    EXPECT_TRUE(isColor(idle.at(place.x, place.y), over({180, 40, 40, 25}, kSpace)));
}

TEST_F(SceneDraw, WhatIsInFrontIsPaintedOverWhatIsBehind) {
    // By their digits the node of 417 Hz stands 1.2 above the rotation dot of 471 Hz.
    const Point3 high = freqTo3D(417, 0.6f);
    const Point3 low = freqTo3D(471, -0.6f);
    ASSERT_NEAR(static_cast<double>(high.x), static_cast<double>(low.x), 1e-6);
    ASSERT_NEAR(static_cast<double>(high.z), static_cast<double>(low.z), 1e-6);
    view.showSolfeggio = view.showRotation = true;
    view.teslaCoordinates = true;
    sounding = {471.0f};
    const SDL_Color dot{68, 234, 215, 255};
    const SDL_Color hole{23, 47, 50, 255};  // (14, 12, 22, 215) over the dot
    view.elevation = 89.0f;
    ASSERT_LT(seen(low).depth, seen(high).depth);
    EXPECT_TRUE(isColor(drawSilently().at(seen(low).x, seen(low).y), dot, 25));
    view.elevation = -89.0f;
    ASSERT_GT(seen(low).depth, seen(high).depth);
    EXPECT_TRUE(isColor(draw().at(seen(low).x, seen(low).y), hole, 25));
}

TEST_F(SceneDraw, TheFigureStandsBeforeTheLegendAndBehindTheObjectSet) {
    view.showVitruvian = true;
    view.zoom = 4.5f;  // its circle passes through the legend, its square through the panel
    const Picture whole = draw();
    const SceneCanvas canvas{context, rect, view, 0.7f};
    const auto compose = [&](bool figureLast) {
        fillRect(context.renderer, rect, kSpace);
        if (!figureLast) drawVitruvianFigure(canvas);
        drawSceneLegend(canvas);
        drawStatusLine(canvas);
        if (figureLast) drawVitruvianFigure(canvas);
        drawObjectSet(context, objectSetLayout(rect), view);
        return picture();
    };
    EXPECT_TRUE(compose(true) == whole);
    EXPECT_FALSE(compose(false) == whole) << "they overlap";
}

TEST_F(SceneDraw, ACentroidStandsBeforeTheDotsThatMakeIt) {
    view.showReflection = view.showCentroid = true;
    sounding = {152.0f};
    pans = {0.0f};
    const Seen dot = seen(freqTo3D(152, 0.6f));
    const SDL_Color middle = drawSilently().at(dot.x, dot.y);
    EXPECT_GT(middle.b, 200) << "white, where the dot is yellow";
}

TEST_F(SceneDraw, RotationTurnsAQuarterOfADegreeAPicture) {
    view.autoRotate = true;
    view.azimuth = 180.0f;
    draw();
    EXPECT_EQ(view.azimuth, 180.25f) << "beyond a half turn without wrapping";
    draw();
    EXPECT_EQ(view.azimuth, 180.5f);
    view.autoRotate = false;
    draw();
    EXPECT_EQ(view.azimuth, 180.5f);
}

TEST_F(SceneDraw, TheFloorIsDrawnBeforeTheTurn) {
    view.showGrid = true;
    closeAllFonts();
    KatharaViewState still = view;
    const Picture before = draw();
    view = still;
    view.autoRotate = true;
    EXPECT_TRUE(draw() == before);
    EXPECT_FALSE(draw() == before);
}

TEST_F(SceneDraw, TheGlowBreathesWithTheClock) {
    view.showSolfeggio = true;
    sounding = {528.0f};
    closeAllFonts();
    const Seen node = seen(solfeggioTreePoints[7]);
    // 1.5 t of a quarter turn gives a pulse of 1, of three quarters 0.4.
    const Picture full = draw(static_cast<float>(M_PI / 3));
    const Picture faint = draw(static_cast<float>(M_PI));
    EXPECT_TRUE(isColor(full.at(node.x + 19, node.y), over({155, 95, 220, 35}, kSpace)));
    EXPECT_TRUE(isColor(faint.at(node.x + 19, node.y), over({155, 95, 220, 14}, kSpace)));
}

TEST_F(SceneDraw, IdleLabelsThinOutFarAwayAndComeBack) {
    view.showReflection = true;
    const auto labelled = [&](float zoom) {
        view.zoom = zoom;
        view.showHz = true;
        const Picture with = draw();
        view.showHz = false;
        const Picture without = draw();
        int different = 0;
        for (std::size_t i = 0; i < with.pixels.size(); ++i)
            different += with.pixels[i] == without.pixels[i] ? 0 : 1;
        return different;
    };
    const int far = labelled(15.0f);
    const int near = labelled(4.0f);
    EXPECT_GT(far, 0);
    EXPECT_GT(near, 2 * far);
    EXPECT_EQ(labelled(15.0f), far);
}

TEST_F(SceneDraw, InsideTheSceneNothingBreaks) {
    view = KatharaViewState{};
    view.zoom = 0.0f;
    view.fov = 10.0f;
    sounding = {147.0f, 528.0f, 963.0f, 111.0f};
    pans = {0.0f, 1.0f, 0.0f, 1.0f};
    for (int azimuth = -180; azimuth < 180; azimuth += 30) {
        view.azimuth = static_cast<float>(azimuth);
        const Picture seen = draw();
        const auto drawn = std::count_if(seen.pixels.begin(), seen.pixels.end(),
                                         [](SDL_Color pixel) { return !isColor(pixel, kSpace, 1); });
        EXPECT_GT(drawn, 134 * 164) << "more than the panel, at " << azimuth;
    }
}

}  // namespace
}  // namespace veloria
