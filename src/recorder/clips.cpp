#include "recorder/clips.h"

#include <algorithm>
#include <functional>

#include "recorder/playback.h"

namespace veloria {

namespace {

void forEachClip(Recorder& recorder, const std::function<void(RecorderClip&)>& visit) {
    for (auto& [channel, buckets] : recorder.clips) {
        for (auto& [key, bucket] : buckets) {
            for (RecorderClip& clip : bucket)
                visit(clip);
        }
    }
}

void append(ChannelClips& buckets, std::vector<RecorderClip*>& found) {
    for (auto& [key, bucket] : buckets) {
        for (RecorderClip& clip : bucket)
            found.push_back(&clip);
    }
}

// Takes a clip that is about to go out of every reference.
void forget(Recorder& recorder, const RecorderClip& clip) {
    releaseActiveClip(recorder, clip);
    if (recorder.grabbedClip == &clip) {
        recorder.grabbedClip = nullptr;
        recorder.grabbedChannel = -1;
        recorder.movingClip = recorder.resizingEnd = recorder.resizingStart = false;
    }
    if (recorder.editClip == &clip) {
        recorder.editOpen = false;
        recorder.editClip = nullptr;
        recorder.editChannel = -1;
        recorder.editRow = -1;
    }
    if (recorder.lastClickClip == &clip) recorder.lastClickClip = nullptr;
}

// Moves the node, so that the clip keeps its address.
RecorderClip* relink(Recorder& recorder, const ClipPlace& from, std::int32_t channel, std::int64_t key) {
    ClipBucket& source = recorder.clips[from.channel][from.key];
    ClipBucket& target = recorder.clips[channel][key];
    const auto node = std::find_if(source.begin(), source.end(),
                                   [&from](const RecorderClip& clip) { return &clip == from.clip; });
    target.splice(target.end(), source, node);
    return &target.back();
}

}  // namespace

Recorder::Recorder() {
    for (std::size_t i = 0; i < channels.size(); ++i)
        channels[i].name = "Channel " + std::to_string(i + 1);
}

RecorderClip& addClip(Recorder& recorder, std::int32_t channel, double frequency, const RecorderClip& clip) {
    ClipBucket& bucket = recorder.clips[channel][frequencyKey(frequency)];
    bucket.push_back(clip);
    bucket.back().serial = recorder.nextClipSerial++;
    ++recorder.clipCount;
    return bucket.back();
}

std::vector<RecorderClip*> allClips(Recorder& recorder) {
    std::vector<RecorderClip*> found;
    found.reserve(static_cast<std::size_t>(recorder.clipCount));
    for (auto& [channel, buckets] : recorder.clips)
        append(buckets, found);
    return found;
}

std::vector<RecorderClip*> clipsOfChannel(Recorder& recorder, std::int32_t channel) {
    std::vector<RecorderClip*> found;
    const auto buckets = recorder.clips.find(channel);
    if (buckets != recorder.clips.end()) append(buckets->second, found);
    return found;
}

ClipPlace findClip(Recorder& recorder, const RecorderClip* clip) {
    if (clip == nullptr) return {};
    for (auto& [channel, buckets] : recorder.clips) {
        for (auto& [key, bucket] : buckets) {
            for (RecorderClip& candidate : bucket) {
                if (&candidate == clip) return {&candidate, channel, key};
            }
        }
    }
    return {};
}

double clipFrequency(Recorder& recorder, const RecorderClip* clip) {
    const ClipPlace place = findClip(recorder, clip);
    return place.clip == nullptr ? 0.0 : keyFrequency(place.key);
}

double recorderEnd(const Recorder& recorder) {
    double end = 0.0;
    for (const auto& [channel, buckets] : recorder.clips) {
        for (const auto& [key, bucket] : buckets) {
            for (const RecorderClip& clip : bucket)
                end = std::max(end, clip.end);
        }
    }
    return end;
}

RecorderClip* moveClipToFrequency(Recorder& recorder, RecorderClip* clip, double frequency) {
    const ClipPlace place = findClip(recorder, clip);
    if (place.clip == nullptr) return nullptr;
    releaseActiveClip(recorder, *place.clip);
    return relink(recorder, place, place.channel, frequencyKey(frequency));
}

RecorderClip* moveClipToChannel(Recorder& recorder, RecorderClip* clip, std::int32_t channel) {
    const ClipPlace place = findClip(recorder, clip);
    if (place.clip == nullptr) return nullptr;
    releaseActiveClips(recorder);
    return relink(recorder, place, channel, place.key);
}

void removeSelected(Recorder& recorder) {
    for (auto& [channel, buckets] : recorder.clips) {
        for (auto& [key, bucket] : buckets) {
            const auto removed = bucket.remove_if([&recorder](const RecorderClip& clip) {
                if (clip.selected) forget(recorder, clip);
                return clip.selected;
            });
            recorder.clipCount -= static_cast<std::int32_t>(removed);
        }
    }
}

void clearRecorder(Recorder& recorder) {
    releaseActiveClips(recorder);
    recorder.grabbedClip = nullptr;
    recorder.grabbedChannel = -1;
    recorder.movingClip = recorder.resizingEnd = recorder.resizingStart = false;
    recorder.editOpen = false;
    recorder.editClip = nullptr;
    recorder.editChannel = -1;
    recorder.editRow = -1;
    recorder.lastClickTicks = 0;
    recorder.lastClickClip = nullptr;
    recorder.clips.clear();
    recorder.clipCount = 0;
    recorder.nextClipId = 1;
}

void deselectAll(Recorder& recorder) {
    forEachClip(recorder, [](RecorderClip& clip) { clip.selected = false; });
}

void selectAll(Recorder& recorder) {
    forEachClip(recorder, [](RecorderClip& clip) { clip.selected = true; });
}

bool anySelected(const Recorder& recorder) {
    for (const auto& [channel, buckets] : recorder.clips) {
        for (const auto& [key, bucket] : buckets) {
            const auto selected = [](const RecorderClip& clip) { return clip.selected; };
            if (std::any_of(bucket.begin(), bucket.end(), selected)) return true;
        }
    }
    return false;
}

void addChannel(Recorder& recorder) {
    recorder.channelCount = std::min(recorder.channelCount + 1, kMaxRecorderChannels);
}

void removeChannel(Recorder& recorder) {
    recorder.channelCount = std::max(recorder.channelCount - 1, 1);
}

}  // namespace veloria
