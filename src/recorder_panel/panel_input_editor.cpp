// The mouse on the clip editor. The row that is pressed is held until the release, wherever the pointer goes.
//
//   press                       held row      editor
//   on a row's slider           that row      its value is set from the pointer
//   elsewhere in the box        as before     nothing
//   outside the box             none          closes; the press goes on to what is below

#include "recorder_panel/panel_editor.h"
#include "recorder_panel/panel_input_steps.h"

namespace veloria {

namespace {

void applyHeldRow(Recorder& recorder, const SDL_Rect& box, int mouseX) {
    kEditorRows[static_cast<std::size_t>(recorder.editRow)].apply(recorder, editorPositionAt(box, mouseX));
}

}  // namespace

bool editorPress(Recorder& recorder, const SDL_Rect& area, int x, int y) {
    if (!recorderEditContains(recorder, area, x, y)) return false;
    const SDL_Rect box = editorBox(recorder, area);
    const int row = editorRowAt(box, x, y);
    if (row < 0) return true;
    recorder.editRow = row;
    applyHeldRow(recorder, box, x);
    return true;
}

bool editorMotion(Recorder& recorder, const SDL_Rect& area, int x) {
    if (!recorder.editOpen || recorder.editClip == nullptr || recorder.editRow < 0) return false;
    applyHeldRow(recorder, editorBox(recorder, area), x);
    return true;
}

}  // namespace veloria
