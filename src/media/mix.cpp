#include "media/mix.h"

#include <algorithm>

#include "engine/flush_denormals.h"
#include "engine/render.h"
#include "spectral/drain.h"

namespace veloria {

namespace {

// The file's next sample, on its way into the retuner.
float takeSample(PcmStream& pcm, SacredFft& retuner) {
    const float sample = nextPcmSample(pcm);
    noteIntake(retuner, pcm.playing.load(std::memory_order_relaxed));
    return sample;
}

// The file's sound of one frame, mono, as retuned.
float retunedSample(PcmStream& pcm, SacredFft& retuner) {
    const RetunerSettings settings = loadSettings(retuner);
    while (needsFeed(retuner, settings))
        feedSample(retuner, takeSample(pcm, retuner));
    return retuner.processSample(takeSample(pcm, retuner), settings);
}

float clampToFullScale(float value) {
    return std::max(std::min(value, 1.0f), -1.0f);
}

void feedScope(ScopeBuffer& scope, float value) {
    scope.samples[static_cast<std::size_t>(scope.write)] = value;
    scope.write = (scope.write + 1) % kScopeBufferSize;
}

}  // namespace

void mixOutput(const MixSources& sources, const OutputGains& gains, float* out, std::size_t frames,
               ScopeBuffer* scope) {
    const FlushDenormals flushed;
    const float master = gains.masterGain;
    const float gainLeft = gains.synthGainLeft;
    const float gainRight = gains.synthGainRight;
    renderStereoBlock(sources.engine, out, frames);
    for (std::size_t i = 0; i < frames; ++i, out += 2) {
        const float file = retunedSample(sources.pcm, sources.retuner);
        out[0] = clampToFullScale((out[0] * gainLeft + file) * master);
        out[1] = clampToFullScale((out[1] * gainRight + file) * master);
        if (scope != nullptr) feedScope(*scope, (out[0] + out[1]) * 0.5f);
    }
}

}  // namespace veloria
