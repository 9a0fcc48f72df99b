#include "media/wav_writer.h"

#include <algorithm>
#include <array>
#include <bit>

namespace veloria {

namespace {

constexpr std::size_t kHeaderSize = 44;
constexpr std::uint32_t kFormatSize = 16;
constexpr std::uint32_t kRate = 44100;
constexpr std::uint32_t kBytesPerFrame = 4;

using Header = std::array<std::uint8_t, kHeaderSize>;

void put(Header& header, std::size_t offset, const char* text) {
    for (std::size_t i = 0; i < 4; ++i)
        header[offset + i] = static_cast<std::uint8_t>(text[i]);
}

void put(Header& header, std::size_t offset, std::uint32_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i)
        header[offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
}

Header makeHeader(std::uint32_t dataSize) {
    Header header{};
    put(header, 0, "RIFF");
    put(header, 4, dataSize + 36, 4);
    put(header, 8, "WAVE");
    put(header, 12, "fmt ");
    put(header, 16, kFormatSize, 4);
    put(header, 20, 1, 2);  // integer PCM
    put(header, 22, 2, 2);  // channels
    put(header, 24, kRate, 4);
    put(header, 28, kRate * kBytesPerFrame, 4);
    put(header, 32, kBytesPerFrame, 2);
    put(header, 34, 16, 2);
    put(header, 36, "data");
    put(header, 40, dataSize, 4);
    return header;
}

std::uint32_t dataSizeOf(std::uint64_t frames) {
    // With the length unknown the sizes are the largest, as other programs write them into pipes.
    return static_cast<std::uint32_t>(std::min(frames, kMaxWavFrames) * kBytesPerFrame);
}

}  // namespace

std::int16_t toSample16(float value) {
    std::int16_t sample = 0;
    toSamples16({&value, 1}, &sample);
    return sample;
}

void toSamples16(std::span<const float> values, std::int16_t* out) {
    // Plain comparisons, which come out as vectors; what is no number fails the first and becomes 0.
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double scaled = static_cast<double>(values[i]) * 32000.0;
        const double number = scaled == scaled ? scaled : 0.0;
        const double low = number > -32768.0 ? number : -32768.0;
        const double held = low < 32767.0 ? low : 32767.0;
        out[i] = static_cast<std::int16_t>(static_cast<std::int32_t>(held));
    }
}

WavFile::WavFile(const std::string& path, std::uint64_t frames) : file_(path), promised_(frames) {
    const Header header = makeHeader(dataSizeOf(frames));
    file_.write(header.data(), header.size());
}

bool WavFile::write(std::span<const std::int16_t> samples) {
    static_assert(std::endian::native == std::endian::little, "samples are written as they lie in memory");
    const std::uint64_t frames = samples.size() / 2;
    if (frames > kMaxWavFrames - frames_) return false;
    frames_ += frames;
    return file_.write(samples.data(), 2 * frames * sizeof(std::int16_t));
}

bool WavFile::finish() {
    // Behind the end of a pipe the sizes stay as they were promised.
    if (frames_ != promised_ && file_.canRewind()) {
        const Header header = makeHeader(dataSizeOf(frames_));
        file_.rewriteStart(header.data(), header.size());
    }
    return file_.finish();
}

bool writeWavFile(const std::string& path, std::span<const std::int16_t> samples) {
    if (samples.size() / 2 > kMaxWavFrames) return false;
    WavFile file(path, samples.size() / 2);
    return file.write(samples) && file.finish();
}

}  // namespace veloria
