// Single items of the scene as they look on a plain ground.
#include "views/scene/scene_paint.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/views/scene/scene_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

class ScenePaint : public test::SceneTest {
  protected:
    void paint(const SceneItem& item) { paintSceneItem(canvas(), item, labels); }

    static SceneItem dot(int x, int y, bool active, int tag = 0) {
        return {SceneItemKind::Dot,
                x,
                y,
                0,
                0,
                active ? 5 : 2,
                active ? SDL_Color{255, 220, 70, 245} : SDL_Color{210, 170, 55, 30},
                1.0f,
                tag,
                static_cast<std::uint8_t>(active ? 1 : 0)};
    }
    static SceneItem node(int x, int y, bool active, int tag) {
        return {SceneItemKind::Node,
                x,
                y,
                0,
                0,
                active ? 12 : 9,
                {220, 175, 55, 255},
                1.0f,
                tag,
                static_cast<std::uint8_t>(active ? 1 : 0)};
    }
    static SceneItem diamond(int x, int y, bool active, int tag) {
        return {SceneItemKind::Diamond,
                x,
                y,
                0,
                0,
                active ? 10 : 3,
                active ? SDL_Color{50, 255, 120, 250} : SDL_Color{40, 140, 70, 25},
                1.0f,
                tag,
                static_cast<std::uint8_t>(active ? 1 : 0)};
    }
    [[nodiscard]] int width(const std::string& text) const { return measureText(fonts.fontTiny, text).x; }
    [[nodiscard]] bool label(const std::string& text, int x, int y, SDL_Color color) const {
        return showsText(picture(), text, x, y, fonts.fontTiny, color);
    }

    SceneLabels labels;
};

TEST_F(ScenePaint, AnIdleDotIsAFaintDiscWithoutHalo) {
    view.showHz = false;
    paint(dot(100, 100, false));
    const Picture seen = picture();
    EXPECT_TRUE(isColor(seen.at(100, 100), over({210, 170, 55, 30}, kBackdrop)));
    EXPECT_TRUE(isColor(seen.at(102, 100), over({210, 170, 55, 30}, kBackdrop)));
    EXPECT_EQ(seen.at(103, 100), kBackdrop);
    EXPECT_EQ(touched(), 13) << "rows of 1, 3, 5, 3 and 1";
}

TEST_F(ScenePaint, AnActiveDotHasAHaloThatBreathes) {
    view.showHz = false;
    pulse = 0.5f;
    paint(dot(100, 100, true));
    const Picture seen = picture();
    const SDL_Color halo = over({255, 220, 70, 12}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(100, 100), over({255, 220, 70, 245}, halo)));
    EXPECT_TRUE(isColor(seen.at(105, 100), over({255, 220, 70, 245}, halo)));
    EXPECT_TRUE(isColor(seen.at(106, 100), halo));
    EXPECT_TRUE(isColor(seen.at(110, 100), halo));
    EXPECT_EQ(seen.at(111, 100), kBackdrop);
    EXPECT_FALSE(isColor(seen.at(108, 100), kBackdrop, 0)) << "the halo can be told from the ground";
}

TEST_F(ScenePaint, FiguresStandOnTheSideOfTheNearerEdge) {
    // Left of the middle (320) the figure is to the right; in the middle too.
    paint(dot(100, 100, false, 0));
    EXPECT_TRUE(label("152", 100 + 2 + 2, 95, {210, 170, 55, 90}));
    screen.clear(kBackdrop);
    paint(dot(400, 200, false, 81 + 2));
    EXPECT_TRUE(label("512", 400 - width("512") - 2 - 2, 195, {210, 170, 55, 90}));
    screen.clear(kBackdrop);
    paint(dot(320, 300, false, 161));
    EXPECT_TRUE(label("947", 324, 295, {210, 170, 55, 90}));
}

TEST_F(ScenePaint, WithoutFiguresOrFontOnlyTheShapesStay) {
    view.showHz = false;
    paint(dot(100, 100, false, 0));
    paint(diamond(200, 100, false, 200));
    const Picture plain = picture();
    screen.clear(kBackdrop);
    view.showHz = true;
    closeAllFonts();
    paint(dot(100, 100, false, 0));
    paint(diamond(200, 100, false, 200));
    EXPECT_TRUE(picture() == plain);
    EXPECT_GT(touched(), 20);
}

TEST_F(ScenePaint, AnIdleLabelGivesWayAndAnActiveOneDoesNot) {
    paint(dot(100, 100, false, 0));
    EXPECT_EQ(labels.count, 1);
    const int before = touched();
    paint(dot(102, 100, false, 1));
    EXPECT_EQ(labels.count, 1);
    EXPECT_LT(touched() - before, 13) << "a disc, and no figure";

    const SceneItem loud = dot(102, 100, true, 2);
    paint(loud);
    EXPECT_EQ(labels.count, 1) << "drawn, but in nobody's way";
    const Picture seen = picture();
    int bright = 0;
    for (int y = 95; y < 105; ++y) {
        for (int x = 110; x < 130; ++x)
            bright += seen.at(x, y).r > 200 ? 1 : 0;
    }
    EXPECT_GT(bright, 5) << "521 over 152";
}

