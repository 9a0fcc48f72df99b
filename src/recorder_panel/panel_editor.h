// The twelve sliders of the clip editor.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "recorder/recorder.h"
#include "recorder_panel/panel_layout.h"

namespace veloria {

// What a row shows and changes. Positions run from 0, the left end, to 1.
struct EditorRow {
    const char* label;
    // `hz` is the clip's frequency. May lie outside 0 to 1: an import stacks more partials than a slider goes
    // to.
    double (*position)(const RecorderClip& clip, double hz);
    std::string (*text)(const RecorderClip& clip, double hz);
    // Sets the value of the clip in the editor, which stays there.
    void (*apply)(Recorder& recorder, double position);
};
extern const std::array<EditorRow, kEditorRowCount> kEditorRows;

// Left, centre or right: "L" below 0.3, "R" above 0.7, else "C".
[[nodiscard]] const char* panLetter(float pan);

// "SIN", "SAW", "SQR" or "TRI"; "?" for a number without a waveform.
[[nodiscard]] const char* waveName(std::int32_t waveform);

// The editor's last line: where the clip came from.
[[nodiscard]] std::string editorFootText(const RecorderClip& clip);

// Opens the editor on a clip of `channel`, at the mouse and above the clip's row if the panel has room there.
void openClipEditor(Recorder& recorder, const RecorderLayout& layout, RecorderClip& clip,
                    std::int32_t channel, int mouseX);

}  // namespace veloria
