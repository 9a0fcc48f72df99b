// Whole numbers of files that store the low byte first.
#pragma once

#include <cstdint>

namespace veloria::platform {

// `bytes` holds at least the two, or four, that are read.
[[nodiscard]] constexpr std::uint16_t littleEndian16(const std::uint8_t* bytes) {
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

[[nodiscard]] constexpr std::uint32_t littleEndian32(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(littleEndian16(bytes)) |
           static_cast<std::uint32_t>(littleEndian16(bytes + 2)) << 16;
}

}  // namespace veloria::platform
