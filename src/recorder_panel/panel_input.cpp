// The way of an event through the recorder's panel. The first that fits uses it:
//
//   event                 editor open                 range field open        else
//   text                  -                           digits and points       not used
//   Escape                closes it                   closes it, no change    not used
//   Return, keypad Enter  -                           takes the value         not used
//   Backspace             -                           removes a character     not used
//   any other key down    -                           used, does nothing      Delete, Space, Ctrl+C/V/A
//   left press            inside: row or nothing      outside the band, or    inside the panel: acts
//                         outside: closes, goes on    on the editor: closes,
//                                                     goes on
//   middle press          -                           -                       inside the panel: pans
//   motion                of a held row: sets it      -                       of whatever is held
//   left release          lets go of the row          -                       lets go of all; never used
//   middle release        -                           -                       ends panning; used if it panned
//   wheel                 -                           -                       inside the panel: zoom, scroll
//
// "-": the next column decides. With both open the editor has Escape first.

#include "recorder_panel/panel_editor.h"
#include "recorder_panel/panel_input_steps.h"

namespace veloria {

namespace {

bool keyDown(Recorder& recorder, const SDL_KeyboardEvent& event, const SDL_Rect& area,
             const RecorderInput& input) {
    if (recorder.editOpen && event.keysym.sym == SDLK_ESCAPE) {
        closeClipEditor(recorder);
        return true;
    }
    if (isEditingRange(recorder)) {
        rangeFieldKey(recorder, event.keysym.sym);
        return true;
    }
    return recorderKey(recorder, event, area, input);
}

bool leftPress(Recorder& recorder, const SDL_Rect& area, int x, int y, const RecorderInput& input) {
    leaveRecorderFields(recorder, area, x, y, false);
    if (editorPress(recorder, area, x, y)) return true;
    if (!contains(area, x, y)) return false;
    recorderPress(recorder, recorderLayout(recorder, area), x, y, input);
    return true;
}

bool middlePress(Recorder& recorder, const SDL_Rect& area, int x, int y) {
    if (!contains(area, x, y)) return false;
    recorder.panning = true;
    recorder.panAnchorX = x;
    recorder.panAnchorView = recorder.viewStart;
    return true;
}

bool buttonDown(Recorder& recorder, const SDL_MouseButtonEvent& event, const SDL_Rect& area,
                const RecorderInput& input) {
    if (event.button == SDL_BUTTON_LEFT) return leftPress(recorder, area, event.x, event.y, input);
    if (event.button == SDL_BUTTON_MIDDLE) return middlePress(recorder, area, event.x, event.y);
    return false;
}

void letGo(Recorder& recorder) {
    recorder.editRow = -1;
    recorder.scrubbing = false;
    recorder.movingClip = false;
    recorder.resizingEnd = false;
    recorder.resizingStart = false;
    recorder.draggingRowScroll = false;
    recorder.draggingTimeScroll = false;
    recorder.grabbedClip = nullptr;
    recorder.grabbedChannel = -1;
}

bool buttonUp(Recorder& recorder, const SDL_MouseButtonEvent& event) {
    if (event.button == SDL_BUTTON_LEFT) letGo(recorder);
    if (event.button != SDL_BUTTON_MIDDLE) return false;
    const bool wasPanning = recorder.panning;
    recorder.panning = false;
    return wasPanning;
}

bool motion(Recorder& recorder, const SDL_MouseMotionEvent& event, const SDL_Rect& area) {
    if (editorMotion(recorder, area, event.x)) return true;
    return recorderMotion(recorder, recorderLayout(recorder, area), event.x, event.y);
}

bool wheel(Recorder& recorder, const SDL_MouseWheelEvent& event, const SDL_Rect& area,
           const RecorderInput& input) {
    if (!contains(area, event.mouseX, event.mouseY)) return false;
    recorderWheel(recorder, area, event.mouseX, event.mouseY, event.y, input.modifiers);
    return true;
}

}  // namespace

void leaveRecorderFields(Recorder& recorder, const SDL_Rect& area, int x, int y, bool covered) {
    const bool onEditor = !covered && recorderEditContains(recorder, area, x, y);
    const bool onBand = !covered && !onEditor && contains(recorderLayout(recorder, area).band, x, y);
    if (!onEditor) closeClipEditor(recorder);
    if (!onBand) endRangeEditing(recorder);
}

bool handleRecorderEvent(Recorder& recorder, const SDL_Event& event, const SDL_Rect& area,
                         const RecorderInput& input) {
    settleRecorderPanel(recorder, area);
    switch (event.type) {
        case SDL_TEXTINPUT:
            if (!isEditingRange(recorder)) return false;
            rangeFieldText(recorder, event.text.text);
            return true;
        case SDL_KEYDOWN:
            return keyDown(recorder, event.key, area, input);
        case SDL_MOUSEBUTTONDOWN:
            return buttonDown(recorder, event.button, area, input);
        case SDL_MOUSEBUTTONUP:
            return buttonUp(recorder, event.button);
        case SDL_MOUSEMOTION:
            return motion(recorder, event.motion, area);
        case SDL_MOUSEWHEEL:
            return wheel(recorder, event.wheel, area, input);
        default:
            return false;
    }
}

}  // namespace veloria