TEST_F(ScenePaint, AnIdleNodeIsARingWithItsThreeTexts) {
    paint(node(200, 200, false, 5));
    const Picture seen = picture();
    const SDL_Color ring = over({220, 175, 55, 140}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(192, 200), ring));
    EXPECT_TRUE(isColor(seen.at(195, 200), over({14, 12, 22, 215}, ring)));
    EXPECT_EQ(seen.at(190, 200), kBackdrop);
    EXPECT_TRUE(label("396 Hz", 200 - width("396 Hz") / 2, 200 - 9 - 14, {245, 240, 215, 160}));
    EXPECT_TRUE(label("Yud 10", 200 - width("Yud 10") / 2, 200 + 9 + 2, {180, 175, 200, 115}));
    EXPECT_TRUE(label("Earthly", 200 - width("Earthly") / 2, 200 + 9 + 14, {220, 175, 55, 70}));
    EXPECT_EQ(labels.count, 3);
}

TEST_F(ScenePaint, AnActiveNodeGlowsAndKeepsItsTextsOutOfTheTest) {
    paint(node(200, 200, true, 6));
    const Picture seen = picture();
    const SDL_Color outer = over({220, 175, 55, 35}, kBackdrop);
    const SDL_Color inner = over({220, 175, 55, 60}, outer);
    EXPECT_TRUE(isColor(seen.at(180, 200), outer));
    EXPECT_EQ(seen.at(179, 200), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(184, 200), inner));
    const SDL_Color ring = over({220, 175, 55, 230}, inner);
    EXPECT_TRUE(isColor(seen.at(188, 200), ring));
    EXPECT_TRUE(isColor(seen.at(191, 200), over({14, 12, 22, 190}, ring)));
    EXPECT_EQ(labels.count, 0);
    // The middle text lies on the glow, the others reach out of it: with those the place is enough.
    int green = 0;
    for (int x = 180; x < 220; ++x) {
        for (int y = 226; y < 238; ++y)
            green += seen.at(x, y).g > seen.at(x, y).r + 20 ? 1 : 0;
    }
    EXPECT_GT(green, 10) << "Transit, in the colour of its own realm";
}

TEST_F(ScenePaint, WhatSoundsIsWrittenBrighter) {
    pulse = 0.0f;  // no glow under the texts
    paint(node(200, 200, true, 5));
    EXPECT_TRUE(label("396 Hz", 200 - width("396 Hz") / 2, 200 - 12 - 14, {245, 240, 215, 255}));
    EXPECT_TRUE(label("Yud 10", 200 - width("Yud 10") / 2, 200 + 12 + 2, {180, 175, 200, 220}));
    EXPECT_TRUE(label("Earthly", 200 - width("Earthly") / 2, 200 + 12 + 14, {220, 175, 55, 160}));
}

TEST_F(ScenePaint, TheHebrewLetterIsCentredAndHasTheNodesColour) {
    TTF_Font* wide = fonts.fontWide;
    if (wide == nullptr) GTEST_SKIP() << "no font";
    TTF_Font* tiny = fonts.fontTiny;
    fonts.fontTiny = nullptr;               // the letter alone
    const char* const letter = "\xD7\xA7";  // Qof
    for (const bool active : {false, true}) {
        screen.clear(kBackdrop);
        paint(node(200, 200, active, 11));
        const Picture whole = picture();
        screen.clear(kBackdrop);
        fonts.fontWide = nullptr;
        paint(node(200, 200, active, 11));
        fonts.fontWide = wide;
        DrawTextUtf8(context, letter, 200 - measureTextUtf8(wide, letter).x / 2, 192, wide,
                     {220, 175, 55, static_cast<Uint8>(active ? 255 : 180)});
        EXPECT_TRUE(picture() == whole) << active;
    }
    fonts.fontTiny = tiny;
}

TEST_F(ScenePaint, TheHebrewLetterStandsInTheRingAndTakesNoPartInTheTest) {
    if (fonts.fontWide == nullptr) GTEST_SKIP() << "no font";
    paint(node(200, 200, false, 11));
    const Picture with = picture();
    screen.clear(kBackdrop);
    labels.count = 0;
    TTF_Font* wide = fonts.fontWide;
    fonts.fontWide = nullptr;
    paint(node(200, 200, false, 11));
    const Picture without = picture();
    fonts.fontWide = wide;
    int different = 0;
    for (int y = 0; y < with.h; ++y) {
        for (int x = 0; x < with.w; ++x) {
            if (with.at(x, y) == without.at(x, y)) continue;
            ++different;
            EXPECT_GE(y, 192);
            EXPECT_LT(y, 192 + TTF_FontHeight(wide));
            EXPECT_NEAR(x, 200, 12);
        }
    }
    EXPECT_GT(different, 10);
    EXPECT_EQ(labels.count, 3);
}

