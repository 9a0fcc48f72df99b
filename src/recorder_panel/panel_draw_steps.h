// The recorder's panel, drawn from the back to the front: drawRecorder goes through these in this order.
#pragma once

#include <array>

#include "recorder/recorder.h"
#include "recorder_panel/panel_layout.h"
#include "toolkit/draw_context.h"
#include "toolkit/primitives.h"

namespace veloria {

// The channel rows, without their clips.
void drawRecorderRows(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout);

// The clips, over the rows, the grid and the range that were drawn just before. Draws them only when they
// have changed, if that is quicker; `recorder` then keeps their picture.
void drawRecorderClips(const DrawContext& context, Recorder& recorder, const RecorderLayout& layout);

// The playhead, over rows and ruler.
void drawRecorderPlayhead(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout);

// Scroll bars, transport bar and the last line.
void drawRecorderFoot(const DrawContext& context, const Recorder& recorder, const RecorderLayout& layout);

// The range as it is shown, from and to in seconds; {0, 0} while it is off or empty.
[[nodiscard]] std::array<double, 2> shownRange(const Recorder& recorder);

// For an opaque colour. The pixels are those of a blend, which the software renderer works out one by one
// where this just sets them: over the whole panel that was most of a picture's time.
inline void fillSolid(SDL_Renderer* renderer, const SDL_Rect& rect, SDL_Color color) {
    fillRect(renderer, rect, color, SDL_BLENDMODE_NONE);
}

// A time of at least 0 s in whole hundredths, cut off and not rounded, so that a second shows when it is
// over.
struct ClockTime {
    int minutes;
    int seconds;
    int hundredths;
};
[[nodiscard]] ClockTime clockTime(double seconds);

}  // namespace veloria
