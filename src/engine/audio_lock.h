// Exclusion of the audio callback while the main thread changes the voice list.
#pragma once

namespace veloria {

// What takes and gives back the audio device's exclusion. Holds must be allowed to nest.
struct AudioLockHooks {
    void (*lock)();
    void (*unlock)();
};

// Sets the exclusion that AudioLock uses; called before the device starts. Without it a lock does nothing,
// which is right wherever no callback runs: in offline renders and most tests.
void installAudioLock(AudioLockHooks hooks);

// Holds the exclusion for the length of a scope. Main thread only. A hold is one append or one walk of the
// list: a long one starves the device.
class AudioLock {
  public:
    AudioLock();
    ~AudioLock();
    AudioLock(const AudioLock&) = delete;
    AudioLock& operator=(const AudioLock&) = delete;
};

}  // namespace veloria
