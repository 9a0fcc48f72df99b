// A frequency on its way from the list to the timeline.

#include <algorithm>

#include "recorder/clips.h"
#include "recorder_panel/panel.h"
#include "recorder_panel/panel_input_steps.h"
#include "recorder_panel/panel_layout.h"
#include "toolkit/color.h"
#include "toolkit/primitives.h"
#include "toolkit/text.h"

namespace veloria {

namespace {

constexpr int kGhostWidth = 100;  // pixels
constexpr int kGhostHeight = 28;
constexpr int kGhostFillAlpha = 120;
constexpr int kGhostBorderAlpha = 220;
constexpr SDL_Color kGhostText{240, 240, 255, 230};

constexpr double kDropSeconds = 2.0;

// The lists keep their sides: what is heard on one side when played lies there as a clip, too.
float panOfKind(std::int32_t kind) {
    if (kind == kSourceReflection) return 0.0f;
    return kind == kSourceRotation ? 1.0f : 0.5f;
}

// The row that would take a clip at this point, or -1.
int dropRow(const Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    // The column behind the last one still counts, as it does for the scroll bar below.
    if (x < layout.left || x > layout.left + layout.width) return -1;
    if (y < layout.top || y >= std::min(layout.top + layout.contentH, layout.bottom)) return -1;
    const int row = rowOfPixel(layout, y);
    return isLocked(recorder, row) ? -1 : row;
}

}  // namespace

void drawDroneGhost(const DrawContext& context, const Recorder& recorder) {
    if (!recorder.droneDragging) return;
    const SDL_Rect box{recorder.mouseX - kGhostWidth / 2, recorder.mouseY - kGhostHeight / 2, kGhostWidth,
                       kGhostHeight};
    fillRect(context.renderer, box, withAlpha(recorder.droneColour, kGhostFillAlpha));
    outlineRect(context.renderer, box, withAlpha(recorder.droneColour, kGhostBorderAlpha));
    const ClipGuard clipped(context.renderer, box);
    DrawTextUtf8(context, recorder.droneLabel, recorder.mouseX - 46, recorder.mouseY - 10,
                 context.fonts->fontLabel, kGhostText);
}

void beginDroneDrag(Recorder& recorder, std::string_view label, double frequency, SDL_Color colour,
                    std::int32_t kind, std::int32_t index) {
    recorder.droneDragging = true;
    recorder.droneLabel = std::string(label);
    recorder.droneFrequency = frequency;
    recorder.droneColour = colour;
    recorder.droneKind = kind;
    recorder.droneIndex = index;
}

void setDragMouse(Recorder& recorder, int x, int y) {
    recorder.mouseX = x;
    recorder.mouseY = y;
}

void endDroneDrag(Recorder& recorder) {
    recorder.droneDragging = false;
}

bool dropDrone(Recorder& recorder, int mouseX, int mouseY, const SDL_Rect& area, const RecorderClip& sample) {
    const bool wasDragging = recorder.droneDragging;
    endDroneDrag(recorder);
    if (!wasDragging) return false;
    settleRecorderPanel(recorder, area);
    const RecorderLayout layout = recorderLayout(recorder, area);
    const int row = dropRow(recorder, layout, mouseX, mouseY);
    if (row < 0) return false;
    RecorderClip clip = sample;
    clip.id = recorder.nextClipId++;
    clip.start = std::max(0.0, timeOfPixel(layout, mouseX));
    clip.end = clip.start + kDropSeconds;
    clip.pan = panOfKind(recorder.droneKind);
    clip.colour = recorder.droneColour;
    clip.label = recorder.droneLabel;
    clip.sourceKind = recorder.droneKind;
    clip.sourceIndex = recorder.droneIndex;
    clip.selected = false;
    addClip(recorder, row, recorder.droneFrequency, clip);
    return true;
}

}  // namespace veloria
