#include "recorder_panel/panel_editor.h"

#include <algorithm>
#include <string>

#include "base/format.h"
#include "recorder/clips.h"
#include "recorder_panel/panel.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

constexpr SDL_Color kBoxFill{24, 24, 38, 240};
constexpr SDL_Color kBoxBorder{80, 140, 255, 200};
constexpr SDL_Color kHeadText{220, 220, 255, 240};
constexpr SDL_Color kLabelText{140, 160, 200, 220};
constexpr SDL_Color kTrackFill{40, 40, 60, 200};
constexpr SDL_Color kValueFill{60, 140, 200, 180};
constexpr SDL_Color kKnobFill{200, 220, 255, 240};
constexpr SDL_Color kValueText{180, 200, 180, 220};
constexpr SDL_Color kFootText{120, 140, 160, 180};
constexpr SDL_Color kFootOptimized{255, 200, 80, 200};

constexpr int kKnobWidth = 5;
constexpr int kKnobRise = 2;      // above the track and below it
constexpr int kValueX = 204;      // where the values begin...
constexpr int kValueRight = 236;  // ...unless they would pass this
constexpr int kFootY = 264;

void drawEditorRow(const DrawContext& context, const SDL_Rect& box, int index, const RecorderClip& clip,
                   double hz) {
    const EditorRow& row = kEditorRows[static_cast<std::size_t>(index)];
    const EditorRowBoxes boxes = editorRowBoxes(box, index);
    const SDL_Rect& track = boxes.track;
    TTF_Font* font = context.fonts->fontLabel;
    const double position = std::clamp(row.position(clip, hz), 0.0, 1.0);
    const int along = static_cast<int>(position * track.w);

    DrawText(context, row.label, boxes.label.x, boxes.label.y, font, kLabelText);
    fillRect(context.renderer, track, kTrackFill);
    fillRect(context.renderer, {track.x, track.y, along, track.h}, kValueFill);
    const SDL_Rect knob{track.x + along - kKnobWidth / 2, track.y - kKnobRise, kKnobWidth,
                        track.h + 2 * kKnobRise};
    fillRect(context.renderer, knob, kKnobFill);
    const std::string text = row.text(clip, hz);
    const int x = std::min(kValueX, kValueRight - measureText(font, text).x);
    DrawText(context, text, box.x + x, boxes.label.y, font, kValueText);
}

}  // namespace

void drawRecorderEdit(const DrawContext& context, Recorder& recorder, const SDL_Rect& area) {
    settleRecorderPanel(recorder, area);
    if (!recorder.editOpen || recorder.editClip == nullptr) return;
    const RecorderClip& clip = *recorder.editClip;
    const double hz = clipFrequency(recorder, &clip);
    const SDL_Rect box = editorBox(recorder, area);
    TTF_Font* font = context.fonts->fontLabel;
    fillRect(context.renderer, box, kBoxFill);
    outlineRect(context.renderer, box, kBoxBorder);
    // A long label ends at the border.
    const ClipGuard clipped(context.renderer, {box.x + 1, box.y + 1, box.w - 2, box.h - 2});
    const std::string head = clip.label + formatText("  %.1fHz", hz);
    DrawTextUtf8(context, head, box.x + 6, box.y + 4, font, kHeadText);
    for (int row = 0; row < kEditorRowCount; ++row)
        drawEditorRow(context, box, row, clip, hz);
    DrawText(context, editorFootText(clip), box.x + 6, box.y + kFootY, font,
             clip.optimized ? kFootOptimized : kFootText);
}

bool recorderEditContains(const Recorder& recorder, const SDL_Rect& area, int x, int y) {
    return recorder.editOpen && recorder.editClip != nullptr && contains(editorBox(recorder, area), x, y);
}

}  // namespace veloria
