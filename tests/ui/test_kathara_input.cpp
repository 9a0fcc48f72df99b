// Every control of the Kathara scene in the main view and in the panel, by real events.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "recorder/clips.h"
#include "recorder_panel/panel.h"
#include "tests/platform/scratch_folder.h"
#include "tests/ui/kathara_controls.h"
#include "views/kathara/kathara_input.h"
#include "views/scene/geometry/obj_export.h"

namespace veloria {
namespace {

using platform::fakePlatform;
using test::HostPlaces;
using test::KatharaInput;

SDL_Point middle(const SDL_Rect& rect) {
    return {rect.x + rect.w / 2, rect.y + rect.h / 2};
}

TEST_F(KatharaInput, EachButtonActsInItsOwnPixelsAndNowhereElse) {
    inBothHosts([this](const HostPlaces& places) {
        for (std::size_t i = 0; i < places.buttons.size(); ++i) {
            expectHitArea(places.buttons[i], places.labels[i], [this, i](int x, int y) {
                // A camera that none of the buttons leaves behind.
                view() = {};
                view().azimuth = 11.0f;
                view().elevation = 12.0f;
                view().zoom = 7.0f;
                const KatharaViewState before = view();
                fakePlatform().reset();
                click(x, y);
                const KatharaViewState& after = view();
                switch (i) {
                    case 0:
                        return after.azimuth == 0.0f && after.elevation == 0.0f;
                    case 1:
                        return after.azimuth == 0.0f && after.elevation == 89.0f;
                    case 2:
                        return after.azimuth == 90.0f && after.elevation == 0.0f;
                    case 3:
                        return after.zoom == 0.0f && after.fov == 1.5f;
                    case 4:
                        return after.autoRotate != before.autoRotate;
                    case 5:
                        return after.showHz != before.showHz;
                    default:
                        return fakePlatform().log.size() == 1;  // the dialog for the file's name
                }
            });
        }
    });
}

TEST_F(KatharaInput, TheButtonsThatTurnTheCameraLeaveZoomAndMagnification) {
    const HostPlaces places = mainPlaces();
    const auto press = [this, &places](std::size_t button) {
        const SDL_Point at = middle(places.buttons[button]);
        click(at.x, at.y);
    };
    press(3);
    for (const std::size_t button : {0u, 1u, 2u}) {
        press(button);
        EXPECT_EQ(view().zoom, 0.0f);
        EXPECT_EQ(view().fov, 1.5f);
    }
    press(4);
    EXPECT_TRUE(view().autoRotate);
    press(4);
    EXPECT_FALSE(view().autoRotate);
    press(5);
    EXPECT_FALSE(view().showHz);
}

TEST_F(KatharaInput, ExportWritesTheFigureByTheCoordinatesThatAreShown) {
    const test::ScratchFolder folder;
    const SDL_Point at = middle(mainPlaces().buttons[6]);
    ASSERT_NE(katharaObjText(false), katharaObjText(true));
    for (const bool tesla : {false, true}) {
        fakePlatform().reset();
        fakePlatform().dialogPaths = {folder / "scene.obj"};
        view().teslaCoordinates = tesla;
        click(at.x, at.y);
        ASSERT_EQ(fakePlatform().log.size(), 1u);
        EXPECT_EQ(fakePlatform().log[0].rfind("chooseFileToSave", 0), 0u) << fakePlatform().log[0];
        std::ifstream file(folder / "scene.obj", std::ios::binary);
        const std::string written{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ(written, katharaObjText(tesla)) << tesla;
    }
}

TEST_F(KatharaInput, EachSliderTakesPressesOnItsTrackAndFourPixelsBeyond) {
    inBothHosts([this](const HostPlaces& places) {
        float KatharaViewState::*const fields[] = {&KatharaViewState::azimuth, &KatharaViewState::elevation,
                                                   &KatharaViewState::zoom, &KatharaViewState::fov};
        for (std::size_t i = 0; i < 4; ++i) {
            expectHitArea(places.trackHits[i], "slider", [this, i, &fields](int x, int y) {
                app.kathara.sliderDrag.fill(false);
                view().*fields[i] = 3.1415f;
                down(x, y);
                const bool held = app.kathara.sliderDrag[i];
                EXPECT_EQ(held, view().*fields[i] != 3.1415f);
                up(x, y);
                EXPECT_FALSE(app.kathara.sliderDrag[i]);
                return held;
            });
        }
    });
}

TEST_F(KatharaInput, ASliderGivesThePlaceOnItsTrackOverItsRange) {
    inBothHosts([this](const HostPlaces& places) {
        struct {
            float KatharaViewState::*field;
            float low;
            float width;
        } const rows[] = {{&KatharaViewState::azimuth, -180.0f, 360.0f},
                          {&KatharaViewState::elevation, -89.0f, 178.0f},
                          {&KatharaViewState::zoom, 0.0f, 15.0f},
                          {&KatharaViewState::fov, 1.0f, places.fovWidth}};
        for (std::size_t i = 0; i < 4; ++i) {
            const SDL_Rect& track = places.tracks[i];
            const auto& row = rows[i];
            down(track.x, track.y);
            EXPECT_FLOAT_EQ(view().*row.field, row.low);
            move(track.x + track.w / 2, track.y - 300);  // wherever the pointer goes meanwhile
            const float fraction = static_cast<float>(track.w / 2) / static_cast<float>(track.w);
            EXPECT_NEAR(view().*row.field, row.low + fraction * row.width, 1e-4f);
            move(track.x + track.w + 500, track.y);
            EXPECT_FLOAT_EQ(view().*row.field, row.low + row.width);
            move(track.x - 500, track.y);
            EXPECT_FLOAT_EQ(view().*row.field, row.low);
            up(track.x, track.y);
            move(track.x + track.w, track.y);
            EXPECT_FLOAT_EQ(view().*row.field, row.low);
        }
    });
}

TEST_F(KatharaInput, APressJustBesideATrackStaysInItsRange) {
    const SDL_Rect track = mainPlaces().tracks[1];
    down(track.x - 4, track.y);
    EXPECT_FLOAT_EQ(view().elevation, -89.0f);
}

TEST_F(KatharaInput, EachRowOfTheObjectSetTogglesItsPart) {
    bool KatharaViewState::*const fields[] = {
        &KatharaViewState::showSolfeggio, &KatharaViewState::showReflection, &KatharaViewState::showRotation,
        &KatharaViewState::showShadow,    &KatharaViewState::showMerkaba,    &KatharaViewState::showEnneagram,
        &KatharaViewState::showVitruvian, &KatharaViewState::showGrid,       &KatharaViewState::showCentroid,
        &KatharaViewState::helixLabels};
    inBothHosts([this, &fields](const HostPlaces& places) {
        for (int row = 0; row < 10; ++row) {
            // Row 0 begins with the box, two pixels above its text.
            const int top = row == 0 ? places.objectBox.y : places.firstRowY + 16 * row;
            const int bottom = places.firstRowY + 16 * row + 16;
            expectHitArea({places.objectBox.x, top, places.objectBox.w, bottom - top}, "row",
                          [this, &fields, row](int x, int y) {
                              const bool before = view().*fields[row];
                              click(x, y);
                              return view().*fields[row] != before;
                          });
        }
        expectHitArea(places.coordinates, "coordinates", [this](int x, int y) {
            const bool before = view().teslaCoordinates;
            click(x, y);
            return view().teslaCoordinates != before;
        });
    });
}

TEST_F(KatharaInput, ADragInTheSceneTurnsTheCamera) {
    inBothHosts([this](const HostPlaces& places) {
        const int x = places.scene.x + places.scene.w - 20;
        const int y = places.scene.y + 30;
        view().azimuth = 10.0f;
        view().elevation = 5.0f;
        app.kathara.sceneDirty = false;
        down(x, y);
        EXPECT_TRUE(app.kathara.draggingScene);
        EXPECT_FALSE(app.kathara.sceneDirty);
        move(x - 30, y + 20);
        EXPECT_FLOAT_EQ(view().azimuth, 10.0f - 30 * 0.4f);
        EXPECT_FLOAT_EQ(view().elevation, 5.0f + 20 * 0.3f);
        EXPECT_TRUE(app.kathara.sceneDirty);
        move(x, y + 2000);
        EXPECT_FLOAT_EQ(view().elevation, 89.0f);
        move(x, y - 2000);
        EXPECT_FLOAT_EQ(view().elevation, -89.0f);
        up(x, y);
        move(x + 100, y);
        EXPECT_FLOAT_EQ(view().azimuth, 10.0f);
        EXPECT_FALSE(app.kathara.draggingScene);
    });
}

TEST_F(KatharaInput, BetweenTheControlsOfToolbarAndStripNothingIsHeld) {
    inBothHosts([this](const HostPlaces& places) {
        const SDL_Rect& button = places.buttons[0];
        const SDL_Rect& track = places.tracks[1];
        for (const SDL_Point& at :
             {SDL_Point{button.x - 2, button.y + 2}, SDL_Point{track.x - 10, track.y}}) {
            down(at.x, at.y);
            EXPECT_FALSE(isKatharaHeld(app.kathara)) << at.x << ", " << at.y;
            up(at.x, at.y);
        }
    });
}

TEST_F(KatharaInput, AButtonThatSticksOutOfANarrowPanelIsNotHitInItsBorder) {
    openPanel();
    panel(kKatharaPanel).rect.w = kPanelMinimumWidth;
    const SDL_Rect auto_ = openPanel().buttons[4];
    const int right = panel(kKatharaPanel).rect.x + kPanelMinimumWidth;
    ASSERT_LT(auto_.x, right - 3);
    click(right - 2, auto_.y + 2);
    EXPECT_FALSE(view().autoRotate);
    click(right - 3, auto_.y + 2);
    EXPECT_TRUE(view().autoRotate);
}

TEST_F(KatharaInput, ThePanelAloneTurnsTheCameraWhileThereIsNoMainView) {
    openPanel();
    const int lowest = 32 + 60 + kMinimumRecorder + kStatusBarHeight;  // 60 rows remain: not enough
    resize(1280, lowest);
    view().azimuth = 10.0f;
    view().autoRotate = true;
    frame();
    frame();
    EXPECT_FLOAT_EQ(view().azimuth, 10.5f);
    resize(1280, 1080);  // both turn it no faster than one
    frame();
    frame();
    EXPECT_FLOAT_EQ(view().azimuth, 11.0f);
    resize(1280, lowest);
    frame();
    EXPECT_FLOAT_EQ(view().azimuth, 11.25f);
}

TEST_F(KatharaInput, ADragThatBeganInTheMainViewGoesOnOverThePanel) {
    const HostPlaces inPanel = openPanel();
    PanelState& shown = panel(kKatharaPanel);
    shown.rect.y = app.layout.contentBottom;  // clear of the main view's strip
    const SDL_Rect track = mainPlaces().tracks[3];
    down(track.x, track.y);
    EXPECT_EQ(app.kathara.dragHost, KatharaHost::MainView);
    move(track.x + track.w, shown.rect.y + 100);
    EXPECT_FLOAT_EQ(view().fov, 10.0f);  // the main view's range, not the panel's
    up(track.x, shown.rect.y + 100);
    EXPECT_EQ(app.kathara.dragHost, KatharaHost::None);
    EXPECT_EQ(inPanel.fovWidth, 4.0f);
}

// The clip editor reaches above the recorder, over the scene. It takes presses and the wheel, not what is
// held.
TEST_F(KatharaInput, ADragGoesOnAndEndsOverTheClipEditor) {
    app.sizes.recorderHeight = 150;
    frame();
    RecorderClip clip;
    clip.end = 3.0;
    app.recorder.editClip = &addClip(app.recorder, 0, 440.0, clip);
    app.recorder.editChannel = 0;
    app.recorder.editX = 500;
    app.recorder.editOpen = true;
    frame();
    const SDL_Point over{520, app.layout.contentBottom - 10};
    ASSERT_TRUE(recorderEditContains(app.recorder, app.layout.recorder, over.x, over.y));
    down(over.x, over.y);
    EXPECT_FALSE(isKatharaHeld(app.kathara));
    up(over.x, over.y);
    const float zoom = view().zoom;
    wheel(over.x, over.y, 1);
    EXPECT_EQ(view().zoom, zoom);

    const SDL_Point start{820, 120};
    view().azimuth = 10.0f;
    down(start.x, start.y);
    ASSERT_TRUE(app.kathara.draggingScene);
    move(over.x, over.y);
    EXPECT_FLOAT_EQ(view().azimuth, 10.0f + static_cast<float>(over.x - start.x) * 0.4f);
    up(over.x, over.y);
    EXPECT_FALSE(isKatharaHeld(app.kathara));
    EXPECT_FALSE(app.kathara.draggingScene);
}

TEST_F(KatharaInput, TheWheelZoomsWithinItsBounds) {
    inBothHosts([this](const HostPlaces& places) {
        const SDL_Point at = middle(places.scene);
        view().zoom = 12.0f;
        wheel(at.x, at.y, 1);
        EXPECT_FLOAT_EQ(view().zoom, 11.5f);
        wheel(at.x, at.y, -3);
        EXPECT_FLOAT_EQ(view().zoom, 13.0f);
        wheel(at.x, at.y, -30);
        EXPECT_FLOAT_EQ(view().zoom, 15.0f);
        wheel(at.x, at.y, 100);
        EXPECT_FLOAT_EQ(view().zoom, 0.0f);
        EXPECT_TRUE(app.kathara.sceneDirty);
    });
}

TEST_F(KatharaInput, EveryChangeMarksThePictureAsOld) {
    const HostPlaces places = mainPlaces();
    std::vector<SDL_Point> presses;
    for (const SDL_Rect& rect : places.buttons)
        presses.push_back(middle(rect));
    for (const SDL_Rect& rect : places.tracks)
        presses.push_back(middle(rect));
    presses.push_back(middle(places.coordinates));
    presses.push_back({places.objectBox.x + 5, places.firstRowY + 5});
    for (const SDL_Point& at : presses) {
        app.kathara.sceneDirty = false;
        click(at.x, at.y);
        EXPECT_TRUE(app.kathara.sceneDirty) << at.x << ", " << at.y;
    }
}

TEST_F(KatharaInput, InResearchModeTheMainViewKeepsItsControlsAndItsSceneIsDead) {
    app.kathara.researchMode = true;
    frame();
    const HostPlaces places = mainPlaces();
    const bool shown = view().showSolfeggio;
    click(places.objectBox.x + 5, places.firstRowY + 5);
    EXPECT_EQ(view().showSolfeggio, shown);
    const SDL_Point at = middle(places.scene);
    down(at.x, at.y);
    EXPECT_FALSE(app.kathara.draggingScene);
    up(at.x, at.y);
    click(middle(places.buttons[0]).x, middle(places.buttons[0]).y);
    EXPECT_EQ(view().azimuth, 0.0f);
    click(places.tracks[2].x, places.tracks[2].y);
    EXPECT_EQ(view().zoom, 0.0f);
    wheel(at.x, at.y, -1);
    EXPECT_EQ(view().zoom, 0.0f);
}

TEST_F(KatharaInput, InResearchModeThePanelShowsOnlyItsPage) {
    const HostPlaces places = openPanel();
    app.kathara.researchMode = true;
    frame();
    const KatharaViewState before = view();
    for (const SDL_Rect& rect : places.buttons)
        click(middle(rect).x, middle(rect).y);
    click(middle(places.tracks[0]).x, middle(places.tracks[0]).y);
    click(places.objectBox.x + 5, places.firstRowY + 5);
    EXPECT_EQ(view().azimuth, before.azimuth);
    EXPECT_EQ(view().showSolfeggio, before.showSolfeggio);
    EXPECT_EQ(view().autoRotate, before.autoRotate);
    EXPECT_EQ(view().showHz, before.showHz);
}

TEST_F(KatharaInput, EachHostScrollsItsOwnPage) {
    const HostPlaces places = openPanel();
    app.kathara.researchMode = true;
    frame();
    const SDL_Point at = middle(places.scene);
    wheel(at.x, at.y, -2);
    EXPECT_EQ(app.kathara.panelPage.researchScroll, 60);
    EXPECT_EQ(app.kathara.mainViewPage.researchScroll, 0);
    wheel(at.x, at.y, 5);
    EXPECT_EQ(app.kathara.panelPage.researchScroll, 0);
}

TEST_F(KatharaInput, TheWheelOverTheMainViewScrollsItsPageWhereThatIsTooLongForIt) {
    app.sizes.recorderHeight = 1080 - 30 - 300;  // a scene of 214 rows
    app.kathara.researchMode = true;
    frame();
    const int whole = 14 + 14 * 15 + 3 * 2 + 11 + 16 + 20;
    const int farthest = whole - mainPlaces().scene.h;
    ASSERT_EQ(mainPlaces().scene.h, 214);
    const SDL_Point at = middle(mainPlaces().scene);
    wheel(at.x, at.y, -1);
    EXPECT_EQ(app.kathara.mainViewPage.researchScroll, 30);
    EXPECT_EQ(app.kathara.panelPage.researchScroll, 0);
    wheel(at.x, at.y, -10);
    EXPECT_EQ(app.kathara.mainViewPage.researchScroll, farthest);
}

TEST_F(KatharaInput, TheInfoBoxOfThePanelTogglesResearchMode) {
    openPanel();
    const SDL_Rect& rect = panel(kKatharaPanel).rect;
    // Its right neighbour is the maximise box, two pixels on.
    expectHitArea({rect.x + rect.w - 64, rect.y + 2, 18, 18}, "info", [this](int x, int y) {
        const bool before = app.kathara.researchMode;
        const SDL_Rect place = panel(kKatharaPanel).rect;
        click(x, y);
        panel(kKatharaPanel).rect = place;
        return app.kathara.researchMode != before;
    });
}

TEST_F(KatharaInput, OnlyTheCloseBoxEndsResearchMode) {
    openPanel();
    app.kathara.researchMode = true;
    widget("KATHARA PANEL").onClick();
    EXPECT_FALSE(panel(kKatharaPanel).open);
    EXPECT_TRUE(app.kathara.researchMode);
    openPanel();
    const SDL_Rect& rect = panel(kKatharaPanel).rect;
    click(rect.x + rect.w - 10, rect.y + 10);
    EXPECT_FALSE(panel(kKatharaPanel).open);
    EXPECT_FALSE(app.kathara.researchMode);
}

TEST_F(KatharaInput, TheFlatGridHasNoControls) {
    const HostPlaces places = openPanel();
    app.kathara.kathara3dMode = false;
    frame();
    const float azimuth = view().azimuth;
    click(middle(places.buttons[0]).x, middle(places.buttons[0]).y);
    down(middle(places.scene).x, middle(places.scene).y);
    EXPECT_FALSE(app.kathara.draggingScene);
    EXPECT_EQ(view().azimuth, azimuth);
}

TEST_F(KatharaInput, TheSplittersRoundTheMainViewAreNotItsOwn) {
    const int y = mainPlaces().coordinates.y + 40;  // below the object set, which reaches close to the edge
    down(app.layout.leftWidth + 3, y);
    EXPECT_EQ(app.held.splitter, Splitter::Left);
    EXPECT_FALSE(app.kathara.draggingScene);
    up(app.layout.leftWidth + 3, y);
    down(app.layout.leftWidth + 5, y);
    EXPECT_EQ(app.held.splitter, Splitter::None);
    EXPECT_TRUE(app.kathara.draggingScene);
}

TEST_F(KatharaInput, AFloatingPanelOverTheMainViewTakesThePress) {
    togglePanel(app.panels, kScopePanel);
    panel(kScopePanel).rect = app.layout.centre;
    frame();
    const SDL_Point at = middle(mainPlaces().scene);
    down(at.x, at.y);
    EXPECT_FALSE(app.kathara.draggingScene);
    const float zoom = view().zoom;
    wheel(at.x, at.y, 1);
    EXPECT_EQ(view().zoom, zoom);
}

TEST_F(KatharaInput, AHiddenMainViewTakesNothing) {
    const SDL_Point place{app.layout.leftWidth + 30, 70};
    for (const int rows : {61, 60}) {
        resize(1280, 32 + rows + kMinimumRecorder + kStatusBarHeight);
        frame();
        down(place.x, place.y);
        EXPECT_EQ(isKatharaHeld(app.kathara), rows > kMinimumCentre);
        up(place.x, place.y);
    }
}

TEST_F(KatharaInput, APressInTheSceneDiscardsARangeThatIsBeingTyped) {
    const SDL_Rect& recorder = app.layout.recorder;
    click(recorder.x + 140, recorder.y + 30);
    ASSERT_TRUE(isEditingRange(app.recorder));
    const SDL_Point at = middle(mainPlaces().scene);
    click(at.x, at.y);
    EXPECT_FALSE(isEditingRange(app.recorder));
}

TEST_F(KatharaInput, LostRenderMemoryIsDrawnAnew) {
    ASSERT_NE(app.kathara.sceneTexture, nullptr);
    for (const Uint32 type : {Uint32{SDL_RENDER_TARGETS_RESET}, Uint32{SDL_RENDER_DEVICE_RESET}}) {
        app.kathara.sceneDirty = false;
        SDL_Event event;
        SDL_zero(event);
        event.type = type;
        handleEvent(app, event);
        EXPECT_TRUE(app.kathara.sceneDirty);
        frame();
        EXPECT_NE(app.kathara.sceneTexture, nullptr);
    }
}

TEST_F(KatharaInput, OnlyALostDeviceTakesTheAssetsAndTextsWithIt) {
    const auto send = [this](Uint32 type) {
        SDL_Event event;
        SDL_zero(event);
        event.type = type;
        handleEvent(app, event);
    };
    ASSERT_TRUE(app.assets.assetsLoaded);
    ASSERT_FALSE(app.textCache.entries.empty());
    send(SDL_RENDER_TARGETS_RESET);
    EXPECT_TRUE(app.assets.assetsLoaded);
    EXPECT_FALSE(app.textCache.entries.empty());
    send(SDL_RENDER_DEVICE_RESET);
    EXPECT_FALSE(app.assets.assetsLoaded);
    EXPECT_TRUE(app.textCache.entries.empty());
    frame();
    EXPECT_TRUE(app.assets.assetsLoaded);
}

}  // namespace
}  // namespace veloria
