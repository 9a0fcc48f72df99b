// WAV files as bytes: mono, 16 bits, 8000 Hz, a plain tone.
#pragma once

#include <cmath>
#include <cstdint>
#include <string>

namespace veloria::test {

inline void appendLittleEndian(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

inline std::string waveBytes(double seconds) {
    constexpr std::uint32_t kRate = 8000;
    const auto frames = static_cast<std::uint32_t>(seconds * kRate);
    std::string bytes = "RIFF";
    appendLittleEndian(bytes, 36 + frames * 2, 4);
    bytes += "WAVEfmt ";
    appendLittleEndian(bytes, 16, 4);
    appendLittleEndian(bytes, 1, 2);  // integer samples
    appendLittleEndian(bytes, 1, 2);  // one channel
    appendLittleEndian(bytes, kRate, 4);
    appendLittleEndian(bytes, kRate * 2, 4);
    appendLittleEndian(bytes, 2, 2);
    appendLittleEndian(bytes, 16, 2);
    bytes += "data";
    appendLittleEndian(bytes, frames * 2, 4);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const auto sample = static_cast<std::int16_t>(8000.0 * std::sin(0.3 * i));
        appendLittleEndian(bytes, static_cast<std::uint16_t>(sample), 2);
    }
    return bytes;
}

}  // namespace veloria::test
