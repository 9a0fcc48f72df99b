// The upper part of the recorder's panel: title bar, band, ruler and grid.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/fixed_text.h"
#include "base/format.h"
#include "recorder_panel/panel.h"
#include "recorder_panel/panel_draw_steps.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

constexpr SDL_Color kBackground{12, 12, 18, 255};
constexpr SDL_Color kTopEdge{60, 60, 100, 220};

constexpr SDL_Color kTitleFill{20, 20, 32, 255};
constexpr SDL_Color kTitleBar{80, 140, 255, 200};
constexpr SDL_Color kTitleText{180, 200, 255, 255};
constexpr SDL_Color kClipCountText{120, 140, 180, 200};
constexpr SDL_Color kMinusFill{50, 25, 25, 220};
constexpr SDL_Color kMinusBorder{180, 80, 80, 200};
constexpr SDL_Color kPlusFill{25, 50, 25, 220};
constexpr SDL_Color kPlusBorder{80, 180, 80, 200};
constexpr SDL_Color kChannelCountText{140, 160, 200, 200};

constexpr SDL_Color kBandTop{40, 40, 65, 255};
constexpr SDL_Color kBandFill{16, 16, 26, 255};
constexpr SDL_Color kBandFoot{36, 36, 56, 200};
constexpr SDL_Color kBoxFill{10, 10, 18, 255};
constexpr SDL_Color kBoxBorder{50, 50, 80, 200};
constexpr SDL_Color kBoxEdited{100, 220, 255, 255};
constexpr SDL_Color kBoxText{160, 180, 220, 240};
constexpr SDL_Color kSwitchOn{40, 80, 180, 220};
constexpr SDL_Color kSwitchOff{30, 30, 45, 255};
constexpr SDL_Color kSwitchBorder{60, 130, 255, 160};

constexpr SDL_Color kRulerFill{18, 18, 28, 255};
constexpr SDL_Color kRulerColumnFill{16, 16, 24, 255};
constexpr SDL_Color kMajorLine{40, 40, 60, 180};
constexpr SDL_Color kMinorLine{28, 28, 42, 120};
constexpr SDL_Color kTick{80, 80, 120, 200};
constexpr SDL_Color kMarkText{110, 120, 160, 200};
constexpr int kTickHeight = 6;

constexpr SDL_Color kRangeRuler{40, 80, 180, 35};
constexpr SDL_Color kRangeRows{40, 80, 180, 25};
constexpr SDL_Color kRangeEdge{60, 130, 255, 160};

void drawTitle(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    const SDL_Rect& bar = layout.titleBar;
    fillSolid(context.renderer, bar, kTitleFill);
    fillRect(context.renderer, {bar.x, bar.y, 4, bar.h}, kTitleBar);
    DrawText(context, "MIDI RECORDER", bar.x + 12, bar.y + 5, context.fonts->fontRow, kTitleText);
    DrawText(context, formatText("%d clips", recorder.clipCount), bar.x + 180, bar.y + 8,
             context.fonts->fontLabel, kClipCountText);
}

void drawChannelCount(const DrawContext& context, const RecorderLayout& layout) {
    constexpr int kInset = 5;  // of the strokes from the box's edge
    constexpr int kMiddle = 9;
    const SDL_Rect& minus = layout.minus;
    fillRect(context.renderer, minus, kMinusFill);
    outlineRect(context.renderer, minus, kMinusBorder);
    hLine(context.renderer, minus.x + kInset, minus.x + minus.w - kInset, minus.y + kMiddle, kMinusBorder);
    const SDL_Rect& plus = layout.plus;
    fillRect(context.renderer, plus, kPlusFill);
    outlineRect(context.renderer, plus, kPlusBorder);
    hLine(context.renderer, plus.x + kInset, plus.x + plus.w - kInset, plus.y + kMiddle, kPlusBorder);
    vLine(context.renderer, plus.x + kMiddle, plus.y + kInset, plus.y + plus.h - kInset, kPlusBorder);
    DrawText(context, formatText("CH:%d", layout.channelCount), plus.x + 24, layout.area.y + 8,
             context.fonts->fontLabel, kChannelCountText);
}

// A box of the band with its text. Of a text too long for it the end is seen, where the typing goes on.
void drawBandBox(const DrawContext& context, const SDL_Rect& box, std::string_view text, SDL_Color border) {
    constexpr int kInsetX = 3;
    constexpr int kInsetY = 2;
    TTF_Font* font = context.fonts->fontLabel;
    fillSolid(context.renderer, box, kBoxFill);
    outlineRect(context.renderer, box, border);
    const ClipGuard clipped(context.renderer, {box.x + 1, box.y + 1, box.w - 2, box.h - 2});
    constexpr std::size_t kMostShown = 32;  // characters; more never fit
    if (text.size() > kMostShown) text.remove_prefix(text.size() - kMostShown);
    const int room = box.w - 2 * kInsetX;
    const int overhang = std::max(0, measureText(font, text).x - room);
    DrawText(context, text, box.x + kInsetX - overhang, box.y + kInsetY, font, kBoxText);
}

void drawRangeBox(const DrawContext& context, const SDL_Rect& box, const Recorder& recorder, bool editing,
                  double value) {
    drawBandBox(context, box, editing ? recorder.rangeText + "_" : fixedText(value, 1),
                editing ? kBoxEdited : kBoxBorder);
}

