// One decoded sound file, whole in memory, and the read position that the audio callback moves through it.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace veloria {

// The sample rate of every stream, Hz.
inline constexpr std::uint32_t kStreamRate = 44100;

// The atomics need no order among themselves: `samples` is only ever exchanged while the audio device is
// paused or locked, and that is what makes the new samples visible to the callback.
struct PcmStream {
    std::vector<float> samples;              // mono at kStreamRate, nominally -1 to 1
    std::atomic<std::uint64_t> position{0};  // index of the next sample
    std::atomic<bool> playing{false};        // the callback reads samples only while this is true
};

// The next sample, 0.0 when not playing. Reading past the last sample stops the stream. Audio thread.
[[nodiscard]] inline float nextPcmSample(PcmStream& stream) {
    if (!stream.playing.load(std::memory_order_relaxed)) return 0.0F;
    const std::uint64_t index = stream.position.fetch_add(1, std::memory_order_relaxed);
    if (index >= stream.samples.size()) {
        stream.playing.store(false, std::memory_order_relaxed);
        return 0.0F;
    }
    return stream.samples[index];
}

// What nextPcmSample would give one after the other, into `out`. Returns how many of them are the file's;
// silence follows them. Audio thread.
std::size_t nextPcmSamples(PcmStream& stream, std::span<float> out);

// Stops the stream, rewinds it and empties it. Main thread, with the audio device paused or its lock held;
// the old samples come back so that a caller who holds the lock can free them after it.
inline std::vector<float> clearPcmStream(PcmStream& stream) {
    stream.playing.store(false, std::memory_order_relaxed);
    stream.position.store(0, std::memory_order_relaxed);
    return std::exchange(stream.samples, {});
}

}  // namespace veloria
