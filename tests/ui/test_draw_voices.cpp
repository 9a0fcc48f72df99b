#include <gtest/gtest.h>

#include <string>

#include "tests/ui/app_fixture.h"
#include "tests/ui/text_probe.h"
#include "ui/draw.h"

namespace veloria {
namespace {

using test::isColor;
using test::isFilled;
using test::isText;
using test::kBackdrop;
using test::over;
using test::Picture;

constexpr SDL_Color kMultiplier{200, 180, 100, 180};
constexpr SDL_Color kNames{140, 140, 160, 140};

// 402 pixels make three columns of 134: texts at +6, +6 + 40, +6 + 73, +6 + 104.
class VoicesTab : public test::AppTest {
  protected:
    VoicesTab() {
        setLeftWidth(402);
        setContentBottom(690);
        app.viewMode = kVoicesTab;
        app.voicesSubTab = 1;
    }
    Picture draw() {
        clear();
        drawVoicesTab(app);
        return picture();
    }
    testing::AssertionResult says(const Picture& seen, const std::string& text, int x, int y,
                                  SDL_Color color) {
        return isText(seen, kBackdrop, text, x, y, app.fonts.fontLabel, color);
    }
    static testing::AssertionResult empty(const Picture& seen, const SDL_Rect& area) {
        return isFilled(seen, area, kBackdrop);
    }
};

TEST_F(VoicesTab, SubTabsTakeHalfThePanelEach) {
    const SDL_Color active = over({78, 78, 78, 220}, kBackdrop);
    const SDL_Color idle = over({58, 58, 58, 200}, kBackdrop);
    const char* captions[] = {"VOICE", "FREQUENCY"};
    for (int shown = 0; shown < 2; ++shown) {
        app.voicesSubTab = shown;
        const Picture seen = draw();
        for (int tab = 0; tab < 2; ++tab) {
            const SDL_Rect box{tab == 0 ? 3 : 202, 59, 197, 22};
            const bool lit = tab == shown;
            EXPECT_TRUE(isColor(seen.at(box.x + 5, 70), lit ? active : idle));
            const SDL_Color outline = lit ? SDL_Color{71, 114, 179, 255} : over({30, 30, 30, 150}, idle);
            EXPECT_TRUE(isColor(seen.at(box.x, 70), outline));
            EXPECT_TRUE(isColor(seen.at(box.x + box.w - 1, 70), outline));
            EXPECT_TRUE(isColor(seen.at(box.x + 20, 80), outline));
            const SDL_Point place = test::centredPlace(captions[tab], box, app.fonts.fontLabel);
            EXPECT_TRUE(isText(seen, lit ? active : idle, captions[tab], place.x, place.y,
                               app.fonts.fontLabel,
                               lit ? SDL_Color{230, 230, 230, 255} : SDL_Color{160, 160, 160, 255}));
        }
    }
}

TEST_F(VoicesTab, VoiceListsTheSoundingChannels) {
    app.voicesSubTab = 0;
    addVoice(500, 0.0f, 2);
    addVoice(600, 0.0f, 2);
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "Voices: 2 / 256", 13, 116, {100, 255, 120, 255}));
    EXPECT_TRUE(says(seen, "Ch2: 2", 13, 140, {128, 174, 255, 255}));
    EXPECT_TRUE(empty(seen, {0, 84, 402, 30}));  // and not the other sub-tab's headings
}

TEST_F(VoicesTab, ThreeColumnsHaveTheirHeadings) {
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "LEFT (REFLECTION)", 6, 87, {255, 160, 80, 200}));
    EXPECT_TRUE(says(seen, "RIGHT (ROTATION)", 140, 87, {80, 180, 255, 200}));
    EXPECT_TRUE(says(seen, "SHADOW", 274, 87, {220, 80, 80, 200}));
    const SDL_Color line = over({30, 30, 30, 160}, kBackdrop);
    EXPECT_TRUE(isFilled(seen, {5, 101, 393, 1}, line));
    EXPECT_TRUE(isFilled(seen, {134, 120, 1, 561}, line));
    EXPECT_TRUE(isFilled(seen, {268, 120, 1, 561}, line));
    EXPECT_TRUE(isColor(seen.at(134, 103), line));
    EXPECT_EQ(seen.at(134, 102), kBackdrop);
    EXPECT_EQ(seen.at(134, 681), kBackdrop);
}