void drawBand(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    const SDL_Rect& band = layout.band;
    const int right = band.x + band.w - 1;
    TTF_Font* font = context.fonts->fontLabel;
    hLine(context.renderer, band.x, right, band.y, kBandTop);
    fillSolid(context.renderer, band, kBandFill);
    hLine(context.renderer, band.x, right, band.y + band.h - 1, kBandFoot);
    const ClockTime time = clockTime(recorder.playhead);
    drawBandBox(context, layout.playheadBox,
                formatText("%02d:%02d.%02d", time.minutes, time.seconds, time.hundredths), kBoxBorder);
    DrawText(context, "From", band.x + 104, layout.area.y + 29, font, kBoxText);
    drawRangeBox(context, layout.rangeStartBox, recorder, recorder.editingRangeStart, recorder.rangeStart);
    DrawText(context, "To", band.x + 201, layout.area.y + 29, font, kBoxText);
    drawRangeBox(context, layout.rangeEndBox, recorder, recorder.editingRangeEnd, recorder.rangeEnd);
    fillRect(context.renderer, layout.rangeSwitch, recorder.rangeEnabled ? kSwitchOn : kSwitchOff);
    outlineRect(context.renderer, layout.rangeSwitch, kSwitchBorder);
    DrawTextCentered(context, "RANGE", layout.rangeSwitch, font, kBoxText);
}

void drawMarkLabel(const DrawContext& context, const RecorderLayout& layout, double seconds, double step,
                   int px) {
    const ClockTime time = clockTime(seconds);
    const std::string text = step >= 1.0
                                 ? formatText("%d:%02d", time.minutes, time.seconds)
                                 : formatText("%d:%02d.%02d", time.minutes, time.seconds, time.hundredths);
    DrawText(context, text, px + 2, layout.area.y + 49, context.fonts->fontLabel, kMarkText);
}

void drawGrid(const DrawContext& context, const RecorderLayout& layout) {
    constexpr double kFarthestMark = 1e12;  // s; beyond it the marks could not be counted
    if (!(layout.viewStart < kFarthestMark)) return;
    const double step = gridStep(layout.viewSpan);
    const double viewEnd = layout.viewStart + layout.viewSpan;
    // Counted, since a sum of steps drifts.
    const auto first = static_cast<std::int64_t>(std::floor(layout.viewStart / step));
    const ClipGuard clipped(context.renderer, layout.marks);
    for (std::int64_t i = first; static_cast<double>(i) * step <= viewEnd; ++i) {
        const double seconds = static_cast<double>(i) * step;
        const bool major = isMajorMark(seconds, step);
        const int px = pixelOfTime(layout, seconds);
        vLine(context.renderer, px, layout.top, layout.bottom - 1, major ? kMajorLine : kMinorLine);
        vLine(context.renderer, px, layout.top - kTickHeight, layout.top - 1, kTick);
        if (major || step > 0.5) drawMarkLabel(context, layout, seconds, step, px);
    }
}

void drawRange(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    const auto [start, end] = shownRange(recorder);
    if (end <= start) return;
    const int px0 = pixelOfTime(layout, start);
    const int px1 = pixelOfTime(layout, end);
    const SDL_Rect& ruler = layout.ruler;
    const ClipGuard clipped(context.renderer, layout.marks);
    fillRect(context.renderer, {px0, ruler.y, px1 - px0, ruler.h}, kRangeRuler, SDL_BLENDMODE_ADD);
    fillRect(context.renderer, {px0, layout.top, px1 - px0, layout.rowsH}, kRangeRows, SDL_BLENDMODE_ADD);
    for (const int px : {px0, px1})
        vLine(context.renderer, px, ruler.y, layout.bottom - 1, kRangeEdge, SDL_BLENDMODE_ADD);
}

}  // namespace

ClockTime clockTime(double seconds) {
    constexpr double kLongest = 1e9;  // s; beyond it a figure would not fit its place anyway
    const auto hundredths = static_cast<std::int64_t>(std::clamp(seconds, 0.0, kLongest) * 100.0);
    return {static_cast<int>(hundredths / 6000), static_cast<int>(hundredths / 100 % 60),
            static_cast<int>(hundredths % 100)};
}

std::array<double, 2> shownRange(const Recorder& recorder) {
    if (!recorder.rangeEnabled || recorder.rangeEnd <= recorder.rangeStart) return {0.0, 0.0};
    return {recorder.rangeStart, recorder.rangeEnd};
}

void settleRecorderPanel(Recorder& recorder, const SDL_Rect& area) {
    recorder.scrollY = std::clamp(recorder.scrollY, 0, scrollLimit(recorderLayout(recorder, area)));
    if (!recorder.editOpen) return;
    const SDL_Rect box = editorBox(recorder, area);
    recorder.editX = box.x;
    recorder.editY = box.y;
}

void drawRecorder(const DrawContext& context, Recorder& recorder, const SDL_Rect& area) {
    settleRecorderPanel(recorder, area);
    const RecorderLayout layout = recorderLayout(recorder, area);
    const int right = area.x + area.w - 1;
    fillSolid(context.renderer, area, kBackground);
    hLine(context.renderer, area.x, right, area.y, kTopEdge);
    // The title bar shares the edge's line, as the band does its own: both are opaque and stay on top.
    drawTitle(context, recorder, layout);
    drawChannelCount(context, layout);
    drawBand(context, recorder, layout);
    fillSolid(context.renderer, layout.ruler, kRulerFill);
    fillSolid(context.renderer, layout.rulerColumn, kRulerColumnFill);
    // Between the rows, which are opaque, and the clips: the grid is to be seen, but not across a clip's
    // text.
    drawRecorderRows(context, recorder, layout);
    drawGrid(context, layout);
    drawRange(context, recorder, layout);
    drawRecorderClips(context, recorder, layout);
    drawRecorderPlayhead(context, recorder, layout);
    drawRecorderFoot(context, recorder, layout);
}

}  // namespace veloria
