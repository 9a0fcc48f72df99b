// A recorder with its panel where a window of 1280 by 720 has it: at (0, 350), 1280 by 340. The timeline then
// begins at x 130 and is 1140 wide, so that at the default view a second is 38 pixels: second t lies at 130 +
// 38 t. Row r of 34 pixels begins at y 418 + 34 r; the rows end at y 660.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "recorder/clips.h"
#include "recorder/playback.h"
#include "recorder_panel/panel.h"
#include "tests/ui/offscreen.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria::test {

constexpr int kTop = 418;     // first line of the rows
constexpr int kBottom = 660;  // first line of the transport bar

class RecorderPanelTest : public DrawTest {
  protected:
    RecorderPanelTest() : DrawTest(1280, 720) {
        recorder.engine = &engine;
        input.ticks = 10000;
    }
    ~RecorderPanelTest() override { endRangeEditing(recorder); }

    // The middle of a row, and the column of a second, at the default zoom and unscrolled.
    static int rowY(int row) { return kTop + 34 * row + 17; }
    static int at(double seconds) { return 130 + static_cast<int>(38.0 * seconds); }

    RecorderClip& clip(int channel, double hz, double start, double end) {
        RecorderClip made;
        made.id = recorder.nextClipId++;
        made.start = start;
        made.end = end;
        return addClip(recorder, channel, hz, made);
    }

    bool send(const SDL_Event& event) { return handleRecorderEvent(recorder, event, area, input); }
    static SDL_Event buttonEvent(Uint32 type, int x, int y, Uint8 button) {
        SDL_Event event;
        SDL_zero(event);
        event.type = type;
        event.button.button = button;
        event.button.x = x;
        event.button.y = y;
        return event;
    }
    bool down(int x, int y, Uint8 button = SDL_BUTTON_LEFT) {
        return send(buttonEvent(SDL_MOUSEBUTTONDOWN, x, y, button));
    }
    bool up(int x = 0, int y = 0, Uint8 button = SDL_BUTTON_LEFT) {
        return send(buttonEvent(SDL_MOUSEBUTTONUP, x, y, button));
    }
    void click(int x, int y) {
        down(x, y);
        up(x, y);
    }
    void ctrlDown(int x, int y) {
        input.modifiers = KMOD_LCTRL;
        down(x, y);
        input.modifiers = KMOD_NONE;
    }
    // A second press that is `ms` later than the first.
    void doubleClick(int x, int y, std::uint32_t ms = 100) {
        click(x, y);
        input.ticks += ms;
        click(x, y);
        input.ticks += 1000;
    }
    bool move(int x, int y) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        return send(event);
    }
    bool wheel(int x, int y, int notches, SDL_Keymod modifiers = KMOD_NONE) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_MOUSEWHEEL;
        event.wheel.y = notches;
        event.wheel.mouseX = x;
        event.wheel.mouseY = y;
        input.modifiers = modifiers;
        const bool used = send(event);
        input.modifiers = KMOD_NONE;
        return used;
    }
    bool key(SDL_Keycode code, Uint16 modifiers = KMOD_NONE, bool repeat = false) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = code;
        event.key.keysym.mod = modifiers;
        event.key.repeat = repeat ? 1 : 0;
        return send(event);
    }
    bool type(const char* text) {
        SDL_Event event;
        SDL_zero(event);
        event.type = SDL_TEXTINPUT;
        SDL_strlcpy(event.text.text, text, sizeof event.text.text);
        return send(event);
    }

    // The panel as it looks now, on the plain backdrop.
    Picture drawn() {
        screen.clear(kBackdrop);
        drawRecorder(context, recorder, area);
        return picture();
    }
    Picture drawnWithEditor() {
        screen.clear(kBackdrop);
        drawRecorder(context, recorder, area);
        drawRecorderEdit(context, recorder, area);
        return picture();
    }

    // Does `seen` show this text with its upper left corner there, on a plain colour, and nothing else in its
    // box?
    void expectText(const Picture& seen, const std::string& text, int x, int y, TTF_Font* font,
                    SDL_Color color, SDL_Color below) {
        Offscreen sheet(1280, 720);
        sheet.clear(below);
        DrawContext own = context;
        TextCache ownCache;
        own.renderer = sheet.renderer;
        own.textCache = &ownCache;
        DrawText(own, text, x, y, font, color);
        const Picture wanted = sheet.picture();
        clearTextCache(ownCache);
        const SDL_Point size = measureText(font, text);
        int different = 0;
        int lit = 0;
        for (int py = y; py < y + size.y; ++py) {
            for (int px = x; px < x + size.x; ++px) {
                different += isColor(seen.at(px, py), wanted.at(px, py)) ? 0 : 1;
                lit += isColor(wanted.at(px, py), below, 8) ? 0 : 1;
            }
        }
        EXPECT_EQ(different, 0) << text;
        EXPECT_GT(lit, 3) << text << " is not there at all";
    }

    SDL_Rect area{0, 350, 1280, 340};
    SynthEngine engine;
    Recorder recorder;
    RecorderInput input;
};

}  // namespace veloria::test
