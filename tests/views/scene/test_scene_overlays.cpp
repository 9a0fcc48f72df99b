#include "views/scene/scene_overlays.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/views/scene/scene_fixture.h"
#include "views/scene/geometry/kathara_geometry.h"
#include "views/scene/object_set.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;
using test::Seen;

class SceneOverlays : public test::SceneTest {
  protected:
    [[nodiscard]] SDL_Color at(Point3 point) const {
        const Seen place = seen(point);
        return picture().at(place.x, place.y);
    }
    [[nodiscard]] int right(const std::string& text) const {
        return 640 - 6 - measureText(fonts.fontTiny, text).x;
    }
    [[nodiscard]] bool textAt(const std::string& text, int x, int y, SDL_Color color) const {
        return showsText(picture(), text, x, y, fonts.fontTiny, color);
    }
    void drawSound() {
        sound.soundingFrequencies = sounding;
        sound.soundingPans = pans;
        drawCentroids(canvas(), sound);
    }

    std::vector<float> sounding;
    std::vector<float> pans;
    SceneSound sound;
};

TEST_F(SceneOverlays, TheFloorIsAGridWithCoarseAndFineLines) {
    view.elevation = 89.0f;
    drawFloor(canvas());
    // Looked at between two crossings, give or take the pixel by which a sloping line is rounded.
    const Picture seenPicture = picture();
    const auto lineAt = [&](float x, SDL_Color colour) {
        const Seen place = seen({x, -2.5f, 3.25f});
        int found = 0;
        for (int dx = -2; dx <= 2; ++dx)
            found += isColor(seenPicture.at(place.x + dx, place.y), over(colour, kBackdrop), 3) ? 1 : 0;
        return found;
    };
    EXPECT_EQ(lineAt(2.0f, {55, 52, 68, 100}), 1);
    EXPECT_EQ(lineAt(2.5f, {38, 36, 48, 70}), 1);
    EXPECT_EQ(lineAt(2.0f, {38, 36, 48, 70}), 0);
    EXPECT_EQ(at({2.25f, -2.5f, 3.25f}), kBackdrop);
    const SDL_Color middle = over({80, 78, 95, 140}, over({55, 52, 68, 100}, kBackdrop));
    EXPECT_TRUE(isColor(at({-3.25f, -2.5f, 0.0f}), middle, 3));
    EXPECT_TRUE(isColor(at({0.0f, -2.5f, -1.25f}), middle, 3));
}

TEST_F(SceneOverlays, TwoAxesLieOnTheFloorAndTheThirdStandsAtTheOrigin) {
    drawFloor(canvas());
    const auto red = [&](Point3 p) {
        const SDL_Color c = at(p);
        return c.r > 150 && c.g < 90;
    };
    const auto green = [&](Point3 p) {
        const SDL_Color c = at(p);
        return c.g > 150 && c.r < 90;
    };
    EXPECT_TRUE(red({3.0f, -2.5f, 0.0f}));
    EXPECT_TRUE(red({5.9f, -2.5f, 0.0f}));
    EXPECT_FALSE(red({6.3f, -2.5f, 0.0f}));
    EXPECT_FALSE(red({-1.0f, -2.5f, 0.0f}));
    EXPECT_TRUE(green({0.0f, 0.1f, 0.0f}));
    EXPECT_TRUE(green({0.0f, 3.4f, 0.0f}));
    EXPECT_FALSE(green({0.0f, 3.7f, 0.0f}));
    EXPECT_FALSE(green({0.0f, -0.2f, 0.0f}));
    EXPECT_EQ(at({0.0f, -0.2f, 0.0f}), kBackdrop) << "nothing between floor and origin";
    // The third axis, into the depth.
    const SDL_Color blue = at({0.0f, -2.5f, 3.0f});
    EXPECT_GT(blue.b, 150);
    EXPECT_LT(blue.r, 90);
}

