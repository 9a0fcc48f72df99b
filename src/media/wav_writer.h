// Writing sound as a RIFF WAVE file: 44,100 Hz, stereo, 16 bits.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/whole_file.h"

namespace veloria {

// The frames that a file's 32-bit size fields can count.
inline constexpr std::uint64_t kMaxWavFrames = (0xFFFFFFFFull - 36) / 4;

// A sample times 32000, truncated, held to -32768 to 32767: full scale comes to 32000.
[[nodiscard]] std::int16_t toSample16(float value);

// The same for each of `values`, into as many places from `out` on.
void toSamples16(std::span<const float> values, std::int16_t* out);

// For a file whose length shows only when it is made.
inline constexpr std::uint64_t kUnknownFrames = ~std::uint64_t{0};

// A WAV file written as its sound is made. Its target stays as it is until finish puts the whole file there.
class WavFile {
  public:
    // `frames` as they will come in the end, where that is known: a pipe is told once, at its beginning.
    WavFile(const std::string& path, std::uint64_t frames);

    // False when the file cannot be made or something could not be written: it will not finish.
    [[nodiscard]] bool good() const { return file_.good(); }
    // The next interleaved stereo samples. False when they cannot be written, or are more than kMaxWavFrames
    // frames in all.
    [[nodiscard]] bool write(std::span<const std::int16_t> samples);
    // False when the file did not get to its place whole: nothing of it is left then, and what was there
    // before is there still.
    [[nodiscard]] bool finish();

  private:
    WholeFile file_;
    std::uint64_t promised_;
    std::uint64_t frames_ = 0;
};

// Writes a whole file of interleaved stereo samples. False as WavFile::write and WavFile::finish.
[[nodiscard]] bool writeWavFile(const std::string& path, std::span<const std::int16_t> samples);

}  // namespace veloria