TEST_F(VoicesTab, EachColumnNamesItsFigures) {
    setLeftWidth(601);  // columns of 200: texts at +6, +6 + 60, +6 + 110, +6 + 156
    const char* names[][4] = {
        {"Hz", "BASE", "TYPE", "MUL"}, {"Hz", "BASE", "TYPE", "MUL"}, {"Hz", "NM", "DIFF", "MUL"}};
    const int places[] = {6, 66, 116, 162};
    const Picture seen = draw();
    for (int column = 0; column < 3; ++column) {
        for (int i = 0; i < 4; ++i)
            EXPECT_TRUE(says(seen, names[column][i], 200 * column + places[i], 104, kNames));
    }
}

TEST_F(VoicesTab, LeftAndRightVoicesShowTheirBase) {
    addVoice(528.0 * 1.618033988749895, 0.0f, 0, 1);
    addVoice(174.0, 0.0f);
    addVoice(147.0, 1.0f);
    const Picture seen = draw();
    constexpr SDL_Color kLeft{255, 190, 120, 220};
    constexpr SDL_Color kRight{130, 200, 255, 220};
    EXPECT_TRUE(says(seen, "174", 6, 119, kLeft));
    EXPECT_TRUE(says(seen, "174", 46, 119, kLeft));
    EXPECT_TRUE(says(seen, "Ref", 79, 119, kLeft));
    EXPECT_TRUE(empty(seen, {110, 119, 24, 15}));
    EXPECT_TRUE(says(seen, "854", 6, 134, kLeft));
    EXPECT_TRUE(says(seen, "528", 46, 134, kLeft));
    EXPECT_TRUE(says(seen, "xP", 110, 134, kMultiplier));
    EXPECT_TRUE(says(seen, "147", 140, 119, kRight));
    EXPECT_TRUE(says(seen, "147", 180, 119, kRight));
    EXPECT_TRUE(says(seen, "Rot", 213, 119, kRight));
}

TEST_F(VoicesTab, CentredVoicesHaveNoBase) {
    addVoice(285.4, 0.5f, 0, 8);
    const Picture seen = draw();
    EXPECT_TRUE(says(seen, "285", 6, 119, {200, 200, 200, 160}));
    EXPECT_TRUE(empty(seen, {40, 119, 38, 15}));
    EXPECT_TRUE(says(seen, "C", 79, 119, {160, 160, 180, 140}));
    EXPECT_TRUE(says(seen, "/P", 110, 119, kMultiplier));
}

TEST_F(VoicesTab, ShadowVoicesShowTheirSymbolAndDistance) {
    addVoice(123.4, 0.5f, 10, 15);
    addVoice(211.0, 0.5f, 10);
    addVoice(554.5, 1.0f, 10);
    const Picture seen = draw();
    constexpr SDL_Color kHz{255, 100, 100, 220};
    constexpr SDL_Color kSymbol{220, 140, 140, 180};
    constexpr SDL_Color kDifference{160, 160, 180, 140};
    EXPECT_TRUE(says(seen, "123", 274, 119, kHz));
    EXPECT_TRUE(says(seen, "Met", 314, 119, kSymbol));
    EXPECT_TRUE(says(seen, "+0.4", 347, 119, kDifference));
    EXPECT_TRUE(says(seen, "x2", 378, 119, kMultiplier));
    EXPECT_TRUE(says(seen, "STP", 314, 134, kSymbol));
    EXPECT_TRUE(says(seen, "+0.0", 347, 134, kDifference));
    EXPECT_TRUE(says(seen, "DR5", 314, 149, kSymbol));  // 554
    EXPECT_TRUE(says(seen, "+0.5", 347, 149, kDifference));
    EXPECT_TRUE(empty(seen, {6, 119, 120, 60}));
}

