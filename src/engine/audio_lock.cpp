#include "engine/audio_lock.h"

namespace veloria {

namespace {

void nothing() {}

AudioLockHooks g_hooks{nothing, nothing};

}  // namespace

void installAudioLock(AudioLockHooks hooks) {
    g_hooks = {hooks.lock != nullptr ? hooks.lock : nothing,
               hooks.unlock != nullptr ? hooks.unlock : nothing};
}

AudioLock::AudioLock() {
    g_hooks.lock();
}
AudioLock::~AudioLock() {
    g_hooks.unlock();
}

}  // namespace veloria
