// A colour without a drawing library: this folder knows none.
#pragma once

#include <cstdint>

namespace veloria {

struct Rgba {
    std::uint8_t r, g, b, a;  // 0 to 255

    bool operator==(const Rgba&) const = default;
};

}  // namespace veloria
