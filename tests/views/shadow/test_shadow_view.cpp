// The picture of the SHADOW panel.
#include "views/shadow/shadow_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "tests/ui/text_probe.h"
#include "tests/views/shadow/shadow_fixture.h"

namespace veloria {
namespace {

using test::baseColour;
using test::Digits;
using test::digitsOf;
using test::fillOf;
using test::isColor;
using test::isText;
using test::kBackdrop;
using test::kGround;
using test::kTitleBar;
using test::over;
using test::Picture;
using test::seeThrough;

class ShadowView : public test::ShadowPanelTest {
  protected:
    using ShadowPanelTest::ShadowPanelTest;
};

TEST_F(ShadowView, EveryCellShowsItsColourOnAndOff) {
    for (const bool on : {false, true}) {
        snapshot.shadowHeld.fill(on);
        const Picture seen = draw();
        for (int cell = 0; cell < 216; ++cell) {
            const SDL_Rect rect = cellRect(cell);
            const SDL_Color wanted =
                digitsOf(cell).avatar() ? over({60, 55, 70, 140}, kGround) : fillOf(cell, on);
            EXPECT_TRUE(isColor(seen.at(rect.x + 34, rect.y + 20), wanted, 3)) << cell;
            EXPECT_TRUE(isColor(seen.at(rect.x + 2, rect.y + 20), wanted, 3)) << cell;
            // Of the gaps only the frame of equal digits has a share.
            if (digitsOf(cell).equal()) continue;
            EXPECT_TRUE(isColor(seen.at(rect.x + 37, rect.y + 12), kGround, 3)) << cell;
            EXPECT_TRUE(isColor(seen.at(rect.x + 20, rect.y + 23), kGround, 3)) << cell;
        }
    }
}

TEST_F(ShadowView, ADigitOfFiveOrSixMovesTheBaseColour) {
    snapshot.shadowHeld.fill(true);
    const Picture seen = draw();
    const auto shows = [&](int cell, SDL_Color colour) {
        const SDL_Rect rect = cellRect(cell);
        return isColor(seen.at(rect.x + 34, rect.y + 20), over(seeThrough(colour, 180), kGround), 3);
    };
    EXPECT_TRUE(shows(9, {60, 200, 160, 255})) << "124, root 7, as it is";
    EXPECT_TRUE(shows(4, {60, 230, 160, 255})) << "115, root 7, greener";
    EXPECT_TRUE(shows(213, {60, 200, 200, 255})) << "664, root 7, bluer";
    EXPECT_TRUE(shows(5, {200, 100, 100, 255})) << "116, root 8, bluer";
    EXPECT_TRUE(shows(148, {60, 210, 220, 255})) << "515, root 2, greener";
    EXPECT_TRUE(shows(193, {60, 180, 255, 255})) << "632, root 2, as blue as can be";
    EXPECT_TRUE(shows(214, {200, 100, 100, 255})) << "665, root 8: the six counts, not the five";
}

TEST_F(ShadowView, OnlyACellThatIsOnHasAWhiteEdgeThatBreathes) {
    snapshot.shadowHeld[1] = true;  // 112
    for (const float time : {0.0f, 0.8f, 2.4f}) {
        const double pulse = std::sin(2.0 * static_cast<double>(time)) * 0.3 + 0.7;
        const Picture seen = draw(time);
        const SDL_Color edge = over({255, 255, 255, static_cast<Uint8>(pulse * 120)}, fillOf(1, true));
        for (const SDL_Point at : {SDL_Point{225, 138}, SDL_Point{261, 138}, SDL_Point{225, 160},
                                   SDL_Point{261, 160}, SDL_Point{240, 160}}) {
            EXPECT_TRUE(isColor(seen.at(at.x, at.y), edge, 3)) << time;
        }
        EXPECT_TRUE(isColor(seen.at(226, 159), fillOf(1, true), 3));
        EXPECT_TRUE(isColor(seen.at(225, 163), fillOf(13, false), 3)) << "off";
    }
}

TEST_F(ShadowView, EqualDigitsHaveAFrameRoundTheCell) {
    for (const float time : {0.0f, 0.8f, 2.4f}) {
        const double pulse = std::sin(2.0 * static_cast<double>(time)) * 0.3 + 0.7;
        snapshot.shadowHeld.fill(false);
        snapshot.shadowHeld[86] = true;  // 333
        const Picture seen = draw(time);
        int framed = 0;
        for (int cell = 0; cell < 216; ++cell) {
            const SDL_Rect rect = cellRect(cell);
            const SDL_Color frame =
                over(seeThrough(baseColour(digitsOf(cell)), static_cast<int>(pulse * 180)), kGround);
            const SDL_Color wanted = digitsOf(cell).equal() ? frame : kGround;
            framed += digitsOf(cell).equal() ? 1 : 0;
            // The left column of gaps belongs to this cell and the right one of its neighbour.
            EXPECT_TRUE(isColor(seen.at(rect.x - 1, rect.y + 10), wanted, 3)) << cell;
            EXPECT_TRUE(isColor(seen.at(rect.x + 10, rect.y - 1), wanted, 3)) << cell;
            EXPECT_TRUE(isColor(seen.at(rect.x + 37, rect.y + 23), wanted, 3)) << cell;
        }
        EXPECT_EQ(framed, 6);
    }
}

TEST_F(ShadowView, TheFirstCodeIs111AndTheLast666) {
    snapshot.shadowHeld[0] = snapshot.shadowHeld[215] = true;
    const Picture seen = draw();
    const SDL_Color white{255, 255, 255, 255};
    EXPECT_TRUE(isText(seen, fillOf(0, true), "111", 186 - 10 + 18, 140, fonts.fontTiny, white));
    EXPECT_TRUE(isText(seen, fillOf(215, true), "666", 615 - 10 + 18, 563 + 2, fonts.fontTiny, white));
}

TEST_F(ShadowView, EveryCodeStandsInItsCell) {
    snapshot.shadowHeld.fill(false);
    snapshot.shadowHeld[61] = true;
    const float time = 0.8f;
    const double pulse = std::sin(1.6) * 0.3 + 0.7;
    const Picture seen = draw(time);
    for (int cell = 0; cell < 216; ++cell) {
        const Digits digits = digitsOf(cell);
        if (digits.avatar()) continue;
        const bool on = cell == 61;
        const int alpha = 160 + (digits.equal() ? static_cast<int>(pulse * 60) : 0);
        const SDL_Color colour = on ? SDL_Color{255, 255, 255, 255} : seeThrough(baseColour(digits), alpha);
        EXPECT_TRUE(isText(seen, fillOf(cell, on), std::to_string(digits.code()), cellRect(cell).x + 8,
                           cellRect(cell).y + 2, fonts.fontTiny, colour))
            << cell;
    }
}

TEST_F(ShadowView, AnAvatarNumberIsMarkedAndInert) {
    panel.rect = {20, 80, 760, 520};  // cells of 62 pixels, where the two words stand apart
    snapshot.shadowHeld.fill(true);
    const Picture seen = draw();
    const int x = 26 + 10 * 62;  // 125, cell 10
    const SDL_Color fill = over({60, 55, 70, 140}, kGround);
    EXPECT_TRUE(isText(seen, fill, "125", x + 2, 139, fonts.fontTiny, {120, 110, 140, 120}));
    EXPECT_TRUE(isText(seen, fill, "AVT", x + 62 - 24, 139, fonts.fontTiny, {180, 140, 60, 100}));
    const SDL_Color edge = over({100, 90, 120, 100}, fill);
    EXPECT_TRUE(isColor(seen.at(x, 138), edge, 3));
    EXPECT_TRUE(isColor(seen.at(x + 59, 160), edge, 3));
    EXPECT_TRUE(isColor(seen.at(x + 58, 159), fill, 3));
    EXPECT_EQ(pressPanel(x + 9, 145), PanelAction::InertBody);
    EXPECT_FALSE(panel.dragging);
    EXPECT_EQ(heldCount(), 0);
}

TEST_F(ShadowView, TwoLinesOfTextStandAboveTheGrid) {
    const Picture seen = draw();
    EXPECT_TRUE(isText(seen, kGround, "180 Shadow Frequencies (36 Convergence in Avatar)", 186, 106,
                       fonts.fontLabel, {220, 80, 80, 200}));
    EXPECT_TRUE(isText(seen, kGround, "Click to toggle  |  Red=444  Green=555  Purple=666", 186, 120,
                       fonts.fontLabel, {160, 155, 180, 180}));
}

TEST_F(ShadowView, TheFooterIsLeftOutWhereItHasNoRoom) {
    const char* footer = "180 Pure Shadow  |  36 Convergence → Avatar";
    // What is left below eighteen rows of 25 pixels: 14, 15, 17, and 0 below rows of 26.
    for (const auto& [height, shown] :
         {std::pair{528, false}, std::pair{529, true}, std::pair{531, true}, std::pair{532, false}}) {
        panel.rect.h = height;
        const Picture seen = draw();
        const SDL_Color colour{160, 155, 180, 160};
        EXPECT_EQ(
            static_cast<bool>(isText(seen, kGround, footer, 186, 138 + 450 + 4, fonts.fontLabel, colour)),
            shown)
            << height;
        if (shown) continue;
        const auto drawn = [&](const TextEntry& entry) {
            return entry.text == footer && entry.lastFrame == cache.frame;
        };
        ++context.ticks;
        draw();
        EXPECT_EQ(std::count_if(cache.entries.begin(), cache.entries.end(), drawn), 0) << height;
    }
}

TEST_F(ShadowView, TheTitleAndTheTabsFollowThePage) {
    const SDL_Color titleColour{240, 120, 120, 255};
    const auto fillOfTab = [&](bool current) {
        return over(current ? SDL_Color{120, 60, 60, 220} : SDL_Color{60, 60, 60, 220}, kTitleBar);
    };
    for (const int page : {0, 1}) {
        state.shadowPage = page;
        const Picture seen = draw();
        EXPECT_TRUE(isText(seen, kTitleBar,
                           page == 0 ? "SHADOW  [666 Frequencies]" : "SHADOW  [555 Geometry]", 188, 84,
                           fonts.fontTab, titleColour));
        // Tabs of 40 by 16 at (548, 82) and (591, 82).
        for (const SDL_Point at : {SDL_Point{548, 82}, SDL_Point{587, 97}})
            EXPECT_TRUE(isColor(seen.at(at.x, at.y), fillOfTab(page == 0), 3));
        for (const SDL_Point at : {SDL_Point{591, 82}, SDL_Point{617, 97}})
            EXPECT_TRUE(isColor(seen.at(at.x, at.y), fillOfTab(page == 1), 3));
        for (const SDL_Point at : {SDL_Point{547, 90}, SDL_Point{588, 90}, SDL_Point{590, 90}})
            EXPECT_TRUE(isColor(seen.at(at.x, at.y), kTitleBar, 3));
        for (const SDL_Point at : {SDL_Point{560, 81}, SDL_Point{560, 98}, SDL_Point{600, 98}})
            EXPECT_TRUE(isColor(seen.at(at.x, at.y), kTitleBar, 3));
        const SDL_Color on{255, 200, 80, 255};
        const SDL_Color off{140, 140, 140, 255};
        const SDL_Point first = test::centredPlace("666", {548, 82, 40, 16}, fonts.fontLabel);
        const SDL_Point second = test::centredPlace("555", {591, 82, 27, 16}, fonts.fontLabel);
        EXPECT_TRUE(isText(seen, fillOfTab(page == 0), "666", first.x, first.y, fonts.fontLabel,
                           page == 0 ? on : off));
        EXPECT_TRUE(isText(seen, test::plain(seen, fillOfTab(page == 1)), "555", second.x, second.y,
                           fonts.fontLabel, page == 1 ? on : off, 618));
    }
}

TEST_F(ShadowView, ALongTitleStopsBeforeTheTabs) {
    panel.rect = {180, 80, 200, 150};
    const Picture seen = draw();
    EXPECT_TRUE(test::isFilled(seen, {266, 83, 2, 14}, kTitleBar));
    const SDL_Color tab = over({120, 60, 60, 220}, kTitleBar);
    EXPECT_TRUE(test::isFilled(seen, {268, 83, 9, 14}, tab)) << "nor does it shine through";
}

TEST_F(ShadowView, TheBoxesHaveTheirOwnColoursAndLieOverTheTab) {
    const Picture seen = draw();
    const SDL_Color tab = over({60, 60, 60, 220}, kTitleBar);
    // Close (640, 82), maximise (618, 82), both 18 by 18.
    EXPECT_TRUE(isColor(seen.at(641, 98), over({180, 60, 60, 220}, kTitleBar), 3));
    EXPECT_TRUE(isColor(seen.at(635, 83), over({80, 80, 80, 220}, kTitleBar), 3));
    EXPECT_TRUE(isColor(seen.at(619, 83), over({80, 80, 80, 220}, tab), 3)) << "where the tab lies below";
    EXPECT_TRUE(isColor(seen.at(617, 83), tab, 3));
    EXPECT_TRUE(isColor(seen.at(623, 87), {200, 200, 200, 255}, 3)) << "glyph";
}

TEST_F(ShadowView, TheTextPageFillsTheBody) {
    state.shadowPage = 1;
    const Picture seen = draw();
    EXPECT_TRUE(
        isText(seen, kGround, "GEOMETRIC PROGRESSION", 192, 104 + 78, fonts.fontLabel, {255, 215, 80, 255}));
    const SDL_Color disc = over({255, 215, 0, 125}, kGround);
    EXPECT_TRUE(isColor(seen.at(182 + 238, 104 + 307 - 129), disc, 4)) << "the topmost disc";
}

TEST_F(ShadowView, ATimeThatIsNoNumberDoesNoHarm) {
    const float infinity = std::numeric_limits<float>::infinity();
    snapshot.shadowHeld[1] = true;  // 112
    for (state.shadowPage = 0; state.shadowPage < 2; ++state.shadowPage) {
        for (const float time : {std::nanf(""), infinity, -infinity}) {
            // As at a time where the sine is 0.
            EXPECT_EQ(draw(time), draw(0.0f)) << state.shadowPage << ", " << time;
        }
    }
}

TEST_F(ShadowView, ClosedItDrawsNothing) {
    panel.open = false;
    draw();
    EXPECT_EQ(touched(), 0);
}

TEST_F(ShadowView, WhatSoundsElsewhereDoesNotShow) {
    const Picture before = draw();
    for (int i = 0; i < 128; ++i) {
        snapshot.notes.push_back(
            {static_cast<float>(shadowFrequency(static_cast<std::uint32_t>(i))), 0.5f, 0.5f});
    }
    EXPECT_EQ(draw(), before) << "only the switches do";
    snapshot.shadowHeld[7] = true;
    EXPECT_FALSE(draw() == before);
}

TEST_F(ShadowView, TheSmallestPanelKeepsAllInsideItself) {
    panel.rect = {180, 80, 200, 150};
    snapshot.shadowHeld.fill(true);
    for (state.shadowPage = 0; state.shadowPage < 2; ++state.shadowPage) {
        const Picture seen = draw(1.0f);
        for (int y = 0; y < seen.h; ++y) {
            for (int x = 0; x < seen.w; ++x) {
                const bool inside = x >= 180 && x < 380 && y >= 80 && y < 230;
                if (!inside) {
                    ASSERT_EQ(seen.at(x, y), kBackdrop) << x << ", " << y;
                }
            }
        }
    }
    state.shadowPage = 0;
    // Cells every 15 and 4 pixels from (186, 138).
    EXPECT_EQ(pressPanel(186 + 11 * 15, 138 + 16 * 4 + 1), PanelAction::BodyExtra);
    EXPECT_TRUE(engine.shadowHeld[11 + 12 * 16]);
}

class WideShadowView : public ShadowView {
  protected:
    WideShadowView() : ShadowView(1920, 1080) { panel.maximised = true; }
};

TEST_F(WideShadowView, MaximisedTheGridGrowsWithTheWindow) {
    snapshot.shadowHeld[215] = true;
    const Picture seen = draw();
    // Body (2, 24, 1916, 1054): cells every 159 and 56 pixels from (6, 58).
    const int x = 6 + 11 * 159;
    const int y = 58 + 17 * 56;
    EXPECT_TRUE(isColor(seen.at(x + 150, y + 45), fillOf(215, true), 3));
    EXPECT_TRUE(
        isText(seen, fillOf(215, true), "666", x - 10 + 78, y + 2, fonts.fontTiny, {255, 255, 255, 255}));
    EXPECT_EQ(pressPanel(x + 1, y + 1), PanelAction::BodyExtra);
    EXPECT_TRUE(engine.shadowHeld[215]);
    EXPECT_EQ(pressPanel(1920 - 112, 5), PanelAction::TitleExtra);
    EXPECT_EQ(pressPanel(1920 - 69, 5), PanelAction::TitleExtra);
    EXPECT_EQ(state.shadowPage, 1);
    draw();
}

}  // namespace
}  // namespace veloria
