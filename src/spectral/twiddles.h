// What the vectorised transform looks up.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "spectral/sacred_fft.h"

namespace veloria {

// The twiddles of two stages of the transform taken in one pass over blocks of four times `Quarter` values.
template <std::size_t Quarter>
struct alignas(64) PassTwiddles {
    static constexpr std::size_t kQuarter = Quarter;
    std::array<double, Quarter> firstReal, firstImag;  // of the stage over half a block
    std::array<double, Quarter> lowReal, lowImag;      // of the stage over the block, its first half
    std::array<double, Quarter> highReal, highImag;    // and its second half
};

// Six passes of two stages each make the twelve stages of a block.
struct TransformTables {
    std::array<std::int32_t, kBlockSize / 4> groupPlace;  // where pass 1 puts each of its groups of four
    PassTwiddles<1> pass1;
    PassTwiddles<4> pass2;
    PassTwiddles<16> pass3;
    PassTwiddles<64> pass4;
    PassTwiddles<256> pass5;
    PassTwiddles<1024> pass6;
    // atan(i / 64), i from 0 to 64, and sin(pi i / 32), i from 0 to 80, where the cosine stands 16 further.
    alignas(64) std::array<double, 65> arctanHigh, arctanLow;
    alignas(64) std::array<double, 81> sineHigh;
    // The low parts of sine (upper half) and cosine i, each the upper half of a double: a low part needs few
    // digits, and so one lookup brings both.
    alignas(64) std::array<std::int64_t, 64> lowParts;
    // Whether this C library's hypot is the square root of the squares less half of what its square exceeds
    // them by over the root, in plain doubles: then it is worked out by the vector and never asked.
    bool hypotIsCorrectedRoot;
};

// The tables, made at the first call, which SacredFft::Init does; from then on any thread.
[[nodiscard]] const TransformTables& transformTables();

}  // namespace veloria