// The tab scrolls, so that a column holds all its voices however low the panel is.
TEST_F(VoicesTab, AColumnIsCutAtTheRecorderAndScrolledToItsEnd) {
    for (int i = 0; i < 12; ++i)
        addVoice(200.0 + 50 * i, 0.0f);
    setContentBottom(180);
    Picture seen = draw();
    EXPECT_TRUE(says(seen, "350", 6, 164, {255, 190, 120, 220}));
    EXPECT_TRUE(empty(seen, {0, 180, 402, 300}));
    app.leftScroll[kVoicesTab] = 1000;
    layOut();
    // Twelve rows from 119, 6 below them and the foot of 10: 315, of which 180 are seen.
    ASSERT_EQ(app.layout.leftScroll, 135);
    seen = draw();
    EXPECT_TRUE(says(seen, "750", 6, 119 + 11 * 15 - 135, {255, 190, 120, 220}));
    EXPECT_TRUE(isColor(seen.at(134, 169), over({30, 30, 30, 160}, kBackdrop)));  // the columns' lines
    EXPECT_TRUE(isColor(seen.at(134, 170), over({30, 30, 30, 160}, kBackdrop)));
    EXPECT_TRUE(empty(seen, {0, 171, 402, 20}));
    EXPECT_TRUE(empty(seen, {0, 0, 402, 61}));
}

TEST_F(VoicesTab, PairsStandUnderTheLongestColumn) {
    addVoice(528, 0.0f);
    addVoice(530, 1.0f);
    addVoice(700, 1.0f);
    addVoice(900, 1.0f);
    const Picture seen = draw();  // three rows: 119 + 45 + 6 = 170
    EXPECT_TRUE(isFilled(seen, {5, 170, 129, 1}, over({180, 130, 255, 80}, kBackdrop)));
    EXPECT_TRUE(isColor(seen.at(396, 170), over({180, 130, 255, 80}, kBackdrop)));
    setLeftWidth(600);  // the columns' lines run through the block, here right of the texts
    const Picture wide = draw();
    EXPECT_TRUE(says(wide, "L:528 R:530 = 2.0Hz Delta", 10, 188, {100, 160, 255, 230}));
    EXPECT_TRUE(says(wide, "BINAURAL BEATS (1 pairs)", 5, 174, {180, 130, 255, 220}));
}

TEST_F(VoicesTab, PairsTakeTheColourOfTheirBand) {
    setLeftWidth(600);
    addVoice(200, 0.0f);
    addVoice(206, 1.0f);
    addVoice(300, 0.0f);
    addVoice(310.5, 1.0f);
    addVoice(500, 0.0f);
    addVoice(535, 1.0f);
    const Picture seen = draw();  // three rows: 170
    EXPECT_TRUE(says(seen, "BINAURAL BEATS (3 pairs)", 5, 174, {180, 130, 255, 220}));
    EXPECT_TRUE(says(seen, "L:200 R:206 = 6.0Hz Theta", 10, 188, {160, 100, 255, 230}));
    EXPECT_TRUE(says(seen, "L:300 R:310 = 10.5Hz Alpha", 10, 202, {100, 255, 160, 230}));
    EXPECT_TRUE(says(seen, "L:500 R:535 = 35.0Hz Gamma", 10, 216, {255, 100, 100, 230}));
}

TEST_F(VoicesTab, AllPairsAreReachedByScrolling) {
    setLeftWidth(600);
    for (int i = 0; i < 4; ++i) {
        addVoice(200 + 100 * i, 0.0f);
        addVoice(205 + 100 * i, 1.0f);
    }
    setContentBottom(180);  // the block begins at 185
    EXPECT_TRUE(empty(draw(), {0, 180, 600, 200}));
    app.leftScroll[kVoicesTab] = 90;
    layOut();
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {5, 95, 195, 1}, over({180, 130, 255, 80}, kBackdrop)));
    EXPECT_TRUE(says(seen, "BINAURAL BEATS (4 pairs)", 5, 99, {180, 130, 255, 220}));
    EXPECT_TRUE(says(seen, "L:500 R:505 = 5.0Hz Theta", 10, 113 + 3 * 14, {160, 100, 255, 230}));
}

