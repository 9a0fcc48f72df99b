// Copying clips and laying them down again. Main thread only.
#pragma once

#include "recorder/recorder.h"

namespace veloria {

// Replaces the clipboard by copies of the selected clips.
void copySelected(Recorder& recorder);

// Lays the clipboard down so that its earliest clip begins at the playhead, not selected, each clip on its
// old channel, or on the last one when that is gone. The clipboard stays.
void pasteClipboard(Recorder& recorder);

}  // namespace veloria
