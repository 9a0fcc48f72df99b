#include "media/pcm_stream.h"

#include <algorithm>
#include <cstddef>

namespace veloria {

std::size_t nextPcmSamples(PcmStream& stream, std::span<float> out) {
    if (!stream.playing.load(std::memory_order_relaxed)) {
        std::fill(out.begin(), out.end(), 0.0F);
        return 0;
    }
    // Only one reader takes blocks, so the position stays where it is until the block is counted.
    const std::uint64_t size = stream.samples.size();
    const std::uint64_t index = stream.position.load(std::memory_order_relaxed);
    const std::uint64_t left = index < size ? size - index : 0;
    const std::uint64_t held = std::min<std::uint64_t>(left, out.size());
    const auto from = stream.samples.begin() + static_cast<std::ptrdiff_t>(std::min(index, size));
    const auto end = std::copy_n(from, static_cast<std::ptrdiff_t>(held), out.begin());
    std::fill(end, out.end(), 0.0F);
    if (held < out.size()) stream.playing.store(false, std::memory_order_relaxed);
    // The read that finds the end counts as well.
    stream.position.fetch_add(std::min<std::uint64_t>(left + 1, out.size()), std::memory_order_relaxed);
    return static_cast<std::size_t>(held);
}

}  // namespace veloria
