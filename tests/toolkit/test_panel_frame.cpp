#include "toolkit/panel_frame.h"

#include <gtest/gtest.h>

#include "tests/ui/offscreen.h"
#include "toolkit/primitives.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kTitle{160, 220, 180, 255};
constexpr SDL_Color kContent{10, 250, 20, 255};

testing::AssertionResult isRect(const SDL_Rect& seen, const SDL_Rect& wanted) {
    if (SDL_RectEquals(&seen, &wanted)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << seen.x << ", " << seen.y << ", " << seen.w << ", " << seen.h;
}

PanelState openPanel(const SDL_Rect& rect) {
    PanelState panel;
    panel.open = true;
    panel.rect = rect;
    return panel;
}

TEST(PanelLayout, ThePartsLieWhereTheFrameShowsThem) {
    const PanelLayout layout = panelLayout(openPanel({100, 120, 360, 340}), 1280, 720);
    EXPECT_TRUE(isRect(layout.frame, {100, 120, 360, 340}));
    EXPECT_TRUE(isRect(layout.title, {100, 120, 360, 22}));
    EXPECT_TRUE(isRect(layout.close, {440, 122, 18, 18}));
    EXPECT_TRUE(isRect(layout.closeHit, {440, 122, 20, 18}));
    EXPECT_TRUE(isRect(layout.maximise, {418, 122, 18, 18}));
    EXPECT_TRUE(isRect(layout.maximiseHit, {418, 122, 20, 18}));
    EXPECT_TRUE(isRect(layout.corner, {446, 446, 14, 14}));
    EXPECT_TRUE(isRect(layout.body, {102, 144, 356, 314}));
}

TEST(PanelLayout, MaximisedItIsTheWholeWindowWithoutACorner) {
    PanelState panel = openPanel({100, 120, 360, 340});
    panel.maximised = true;
    const PanelLayout layout = panelLayout(panel, 1280, 720);
    EXPECT_TRUE(isRect(layout.frame, {0, 0, 1280, 720}));
    EXPECT_TRUE(isRect(layout.title, {0, 0, 1280, 22}));
    EXPECT_TRUE(isRect(layout.close, {1260, 2, 18, 18}));
    EXPECT_TRUE(isRect(layout.maximise, {1238, 2, 18, 18}));
    EXPECT_TRUE(isRect(layout.body, {2, 24, 1276, 694}));
    EXPECT_TRUE(SDL_RectEmpty(&layout.corner));
}

TEST(PanelLayout, TheBodyOfAPanelTooSmallForOneIsEmpty) {
    const PanelLayout layout = panelLayout(openPanel({0, 0, 3, 20}), 1280, 720);
    EXPECT_EQ(layout.body.w, 0);
    EXPECT_EQ(layout.body.h, 0);
}

class PanelFrame : public test::DrawTest {
  protected:
    PanelFrame() { style.titleColor = kTitle; }

    PanelState panel = openPanel({50, 40, 240, 160});
    PanelStyle style;
};

TEST_F(PanelFrame, TheFrameHasItsColours) {
    drawPanel(context, panel, "LOTUS", style, nullptr);
    const Picture seen = picture();
    const SDL_Color body = over({22, 20, 30, 248}, kBackdrop);
    EXPECT_TRUE(isColor(seen.at(60, 100), body));
    EXPECT_TRUE(isColor(seen.at(51, 62), body));  // the first row below the title bar
    EXPECT_TRUE(isColor(seen.at(200, 61), {42, 40, 56, 255}, 0));
    EXPECT_TRUE(isColor(seen.at(200, 41), {42, 40, 56, 255}, 0));
    const SDL_Color border = over({160, 220, 180, 220}, body);
    const SDL_Color topBorder = over({160, 220, 180, 220}, {42, 40, 56, 255});
    EXPECT_TRUE(isColor(seen.at(50, 150), border, 3));
    EXPECT_TRUE(isColor(seen.at(289, 150), border, 3));
    EXPECT_TRUE(isColor(seen.at(150, 199), border, 3));
    EXPECT_TRUE(isColor(seen.at(289, 199), border, 3));
    EXPECT_TRUE(isColor(seen.at(150, 40), topBorder, 3));
    EXPECT_TRUE(isColor(seen.at(50, 40), topBorder, 3));
    EXPECT_EQ(seen.at(49, 150), kBackdrop);
    EXPECT_EQ(seen.at(290, 150), kBackdrop);
    EXPECT_EQ(seen.at(150, 39), kBackdrop);
    EXPECT_EQ(seen.at(150, 200), kBackdrop);
}

TEST_F(PanelFrame, TheBoxesHaveTheirColoursAndGlyphs) {
    drawPanel(context, panel, "LOTUS", style, nullptr);
    const Picture seen = picture();
    const SDL_Color bar{42, 40, 56, 255};
    EXPECT_TRUE(isColor(seen.at(270, 42), over({160, 40, 40, 220}, bar)));
    EXPECT_TRUE(isColor(seen.at(287, 59), over({160, 40, 40, 220}, bar)));
    EXPECT_TRUE(isColor(seen.at(269, 50), bar, 0));
    EXPECT_TRUE(isColor(seen.at(288, 50), bar, 0));
    EXPECT_TRUE(isColor(seen.at(248, 42), over({60, 60, 80, 220}, bar)));
    EXPECT_TRUE(isColor(seen.at(265, 59), over({60, 60, 80, 220}, bar)));
    EXPECT_TRUE(isColor(seen.at(266, 50), bar, 0));
    int white = 0;
    for (int y = 42; y < 60; ++y) {
        for (int x = 270; x < 288; ++x)
            white += seen.at(x, y).g > 150 ? 1 : 0;
    }
    EXPECT_GT(white, 5) << "the X";
    const SDL_Color glyph{200, 200, 200, 255};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(seen.at(253 + i, 47), glyph);
        EXPECT_EQ(seen.at(253 + i, 54), glyph);
        EXPECT_EQ(seen.at(253, 47 + i), glyph);
        EXPECT_EQ(seen.at(260, 47 + i), glyph);
    }
    EXPECT_FALSE(seen.at(256, 50) == glyph);
    EXPECT_FALSE(seen.at(252, 47) == glyph);
}

