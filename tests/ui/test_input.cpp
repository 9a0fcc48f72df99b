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

TEST_F(Input, FxSlidersSetTheirValuesByRoundedPlace) {
    app.viewMode = kFxTab;
    frame();
    const auto place = [](double fraction) { return 15 + static_cast<int>(206 * fraction + 0.5); };
    down(place(0.0), 110);
    EXPECT_EQ(engine.fibonacciCount, 0);
    move(place(1.0), 500);  // held: any height will do
    EXPECT_EQ(engine.fibonacciCount, 14);
    move(place(0.5), 110);
    EXPECT_EQ(engine.fibonacciCount, 7);
    move(2000, 110);
    EXPECT_EQ(engine.fibonacciCount, 14);
    up(2000, 110);
    move(place(0.0), 110);
    EXPECT_EQ(engine.fibonacciCount, 14);
    click(place(1.0), 180);
    EXPECT_EQ(engine.piCount, 14);
    click(place(0.34), 250);
    EXPECT_EQ(engine.teslaCount, 1);
    click(place(0.0), 310);
    EXPECT_EQ(engine.octaveSteps, -3);
    click(place(0.5), 310);
    EXPECT_EQ(engine.octaveSteps, 0);
    click(place(1.0), 376);
    EXPECT_EQ(engine.phiSteps, 3);
    click(place(0.25), 460);
    EXPECT_EQ(engine.fibPhase, 25);
    click(place(1.0), 530);
    EXPECT_EQ(engine.teslaPhase, 100);
    click(15 + 103, 585);
    EXPECT_FLOAT_EQ(gains.masterGain, 0.5f);
    click(223, 585);
    EXPECT_FLOAT_EQ(gains.masterGain, 1.0f);
}

TEST_F(Input, FxSlidersTakeNoPressOutsideTheirTabOrPanel) {
    click(100, 110);
    EXPECT_EQ(engine.fibonacciCount, 2);
    app.viewMode = kFxTab;
    app.sizes.leftWidth = 90;
    frame();
    click(100, 110);
    EXPECT_EQ(engine.fibonacciCount, 2);
}

TEST_F(Input, TheSelectorStepsRoundAndAlwaysEndsInSolfeggio) {
    const SDL_Rect box = app.hits.selectorHit;
    ASSERT_FALSE(isEmpty(box));
    retuner->inputPos = 9;
    click(box.x + 60, box.y + 10);  // the middle
    EXPECT_EQ(retuner->mode, kModeSolfeggio);
    EXPECT_EQ(retuner->targetIndex, 8);
    EXPECT_EQ(retuner->inputPos, 0);  // it came from off
    click(box.x + box.w - 5, box.y + 10);
    EXPECT_EQ(retuner->targetIndex, 9);
    for (int i = 0; i < 4; ++i)
        click(box.x + box.w - 5, box.y + 10);
    EXPECT_EQ(retuner->targetIndex, 0);
    click(box.x + 5, box.y + 10);
    EXPECT_EQ(retuner->targetIndex, 12);
    press("FFT Off");
    EXPECT_EQ(retuner->mode, kModeOff);
}

TEST_F(Input, StrengthAndSpeedFollowThePointerWhileHeld) {
    const SDL_Rect strength = app.hits.strengthHit;
    down(strength.x + strength.w / 2, strength.y);
    EXPECT_EQ(retuner->strength, 50);
    move(0, 900);
    EXPECT_EQ(retuner->strength, 0);
    move(1000, 0);
    EXPECT_EQ(retuner->strength, 100);
    up(1000, 0);
    move(0, 0);
    EXPECT_EQ(retuner->strength, 100);
    const SDL_Rect speed = app.hits.speedHit;
    down(speed.x, speed.y + 13);  // the last row that takes it
    EXPECT_EQ(app.walker.stepMs, 30);
    move(speed.x + speed.w, 0);
    EXPECT_EQ(app.walker.stepMs, 1000);
    up(0, 0);
    EXPECT_EQ(retuner->strength, 100);
}

TEST_F(Input, Row242BelongsToTheBassFilterAndNotToTheStrength) {
    const int before = retuner->strength;
    click(50, 242);
    EXPECT_EQ(retuner->strength, before);
    EXPECT_TRUE(engine.bassFilter);
}

