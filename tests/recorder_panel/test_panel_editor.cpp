// The clip editor under the mouse.
#include "recorder_panel/panel_editor.h"
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

class RecorderEditor : public test::RecorderPanelTest {
  protected:
    RecorderEditor() : made(clip(1, 440.0, 1.0, 3.0)) {
        made.label = "440 Reflect";
        made.overrides = {0, 0, 0, 0, 0, 0, 0, 0};
    }
    void open() { doubleClick(at(2), rowY(1)); }
    // The box opened there stands at (206, 404): pushed up from below the row.
    static constexpr int kBoxX = 206;
    static constexpr int kBoxY = 404;
    static constexpr int kTrackX = kBoxX + 56;
    static int lineOf(int row) { return kBoxY + 24 + 20 * row + 6; }
    void press(int row, double position) { down(kTrackX + static_cast<int>(140.0 * position), lineOf(row)); }
    // The text of a row as it is now.
    [[nodiscard]] std::string text(int row) {
        return kEditorRows[static_cast<std::size_t>(row)].text(made, clipFrequency(recorder, &made));
    }
    RecorderClip& made;
};

TEST_F(RecorderEditor, OpensAtTheMousePushedIntoThePanel) {
    open();
    EXPECT_EQ(recorder.editX, kBoxX);
    EXPECT_EQ(recorder.editY, kBoxY);
    EXPECT_EQ(recorder.editRow, -1);
    EXPECT_TRUE(recorderEditContains(recorder, area, kBoxX, kBoxY));
    EXPECT_TRUE(recorderEditContains(recorder, area, kBoxX + 239, kBoxY + 285));
    EXPECT_FALSE(recorderEditContains(recorder, area, kBoxX + 240, kBoxY));
}

TEST_F(RecorderEditor, StandsAboveItsRowWhereThePanelIsHighEnough) {
    area = {0, 50, 1280, 640};
    recorder.channelCount = 32;
    clip(10, 440.0, 28.0, 29.0);  // row 10 from 118 + 340 = 458
    doubleClick(at(28.5), 458 + 17);
    EXPECT_EQ(recorder.editY, 458 - 290);
    EXPECT_EQ(recorder.editX, 1280 - 240) << "pushed in from the right";
}

TEST_F(RecorderEditor, FollowsThePanelWhenThatChangesItsSize) {
    open();
    area = {0, 540, 1280, 150};
    settleRecorderPanel(recorder, area);
    EXPECT_EQ(recorder.editY, 404) << "its foot stays in sight";
    area = {0, 550, 400, 340};
    settleRecorderPanel(recorder, area);
    EXPECT_EQ(recorder.editX, 160);
    EXPECT_EQ(recorder.editY, 550);
}

TEST_F(RecorderEditor, MiddleOfEachSlider) {
    open();
    for (int row = 0; row < 12; ++row)
        press(row, 0.5);
    EXPECT_FLOAT_EQ(made.gainInDb, -30.0f);
    EXPECT_FLOAT_EQ(made.gainOutDb, -30.0f);
    EXPECT_EQ(made.overrides.fibonacciCount, 5);
    EXPECT_EQ(made.overrides.piCount, 5);
    EXPECT_EQ(made.overrides.teslaCount, 2);
    EXPECT_EQ(made.overrides.waveform, 2);
    EXPECT_EQ(made.overrides.octaveSteps, 0);
    EXPECT_EQ(made.overrides.phiSteps, 0);
    EXPECT_EQ(made.overrides.fibPhase, 50);
    EXPECT_EQ(made.overrides.teslaPhase, 50);
    EXPECT_FLOAT_EQ(made.pan, 0.5f);
    EXPECT_NEAR(clipFrequency(recorder, &made), 549.5, 0.006);
    const char* texts[] = {"-30", "-30", "5", "5", "2", "SQR", "+0", "+0", "50%", "50%", "50C", "549.5"};
    for (int row = 0; row < 12; ++row)
        EXPECT_EQ(text(row), texts[row]) << row;
}