TEST_F(PanelFrame, MaximisedTheGlyphIsTwoShiftedSquaresAndTheGripIsGone) {
    panel.maximised = true;
    drawPanel(context, panel, "LOTUS", style, nullptr);
    const Picture seen = picture();
    const SDL_Color glyph{200, 200, 200, 255};
    // The box is (358, 2, 18, 18).
    EXPECT_EQ(seen.at(362, 8), glyph);
    EXPECT_EQ(seen.at(369, 15), glyph);
    EXPECT_EQ(seen.at(364, 6), glyph);
    EXPECT_EQ(seen.at(371, 13), glyph);
    EXPECT_FALSE(seen.at(362, 6) == glyph);
    EXPECT_FALSE(seen.at(371, 15) == glyph);
    const SDL_Color body = over({22, 20, 30, 248}, kBackdrop);
    for (int i = 2; i < 14; ++i) {
        for (int j = 2; j < 14; ++j)
            EXPECT_TRUE(isColor(seen.at(400 - i, 300 - j), body));
    }
}

TEST_F(PanelFrame, TheTitleStandsInItsColourAndKeepsClearOfTheBoxes) {
    drawPanel(context, panel, "A title that is very much too long for a panel of this width", style, nullptr);
    const Picture seen = picture();
    int inColour = 0;
    for (int y = 42; y < 61; ++y) {
        for (int x = 51; x < 289; ++x) {
            if (!isColor(seen.at(x, y), kTitle, 0)) continue;
            ++inColour;
            EXPECT_GE(x, 58);
            EXPECT_GE(y, 44);
            EXPECT_LT(x, 246);
        }
    }
    EXPECT_GT(inColour, 20);
}

