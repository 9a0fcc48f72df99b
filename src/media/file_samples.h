// The loaded file's sound as it is heard: the stream's samples through the retuner.
#pragma once

#include <span>

#include "media/pcm_stream.h"
#include "spectral/sacred_fft.h"

namespace veloria {

// The next out.size() samples, mono. The retuner's settings are taken once for all of them. With the retuner
// off this is a copy. Audio thread; never locks or allocates.
void nextFileSamples(PcmStream& stream, SacredFft& retuner, std::span<float> out);

}  // namespace veloria
