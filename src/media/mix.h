// What the device hears: synthesiser and retuned file, frame by frame.
#pragma once

#include <cstddef>

#include "base/relaxed.h"
#include "engine/scope_buffer.h"
#include "engine/synth_engine.h"
#include "media/pcm_stream.h"
#include "spectral/sacred_fft.h"

namespace veloria {

// Gains of the output, 0 to 1; set on the main thread, taken over at the next callback.
struct OutputGains {
    Relaxed<float> masterGain{1.0f};      // synthesiser and file
    Relaxed<float> synthGainLeft{1.0f};   // synthesiser only
    Relaxed<float> synthGainRight{1.0f};  // synthesiser only
};

// The sources of the output.
struct MixSources {
    SynthEngine& engine;
    PcmStream& pcm;
    SacredFft& retuner;
};

// Renders `frames` interleaved stereo frames, each within -1 to 1, into `out`, and feeds `scope` (may be
// null). Never locks or allocates: it is the body of the audio callback, and of every offline render.
void mixOutput(const MixSources& sources, const OutputGains& gains, float* out, std::size_t frames,
               ScopeBuffer* scope);

}  // namespace veloria
