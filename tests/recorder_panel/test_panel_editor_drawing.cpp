// The clip editor as it looks, at (300, 380) over a plain backdrop.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBackdrop;
using test::over;
using test::Picture;

class RecorderEditorDrawing : public test::RecorderPanelTest {
  protected:
    RecorderEditorDrawing() : made(clip(1, 440.0, 1.0, 3.0)) {
        made.label = "440 Reflect";
        made.overrides = {0, 0, 0, 0, 0, 0, 0, 0};
        recorder.editOpen = true;
        recorder.editClip = &made;
        recorder.editX = 300;
        recorder.editY = 380;
    }
    Picture editor() {
        screen.clear(kBackdrop);
        drawRecorderEdit(context, recorder, area);
        return picture();
    }
    RecorderClip& made;
    const SDL_Color box = over({24, 24, 38, 240}, kBackdrop);
    const SDL_Color track = over({40, 40, 60, 200}, box);
};

TEST_F(RecorderEditorDrawing, ClosedItDrawsNothing) {
    recorder.editOpen = false;
    drawRecorderEdit(context, recorder, area);
    EXPECT_EQ(touched(), 0);
    recorder.editOpen = true;
    recorder.editClip = nullptr;
    drawRecorderEdit(context, recorder, area);
    EXPECT_EQ(touched(), 0);
}

TEST_F(RecorderEditorDrawing, BoxHasItsBorderAndItsHead) {
    const Picture seen = editor();
    EXPECT_TRUE(isColor(seen.at(300, 380), over({80, 140, 255, 200}, box)));
    EXPECT_TRUE(isColor(seen.at(539, 665), over({80, 140, 255, 200}, box)));
    EXPECT_EQ(seen.at(540, 500), kBackdrop);
    EXPECT_EQ(seen.at(400, 666), kBackdrop);
    EXPECT_TRUE(isColor(seen.at(302, 400), box));
    expectText(seen, "440 Reflect  440.0Hz", 306, 384, fonts.fontLabel, {220, 220, 255, 240}, box);
}

TEST_F(RecorderEditorDrawing, StandsWhereItIsPushedTo) {
    recorder.editX = 5000;
    const Picture seen = editor();
    EXPECT_EQ(recorder.editX, 1040);
    EXPECT_TRUE(isColor(seen.at(1042, 400), box));
}

TEST_F(RecorderEditorDrawing, EachRowHasItsLabelTrackFillAndKnob) {
    made.gainInDb = -30.0f;
    const Picture seen = editor();
    expectText(seen, "dB In", 304, 404, fonts.fontLabel, {140, 160, 200, 220}, box);
    expectText(seen, "Freq", 304, 624, fonts.fontLabel, {140, 160, 200, 220}, box);
    EXPECT_TRUE(isColor(seen.at(356, 406), over({60, 140, 200, 180}, track)));
    EXPECT_TRUE(isColor(seen.at(420, 413), over({60, 140, 200, 180}, track)));
    EXPECT_TRUE(isColor(seen.at(440, 410), track));
    EXPECT_TRUE(isColor(seen.at(495, 410), track));
    EXPECT_TRUE(isColor(seen.at(496, 410), box));
    EXPECT_TRUE(isColor(seen.at(440, 414), box)) << "8 high";
    // The knob is 5 wide round 356 + 70, and 2 higher than the track on both sides.
    EXPECT_TRUE(isColor(seen.at(424, 404), over({200, 220, 255, 240}, box)));
    EXPECT_TRUE(isColor(seen.at(428, 415), over({200, 220, 255, 240}, box)));
    EXPECT_TRUE(isColor(seen.at(423, 404), box));
    EXPECT_TRUE(isColor(seen.at(429, 404), box));
    EXPECT_TRUE(isColor(seen.at(426, 403), box));
    EXPECT_TRUE(isColor(seen.at(426, 416), box));
    expectText(seen, "-30", 504, 404, fonts.fontLabel, {180, 200, 180, 220}, box);
}

TEST_F(RecorderEditorDrawing, ValuesThatWouldTouchTheBorderMoveLeft) {
    made.pan = 1.0f;
    const Picture seen = editor();
    const std::string text = "100R";
    const int w = measureText(fonts.fontLabel, text).x;
    const int x = std::min(504, 536 - w);
    expectText(seen, text, x, 604, fonts.fontLabel, {180, 200, 180, 220}, box);
    for (int y = 382; y < 664; ++y)
        EXPECT_TRUE(isColor(seen.at(537, y), box)) << y;
}

TEST_F(RecorderEditorDrawing, KnobIsHeldAtTheEndAndTheValueIsNot) {
    made.overrides.fibonacciCount = 14;
    made.overrides.octaveSteps = -9;
    const Picture seen = editor();
    EXPECT_TRUE(isColor(seen.at(496, 444), over({200, 220, 255, 240}, box)));
    EXPECT_TRUE(isColor(seen.at(499, 444), box));
    expectText(seen, "14", 504, 444, fonts.fontLabel, {180, 200, 180, 220}, box);
    EXPECT_TRUE(isColor(seen.at(354, 524), over({200, 220, 255, 240}, box)));
    expectText(seen, "-9", 504, 524, fonts.fontLabel, {180, 200, 180, 220}, box);
}

TEST_F(RecorderEditorDrawing, FootIsGoldForOptimizedClips) {
    expectText(editor(), "Default", 306, 644, fonts.fontLabel, {120, 140, 160, 180}, box);
    made.optimized = true;
    made.tuningLabel = "Sacred Optimizer";
    expectText(editor(), "Sacred Optimizer | OPT", 306, 644, fonts.fontLabel, {255, 200, 80, 200}, box);
}

TEST_F(RecorderEditorDrawing, ALongLabelEndsAtTheBorder) {
    made.label = std::string(200, 'W');
    const Picture seen = editor();
    for (int y = 381; y < 400; ++y)
        EXPECT_EQ(seen.at(540, y), kBackdrop);
}

}  // namespace
}  // namespace veloria
