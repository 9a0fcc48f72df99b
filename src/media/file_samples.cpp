#include "media/file_samples.h"

namespace veloria {

namespace {

// Mode 3 may take more than a sample for each that it gives.
void resampled(PcmStream& stream, SacredFft& retuner, const RetunerSettings& settings, std::span<float> out) {
    for (float& sample : out) {
        while (needsFeed(retuner, settings))
            feedSample(retuner, nextPcmSample(stream));
        sample = retuner.processSample(nextPcmSample(stream), settings);
    }
}

}  // namespace

void nextFileSamples(PcmStream& stream, SacredFft& retuner, std::span<float> out) {
    const RetunerSettings settings = loadSettings(retuner);
    if (settings.mode == kModeSolfeggio) return resampled(stream, retuner, settings, out);
    nextPcmSamples(stream, out);
    retuner.processSamples(out, settings);
}

}  // namespace veloria
