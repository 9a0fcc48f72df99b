// The WAV reader against a plain second one, wherever that one's work is bearable.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "../tests/media/literal_wav.h"
#include "media/resample.h"
#include "media/wav_reader.h"

namespace {

constexpr std::uint64_t kMostValues = 50000;  // that the plain reader is asked for
constexpr std::size_t kMostSamples = 500000;  // that it is asked to interpolate

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using veloria::test::LiteralWav;
    const std::span<const std::uint8_t> bytes(data, size);
    std::vector<float> samples;
    require(veloria::decodeWav(bytes, samples) == !samples.empty());
    require(samples.size() <= veloria::maxStreamSamples(size));
    for (const float sample : samples)
        require(!std::isnan(sample));

    LiteralWav literal(bytes);
    const std::uint64_t frames = literal.frames();
    if (frames == 0) require(samples.empty());
    const double rate = literal.rate() == 0 ? 44100.0 : literal.rate();
    const double expected = static_cast<double>(frames) / rate * 44100.0;
    if (frames > kMostValues || frames * literal.channels() > kMostValues) return 0;
    if (expected > static_cast<double>(kMostSamples)) return 0;
    require(samples == LiteralWav::resample(literal.decode(frames), literal.rate()));
    return 0;
}
