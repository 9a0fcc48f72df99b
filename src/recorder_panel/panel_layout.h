// Where everything of the recorder's panel stands. The drawing and the events both go by these rectangles.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>

#include "recorder/recorder.h"
#include "toolkit/rect.h"

namespace veloria {

inline constexpr int kRecorderLeftColumn = 130;  // pixels: strip, name, check box and lock of a channel
inline constexpr int kRecorderRowHeight = 34;    // pixels, at a row zoom of 1
inline constexpr int kRecorderTrackWidth = 10;   // of the scroll bar at the right edge

// All in pixels of the window but for the two times. Rectangles are half-open, as SDL's are.
struct RecorderLayout {
    SDL_Rect area{};  // the whole panel

    int left = 0;      // first column of the timeline
    int width = 0;     // of the timeline; below 1 in a panel too narrow for one
    int rowH = 0;      // height of a channel's row
    int top = 0;       // first line of the rows
    int bottom = 0;    // first line below the rows, where the transport bar begins
    int rowsH = 0;     // height of the part of the rows that is seen
    int contentH = 0;  // height of all rows
    int channelCount = 0;
    int scrollY = 0;
    double viewStart = 0.0;  // s, at `left`
    double viewSpan = 0.0;   // s, over `width`

    SDL_Rect titleBar{};
    SDL_Rect minus{};
    SDL_Rect plus{};
    SDL_Rect band{};  // under the title bar: the playhead's time and the range
    SDL_Rect playheadBox{};
    SDL_Rect rangeStartBox{};
    SDL_Rect rangeEndBox{};
    SDL_Rect rangeSwitch{};
    SDL_Rect ruler{};        // its part over the timeline
    SDL_Rect rulerColumn{};  // its part over the left column
    SDL_Rect marks{};        // ruler and rows of the timeline: the clip of the grid and of the range
    SDL_Rect rows{};         // the clip of the rows, over the panel's whole width
    SDL_Rect timeline{};     // where clips lie
    SDL_Rect rowTrack{};     // of the vertical scroll bar
    SDL_Rect timeTrack{};    // of the horizontal scroll bar
    SDL_Rect timeTrackHit{};

    SDL_Rect transport{};
    SDL_Rect rewind{};
    SDL_Rect play{};
    SDL_Rect toEnd{};
    SDL_Rect exportButton{};
    SDL_Rect calc{};
    bool hintShown = false;  // a narrow panel has no room for it
};

[[nodiscard]] RecorderLayout recorderLayout(const Recorder& recorder, const SDL_Rect& area);

// The greatest scroll that still fills the panel; 0 when all rows are seen.
[[nodiscard]] int scrollLimit(const RecorderLayout& layout);

// The column of a time in seconds, truncated; far outside the timeline it stops at some column out of sight.
[[nodiscard]] int pixelOfTime(const RecorderLayout& layout, double seconds);

// The time in seconds at a column, outside the timeline too; may be negative.
[[nodiscard]] double timeOfPixel(const RecorderLayout& layout, int px);

// The first line of a row, seen or not.
[[nodiscard]] int rowTop(const RecorderLayout& layout, int row);
[[nodiscard]] bool isRowSeen(const RecorderLayout& layout, int row);

// The row at a line, outside the panel too, or -1 where there is none.
[[nodiscard]] int rowOfPixel(const RecorderLayout& layout, int mouseY);

// The controls of a row in the left column.
struct ChannelBoxes {
    SDL_Rect check;     // as drawn
    SDL_Rect checkHit;  // a little larger
    SDL_Rect lockBody;  // as drawn
    SDL_Rect lockHit;
    int textY;  // top of the channel's name
};
[[nodiscard]] ChannelBoxes channelBoxes(const RecorderLayout& layout, int row);

// The columns of a clip, not cut to the timeline.
struct ClipSpan {
    int px0;
    int px1;
};
[[nodiscard]] ClipSpan clipSpan(const RecorderLayout& layout, const RecorderClip& clip);

// Which part of a clip the pointer holds. Clips no wider than kResizableWidth have no edges.
enum class ClipPart { Body, Start, End };
inline constexpr int kResizableWidth = 14;
[[nodiscard]] ClipPart clipPartAt(const ClipSpan& span, int mouseX);

// Is the mouse on the clip that lies at `span` in `row`? All edges belong to it.
[[nodiscard]] bool clipContains(const RecorderLayout& layout, const ClipSpan& span, int row, int x, int y);

// Has the content more height than is seen? Only then there is a thumb to hold.
[[nodiscard]] bool hasRowThumb(const RecorderLayout& layout);
[[nodiscard]] SDL_Rect rowThumb(const RecorderLayout& layout);
// `lastEnd` is the largest end of all clips, s.
[[nodiscard]] SDL_Rect timeThumb(const RecorderLayout& layout, double lastEnd);

// The seconds between two marks of the ruler.
[[nodiscard]] double gridStep(double viewSpan);
// Does a mark at this time have the stronger line?
[[nodiscard]] bool isMajorMark(double seconds, double step);

// The clip editor.
inline constexpr int kEditorWidth = 240;
inline constexpr int kEditorHeight = 286;
inline constexpr int kEditorRowCount = 12;

// The box where it stands: near its own place, pushed into the panel. A panel lower than the box keeps the
// box's foot in sight.
[[nodiscard]] SDL_Rect editorBox(const Recorder& recorder, const SDL_Rect& area);

struct EditorRowBoxes {
    SDL_Rect track;
    SDL_Rect hit;  // both its edges belong to it, and are counted here
    SDL_Point label;
};
[[nodiscard]] EditorRowBoxes editorRowBoxes(const SDL_Rect& box, int row);

// The row at a point of the box, or -1.
[[nodiscard]] int editorRowAt(const SDL_Rect& box, int x, int y);

// The slider's position at a column: 0 to 1, held there outside the track.
[[nodiscard]] double editorPositionAt(const SDL_Rect& box, int mouseX);

}  // namespace veloria
