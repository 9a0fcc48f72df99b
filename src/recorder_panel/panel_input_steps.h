// The parts of handleRecorderEvent. Each returns true when it has used the event.
#pragma once

#include <SDL.h>

#include "recorder_panel/panel.h"
#include "recorder_panel/panel_layout.h"

namespace veloria {

// The open clip editor.
bool editorPress(Recorder& recorder, const SDL_Rect& area, int x, int y);
bool editorMotion(Recorder& recorder, const SDL_Rect& area, int x);

// Delete, Space, Ctrl+C, Ctrl+V, Ctrl+A.
bool recorderKey(Recorder& recorder, const SDL_KeyboardEvent& event, const SDL_Rect& area,
                 const RecorderInput& input);

// All keys and all text while a range field is open.
void rangeFieldKey(Recorder& recorder, SDL_Keycode key);
void rangeFieldText(Recorder& recorder, const char* text);
void openRangeField(Recorder& recorder, bool end, const RecorderInput& input);

// The left button inside the panel.
void recorderPress(Recorder& recorder, const RecorderLayout& layout, int x, int y,
                   const RecorderInput& input);
// The same on the timeline.
void timelinePress(Recorder& recorder, const RecorderLayout& layout, int x, int y,
                   const RecorderInput& input);

// May clips neither leave this channel's row nor come into it? Never so for a channel that there is not.
bool isLocked(const Recorder& recorder, std::int32_t channel);

// A motion while something is held.
bool recorderMotion(Recorder& recorder, const RecorderLayout& layout, int x, int y);

// The wheel inside the panel; `notches` above 0 is upward.
void recorderWheel(Recorder& recorder, const SDL_Rect& area, int x, int y, int notches, SDL_Keymod modifiers);

}  // namespace veloria