TEST_F(SceneOverlays, APyramidIsGlassWithEdgesAndABrightApex) {
    drawMerkaba(canvas());
    const Picture seenPicture = picture();
    const Seen apex = seen({1.908f * 0.8660254f, 0.0f, -0.954f});  // of the second, turned by a third
    EXPECT_EQ(seenPicture.at(apex.x, apex.y), (SDL_Color{50, 185, 170, 255}));
    EXPECT_EQ(seenPicture.at(apex.x + 4, apex.y), (SDL_Color{50, 185, 170, 255}));
    EXPECT_EQ(seenPicture.at(apex.x + 5, apex.y), kBackdrop) << "nothing stands farther out there";
    // An edge of the first one, from its left corner to its lowest.
    const PyramidCorners first = pyramidCorners(0);
    const Seen left = seen(first[2]);
    const Seen low = seen(first[1]);
    const Seen middle{(left.x * 9 + low.x) / 10, (left.y * 9 + low.y) / 10, 0.0};
    int gold = 0;
    for (int dy = -2; dy <= 2; ++dy) {
        const SDL_Color pixel = seenPicture.at(middle.x, middle.y + dy);
        gold += pixel.r > 130 && pixel.b < 60 ? 1 : 0;
    }
    EXPECT_GT(gold, 0);
    EXPECT_EQ(seenPicture.at(middle.x - 8, middle.y), kBackdrop) << "outside the edge";
}

TEST_F(SceneOverlays, EachPyramidHasItsColour) {
    drawMerkaba(canvas());
    EXPECT_EQ(at({-1.908f * 0.8660254f, 0.0f, -0.954f}), (SDL_Color{170, 85, 210, 255}));
    // The same edge as above: over the ground or over one or two of the faces that it borders.
    const Seen left = seen(pyramidCorners(0)[2]);
    const Seen low = seen(pyramidCorners(0)[1]);
    const SDL_Color glass{230, 185, 50, 40};
    const SDL_Color edge{230, 185, 50, 100};
    const SDL_Color once = over(glass, kBackdrop);
    const Picture front = picture();
    int edges = 0;
    for (int dy = -2; dy <= 2; ++dy) {
        const SDL_Color pixel = front.at((left.x * 9 + low.x) / 10, (left.y * 9 + low.y) / 10 + dy);
        for (const SDL_Color& below : {kBackdrop, once, over(glass, once)})
            edges += isColor(pixel, over(edge, below)) ? 1 : 0;
    }
    EXPECT_GT(edges, 0);
    // From the side the first one's apex stands free.
    view.azimuth = 90.0f;
    screen.clear(kBackdrop);
    drawMerkaba(canvas());
    EXPECT_EQ(at({0.0f, 0.0f, 1.908f}), (SDL_Color{230, 185, 50, 255}));
}

TEST_F(SceneOverlays, EveryFaceIsBlendedAtItsAlpha) {
    drawMerkaba(canvas());
    const Picture seenPicture = picture();
    // To the right of the first one's left corner only its own faces lie: the base, and one of the two sides
    // that meet in the line to the apex.
    const Seen corner = seen(pyramidCorners(0)[2]);
    const SDL_Color glass{230, 185, 50, 40};
    const SDL_Color once = over(glass, kBackdrop);
    const SDL_Color twice = over(glass, once);
    int twiceCount = 0;
    for (int y = corner.y - 12; y < corner.y + 12; ++y) {
        for (int x = corner.x; x < corner.x + 24; ++x) {
            twiceCount += isColor(seenPicture.at(x, y), twice, 5) ? 1 : 0;
            EXPECT_FALSE(isColor(seenPicture.at(x, y), once, 5)) << x << ", " << y;
        }
    }
    EXPECT_GT(twiceCount, 60);
}

TEST_F(SceneOverlays, APyramidWithACornerBehindTheNearDepthIsLeftOutWhole) {
    view.zoom = 0.0f;
    drawMerkaba(canvas());
    EXPECT_EQ(touched(), 0) << "each has a corner at a depth below 0";
}

