// Putting clips into the recorder, finding, moving and dropping them. Main thread only. Every function that
// takes a clip out, or from its bucket, ends its voice first and leaves no reference behind.
#pragma once

#include <cstdint>
#include <vector>

#include "recorder/recorder.h"

namespace veloria {

// Where a clip lies; null for one that is not in the recorder.
struct ClipPlace {
    RecorderClip* clip = nullptr;
    std::int32_t channel = -1;
    std::int64_t key = 0;
};

// Appends a copy of `clip`, under a serial of its own, to the bucket of `frequency` (Hz). The copy keeps its
// address until it is removed.
RecorderClip& addClip(Recorder& recorder, std::int32_t channel, double frequency, const RecorderClip& clip);

// Every clip, by ascending channel, then frequency, then in the order in which it came into the bucket. Those
// of channels at channelCount and above are among them.
[[nodiscard]] std::vector<RecorderClip*> allClips(Recorder& recorder);
[[nodiscard]] std::vector<RecorderClip*> clipsOfChannel(Recorder& recorder, std::int32_t channel);

// Looks for a clip by its address, which may be a stale one.
[[nodiscard]] ClipPlace findClip(Recorder& recorder, const RecorderClip* clip);

// Hz, of the clip's bucket; 0.0 for a clip that is not in the recorder.
[[nodiscard]] double clipFrequency(Recorder& recorder, const RecorderClip* clip);

// The largest end of all clips, s, hidden and disabled channels included; 0.0 without clips.
[[nodiscard]] double recorderEnd(const Recorder& recorder);

// Moves the clip to the end of the bucket of `frequency` (Hz) on its own channel. A voice that it has is
// ended; the next tick begins another. Its address, or null for a clip that is not in the recorder.
RecorderClip* moveClipToFrequency(Recorder& recorder, RecorderClip* clip, double frequency);

// Moves the clip to the end of the bucket of its frequency on `channel`. All clips' voices are ended; the
// next tick begins them anew. Its address, or null for a clip that is not in the recorder.
RecorderClip* moveClipToChannel(Recorder& recorder, RecorderClip* clip, std::int32_t channel);

// Drops the selected clips; the others keep their order.
void removeSelected(Recorder& recorder);

// Drops all clips, and with them what the pointer and the editor hold. The transport goes on.
void clearRecorder(Recorder& recorder);

void deselectAll(Recorder& recorder);
void selectAll(Recorder& recorder);
[[nodiscard]] bool anySelected(const Recorder& recorder);

// One row more, up to 32, or one less, down to 1. Clips of a lost row are kept, silent, until it comes back.
void addChannel(Recorder& recorder);
void removeChannel(Recorder& recorder);

}  // namespace veloria