TEST_F(VoicesTab, TheActivationStandsBelow) {
    setLeftWidth(600);  // columns of 200
    engine.activationMode = 2;
    const Picture seen = draw();  // no rows: 119 + 6 = 125
    EXPECT_TRUE(isFilled(seen, {5, 125, 195, 1}, over({255, 130, 180, 120}, kBackdrop)));
    EXPECT_TRUE(says(seen, "ACTIVATION: TRIPLE [H]", 5, 128, {255, 130, 180, 230}));
    EXPECT_TRUE(says(seen, "Heart Key: 322+325+358 Hz", 10, 143, {255, 120, 160, 200}));
    EXPECT_TRUE(says(seen, "  3Hz Theta + 33Hz Gamma", 10, 156, {200, 100, 140, 180}));
    EXPECT_TRUE(empty(seen, {0, 171, 200, 60}));
    engine.dronesOn = true;
    EXPECT_TRUE(says(draw(), "Theta Drone: ACTIVE (-18dB)", 10, 169, {80, 255, 160, 220}));
}

TEST_F(VoicesTab, TheHigherActivationsHaveABodyKey) {
    setLeftWidth(600);
    engine.dronesOn = true;
    const char* titles[] = {"ACTIVATION: TRINITY [H]", "ACTIVATION: FIBONACCI [H]"};
    for (std::int32_t mode = 3; mode <= 4; ++mode) {
        engine.activationMode = mode;
        const Picture seen = draw();
        EXPECT_TRUE(says(seen, titles[mode - 3], 5, 128, {255, 130, 180, 230}));
        EXPECT_TRUE(says(seen, "Body Key: 111+114+127 Hz", 10, 169, {255, 160, 80, 200}));
        EXPECT_TRUE(says(seen, "  3Hz Theta + 13Hz Alpha", 10, 182, {200, 130, 60, 180}));
        EXPECT_TRUE(says(seen, "Theta Drone: ACTIVE (-18dB)", 10, 195, {80, 255, 160, 220}));
    }
    engine.activationMode = 1;
    EXPECT_TRUE(says(draw(), "ACTIVATION: SINGLE [H]", 5, 128, {255, 130, 180, 230}));
}

TEST_F(VoicesTab, TheActivationFollowsThePairs) {
    setLeftWidth(600);
    engine.activationMode = 2;
    addVoice(528, 0.0f);
    addVoice(530, 1.0f);  // pairs at 140, one row at 158; 6 below it
    const Picture seen = draw();
    EXPECT_TRUE(isFilled(seen, {5, 178, 195, 1}, over({255, 130, 180, 120}, kBackdrop)));
    EXPECT_TRUE(says(seen, "ACTIVATION: TRIPLE [H]", 5, 181, {255, 130, 180, 230}));
}

TEST_F(VoicesTab, TheActivationStandsInAPanelTooLowForIt) {
    setLeftWidth(600);
    engine.activationMode = 3;
    setContentBottom(175);
    EXPECT_TRUE(says(draw(), "Heart Key: 322+325+358 Hz", 10, 143, {255, 120, 160, 200}));
    app.leftScroll[kVoicesTab] = 1000;
    layOut();
    ASSERT_EQ(app.layout.leftScroll, 125 + 18 + 4 * 13 + 10 - 175);
    EXPECT_TRUE(says(draw(), "  3Hz Theta + 13Hz Alpha", 10, 182 - 30, {200, 130, 60, 180}));
    engine.activationMode = 0;
    layOut();
    EXPECT_EQ(app.layout.leftScroll, 0);
    EXPECT_TRUE(empty(draw(), {0, 120, 130, 60}));
}

TEST_F(VoicesTab, ANarrowPanelIsCutOrEmpty) {
    addVoice(528, 0.0f);
    addVoice(530, 1.0f);
    setLeftWidth(10);
    EXPECT_TRUE(empty(draw(), {0, 0, 400, 700}));
    setLeftWidth(11);
    EXPECT_TRUE(empty(draw(), {11, 0, 400, 700}));
    resize(1280, 40 + kMinimumRecorder + kStatusBarHeight);
    app.sizes.recorderHeight = kMinimumRecorder;
    layOut();
    EXPECT_TRUE(empty(draw(), {0, 0, 400, 200}));
}

}  // namespace
}  // namespace veloria
