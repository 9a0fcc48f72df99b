// The panel round the enneagram, with its page of text.
#include "views/sacred/sacred_panel.h"

#include <gtest/gtest.h>

#include "tests/ui/offscreen.h"
#include "tests/ui/text_probe.h"
#include "views/scene/vitruvian_assets.h"

namespace veloria {
namespace {

using test::isColor;
using test::isText;
using test::Picture;

constexpr SDL_Color kTitleBar{42, 40, 56, 255};
constexpr SDL_Color kTitle{160, 220, 180, 255};
constexpr SDL_Rect kRect{40, 30, 420, 420};

class SacredPanel : public test::DrawTest {
  protected:
    SacredPanel() : DrawTest(520, 480) {}
    ~SacredPanel() override {
        if (backdrop != nullptr) SDL_DestroyTexture(backdrop);
    }
    Picture draw() {
        screen.clear(test::kBackdrop);
        drawSacredPanel(context, panel, state, snapshot, palette, 0.0f, backdrop);
        return picture();
    }
    // A plain backdrop, at the alpha that it is loaded with.
    void makeBackdrop(SDL_Color color) {
        SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormat(0, 8, 8, 32, SDL_PIXELFORMAT_ARGB8888);
        SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, color.r, color.g, color.b));
        backdrop = SDL_CreateTextureFromSurface(context.renderer, surface);
        SDL_FreeSurface(surface);
        SDL_SetTextureBlendMode(backdrop, SDL_BLENDMODE_BLEND);
        SDL_SetTextureAlphaMod(backdrop, kBackdropAlpha);
    }
    [[nodiscard]] SDL_Color body() const { return test::over({22, 20, 30, 248}, test::kBackdrop); }

    PanelState panel{.open = true, .rect = kRect};
    SacredState state;
    FrameSnapshot snapshot;
    std::int32_t palette = 0;
    SDL_Texture* backdrop = nullptr;
};

TEST_F(SacredPanel, AClosedPanelDrawsNothing) {
    panel.open = false;
    draw();
    EXPECT_EQ(touched(), 0);
}

TEST_F(SacredPanel, ItsTitleSaysWhatItShows) {
    EXPECT_TRUE(isText(draw(), kTitleBar, "SACRED GEOMETRY  [Enneagram]", 48, 34, fonts.fontTab, kTitle));
    state.sacredResearchMode = true;
    EXPECT_TRUE(isText(draw(), kTitleBar, "SACRED GEOMETRY  [Research]", 48, 34, fonts.fontTab, kTitle));
}

TEST_F(SacredPanel, TheInfoBoxStandsBesideTheOthersAndShowsItsState) {
    const SDL_Point inside{40 + 420 - 64 + 1, 30 + 2 + 1};
    EXPECT_TRUE(isColor(draw().at(inside.x, inside.y), test::over({60, 55, 80, 220}, kTitleBar)));
    state.sacredResearchMode = true;
    EXPECT_TRUE(isColor(draw().at(inside.x, inside.y), test::over({180, 150, 40, 220}, kTitleBar)));
}

TEST_F(SacredPanel, TheInfoBoxTogglesThePage) {
    const PanelLayout layout = panelLayout(panel, 520, 480);
    EXPECT_FALSE(sacredTitlePress(state, layout, 40 + 420 - 65, 40));
    EXPECT_FALSE(state.sacredResearchMode);
    EXPECT_TRUE(sacredTitlePress(state, layout, 40 + 420 - 64, 32));
    EXPECT_TRUE(state.sacredResearchMode);
    EXPECT_TRUE(sacredTitlePress(state, layout, 40 + 420 - 47, 49));
    EXPECT_FALSE(state.sacredResearchMode);
    EXPECT_FALSE(sacredTitlePress(state, layout, 40 + 420 - 46, 49));
}

TEST_F(SacredPanel, ThePageBeginsTwelvePixelsIntoTheBody) {
    state.sacredResearchMode = true;
    EXPECT_TRUE(isText(draw(), body(), "ENNEAGRAM <-> KATHARA SYNTHESIS", 42 + 12, 54 + 14, fonts.fontLabel,
                       {160, 255, 180, 255}));
}

TEST_F(SacredPanel, TheWheelScrollsThePageAlone) {
    draw();
    sacredWheel(state, -3);
    EXPECT_EQ(state.sacredScroll.researchScroll, 0);
    state.sacredResearchMode = true;
    draw();
    sacredWheel(state, -3);
    EXPECT_EQ(state.sacredScroll.researchScroll, 90);
    sacredWheel(state, 100);
    EXPECT_EQ(state.sacredScroll.researchScroll, 0);
}

TEST_F(SacredPanel, ThePagesBackdropIsFaintSquareAndGivenBackAsItWas) {
    makeBackdrop({255, 0, 0, 255});
    panel.rect = {20, 30, 480, 320};  // body 22, 54, 476, 294: square from x = 113 to 406
    state.sacredResearchMode = true;
    const Picture seen = draw();
    EXPECT_TRUE(isColor(seen.at(112, 346), body()));
    EXPECT_TRUE(isColor(seen.at(113, 346), test::over({255, 0, 0, 35}, body())));
    EXPECT_TRUE(isColor(seen.at(406, 346), test::over({255, 0, 0, 35}, body())));
    EXPECT_TRUE(isColor(seen.at(407, 346), body()));
    Uint8 alpha = 0;
    SDL_GetTextureAlphaMod(backdrop, &alpha);
    EXPECT_EQ(alpha, 110);
}

TEST_F(SacredPanel, TheFigureHasItsBackdropAtItsOwnAlpha) {
    makeBackdrop({255, 0, 0, 255});
    const Picture seen = draw();
    // Body 42, 54, 416, 394: the square is trunc(2 * 394 * 0.38) = 299 a side, in the middle.
    const int left = 42 + (416 - 299) / 2;
    EXPECT_TRUE(isColor(seen.at(left + 3, 251 - 148 + 3), test::over({255, 0, 0, 110}, body()), 3));
    EXPECT_TRUE(isColor(seen.at(left - 3, 251 - 148 + 3), body()));
}

TEST_F(SacredPanel, ThePaletteColoursTheNotes) {
    snapshot.notes.push_back({.frequency = 396.0f, .progress = 0.5f, .pan = 0.5f});
    const Picture avatar = draw();
    palette = 1;
    EXPECT_FALSE(draw() == avatar);
}

}  // namespace
}  // namespace veloria
