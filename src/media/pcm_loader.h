// Loads a sound file from disk into the stream. Main thread, with the audio device paused: the samples are
// exchanged under the callback's feet otherwise. Each function first stops and empties the stream, and leaves
// it empty when it returns false; no reason is given.
#pragma once

#include <string>

#include "media/pcm_stream.h"

namespace veloria {

// By the extension of the whole path in either case: ".mp3" goes to loadMp3, everything else to loadWav. True
// with at least one sample.
[[nodiscard]] bool loadPcmFile(PcmStream& stream, const std::string& path);

[[nodiscard]] bool loadMp3(PcmStream& stream, const std::string& path);

[[nodiscard]] bool loadWav(PcmStream& stream, const std::string& path);

}  // namespace veloria
