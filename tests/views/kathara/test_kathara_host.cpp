// The main view and the panel round the scene: the kept picture, the rotation, the controls as they look.
#include "views/kathara/kathara_host.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/ui/offscreen.h"
#include "tests/ui/text_probe.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"
#include "views/scene/scene_draw.h"

namespace veloria {
namespace {

using test::isColor;
using test::isText;
using test::Picture;

constexpr SDL_Rect kView{40, 30, 600, 420};  // scene 40, 56, 600, 366; strip from y = 422
constexpr SDL_Rect kScene{40, 56, 600, 366};

class KatharaHosts : public test::DrawTest {
  protected:
    KatharaHosts() : DrawTest(700, 640) { context.ticks = 10000; }
    ~KatharaHosts() override { dropSceneTexture(state); }

    Picture mainView(std::uint32_t laterMs = 0) {
        context.ticks += laterMs;
        state.sceneDrawnInMainView = false;
        screen.clear(test::kBackdrop);
        drawKatharaMainView(context, state, view, snapshot, time);
        return picture();
    }
    Picture panelPicture() {
        screen.clear(test::kBackdrop);
        panel.open = true;
        drawKatharaPanel(context, panel, state, snapshot, time, nullptr);
        return picture();
    }
    void addNote(float hz) { snapshot.notes.push_back({.frequency = hz, .progress = 0.5f, .pan = 0.5f}); }

    // As many pixels differ inside the rectangle.
    static int changed(const Picture& a, const Picture& b, const SDL_Rect& rect) {
        int count = 0;
        for (int y = rect.y; y < rect.y + rect.h; ++y) {
            for (int x = rect.x; x < rect.x + rect.w; ++x)
                count += a.at(x, y) == b.at(x, y) ? 0 : 1;
        }
        return count;
    }

