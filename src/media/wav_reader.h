// Decodes a RIFF WAVE file.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace veloria {

// Decodes integer PCM of 8, 16, 24 and 32 bits and 32-bit floats to the mean of the channels, at 44,100 Hz.
// True with at least one sample; otherwise `samples` is empty: not such a file, no audio in it, or not enough
// memory. No length that the file states is trusted; memory use follows from the number of bytes.
[[nodiscard]] bool decodeWav(std::span<const std::uint8_t> bytes, std::vector<float>& samples);

}  // namespace veloria
