// The two range fields and their switch.
#include <utility>

#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

class RecorderRange : public test::RecorderPanelTest {
  protected:
    void openStart() { click(136, 376); }
    void openEnd() { click(271, 393); }
    void retype(const char* text) {
        recorder.rangeText.clear();
        type(text);
    }
};

TEST_F(RecorderRange, AFieldOpensWithItsValueAndTheTextInputOn) {
    SDL_StopTextInput();
    openEnd();
    EXPECT_TRUE(recorder.editingRangeEnd);
    EXPECT_FALSE(recorder.editingRangeStart);
    EXPECT_EQ(recorder.rangeText, "250.0");
    EXPECT_EQ(SDL_IsTextInputActive(), SDL_TRUE);
    EXPECT_TRUE(isEditingRange(recorder));
}

TEST_F(RecorderRange, BoxesEndWhereTheyAreDrawn) {
    for (const SDL_Point& beside :
         {SDL_Point{135, 385}, {188, 385}, {219, 385}, {272, 385}, {150, 375}, {150, 394}}) {
        click(beside.x, beside.y);
        EXPECT_FALSE(isEditingRange(recorder)) << beside.x << " " << beside.y;
    }
    click(187, 393);
    EXPECT_TRUE(recorder.editingRangeStart);
}

TEST_F(RecorderRange, OnlyDigitsAndPointsAreTyped) {
    openStart();
    retype("-1e2x.5 ,\xC3\xA9");
    EXPECT_EQ(recorder.rangeText, "12.5");
    EXPECT_TRUE(type("7"));
    EXPECT_TRUE(key(SDLK_BACKSPACE));
    key(SDLK_BACKSPACE);
    EXPECT_EQ(recorder.rangeText, "12.");
    recorder.rangeText.clear();
    key(SDLK_BACKSPACE);
    EXPECT_EQ(recorder.rangeText, "");
}

TEST_F(RecorderRange, ReturnTakesTheValueAndClosesTheField) {
    openStart();
    retype("12.5");
    EXPECT_TRUE(key(SDLK_RETURN));
    EXPECT_DOUBLE_EQ(recorder.rangeStart, 12.5);
    EXPECT_DOUBLE_EQ(recorder.rangeEnd, 250.0);
    EXPECT_FALSE(isEditingRange(recorder));
    EXPECT_EQ(SDL_IsTextInputActive(), SDL_FALSE);
}

TEST_F(RecorderRange, TheEndsPushEachOther) {
    openStart();
    retype("300");
    key(SDLK_KP_ENTER);
    EXPECT_DOUBLE_EQ(recorder.rangeStart, 300.0);
    EXPECT_DOUBLE_EQ(recorder.rangeEnd, 300.0);
    openEnd();
    retype("20");
    key(SDLK_RETURN);
    EXPECT_DOUBLE_EQ(recorder.rangeStart, 20.0);
    EXPECT_DOUBLE_EQ(recorder.rangeEnd, 20.0);
}

TEST_F(RecorderRange, WhatIsNoNumberOrTooLargeCountsAsZero) {
    const std::string huge(400, '9');
    const std::string tiny = "0." + std::string(400, '0') + "1";
    for (const std::string& text : {std::string(), std::string("."), std::string(".."), huge, tiny}) {
        recorder.rangeStart = 5.0;
        openStart();
        recorder.rangeText = text;
        key(SDLK_RETURN);
        EXPECT_DOUBLE_EQ(recorder.rangeStart, 0.0) << text;
    }
    openStart();
    recorder.rangeText = "-3";
    key(SDLK_RETURN);
    EXPECT_DOUBLE_EQ(recorder.rangeStart, 0.0);
}