TEST_F(SceneOverlays, TheCentroidIsTheMeanOfASidesPlacesAndFoldedFrequencies) {
    sounding = {147.0f, 1056.0f, 555.0f, 111.0f, 50.0f};
    pans = {0.0f, 0.29f, 0.5f, 0.71f, 1.0f};
    sound.soundingFrequencies = sounding;
    sound.soundingPans = pans;
    const Centroids groups = centroidsOf(sound);
    EXPECT_EQ(groups.left.count, 2);
    EXPECT_EQ(groups.right.count, 2);
    EXPECT_NEAR(groups.left.meanHz, (147.0 + 528.0) / 2, 1e-9);
    EXPECT_NEAR(groups.right.meanHz, (111.0 + 100.0) / 2, 1e-9);
    // 147 at (-0.32, -0.52, 0); 528: 8 at 280 degrees and 2 at 40, height 0.6.
    EXPECT_NEAR(static_cast<double>(groups.left.mean.x), (-0.32 + (0.17364818 + 0.76604444) * 0.32) / 2,
                1e-5);
    EXPECT_NEAR(static_cast<double>(groups.left.mean.y), (-0.52 + 0.6) / 2, 1e-5);
    EXPECT_NEAR(static_cast<double>(groups.left.mean.z), (-0.98480775 + 0.64278761) * 0.32 / 2, 1e-5);
    // 111 and 100, whose noughts count as nines, both lowered.
    EXPECT_NEAR(static_cast<double>(groups.right.mean.y), -1.72, 1e-5);
    EXPECT_NEAR(static_cast<double>(groups.right.mean.x), (0.64 + 0.76604444 * 0.64) / 2, 1e-5);
}

TEST_F(SceneOverlays, PansAtTheBoundsCountForNeitherSide) {
    sounding = {147.0f, 147.0f, 147.0f};
    pans = {0.3f, 0.5f, 0.7f};
    drawSound();
    EXPECT_EQ(touched(), 0);
    pans.clear();
    drawSound();
    EXPECT_EQ(touched(), 0) << "pans that are not known";
}

TEST_F(SceneOverlays, ASidesMarkerAndFiguresShow) {
    sounding = {147.0f};
    pans = {0.0f};
    drawSound();
    const Picture seenPicture = picture();
    const Seen place = seen({-0.32f, -0.52f, 0.0f});
    const SDL_Color glow14 = over({255, 160, 60, 20}, kBackdrop);
    const SDL_Color glow9 = over({255, 160, 60, 60}, glow14);
    const SDL_Color core = over({255, 200, 100, 200}, glow9);
    EXPECT_TRUE(isColor(seenPicture.at(place.x + 9, place.y + 9), glow14, 3));
    EXPECT_TRUE(isColor(seenPicture.at(place.x + 5, place.y + 5), glow9, 3));
    EXPECT_TRUE(isColor(seenPicture.at(place.x + 4, place.y), core, 3));
    EXPECT_TRUE(isColor(seenPicture.at(place.x, place.y), over({255, 255, 255, 230}, core), 3));
    // The cross: strokes from 6 to 16 on every side.
    EXPECT_TRUE(isColor(seenPicture.at(place.x + 16, place.y), over({255, 200, 100, 100}, kBackdrop), 3));
    EXPECT_TRUE(isColor(seenPicture.at(place.x, place.y - 16), over({255, 200, 100, 100}, kBackdrop), 3));
    EXPECT_TRUE(isColor(seenPicture.at(place.x - 6, place.y), over({255, 200, 100, 100}, glow9), 3));
    EXPECT_EQ(seenPicture.at(place.x + 17, place.y), kBackdrop);
    EXPECT_EQ(seenPicture.at(place.x, place.y + 17), kBackdrop);
    EXPECT_TRUE(textAt("L(Ref): 147 Hz  [1]", right("L(Ref): 147 Hz  [1]"), 18, {255, 190, 100, 210}));
    const std::string line = "  XYZ: -0.32 -0.52 +0.00";
    const std::string other = "  XYZ: -0.32 -0.52 -0.00";
    EXPECT_TRUE(textAt(line, right(line), 31, {220, 170, 100, 160}) ||
                textAt(other, right(other), 31, {220, 170, 100, 160}));
}

