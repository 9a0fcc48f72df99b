// What of the recorder lies over what in a whole frame: the panel, its clip editor, and the ghost of a drag.
#include <gtest/gtest.h>

#include "recorder/clips.h"
#include "recorder_panel/panel.h"
#include "tests/ui/events.h"

namespace veloria {
namespace {

using test::Picture;

class RecorderStacking : public test::InputTest {
  protected:
    // A recorder lower than its editor, which so reaches up over the left panel: from y 404 to 690.
    void openEditor(int x) {
        app.sizes.recorderHeight = 150;
        RecorderClip clip;
        clip.end = 3.0;
        clip.label = "528 Reflect";
        app.recorder.editClip = &addClip(app.recorder, 0, 528.0, clip);
        app.recorder.editOpen = true;
        app.recorder.editChannel = 0;
        app.recorder.editX = x;
        app.recorder.editY = 0;
        frame();
        ASSERT_EQ(app.recorder.editY, 404);
    }
    Picture framed() {
        frame();
        return picture();
    }
    // The frame without the editor, and the editor drawn over it once all else is done.
    Picture editorOverTheRest() {
        app.recorder.editOpen = false;
        frame();
        app.recorder.editOpen = true;
        drawRecorderEdit(app.draw, app.recorder, app.layout.recorder);
        return picture();
    }
};

TEST_F(RecorderStacking, TheEditorLiesOverAllOfTheWindowItself) {
    openEditor(100);
    const Picture expected = editorOverTheRest();
    EXPECT_TRUE(framed() == expected);
    EXPECT_TRUE(test::isColor(expected.at(300, 420), {24, 24, 38, 255}, 12))
        << "its ground, over the left panel";
}

TEST_F(RecorderStacking, TheWelcomeDimsTheRecorderButNotTheEditor) {
    openEditor(100);
    const SDL_Color knobBefore = at(100 + 56 + 140, 404 + 24 + 2);
    const SDL_Color barBefore = at(700, 545);
    app.splashStart = 99900;
    const Picture expected = editorOverTheRest();
    const Picture seen = framed();
    EXPECT_TRUE(seen == expected);
    EXPECT_FALSE(seen.at(700, 545) == barBefore) << "the recorder's title bar";
    EXPECT_TRUE(test::isColor(seen.at(100 + 56 + 140, 404 + 24 + 2), knobBefore, 12));
}

TEST_F(RecorderStacking, FloatingPanelsLieOverTheEditor) {
    openEditor(100);
    const Picture editor = framed();
    panel(kLotusPanel).open = true;
    panel(kLotusPanel).rect = {150, 420, 150, 150};
    const Picture both = framed();
    app.recorder.editOpen = false;
    const Picture panelAlone = framed();
    for (int x = 152; x < 298; ++x) {
        ASSERT_EQ(both.at(x, 430), panelAlone.at(x, 430)) << "the opaque title bar, " << x;
        // Nearly so is the body; the editor's sliders and texts lie beneath.
        ASSERT_TRUE(test::isColor(both.at(x, 470), panelAlone.at(x, 470), 12)) << x;
    }
    EXPECT_FALSE(both.at(200, 430) == editor.at(200, 430));
    EXPECT_EQ(both.at(120, 430), editor.at(120, 430)) << "beside the panel";
    EXPECT_EQ(both.at(200, 600), editor.at(200, 600)) << "below it";
}

TEST_F(RecorderStacking, TheCalculatorLiesOverTheEditor) {
    openEditor(100);
    toggleCalculator(app.calculator);
    app.calculator.calcRect = {150, 410, 340, 200};
    frame();
    EXPECT_EQ(at(300, 413), (SDL_Color{40, 80, 120, 255})) << "its title bar";
}

TEST_F(RecorderStacking, TheGhostLiesOverTheCalculatorThePanelsAndTheEditor) {
    openEditor(100);
    panel(kPolarPanel).open = true;
    panel(kPolarPanel).rect = {420, 40, 300, 300};
    toggleCalculator(app.calculator);
    app.calculator.calcRect = {640, 100, 340, 378};
    const Picture without = framed();
    constexpr SDL_Color kRed{220, 40, 40, 255};
    beginDroneDrag(app.recorder, "", 528.0, kRed, 6, 0);
    // Over the calculator's edge, its title bar, a panel that stands still, the editor.
    for (const SDL_Point& place : {SDL_Point{640, 300}, {700, 111}, {500, 200}, {200, 500}}) {
        setDragMouse(app.recorder, place.x, place.y);
        const Picture seen = framed();
        for (int y = place.y - 13; y < place.y + 13; ++y) {
            for (int x = place.x - 49; x < place.x + 49; ++x) {
                ASSERT_TRUE(
                    test::isColor(seen.at(x, y), test::over({kRed.r, kRed.g, kRed.b, 120}, without.at(x, y))))
                    << x << " " << y;
            }
        }
        EXPECT_EQ(seen.at(place.x - 51, place.y), without.at(place.x - 51, place.y));
        EXPECT_EQ(seen.at(place.x, place.y + 14), without.at(place.x, place.y + 14));
    }
}

}  // namespace
}  // namespace veloria
