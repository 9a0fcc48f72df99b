// Writing sound as a RIFF WAVE file: 44,100 Hz, stereo, 16 bits.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace veloria {

// The frames that a file's 32-bit size fields can count.
inline constexpr std::uint64_t kMaxWavFrames = (0xFFFFFFFFull - 36) / 4;

// A sample times 32000, truncated, held to -32768 to 32767: full scale comes to 32000.
[[nodiscard]] std::int16_t toSample16(float value);

// Writes interleaved stereo samples (at most kMaxWavFrames frames). False when the file cannot be opened or
// not be written to its end; a partial file stays.
[[nodiscard]] bool writeWavFile(const std::string& path, std::span<const std::int16_t> samples);

}  // namespace veloria
