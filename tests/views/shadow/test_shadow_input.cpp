// Presses on the SHADOW panel.
#include "views/shadow/shadow_view.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "tests/views/shadow/shadow_fixture.h"
#include "views/scene/geometry/scene_model.h"

namespace veloria {
namespace {

using test::digitsOf;

class ShadowInput : public test::ShadowPanelTest {};

TEST_F(ShadowInput, EachOfThe180CellsTogglesItsVoiceAndTheOther36DoNot) {
    int playable = 0;
    for (int cell = 0; cell < 216; ++cell) {
        const SDL_Rect rect = cellRect(cell);
        const bool plays = !digitsOf(cell).avatar();
        playable += plays ? 1 : 0;
        EXPECT_EQ(shadowCellPlayable(cell), plays) << cell;
        bool held = false;
        for (const SDL_Point at :
             {SDL_Point{rect.x, rect.y}, SDL_Point{rect.x + rect.w / 2, rect.y + rect.h / 2},
              SDL_Point{rect.x + rect.w - 1, rect.y}, SDL_Point{rect.x + rect.w - 1, rect.y + rect.h - 1}}) {
            EXPECT_EQ(press(at.x, at.y), plays) << cell;
            held = held != plays;
            EXPECT_EQ(engine.shadowHeld[static_cast<std::size_t>(cell)], held) << cell;
            EXPECT_EQ(heldCount(), held ? 1 : 0) << cell;
        }
    }
    EXPECT_EQ(playable, 180);
}

TEST_F(ShadowInput, EveryPixelOfACellAndOfTheGapBehindItIsTheCells) {
    const ShadowGrid grid = shadowGrid(layout().body);
    for (int y = 138; y < 138 + 18 * 25; ++y) {
        for (int x = 186; x < 186 + 12 * 39; ++x)
            ASSERT_EQ(shadowCellAt(grid, x, y), (x - 186) / 39 + 12 * ((y - 138) / 25)) << x << ", " << y;
    }
}

TEST_F(ShadowInput, OutsideTheGridNothingIsPlayed) {
    for (const SDL_Point at : {SDL_Point{185, 200}, SDL_Point{300, 137}, SDL_Point{186 + 12 * 39, 200},
                               SDL_Point{300, 138 + 18 * 25}, SDL_Point{0, 0}, SDL_Point{-4000, 300}}) {
        EXPECT_EQ(shadowCellAt(shadowGrid(layout().body), at.x, at.y), -1) << at.x << ", " << at.y;
        EXPECT_FALSE(press(at.x, at.y));
    }
    EXPECT_EQ(heldCount(), 0);
    EXPECT_FALSE(shadowCellPlayable(-1));
    EXPECT_FALSE(shadowCellPlayable(216));
}

TEST_F(ShadowInput, APressStartsTheCellsVoiceAndTheNextOneEndsIt) {
    const SDL_Rect rect = cellRect(43);  // 222
    EXPECT_TRUE(press(rect.x + 5, rect.y + 5));
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_EQ(engine.voices[0].frequency, 222.0);
    EXPECT_EQ(engine.voices[0].channel, 10);
    EXPECT_GT(engine.voices[0].endTime, 1000.0);
    EXPECT_TRUE(press(rect.x + 5, rect.y + 5));
    EXPECT_EQ(engine.voices.size(), 1u);
    EXPECT_LT(engine.voices[0].endTime, 1.0);
    EXPECT_FALSE(engine.shadowHeld[43]);
}

TEST_F(ShadowInput, OnTheTextPageThereIsNoGrid) {
    state.shadowPage = 1;
    for (int cell = 0; cell < 216; ++cell)
        EXPECT_FALSE(press(cellRect(cell).x + 5, cellRect(cell).y + 5));
    EXPECT_EQ(heldCount(), 0);
}

TEST_F(ShadowInput, ACellLightsItsDiamondInTheScene) {
    for (const int cell : {0, 43, 100, 215}) {
        press(cellRect(cell).x + 9, cellRect(cell).y + 9);
        snapshot.shadowHeld = engine.shadowHeld;
        const auto items = std::make_unique<SceneItems>();
        SceneSound sound;
        sound.shadowActive = &snapshot.shadowHeld;
        buildSceneItems(KatharaViewState{}, {0, 0, 640, 400}, sound, *items);
        std::set<int> lit;
        for (const SceneItem& item : items->all()) {
            if (item.kind == SceneItemKind::Diamond && item.active != 0) lit.insert(item.tag - kShadowTag);
        }
        EXPECT_EQ(lit, std::set<int>{cell});
        press(cellRect(cell).x + 9, cellRect(cell).y + 9);
    }
}

TEST_F(ShadowInput, TheTabsChooseThePage) {
    EXPECT_EQ(pressPanel(591, 90), PanelAction::TitleExtra);
    EXPECT_EQ(state.shadowPage, 1);
    EXPECT_EQ(pressPanel(548, 82), PanelAction::TitleExtra);
    EXPECT_EQ(state.shadowPage, 0);
    EXPECT_EQ(pressPanel(617, 97), PanelAction::TitleExtra) << "its last pixel that is not the box's";
    EXPECT_EQ(state.shadowPage, 1);
    EXPECT_EQ(pressPanel(587, 97), PanelAction::TitleExtra);
    EXPECT_EQ(state.shadowPage, 0);
    for (const SDL_Point at :
         {SDL_Point{547, 90}, SDL_Point{589, 90}, SDL_Point{600, 81}, SDL_Point{600, 98}}) {
        EXPECT_EQ(pressPanel(at.x, at.y), PanelAction::DragBegun) << at.x << ", " << at.y;
        panel.dragging = false;
    }
    EXPECT_EQ(state.shadowPage, 0);
    EXPECT_EQ(shadowTabAt(shadowTabs(panel.rect), 630, 97), 1);
    EXPECT_EQ(shadowTabAt(shadowTabs(panel.rect), 631, 97), -1);
}

TEST_F(ShadowInput, TheMaximiseBoxTakesThePressOverTheTab) {
    for (int x = 618; x < 631; ++x) {
        EXPECT_EQ(pressPanel(x, 90), PanelAction::MaximiseToggled) << x;
        panel.maximised = false;
    }
    EXPECT_EQ(state.shadowPage, 0);
}

TEST_F(ShadowInput, APressGoesThroughTheFrameToItsCell) {
    const SDL_Rect last = cellRect(215);
    EXPECT_EQ(pressPanel(last.x + 5, last.y + 5), PanelAction::BodyExtra);
    EXPECT_TRUE(engine.shadowHeld[215]);
    EXPECT_EQ(pressPanel(182, 590), PanelAction::InertBody) << "beside the grid";
    EXPECT_EQ(pressPanel(last.x + last.w - 1, last.y + last.h), PanelAction::ResizeBegun)
        << "the panel's corner reaches into the last cell";
    EXPECT_EQ(heldCount(), 1);
}

TEST_F(ShadowInput, ABodyWithoutRoomForACellHasNone) {
    for (const SDL_Rect& body : {SDL_Rect{0, 0, 0, 0}, SDL_Rect{0, 0, 19, 400}, SDL_Rect{0, 0, 400, 55},
                                 SDL_Rect{0, 0, -40, -400}}) {
        const ShadowGrid grid = shadowGrid(body);
        EXPECT_TRUE(grid.cellW == 0 || grid.cellH == 0);
        for (int y = -5; y < 60; ++y) {
            for (int x = -5; x < 60; ++x)
                ASSERT_EQ(shadowCellAt(grid, x, y), -1);
        }
    }
    for (const SDL_Rect& rect :
         {SDL_Rect{180, 80, 10, 10}, SDL_Rect{180, 80, 0, 0}, SDL_Rect{180, 80, 300, 50}}) {
        panel.rect = rect;
        for (state.shadowPage = 0; state.shadowPage < 2; ++state.shadowPage)
            draw();
    }
}

}  // namespace
}  // namespace veloria
