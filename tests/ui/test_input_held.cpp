// What the pointer holds: sliders and splitters; and the floating panels, with what lies beneath them.
#include <gtest/gtest.h>

#include "tests/ui/events.h"

namespace veloria {
namespace {

class HeldInput : public test::InputTest {
  protected:
    HeldInput() : test::InputTest(1280, 1080) {}  // high enough to show every control
};

TEST_F(HeldInput, FxSlidersSetTheirValuesByRoundedPlace) {
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

TEST_F(HeldInput, FxSlidersTakeNoPressOutsideTheirTabOrPanel) {
    click(100, 110);
    EXPECT_EQ(engine.fibonacciCount, 2);
    app.viewMode = kFxTab;
    app.sizes.leftWidth = 90;
    frame();
    click(100, 110);
    EXPECT_EQ(engine.fibonacciCount, 2);
}

TEST_F(HeldInput, TheSelectorStepsRoundAndAlwaysEndsInSolfeggio) {
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

TEST_F(HeldInput, StrengthAndSpeedFollowThePointerWhileHeld) {
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

TEST_F(HeldInput, Row242BelongsToTheBassFilterAndNotToTheStrength) {
    const int before = retuner->strength;
    click(50, 242);
    EXPECT_EQ(retuner->strength, before);
    EXPECT_TRUE(engine.bassFilter);
}

TEST_F(HeldInput, GainSlidersMoveTheSynthesisersSides) {
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

TEST_F(HeldInput, SplittersChangeTheirPanelWithinItsLimits) {
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

TEST_F(HeldInput, APressedPanelComesToTheFrontAndItsCloseBoxWorksInTheSameClick) {
    panel(kLotusPanel).open = true;
    panel(kPolarPanel).open = true;  // in front of the lotus by default, 60 pixels to its right
    click(110, 200);
    EXPECT_EQ(app.panels.panelStack[0], kLotusPanel);
    click(160 + 360 - 10, 110);  // polar's close box; polar is below the lotus elsewhere, but not here
    EXPECT_FALSE(panel(kPolarPanel).open);
    EXPECT_TRUE(panel(kLotusPanel).open);
}

TEST_F(HeldInput, ACloseBoxUnderAnotherPanelIsNotReached) {
    panel(kLotusPanel).open = true;
    panel(kShadowPanel).open = true;
    panel(kShadowPanel).rect = {400, 90, 300, 300};
    raisePanel(app.panels, kShadowPanel);
    click(450, 110);  // the lotus's close box lies here, beneath
    EXPECT_TRUE(panel(kLotusPanel).open);
    EXPECT_TRUE(panel(kShadowPanel).open);
}

TEST_F(HeldInput, PanelsAreDraggedResizedAndMaximised) {
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

TEST_F(HeldInput, AnInertBodyLetsClicksThroughOnlyOverTheSidePanels) {
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

TEST_F(HeldInput, RightAndMiddlePressesOverAPanelReachNothingBeneath) {
    panel(kScopePanel).open = true;
    panel(kScopePanel).rect = {900, 100, 300, 200};
    down(1000, 200, SDL_BUTTON_RIGHT);
    EXPECT_FALSE(app.recorder.droneDragging);
    down(1000, 200, SDL_BUTTON_MIDDLE);
    EXPECT_FALSE(app.recorder.panning);
    down(1000, 400, SDL_BUTTON_RIGHT);
    EXPECT_TRUE(app.recorder.droneDragging);
}

TEST_F(HeldInput, ClosingAPanelByItsButtonForgetsThatItWasMaximised) {
    widget("SCOPE").onClick();
    panel(kScopePanel).maximised = true;
    widget("SCOPE").onClick();
    widget("SCOPE").onClick();
    EXPECT_TRUE(panel(kScopePanel).open);
    EXPECT_FALSE(panel(kScopePanel).maximised);
}

TEST_F(HeldInput, HitsEndWhereTheyAreSaidToEnd) {
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

TEST_F(HeldInput, AWheelOverAPanelMovesNothingBeneathIt) {
    panel(kScopePanel).open = true;
    panel(kScopePanel).rect = {900, 100, 300, 200};
    wheel(1000, 200, -1);
    EXPECT_EQ(app.avatarScroll, 0);
    wheel(1000, 400, -1);
    EXPECT_EQ(app.avatarScroll, 30);
}

TEST_F(HeldInput, TheCalculatorLiesOverEverything) {
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

TEST_F(HeldInput, AReleaseAnywhereLetsEverythingGo) {
    app.viewMode = kFxTab;
    frame();
    down(100, 110);
    EXPECT_TRUE(app.held.fxSlider[kFxFibonacci]);
    up(-500, 5000);
    EXPECT_FALSE(app.held.fxSlider[kFxFibonacci]);
}

TEST_F(HeldInput, WhatIsNotDrawnIsNotHit) {
    app.sizes.leftWidth = 60;
    frame();
    EXPECT_TRUE(isEmpty(app.hits.strengthHit));
    const int before = retuner->strength;
    click(30, 230);
    EXPECT_EQ(retuner->strength, before);
}

}  // namespace
}  // namespace veloria
