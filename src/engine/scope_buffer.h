// The last of all sound that went to the device, for the scope and the lotus.
#pragma once

#include <array>
#include <cstdint>

namespace veloria {

inline constexpr int kScopeBufferSize = 2048;

// Mono, synthesiser and file. Written by the audio callback, read under AudioLock.
struct ScopeBuffer {
    std::array<float, kScopeBufferSize> samples{};
    std::int32_t write = 0;  // next place to be written, and the oldest sample
};

}  // namespace veloria
