#include "media/file_samples.h"

#include "spectral/drain.h"

namespace veloria {

namespace {

// The file's next sample, on its way into the retuner.
float takeSample(PcmStream& stream, SacredFft& retuner) {
    const float sample = nextPcmSample(stream);
    const bool ofFile = stream.playing.load(std::memory_order_relaxed);
    noteIntake(retuner, ofFile ? 1 : 0, ofFile ? 0 : 1);
    return sample;
}

// Mode 3 may take more than a sample for each that it gives.
void resampled(PcmStream& stream, SacredFft& retuner, const RetunerSettings& settings, std::span<float> out) {
    for (float& sample : out) {
        while (needsFeed(retuner, settings))
            feedSample(retuner, takeSample(stream, retuner));
        sample = retuner.processSample(takeSample(stream, retuner), settings);
    }
}

}  // namespace

void nextFileSamples(PcmStream& stream, SacredFft& retuner, std::span<float> out) {
    const RetunerSettings settings = loadSettings(retuner);
    if (settings.mode == kModeSolfeggio) return resampled(stream, retuner, settings, out);
    const std::size_t ofFile = nextPcmSamples(stream, out);
    noteIntake(retuner, ofFile, out.size() - ofFile);
    retuner.processSamples(out, settings);
}

}  // namespace veloria
