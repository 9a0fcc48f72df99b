// Buttons, tabs, rows and keys of the window.
#include <gtest/gtest.h>

#include "platform/fake/fake_platform.h"
#include "tests/ui/events.h"

namespace veloria {
namespace {

using platform::fakePlatform;

class Input : public test::InputTest {
  protected:
    Input() : test::InputTest(1280, 1080) { fakePlatform().reset(); }  // high enough to show every control
    void record() {
        app.onPlay = [this] { called += "play "; };
        app.onStop = [this] { called += "stop "; };
        app.onReset = [this] { called += "reset "; };
        app.onImportMidi = [this] { called += "import "; };
        app.onLoadFile = [this](const std::string& path) { called += "load:" + path + " "; };
    }
    std::string called;
};

TEST_F(Input, BeforeTheFirstLayoutNothingIsTaken) {
    app.sizes.layoutReady = false;
    click(100, 40);
    key(SDLK_w);
    EXPECT_EQ(app.viewMode, kTuningTab);
    EXPECT_EQ(engine.waveform, 0);
}

TEST_F(Input, TheTopBarsButtonsCallWhateverIsInstalledAtTheClick) {
    clickRect(topBarButtonRect(app.layout, kPlayButton));  // nothing installed: nothing happens
    record();
    clickRect(topBarButtonRect(app.layout, kPlayButton));
    clickRect(topBarButtonRect(app.layout, kResetButton));
    EXPECT_EQ(called, "play reset ");
}

TEST_F(Input, StopEndsEveryVoiceThenCallsTheTransport) {
    record();
    widget("528 Reflect").onClick();
    clickRect(topBarButtonRect(app.layout, kStopButton));
    EXPECT_EQ(called, "stop ");
    EXPECT_FALSE(engine.reflectionHeld[28]);
    EXPECT_EQ(engine.voices[0].endTime, 0.02);
}

TEST_F(Input, LoadAsksForAFileAndShowsItsName) {
    record();
    fakePlatform().dialogPaths = {"/music/folder\\My Song.mid"};
    clickRect(topBarButtonRect(app.layout, kLoadButton));
    EXPECT_EQ(called, "load:/music/folder\\My Song.mid ");
    EXPECT_EQ(app.transport.fileLabel, "My Song.mid");
    clickRect(topBarButtonRect(app.layout, kLoadButton));  // cancelled
    EXPECT_EQ(called, "load:/music/folder\\My Song.mid ");
    EXPECT_EQ(app.transport.fileLabel, "My Song.mid");
}

TEST_F(Input, EveryTabOpensByItsCaption) {
    for (int tab = 0; tab < kTabCount; ++tab) {
        clickRect(leftTabRect(app.layout, tab));
        EXPECT_EQ(app.viewMode, tab);
    }
    app.viewMode = 2;
    click(398, 40);  // the rounding remainder of the last tab
    EXPECT_EQ(app.viewMode, 2);
}

TEST_F(Input, AClickOnRow59BelongsToTheTabs) {
    app.viewMode = kVoicesTab;
    app.voicesSubTab = 1;
    click(10, 59);
    EXPECT_EQ(app.viewMode, kTuningTab);
    EXPECT_EQ(app.voicesSubTab, 1);
}

TEST_F(Input, VoicesSubTabsSwitchOnlyInTheirTab) {
    app.viewMode = kVoicesTab;
    click(300, 70);
    EXPECT_EQ(app.voicesSubTab, 1);
    click(100, 70);
    EXPECT_EQ(app.voicesSubTab, 0);
    app.viewMode = kVizTab;
    click(300, 65);
    EXPECT_EQ(app.voicesSubTab, 0);
}

TEST_F(Input, TheTableTabsChooseWhatMidiIsTunedTo) {
    clickRect(tableTabRect(app.layout, 1));
    EXPECT_EQ(app.tableTab, 1);
    EXPECT_EQ(engine.midiTableChoice, 1);
    clickRect(tableTabRect(app.layout, 0));
    EXPECT_EQ(engine.midiTableChoice, 0);
    app.avatarScroll = 50;
    clickRect(avatarSubTabRect(app.layout, 1));
    EXPECT_EQ(app.avatarSubTab, 1);
    EXPECT_EQ(engine.midiTableSetting, 1);
    EXPECT_EQ(app.avatarScroll, 0);
}

TEST_F(Input, TuningButtons) {
    press("Original Midi");
    EXPECT_FALSE(engine.sacredOptimizer);
    EXPECT_TRUE(lit("Original Midi"));
    EXPECT_FALSE(lit("Sacred Optimizer"));
    press("Sacred Optimizer");
    EXPECT_TRUE(engine.sacredOptimizer);
    EXPECT_TRUE(lit("Sacred Optimizer"));
    press("Bass Filter");
    EXPECT_TRUE(engine.bassFilter);
    EXPECT_TRUE(lit("Bass Filter"));
    press("Bass Filter");
    EXPECT_FALSE(engine.bassFilter);
    press("MIDI Normalize");
    EXPECT_TRUE(app.transport.midiNormalize);
    EXPECT_TRUE(lit("MIDI Normalize"));
    record();
    press("Import MIDI");
    EXPECT_EQ(called, "import ");
    EXPECT_FALSE(lit("Import MIDI"));
}

TEST_F(Input, RetunerButtonsClearTheStreamsOnlyWhenLeavingOff) {
    retuner->inputPos = 5;
    press("FFT Full");
    EXPECT_EQ(retuner->mode, kModeFull);
    EXPECT_TRUE(lit("FFT Full"));
    EXPECT_EQ(retuner->inputPos, 0);
    retuner->inputPos = 5;
    press("FFT Peak");
    EXPECT_EQ(retuner->mode, kModePeak);
    EXPECT_TRUE(lit("FFT Peak"));
    EXPECT_EQ(retuner->inputPos, 5);
    press("FFT Off");
    EXPECT_EQ(retuner->mode, kModeOff);
    EXPECT_TRUE(lit("FFT Off"));
    EXPECT_EQ(retuner->inputPos, 5);
}

TEST_F(Input, WaveButtonsAndTheirKeys) {
    const char* names[] = {"Sine", "Saw", "Square", "Triangle"};
    const SDL_Keycode keys[] = {SDLK_q, SDLK_w, SDLK_e, SDLK_r};
    for (int i = 3; i >= 0; --i) {
        press(names[i]);
        EXPECT_EQ(engine.waveform, i);
        EXPECT_TRUE(lit(names[i]));
    }
    for (int i = 0; i < 4; ++i) {
        key(keys[i]);
        EXPECT_EQ(engine.waveform, i);
    }
}

TEST_F(Input, KeysFAnd1ActAndTheOthersDoNot) {
    engine.midiTuningMode = 3;
    for (const SDL_Keycode code : {SDLK_2, SDLK_3, SDLK_4, SDLK_h, SDLK_i})
        key(code);
    EXPECT_EQ(engine.midiTuningMode, 3);
    EXPECT_EQ(engine.waveform, 0);
    EXPECT_EQ(app.viewMode, kTuningTab);
    key(SDLK_1);
    EXPECT_EQ(engine.midiTuningMode, 0);
    key(SDLK_f);
    EXPECT_TRUE(engine.bassFilter);
    key(SDLK_f, true);  // held down: no second turn
    EXPECT_TRUE(engine.bassFilter);
    key(SDLK_f);
    EXPECT_FALSE(engine.bassFilter);
}

TEST_F(Input, AKeyWithCtrlAltOrTheSystemKeyIsAnotherKey) {
    engine.midiTuningMode = 1;
    engine.waveform = 1;
    for (const Uint16 held : {KMOD_LCTRL, KMOD_RCTRL, KMOD_LALT, KMOD_RALT, KMOD_LGUI, KMOD_RGUI}) {
        for (const SDL_Keycode code : {SDLK_1, SDLK_q, SDLK_w, SDLK_e, SDLK_r, SDLK_f})
            key(code, false, held);
        EXPECT_EQ(engine.midiTuningMode, 1) << held;
        EXPECT_EQ(engine.waveform, 1) << held;
        EXPECT_FALSE(engine.bassFilter) << held;
    }
    key(SDLK_e, false, KMOD_LSHIFT | KMOD_CAPS | KMOD_NUM);
    EXPECT_EQ(engine.waveform, 2) << "the others change no letter's meaning";
}

TEST_F(Input, ActivationButtonsAreARadioGroupThatCanBeAllOff) {
    press("Trinity");
    EXPECT_EQ(engine.activationMode, 3);
    EXPECT_TRUE(lit("Trinity"));
    press("Heart");  // goes to Heart, not off
    EXPECT_EQ(engine.activationMode, 2);
    EXPECT_TRUE(lit("Heart"));
    EXPECT_FALSE(lit("Trinity"));
    press("Heart");
    EXPECT_EQ(engine.activationMode, 0);
    press("Fibonacci");
    EXPECT_EQ(engine.activationMode, 4);
    EXPECT_TRUE(engine.voices.empty());  // no file plays: no drones
    app.transport.playing = true;
    press("Trinity");
    EXPECT_EQ(engine.voices.size(), 4u);
}

TEST_F(Input, DnaSpiralStartsAndStopsTheWalk) {
    press("DNA Spiral");
    EXPECT_TRUE(app.walker.running);
    EXPECT_TRUE(lit("DNA Spiral"));
    frame(100200);
    EXPECT_EQ(app.walker.currentCount, 3);
    press("DNA Spiral");
    EXPECT_FALSE(app.walker.running);
}

TEST_F(Input, VizButtonsOpenTheirPanelInFrontAndCloseIt) {
    const std::pair<const char*, int> buttons[] = {{"SACRED", kSacredPanel}, {"HARMONICS", kHarmonicsPanel},
                                                   {"LOTUS", kLotusPanel},   {"POLAR", kPolarPanel},
                                                   {"SCOPE", kScopePanel},   {"KATHARA PANEL", kKatharaPanel},
                                                   {"SHADOW", kShadowPanel}};
    for (const auto& [label, id] : buttons) {
        press(label);
        EXPECT_TRUE(panel(id).open) << label;
        EXPECT_EQ(app.panels.panelStack[0], id) << label;
        EXPECT_TRUE(lit(label)) << label;
        widget(label).onClick();
        EXPECT_FALSE(panel(id).open) << label;
        EXPECT_FALSE(lit(label)) << label;
    }
    press("KATHARA");
    EXPECT_TRUE(app.kathara.researchMode);
    EXPECT_TRUE(lit("KATHARA"));
}

TEST_F(Input, TheTwoSpectrumButtonsShareAPanelInTwoStyles) {
    widget("SPEC 1").onClick();
    EXPECT_TRUE(panel(kSpectrumPanel).open);
    EXPECT_TRUE(lit("SPEC 1"));
    EXPECT_FALSE(lit("SPEC 2"));
    widget("SPEC 2").onClick();
    EXPECT_TRUE(panel(kSpectrumPanel).open);
    EXPECT_EQ(app.spectrumPalette, 1);
    EXPECT_TRUE(lit("SPEC 2"));
    widget("SPEC 2").onClick();
    EXPECT_FALSE(panel(kSpectrumPanel).open);
}

TEST_F(Input, AButtonOutsideItsTabTakesNoClick) {
    app.viewMode = kWaveTab;
    frame();
    clickRect(leftButtonRect(app.layout, "Original Midi"));
    EXPECT_TRUE(engine.sacredOptimizer);
    EXPECT_EQ(engine.waveform, 0);
}

TEST_F(Input, AButtonBelowThePanelsFootTakesNoClick) {
    app.viewMode = kTuningTab;
    app.sizes.recorderHeight = 1080 - 30 - 300;
    frame();
    clickRect(leftButtonRect(app.layout, "DNA Spiral"));
    EXPECT_FALSE(app.walker.running);
}

TEST_F(Input, ARowIsPressedWhereItIsDrawn) {
    const GridLayout grid = rowGrid(app.layout, kAvatarRowsTop, 0);
    const SDL_Rect cell = gridCell(grid, 28);  // 528 stands at index 28
    click(cell.x + 20, cell.y);
    EXPECT_TRUE(engine.reflectionHeld[28]);
    click(cell.x + 20, cell.y - 1);  // the gap between lines
    EXPECT_EQ(engine.voices.size(), 1u);
    app.avatarSubTab = 1;
    app.avatarScroll = 43;
    const SDL_Rect scrolled = gridCell(rowGrid(app.layout, kAvatarRowsTop, 43), 10);
    clickRect(scrolled);
    EXPECT_TRUE(engine.rotationHeld[10]);
    app.tableTab = 1;
    clickRect(gridCell(rowGrid(app.layout, kShadowRowsTop, 0), 14));
    EXPECT_TRUE(engine.shadowHeld[14]);
    const std::size_t before = engine.voices.size();
    clickRect(gridCell(rowGrid(app.layout, kShadowRowsTop, 0), 10));  // 125: an Avatar number, inert
    EXPECT_EQ(engine.voices.size(), before);
}

TEST_F(Input, TheWheelScrollsTheShownFamilyWithinItsLimits) {
    wheel(1000, 200, -1);
    EXPECT_EQ(app.avatarScroll, 30);
    wheel(1000, 200, -1000);
    EXPECT_EQ(app.avatarScroll, maxRowScroll(app.layout, 81));
    wheel(1000, 200, 1000);
    EXPECT_EQ(app.avatarScroll, 0);
    app.tableTab = 1;
    wheel(1000, 68, -2);
    EXPECT_EQ(app.shadowScroll, 60);
    EXPECT_EQ(app.avatarScroll, 0);
    wheel(1000, 67, -1);
    wheel(879, 200, -1);
    wheel(1000, app.layout.contentBottom, -1);
    EXPECT_EQ(app.shadowScroll, 60);
}

TEST_F(Input, AQuitEndsTheLoopOfEventsAtOnce) {
    ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_EVENTS), 0);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    const auto pushKey = [](SDL_Keycode code) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = code;
        SDL_PushEvent(&event);
    };
    pushKey(SDLK_w);
    EXPECT_TRUE(pollEvents(app));
    EXPECT_EQ(engine.waveform, 1);
    SDL_Event quit;
    SDL_zero(quit);
    quit.type = SDL_QUIT;
    SDL_PushEvent(&quit);
    pushKey(SDLK_e);
    EXPECT_FALSE(pollEvents(app));
    EXPECT_EQ(engine.waveform, 1);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    SDL_QuitSubSystem(SDL_INIT_EVENTS);
}

TEST_F(Input, TheSingleModeLightsHeartToo) {
    engine.activationMode = 1;
    EXPECT_TRUE(lit("Heart"));
    widget("Heart").onClick();
    EXPECT_EQ(engine.activationMode, 0);
}

TEST_F(Input, StopLeavesTheWalkerAndTheRecorderRunning) {
    widget("DNA Spiral").onClick();
    app.recorder.playing = true;
    widget("STOP").onClick();
    EXPECT_TRUE(app.walker.running);
    EXPECT_TRUE(app.recorder.playing);
}

}  // namespace
}  // namespace veloria
