// The recorder's keys.
#include "recorder/clipboard.h"
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

class RecorderKeys : public test::RecorderPanelTest {
  protected:
    RecorderKeys() {
        input.mouseX = 600;
        input.mouseY = 500;
    }
};

TEST_F(RecorderKeys, DeleteRemovesTheSelectedClipsAndTheirVoices) {
    RecorderClip& gone = clip(0, 440.0, 0.0, 100.0);
    RecorderClip& kept = clip(1, 600.0, 0.0, 100.0);
    recorder.playing = true;
    tickRecorder(recorder, 0.05f);
    doubleClick(at(5), rowY(0));
    ASSERT_EQ(recorder.editClip, &gone);
    EXPECT_TRUE(key(SDLK_DELETE));
    EXPECT_EQ(recorder.clipCount, 1);
    EXPECT_FALSE(recorder.editOpen);
    EXPECT_EQ(recorder.editClip, nullptr);
    EXPECT_EQ(recorder.lastClickClip, nullptr);
    EXPECT_TRUE(recorder.activeClips.empty());
    for (const Voice& voice : engine.voices)
        EXPECT_LT(voice.endTime, 1.0);
    EXPECT_EQ(allClips(recorder).front(), &kept);
}

TEST_F(RecorderKeys, DeleteWithNothingSelectedIsNotUsed) {
    clip(0, 440.0, 0.0, 100.0);
    EXPECT_FALSE(key(SDLK_DELETE));
    EXPECT_EQ(recorder.clipCount, 1);
}

TEST_F(RecorderKeys, SpacePlaysWhileTheMouseIsOnThePanel) {
    EXPECT_TRUE(key(SDLK_SPACE));
    EXPECT_TRUE(recorder.playing);
    EXPECT_TRUE(key(SDLK_SPACE));
    EXPECT_TRUE(recorder.paused);
    input.mouseY = 349;
    EXPECT_FALSE(key(SDLK_SPACE));
    EXPECT_TRUE(recorder.paused);
}

TEST_F(RecorderKeys, SpaceHeldDownActsOnce) {
    key(SDLK_SPACE);
    EXPECT_TRUE(key(SDLK_SPACE, KMOD_NONE, true)) << "still the panel's";
    EXPECT_FALSE(recorder.paused);
}

TEST_F(RecorderKeys, CopyAndPasteLayClipsAtThePlayhead) {
    clip(0, 440.0, 5.0, 7.0);
    clip(2, 500.0, 6.0, 9.0);
    EXPECT_TRUE(key(SDLK_a, KMOD_LCTRL));
    EXPECT_TRUE(key(SDLK_c, KMOD_RCTRL));
    EXPECT_EQ(recorder.clipboard.size(), 2u);
    EXPECT_DOUBLE_EQ(recorder.clipboardStart, 5.0);
    recorder.playhead = 20.0;
    EXPECT_TRUE(key(SDLK_v, KMOD_LCTRL));
    EXPECT_EQ(recorder.clipCount, 4);
    const auto pasted = clipsOfChannel(recorder, 2);
    ASSERT_EQ(pasted.size(), 2u);
    EXPECT_DOUBLE_EQ(pasted[1]->start, 21.0);
    EXPECT_DOUBLE_EQ(pasted[1]->end, 24.0);
    EXPECT_FALSE(pasted[1]->selected);
    EXPECT_NE(pasted[0]->id, pasted[1]->id);
}

TEST_F(RecorderKeys, PasteHeldDownActsOnce) {
    clip(0, 440.0, 5.0, 7.0);
    key(SDLK_a, KMOD_LCTRL);
    key(SDLK_c, KMOD_LCTRL);
    EXPECT_TRUE(key(SDLK_v, KMOD_LCTRL));
    EXPECT_TRUE(key(SDLK_v, KMOD_LCTRL, true)) << "still the panel's";
    EXPECT_EQ(recorder.clipCount, 2);
    EXPECT_TRUE(key(SDLK_v, KMOD_LCTRL)) << "pressed anew";
    EXPECT_EQ(recorder.clipCount, 3);
}

TEST_F(RecorderKeys, CtrlWithAltOrTheSystemKeyIsAnotherCombination) {
    const RecorderClip& one = clip(0, 440.0, 5.0, 7.0);
    for (const Uint16 more : {KMOD_LALT, KMOD_RALT, KMOD_LGUI, KMOD_RGUI}) {
        EXPECT_FALSE(key(SDLK_a, static_cast<Uint16>(KMOD_LCTRL | more)));
        EXPECT_FALSE(one.selected);
    }
    EXPECT_TRUE(key(SDLK_a, KMOD_LCTRL | KMOD_NUM | KMOD_CAPS)) << "locks are no keys held";
    for (const Uint16 more : {KMOD_LALT, KMOD_RALT, KMOD_LGUI, KMOD_RGUI}) {
        EXPECT_FALSE(key(SDLK_c, static_cast<Uint16>(KMOD_RCTRL | more)));
        EXPECT_TRUE(recorder.clipboard.empty());
    }
    key(SDLK_c, KMOD_LCTRL);
    EXPECT_FALSE(key(SDLK_v, KMOD_LCTRL | KMOD_LALT));
    EXPECT_EQ(recorder.clipCount, 1);
}

TEST_F(RecorderKeys, SelectAllTakesHiddenChannelsToo) {
    const RecorderClip& hidden = clip(20, 440.0, 5.0, 7.0);
    key(SDLK_a, KMOD_LCTRL);
    EXPECT_TRUE(hidden.selected);
}

TEST_F(RecorderKeys, LettersWithoutCtrlAreNotUsed) {
    clip(0, 440.0, 5.0, 7.0);
    for (const SDL_Keycode code :
         {SDLK_a, SDLK_c, SDLK_v, SDLK_1, SDLK_f, SDLK_RETURN, SDLK_ESCAPE, SDLK_BACKSPACE})
        EXPECT_FALSE(key(code));
    EXPECT_FALSE(key(SDLK_x, KMOD_LCTRL));
    EXPECT_TRUE(recorder.clipboard.empty());
}

TEST_F(RecorderKeys, EscapeClosesTheEditorBeforeTheField) {
    clip(0, 440.0, 0.0, 10.0);
    doubleClick(at(5), rowY(0));
    ASSERT_TRUE(recorder.editOpen);
    recorder.editingRangeEnd = true;
    EXPECT_TRUE(key(SDLK_ESCAPE));
    EXPECT_FALSE(recorder.editOpen);
    EXPECT_TRUE(recorder.editingRangeEnd);
    EXPECT_TRUE(key(SDLK_ESCAPE));
    EXPECT_FALSE(recorder.editingRangeEnd);
}

TEST_F(RecorderKeys, ClearingTheRecorderLeavesNothingToEdit) {
    clip(0, 440.0, 0.0, 10.0);
    doubleClick(at(5), rowY(0));
    clearRecorder(recorder);
    EXPECT_FALSE(key(SDLK_ESCAPE));
    EXPECT_FALSE(move(500, 500));
    drawnWithEditor();
}

}  // namespace
}  // namespace veloria
