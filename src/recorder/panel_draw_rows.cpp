// The channel rows of the recorder's panel, their clips and the playhead.

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>

#include "recorder/panel_draw_steps.h"
#include "recorder/panel_editor.h"
#include "recorder/playback.h"
#include "ui/toolkit/color.h"
#include "ui/toolkit/format.h"
#include "ui/toolkit/primitives.h"
#include "ui/toolkit/text.h"

namespace veloria {

namespace {

constexpr SDL_Color kEvenRow{14, 14, 22, 255};
constexpr SDL_Color kOddRow{10, 10, 18, 255};
constexpr SDL_Color kColumnFill{16, 16, 26, 255};
constexpr SDL_Color kNameOn{190, 200, 230, 255};
constexpr SDL_Color kNameOff{80, 80, 100, 150};
constexpr SDL_Color kCheckBorder{50, 50, 70, 200};
constexpr SDL_Color kCheckFill{100, 220, 120, 255};
constexpr SDL_Color kLocked{220, 160, 60, 200};
constexpr SDL_Color kUnlocked{60, 60, 80, 150};
constexpr SDL_Color kRowFoot{30, 30, 48, 150};

constexpr SDL_Color kLabelText{220, 220, 240, 230};
constexpr SDL_Color kDetailText{150, 200, 150, 200};
constexpr SDL_Color kLevelFill{60, 180, 100, 120};
constexpr SDL_Color kGripLine{255, 255, 255, 80};

constexpr SDL_Color kPlayhead{80, 160, 255, 230};
constexpr int kPlayheadTip = 8;  // height of the triangle

// The narrowest clips, in pixels, that still have room for each part.
constexpr int kNarrowestBody = 3;
constexpr int kNarrowestBorder = 7;
constexpr int kNarrowestLabel = 49;
constexpr int kNarrowestDetail = 121;
constexpr int kNarrowestLevel = 11;
constexpr int kNarrowestGrip = 13;
constexpr int kLowestDetailRow = 25;

// A ramp from grey-green to magenta; it is let run over, as eight bits do.
SDL_Color stripColor(int row, bool enabled) {
    return {static_cast<Uint8>(100 + 18 * row), static_cast<Uint8>(140 - 12 * row),
            static_cast<Uint8>(6 * row - 76), static_cast<Uint8>(enabled ? 200 : 60)};
}

void drawLock(SDL_Renderer* renderer, const SDL_Rect& body, bool locked) {
    const SDL_Color color = locked ? kLocked : kUnlocked;
    const int left = body.x + 1;
    const int right = body.x + body.w - 2;
    const int arch = body.y - 3;
    if (locked) {
        fillRect(renderer, body, color);
        vLine(renderer, right, arch + 1, body.y - 1, color);
    } else {
        outlineRect(renderer, body, color);  // and the bow's right foot hangs in the air
    }
    vLine(renderer, left, arch + 1, body.y - 1, color);
    hLine(renderer, left, right, arch, color);
}

void drawChannelRow(const DrawContext& context, const RecorderLayout& layout, const RecorderChannel& channel,
                    int row) {
    const int y = rowTop(layout, row);
    const int x = layout.area.x;
    const ChannelBoxes boxes = channelBoxes(layout, row);
    SDL_Renderer* renderer = context.renderer;
    fillSolid(renderer, {layout.left, y, layout.width, layout.rowH}, row % 2 == 0 ? kEvenRow : kOddRow);
    fillSolid(renderer, {x, y, kRecorderLeftColumn, layout.rowH}, kColumnFill);
    fillRect(renderer, {x, y, 3, layout.rowH}, stripColor(row, channel.enabled));
    DrawTextUtf8(context, channel.name, x + 8, boxes.textY, context.fonts->fontLabel,
                 channel.enabled ? kNameOn : kNameOff);
    outlineRect(renderer, boxes.check, kCheckBorder);
    if (channel.enabled) fillRect(renderer, {boxes.check.x + 2, boxes.check.y + 2, 7, 7}, kCheckFill);
    drawLock(renderer, boxes.lockBody, channel.locked);
    hLine(renderer, x, layout.left + layout.width - 1, y + layout.rowH - 1, kRowFoot);
}

SDL_Color third(SDL_Color color, Uint8 alpha) {
    return {static_cast<Uint8>(color.r / 3), static_cast<Uint8>(color.g / 3), static_cast<Uint8>(color.b / 3),
            alpha};
}

std::string detailText(const RecorderClip& clip, double hz) {
    const VoiceOverrides& stacks = clip.overrides;
    return formatText("%.1fHz %+.0fdB F%d P%d %d O%+d Fp%d Tp%d %s %s%s", hz,
                      static_cast<double>(clip.gainInDb), stacks.fibonacciCount, stacks.piCount,
                      stacks.teslaCount, stacks.octaveSteps, stacks.fibPhase, stacks.teslaPhase,
                      waveName(stacks.waveform), panLetter(clip.pan), clip.optimized ? " OPT" : "");
}

void drawClipTexts(const DrawContext& context, const RecorderLayout& layout, const SDL_Rect& body,
                   const RecorderClip& clip, double hz) {
    TTF_Font* font = context.fonts->fontLabel;
    const ClipGuard clipped(context.renderer, body);
    DrawTextUtf8(context, clip.label, body.x + 4, body.y + 3, font, kLabelText);
    if (layout.rowH < kLowestDetailRow || body.w < kNarrowestDetail) return;
    DrawText(context, detailText(clip, hz), body.x + 4, body.y + 15, font, kDetailText);
}

void drawLevel(SDL_Renderer* renderer, const RecorderLayout& layout, const SDL_Rect& body,
               const RecorderClip& clip) {
    const int longest = body.w - 4;
    const float length = amplitudeOfDb(clip.gainInDb) * static_cast<float>(longest);
    // Above 0 dB there is no bar at all.
    if (!(length >= 1.0f && length <= static_cast<float>(longest))) return;
    fillRect(renderer, {body.x + 2, body.y - 2 + layout.rowH - 7, static_cast<int>(length), 2}, kLevelFill);
}

// `body` is the clip as far as it lies in the timeline.
void drawClipBody(const DrawContext& context, const RecorderLayout& layout, const SDL_Rect& body,
                  const RecorderClip& clip, double hz) {
    SDL_Renderer* renderer = context.renderer;
    const Uint8 alpha = clip.selected ? 220 : 160;
    fillRect(renderer, body, third(clip.colour, alpha));
    fillRect(renderer, {body.x, body.y, body.w, 3}, withAlpha(clip.colour, alpha));
    if (body.w >= kNarrowestBorder) {
        outlineRect(renderer, body, withAlpha(clip.colour, clip.selected ? 255 : 100));
    }
    if (body.w >= kNarrowestLabel) drawClipTexts(context, layout, body, clip, hz);
    if (body.w >= kNarrowestLevel) drawLevel(renderer, layout, body, clip);
    if (!clip.selected || body.w < kNarrowestGrip) return;
    for (const int inset : {3, 5}) {
        vLine(renderer, body.x + body.w - inset, body.y + 3, body.y - 2 + layout.rowH - 7, kGripLine);
    }
}

void drawBucket(const DrawContext& context, const RecorderLayout& layout, int row, const ClipBucket& bucket,
                double hz) {
    const int y = rowTop(layout, row);
    const int right = layout.left + layout.width;
    int lastLine = INT_MIN;
    for (const RecorderClip& clip : bucket) {
        const ClipSpan span = clipSpan(layout, clip);
        // A clip that ends where the timeline begins is out of sight, but not one that begins and ends there.
        if (span.px0 >= right || (span.px1 <= layout.left && span.px0 < layout.left)) continue;
        const int px0 = std::max(span.px0, layout.left);
        const int w = std::min(span.px1, right) - px0;
        if (w >= kNarrowestBody) {
            drawClipBody(context, layout, {px0, y + 2, w, layout.rowH - 4}, clip, hz);
        } else if (px0 != lastLine) {
            // Clips of one pitch often lie in one column: one line stands for all of them.
            vLine(context.renderer, px0, y + 2, y + layout.rowH - 4, clip.colour);
            lastLine = px0;
        }
    }
}

void drawClips(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    for (int row = 0; row < layout.channelCount; ++row) {
        if (!isRowSeen(layout, row)) continue;
        const auto channel = recorder.clips.find(row);
        if (channel == recorder.clips.end()) continue;
        for (const auto& [key, bucket] : channel->second)
            drawBucket(context, layout, row, bucket, keyFrequency(key));
    }
}

void drawPlayhead(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    const int px = pixelOfTime(layout, recorder.playhead);
    if (px < layout.left || px >= layout.left + layout.width) return;
    SDL_Renderer* renderer = context.renderer;
    const int rulerY = layout.ruler.y;
    fillRect(renderer, {px, layout.top, 2, layout.rowsH}, kPlayhead);
    fillRect(renderer, {px, rulerY + kPlayheadTip, 2, layout.top - rulerY - kPlayheadTip}, kPlayhead);
    for (int line = 0; line < kPlayheadTip; ++line) {
        const int half = (kPlayheadTip - line) / 2;
        hLine(renderer, px - half, px + 1 + half, rulerY + line, kPlayhead);
    }
}

}  // namespace

void drawRecorderRows(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    {
        const ClipGuard clipped(context.renderer, layout.rows);
        for (int row = 0; row < layout.channelCount; ++row) {
            if (!isRowSeen(layout, row)) continue;
            drawChannelRow(context, layout, recorder.channels[static_cast<std::size_t>(row)], row);
        }
        drawClips(context, recorder, layout);
    }
    drawPlayhead(context, recorder, layout);
}

}  // namespace veloria
