#include "engine/reports.h"

#include <algorithm>

#include "engine/audio_lock.h"
#include "engine/render.h"

namespace veloria {

namespace {

bool sounds(const EngineSnapshot& snapshot, const SnapshotVoice& voice) {
    return isSounding(voice.startTime, voice.endTime, snapshot.time);
}

float progressOf(const EngineSnapshot& snapshot, const SnapshotVoice& voice) {
    const double duration = voice.endTime - voice.startTime;
    if (!(duration > 0.0)) return 1.0f;
    return std::min(static_cast<float>((snapshot.time - voice.startTime) / duration), 1.0f);
}

}  // namespace

void reserveSnapshot(const SynthEngine& engine, EngineSnapshot& snapshot) {
    // The capacity, not the size: only this thread makes the list grow, while the renderer may be shrinking
    // it.
    snapshot.voices.reserve(engine.voices.capacity());
}

void copySnapshot(const SynthEngine& engine, EngineSnapshot& snapshot) {
    snapshot.voices.clear();
    for (const Voice& voice : engine.voices) {
        snapshot.voices.push_back(
            {{voice.frequency, voice.midiNote, voice.volume, voice.tuningTag, voice.pan, voice.channel},
             voice.startTime,
             voice.endTime});
    }
    snapshot.time = engine.time;
    snapshot.scopeRing = engine.scopeRing;
    snapshot.scopePos = engine.scopePos;
}

EngineSnapshot takeSnapshot(const SynthEngine& engine) {
    EngineSnapshot snapshot;
    reserveSnapshot(engine, snapshot);
    const AudioLock lock;
    copySnapshot(engine, snapshot);
    return snapshot;
}

std::int32_t activeVoiceCount(const EngineSnapshot& snapshot) {
    return static_cast<std::int32_t>(
        std::count_if(snapshot.voices.begin(), snapshot.voices.end(),
                      [&](const SnapshotVoice& voice) { return sounds(snapshot, voice); }));
}

std::int32_t activeVoiceCountOnChannel(const EngineSnapshot& snapshot, std::uint32_t channel) {
    return static_cast<std::int32_t>(
        std::count_if(snapshot.voices.begin(), snapshot.voices.end(), [&](const SnapshotVoice& voice) {
            return sounds(snapshot, voice) && static_cast<std::uint32_t>(voice.info.channel) == channel;
        }));
}

std::vector<ActiveNote> activeVoiceBars(const EngineSnapshot& snapshot) {
    std::vector<ActiveNote> notes;
    for (const SnapshotVoice& voice : snapshot.voices) {
        if (voice.info.channel == kShadowChannel || !sounds(snapshot, voice)) continue;
        notes.push_back(
            {static_cast<float>(voice.info.frequency), progressOf(snapshot, voice), voice.info.pan});
    }
    return notes;
}

std::vector<VoiceInfo> activeVoiceInfo(const EngineSnapshot& snapshot) {
    std::vector<VoiceInfo> infos;
    for (const SnapshotVoice& voice : snapshot.voices) {
        if (sounds(snapshot, voice)) infos.push_back(voice.info);
    }
    return infos;
}

std::int32_t activeVoiceCount(const SynthEngine& engine) {
    return activeVoiceCount(takeSnapshot(engine));
}

std::int32_t activeVoiceCountOnChannel(const SynthEngine& engine, std::uint32_t channel) {
    return activeVoiceCountOnChannel(takeSnapshot(engine), channel);
}

std::vector<ActiveNote> activeVoiceBars(const SynthEngine& engine) {
    return activeVoiceBars(takeSnapshot(engine));
}

std::vector<VoiceInfo> activeVoiceInfo(const SynthEngine& engine) {
    return activeVoiceInfo(takeSnapshot(engine));
}

}  // namespace veloria
