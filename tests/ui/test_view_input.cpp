// The panels with controls of their own, by real events: the enneagram's page and the Shadow grid.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "engine/control.h"
#include "tests/ui/events.h"

namespace veloria {
namespace {

class ViewInput : public test::InputTest {
  protected:
    ViewInput() : test::InputTest(1280, 1080) {}
    SDL_Rect open(int id) {
        if (!panel(id).open) togglePanel(app.panels, id);
        frame();
        return panel(id).rect;
    }
};

TEST_F(ViewInput, EveryPanelStartsAtItsOwnPlaceAndTheLastIsInFront) {
    const SDL_Rect places[] = {{100, 100, 360, 360}, {160, 100, 360, 360}, {100, 100, 560, 380},
                               {160, 80, 420, 420},  {200, 120, 420, 420}, {240, 60, 520, 560},
                               {50, 50, 600, 220},   {180, 80, 480, 520}};
    for (int id = 0; id < kPanelCount; ++id) {
        EXPECT_TRUE(SDL_RectEquals(&panel(id).rect, &places[id])) << id;
        EXPECT_FALSE(panel(id).open) << id;
        EXPECT_EQ(app.panels.panelStack[static_cast<std::size_t>(id)], 7 - id);
    }
}

TEST_F(ViewInput, TheInfoBoxOfTheEnneagramOpensItsPageAndTheWheelScrollsIt) {
    const SDL_Rect rect = open(kSacredPanel);
    wheel(rect.x + 100, rect.y + 100, -1);
    EXPECT_EQ(app.sacred.sacredScroll.researchScroll, 0);
    click(rect.x + rect.w - 60, rect.y + 8);
    EXPECT_TRUE(app.sacred.sacredResearchMode);
    EXPECT_FALSE(panel(kSacredPanel).dragging);
    frame();
    wheel(rect.x + 100, rect.y + 100, -2);
    EXPECT_EQ(app.sacred.sacredScroll.researchScroll, 60);
    EXPECT_FALSE(app.kathara.researchMode);  // that of the scene is another one
}

TEST_F(ViewInput, ClosingTheEnneagramLeavesItsPage) {
    SDL_Rect rect = open(kSacredPanel);
    app.sacred.sacredResearchMode = true;
    click(rect.x + rect.w - 10, rect.y + 10);
    EXPECT_FALSE(panel(kSacredPanel).open);
    EXPECT_FALSE(app.sacred.sacredResearchMode);
    rect = open(kSacredPanel);
    app.sacred.sacredResearchMode = true;
    widget("SACRED").onClick();
    EXPECT_FALSE(app.sacred.sacredResearchMode);
}

TEST_F(ViewInput, ACellOfTheShadowGridSoundsItsFrequencyAndLightsTheScene) {
    const SDL_Rect rect = open(kShadowPanel);
    const int cellW = (rect.w - 4 - 8) / 12;
    const int cellH = (rect.h - 26 - 38) / 18;
    const int x = rect.x + 2 + 4 + cellW / 2;  // cell 0: 111
    const int y = rect.y + 24 + 34 + cellH / 2;
    click(x, y);
    EXPECT_TRUE(engine.shadowHeld[0]);
    ASSERT_EQ(engine.voices.size(), 1u);
    EXPECT_NEAR(engine.voices[0].frequency, 111.0, 0.5);
    frame();
    EXPECT_TRUE(app.snapshot.shadowHeld[0]);  // what the scene and the grid draw from
    click(x, y);
    EXPECT_FALSE(engine.shadowHeld[0]);
}

TEST_F(ViewInput, ACellThatBelongsToTheAvatarTablesIsAnInertPlaceOfThePanel) {
    const SDL_Rect rect = open(kShadowPanel);
    const ShadowGrid grid = shadowGrid(panelLayout(panel(kShadowPanel), 1280, 1080).body);
    int cell = 0;
    while (shadowCellPlayable(cell))
        ++cell;
    down(grid.gridX + cell % 12 * grid.cellW + 3, grid.gridY + cell / 12 * grid.cellH + 3);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_FALSE(panel(kShadowPanel).dragging);
    EXPECT_FALSE(app.kathara.draggingScene);  // nor does it go through to what lies beneath
    EXPECT_EQ(panel(kShadowPanel).rect.x, rect.x);
}

TEST_F(ViewInput, TheTabsOfTheShadowPanelChooseItsPageAndTheMaximiseBoxWinsOverThem) {
    const SDL_Rect rect = open(kShadowPanel);
    click(rect.x + rect.w - 69, rect.y + 5);
    EXPECT_EQ(app.shadow.shadowPage, 1);
    click(rect.x + rect.w - 112, rect.y + 5);
    EXPECT_EQ(app.shadow.shadowPage, 0);
    click(rect.x + rect.w - 43, rect.y + 5);  // the last column that is the tab's
    EXPECT_EQ(app.shadow.shadowPage, 1);
    app.shadow.shadowPage = 0;
    click(rect.x + rect.w - 42, rect.y + 5);
    EXPECT_EQ(app.shadow.shadowPage, 0);
    EXPECT_TRUE(panel(kShadowPanel).maximised);
}

TEST_F(ViewInput, OnThePageOfTheFifthElementNoCellIsPlayed) {
    const SDL_Rect rect = open(kShadowPanel);
    app.shadow.shadowPage = 1;
    click(rect.x + 20, rect.y + 70);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(ViewInput, TheViewClockRunsOnlyWhileTheLotusIsDrawn) {
    frame();
    frame();
    EXPECT_EQ(app.lotus.viewTime, 0.0f);
    open(kLotusPanel);
    EXPECT_FLOAT_EQ(app.lotus.viewTime, 0.006f);
    frame();
    EXPECT_FLOAT_EQ(app.lotus.viewTime, 0.012f);
    widget("LOTUS").onClick();
    frame();
    EXPECT_FLOAT_EQ(app.lotus.viewTime, 0.012f);
}

TEST_F(ViewInput, ThePetalsAreMeasuredWhetherTheirPanelIsOpenOrNot) {
    for (std::size_t i = 0; i < kScopeBufferSize; ++i)
        app.scope.samples[i] =
            static_cast<float>(std::sin(2.0 * M_PI * 528.0 / 44100.0 * static_cast<double>(i)));
    frame();
    const auto& energy = app.lotus.lotusEnergy;
    EXPECT_EQ(std::max_element(energy.begin(), energy.end()) - energy.begin(), 7);
    EXPECT_GT(energy[7], 0.05f);
}

// What a panel shows, without its frame.
class PanelContent : public ViewInput {
  protected:
    [[nodiscard]] std::vector<SDL_Color> content(int id) {
        frame();
        const SDL_Rect body = panelLayout(panel(id), app.layout.windowW, app.layout.windowH).body;
        const test::Picture seen = picture();
        std::vector<SDL_Color> colors;
        for (int y = body.y; y < body.y + body.h; ++y) {
            for (int x = body.x; x < body.x + body.w; ++x)
                colors.push_back(seen.at(x, y));
        }
        return colors;
    }
};

TEST_F(PanelContent, TheSpiralIsAsLongAsTheFibonacciStackIsDeep) {
    open(kHarmonicsPanel);
    engine.fibonacciCount = 0;
    const auto shallowest = content(kHarmonicsPanel);
    engine.fibonacciCount = 6;
    EXPECT_EQ(content(kHarmonicsPanel), shallowest);
    engine.fibonacciCount = 3;
    EXPECT_NE(content(kHarmonicsPanel), shallowest);
}

TEST_F(PanelContent, TheEnneagramAndTheSpiralMoveWithTheViewClockAndChangeWithThePalette) {
    // The scene, which moves as well, would shine through: it is held left of the panels.
    app.sizes.leftWidth = 10;
    app.sizes.rightX = 60;
    frame();
    ASSERT_LT(app.layout.rightX, panel(kSacredPanel).rect.x);
    ASSERT_LT(app.layout.rightX, panel(kHarmonicsPanel).rect.x);
    addVoice(528.0, 0.5f);
    engine.time = 500.0;
    for (const int id : {kSacredPanel, kHarmonicsPanel}) {
        open(id);
        app.lotus.viewTime = 0.0f;
        app.spectrumPalette = 0;
        const auto first = content(id);
        EXPECT_EQ(content(id), first) << id;
        app.lotus.viewTime = 0.5f;
        const auto later = content(id);
        EXPECT_NE(later, first) << id;
        app.spectrumPalette = 1;
        EXPECT_NE(content(id), later) << id;
        closePanel(app.panels, id);
    }
}

TEST_F(ViewInput, EveryPanelMayBeOpenAtOnceAtItsSmallestAndMaximised) {
    for (int i = 0; i < 64; ++i)
        addVoice(120.0 + 12.0 * i, i % 2 == 0 ? 0.0f : 1.0f);
    for (int id = 0; id < kPanelCount; ++id) {
        panel(id).open = true;
        panel(id).rect.w = kPanelMinimumWidth;
        panel(id).rect.h = kPanelMinimumHeight;
    }
    frame();
    for (int id = 0; id < kPanelCount; ++id) {
        raisePanel(app.panels, id);
        panel(id).maximised = true;
        frame();
        EXPECT_NE(at(100, 10), test::kBackdrop) << id;
    }
}

}  // namespace
}  // namespace veloria
