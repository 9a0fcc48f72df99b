#include "media/wav_reader.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <exception>
#include <optional>
#include <type_traits>

#include "base/large_pages.h"
#include "base/little_endian.h"
#include "media/pcm_stream.h"
#include "media/resample.h"

namespace veloria {
namespace {

constexpr std::uint16_t kFormatInteger = 1;
constexpr std::uint16_t kFormatFloat = 3;
constexpr std::uint16_t kFormatExtensible = 0xFFFE;
constexpr std::uint64_t kFormatFields = 16;        // bytes of a "fmt " chunk that are always read
constexpr std::uint64_t kSubFormatOffset = 24;     // of the code in an extensible "fmt " chunk
constexpr std::uint64_t kMaxRepeatedSeconds = 10;  // of a claim beyond the file's end

using platform::littleEndian16;
using platform::littleEndian32;

// What the chunks say.
struct WavLayout {
    std::uint16_t format = 0;  // 0 is no format that can be read
    std::uint16_t channels = 0;
    std::uint32_t rate = 0;              // Hz
    std::uint16_t bits = 0;              // per sample
    std::uint64_t dataSize = 0;          // bytes, as claimed
    std::span<const std::uint8_t> data;  // from the data chunk's start to the end of the file
};

void readFormat(std::span<const std::uint8_t> body, std::uint64_t size, WavLayout& layout) {
    layout.format = littleEndian16(&body[0]);
    layout.channels = littleEndian16(&body[2]);
    layout.rate = littleEndian32(&body[4]);
    layout.bits = littleEndian16(&body[14]);  // the byte rate at 8 and the block align at 12 are not used
    const std::uint64_t codeEnd = kSubFormatOffset + 2;
    if (layout.format == kFormatExtensible && size >= codeEnd && body.size() >= codeEnd) {
        layout.format = littleEndian16(&body[kSubFormatOffset]);
    }
}

// Walks the chunks up to the first "data". Nothing without one; a format of 0 when no "fmt " comes before it.
std::optional<WavLayout> readChunks(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < 12 || std::memcmp(&bytes[0], "RIFF", 4) != 0 ||
        std::memcmp(&bytes[8], "WAVE", 4) != 0) {
        return std::nullopt;
    }
    WavLayout layout;
    std::uint64_t position = 12;  // 64 bits: a size near 2^32 must not wrap it
    while (position + 8 <= bytes.size()) {
        const std::uint8_t* header = &bytes[position];
        const std::uint64_t size = littleEndian32(header + 4);
        const std::span<const std::uint8_t> body = bytes.subspan(position + 8);
        if (std::memcmp(header, "data", 4) == 0) {
            layout.dataSize = size;
            layout.data = body;
            return layout;
        }
        const bool isFormat = std::memcmp(header, "fmt ", 4) == 0;
        if (isFormat) {
            if (body.size() < kFormatFields) return std::nullopt;
            readFormat(body, size, layout);
        }
        // No pad byte behind an odd size; a "fmt " takes up all its fields even if it claims to be shorter.
        position += 8 + (isFormat ? std::max(size, kFormatFields) : size);
    }
    return std::nullopt;
}

// The value decoders: bytes that one value takes, and its value. The factors are exact powers of two.
struct Integer8 {
    static constexpr std::uint64_t kBytes = 1;
    static float value(const std::uint8_t* at) { return static_cast<float>(at[0] - 128) * 0.0078125F; }
};

struct Integer16 {
    static constexpr std::uint64_t kBytes = 2;
    static float value(const std::uint8_t* at) {
        return static_cast<float>(static_cast<std::int16_t>(littleEndian16(at))) * 3.0517578e-5F;
    }
};

struct Integer24 {
    static constexpr std::uint64_t kBytes = 3;
    static float value(const std::uint8_t* at) {
        const std::uint32_t high = littleEndian16(at) * 256U + at[2] * 16777216U;
        return static_cast<float>(static_cast<std::int32_t>(high) >> 8) * 1.1920929e-7F;
    }
};

struct Integer32 {
    static constexpr std::uint64_t kBytes = 4;
    static float value(const std::uint8_t* at) {
        return static_cast<float>(static_cast<std::int32_t>(littleEndian32(at))) * 4.656613e-10F;
    }
};

static_assert(3.0517578e-5F * 32768.0F == 1.0F && 1.1920929e-7F * 8388608.0F == 1.0F &&
              4.656613e-10F * 2147483648.0F == 1.0F);

struct Float32 {
    static constexpr std::uint64_t kBytes = 4;
    static float value(const std::uint8_t* at) {
        const auto value = std::bit_cast<float>(littleEndian32(at));
        return std::isfinite(value) ? value : 0.0F;  // nothing behind this reader can do with a NaN
    }
};

// The mean of each of `out`'s frames. `Channels` is a constant for the usual counts, so that the inner loop
// unrolls.
template <class Value, class Channels>
void decodeWholeFrames(const std::uint8_t* at, Channels channels, std::span<float> out) {
    for (float& sample : out) {
        float sum = 0.0F;
        for (std::uint32_t channel = 0; channel < channels; ++channel) {
            sum += Value::value(at);
            at += Value::kBytes;
        }
        sample = sum / static_cast<float>(static_cast<std::uint32_t>(channels));
        if constexpr (Value::kBytes == Float32::kBytes) {
            if (!std::isfinite(sample)) sample = 0.0F;  // finite floats, but their sum is too large
        }
    }
}

// The first frame that the file holds only in part or not at all: each value that is missing is the last one
// read.
template <class Value>
float decodeTornFrame(const WavLayout& layout, std::uint64_t wholeFrames) {
    const std::uint64_t first = wholeFrames * layout.channels;
    const std::uint64_t held = layout.data.size() / Value::kBytes;
    float last = held == 0 ? 0.0F : Value::value(&layout.data[(held - 1) * Value::kBytes]);
    float sum = 0.0F;
    for (std::uint64_t i = first; i < first + layout.channels; ++i) {
        sum += i < held ? Value::value(&layout.data[i * Value::kBytes]) : last;
    }
    const float mean = sum / static_cast<float>(layout.channels);
    return std::isfinite(mean) ? mean : 0.0F;
}

template <class Value>
void decodeFrames(const WavLayout& layout, DecodedAudio& audio) {
    const std::uint32_t channels = layout.channels;
    // Floats take 4 bytes whatever the bits of a sample say, so this can be fewer than the frames of the data
    // size.
    const std::uint64_t whole = std::min(audio.frames, layout.data.size() / (channels * Value::kBytes));
    reserveLarge(audio.samples, static_cast<std::size_t>(std::min(audio.frames, whole + 2)));
    audio.samples.resize(static_cast<std::size_t>(whole));
    const std::uint8_t* at = layout.data.data();
    if (channels == 1) {
        decodeWholeFrames<Value>(at, std::integral_constant<std::uint32_t, 1>{}, audio.samples);
    } else if (channels == 2) {
        decodeWholeFrames<Value>(at, std::integral_constant<std::uint32_t, 2>{}, audio.samples);
    } else {
        decodeWholeFrames<Value>(at, channels, audio.samples);
    }
    // The torn frame and one that is missing altogether; all behind that one are like it.
    for (std::uint64_t frame = whole; frame < std::min(audio.frames, whole + 2); ++frame) {
        audio.samples.push_back(decodeTornFrame<Value>(layout, frame));
    }
}

// The frames to produce, 0 for none. A claim a little beyond the file's end is a torn file, and its missing
// frames repeat what was read last; a claim far beyond it is the placeholder of a writer that could not seek
// back.
std::uint64_t frameCount(const WavLayout& layout) {
    const std::uint64_t frameBytes = layout.bits / 8U * std::uint64_t{layout.channels};
    if (frameBytes == 0) return 0;
    const std::uint64_t claimed = layout.dataSize / frameBytes;
    const std::uint64_t held = layout.data.size() / frameBytes;
    if (claimed <= held) return claimed;
    const std::uint64_t rate = layout.rate == 0 ? kStreamRate : layout.rate;
    return claimed - held <= kMaxRepeatedSeconds * rate ? claimed : held;
}

DecodedAudio decodeData(const WavLayout& layout) {
    DecodedAudio audio;
    audio.rate = layout.rate;
    audio.frames = frameCount(layout);
    if (audio.frames == 0) return audio;
    if (layout.format == kFormatFloat) {
        decodeFrames<Float32>(layout, audio);
    } else if (layout.bits == 8) {
        decodeFrames<Integer8>(layout, audio);
    } else if (layout.bits == 16) {
        decodeFrames<Integer16>(layout, audio);
    } else if (layout.bits == 24) {
        decodeFrames<Integer24>(layout, audio);
    } else if (layout.bits == 32) {
        decodeFrames<Integer32>(layout, audio);
    } else {
        audio.samples.push_back(
            0.0F);  // an integer of another width is silence, for as long as the size says
    }
    return audio;
}

}  // namespace

bool decodeWav(std::span<const std::uint8_t> bytes, std::vector<float>& samples) {
    samples.clear();
    const std::optional<WavLayout> layout = readChunks(bytes);
    if (!layout || (layout->format != kFormatInteger && layout->format != kFormatFloat)) return false;
    try {
        samples = resampleForStream(decodeData(*layout), maxStreamSamples(bytes.size()));
    } catch (const std::exception&) {  // no memory
        samples.clear();
    }
    return !samples.empty();
}

}  // namespace veloria
