// The left button on the recorder's panel. From the first that fits to the last:
//
//   place                                    effect
//   minus, plus                              one channel less (down to 1), more (up to 32)
//   a range field                            opens it with the value anew, whichever was open before
//   "RANGE"                                  turns the range on or off
//   ruler                                    playhead to the pointer; scrubbing
//   vertical scroll bar, if it has a thumb   held
//   horizontal scroll bar                    held
//   check box or lock of a row               turned over
//   the timeline                             the last drawn clip there (below), or all are deselected
//   a button of the transport bar            acts
//   anywhere else                            nothing
//
// leaveRecorderFields comes first: a press outside the band, whatever it does, leaves an open range field.
//
// A clip under the press:
//
//   last press                          Ctrl   selection            held after it
//   the same clip, under 400 ms ago     any    stays                nothing; the editor opens
//   any other                           no     this clip alone      the clip: body or an edge
//   any other                           yes    this one inverted    the clip: body or an edge

#include <algorithm>
#include <vector>

#include "recorder/clips.h"
#include "recorder/playback.h"
#include "recorder_panel/panel_editor.h"
#include "recorder_panel/panel_input_steps.h"

namespace veloria {

namespace {

constexpr std::uint32_t kDoubleClickMs = 400;
constexpr double kShortestJump = 0.01;  // s; an arrangement shorter than this counts as empty
constexpr double kEndInView = 0.9;      // of the view, where its end stands after a jump to it

bool pressTitle(Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    if (contains(layout.minus, x, y)) {
        removeChannel(recorder);
    } else if (contains(layout.plus, x, y)) {
        addChannel(recorder);
    } else {
        return contains(layout.titleBar, x, y);
    }
    return true;
}

bool pressBand(Recorder& recorder, const RecorderLayout& layout, int x, int y, const RecorderInput& input) {
    if (!contains(layout.band, x, y)) return false;
    if (contains(layout.rangeStartBox, x, y)) openRangeField(recorder, false, input);
    if (contains(layout.rangeEndBox, x, y)) openRangeField(recorder, true, input);
    if (contains(layout.rangeSwitch, x, y)) recorder.rangeEnabled = !recorder.rangeEnabled;
    return true;
}

void holdRowScroll(Recorder& recorder, int y) {
    recorder.draggingRowScroll = true;
    recorder.dragAnchor = y;
    recorder.dragAnchorScroll = recorder.scrollY;
}

void holdTimeScroll(Recorder& recorder, int x) {
    recorder.draggingTimeScroll = true;
    recorder.dragAnchor = x;
    recorder.dragAnchorView = recorder.viewStart;
}

void pressColumn(Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    const int row = rowOfPixel(layout, y);
    if (row < 0) return;
    RecorderChannel& channel = recorder.channels[static_cast<std::size_t>(row)];
    const ChannelBoxes boxes = channelBoxes(layout, row);
    if (contains(boxes.checkHit, x, y)) channel.enabled = !channel.enabled;
    if (contains(boxes.lockHit, x, y)) channel.locked = !channel.locked;
}

// All between the band and the transport bar.
void pressRows(Recorder& recorder, const RecorderLayout& layout, int x, int y, const RecorderInput& input) {
    if (y < layout.top) {
        if (x < layout.left) return;
        recorder.playhead = std::max(0.0, timeOfPixel(layout, x));
        recorder.scrubbing = true;
    } else if (contains(layout.rowTrack, x, y) && hasRowThumb(layout)) {
        holdRowScroll(recorder, y);
    } else if (contains(layout.timeTrackHit, x, y)) {
        holdTimeScroll(recorder, x);
    } else if (x < layout.left) {
        pressColumn(recorder, layout, x, y);
    } else if (contains(layout.timeline, x, y)) {
        timelinePress(recorder, layout, x, y, input);
    }
}

void jumpToEnd(Recorder& recorder) {
    const double end = recorderEnd(recorder);
    recorder.playhead = end < kShortestJump ? 0.0 : end;
    if (recorder.playhead > recorder.viewSpan) {
        recorder.viewStart = recorder.playhead - recorder.viewSpan * kEndInView;
    }
}

void pressTransport(Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    if (contains(layout.rewind, x, y)) {
        recorder.playhead = 0.0;
        recorder.viewStart = 0.0;
    } else if (contains(layout.play, x, y)) {
        togglePlayback(recorder);
    } else if (contains(layout.toEnd, x, y)) {
        jumpToEnd(recorder);
    } else if (contains(layout.exportButton, x, y)) {
        if (recorder.onExportRecorder) recorder.onExportRecorder();
    } else if (contains(layout.calc, x, y)) {
        if (recorder.onToggleCalc) recorder.onToggleCalc();
    }
}

// A clip of the timeline with the row that it lies in.
struct ClipHit {
    RecorderClip* clip = nullptr;
    int row = -1;
    ClipSpan span{0, 0};
};

// The last drawn of the clips at a point. Rows do not overlap: only the one under the mouse is searched.
ClipHit clipAt(Recorder& recorder, const RecorderLayout& layout, int x, int y) {
    const int row = rowOfPixel(layout, y);
    if (row < 0) return {};
    const std::vector<RecorderClip*> clips = clipsOfChannel(recorder, row);
    for (auto clip = clips.rbegin(); clip != clips.rend(); ++clip) {
        const ClipSpan span = clipSpan(layout, **clip);
        if (clipContains(layout, span, row, x, y)) return {*clip, row, span};
    }
    return {};
}

bool isDoubleClick(const Recorder& recorder, const RecorderClip& clip, std::uint32_t ticks) {
    return recorder.lastClickClip == &clip && ticks - recorder.lastClickTicks < kDoubleClickMs;
}

void selectPressed(Recorder& recorder, RecorderClip& clip, bool ctrl) {
    if (ctrl) {
        clip.selected = !clip.selected;
        return;
    }
    deselectAll(recorder);
    clip.selected = true;
}

void grab(Recorder& recorder, const RecorderLayout& layout, const ClipHit& hit, int x) {
    recorder.grabbedClip = hit.clip;
    recorder.grabbedChannel = hit.row;
    const ClipPart part = clipPartAt(hit.span, x);
    recorder.resizingStart = part == ClipPart::Start;
    recorder.resizingEnd = part == ClipPart::End;
    recorder.movingClip = part == ClipPart::Body;
    if (recorder.movingClip) recorder.grabOffset = timeOfPixel(layout, x) - hit.clip->start;
}

}  // namespace

void timelinePress(Recorder& recorder, const RecorderLayout& layout, int x, int y,
                   const RecorderInput& input) {
    const ClipHit hit = clipAt(recorder, layout, x, y);
    if (hit.clip == nullptr) {
        deselectAll(recorder);
        recorder.lastClickClip = nullptr;
        return;
    }
    if (isDoubleClick(recorder, *hit.clip, input.ticks)) {
        openClipEditor(recorder, layout, *hit.clip, hit.row, x);
        recorder.lastClickTicks = 0;
        recorder.lastClickClip = nullptr;
        return;
    }
    recorder.lastClickClip = hit.clip;
    recorder.lastClickTicks = input.ticks;
    selectPressed(recorder, *hit.clip, (input.modifiers & KMOD_CTRL) != 0);
    grab(recorder, layout, hit, x);
}

void recorderPress(Recorder& recorder, const RecorderLayout& layout, int x, int y,
                   const RecorderInput& input) {
    if (pressTitle(recorder, layout, x, y)) return;
    if (pressBand(recorder, layout, x, y, input)) return;
    if (y < layout.bottom) {
        pressRows(recorder, layout, x, y, input);
    } else {
        pressTransport(recorder, layout, x, y);
    }
}

}  // namespace veloria