TEST_F(RecorderRange, TheLongestBeginningThatIsANumberCounts) {
    const std::pair<const char*, double> cases[] = {{"1.2.3", 1.2}, {"1.25.9", 1.25}, {"7.", 7.0},
                                                    {"7..5", 7.0},  {".5.5", 0.5},    {"..5", 0.0},
                                                    {"007.5", 7.5}};
    for (const auto& [text, value] : cases) {
        recorder.rangeStart = 5.0;
        openStart();
        retype(text);
        EXPECT_EQ(recorder.rangeText, text);
        key(SDLK_RETURN);
        EXPECT_DOUBLE_EQ(recorder.rangeStart, value) << text;
    }
}

TEST_F(RecorderRange, EscapeChangesNothing) {
    openEnd();
    retype("1");
    EXPECT_TRUE(key(SDLK_ESCAPE));
    EXPECT_DOUBLE_EQ(recorder.rangeEnd, 250.0);
    EXPECT_FALSE(isEditingRange(recorder));
    EXPECT_FALSE(key(SDLK_ESCAPE)) << "nothing open: not used";
}

TEST_F(RecorderRange, APressElsewhereInThePanelLeavesTheFieldUnchanged) {
    openEnd();
    retype("1");
    click(600, 360);
    EXPECT_FALSE(isEditingRange(recorder));
    EXPECT_DOUBLE_EQ(recorder.rangeEnd, 250.0);
    openEnd();
    click(600, 385);
    EXPECT_TRUE(isEditingRange(recorder)) << "in the band it stays open";
    click(600, 300);
    EXPECT_FALSE(isEditingRange(recorder)) << "outside the panel";
}

TEST_F(RecorderRange, APressOnTheClipEditorLeavesTheField) {
    clip(0, 440.0, 0.0, 10.0);
    doubleClick(at(5), rowY(0));
    ASSERT_TRUE(recorder.editOpen);
    recorder.editingRangeEnd = true;  // as if the field had been opened first
    down(recorder.editX + 5, recorder.editY + 5);
    EXPECT_TRUE(recorder.editOpen);
    EXPECT_FALSE(isEditingRange(recorder));
}

TEST_F(RecorderRange, OpeningOneFieldClosesTheOther) {
    openStart();
    retype("77");
    openEnd();
    EXPECT_TRUE(recorder.editingRangeEnd);
    EXPECT_FALSE(recorder.editingRangeStart);
    EXPECT_DOUBLE_EQ(recorder.rangeStart, 0.0);
    EXPECT_EQ(recorder.rangeText, "250.0");
}

TEST_F(RecorderRange, OpeningAFieldFirstEndsTheEditingElsewhere) {
    int calls = 0;
    input.onOpenField = [&] {
        ++calls;
        EXPECT_FALSE(isEditingRange(recorder));
        SDL_StopTextInput();  // as the other field does when it closes
    };
    openStart();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(SDL_IsTextInputActive(), SDL_TRUE);
}

TEST_F(RecorderRange, EveryKeyIsKeptWhileTyping) {
    clip(0, 440.0, 1.0, 2.0).selected = true;
    openStart();
    input.mouseX = 600;
    input.mouseY = 500;
    for (const SDL_Keycode code : {SDLK_DELETE, SDLK_SPACE, SDLK_1, SDLK_e, SDLK_f})
        EXPECT_TRUE(key(code));
    EXPECT_TRUE(key(SDLK_v, KMOD_LCTRL));
    EXPECT_EQ(recorder.clipCount, 1);
    EXPECT_FALSE(recorder.playing);
}

TEST_F(RecorderRange, SwitchTurnsTheRangeOnAndOff) {
    click(280, 376);
    EXPECT_TRUE(recorder.rangeEnabled);
    click(331, 393);
    EXPECT_FALSE(recorder.rangeEnabled);
    click(332, 393);
    click(279, 385);
    EXPECT_FALSE(recorder.rangeEnabled);
}

TEST_F(RecorderRange, EndingAClosedFieldLeavesAnothersTextInputAlone) {
    SDL_StartTextInput();
    endRangeEditing(recorder);
    click(600, 500);
    EXPECT_EQ(SDL_IsTextInputActive(), SDL_TRUE);
    SDL_StopTextInput();
}

}  // namespace
}  // namespace veloria
