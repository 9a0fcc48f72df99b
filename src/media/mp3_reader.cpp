#include "media/mp3_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <exception>
#include <limits>

#define MINIMP3_FLOAT_OUTPUT
#include <minimp3.h>

#include "media/resample.h"

namespace veloria {
namespace {

// The decoder takes its length as an int. It believes in a frame when up to ten more follow, 1441 bytes each
// at most, so a search that found nothing in one window goes on this much before its end.
constexpr std::size_t kWindowBytes = std::size_t{1} << 20;
constexpr std::size_t kSearchOverlap = std::size_t{1} << 14;
constexpr std::size_t kMaxReservedSamples = std::size_t{1} << 25;

using FramePcm = std::array<float, MINIMP3_MAX_SAMPLES_PER_FRAME>;

// The mean of one or two channels of each of `count` frames, in place; 0 where damage has made a value that
// is no number. The sum of a single value and 0 is taken as well: a negative 0 becomes a positive one.
void takeMeans(FramePcm& pcm, std::size_t count, int channels) {
    constexpr float kLargest = std::numeric_limits<float>::max();
    const auto finite = [](float value) { return std::fabs(value) <= kLargest ? value : 0.0F; };
    if (channels == 2) {
        for (std::size_t i = 0; i < count; ++i)
            pcm[i] = finite((pcm[2 * i] + pcm[2 * i + 1]) / 2.0F + 0.0F);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            pcm[i] = finite(pcm[i] + 0.0F);
    }
}

DecodedAudio decodeFrames(std::span<const std::uint8_t> bytes) {
    DecodedAudio audio;
    mp3dec_t decoder{};
    mp3dec_init(&decoder);
    FramePcm pcm{};
    while (!bytes.empty()) {
        mp3dec_frame_info_t info{};
        const int window = static_cast<int>(std::min(bytes.size(), kWindowBytes));
        const int count = mp3dec_decode_frame(&decoder, bytes.data(), window, pcm.data(), &info);
        if (info.frame_bytes <= 0) break;
        if (count > 0) {
            const auto frames = static_cast<std::size_t>(count);
            if (audio.samples.empty()) {
                audio.rate = static_cast<std::uint32_t>(info.hz);
                // As many as there are if all frames are like the first.
                const std::size_t alike = bytes.size() / static_cast<std::size_t>(info.frame_bytes) + 1;
                audio.samples.reserve(std::min(alike * frames, kMaxReservedSamples));
            }
            takeMeans(pcm, frames, info.channels);
            audio.samples.insert(audio.samples.end(), pcm.begin(), pcm.begin() + count);
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
