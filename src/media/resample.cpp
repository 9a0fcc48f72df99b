#include "media/resample.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "media/pcm_stream.h"

namespace veloria {
namespace {

// The densest that MP3 frames with a stated bit rate come to: 8 kbit/s at 24 kHz is 24 samples a byte, and
// behind a first frame of 8 kHz, whose rate counts for all, each of them becomes 5.5125.
constexpr std::uint64_t kMaxSamplesPerByte = 133;
constexpr std::uint64_t kAlwaysAllowedSamples = std::uint64_t{600} * kStreamRate;  // ten minutes, 106 MB

// `at` interpolates between the frame that it falls in and the next; the last frame stands for all behind it.
float interpolate(const DecodedAudio& audio, double at) {
    const auto frame = static_cast<std::uint64_t>(at);
    const auto fraction = static_cast<float>(at - static_cast<double>(frame));
    const std::size_t last = audio.samples.size() - 1;
    const float here = audio.samples[frame < last ? static_cast<std::size_t>(frame) : last];
    const float next = audio.samples[frame < last ? static_cast<std::size_t>(frame) + 1 : last];
    return (1.0F - fraction) * here + fraction * next;
}

std::vector<float> interpolateAll(const DecodedAudio& audio, double ratio, std::size_t count) {
    std::vector<float> samples;
    samples.reserve(count);
    // While the frame and the next are both held nothing has to be asked; a float's frames, well below 2^31
    // here, are found faster by an int.
    constexpr double kMostSimple = 2147483647.0;
    const double simpleEnd = std::min(static_cast<double>(audio.samples.size()) - 1.0, kMostSimple);
    const float* frames = audio.samples.data();
    std::size_t i = 0;
    for (double at = 0.0; i < count && at < simpleEnd; at = static_cast<double>(++i) * ratio) {
        const auto frame = static_cast<std::int32_t>(at);
        const auto fraction = static_cast<float>(at - static_cast<double>(frame));
        samples.push_back((1.0F - fraction) * frames[frame] + fraction * frames[frame + 1]);
    }
    for (; i < count; ++i)
        samples.push_back(interpolate(audio, static_cast<double>(i) * ratio));
    return samples;
}

}  // namespace

std::uint64_t maxStreamSamples(std::uint64_t fileBytes) {
    return fileBytes * kMaxSamplesPerByte + kAlwaysAllowedSamples;
}

std::vector<float> resampleForStream(DecodedAudio audio, std::uint64_t maxSamples) {
    if (audio.samples.empty() || audio.frames == 0) return {};
    if (audio.rate == kStreamRate || audio.rate == 0) {
        if (audio.frames > maxSamples) return {};
        const float last = audio.samples.back();
        audio.samples.resize(static_cast<std::size_t>(audio.frames), last);
        return std::move(audio.samples);
    }
    const double ratio = audio.rate / static_cast<double>(kStreamRate);
    const std::uint64_t count = static_cast<std::uint64_t>(static_cast<double>(audio.frames) / ratio) + 1;
    if (count > maxSamples) return {};
    return interpolateAll(audio, ratio, static_cast<std::size_t>(count));
}

}  // namespace veloria
