#include "media/pcm_loader.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "media/extension.h"
#include "media/mp3_reader.h"
#include "media/wav_reader.h"
#include "platform/files.h"

namespace veloria {
namespace {

using Decoder = bool (*)(std::span<const std::uint8_t>, std::vector<float>&);

bool loadWith(Decoder decode, PcmStream& stream, const std::string& path) {
    clearPcmStream(stream);
    std::vector<std::uint8_t> bytes;
    return platform::readWholeFile(path, bytes) && decode(bytes, stream.samples);
}

}  // namespace

bool loadPcmFile(PcmStream& stream, const std::string& path) {
    return extensionOf(path) == "mp3" ? loadMp3(stream, path) : loadWav(stream, path);
}

bool loadMp3(PcmStream& stream, const std::string& path) {
    return loadWith(decodeMp3, stream, path);
}

bool loadWav(PcmStream& stream, const std::string& path) {
    return loadWith(decodeWav, stream, path);
}

}  // namespace veloria