TEST_F(ScenePaint, EachTextOfANodeIsTriedByItself) {
    const int w = width("396 Hz");
    ASSERT_TRUE(placeLabel(labels, {200 - w / 2, 177, w, 4}));  // in the way of the first
    paint(node(200, 200, false, 5));
    EXPECT_EQ(labels.count, 3);
    EXPECT_EQ(picture().at(200 - w / 2 + 2, 180), kBackdrop);
    EXPECT_TRUE(label("Yud 10", 200 - width("Yud 10") / 2, 211, {180, 175, 200, 115}));
}

TEST_F(ScenePaint, AnEnneagramDigitHasColoursOfItsOwn) {
    SceneItem item = node(300, 100, false, 104);
    item.size = 6;
    item.colour = {255, 0, 0, 255};
    paint(item);
    const Picture seen = picture();
    const SDL_Color rim = over({90, 80, 110, 90}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(294, 100), rim));
    EXPECT_TRUE(isColor(seen.at(296, 100), over({14, 12, 22, 185}, rim)));
    EXPECT_EQ(labels.count, 1);
    EXPECT_EQ(labels.rects[0].x, 300 - width("5") / 2);
    EXPECT_EQ(labels.rects[0].y, 95);
    int light = 0;
    for (int x = 297; x <= 303; ++x) {
        for (int y = 96; y <= 104; ++y)
            light += seen.at(x, y).b > 120 ? 1 : 0;
    }
    EXPECT_GT(light, 2) << "the digit";
}

TEST_F(ScenePaint, AnIdleDiamondIsFilledOutlinedAndNamed) {
    paint(diamond(100, 100, false, 204));
    const Picture seen = picture();
    const SDL_Color inside = over({40, 140, 70, 25}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(100, 100), inside));
    EXPECT_TRUE(isColor(seen.at(102, 100), inside));
    EXPECT_TRUE(isColor(seen.at(101, 101), inside));
    for (const auto& [x, y] : {std::pair{103, 100}, {97, 100}, {100, 97}, {100, 103}, {102, 101}, {98, 99}})
        EXPECT_TRUE(isColor(seen.at(x, y), over({255, 255, 255, 50}, inside))) << x << ", " << y;
    EXPECT_EQ(seen.at(104, 100), kBackdrop);
    EXPECT_EQ(seen.at(102, 102), kBackdrop);
    EXPECT_TRUE(label("115", 100 + 3 + 4, 95, {180, 170, 170, 60}));
}

TEST_F(ScenePaint, AnActiveDiamondHasARedHaloOfTwoOutlinesWhateverItsGroup) {
    pulse = 0.5f;
    paint(diamond(500, 100, true, 204));
    const Picture seen = picture();
    EXPECT_TRUE(isColor(seen.at(500, 80), over({255, 80, 80, 10}, kBackdrop)));
    EXPECT_TRUE(isColor(seen.at(490, 90), over({255, 80, 80, 10}, kBackdrop)));
    EXPECT_TRUE(isColor(seen.at(500, 85), over({255, 80, 80, 20}, kBackdrop)));
    EXPECT_EQ(seen.at(500, 83), kBackdrop) << "between the two";
    EXPECT_FALSE(isColor(seen.at(500, 85), kBackdrop, 1));
    const SDL_Color inside = over({50, 255, 120, 250}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(500, 100), inside));
    EXPECT_TRUE(isColor(seen.at(500, 90), over({255, 255, 255, 140}, inside)));
    EXPECT_EQ(labels.count, 0);
    // White, to the left, beyond the halo's left corner.
    int white = 0;
    const int left = 500 - width("115") - 10 - 4;
    for (int x = left; x < left + width("115"); ++x) {
        for (int y = 95; y < 107; ++y)
            white += seen.at(x, y).b > 200 ? 1 : 0;
    }
    EXPECT_GT(white, 5);
}

TEST_F(ScenePaint, WithTheHelixACodonIsNamedByItsBasesAndItsAminoAcid) {
    view.helixLabels = true;
    paint(diamond(100, 100, false, 208));  // 123
    EXPECT_TRUE(label("ATG/Met", 107, 95, {180, 170, 170, 60}));
    paint(diamond(100, 200, false, 236));  // 211
    EXPECT_TRUE(label("TAA/STP", 107, 195, {180, 170, 170, 60}));
    paint(diamond(100, 300, false, 204));  // 115
    EXPECT_TRUE(label("115", 107, 295, {180, 170, 170, 60})) << "a digit above 4 keeps the figure";
}

TEST_F(ScenePaint, LinesAreOnePixelAndThickOnesThree) {
    SceneItem line{SceneItemKind::Line, 100, 50, 200, 50, 1, {90, 85, 115, 70}, 1.0f, -1, 0};
    paint(line);
    EXPECT_TRUE(isColor(picture().at(150, 50), over(line.colour, kBackdrop)));
    EXPECT_EQ(touched(), 101);
    line.kind = SceneItemKind::ThickLine;
    line.size = 2;
    line.y = line.y2 = 80;
    paint(line);
    EXPECT_EQ(touched(), 101 + 303);
    line.x2 = line.x;
    line.y = line.y2 = 120;
    paint(line);
    EXPECT_EQ(touched(), 101 + 303) << "without length it is dropped";
}

}  // namespace
}  // namespace veloria
