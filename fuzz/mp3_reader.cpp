// The MP3 reader: bounded in what it makes, and finite in every sample.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "media/mp3_reader.h"
#include "media/resample.h"

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<float> samples;
    require(veloria::decodeMp3(std::span<const std::uint8_t>(data, size), samples) == !samples.empty());
    require(samples.size() <= veloria::maxStreamSamples(size));
    for (const float sample : samples)
        require(std::isfinite(sample));
    return 0;
}
