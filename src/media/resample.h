// From a decoded file at its own rate to the samples of a stream.
#pragma once

#include <cstdint>
#include <vector>

namespace veloria {

// A decoded file: mono at its own rate.
struct DecodedAudio {
    std::vector<float> samples;  // the frames that the file holds
    std::uint64_t frames = 0;    // at least samples.size(); the frames behind `samples` repeat its last value
    std::uint32_t rate = 0;      // Hz; 0 counts as 44,100
};

// The most samples that a file of `fileBytes` bytes may become. Beyond it the load is given up: a WAV file of
// a few kilobytes with a rate of 1 Hz would fill the machine's memory.
[[nodiscard]] std::uint64_t maxStreamSamples(std::uint64_t fileBytes);

// Brings `audio` to 44,100 Hz by linear interpolation, with no filter: (frames / ratio, truncated) + 1
// samples, or at 44,100 Hz the frames as they are. Empty with no frames and when the result would exceed
// `maxSamples`.
[[nodiscard]] std::vector<float> resampleForStream(DecodedAudio audio, std::uint64_t maxSamples);

}  // namespace veloria
