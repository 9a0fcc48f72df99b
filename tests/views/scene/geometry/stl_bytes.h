// Builds the bytes of binary STL files, sound ones and damaged ones.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

namespace veloria::test {

using StlCorner = std::array<float, 3>;
using StlTriangle = std::array<StlCorner, 3>;

inline void appendNumber(std::vector<std::uint8_t>& bytes, float number) {
    const auto bits = std::bit_cast<std::uint32_t>(number);
    for (int i = 0; i < 4; ++i)
        bytes.push_back(static_cast<std::uint8_t>(bits >> (8 * i)));
}

// The 84 bytes before the triangles.
inline std::vector<std::uint8_t> stlHead(std::uint32_t count) {
    std::vector<std::uint8_t> bytes(80, 'h');
    for (int i = 0; i < 4; ++i)
        bytes.push_back(static_cast<std::uint8_t>(count >> (8 * i)));
    return bytes;
}

// With a count of its own where one is claimed. Normals and attributes are such as no reader may use.
inline std::vector<std::uint8_t> stlFile(const std::vector<StlTriangle>& triangles,
                                         std::uint32_t claimedCount) {
    std::vector<std::uint8_t> bytes = stlHead(claimedCount);
    for (const StlTriangle& triangle : triangles) {
        for (int i = 0; i < 3; ++i)
            appendNumber(bytes, std::bit_cast<float>(0x7FC00000U));
        for (const StlCorner& corner : triangle) {
            for (const float number : corner)
                appendNumber(bytes, number);
        }
        bytes.push_back(0xFF);
        bytes.push_back(0xFF);
    }
    return bytes;
}

inline std::vector<std::uint8_t> stlFile(const std::vector<StlTriangle>& triangles) {
    return stlFile(triangles, static_cast<std::uint32_t>(triangles.size()));
}

}  // namespace veloria::test
