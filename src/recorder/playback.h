// Playing the arrangement: once a frame the clips under the playhead are held against those that sound, and
// voices are begun and ended through the engine. Main thread only.
#pragma once

#include "recorder/recorder.h"

namespace veloria {

// Moves the playhead by `dt` (s, cut at 0.1) and brings the voices up to date. Nothing unless playing. Ending
// a clip ends every voice of channel 9 within 1 Hz of it, another clip's too; that one is not begun again.
void tickRecorder(Recorder& recorder, float dt);

// Stopped to playing, playing to paused (the voices end), paused to playing.
void togglePlayback(Recorder& recorder);

// Back to the start and stopped; every voice of channel 9 ends.
void stopPlayback(Recorder& recorder);

// Ends the voices of all clips. A clip still under the playhead is begun anew by the next tick.
void releaseActiveClips(Recorder& recorder);

// Ends the voice of one clip, if it has one.
void releaseActiveClip(Recorder& recorder, const RecorderClip& clip);

// The amplitude of a level in dB: 10^(db / 20).
[[nodiscard]] float amplitudeOfDb(float db);

}  // namespace veloria
