#include "media/mix.h"

#include <algorithm>
#include <array>
#include <span>

#include "engine/flush_denormals.h"
#include "engine/render.h"
#include "media/file_samples.h"

namespace veloria {

namespace {

// Frames that are mixed together: the retuner's settings are taken anew for each such block.
constexpr std::size_t kMixFrames = 64;

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
    std::array<float, kMixFrames> file;
    for (std::size_t done = 0; done < frames; done += kMixFrames) {
        const std::size_t count = std::min(kMixFrames, frames - done);
        nextFileSamples(sources.pcm, sources.retuner, std::span(file).first(count));
        for (std::size_t i = 0; i < count; ++i, out += 2) {
            out[0] = clampToFullScale((out[0] * gainLeft + file[i]) * master);
            out[1] = clampToFullScale((out[1] * gainRight + file[i]) * master);
            if (scope != nullptr) feedScope(*scope, (out[0] + out[1]) * 0.5f);
        }
    }
}

}  // namespace veloria
