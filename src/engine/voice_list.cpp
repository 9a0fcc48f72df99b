#include "engine/voice_list.h"

#include <algorithm>
#include <new>

#include "engine/audio_lock.h"

namespace veloria {

bool growVoices(SynthEngine& engine) {
    std::vector<Voice> grown;
    try {
        // The capacity is this thread's alone; the size may be shrinking under the renderer's hand.
        grown.reserve(std::max<std::size_t>(2 * engine.voices.capacity(), kVoiceFigure));
    } catch (const std::bad_alloc&) {
        return false;
    }
    {
        const AudioLock lock;
        grown.assign(engine.voices.begin(), engine.voices.end());
        engine.voices.swap(grown);
    }
    return true;  // the old list's memory goes here, with the callback running again
}

namespace {

// False when the list is full.
bool tryStart(SynthEngine& engine, Voice& voice, double duration) {
    const AudioLock lock;
    if (engine.voices.size() == engine.voices.capacity()) return false;
    voice.startTime = engine.time;
    voice.endTime = voice.startTime + duration;
    voice.id = engine.nextVoiceId++;
    engine.voices.push_back(voice);
    return true;
}

}  // namespace

void startVoice(SynthEngine& engine, Voice voice, double duration) {
    while (!tryStart(engine, voice, duration)) {
        if (!growVoices(engine)) return;
    }
}

}  // namespace veloria