TEST_F(Input, GainSlidersMoveTheSynthesisersSides) {
    down(22 + 50, 431);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 0.25f);
    move(22 + 300, 100);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 1.0f);
    up(0, 0);
    down(22, 471);
    EXPECT_FLOAT_EQ(gains.synthGainRight, 0.0f);
    up(0, 0);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 1.0f);
    app.viewMode = kWaveTab;
    frame();
    click(22 + 50, 436);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 1.0f);
}

TEST_F(Input, SplittersChangeTheirPanelWithinItsLimits) {
    const int bottom = app.layout.contentBottom;
    down(640, bottom);
    move(640, bottom - 50);
    EXPECT_EQ(app.sizes.recorderHeight, 390);
    move(640, 0);
    EXPECT_EQ(app.sizes.recorderHeight, 880);
    move(640, 1079);
    EXPECT_EQ(app.sizes.recorderHeight, 150);
    up(640, 1079);
    frame();
    down(400, 100);
    move(300, 100);
    EXPECT_EQ(app.sizes.leftWidth, 300);
    move(-50, 100);
    EXPECT_EQ(app.sizes.leftWidth, 0);
    move(5000, 100);
    EXPECT_EQ(app.sizes.leftWidth, 680);
    up(0, 0);
    move(100, 100);
    EXPECT_EQ(app.sizes.leftWidth, 680);
    frame();
    down(880, 100);
    move(2000, 100);
    EXPECT_EQ(app.sizes.rightX, 1280);
    move(0, 100);
    EXPECT_EQ(app.sizes.rightX, 880);
    up(0, 0);
}

TEST_F(Input, APressedPanelComesToTheFrontAndItsCloseBoxWorksInTheSameClick) {
    panel(kLotusPanel).open = true;
    panel(kPolarPanel).open = true;  // in front of the lotus by default, 60 pixels to its right
    click(110, 200);
    EXPECT_EQ(app.panels.panelStack[0], kLotusPanel);
    click(160 + 360 - 10, 110);  // polar's close box; polar is below the lotus elsewhere, but not here
    EXPECT_FALSE(panel(kPolarPanel).open);
    EXPECT_TRUE(panel(kLotusPanel).open);
}

TEST_F(Input, ACloseBoxUnderAnotherPanelIsNotReached) {
    panel(kLotusPanel).open = true;
    panel(kShadowPanel).open = true;
    panel(kShadowPanel).rect = {400, 90, 300, 300};
    raisePanel(app.panels, kShadowPanel);
    click(450, 110);  // the lotus's close box lies here, beneath
    EXPECT_TRUE(panel(kLotusPanel).open);
    EXPECT_TRUE(panel(kShadowPanel).open);
}

TEST_F(Input, PanelsAreDraggedResizedAndMaximised) {
    panel(kScopePanel).open = true;
    down(300, 60);
    move(350, 160);
    EXPECT_EQ(panel(kScopePanel).rect.x, 100);
    EXPECT_EQ(panel(kScopePanel).rect.y, 150);
    move(-1000, -1000);
    EXPECT_EQ(panel(kScopePanel).rect.x, 0);
    EXPECT_EQ(panel(kScopePanel).rect.y, 0);
    up(-1000, -1000);
    down(595, 215);
    move(5, 5);
    EXPECT_EQ(panel(kScopePanel).rect.w, 200);
    EXPECT_EQ(panel(kScopePanel).rect.h, 150);
    up(5, 5);
    EXPECT_EQ(app.panelResize.resizingPanel, -1);
    click(200 - 32, 10);
    EXPECT_TRUE(panel(kScopePanel).maximised);
    click(1280 - 10, 10);
    EXPECT_FALSE(panel(kScopePanel).open);
    EXPECT_FALSE(panel(kScopePanel).maximised);
}

TEST_F(Input, AnInertBodyLetsClicksThroughOnlyOverTheSidePanels) {
    panel(kScopePanel).open = true;  // x 50 to 650, y 50 to 270: over the left panel and the centre
    engine.sacredOptimizer = false;
    click(100, 110);  // "Sacred Optimizer" lies beneath
    EXPECT_TRUE(engine.sacredOptimizer);
    panel(kScopePanel).rect = {500, 650, 300,
                               200};  // over the recorder's upper edge, inside the centre's width
    frame();
    click(600, app.layout.contentBottom);
    EXPECT_EQ(app.held.splitter, Splitter::None);
    down(600, app.layout.contentBottom);
    EXPECT_EQ(app.held.splitter, Splitter::None);
    up(0, 0);
    panel(kScopePanel).rect = {50, 50, 600, 220};
    panel(kScopePanel).maximised = true;
    engine.sacredOptimizer = false;
    click(100, 110);
    EXPECT_FALSE(engine.sacredOptimizer);
}