TEST_F(SceneOverlays, TheRightSideAloneStandsAtTheUpperPlace) {
    sounding = {600.0f};
    pans = {1.0f};
    drawSound();
    const std::string text = "R(Rot): 600 Hz  [1]";
    EXPECT_TRUE(textAt(text, right(text), 18, {100, 210, 255, 210}));
    screen.clear(kBackdrop);
    sounding = {147.0f, 600.0f};
    pans = {0.0f, 1.0f};
    drawSound();
    EXPECT_TRUE(textAt(text, right(text), 18 + 28, {100, 210, 255, 210}));
    EXPECT_TRUE(textAt("L(Ref): 147 Hz  [1]", right("L(Ref): 147 Hz  [1]"), 18, {255, 190, 100, 210}));
}

TEST_F(SceneOverlays, AMarkerBehindTheCameraKeepsItsFigures) {
    view.zoom = 0.0f;
    sounding = {147.0f};
    pans = {0.0f};
    drawSound();
    const Picture seenPicture = picture();
    for (int y = 60; y < seenPicture.h; ++y) {
        for (int x = 0; x < seenPicture.w; ++x)
            ASSERT_EQ(seenPicture.at(x, y), kBackdrop);
    }
    EXPECT_TRUE(textAt("L(Ref): 147 Hz  [1]", right("L(Ref): 147 Hz  [1]"), 18, {255, 190, 100, 210}));
}

TEST_F(SceneOverlays, StatusFollowsTheCamera) {
    view.azimuth = -179.6f;
    view.elevation = 45.4f;
    view.zoom = 0.25f;
    view.fov = 6.94f;
    drawStatusLine(canvas());
    EXPECT_TRUE(textAt("Az:-180  El:45  Zm:0.2  FOV:6.9", 6, 4, {220, 220, 230, 200}));
}

class ObjectSet : public test::SceneTest {
  protected:
    ObjectSetLayout layout = objectSetLayout({100, 50, 500, 300});
};

TEST_F(ObjectSet, StandsInTheUpperLeftCorner) {
    EXPECT_EQ(layout.box.x, 104);
    EXPECT_EQ(layout.box.y, 76);
    EXPECT_EQ(layout.box.w, 134);
    EXPECT_EQ(layout.box.h, 164);
    EXPECT_EQ(layout.firstRow.x, 106);
    EXPECT_EQ(layout.firstRow.y, 78);
    EXPECT_EQ(layout.coordinates.y, 246);
}