TEST_F(PanelFrame, ThreeStrokesMarkTheResizeCorner) {
    drawPanel(context, panel, "LOTUS", style, nullptr);
    const Picture seen = picture();
    const SDL_Color body = over({22, 20, 30, 248}, kBackdrop);
    const SDL_Color stroke = over({71, 114, 179, 120}, body);
    for (int reach : {4, 8, 12}) {
        for (int i = 0; i <= reach; ++i) {
            EXPECT_TRUE(isColor(seen.at(288 - reach + i, 198 - i), stroke, 3)) << reach << " " << i;
        }
    }
    EXPECT_TRUE(isColor(seen.at(287, 197), body));
    EXPECT_TRUE(isColor(seen.at(282, 198), body));
    EXPECT_TRUE(isColor(seen.at(275, 198), body));
}

TEST_F(PanelFrame, TheGripLiesOverTheContent) {
    drawPanel(context, panel, "LOTUS", style,
              [&](const PanelLayout& layout) { fillRect(screen.renderer, layout.body, kContent); });
    EXPECT_TRUE(isColor(picture().at(284, 198), kContent, 0) == false);
}

TEST_F(PanelFrame, TheContentIsCutToTheBody) {
    drawPanel(context, panel, "LOTUS", style, [&](const PanelLayout& layout) {
        EXPECT_TRUE(isRect(layout.body, {52, 64, 236, 134}));
        fillRect(screen.renderer, {0, 0, 400, 300}, kContent);
    });
    const Picture seen = picture();
    EXPECT_EQ(seen.at(52, 64), kContent);
    EXPECT_EQ(seen.at(52, 197), kContent);
    EXPECT_EQ(seen.at(287, 64), kContent);
    EXPECT_FALSE(seen.at(51, 100) == kContent);
    EXPECT_FALSE(seen.at(100, 63) == kContent);
    EXPECT_FALSE(seen.at(288, 100) == kContent);
    EXPECT_FALSE(seen.at(100, 198) == kContent);
}

TEST_F(PanelFrame, TheClipIsGoneWhateverTheContentDid) {
    drawPanel(context, panel, "LOTUS", style, [&](const PanelLayout&) {
        const SDL_Rect own{0, 0, 5, 5};
        SDL_RenderSetClipRect(screen.renderer, &own);
    });
    EXPECT_EQ(SDL_RenderIsClipEnabled(screen.renderer), SDL_FALSE);
}

TEST_F(PanelFrame, AClosedPanelDrawsNothing) {
    panel.open = false;
    bool called = false;
    drawPanel(context, panel, "LOTUS", style, [&](const PanelLayout&) { called = true; });
    EXPECT_EQ(touched(), 0);
    EXPECT_FALSE(called);
}

TEST_F(PanelFrame, APanelMayHaveItsOwnBoxColours) {
    style.closeColor = {180, 60, 60, 220};
    style.maximiseColor = {80, 80, 80, 220};
    drawPanel(context, panel, "SHADOW", style, nullptr);
    const SDL_Color bar{42, 40, 56, 255};
    EXPECT_TRUE(isColor(picture().at(270, 42), over({180, 60, 60, 220}, bar)));
    EXPECT_TRUE(isColor(picture().at(248, 42), over({80, 80, 80, 220}, bar)));
}

TEST_F(PanelFrame, WithoutFontsTheFrameStandsWithoutCaptions) {
    const Fonts none;
    context.fonts = &none;
    drawPanel(context, panel, "LOTUS", style, nullptr);
    EXPECT_TRUE(isColor(picture().at(279, 51), over({160, 40, 40, 220}, {42, 40, 56, 255})));
}

}  // namespace
}  // namespace veloria
