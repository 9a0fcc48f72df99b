// Scroll bars and transport bar as they look.
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

using test::isColor;
using test::kBottom;
using test::kTop;
using test::over;
using test::Picture;

constexpr SDL_Color kBackground{12, 12, 18, 255};
constexpr SDL_Color kBar{18, 18, 28, 255};
constexpr SDL_Color kThumb{60, 70, 100, 200};
constexpr SDL_Color kThumbBorder{90, 100, 140, 220};

class RecorderFoot : public test::RecorderPanelTest {};

TEST_F(RecorderFoot, VerticalBarHasAThumbOnlyIfRowsAreHidden) {
    const SDL_Color track = over({20, 20, 32, 200}, kBackground);
    Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(1275, 600), track));
    EXPECT_TRUE(isColor(seen.at(1275, kTop + 100), track));
    EXPECT_TRUE(isColor(seen.at(1270, 600), over({40, 40, 65, 150}, track)));
    recorder.channelCount = 32;
    recorder.scrollY = 544;  // thumb from 418 + 121, 53 high
    seen = drawn();
    const SDL_Color thumb = over(kThumb, track);
    EXPECT_TRUE(isColor(seen.at(1275, 538), track));
    EXPECT_TRUE(isColor(seen.at(1275, 539), over(kThumbBorder, thumb)));
    EXPECT_TRUE(isColor(seen.at(1275, 560), thumb));
    EXPECT_TRUE(isColor(seen.at(1271, 560), over(kThumbBorder, thumb)));
    EXPECT_TRUE(isColor(seen.at(1278, 560), over(kThumbBorder, thumb)));
    EXPECT_TRUE(isColor(seen.at(1279, 560), track));
    EXPECT_TRUE(isColor(seen.at(1275, 591), over(kThumbBorder, thumb)));
    EXPECT_TRUE(isColor(seen.at(1275, 592), track));
}

TEST_F(RecorderFoot, HorizontalThumbShowsThePartOfTheArrangement) {
    clip(0, 440.0, 0.0, 60.0);
    recorder.viewStart = 15.0;  // the thumb from 130 + 285, 570 wide
    const Picture seen = drawn();
    const SDL_Color track = over({20, 20, 32, 180}, kBackground);
    const SDL_Color thumb = over(kThumb, track);
    EXPECT_TRUE(isColor(seen.at(403, 655), track));
    EXPECT_TRUE(isColor(seen.at(415, 655), over(kThumbBorder, thumb)));
    EXPECT_TRUE(isColor(seen.at(700, 655), thumb));
    EXPECT_TRUE(isColor(seen.at(984, 655), over(kThumbBorder, thumb)));
    EXPECT_TRUE(isColor(seen.at(986, 655), track));
    EXPECT_TRUE(isColor(seen.at(710, 659), kBackground)) << "7 high";
    EXPECT_TRUE(isColor(seen.at(710, 650), kBackground));
}

TEST_F(RecorderFoot, TransportButtonsStandInTheirColours) {
    const Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(600, 688), kBar));
    EXPECT_TRUE(isColor(seen.at(600, kBottom), over({40, 40, 65, 200}, kBar)));
    const SDL_Color skip{30, 35, 50, 255};
    for (const int x : {8, 92}) {
        EXPECT_TRUE(isColor(seen.at(x, 664), over({100, 140, 200, 200}, skip)));
        EXPECT_TRUE(isColor(seen.at(x + 2, 666), skip));
        EXPECT_TRUE(isColor(seen.at(x + 27, 685), over({100, 140, 200, 200}, skip)));
        EXPECT_TRUE(isColor(seen.at(x + 14, 675), over({160, 200, 255, 240}, skip))) << "the triangle";
    }
    EXPECT_TRUE(isColor(seen.at(16, 671), over({160, 200, 255, 240}, skip))) << "bar left of the triangle";
    EXPECT_TRUE(isColor(seen.at(111, 671), over({160, 200, 255, 240}, skip))) << "bar right of the triangle";
    const SDL_Color gold{80, 55, 25, 255};
    EXPECT_TRUE(isColor(seen.at(127, 667), gold));
    EXPECT_TRUE(isColor(seen.at(124, 664), over({200, 140, 60, 200}, gold)));
    EXPECT_TRUE(isColor(seen.at(183, 685), over({200, 140, 60, 200}, gold)));
    EXPECT_TRUE(isColor(seen.at(190, 667), {25, 55, 80, 255}));
    EXPECT_TRUE(isColor(seen.at(188, 664), over({60, 140, 200, 200}, {25, 55, 80, 255})));
    EXPECT_TRUE(isColor(seen.at(225, 664), over({60, 140, 200, 200}, {25, 55, 80, 255})));
}

