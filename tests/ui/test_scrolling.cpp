// The left panel's tabs scroll, and what they hold is pressed where it is seen.
#include <gtest/gtest.h>

#include <vector>

#include "recorder/clips.h"
#include "recorder_panel/panel.h"
#include "tests/ui/events.h"
#include "tests/ui/text_probe.h"

namespace veloria {
namespace {

using test::isFilled;
using test::Picture;

constexpr SDL_Point kWindows[] = {{800, 600}, {1280, 720}, {1366, 768}, {1920, 1080}};

// Seen whole, and clear of the recorder's splitter, which has the last four rows.
bool isWhole(const SDL_Rect& rect, const SDL_Rect& view) {
    return rect.y >= view.y && rect.y + rect.h <= view.y + view.h - 4 && rect.x >= view.x &&
           rect.x + rect.w <= view.x + view.w;
}

class Scrolling : public test::InputTest {
  protected:
    void show(ViewMode tab) {
        app.viewMode = tab;
        frame();
    }
    SDL_Point inPanel() const {
        const SDL_Rect view = leftPanelView(app.layout);
        return {view.x + 20, view.y + view.h / 2};
    }
    void scrollBy(int notches) {
        const SDL_Point at = inPanel();
        wheel(at.x, at.y, -notches);
        frame();
    }
    int scroll() const { return app.layout.leftScroll; }

