#include "platform/audio_device.h"

#include <SDL_audio.h>

namespace veloria::platform {

void lockAudioDevice() {
    SDL_LockAudio();
}

void unlockAudioDevice() {
    SDL_UnlockAudio();
}

void pauseAudioDevice(bool paused) {
    SDL_PauseAudio(paused ? 1 : 0);
}

}  // namespace veloria::platform
