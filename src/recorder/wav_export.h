// Rendering the arrangement to sound, faster than it would play, and writing it as a WAV file while it is
// made. Main thread only; the audio device is paused while it renders and runs afterwards. The engine has its
// own voices, clock and master level back in every case.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "recorder/recorder.h"

namespace veloria {

// Told how far a render is, 0 to 1, ten times for each second of sound; may be empty. False cancels the
// render; when it throws, the render is given up.
using ExportProgress = std::function<bool(float)>;

enum class RenderOutcome {
    Done,
    Nothing,     // no engine, no clips, or a span without length
    TooLong,     // for the size fields of a WAV file
    GivenUp,     // no memory, or the progress function threw
    Cancelled,   // the progress function said so
    NotWritten,  // the file cannot be made or not be written to its end
};

// The clips of the span as voices that begin and end on a clock that starts with it, and the span's length.
struct ExportPlan {
    std::vector<Voice> voices;
    double seconds = 0.0;  // 0 or below: nothing to export
};

// The span is the range while that is switched on and not empty, else 0 to recorderEnd. Clips on channels
// that are disabled or not in use make no voices. Throws std::bad_alloc.
[[nodiscard]] ExportPlan planExport(const Recorder& recorder);

// Renders `voices` into interleaved 16-bit stereo, for `seconds` and one more in which the last of them ring
// out. `samples` is empty unless the outcome is Done.
[[nodiscard]] RenderOutcome renderVoices(SynthEngine& engine, std::vector<Voice> voices, double seconds,
                                         const ExportProgress& progress, std::vector<std::int16_t>& samples);

// Plans and renders the recorder's arrangement.
[[nodiscard]] RenderOutcome renderRecorder(Recorder& recorder, const ExportProgress& progress,
                                           std::vector<std::int16_t>& samples);

// As the two above, into a file, without ever holding the whole sound. Until all of it is written the file at
// `path` stays as it was, and it stays so for good unless the outcome is Done. False for any other outcome.
[[nodiscard]] bool renderVoicesToWav(SynthEngine& engine, const std::string& path, std::vector<Voice> voices,
                                     double seconds, const ExportProgress& progress);
[[nodiscard]] RenderOutcome renderRecorderToWav(Recorder& recorder, const std::string& path,
                                                const ExportProgress& progress);
[[nodiscard]] bool exportRecorderToWav(Recorder& recorder, const std::string& path,
                                       const ExportProgress& progress);

}  // namespace veloria
