#include "recorder_panel/panel_layout.h"

#include <algorithm>
#include <cmath>

namespace veloria {

namespace {

constexpr int kTitleHeight = 24;
constexpr int kBandHeight = 22;
constexpr int kRulerHeight = 22;
constexpr int kHeadHeight = kTitleHeight + kBandHeight + kRulerHeight;
constexpr int kTransportHeight = 30;
constexpr int kTransportButtonDrop = 4;
constexpr int kTransportButtonHeight = 22;
constexpr int kHintFromRight = 450;
constexpr int kHintClearOf = 520;  // behind the longest state text

constexpr int kThumbShortest = 20;
constexpr double kFarPixel = 1e8;  // keeps a far time's column inside an int, with room to add to it

constexpr int kNameHeight = 10;  // the name, the check box and the lock stand in the row's middle
constexpr int kControlHit = 12;

constexpr int kEditorFirstRow = 24;
constexpr int kEditorRowPitch = 20;
constexpr int kEditorTrackX = 56;
constexpr int kEditorTrackWidth = 140;

int clampToInt(double pixels) {
    if (std::isnan(pixels)) return 0;
    return static_cast<int>(std::clamp(pixels, -kFarPixel, kFarPixel));
}

void layOutHead(RecorderLayout& layout) {
    const auto [x, y, w, h] = layout.area;
    layout.titleBar = {x, y, w, kTitleHeight};
    layout.minus = {x + w - 78, y + 3, 18, 18};
    layout.plus = {x + w - 56, y + 3, 18, 18};
    layout.band = {x, y + kTitleHeight, w, kBandHeight};
    layout.playheadBox = {x + 8, y + 26, 58, 18};
    layout.rangeStartBox = {x + 136, y + 26, 52, 18};
    layout.rangeEndBox = {x + 220, y + 26, 52, 18};
    layout.rangeSwitch = {x + 280, y + 26, 52, 18};
    const int rulerY = y + kTitleHeight + kBandHeight;
    layout.ruler = {layout.left, rulerY, layout.width, kRulerHeight};
    layout.rulerColumn = {x, rulerY, kRecorderLeftColumn, kRulerHeight};
    layout.marks = {layout.left, rulerY, layout.width, layout.bottom - rulerY};
}

void layOutRows(RecorderLayout& layout) {
    const SDL_Rect& area = layout.area;
    layout.rows = {area.x, layout.top, area.w, layout.rowsH};
    layout.timeline = {layout.left, layout.top, layout.width, layout.rowsH};
    layout.rowTrack = {area.x + area.w - kRecorderTrackWidth, layout.top, kRecorderTrackWidth, layout.rowsH};
    layout.timeTrack = {layout.left, layout.bottom - 8, layout.width, 7};
    // A column wider than it looks: the press on the last one still counts.
    layout.timeTrackHit = {layout.left, layout.bottom - 8, layout.width + 1, 7};
}

void layOutTransport(RecorderLayout& layout) {
    const SDL_Rect& area = layout.area;
    layout.transport = {area.x, layout.bottom, area.w, kTransportHeight};
    const auto button = [&](int dx, int w) -> SDL_Rect {
        return {area.x + dx, layout.bottom + kTransportButtonDrop, w, kTransportButtonHeight};
    };
    layout.rewind = button(8, 28);
    layout.play = button(38, 50);
    layout.toEnd = button(92, 28);
    layout.exportButton = button(124, 60);
    layout.calc = button(188, 38);
    layout.hintShown = area.w - kHintFromRight >= kHintClearOf;
}

}  // namespace

RecorderLayout recorderLayout(const Recorder& recorder, const SDL_Rect& area) {
    RecorderLayout layout;
    layout.area = area;
    layout.left = area.x + kRecorderLeftColumn;
    layout.width = area.w - kRecorderLeftColumn - kRecorderTrackWidth;
    layout.rowH = static_cast<int>(recorder.rowZoom * static_cast<float>(kRecorderRowHeight));
    layout.top = area.y + kHeadHeight;
    layout.bottom = area.y + area.h - kTransportHeight;
    layout.rowsH = area.h - kHeadHeight - kTransportHeight;
    layout.channelCount = recorder.channelCount;
    layout.contentH = layout.rowH * layout.channelCount;
    layout.scrollY = recorder.scrollY;
    layout.viewStart = recorder.viewStart;
    layout.viewSpan = recorder.viewSpan;
    layOutHead(layout);
    layOutRows(layout);
    layOutTransport(layout);
    return layout;
}

int scrollLimit(const RecorderLayout& layout) {
    return std::max(layout.contentH - layout.rowsH, 0);
}

int pixelOfTime(const RecorderLayout& layout, double seconds) {
    return clampToInt(layout.left + (seconds - layout.viewStart) / layout.viewSpan * layout.width);
}

double timeOfPixel(const RecorderLayout& layout, int px) {
    if (layout.width < 1) return layout.viewStart;
    return layout.viewStart + static_cast<double>(px - layout.left) / layout.width * layout.viewSpan;
}

int rowTop(const RecorderLayout& layout, int row) {
    return layout.top + row * layout.rowH - layout.scrollY;
}

bool isRowSeen(const RecorderLayout& layout, int row) {
    const int y = rowTop(layout, row);
    return y < layout.bottom && y + layout.rowH > layout.top;
}

int rowOfPixel(const RecorderLayout& layout, int mouseY) {
    const int fromTop = layout.scrollY + mouseY - layout.top;
    // Before the division, which would take a few lines above the first row to be in it.
    if (fromTop < 0 || layout.rowH < 1) return -1;
    const int row = fromTop / layout.rowH;
    return row < layout.channelCount ? row : -1;
}

ChannelBoxes channelBoxes(const RecorderLayout& layout, int row) {
    const int y = rowTop(layout, row) + (layout.rowH - kNameHeight) / 2;
    const int checkX = layout.area.x + 96;
    const int lockX = layout.area.x + 112;
    ChannelBoxes boxes{};
    boxes.textY = y;
    boxes.check = {checkX, y, 10, 10};
    boxes.checkHit = {checkX, y, kControlHit, kControlHit};
    boxes.lockBody = {lockX, y + 4, 8, 6};
    boxes.lockHit = {lockX, y, kControlHit, kControlHit};
    return boxes;
}

ClipSpan clipSpan(const RecorderLayout& layout, const RecorderClip& clip) {
    return {pixelOfTime(layout, clip.start), pixelOfTime(layout, clip.end)};
}

ClipPart clipPartAt(const ClipSpan& span, int mouseX) {
    const int width = span.px1 - span.px0;
    if (width <= kResizableWidth) return ClipPart::Body;
    const int edge = std::clamp(width / 8, 3, 6);
    if (mouseX < span.px0 + edge) return ClipPart::Start;
    return mouseX > span.px1 - edge ? ClipPart::End : ClipPart::Body;
}

bool clipContains(const RecorderLayout& layout, const ClipSpan& span, int row, int x, int y) {
    const int rowY = rowTop(layout, row);
    return x >= span.px0 && x <= span.px1 && y >= rowY + 2 && y <= rowY + layout.rowH - 2;
}

bool hasRowThumb(const RecorderLayout& layout) {
    return layout.contentH > layout.rowsH;
}

SDL_Rect rowThumb(const RecorderLayout& layout) {
    const SDL_Rect& track = layout.rowTrack;
    if (!hasRowThumb(layout) || track.h < 1) return {track.x + 1, track.y, 8, 0};
    const double seen = static_cast<double>(layout.rowsH) / layout.contentH;
    const int h = std::min(std::max(kThumbShortest, clampToInt(seen * layout.rowsH)), track.h);
    const int y =
        layout.top + clampToInt(static_cast<double>(layout.scrollY) / layout.contentH * layout.rowsH);
    return {track.x + 1, std::clamp(y, track.y, track.y + track.h - h), 8, h};
}

SDL_Rect timeThumb(const RecorderLayout& layout, double lastEnd) {
    const SDL_Rect& track = layout.timeTrack;
    if (track.w < 1) return {track.x, track.y, 0, track.h};
    const double total = std::max(layout.viewSpan, lastEnd);
    const int w = std::min(std::max(kThumbShortest, clampToInt(layout.viewSpan / total * track.w)), track.w);
    const int x = track.x + clampToInt(layout.viewStart / total * track.w);
    return {std::clamp(x, track.x, track.x + track.w - w), track.y, w, track.h};
}

double gridStep(double viewSpan) {
    struct Step {
        double above;  // s, of the span
        double step;   // s
    };
    constexpr std::array<Step, 5> kSteps = {
        {{120.0, 10.0}, {60.0, 5.0}, {20.0, 2.0}, {10.0, 1.0}, {5.0, 0.5}}};
    for (const Step& entry : kSteps) {
        if (viewSpan > entry.above) return entry.step;
    }
    return 0.25;
}

bool isMajorMark(double seconds, double step) {
    constexpr double kNudge = 0.001;  // a mark a hair before its multiple counts as on it
    if (step >= 1.0) return std::fmod(seconds + kNudge, 5.0) < 0.01;
    return std::fmod(seconds + kNudge, step * 4.0) < step * 0.01;
}

SDL_Rect editorBox(const Recorder& recorder, const SDL_Rect& area) {
    const int lastX = area.x + area.w - kEditorWidth;
    const int lastY = area.y + area.h - kEditorHeight;
    const int x = std::max(area.x, std::min(recorder.editX, lastX));
    const int y = lastY < area.y ? lastY : std::clamp(recorder.editY, area.y, lastY);
    return {x, y, kEditorWidth, kEditorHeight};
}

EditorRowBoxes editorRowBoxes(const SDL_Rect& box, int row) {
    const int y = box.y + kEditorFirstRow + kEditorRowPitch * row;
    EditorRowBoxes boxes{};
    boxes.label = {box.x + 4, y};
    boxes.track = {box.x + kEditorTrackX, y + 2, kEditorTrackWidth, 8};
    boxes.hit = {box.x + 52, y - 2, 149, 17};
    return boxes;
}

int editorRowAt(const SDL_Rect& box, int x, int y) {
    for (int row = 0; row < kEditorRowCount; ++row) {
        if (contains(editorRowBoxes(box, row).hit, x, y)) return row;
    }
    return -1;
}

double editorPositionAt(const SDL_Rect& box, int mouseX) {
    const double along = static_cast<double>(mouseX - box.x - kEditorTrackX) / kEditorTrackWidth;
    return std::clamp(along, 0.0, 1.0);
}

}  // namespace veloria
