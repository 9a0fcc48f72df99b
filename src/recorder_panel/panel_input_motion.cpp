// The mouse while the recorder's panel holds something, and the wheel. What is held follows the pointer
// outside the panel too. The first that is held has the motion:
//
//   held                    follows the pointer
//   vertical scroll bar     scrollY, in proportion of the track to all rows
//   horizontal scroll bar   viewStart, in proportion of the track to a little more than all clips
//   ruler                   playhead
//   middle button           viewStart, so that the time stays under the pointer
//   clip                    its start, with its length kept; a selected clip takes the other selected ones
//   along;
//                           then its channel
//   end of a clip           its end, at least 0.05 s after its start
//   start of a clip         its start, at least 0.05 s before its end
//
// A clip of a locked channel stays as it is while the pointer holds it, and one whose row has gone is let go
// of.

#include <algorithm>

#include "recorder/clips.h"
#include "recorder_panel/panel_input_steps.h"

namespace veloria {

namespace {

constexpr double kShortestClip = 0.05;  // s, that a resize can leave

constexpr double kShortestView = 2.0;  // s
constexpr double kLongestView = 600.0;
constexpr double kZoomIn = 0.85;
constexpr double kZoomOut = 1.18;
constexpr float kLowestRowZoom = 0.4f;
constexpr float kHighestRowZoom = 4.0f;
constexpr float kRowZoomIn = 1.15f;
constexpr float kRowZoomOut = 0.87f;

int heldScroll(const RecorderLayout& layout, double pixels) {
    return static_cast<int>(std::clamp(pixels, 0.0, static_cast<double>(scrollLimit(layout))));
}

void dragRowScroll(Recorder& recorder, const RecorderLayout& layout, int y) {
    const double share = static_cast<double>(y - recorder.dragAnchor) / std::max(1, layout.rowsH);
    recorder.scrollY = heldScroll(layout, recorder.dragAnchorScroll + share * layout.contentH);
}

void dragTimeScroll(Recorder& recorder, const RecorderLayout& layout, int x) {
    const double total = std::max(recorder.viewSpan * 1.5, recorderEnd(recorder) + 5.0);
    const double share = static_cast<double>(x - recorder.dragAnchor) / std::max(1, layout.width);
    recorder.viewStart = std::max(0.0, recorder.dragAnchorView + share * total);
}

void pan(Recorder& recorder, const RecorderLayout& layout, int x) {
    const double share = static_cast<double>(recorder.panAnchorX - x) / std::max(1, layout.width);
    recorder.viewStart = std::max(0.0, recorder.panAnchorView + share * recorder.viewSpan);
}

void moveInTime(RecorderClip& clip, double start) {
    const double length = clip.end - clip.start;
    clip.start = std::max(0.0, start);
    clip.end = clip.start + length;
}

// Each selected clip stops at 0 on its own: what is pushed on closes up.
void moveSelected(Recorder& recorder, double difference) {
    for (auto& [channel, buckets] : recorder.clips) {
        if (isLocked(recorder, channel)) continue;
        for (auto& [key, bucket] : buckets) {
            for (RecorderClip& clip : bucket) {
                if (clip.selected) moveInTime(clip, clip.start + difference);
            }
        }
    }
}

void moveGrabbed(Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    RecorderClip& clip = *recorder.grabbedClip;
    const double start = std::max(0.0, timeOfPixel(layout, x) - recorder.grabOffset);
    if (clip.selected) {
        moveSelected(recorder, start - clip.start);
    } else {
        moveInTime(clip, start);
    }
    const int row = rowOfPixel(layout, y);
    if (row < 0 || row == recorder.grabbedChannel || isLocked(recorder, row)) return;
    // Only the clip in hand changes its row, however many are selected.
    recorder.grabbedClip = moveClipToChannel(recorder, recorder.grabbedClip, row);
    recorder.grabbedChannel = row;
}

void resizeGrabbed(Recorder& recorder, const RecorderLayout& layout, int x) {
    RecorderClip& clip = *recorder.grabbedClip;
    const double time = timeOfPixel(layout, x);
    if (recorder.resizingEnd) {
        clip.end = std::max(clip.start + kShortestClip, time);
    } else {
        clip.start = std::max(0.0, std::min(clip.end - kShortestClip, time));
    }
}

void dropGrabbed(Recorder& recorder) {
    recorder.movingClip = recorder.resizingEnd = recorder.resizingStart = false;
    recorder.grabbedClip = nullptr;
    recorder.grabbedChannel = -1;
}

void dragClip(Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    const std::int32_t channel = recorder.grabbedChannel;
    if (recorder.grabbedClip == nullptr || channel < 0 || channel >= layout.channelCount) {
        dropGrabbed(recorder);
    } else if (isLocked(recorder, channel)) {
        return;
    } else if (recorder.movingClip) {
        moveGrabbed(recorder, layout, x, y);
    } else {
        resizeGrabbed(recorder, layout, x);
    }
}

void zoomRows(Recorder& recorder, const SDL_Rect& area, int y, int notches) {
    const RecorderLayout before = recorderLayout(recorder, area);
    const float factor = notches > 0 ? kRowZoomIn : kRowZoomOut;
    recorder.rowZoom = std::clamp(recorder.rowZoom * factor, kLowestRowZoom, kHighestRowZoom);
    const RecorderLayout after = recorderLayout(recorder, area);
    const int fromTop = y - before.top;
    const double under = static_cast<double>(recorder.scrollY + fromTop) / std::max(1, before.contentH);
    recorder.scrollY = heldScroll(after, static_cast<int>(under * after.contentH) - fromTop);
}

void scrollRows(Recorder& recorder, const SDL_Rect& area, int notches) {
    const RecorderLayout layout = recorderLayout(recorder, area);
    recorder.scrollY =
        heldScroll(layout, notches >= 0 ? recorder.scrollY - layout.rowH : recorder.scrollY + layout.rowH);
}

// The time under the pointer stays there.
void zoomTime(Recorder& recorder, const SDL_Rect& area, int x, int notches) {
    const RecorderLayout layout = recorderLayout(recorder, area);
    const double time = timeOfPixel(layout, x);
    const double factor = notches > 0 ? kZoomIn : kZoomOut;
    recorder.viewSpan = std::clamp(recorder.viewSpan * factor, kShortestView, kLongestView);
    const double share = static_cast<double>(x - layout.left) / std::max(1, layout.width);
    recorder.viewStart = std::max(0.0, time - share * recorder.viewSpan);
}

}  // namespace

bool isLocked(const Recorder& recorder, std::int32_t channel) {
    return channel >= 0 && channel < kMaxRecorderChannels &&
           recorder.channels[static_cast<std::size_t>(channel)].locked;
}

bool recorderMotion(Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    if (recorder.draggingRowScroll) {
        dragRowScroll(recorder, layout, y);
    } else if (recorder.draggingTimeScroll) {
        dragTimeScroll(recorder, layout, x);
    } else if (recorder.scrubbing) {
        recorder.playhead = std::max(0.0, timeOfPixel(layout, x));
    } else if (recorder.panning) {
        pan(recorder, layout, x);
    } else if (recorder.movingClip || recorder.resizingEnd || recorder.resizingStart) {
        dragClip(recorder, layout, x, y);
    } else {
        return false;
    }
    return true;
}

void recorderWheel(Recorder& recorder, const SDL_Rect& area, int x, int y, int notches,
                   SDL_Keymod modifiers) {
    if ((modifiers & KMOD_CTRL) != 0) {
        if (notches != 0) zoomRows(recorder, area, y, notches);
    } else if ((modifiers & KMOD_SHIFT) != 0) {
        scrollRows(recorder, area, notches);
    } else if (notches != 0) {
        zoomTime(recorder, area, x, notches);
    }
}

}  // namespace veloria
