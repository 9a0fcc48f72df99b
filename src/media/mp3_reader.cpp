#include "media/mp3_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <exception>

#define MINIMP3_FLOAT_OUTPUT
#include <minimp3.h>

#include "media/resample.h"

namespace veloria {
namespace {

// The decoder takes its length as an int. It believes in a frame when up to ten more follow, 1441 bytes each
// at most, so a search that found nothing in one window goes on this much before its end.
constexpr std::size_t kWindowBytes = std::size_t{1} << 20;
constexpr std::size_t kSearchOverlap = std::size_t{1} << 14;
constexpr std::size_t kMaxReservedSamples = std::size_t{1} << 22;

// The mean of the channels of each frame in `pcm`; 0 where damage has made a value that is no number.
void appendMeans(std::span<const float> pcm, int channels, std::vector<float>& samples) {
    const auto step = static_cast<std::size_t>(channels);
    for (std::size_t frame = 0; frame + step <= pcm.size(); frame += step) {
        float sum = 0.0F;
        for (std::size_t channel = 0; channel < step; ++channel)
            sum += pcm[frame + channel];
        const float mean = sum / static_cast<float>(channels);
        samples.push_back(std::isfinite(mean) ? mean : 0.0F);
    }
}

DecodedAudio decodeFrames(std::span<const std::uint8_t> bytes) {
    DecodedAudio audio;
    audio.samples.reserve(std::min(bytes.size() * 4, kMaxReservedSamples));
    mp3dec_t decoder{};
    mp3dec_init(&decoder);
    std::array<float, MINIMP3_MAX_SAMPLES_PER_FRAME> pcm{};
    while (!bytes.empty()) {
        mp3dec_frame_info_t info{};
        const int window = static_cast<int>(std::min(bytes.size(), kWindowBytes));
        const int count = mp3dec_decode_frame(&decoder, bytes.data(), window, pcm.data(), &info);
        if (info.frame_bytes <= 0) break;
        if (count > 0) {
            if (audio.samples.empty()) audio.rate = static_cast<std::uint32_t>(info.hz);
            const auto values = static_cast<std::size_t>(count) * static_cast<std::size_t>(info.channels);
            appendMeans(std::span<const float>(pcm).first(values), info.channels, audio.samples);
        }
        auto used = static_cast<std::size_t>(info.frame_bytes);
        const bool noFrameInWindow = info.hz == 0;
        if (noFrameInWindow && bytes.size() > kWindowBytes && used > kSearchOverlap) used -= kSearchOverlap;
        bytes = bytes.subspan(used);
    }
    audio.frames = audio.samples.size();
    return audio;
}

}  // namespace

bool decodeMp3(std::span<const std::uint8_t> bytes, std::vector<float>& samples) {
    samples.clear();
    try {
        samples = resampleForStream(decodeFrames(bytes), maxStreamSamples(bytes.size()));
    } catch (const std::exception&) {  // no memory
        samples.clear();
    }
    return !samples.empty();
}

}  // namespace veloria
