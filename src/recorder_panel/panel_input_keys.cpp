// Keys of the recorder's panel, and the typing in its two range fields.

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

#include "base/fixed_text.h"
#include "recorder/clipboard.h"
#include "recorder/clips.h"
#include "recorder/playback.h"
#include "recorder_panel/panel_editor.h"
#include "recorder_panel/panel_input_steps.h"

namespace veloria {

namespace {

// As many characters from the start as make a number, with a point in every locale. 0 for none, for a number
// too large and for a negative one.
double parseRangeText(const std::string& text) {
    double value = 0.0;
    const auto result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return result.ec == std::errc{} && value > 0.0 ? value : 0.0;
}

// The two ends push each other, so that the range never runs backwards.
void commitRangeField(Recorder& recorder) {
    const double value = parseRangeText(recorder.rangeText);
    if (recorder.editingRangeStart) {
        recorder.rangeStart = value;
        recorder.rangeEnd = std::max(recorder.rangeEnd, value);
    } else {
        recorder.rangeEnd = value;
        recorder.rangeStart = std::min(recorder.rangeStart, value);
    }
    endRangeEditing(recorder);
}

bool deleteSelected(Recorder& recorder) {
    if (!anySelected(recorder)) return false;
    closeClipEditor(recorder);
    recorder.grabbedClip = nullptr;
    recorder.grabbedChannel = -1;
    recorder.movingClip = recorder.resizingEnd = recorder.resizingStart = false;
    recorder.lastClickClip = nullptr;
    releaseActiveClips(recorder);
    removeSelected(recorder);
    return true;
}

}  // namespace

bool isEditingRange(const Recorder& recorder) {
    return recorder.editingRangeStart || recorder.editingRangeEnd;
}

void endRangeEditing(Recorder& recorder) {
    if (!isEditingRange(recorder)) return;
    recorder.editingRangeStart = false;
    recorder.editingRangeEnd = false;
    recorder.rangeText.clear();
    SDL_StopTextInput();
}

void openRangeField(Recorder& recorder, bool end, const RecorderInput& input) {
    endRangeEditing(recorder);
    // Another field that closes stops the text input: first that, then our own.
    if (input.onOpenField) input.onOpenField();
    (end ? recorder.editingRangeEnd : recorder.editingRangeStart) = true;
    recorder.rangeText = fixedText(end ? recorder.rangeEnd : recorder.rangeStart, 1);
    SDL_StartTextInput();
}

void rangeFieldText(Recorder& recorder, const char* text) {
    for (; *text != '\0'; ++text) {
        if ((*text >= '0' && *text <= '9') || *text == '.') recorder.rangeText.push_back(*text);
    }
}

void rangeFieldKey(Recorder& recorder, SDL_Keycode key) {
    switch (key) {
        case SDLK_RETURN:
        case SDLK_KP_ENTER:
            commitRangeField(recorder);
            break;
        case SDLK_ESCAPE:
            endRangeEditing(recorder);
            break;
        case SDLK_BACKSPACE:
            if (!recorder.rangeText.empty()) recorder.rangeText.pop_back();
            break;
        default:
            break;
    }
}

bool recorderKey(Recorder& recorder, const SDL_KeyboardEvent& event, const SDL_Rect& area,
                 const RecorderInput& input) {
    const SDL_Keycode key = event.keysym.sym;
    if (key == SDLK_DELETE) return deleteSelected(recorder);
    if (key == SDLK_SPACE) {
        if (!contains(area, input.mouseX, input.mouseY)) return false;
        // A key held down would start and pause in turns.
        if (event.repeat == 0) togglePlayback(recorder);
        return true;
    }
    if ((event.keysym.mod & KMOD_CTRL) == 0) return false;
    if ((event.keysym.mod & (KMOD_ALT | KMOD_GUI)) != 0) return false;  // another combination
    switch (key) {
        case SDLK_c:
            copySelected(recorder);
            return true;
        case SDLK_v:
            // Each repeat of a key held down would lay another copy over the first.
            if (event.repeat == 0) pasteClipboard(recorder);
            return true;
        case SDLK_a:
            selectAll(recorder);
            return true;
        default:
            return false;
    }
}

}  // namespace veloria