TEST_F(Input, RightAndMiddlePressesOverAPanelReachNothingBeneath) {
    panel(kScopePanel).open = true;
    panel(kScopePanel).rect = {900, 100, 300, 200};
    down(1000, 200, SDL_BUTTON_RIGHT);
    EXPECT_FALSE(app.recorder.droneDragging);
    down(1000, 200, SDL_BUTTON_MIDDLE);
    EXPECT_FALSE(app.recorder.panning);
    down(1000, 400, SDL_BUTTON_RIGHT);
    EXPECT_TRUE(app.recorder.droneDragging);
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

TEST_F(Input, ClosingAPanelByItsButtonForgetsThatItWasMaximised) {
    widget("SCOPE").onClick();
    panel(kScopePanel).maximised = true;
    widget("SCOPE").onClick();
    widget("SCOPE").onClick();
    EXPECT_TRUE(panel(kScopePanel).open);
    EXPECT_FALSE(panel(kScopePanel).maximised);
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

TEST_F(Input, HitsEndWhereTheyAreSaidToEnd) {
    const SDL_Rect strength = app.hits.strengthHit;
    click(strength.x - 3, strength.y);
    EXPECT_EQ(retuner->strength, 100);
    click(strength.x - 2, strength.y);
    EXPECT_EQ(retuner->strength, 0);
    click(strength.x + strength.w + 3, strength.y);
    EXPECT_EQ(retuner->strength, 0);
    click(strength.x + strength.w + 2, strength.y);
    EXPECT_EQ(retuner->strength, 100);
    click(223, 436);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 1.0f);
    click(22, 430);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 1.0f);
    click(22, 431);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 0.0f);
    click(222, 436);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 1.0f);
    click(22, 472);
    EXPECT_FLOAT_EQ(gains.synthGainRight, 1.0f);
    const SDL_Rect box = app.hits.selectorHit;
    click(box.x + 18, box.y + 5);
    EXPECT_EQ(retuner->targetIndex, 8);
    click(box.x + 17, box.y + 5);
    EXPECT_EQ(retuner->targetIndex, 7);
    click(box.x + box.w - 18, box.y + 5);
    EXPECT_EQ(retuner->targetIndex, 7);
    click(box.x + box.w - 17, box.y + 5);
    EXPECT_EQ(retuner->targetIndex, 8);
}

TEST_F(Input, AWheelOverAPanelMovesNothingBeneathIt) {
    panel(kScopePanel).open = true;
    panel(kScopePanel).rect = {900, 100, 300, 200};
    wheel(1000, 200, -1);
    EXPECT_EQ(app.avatarScroll, 0);
    wheel(1000, 400, -1);
    EXPECT_EQ(app.avatarScroll, 30);
}

TEST_F(Input, TheCalculatorLiesOverEverything) {
    toggleCalculator(app.calculator);
    app.calculator.calcRect = {900, 100, 340, 378};
    click(1000, 250);
    EXPECT_TRUE(engine.voices.empty());
    wheel(1000, 250, -1);
    EXPECT_EQ(app.avatarScroll, 0);
    app.calculator.calcRect = {300, 120, 340, 378};
    frame();
    click(400, 170);  // its display
    ASSERT_TRUE(app.calculator.calcEditing);
    key(SDLK_1);
    key(SDLK_f);
    key(SDLK_w);
    EXPECT_FALSE(engine.bassFilter);
    EXPECT_EQ(engine.waveform, 0);
    key(SDLK_ESCAPE);
    key(SDLK_f);
    EXPECT_TRUE(engine.bassFilter);
}

TEST_F(Input, AReleaseAnywhereLetsEverythingGo) {
    app.viewMode = kFxTab;
    frame();
    down(100, 110);
    EXPECT_TRUE(app.held.fxSlider[kFxFibonacci]);
    up(-500, 5000);
    EXPECT_FALSE(app.held.fxSlider[kFxFibonacci]);
}

TEST_F(Input, WhatIsNotDrawnIsNotHit) {
    app.sizes.leftWidth = 60;
    frame();
    EXPECT_TRUE(isEmpty(app.hits.strengthHit));
    const int before = retuner->strength;
    click(30, 230);
    EXPECT_EQ(retuner->strength, before);
}

}  // namespace
}  // namespace veloria