    // Turns the wheel from the top, a notch at a time, until what `place` gives now is seen whole.
    template <class Place>
    bool bringIntoView(const Place& place) {
        scrollBy(-1000);
        for (int before = -1; before != scroll(); scrollBy(1)) {
            if (isWhole(place(), leftPanelView(app.layout))) return true;
            before = scroll();
            if (before == maxLeftScroll(app)) break;
        }
        return isWhole(place(), leftPanelView(app.layout));
    }
};

TEST_F(Scrolling, EveryButtonOfEveryTabIsReachedAndPressedAtEverySize) {
    int pressed = 0;
    for (Widget& widget : app.widgets) {
        if (widget.group == kLeftPanelGroup) widget.onClick = [&pressed] { ++pressed; };
    }
    for (const SDL_Point& size : kWindows) {
        resize(size.x, size.y);
        for (const Widget& widget : app.widgets) {
            if (widget.group != kLeftPanelGroup) continue;
            show(static_cast<ViewMode>(tabOfButton(widget.label)));
            const auto place = [&] { return leftButtonRect(app.layout, widget.label.c_str()); };
            ASSERT_TRUE(bringIntoView(place)) << widget.label << " at " << size.x;
            const int before = pressed;
            clickRect(place());
            EXPECT_EQ(pressed, before + 1) << widget.label << " at " << size.x;
        }
    }
}

TEST_F(Scrolling, EverySliderOfFxIsReachedAndMovedAtEverySize) {
    for (const SDL_Point& size : kWindows) {
        resize(size.x, size.y);
        show(kFxTab);
        for (int slider = 0; slider < kFxSliderCount; ++slider) {
            const auto band = [&] {
                const FxRow& row = kFxRows[static_cast<std::size_t>(slider)];
                SDL_Rect rect = fxSliderRect(app.layout, slider);
                rect.y = leftPanelY(app.layout, row.hitTop);
                rect.h = row.hitBottom + 1 - row.hitTop;
                return rect;
            };
            ASSERT_TRUE(bringIntoView(band)) << slider << " at " << size.x;
            const SDL_Rect rect = fxSliderRect(app.layout, slider);
            down(rect.x + rect.w, rect.y + rect.h / 2);
            EXPECT_TRUE(app.held.fxSlider[static_cast<std::size_t>(slider)]) << slider << " at " << size.x;
            up(rect.x, rect.y);
        }
        EXPECT_FLOAT_EQ(gains.masterGain, 1.0f);
        EXPECT_EQ(engine.teslaPhase, 100);
        gains.masterGain = 0.5f;
        engine.teslaPhase = 0;
    }
}

TEST_F(Scrolling, TheControlsOfTuningAreReachedAndMovedAtEverySize) {
    for (const SDL_Point& size : kWindows) {
        resize(size.x, size.y);
        show(kTuningTab);
        gains.synthGainLeft = gains.synthGainRight = 1.0f;
        retuner->strength = 100;
        retuner->mode = kModeOff;
        app.walker.stepMs = kMaxStepMs;
        SDL_Rect HitRects::*const hits[] = {&HitRects::selectorHit, &HitRects::strengthHit,
                                            &HitRects::speedHit, &HitRects::synthGainHitLeft,
                                            &HitRects::synthGainHitRight};
        for (const auto hit : hits) {
            ASSERT_TRUE(bringIntoView([&] { return app.hits.*hit; })) << size.x;
            const SDL_Rect rect = app.hits.*hit;
            click(rect.x, rect.y + rect.h / 2);
        }
        EXPECT_EQ(retuner->mode, kModeSolfeggio) << size.x;
        EXPECT_EQ(retuner->strength, 0) << size.x;
        EXPECT_EQ(app.walker.stepMs, kMinStepMs) << size.x;
        EXPECT_FLOAT_EQ(gains.synthGainLeft, 0.0f) << size.x;
        EXPECT_FLOAT_EQ(gains.synthGainRight, 0.0f) << size.x;
    }
}

TEST_F(Scrolling, TheFootOfEachTabIsSeenAtTheEnd) {
    for (const SDL_Point& size : kWindows) {
        resize(size.x, size.y);
        retuner->mode = kModeSolfeggio;
        const struct {
            ViewMode tab;
            int end;  // of its last line or control
        } tabs[] = {
            {kTuningTab, 533 + 12}, {kWaveTab, 208}, {kFxTab, 601}, {kVizTab, 384}, {kSysTab, 322 + 12}};
        for (const auto& tab : tabs) {
            show(tab.tab);
            scrollBy(1000);
            const int bottom = app.layout.contentBottom;
            EXPECT_LT(leftPanelY(app.layout, tab.end), bottom - 4) << tab.tab << " at " << size.x;
            EXPECT_GE(leftPanelY(app.layout, tab.end), std::min(bottom - 14, tab.end)) << tab.tab;
        }
    }
}

TEST_F(Scrolling, ThirtyPixelsANotchFromTheTopToTheEnd) {
    show(kFxTab);
    const int farthest = 601 + 10 - 350;
    EXPECT_EQ(scroll(), 0);
    scrollBy(1);
    EXPECT_EQ(scroll(), 30);
    scrollBy(-1);
    EXPECT_EQ(scroll(), 0);
    scrollBy(-5);
    EXPECT_EQ(scroll(), 0);
    scrollBy(100);
    EXPECT_EQ(scroll(), farthest);
}

TEST_F(Scrolling, ATabThatFitsDoesNotScroll) {
    show(kWaveTab);
    scrollBy(3);
    EXPECT_EQ(scroll(), 0);
}

TEST_F(Scrolling, EachTabKeepsItsOwnPlace) {
    show(kFxTab);
    scrollBy(4);
    show(kTuningTab);
    EXPECT_EQ(scroll(), 0);
    scrollBy(2);
    click(leftTabRect(app.layout, kFxTab).x + 10, 40);
    EXPECT_EQ(scroll(), 120);  // at once, before the next frame
    frame();
    EXPECT_EQ(scroll(), 120);
    show(kTuningTab);
    EXPECT_EQ(scroll(), 60);
}

TEST_F(Scrolling, MoreRoomBringsTheContentBackDown) {
    show(kFxTab);
    scrollBy(1000);
    ASSERT_EQ(scroll(), 261);
    resize(1280, 920);  // the recorder from 550
    frame();
    EXPECT_EQ(scroll(), 61);
    EXPECT_EQ(app.leftScroll[kFxTab], 61);
    down(640, 550);
    move(640, 700);  // the recorder goes down to 150
    up(640, 700);
    frame();
    EXPECT_EQ(scroll(), 0);
    resize(1280, 720);
    frame();
    EXPECT_EQ(scroll(), 0);
}

TEST_F(Scrolling, TheWheelIsTakenOverTheContentOnly) {
    show(kFxTab);
    const int bottom = app.layout.contentBottom;
    wheel(20, 59, -1);
    wheel(20, bottom, -1);
    wheel(401, 200, -1);
    wheel(1000, 200, -1);
    frame();
    EXPECT_EQ(scroll(), 0);
    wheel(20, 60, -1);
    wheel(399, bottom - 1, -1);
    frame();
    EXPECT_EQ(scroll(), 60);
}

TEST_F(Scrolling, AFloatingWindowOverThePanelHasTheWheel) {
    show(kFxTab);
    panel(kScopePanel).open = true;
    panel(kScopePanel).rect = {0, 80, 300, 200};
    wheel(20, 150, -1);
    frame();
    EXPECT_EQ(scroll(), 0);
    wheel(350, 150, -1);
    frame();
    EXPECT_EQ(scroll(), 30);
    panel(kScopePanel).open = false;
    toggleCalculator(app.calculator);
    app.calculator.calcRect = {0, 80, 340, 378};
    wheel(20, 150, -1);
    frame();
    EXPECT_EQ(scroll(), 30);
}

TEST_F(Scrolling, ThePanelTakesNoWheelUnderTheClipEditor) {
    app.sizes.recorderHeight = 150;
    show(kFxTab);
    RecorderClip clip;
    clip.end = 3.0;
    app.recorder.editClip = &addClip(app.recorder, 0, 440.0, clip);
    app.recorder.editOpen = true;
    app.recorder.editChannel = 0;
    app.recorder.editX = 20;
    frame();
    const SDL_Point over{60, app.layout.contentBottom - 20};
    ASSERT_TRUE(recorderEditContains(app.recorder, app.layout.recorder, over.x, over.y));
    wheel(over.x, over.y, -1);
    frame();
    EXPECT_EQ(scroll(), 0);
}

TEST_F(Scrolling, WhatIsScrolledOutTakesNoPress) {
    show(kTuningTab);
    scrollBy(2);  // "Original Midi" now from 8 to 36, "Sacred Optimizer" from 42 to 70
    engine.sacredOptimizer = true;
    click(100, 20);
    EXPECT_TRUE(engine.sacredOptimizer);
    engine.sacredOptimizer = false;
    click(100, 60);  // under the line that closes the tabs
    EXPECT_FALSE(engine.sacredOptimizer);
    show(kTuningTab);
    engine.sacredOptimizer = false;
    click(100, 55);
    EXPECT_FALSE(engine.sacredOptimizer);
    show(kTuningTab);
    click(100, 65);  // what is left of it
    EXPECT_TRUE(engine.sacredOptimizer);
}

TEST_F(Scrolling, ASliderTakesPressesOnlyWhereItsRowsAreSeen) {
    show(kFxTab);
    scrollBy(2);  // the first slider's band now from 44 to 70
    const int before = engine.fibonacciCount;
    down(221, 60);
    EXPECT_FALSE(app.held.fxSlider[kFxFibonacci]);
    up(221, 60);
    EXPECT_EQ(engine.fibonacciCount, before);
    show(kFxTab);
    click(221, 61);
    EXPECT_EQ(engine.fibonacciCount, 14);
    // A held slider goes on wherever the pointer is.
    down(221, 61);
    move(15, 10);
    EXPECT_EQ(engine.fibonacciCount, 0);
}

TEST_F(Scrolling, TheGainsTakeNoPressOverTheRecorder) {
    show(kTuningTab);
    scrollBy(3);  // the left gain's track now from 344 to 350, where the recorder begins
    ASSERT_EQ(app.hits.synthGainHitLeft.y, 344);
    down(22, 356);  // within the slider's reach, below the panel and the splitter's band
    EXPECT_FALSE(app.held.synthGainLeft);
    EXPECT_FLOAT_EQ(gains.synthGainLeft, 1.0f);
}

TEST_F(Scrolling, NothingIsDrawnOverTheNeighbours) {
    retuner->mode = kModePeak;
    for (const ViewMode tab : {kTuningTab, kFxTab, kVoicesTab, kVizTab, kSysTab}) {
        app.voicesSubTab = 1;
        for (int i = 0; tab == kVoicesTab && i < 30; ++i)
            addVoice(200.0 + 10 * i, 0.0f);
        show(tab);
        ASSERT_EQ(scroll(), 0);
        const Picture top = picture();
        for (const int notches : {1, 1, 1, 100}) {
            scrollBy(notches);
            const Picture seen = picture();
            const int bottom = app.layout.contentBottom;
            int inside = 0;
            for (int y = 0; y < seen.h; ++y) {
                for (int x = 0; x <= 400; ++x) {
                    const bool same = seen.at(x, y) == top.at(x, y);
                    const bool within = y > 60 && y < bottom && x < 400;
                    // The sub-tabs reach into the strip of the tabs while they are in their place.
                    if (tab == kVoicesTab && (y == 59 || y == 60)) continue;
                    if (within) {
                        inside += same ? 0 : 1;
                    } else {
                        ASSERT_TRUE(same) << tab << ": " << x << ", " << y;
                    }
                }
            }
            EXPECT_TRUE(inside > 0 || maxLeftScroll(app) == 0) << tab;
        }
    }
}

TEST_F(Scrolling, ContentMovesWholeByTheOffset) {
    show(kFxTab);
    const Picture top = picture();
    scrollBy(2);
    const Picture seen = picture();
    for (int y = 61; y < 340 - 60; ++y) {
        for (int x = 0; x < 396; ++x)
            ASSERT_EQ(seen.at(x, y), top.at(x, y + 60)) << x << ", " << y;
    }
}

TEST_F(Scrolling, TheListOfVoicesScrollsAsFarAsItHasRows) {
    resize(800, 600);
    show(kVoicesTab);
    scrollBy(100);
    EXPECT_EQ(scroll(), 0);
    for (int channel = 0; channel < 7; ++channel)
        addVoice(200.0, 0.0f, channel);
    scrollBy(100);
    EXPECT_EQ(scroll(), 84 + 56 + 7 * 22 + 10 - 230);
    for (int channel = 7; channel < 12; ++channel)
        addVoice(200.0, 0.0f, channel);
    scrollBy(100);
    EXPECT_EQ(scroll(), 84 + 56 + 8 * 22 + 10 - 230);  // the list ends with its eighth row
}

TEST_F(Scrolling, TheSubTabsOfVoicesScrollWithTheirTab) {
    for (int i = 0; i < 40; ++i)
        addVoice(200.0 + 10 * i, 0.0f);
    show(kVoicesTab);
    app.voicesSubTab = 1;
    frame();
    scrollBy(1);
    click(50, 60);
    EXPECT_EQ(app.voicesSubTab, 1);
    wheel(50, 100, 1);
    frame();
    click(50, 70);
    EXPECT_EQ(app.voicesSubTab, 0);
}

// The bar is 350 - 61 = 289 high and FX 261 longer than the panel: a thumb of 289 * 289 / 550 = 151.
TEST_F(Scrolling, ABarShowsTheSeenPart) {
    const auto over = [](SDL_Color color, SDL_Color below) { return test::over(color, below); };
    const SDL_Color track = over({38, 38, 38, 180}, {64, 64, 64, 255});
    const SDL_Color thumb = over({200, 100, 60, 215}, track);
    show(kFxTab);
    EXPECT_TRUE(isFilled(picture(), {396, 61, 4, 151}, thumb));
    EXPECT_TRUE(isFilled(picture(), {396, 212, 4, 138}, track));
    EXPECT_EQ(at(395, 100), (SDL_Color{64, 64, 64, 255}));
    scrollBy(1000);
    EXPECT_TRUE(isFilled(picture(), {396, 61, 4, 138}, track));
    EXPECT_TRUE(isFilled(picture(), {396, 199, 4, 151}, thumb));
    show(kWaveTab);
    EXPECT_TRUE(isFilled(picture(), {396, 61, 4, 280}, {64, 64, 64, 255}));
}

TEST_F(Scrolling, APanelTooNarrowToBeSeenDoesNotScroll) {
    show(kFxTab);
    app.sizes.leftWidth = 10;
    frame();
    wheel(5, 200, -1);
    frame();
    EXPECT_EQ(scroll(), 0);
}

}  // namespace
}  // namespace veloria