    KatharaState state;
    PanelState panel{.open = true, .rect = {40, 30, 520, 560}};
    FrameSnapshot snapshot;
    SDL_Rect view = kView;
    float time = 0.0f;
};

TEST_F(KatharaHosts, APictureAtRestIsKeptHalfASecondAfterTheLastChange) {
    const Picture first = mainView();
    EXPECT_FALSE(state.sceneDirty);
    // Turned behind the host's back, so that a redraw shows.
    state.view.azimuth += 40.0f;
    const Picture within = mainView(499);
    EXPECT_GT(changed(first, within, kScene), 500);
    state.view.azimuth += 40.0f;
    const Picture after = mainView(1);
    EXPECT_EQ(changed(within, after, kScene), 0);
    EXPECT_GT(changed(after, Picture{700, 640, std::vector<SDL_Color>(700 * 640, test::kBackdrop)}, kScene),
              kScene.w * kScene.h * 9 / 10);
    state.sceneDirty = true;
    EXPECT_GT(changed(after, mainView(), kScene), 500);
}

TEST_F(KatharaHosts, ThePulseStandsStillInAKeptPicture) {
    snapshot.shadowHeld[0] = true;
    mainView();
    snapshot.shadowHeld[0] = false;
    const Picture rest = mainView(600);
    time = 1.0f;
    EXPECT_EQ(changed(rest, mainView(600), kScene), 0);
}

TEST_F(KatharaHosts, NotesFlagsAndRotationKeepItMoving) {
    const auto moves = [this] {
        const Picture before = mainView(1000);
        state.view.elevation += 20.0f;
        const bool moved = changed(before, mainView(1000), kScene) > 500;
        state.view.elevation -= 20.0f;
        return moved;
    };
    mainView();
    EXPECT_FALSE(moves());
    addNote(396.0f);
    EXPECT_TRUE(moves());
    snapshot.notes.clear();
    mainView(1000);
    EXPECT_FALSE(moves());
    for (auto* flag : {&snapshot.reflectionHeld[80], &snapshot.rotationHeld[80], &snapshot.shadowHeld[215]}) {
        *flag = true;
        EXPECT_TRUE(moves());
        *flag = false;
        mainView(1000);
        EXPECT_FALSE(moves());
    }
    state.view.autoRotate = true;
    EXPECT_TRUE(moves());
}

TEST_F(KatharaHosts, TheAfterglowCountsFromTheEndOfTheSound) {
    addNote(396.0f);
    mainView();
    mainView(5000);
    snapshot.notes.clear();
    const Picture ended = mainView(400);
    state.view.azimuth += 40.0f;
    const Picture glowing = mainView(99);
    EXPECT_GT(changed(ended, glowing, kScene), 500);
    state.view.azimuth += 40.0f;
    EXPECT_EQ(changed(glowing, mainView(1), kScene), 0);
}

// A load or a dialog can hold up the frames for longer than the picture goes on after a change.
TEST_F(KatharaHosts, WhatEndedWhileNoFrameWasDrawnIsNotShownAnyMore) {
    const Picture rest = mainView();
    const std::vector<std::pair<const char*, bool*>> held = {{"a note", nullptr},
                                                             {"Reflection", &snapshot.reflectionHeld[80]},
                                                             {"Rotation", &snapshot.rotationHeld[80]},
                                                             {"Shadow", &snapshot.shadowHeld[0]}};
    for (const auto& [name, flag] : held) {
        if (flag != nullptr) *flag = true;
        if (flag == nullptr) addNote(396.0f);
        const Picture lit = mainView(1000);
        EXPECT_GT(changed(rest, lit, kScene), 20) << name;
        snapshot.notes.clear();
        if (flag != nullptr) *flag = false;
        EXPECT_EQ(changed(rest, mainView(2000), kScene), 0) << name;
        // From there on it is at rest as after any other change.
        state.view.azimuth += 40.0f;
        EXPECT_GT(changed(rest, mainView(499), kScene), 500) << name;
        state.view.azimuth -= 40.0f;
        const Picture turned = picture();
        EXPECT_EQ(changed(turned, mainView(1), kScene), 0) << name;
        state.sceneDirty = true;
        mainView();
    }
}

TEST_F(KatharaHosts, WhereTheTextureTakesNoPictureItIsDrawnInItsPlaceEachTime) {
    screen.clear(test::kBackdrop);
    fillRect(context.renderer, kScene, theme.themeBackground);
    KatharaViewState camera = state.view;
    drawKatharaScene(context, kScene.x, kScene.y, kScene.w, kScene.h,
                     {{}, {}, &snapshot.shadowHeld, &snapshot.reflectionHeld, &snapshot.rotationHeld}, time,
                     camera);
    const Picture wanted = picture();
    // Of the right size, but none that can be drawn into.
    state.sceneTexture = SDL_CreateTexture(context.renderer, SDL_PIXELFORMAT_RGBA8888,
                                           SDL_TEXTUREACCESS_STATIC, kScene.w, kScene.h);
    ASSERT_NE(state.sceneTexture, nullptr);
    state.sceneTextureW = kScene.w;
    state.sceneTextureH = kScene.h;
    for (const std::uint32_t later : {0u, 100u, 2000u, 2000u}) {
        state.sceneDrawnInMainView = false;
        EXPECT_EQ(changed(wanted, mainView(later), kScene), 0) << later;
        EXPECT_TRUE(state.sceneDrawnInMainView);
    }
    EXPECT_EQ(SDL_GetRenderTarget(context.renderer), nullptr);
}

TEST_F(KatharaHosts, AnotherSizeMakesAnotherTexture) {
    mainView();
    EXPECT_EQ(state.sceneTextureW, 600);
    EXPECT_EQ(state.sceneTextureH, 366);
    view = {40, 30, 500, 320};
    context.ticks += 5000;
    mainView();
    EXPECT_EQ(state.sceneTextureW, 500);
    EXPECT_EQ(state.sceneTextureH, 266);
    Uint32 format = 0;
    int access = 0;
    int w = 0;
    int h = 0;
    ASSERT_EQ(SDL_QueryTexture(state.sceneTexture, &format, &access, &w, &h), 0);
    EXPECT_EQ(format, Uint32{SDL_PIXELFORMAT_RGBA8888});
    EXPECT_EQ(access, static_cast<int>(SDL_TEXTUREACCESS_TARGET));
    SDL_BlendMode blend = SDL_BLENDMODE_NONE;
    SDL_GetTextureBlendMode(state.sceneTexture, &blend);
    EXPECT_EQ(blend, SDL_BLENDMODE_BLEND);
    EXPECT_EQ(w, 500);
    EXPECT_EQ(h, 266);
    EXPECT_EQ(SDL_GetRenderTarget(context.renderer), nullptr);
}

TEST_F(KatharaHosts, ALowViewIsClippedToItsRectangle) {
    view = {40, 30, 61, 61};
    const Picture seen = mainView();
    EXPECT_EQ(state.sceneTextureH, 40);  // never lower, though the strip then hangs out below
    for (int y = 0; y < 640; ++y) {
        for (int x = 0; x < 700; ++x) {
            const SDL_Point at{x, y};
            if (SDL_PointInRect(&at, &view) == SDL_TRUE) continue;
            ASSERT_EQ(seen.at(x, y), test::kBackdrop) << x << ", " << y;
        }
    }
}

TEST_F(KatharaHosts, RotationGoesAQuarterDegreeAFrameWithBothHostsOpen) {
    state.view.autoRotate = true;
    state.view.azimuth = 179.9f;
    state.sceneDrawnInMainView = false;
    drawKatharaMainView(context, state, view, snapshot, time);
    drawKatharaPanel(context, panel, state, snapshot, time, nullptr);
    EXPECT_FLOAT_EQ(state.view.azimuth, 180.15f);  // on, without wrapping
    // The panel alone turns it as well.
    state.sceneDrawnInMainView = false;
    drawKatharaPanel(context, panel, state, snapshot, time, nullptr);
    EXPECT_FLOAT_EQ(state.view.azimuth, 180.4f);
    state.view.autoRotate = false;
    drawKatharaPanel(context, panel, state, snapshot, time, nullptr);
    EXPECT_FLOAT_EQ(state.view.azimuth, 180.4f);
}

TEST_F(KatharaHosts, ThePanelDrawsItsSceneAnewEachTime) {
    const Picture first = panelPicture();
    context.ticks += 5000;
    state.view.azimuth += 40.0f;
    EXPECT_GT(changed(first, panelPicture(), {42, 54, 516, 486}), 500);
}

TEST_F(KatharaHosts, TheToolbarHasItsTitleAndButtons) {
    const Picture seen = mainView();
    EXPECT_TRUE(isText(seen, theme.themePanel, "Kathara 3D", 46, 35, fonts.fontTab, theme.themeText));
    // Idle: "Front"; lit: "Hz".
    EXPECT_TRUE(isColor(seen.at(40 + 600 - 319 + 2, 36), theme.themeTabIdle));
    EXPECT_TRUE(isColor(seen.at(40 + 600 - 319, 34), theme.themeBorder));
    EXPECT_TRUE(isColor(seen.at(40 + 600 - 319 + 45 * 5 + 2, 36), theme.themeTabActive));
    EXPECT_TRUE(isColor(seen.at(40 + 600 - 319 + 45 * 5, 34), theme.themeAccent));
    const SDL_Rect idle{40 + 600 - 319, 34, 42, 18};
    const SDL_Point at = test::centredPlace("Front", idle, fonts.fontLabel);
    EXPECT_TRUE(isText(seen, theme.themeTabIdle, "Front", at.x, at.y, fonts.fontLabel, theme.themeTextDim));
    const SDL_Rect lit{40 + 600 - 319 + 45 * 5, 34, 42, 18};
    const SDL_Point litAt = test::centredPlace("Hz", lit, fonts.fontLabel);
    EXPECT_TRUE(isText(seen, theme.themeTabActive, "Hz", litAt.x, litAt.y, fonts.fontLabel, theme.themeText));
}

TEST_F(KatharaHosts, EveryButtonAndSliderOfTheMainViewIsLabelled) {
    state.view = {.azimuth = 0.0f, .elevation = 0.0f, .zoom = 0.0f, .fov = 5.0f, .autoRotate = true};
    state.view.showHz = false;
    const Picture seen = mainView();
    const char* const labels[] = {"Front", "Top", "Side", "In", "Auto", "Hz", "Exp"};
    for (int i = 0; i < 7; ++i) {
        const bool lit = i == 3 || i == 4;
        const SDL_Rect button{40 + 600 - 319 + 45 * i, 34, 42, 18};
        const SDL_Point at = test::centredPlace(labels[i], button, fonts.fontLabel);
        EXPECT_TRUE(isText(seen, lit ? theme.themeTabActive : theme.themeTabIdle, labels[i], at.x, at.y,
                           fonts.fontLabel, lit ? theme.themeText : theme.themeTextDim));
    }
    const char* const captions[] = {"AZ", "EL", "ZM", "FOV"};
    const Picture strip = test::plain(seen, theme.themePanel);
    for (int i = 0; i < 4; ++i) {
        const int x = 40 + 4 + i * 580 / 4;
        const int y = 436 - measureText(fonts.fontLabel, captions[i]).y / 2;
        // The knob of a slider at its lower end lies over the last five columns before the track.
        EXPECT_TRUE(isText(seen, strip, captions[i], x, y, fonts.fontLabel, theme.themeTextDim, x + 19));
    }
}

TEST_F(KatharaHosts, EveryButtonAndSliderOfThePanelIsLabelled) {
    state.view = {.zoom = 0.49f, .fov = 3.0f, .autoRotate = false};
    state.view.showHz = true;
    const Picture seen = panelPicture();
    const SDL_Color body = test::over({22, 20, 30, 248}, test::kBackdrop);
    const char* const labels[] = {"Front", "Top", "Side", "Inside", "Auto", "Hz"};
    for (int i = 0; i < 6; ++i) {
        const bool lit = i == 3 || i == 5;
        const SDL_Color fill =
            test::over(lit ? SDL_Color{50, 140, 120, 220} : SDL_Color{50, 45, 65, 220}, body);
        const SDL_Color text = lit ? SDL_Color{220, 255, 240, 255} : SDL_Color{180, 175, 160, 200};
        const SDL_Rect button{40 + 6 + 46 * i, 30 + 560 - 46, 42, 16};
        const SDL_Point at = test::centredPlace(labels[i], button, fonts.fontLabel);
        EXPECT_TRUE(isText(seen, test::plain(seen, fill), labels[i], at.x, at.y, fonts.fontLabel, text,
                           button.x + button.w));
    }
    const char* const captions[] = {"AZ", "EL", "ZM", "FOV"};
    const Picture strip = test::plain(seen, {25, 22, 38, 255});
    for (int i = 0; i < 4; ++i) {
        const int x = 40 + 6 + i * 496 / 4;
        const int y = 30 + 560 - 26 + 12 - measureText(fonts.fontLabel, captions[i]).y / 2;
        EXPECT_TRUE(isText(seen, strip, captions[i], x, y, fonts.fontLabel, {180, 175, 200, 220}, x + 19));
    }
}

TEST_F(KatharaHosts, InsideIsLitBelowHalfAUnit) {
    const SDL_Point probe{40 + 600 - 319 + 45 * 3 + 2, 36};
    state.view.zoom = 0.5f;
    EXPECT_TRUE(isColor(mainView().at(probe.x, probe.y), theme.themeTabIdle));
    state.view.zoom = 0.49f;
    EXPECT_TRUE(isColor(mainView().at(probe.x, probe.y), theme.themeTabActive));
}

TEST_F(KatharaHosts, TheStripOfTheMainViewHasItsLinesAndKnobs) {
    state.view.azimuth = 90.0f;
    state.view.elevation = -89.0f;
    state.view.zoom = 15.0f;
    state.view.fov = 5.5f;
    const Picture seen = mainView();
    EXPECT_TRUE(isColor(seen.at(300, 422), theme.themeBorder));
    EXPECT_TRUE(isColor(seen.at(40, 440), theme.themePanel));
    EXPECT_TRUE(isColor(seen.at(300, 449), theme.themeBorder));
    const double values[] = {270.0 / 360.0, 0.0, 1.0, 0.5};
    for (int i = 0; i < 4; ++i) {
        const int track = 40 + 4 + i * 580 / 4 + 24;
        const int width = 580 / 4 - 40;
        const int knob = track + static_cast<int>(values[i] * width);
        EXPECT_TRUE(isColor(seen.at(knob, 436), theme.themeKnob)) << i;
        if (i == 3) {
            EXPECT_TRUE(isColor(seen.at(knob + 8, 432), theme.themePanel));
            EXPECT_TRUE(isColor(seen.at(knob + 8, 433), theme.themeTrack));
            EXPECT_TRUE(isColor(seen.at(knob + 8, 438), theme.themeTrack));
            EXPECT_TRUE(isColor(seen.at(knob + 8, 439), theme.themePanel));
        }
    }
}

TEST_F(KatharaHosts, AValuePastAPanelsRangeHoldsItsKnobAtTheEndAndStays) {
    state.view.fov = 6.94f;  // the panel's slider ends at 5
    state.view.azimuth = 200.0f;
    const Picture seen = panelPicture();
    const int stripMiddle = 30 + 560 - 26 + 12;
    const int width = (520 - 24) / 4 - 40;
    const int fovTrack = 40 + 6 + 3 * (520 - 24) / 4 + 24;
    EXPECT_TRUE(isColor(seen.at(fovTrack + width, stripMiddle), theme.themeKnob));
    EXPECT_TRUE(isColor(seen.at(40 + 6 + 24 + width, stripMiddle), theme.themeKnob));
    EXPECT_EQ(state.view.fov, 6.94f);
    EXPECT_EQ(state.view.azimuth, 200.0f);
}

TEST_F(KatharaHosts, ThePanelHasItsOwnColours) {
    const Picture seen = panelPicture();
    const SDL_Color body = test::over({22, 20, 30, 248}, test::kBackdrop);
    const int buttonY = 30 + 560 - 46;
    EXPECT_TRUE(isColor(seen.at(40 + 6 + 1, buttonY + 1), test::over({50, 45, 65, 220}, body)));
    EXPECT_TRUE(isColor(seen.at(40 + 6 + 46 * 5 + 1, buttonY + 1), test::over({50, 140, 120, 220}, body)));
    EXPECT_TRUE(isColor(seen.at(44, 30 + 560 - 26 + 20), {25, 22, 38, 255}));
    EXPECT_TRUE(isColor(seen.at(40 + 520 - 64 + 1, 33), test::over({60, 55, 80, 220}, {42, 40, 56, 255})));
    state.researchMode = true;
    EXPECT_TRUE(isColor(panelPicture().at(40 + 520 - 64 + 1, 33),
                        test::over({180, 150, 40, 220}, {42, 40, 56, 255})));
}

TEST_F(KatharaHosts, TheTitleSaysWhichPageThePanelShows) {
    const SDL_Color title{220, 190, 130, 255};
    const SDL_Color bar{42, 40, 56, 255};
    EXPECT_TRUE(isText(panelPicture(), bar, "KATHARA  [Solfeggio Grid]", 48, 34, fonts.fontTab, title));
    state.researchMode = true;
    EXPECT_TRUE(isText(panelPicture(), bar, "KATHARA  [Research]", 48, 34, fonts.fontTab, title));
}

TEST_F(KatharaHosts, WithoutThreeDimensionsThePanelShowsTheFlatGrid) {
    const Picture scene = panelPicture();
    state.kathara3dMode = false;
    const Picture flat = panelPicture();
    EXPECT_GT(changed(scene, flat, {42, 54, 516, 532}), 20000);
    // No strip of sliders: the grid has the whole body.
    EXPECT_FALSE(isColor(flat.at(44, 30 + 560 - 26 + 20), {25, 22, 38, 255}, 0));
    // The node of 963 Hz stands at half the width and a twentieth of the height.
    const int x = 42 + 24 + static_cast<int>(0.5f * (516 - 48));
    const int y = 54 + 10 + static_cast<int>(0.05f * (534 - 20));
    EXPECT_FALSE(isColor(flat.at(x - 11, y), test::over({22, 20, 30, 248}, test::kBackdrop), 4));
}

TEST_F(KatharaHosts, ResearchModeShowsAPageInBothHosts) {
    state.researchMode = true;
    const SDL_Color heading{255, 215, 80, 255};
    EXPECT_TRUE(isText(mainView(), theme.themeBackground, "KATHARA 12 — RESEARCH MODE", 40 + 12, 56 + 14,
                       fonts.fontLabel, heading));
    const SDL_Color body = test::over({22, 20, 30, 248}, test::kBackdrop);
    EXPECT_TRUE(isText(panelPicture(), body, "KATHARA 12 — COMPLETE FREQUENCY SYNTHESIS", 42 + 10, 54 + 14,
                       fonts.fontLabel, heading));
}

TEST_F(KatharaHosts, LeavingResearchModeDrawsTheSceneAnew) {
    addNote(396.0f);
    mainView();
    state.researchMode = true;
    mainView(2000);
    snapshot.notes.clear();
    state.researchMode = false;
    state.sceneDrawnInMainView = false;
    mainView(2000);
    EXPECT_TRUE(state.sceneDrawnInMainView);  // the note of before is no longer to be seen
}

TEST_F(KatharaHosts, MoreNotesThanTheSceneTakesAreNoTrouble) {
    for (int i = 0; i < 300; ++i)
        addNote(100.0f + 3.0f * static_cast<float>(i));
    const Picture full = mainView();
    snapshot.notes.resize(128);
    EXPECT_EQ(changed(full, mainView(), kScene), 0);
}

TEST_F(KatharaHosts, TheSceneTakesTheFirst128Notes) {
    for (int i = 0; i < 127; ++i)
        addNote(147.0f);
    const Picture without = mainView();
    addNote(528.0f);
    EXPECT_GT(changed(without, mainView(), kScene), 20);
    snapshot.notes.insert(snapshot.notes.begin(), snapshot.notes.front());  // and so it is one too far back
    EXPECT_EQ(changed(without, mainView(), kScene), 0);
}

}  // namespace
}  // namespace veloria
