#include "recorder/playback.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/control.h"

namespace veloria {

namespace {

constexpr float kLongestTick = 0.1f;     // s; a stalled window must not leap over clips
constexpr double kShortestVoice = 0.01;  // s; a shorter clip's voice gets kOpenVoice, and the tick ends it
constexpr double kOpenVoice = 3600.0;    // s
constexpr double kFollowFrom = 0.85;     // of the view; the playhead beyond it turns the page
constexpr double kFollowTo = 0.15;       // of the view; where the playhead then stands

// A clip under the playhead.
struct DueClip {
    const RecorderClip* clip;
    double frequency;  // Hz
};

void followPlayhead(Recorder& recorder) {
    if (recorder.playhead > recorder.viewStart + recorder.viewSpan * kFollowFrom) {
        recorder.viewStart = recorder.playhead - recorder.viewSpan * kFollowTo;
    }
}

// The clips under the playhead on channels that are in use and enabled, by serial.
std::vector<DueClip> dueClips(const Recorder& recorder) {
    std::vector<DueClip> due;
    for (const auto& [channel, buckets] : recorder.clips) {
        if (channel < 0 || channel >= recorder.channelCount) continue;
        if (!recorder.channels[static_cast<std::size_t>(channel)].enabled) continue;
        for (const auto& [key, bucket] : buckets) {
            for (const RecorderClip& clip : bucket) {
                if (clip.start <= recorder.playhead && recorder.playhead < clip.end) {
                    due.push_back({&clip, keyFrequency(key)});
                }
            }
        }
    }
    std::sort(due.begin(), due.end(),
              [](const DueClip& a, const DueClip& b) { return a.clip->serial < b.clip->serial; });
    return due;
}

bool isDue(const std::vector<DueClip>& due, std::uint64_t serial) {
    const auto place = std::lower_bound(
        due.begin(), due.end(), serial,
        [](const DueClip& entry, std::uint64_t value) { return entry.clip->serial < value; });
    return place != due.end() && place->clip->serial == serial;
}

void endLeftClips(Recorder& recorder, const std::vector<DueClip>& due) {
    for (auto entry = recorder.activeClips.begin(); entry != recorder.activeClips.end();) {
        if (isDue(due, entry->first)) {
            ++entry;
            continue;
        }
        if (recorder.engine != nullptr) noteOffByFrequency(*recorder.engine, entry->second);
        entry = recorder.activeClips.erase(entry);
    }
}

void beginDueClips(Recorder& recorder, const std::vector<DueClip>& due) {
    for (const DueClip& entry : due) {
        const RecorderClip& clip = *entry.clip;
        if (!recorder.activeClips.emplace(clip.serial, entry.frequency).second) continue;
        const double length = clip.end - clip.start;
        if (recorder.engine == nullptr) continue;
        noteOn(*recorder.engine, {.frequency = entry.frequency,
                                  .volume = amplitudeOfDb(clip.gainInDb),
                                  .pan = clip.pan,
                                  .overrides = clip.overrides,
                                  .targetVolume = amplitudeOfDb(clip.gainOutDb),
                                  .duration = length < kShortestVoice ? kOpenVoice : length});
    }
}

}  // namespace

void tickRecorder(Recorder& recorder, float dt) {
    if (!recorder.playing || recorder.paused) return;
    recorder.playhead += static_cast<double>(std::min(dt, kLongestTick));
    followPlayhead(recorder);
    const std::vector<DueClip> due = dueClips(recorder);
    endLeftClips(recorder, due);
    beginDueClips(recorder, due);
}

void togglePlayback(Recorder& recorder) {
    if (!recorder.playing) {
        recorder.playing = true;
        recorder.paused = false;
    } else if (recorder.paused) {
        recorder.paused = false;
    } else {
        recorder.paused = true;
        if (recorder.engine != nullptr) noteOffChannel9(*recorder.engine);
        recorder.activeClips.clear();
    }
}

void stopPlayback(Recorder& recorder) {
    recorder.playing = false;
    recorder.paused = false;
    recorder.playhead = 0.0;
    if (recorder.engine != nullptr) noteOffChannel9(*recorder.engine);
    recorder.activeClips.clear();
}

void releaseActiveClips(Recorder& recorder) {
    endLeftClips(recorder, {});
}

void releaseActiveClip(Recorder& recorder, const RecorderClip& clip) {
    const auto entry = recorder.activeClips.find(clip.serial);
    if (entry == recorder.activeClips.end()) return;
    if (recorder.engine != nullptr) noteOffByFrequency(*recorder.engine, entry->second);
    recorder.activeClips.erase(entry);
}

float amplitudeOfDb(float db) {
    return std::pow(10.0f, db / 20.0f);
}

}  // namespace veloria
