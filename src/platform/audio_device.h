// The one audio device's exclusion. Main thread only; without an open device all of these do nothing.
#pragma once

namespace veloria::platform {

// While the lock is held the audio callback does not run. Holds nest and must be short: one append or one
// walk.
void lockAudioDevice();
void unlockAudioDevice();

// A paused device plays silence and calls back no more; no callback is in flight when this returns.
void pauseAudioDevice(bool paused);

}  // namespace veloria::platform