TEST_F(RecorderFoot, CaptionsStandInTheMiddleOfTheirButtons) {
    const Picture seen = drawn();
    const auto centred = [&](const char* text, const SDL_Rect& box, SDL_Color color, SDL_Color below) {
        const SDL_Point size = measureText(fonts.fontLabel, text);
        expectText(seen, text, box.x + (box.w - size.x) / 2, box.y + (box.h - size.y) / 2, fonts.fontLabel,
                   color, below);
    };
    centred("EXPORT", {124, 664, 60, 22}, {255, 210, 120, 240}, {80, 55, 25, 255});
    centred("CALC", {188, 664, 38, 22}, {120, 210, 255, 240}, {25, 55, 80, 255});
}

TEST_F(RecorderFoot, PlayButtonShowsWhatItWillDo) {
    const SDL_Color idle{30, 50, 30, 255};
    const SDL_Color running{30, 100, 60, 255};
    Picture seen = drawn();
    EXPECT_TRUE(isColor(seen.at(40, 667), idle));
    EXPECT_TRUE(isColor(seen.at(38, 664), over({60, 180, 100, 200}, idle)));
    EXPECT_TRUE(isColor(seen.at(63, 675), over({120, 255, 140, 240}, idle))) << "a triangle";
    EXPECT_TRUE(isColor(seen.at(66, 675), over({120, 255, 140, 240}, idle)));
    EXPECT_TRUE(isColor(seen.at(66, 672), idle)) << "pointing right";
    recorder.playing = true;
    seen = drawn();
    EXPECT_TRUE(isColor(seen.at(40, 667), running));
    EXPECT_TRUE(isColor(seen.at(59, 671), over({200, 220, 200, 240}, running))) << "two bars";
    EXPECT_TRUE(isColor(seen.at(63, 675), running));
    EXPECT_TRUE(isColor(seen.at(66, 671), over({200, 220, 200, 240}, running)));
    recorder.paused = true;
    EXPECT_TRUE(isColor(drawn().at(40, 667), idle));
}

TEST_F(RecorderFoot, StateTimeAndZoomStandBehindTheButtons) {
    recorder.playhead = 125.5;
    Picture seen = drawn();
    expectText(seen, "2:05.50", 230, 669, fonts.fontLabel, {150, 180, 220, 230}, kBar);
    expectText(seen, "Zoom: 30.0s", 330, 669, fonts.fontLabel, {120, 140, 160, 200}, kBar);
    expectText(seen, "STOPPED", 440, 669, fonts.fontLabel, {140, 140, 160, 180}, kBar);
    expectText(seen, "Right-click drone -> Drag here | Scroll=Zoom | Del=Remove | DblClick=Edit", 830, 669,
               fonts.fontLabel, {90, 100, 130, 180}, kBar);
    recorder.playing = true;
    expectText(drawn(), "PLAYING", 440, 669, fonts.fontLabel, {80, 220, 100, 220}, kBar);
    recorder.paused = true;
    expectText(drawn(), "PAUSED", 440, 669, fonts.fontLabel, {220, 180, 60, 220}, kBar);
}

TEST_F(RecorderFoot, NarrowPanelLeavesTheHintOut) {
    area.w = 969;  // the hint would begin at 519
    Picture seen = drawn();
    for (int x = 522; x < 969; ++x) {
        for (int y = 664; y < 688; ++y)
            ASSERT_TRUE(isColor(seen.at(x, y), kBar)) << x;
    }
}

TEST_F(RecorderFoot, LastLineClosesThePanel) {
    EXPECT_TRUE(isColor(drawn().at(640, 689), over({50, 50, 80, 180}, kBar)));
}

TEST_F(RecorderFoot, TinyAndEmptyPanelsDraw) {
    for (const SDL_Rect& odd : {SDL_Rect{0, 0, 0, 0}, SDL_Rect{0, 0, 100, 50}, SDL_Rect{0, 600, 140, 98},
                                SDL_Rect{0, 0, 139, 340}, SDL_Rect{-50, -50, 1280, 150}}) {
        area = odd;
        recorder.channelCount = 32;
        recorder.editOpen = true;
        recorder.editClip = &clip(0, 440.0, 0.0, 100.0);
        recorder.rangeEnabled = true;
        drawnWithEditor();
        recorder.editOpen = false;
        recorder.editClip = nullptr;
        for (const Uint32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP})
            send(buttonEvent(type, odd.x + 20, odd.y + 20, SDL_BUTTON_LEFT));
        wheel(odd.x + 20, odd.y + 20, 1);
    }
    EXPECT_GT(recorder.viewSpan, 0.0);
}

}  // namespace
}  // namespace veloria