TEST_F(RecorderEditor, LeftEndOfEachSlider) {
    open();
    for (int row = 0; row < 12; ++row)
        press(row, 0.0);
    const char* texts[] = {"-60", "-60", "0", "0", "0", "SIN", "-4", "-4", "0%", "0%", "0L", "100.0"};
    for (int row = 0; row < 12; ++row)
        EXPECT_EQ(text(row), texts[row]) << row;
    EXPECT_EQ(made.overrides.octaveSteps, -4);
}

TEST_F(RecorderEditor, RightEndOfEachSlider) {
    open();
    for (int row = 0; row < 12; ++row)
        press(row, 1.0);
    const char* texts[] = {"0", "0", "9", "9", "3", "TRI", "+4", "+4", "100%", "100%", "100R", "999.0"};
    for (int row = 0; row < 12; ++row)
        EXPECT_EQ(text(row), texts[row]) << row;
}

TEST_F(RecorderEditor, EachSliderChangesItsOwnFieldOnly) {
    open();
    for (int row = 0; row < 12; ++row) {
        std::string before[12];
        for (int other = 0; other < 12; ++other)
            before[other] = text(other);
        press(row, row == 6 || row == 7 ? 0.9 : 0.7);
        for (int other = 0; other < 12; ++other) {
            if (other == row) {
                EXPECT_NE(text(other), before[other]) << row;
            } else {
                EXPECT_EQ(text(other), before[other]) << row << " " << other;
            }
        }
    }
}

TEST_F(RecorderEditor, PositionFromValueIsTheWayBack) {
    made.gainInDb = -15.0f;
    made.gainOutDb = -45.0f;
    made.overrides = {3, 6, 2, -2, 3, 25, 75, 1};
    made.pan = 0.8f;
    const double wanted[] = {0.75, 0.25,  3.0 / 9, 6.0 / 9, 2.0 / 3, 1.0 / 3,
                             0.25, 0.875, 0.25,    0.75,    0.8,     0.5};
    for (std::size_t row = 0; row < 12; ++row)
        EXPECT_NEAR(kEditorRows[row].position(made, 549.5), wanted[row], 1e-6) << kEditorRows[row].label;
}

TEST_F(RecorderEditor, LabelsOfTheRows) {
    const char* labels[] = {"dB In", "dB Out", "Fib",   "Pi",    "369", "Wave",
                            "Oct",   "OctPhi", "FibPh", "TslPh", "Pan", "Freq"};
    for (std::size_t row = 0; row < 12; ++row)
        EXPECT_STREQ(kEditorRows[row].label, labels[row]);
}

TEST_F(RecorderEditor, AHeldRowFollowsTheMouseEverywhere) {
    open();
    EXPECT_TRUE(down(kTrackX, lineOf(0)));
    EXPECT_EQ(recorder.editRow, 0);
    EXPECT_TRUE(move(kTrackX + 70, 20));
    EXPECT_FLOAT_EQ(made.gainInDb, -30.0f);
    move(2000, 20);
    EXPECT_FLOAT_EQ(made.gainInDb, 0.0f);
    EXPECT_FALSE(up());
    EXPECT_EQ(recorder.editRow, -1);
    EXPECT_FALSE(move(kTrackX, lineOf(0)));
    EXPECT_FLOAT_EQ(made.gainInDb, 0.0f);
}

TEST_F(RecorderEditor, APressInsideTheBoxReachesNothingBelow) {
    RecorderClip& below = clip(2, 440.0, 0.0, 30.0);
    open();
    EXPECT_TRUE(down(kBoxX + 20, rowY(2)));
    EXPECT_TRUE(recorder.editOpen);
    EXPECT_EQ(recorder.editRow, -1) << "beside the sliders";
    EXPECT_FALSE(below.selected);
}

TEST_F(RecorderEditor, APressOutsideClosesItAndGoesOn) {
    RecorderClip& other = clip(2, 440.0, 20.0, 25.0);
    open();
    EXPECT_TRUE(down(at(22), rowY(2)));
    EXPECT_FALSE(recorder.editOpen);
    EXPECT_EQ(recorder.editClip, nullptr);
    EXPECT_TRUE(other.selected);
    EXPECT_TRUE(recorder.movingClip);
    up();
    open();
    EXPECT_FALSE(down(600, 100)) << "outside the panel it is another's";
    EXPECT_FALSE(recorder.editOpen);
}

