#include "recorder/clipboard.h"

#include <algorithm>

#include "recorder/clips.h"

namespace veloria {

void copySelected(Recorder& recorder) {
    recorder.clipboard.clear();
    recorder.clipboardStart = kNoClipboardStart;
    for (const auto& [channel, buckets] : recorder.clips) {
        for (const auto& [key, bucket] : buckets) {
            for (const RecorderClip& clip : bucket) {
                if (!clip.selected) continue;
                recorder.clipboard.push_back({channel, keyFrequency(key), clip});
                recorder.clipboardStart = std::min(recorder.clipboardStart, clip.start);
            }
        }
    }
}

void pasteClipboard(Recorder& recorder) {
    if (recorder.clipboard.empty()) return;
    const double shift = recorder.playhead - recorder.clipboardStart;
    for (const ClipboardClip& entry : recorder.clipboard) {
        RecorderClip clip = entry.clip;
        clip.id = recorder.nextClipId++;
        clip.start += shift;
        clip.end += shift;
        clip.selected = false;
        addClip(recorder, std::min(entry.channel, recorder.channelCount - 1), entry.frequency, clip);
    }
}

}  // namespace veloria
