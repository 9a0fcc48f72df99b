// Scroll bars and transport bar of the recorder's panel.

#include <algorithm>
#include <string>

#include "base/format.h"
#include "recorder/clips.h"
#include "recorder_panel/panel_draw_steps.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

constexpr SDL_Color kRowTrack{20, 20, 32, 200};
constexpr SDL_Color kTimeTrack{20, 20, 32, 180};
constexpr SDL_Color kThumbFill{60, 70, 100, 200};
constexpr SDL_Color kThumbBorder{90, 100, 140, 220};
constexpr SDL_Color kTrackEdge{40, 40, 65, 150};
constexpr SDL_Color kColumnEdge{50, 50, 80, 200};

constexpr SDL_Color kTransportFill{18, 18, 28, 255};
constexpr SDL_Color kTransportTop{40, 40, 65, 200};
constexpr SDL_Color kFootLine{50, 50, 80, 180};
constexpr SDL_Color kClockText{150, 180, 220, 230};
constexpr SDL_Color kZoomText{120, 140, 160, 200};
constexpr SDL_Color kHintText{90, 100, 130, 180};

struct ButtonColors {
    SDL_Color fill;
    SDL_Color border;
    SDL_Color sign;  // the picture or the text on it
};
constexpr ButtonColors kSkip = {{30, 35, 50, 255}, {100, 140, 200, 200}, {160, 200, 255, 240}};
constexpr ButtonColors kPlay = {{30, 50, 30, 255}, {60, 180, 100, 200}, {120, 255, 140, 240}};
constexpr ButtonColors kPause = {{30, 100, 60, 255}, {60, 180, 100, 200}, {200, 220, 200, 240}};
constexpr ButtonColors kExport = {{80, 55, 25, 255}, {200, 140, 60, 200}, {255, 210, 120, 240}};
constexpr ButtonColors kCalc = {{25, 55, 80, 255}, {60, 140, 200, 200}, {120, 210, 255, 240}};

constexpr int kSignHalf = 5;  // half the height of a triangle, and its length

struct StateText {
    const char* text;
    SDL_Color color;
};

StateText stateText(const Recorder& recorder) {
    if (!recorder.playing) return {"STOPPED", {140, 140, 160, 180}};
    if (recorder.paused) return {"PAUSED", {220, 180, 60, 220}};
    return {"PLAYING", {80, 220, 100, 220}};
}

void drawThumb(SDL_Renderer* renderer, const SDL_Rect& thumb) {
    fillRect(renderer, thumb, kThumbFill);
    outlineRect(renderer, thumb, kThumbBorder);
}

void drawScrollBars(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    SDL_Renderer* renderer = context.renderer;
    fillRect(renderer, layout.rowTrack, kRowTrack);
    if (hasRowThumb(layout)) drawThumb(renderer, rowThumb(layout));
    vLine(renderer, layout.rowTrack.x, layout.top, layout.bottom - 1, kTrackEdge);
    fillRect(renderer, layout.timeTrack, kTimeTrack);
    drawThumb(renderer, timeThumb(layout, recorderEnd(recorder)));
    vLine(renderer, layout.left - 1, layout.ruler.y, layout.bottom - 1, kColumnEdge);
}

void drawFace(SDL_Renderer* renderer, const SDL_Rect& rect, const ButtonColors& colors) {
    fillSolid(renderer, rect, colors.fill);
    outlineRect(renderer, rect, colors.border);
}

// Its tip at (tipX, midY), its back 5 columns away: to the left of the tip if it points right.
void drawTriangle(SDL_Renderer* renderer, int tipX, int midY, bool right, SDL_Color color) {
    for (int i = 0; i <= kSignHalf; ++i)
        vLine(renderer, right ? tipX - i : tipX + i, midY - i, midY + i, color);
}

// The bar is at the end that the playhead goes to.
void drawSkip(SDL_Renderer* renderer, const SDL_Rect& rect, bool right) {
    drawFace(renderer, rect, kSkip);
    const int midX = rect.x + rect.w / 2;
    const int midY = rect.y + rect.h / 2;
    drawTriangle(renderer, right ? midX + 3 : midX - 3, midY, right, kSkip.sign);
    fillRect(renderer, {right ? midX + 5 : midX - 6, midY - kSignHalf, 2, 2 * kSignHalf + 1}, kSkip.sign);
}

void drawPlay(SDL_Renderer* renderer, const SDL_Rect& rect, bool sounding) {
    const int midX = rect.x + rect.w / 2;
    const int midY = rect.y + rect.h / 2;
    drawFace(renderer, rect, sounding ? kPause : kPlay);
    if (!sounding) {
        drawTriangle(renderer, midX + 3, midY, true, kPlay.sign);
        return;
    }
    for (const int x : {midX - 5, midX + 2})
        fillRect(renderer, {x, midY - kSignHalf, 3, 2 * kSignHalf + 1}, kPause.sign);
}

void drawCaption(const DrawContext& context, const SDL_Rect& rect, const char* text,
                 const ButtonColors& colors) {
    drawFace(context.renderer, rect, colors);
    DrawTextCentered(context, text, rect, context.fonts->fontLabel, colors.sign);
}

void drawTransport(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    const SDL_Rect& bar = layout.transport;
    fillSolid(context.renderer, bar, kTransportFill);
    hLine(context.renderer, bar.x, bar.x + bar.w - 1, bar.y, kTransportTop);
    drawSkip(context.renderer, layout.rewind, false);
    drawPlay(context.renderer, layout.play, recorder.playing && !recorder.paused);
    drawSkip(context.renderer, layout.toEnd, true);
    drawCaption(context, layout.exportButton, "EXPORT", kExport);
    drawCaption(context, layout.calc, "CALC", kCalc);
}

void drawStatus(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    TTF_Font* font = context.fonts->fontLabel;
    const SDL_Rect& area = layout.area;
    const int y = layout.bottom + 9;
    const ClockTime time = clockTime(recorder.playhead);
    DrawText(context, formatText("%d:%02d.%02d", time.minutes, time.seconds, time.hundredths), area.x + 230,
             y, font, kClockText);
    DrawText(context, formatText("Zoom: %.1fs", recorder.viewSpan), area.x + 330, y, font, kZoomText);
    const StateText state = stateText(recorder);
    DrawText(context, state.text, area.x + 440, y, font, state.color);
    if (!layout.hintShown) return;
    DrawText(context, "Right-click drone -> Drag here | Scroll=Zoom | Del=Remove | DblClick=Edit",
             area.x + area.w - 450, y, font, kHintText);
}

}  // namespace

void drawRecorderFoot(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    drawScrollBars(context, recorder, layout);
    drawTransport(context, recorder, layout);
    drawStatus(context, recorder, layout);
    const SDL_Rect& area = layout.area;
    hLine(context.renderer, area.x, area.x + area.w - 1, area.y + area.h - 1, kFootLine);
}

}  // namespace veloria
