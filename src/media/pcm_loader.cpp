#include "media/pcm_loader.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

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

// The letters A to Z only, whatever the locale.
char lowerCase(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool hasMp3Extension(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos) return false;
    std::string extension = path.substr(dot);
    for (char& letter : extension)
        letter = lowerCase(letter);
    return extension == ".mp3";
}

}  // namespace

bool loadPcmFile(PcmStream& stream, const std::string& path) {
    return hasMp3Extension(path) ? loadMp3(stream, path) : loadWav(stream, path);
}

bool loadMp3(PcmStream& stream, const std::string& path) {
    return loadWith(decodeMp3, stream, path);
}

bool loadWav(PcmStream& stream, const std::string& path) {
    return loadWith(decodeWav, stream, path);
}

}  // namespace veloria
