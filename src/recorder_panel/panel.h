// The recorder's panel at the foot of the window: a timeline with a row for each channel, the clip editor
// that floats over it, and the ghost of a frequency that is dragged in from the list. Main thread.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <functional>
#include <string_view>

#include "recorder/recorder.h"
#include "toolkit/draw_context.h"

namespace veloria {

// `area` is the panel's rectangle in pixels of the window, the same in every call of one frame.

// Brings what a new size of the panel or another number of channels has put out of bounds back into them: the
// scroll, and the editor's place. drawRecorder and handleRecorderEvent begin with it.
void settleRecorderPanel(Recorder& recorder, const SDL_Rect& area);

// The strip itself.
void drawRecorder(const DrawContext& context, Recorder& recorder, const SDL_Rect& area);

// The clip editor, while it is open; it may reach above the panel.
void drawRecorderEdit(const DrawContext& context, Recorder& recorder, const SDL_Rect& area);

// What is under the pointer while a frequency is dragged; over everything else.
void drawDroneGhost(const DrawContext& context, const Recorder& recorder);

// What an event does not say by itself.
struct RecorderInput {
    std::uint32_t ticks = 0;  // ms, the time of the event
    int mouseX = 0;           // pixels of the window; where the pointer is when a key is pressed
    int mouseY = 0;
    SDL_Keymod modifiers = KMOD_NONE;   // held while the mouse acts; a key event brings its own
    std::function<void()> onOpenField;  // called before a range field takes the text input; may be empty
};

// One event. True when nobody else may have it; a release of the left button never is.
bool handleRecorderEvent(Recorder& recorder, const SDL_Event& event, const SDL_Rect& area,
                         const RecorderInput& input);

// Is the point on the open clip editor?
[[nodiscard]] bool recorderEditContains(const Recorder& recorder, const SDL_Rect& area, int x, int y);

// Closes the clip editor; nothing while it is closed.
void closeClipEditor(Recorder& recorder);

// A left press anywhere in the window, before anyone has it; `covered` where a floating window lies over the
// point. Gives up the range that is being typed, as Escape does, unless the press is on the band of the
// fields, and closes the clip editor unless the press is on it.
void leaveRecorderFields(Recorder& recorder, const SDL_Rect& area, int x, int y, bool covered);

// Is a range field open, so that all typing is meant for it?
[[nodiscard]] bool isEditingRange(const Recorder& recorder);

// Closes the range field and throws the typed text away; nothing while none is open. SDL's text input stops
// with it.
void endRangeEditing(Recorder& recorder);

// A press with the right button on a row of the list. `kind` is 6 Reflection, 7 Rotation or 8 Shadow, `index`
// the row of that table, `frequency` in Hz. The ghost stands where setDragMouse has last been told.
void beginDroneDrag(Recorder& recorder, std::string_view label, double frequency, SDL_Color colour,
                    std::int32_t kind, std::int32_t index);
void setDragMouse(Recorder& recorder, int x, int y);

// Ends the drag and drops nothing: the release was over something that lies above the rows.
void endDroneDrag(Recorder& recorder);

// The release of the right button: ends the drag, and makes a clip of 2 s where the pointer is on a row that
// is not locked.
// Gains, overrides, optimized, tuningLabel and bassFilter come from `sample`. True when a clip was made.
bool dropDrone(Recorder& recorder, int mouseX, int mouseY, const SDL_Rect& area, const RecorderClip& sample);

}  // namespace veloria
