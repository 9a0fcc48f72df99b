// The channel rows of the recorder's panel and the playhead.

#include "recorder_panel/panel_draw_steps.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

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

constexpr SDL_Color kPlayhead{80, 160, 255, 230};
constexpr int kPlayheadTip = 8;  // height of the triangle

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

}  // namespace

void drawRecorderPlayhead(const DrawContext& context, const Recorder& recorder,
                          const RecorderLayout& layout) {
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

void drawRecorderRows(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout) {
    const ClipGuard clipped(context.renderer, layout.rows);
    for (int row = 0; row < layout.channelCount; ++row) {
        if (!isRowSeen(layout, row)) continue;
        drawChannelRow(context, layout, recorder.channels[static_cast<std::size_t>(row)], row);
    }
}

}  // namespace veloria
