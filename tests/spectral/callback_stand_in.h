// A file played through the retuner as the audio callback does it, without the rest of the callback.
#pragma once

#include <vector>

#include "spectral/sacred_fft.h"

namespace veloria::fixture {

struct FilePlayer {
    std::vector<float> samples;
    std::size_t position = 0;
    bool playing = true;

    float next() {
        if (!playing) return 0.0f;
        if (position >= samples.size()) {
            playing = false;
            return 0.0f;
        }
        return samples[position++];
    }
};

// One frame: the feed first, then the frame's own sample.
inline float playFrame(SacredFft& retuner, FilePlayer& file) {
    const RetunerSettings settings = loadSettings(retuner);
    while (needsFeed(retuner, settings))
        feedSample(retuner, file.next());
    return retuner.processSample(file.next(), settings);
}

inline std::vector<float> play(SacredFft& retuner, FilePlayer& file, std::size_t frames) {
    std::vector<float> out(frames);
    for (float& x : out)
        x = playFrame(retuner, file);
    return out;
}

}  // namespace veloria::fixture
