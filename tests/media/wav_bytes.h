// Builds the bytes of WAV files, sound ones and damaged ones.
#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace veloria::test {

using Bytes = std::vector<std::uint8_t>;

inline void appendLittleEndian(Bytes& bytes, std::uint64_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

inline void appendAll(Bytes& bytes, const Bytes& more) {
    for (const std::uint8_t byte : more)
        bytes.push_back(byte);
}

// Integers of `width` bytes each, or floats.
inline Bytes integers(int width, const std::vector<std::int64_t>& values) {
    Bytes bytes;
    for (const std::int64_t value : values) {
        appendLittleEndian(bytes, static_cast<std::uint64_t>(value), width);
    }
    return bytes;
}

inline Bytes floats(std::initializer_list<float> values) {
    Bytes bytes;
    for (const float value : values)
        appendLittleEndian(bytes, std::bit_cast<std::uint32_t>(value), 4);
    return bytes;
}

// A chunk, with its own size unless another is claimed; no pad byte.
inline Bytes riffChunk(std::string_view id, const Bytes& body, std::uint64_t claimedSize) {
    Bytes bytes(id.begin(), id.end());
    appendLittleEndian(bytes, claimedSize, 4);
    appendAll(bytes, body);
    return bytes;
}

inline Bytes riffChunk(std::string_view id, const Bytes& body) {
    return riffChunk(id, body, body.size());
}

// The fields of a "fmt " chunk.
struct WavFormat {
    int format = 1;
    int channels = 1;
    std::uint32_t rate = 44100;
    int bits = 16;
};

inline Bytes formatFields(const WavFormat& format) {
    Bytes bytes;
    const auto frameBytes = static_cast<std::uint32_t>(format.bits / 8 * format.channels);
    appendLittleEndian(bytes, static_cast<std::uint64_t>(format.format), 2);
    appendLittleEndian(bytes, static_cast<std::uint64_t>(format.channels), 2);
    appendLittleEndian(bytes, format.rate, 4);
    appendLittleEndian(bytes, std::uint64_t{format.rate} * frameBytes, 4);
    appendLittleEndian(bytes, frameBytes, 2);
    appendLittleEndian(bytes, static_cast<std::uint64_t>(format.bits), 2);
    return bytes;
}

// The 40 bytes of an extensible "fmt " chunk whose sub-format is format.format.
inline Bytes extensibleFields(const WavFormat& format) {
    WavFormat outer = format;
    outer.format = 0xFFFE;
    Bytes bytes = formatFields(outer);
    appendLittleEndian(bytes, 22, 2);                                         // bytes that follow
    appendLittleEndian(bytes, static_cast<std::uint64_t>(format.bits), 2);    // valid bits
    appendLittleEndian(bytes, 0, 4);                                          // speaker mask
    appendLittleEndian(bytes, static_cast<std::uint64_t>(format.format), 2);  // sub-format code
    const Bytes tail{0, 0, 0, 0, 0x10, 0, 0x80, 0, 0, 0xAA, 0, 0x38, 0x9B, 0x71};
    appendAll(bytes, tail);
    return bytes;
}

inline Bytes riffFile(std::initializer_list<Bytes> chunks) {
    Bytes body;
    for (const Bytes& chunk : chunks)
        appendAll(body, chunk);
    Bytes bytes{'R', 'I', 'F', 'F'};
    appendLittleEndian(bytes, body.size() + 4, 4);
    for (const char letter : {'W', 'A', 'V', 'E'})
        bytes.push_back(static_cast<std::uint8_t>(letter));
    appendAll(bytes, body);
    return bytes;
}

inline Bytes wavFile(const WavFormat& format, const Bytes& data, std::uint64_t claimedSize) {
    return riffFile({riffChunk("fmt ", formatFields(format)), riffChunk("data", data, claimedSize)});
}

inline Bytes wavFile(const WavFormat& format, const Bytes& data) {
    return wavFile(format, data, data.size());
}

}  // namespace veloria::test
