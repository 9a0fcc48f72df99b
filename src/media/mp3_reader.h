// Decodes an MP3 file.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace veloria {

// Decodes all frames to the mean of their channels, at 44,100 Hz; the rate of the first frame with samples
// counts for all. What is no frame is stepped over. True with at least one sample; otherwise `samples` is
// empty: no frame found, or not enough memory.
[[nodiscard]] bool decodeMp3(std::span<const std::uint8_t> bytes, std::vector<float>& samples);

}  // namespace veloria
