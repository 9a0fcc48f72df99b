#include "engine/voice_list.h"

#include <algorithm>
#include <new>

#include "engine/audio_lock.h"

namespace veloria {

bool growVoices(SynthEngine& engine) {
    std::vector<Voice> grown;
    std::vector<PartialTable> tables;
    try {
        // The capacity is this thread's alone; the size may be shrinking under the renderer's hand.
        grown.reserve(std::max<std::size_t>(2 * engine.voices.capacity(), kVoiceFigure));
        // Voices that share a table build it anew in every sub-block, at eighteen times the cost.
        tables.resize(grown.capacity() + 1);
    } catch (const std::bad_alloc&) {
        return false;
    }
    {
        const AudioLock lock;
        grown.assign(engine.voices.begin(), engine.voices.end());
        engine.voices.swap(grown);
        engine.partialTables.swap(tables);  // empty ones: filling them once is shorter than copying here
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