TEST_F(RecorderEditor, APressOnThePartAboveALowPanelIsTheEditors) {
    area = {0, 540, 1280, 150};
    doubleClick(at(2), 648);  // row 1 from 642, the scroll bar from 652
    ASSERT_TRUE(recorder.editOpen);
    EXPECT_EQ(recorder.editY, 404);
    EXPECT_TRUE(down(recorder.editX + 56 + 140, 404 + 30));
    EXPECT_FLOAT_EQ(made.gainInDb, 0.0f);
    EXPECT_EQ(recorder.editRow, 0);
}

TEST_F(RecorderEditor, FrequencyMovesTheClipToAnotherBucketAndKeepsHoldOfIt) {
    RecorderClip& neighbour = clip(1, 440.0, 10.0, 11.0);
    open();
    press(11, 1.0);
    EXPECT_EQ(recorder.editClip, &made);
    EXPECT_EQ(findClip(recorder, &made).key, 99900);
    EXPECT_EQ(findClip(recorder, &made).channel, 1);
    EXPECT_DOUBLE_EQ(clipFrequency(recorder, &neighbour), 440.0);
    move(kTrackX, 0);
    EXPECT_EQ(findClip(recorder, &made).key, 10000);
    EXPECT_EQ(recorder.clipCount, 2);
}

TEST_F(RecorderEditor, TheSameFrequencyKeepsItsPlaceInTheBucket) {
    open();
    press(11, 0.0);
    clip(1, 100.0, 10.0, 11.0);
    move(kTrackX, 0);
    EXPECT_EQ(clipsOfChannel(recorder, 1).front(), &made);
}

TEST_F(RecorderEditor, FrequencyOfASoundingClipEndsItsVoice) {
    recorder.playhead = 2.0;
    recorder.playing = true;
    tickRecorder(recorder, 0.01f);
    ASSERT_EQ(recorder.activeClips.size(), 1u);
    open();
    press(11, 1.0);
    EXPECT_TRUE(recorder.activeClips.empty());
    EXPECT_LT(engine.voices[0].endTime, 1.0);
}

TEST_F(RecorderEditor, WorksOnLockedChannelsToo) {
    recorder.channels[1].locked = true;
    open();
    press(0, 0.5);
    press(11, 0.0);
    EXPECT_FLOAT_EQ(made.gainInDb, -30.0f);
    EXPECT_DOUBLE_EQ(clipFrequency(recorder, &made), 100.0);
}

TEST_F(RecorderEditor, EscapeCloses) {
    open();
    EXPECT_TRUE(key(SDLK_ESCAPE));
    EXPECT_FALSE(recorder.editOpen);
    EXPECT_EQ(recorder.editClip, nullptr);
}

TEST_F(RecorderEditor, LetterOfThePanAndNamesOfTheWaves) {
    EXPECT_STREQ(panLetter(0.29f), "L");
    EXPECT_STREQ(panLetter(0.3f), "C");
    EXPECT_STREQ(panLetter(0.7f), "C");
    EXPECT_STREQ(panLetter(0.71f), "R");
    EXPECT_STREQ(waveName(0), "SIN");
    EXPECT_STREQ(waveName(3), "TRI");
    EXPECT_STREQ(waveName(-1), "?");
    EXPECT_STREQ(waveName(4), "?");
}

TEST_F(RecorderEditor, FootTellsWhereTheClipCameFrom) {
    EXPECT_EQ(editorFootText(made), "Default");
    made.tuningLabel = "Original MIDI";
    made.bassFilter = true;
    EXPECT_EQ(editorFootText(made), "Original MIDI | BF");
    made.tuningLabel = "Sacred Optimizer";
    made.optimized = true;
    EXPECT_EQ(editorFootText(made), "Sacred Optimizer | BF | OPT");
}

}  // namespace
}  // namespace veloria