TEST_F(ObjectSet, EachRowShowsItsSwitchInItsColour) {
    const char* const labels[] = {"Solfeggio", "Reflection", "Rotation", "Shadow",   "Merkaba",
                                  "Enneagram", "Vitruvian",  "Grid",     "Centroid", "Helix"};
    const SDL_Color colours[] = {{180, 160, 220, 255}, {255, 200, 70, 255},  {70, 220, 200, 255},
                                 {255, 80, 80, 255},   {200, 160, 50, 255},  {140, 120, 180, 255},
                                 {200, 180, 130, 255}, {100, 100, 120, 255}, {255, 200, 100, 255},
                                 {120, 200, 255, 255}};
    bool KatharaViewState::*const fields[] = {
        &KatharaViewState::showSolfeggio, &KatharaViewState::showReflection, &KatharaViewState::showRotation,
        &KatharaViewState::showShadow,    &KatharaViewState::showMerkaba,    &KatharaViewState::showEnneagram,
        &KatharaViewState::showVitruvian, &KatharaViewState::showGrid,       &KatharaViewState::showCentroid,
        &KatharaViewState::helixLabels};
    const SDL_Color ground = over({18, 16, 26, 200}, kBackdrop);
    for (int r = 0; r < 10; ++r) {
        view = test::emptyView();
        view.*fields[r] = true;
        screen.clear(kBackdrop);
        drawObjectSet(context, layout, view);
        const Picture seen = picture();
        for (int other = 0; other < 10; ++other) {
            const int x = 112;
            const int y = 78 + 7 + 16 * other;
            if (other == r) {
                EXPECT_EQ(seen.at(x, y), colours[r]) << labels[r];
                EXPECT_EQ(seen.at(x + 4, y), colours[r]);
            } else {
                EXPECT_EQ(seen.at(x, y), (SDL_Color{18, 16, 26, 255})) << "a hole";
                EXPECT_TRUE(isColor(seen.at(x + 4, y), over({60, 55, 75, 180}, ground)));
            }
            const SDL_Color text = other == r ? SDL_Color{255, 255, 255, 255} : SDL_Color{160, 158, 170, 170};
            EXPECT_TRUE(
                showsText(seen, labels[other], 122, 78 + 1 + 16 * other, fonts.fontTiny, text, ground))
                << labels[other];
        }
    }
}

TEST_F(ObjectSet, TheWordOfTheCoordinatesInForceIsLit) {
    drawObjectSet(context, layout, view);
    EXPECT_TRUE(showsText(picture(), "Tree", 110, 246, fonts.fontTiny, {220, 175, 55, 220}));
    EXPECT_TRUE(showsText(picture(), "|", 142, 246, fonts.fontTiny, {90, 85, 110, 150}));
    EXPECT_TRUE(showsText(picture(), "Tesla", 150, 246, fonts.fontTiny, {70, 65, 90, 130}));
    screen.clear(kBackdrop);
    view.teslaCoordinates = true;
    drawObjectSet(context, layout, view);
    EXPECT_TRUE(showsText(picture(), "Tree", 110, 246, fonts.fontTiny, {70, 65, 90, 130}));
    EXPECT_TRUE(showsText(picture(), "Tesla", 150, 246, fonts.fontTiny, {80, 255, 200, 220}));
}

TEST_F(ObjectSet, WithoutAFontBoxAndDiscsStay) {
    closeAllFonts();
    view.showGrid = true;
    drawObjectSet(context, layout, view);
    const Picture seen = picture();
    EXPECT_EQ(seen.at(112, 78 + 7 + 16 * 7), (SDL_Color{100, 100, 120, 255}));
    const SDL_Color ground = over({18, 16, 26, 200}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(104, 76), over({60, 55, 80, 150}, ground)));
    EXPECT_TRUE(isColor(seen.at(237, 239), over({60, 55, 80, 150}, ground)));
    EXPECT_EQ(seen.at(238, 239), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(140, 84), ground)) << "no word";
    EXPECT_EQ(seen.at(112, 250), kBackdrop);
}

TEST_F(ObjectSet, AClickFindsItsRow) {
    EXPECT_EQ(objectSetRowAt(layout, 104, 78), 0);
    EXPECT_EQ(objectSetRowAt(layout, 237, 93), 0);
    EXPECT_EQ(objectSetRowAt(layout, 200, 94), 1);
    EXPECT_EQ(objectSetRowAt(layout, 200, 237), 9);
    EXPECT_EQ(objectSetRowAt(layout, 200, 76), 0) << "the margin above";
    EXPECT_EQ(objectSetRowAt(layout, 200, 238), -1) << "the margin below";
    EXPECT_EQ(objectSetRowAt(layout, 200, 240), -1);
    EXPECT_EQ(objectSetRowAt(layout, 200, 75), -1);
    EXPECT_EQ(objectSetRowAt(layout, 103, 90), -1);
    EXPECT_EQ(objectSetRowAt(layout, 238, 90), -1);
}

}  // namespace
}  // namespace veloria
