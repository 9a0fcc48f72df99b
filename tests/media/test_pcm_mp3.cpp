// The MP3 reader on tones, and on damaged bytes. Length, frequency and level are measured here by other
// means: a walk of the frame headers and a projection on the tone.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "media/mp3_reader.h"
#include "media/resample.h"
#include "tests/source_dir.h"

namespace veloria::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Samples = std::vector<float>;

Bytes readSource(const std::string& name) {
    const std::string path = sourceDir() + "/" + name;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    EXPECT_NE(file, nullptr) << path;
    Bytes bytes(20000);
    bytes.resize(file == nullptr ? 0 : std::fread(bytes.data(), 1, bytes.size(), file));
    if (file != nullptr) std::fclose(file);
    return bytes;
}

Bytes readData(const std::string& name) {
    return readSource("tests/media/data/" + name);
}

Bytes joined(Bytes bytes, const Bytes& more) {
    bytes.reserve(bytes.size() + more.size());
    for (const std::uint8_t byte : more)
        bytes.push_back(byte);
    return bytes;
}

Samples decode(const Bytes& bytes) {
    Samples samples{9.0F};
    const bool loaded = decodeMp3(bytes, samples);
    EXPECT_EQ(loaded, !samples.empty());
    return samples;
}

// The bytes of the layer 3 frame whose header stands at `at`, by the standard's tables; 0 when it is none.
std::size_t frameBytes(const Bytes& bytes, std::size_t at) {
    if (at + 4 > bytes.size() || bytes[at] != 0xFF || (bytes[at + 1] & 0xE6U) != 0xE2U) return 0;
    const bool first = (bytes[at + 1] & 0x08U) != 0;  // MPEG-1; else MPEG-2, half the rate
    static constexpr int kbits1[]{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0};
    static constexpr int kbits2[]{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0};
    static constexpr int rates[]{44100, 48000, 32000, 0};
    const unsigned bitRateIndex = bytes[at + 2] >> 4U;
    const int bitRate = 1000 * (first ? kbits1[bitRateIndex] : kbits2[bitRateIndex]);
    const int rate = rates[bytes[at + 2] >> 2U & 3U] / (first ? 1 : 2);
    if (rate == 0) return 0;
    return static_cast<std::size_t>((first ? 144 : 72) * bitRate / rate) + (bytes[at + 2] >> 1U & 1U);
}

std::size_t countFrames(const Bytes& bytes) {
    std::size_t count = 0;
    for (std::size_t at = 0; frameBytes(bytes, at) != 0; at += frameBytes(bytes, at))
        ++count;
    return count;
}

// Amplitude of the tone of `hz` in half a tenth of a second from the middle, under a Hann window.
double amplitudeOf(const Samples& samples, double hz) {
    const std::size_t length = 8820;
    const std::size_t start = (samples.size() - length) / 2;
    std::complex<double> sum = 0.0;
    double windowSum = 0.0;
    for (std::size_t i = 0; i < length; ++i) {
        const double turn = 2.0 * 3.14159265358979323846 * static_cast<double>(i);
        const double window = 0.5 - 0.5 * std::cos(turn / static_cast<double>(length));
        sum += window * samples[start + i] * std::polar(1.0, -turn * hz / 44100.0);
        windowSum += window;
    }
    return 2.0 * std::abs(sum) / windowSum;
}

// The tone where the projection is largest, to a tenth of a hertz.
double frequencyNear(const Samples& samples, double hz) {
    double best = 0.0;
    double bestAmplitude = -1.0;
    for (double candidate = hz - 10.0; candidate <= hz + 10.0; candidate += 0.1) {
        const double amplitude = amplitudeOf(samples, candidate);
        if (amplitude > bestAmplitude) {
            bestAmplitude = amplitude;
            best = candidate;
        }
    }
    return best;
}

TEST(Mp3Reader, MonoTone) {
    const Bytes bytes = readData("mono_44100.mp3");
    const Samples samples = decode(bytes);
    EXPECT_EQ(samples.size(), countFrames(bytes) * 1152);
    EXPECT_GE(samples.size(), 13230U) << "0.3 s";
    EXPECT_LE(samples.size(), 13230U + 4 * 1152U);
    EXPECT_NEAR(amplitudeOf(samples, 440.0), 0.5, 0.01);
    EXPECT_NEAR(frequencyNear(samples, 440.0), 440.0, 0.2);
}

TEST(Mp3Reader, StereoIsTheMeanOfItsChannels) {
    const Bytes bytes = readData("stereo_44100.mp3");
    const Samples samples = decode(bytes);
    EXPECT_EQ(samples.size(), countFrames(bytes) * 1152);
    EXPECT_NEAR(amplitudeOf(samples, 500.0), 0.25, 0.01);
    EXPECT_NEAR(amplitudeOf(samples, 1250.0), 0.25, 0.01);
}

TEST(Mp3Reader, HalfTheRateKeepsItsPitch) {
    const Bytes bytes = readData("mono_22050.mp3");
    const Samples samples = decode(bytes);
    EXPECT_EQ(samples.size(), countFrames(bytes) * 576 * 2 + 1);
    EXPECT_NEAR(amplitudeOf(samples, 440.0), 0.5, 0.01);
    EXPECT_NEAR(frequencyNear(samples, 440.0), 440.0, 0.2);
}

TEST(Mp3Reader, FortyEightKilohertzKeepsItsPitch) {
    const Bytes bytes = readData("mono_48000.mp3");
    const Samples samples = decode(bytes);
    const double frames = static_cast<double>(countFrames(bytes) * 1152);
    // 17280 / (48000 / 44100.0) is a hair below 15876, so the truncated quotient is one less than on paper.
    EXPECT_EQ(frames, 17280.0);
    EXPECT_EQ(samples.size(), 15876U);
    EXPECT_NEAR(amplitudeOf(samples, 1000.0), 0.5, 0.01);
    EXPECT_NEAR(frequencyNear(samples, 1000.0), 1000.0, 0.2);
}

TEST(Mp3Reader, RateOfTheFirstFrameCountsForAll) {
    const Bytes bytes = readData("mono_44100.mp3");
    const std::size_t first = countFrames(bytes) * 1152;
    const Bytes slow = readData("mono_22050.mp3");
    const std::size_t second = countFrames(slow) * 576;
    const Samples samples = decode(joined(bytes, slow));
    // Where the kind of frame changes the decoder starts anew, and its first frame there may give nothing.
    EXPECT_LE(samples.size(), first + second);
    EXPECT_GE(samples.size(), first + second - 2 * 576);
}

TEST(Mp3Reader, SamplesInMonoAndStereoFramesAreMixed) {
    const Bytes bytes = readData("mono_44100.mp3");
    const Bytes stereo = readData("stereo_44100.mp3");
    const std::size_t frames = countFrames(bytes) + countFrames(stereo);
    const Samples samples = decode(joined(bytes, stereo));
    EXPECT_LE(samples.size(), frames * 1152);
    EXPECT_GE(samples.size(), (frames - 2) * 1152);
}

TEST(Mp3Damage, EmptyFile) {
    EXPECT_TRUE(decode({}).empty());
}

TEST(Mp3Damage, BytesWithoutAnyFrame) {
    EXPECT_TRUE(decode(Bytes(5000, 0)).empty());
    EXPECT_TRUE(decode(Bytes(5000, 0xFF)).empty());
    EXPECT_TRUE(decode({1, 2, 3}).empty());
}

TEST(Mp3Damage, WaveBytesHoldNoFrame) {
    const Bytes head{'R', 'I', 'F', 'F', 36,  8,  0, 0, 'W', 'A', 'V',
                     'E', 'f', 'm', 't', ' ', 16, 0, 0, 0,   1,   0};
    EXPECT_TRUE(decode(joined(head, Bytes(2000, 7))).empty());
}

TEST(Mp3Damage, GarbageAheadOfTheFirstFrameIsSteppedOver) {
    const Bytes tone = readData("mono_44100.mp3");
    EXPECT_EQ(decode(joined(Bytes(3000, 0x11), tone)), decode(tone));
}

// The first frame lies across the end of what the decoder is given at once.
TEST(Mp3Damage, GarbageOfAMegabyteAheadOfTheFirstFrameIsSteppedOver) {
    const Bytes tone = readData("mono_44100.mp3");
    for (const std::size_t before : {4U, 100U, 250U, 2000U}) {
        EXPECT_EQ(decode(joined(Bytes((1U << 20U) - before, 0x11), tone)), decode(tone)) << before;
    }
}

// Only the frame before the garbage is lost: the decoder believes in a frame when another one follows.
TEST(Mp3Damage, GarbageBetweenFramesIsSteppedOver) {
    const Bytes tone = readData("mono_44100.mp3");
    const std::size_t frames = countFrames(tone);
    const Samples alone = decode(tone);
    const Samples samples = decode(joined(joined(tone, Bytes(999, 0x22)), tone));
    ASSERT_EQ(samples.size(), (2 * frames - 1) * 1152);
    const auto second = samples.begin() + static_cast<std::ptrdiff_t>((frames - 1) * 1152);
    EXPECT_TRUE(std::equal(samples.begin(), second, alone.begin()));
    EXPECT_EQ(Samples(second, samples.end()), alone);
}

TEST(Mp3Damage, EveryTruncationGivesNoMoreThanItsWholeFrames) {
    const Bytes whole = readData("mono_22050.mp3");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        Bytes bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        bytes.shrink_to_fit();  // so that a read beyond the end is seen
        const std::size_t frames = countFrames(bytes);
        EXPECT_LE(decode(bytes).size(), frames * 1152 + 1) << size;
    }
}

// Frames of 13 bytes with no stated bit rate: 576 samples at 8 kHz each, a kilobyte of sound from every byte.
Bytes densestFrames(std::size_t count) {
    const Bytes frame{0xFF, 0xE3, 0x08, 0xC0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i) {
        for (const std::uint8_t byte : frame)
            bytes.push_back(byte);
    }
    return bytes;
}

TEST(Mp3Damage, FileThatWouldGrowBeyondReasonIsRefused) {
    EXPECT_GT(decode(densestFrames(1000)).size(), 3000000U);
    EXPECT_TRUE(decode(densestFrames(30000)).empty()) << "95 million samples of 390 kilobytes";
}

// Fills the stack that the next call will use.
[[gnu::noinline]] void dirtyStack(std::uint8_t fill) {
    std::array<volatile std::uint8_t, 200000> bytes;
    for (volatile std::uint8_t& byte : bytes)
        byte = fill;
}

// Frames in which the decoder uses what it has not read: the sound must not depend on what the stack held
// before.
TEST(Mp3Damage, FramesThatLeaveValuesOutSoundTheSameEachTime) {
    for (const char* name :
         {"unwritten_scale_factors", "unwritten_main_data", "unwritten_intensity_positions"}) {
        const Bytes bytes = readSource(std::string("fuzz/corpus/mp3_reader/") + name);
        dirtyStack(0);
        const Samples first = decode(bytes);
        EXPECT_FALSE(first.empty()) << name;
        for (const int fill : {0x01, 0x41, 0x7F, 0xFF}) {
            dirtyStack(static_cast<std::uint8_t>(fill));
            EXPECT_EQ(decode(bytes), first) << name << ", " << fill;
        }
    }
}

TEST(Mp3Damage, RandomChangesNeverGiveAnythingButFiniteSamples) {
    const Bytes whole = readData("stereo_44100.mp3");
    const unsigned seed = 5;
    std::mt19937 random(seed);
    for (int round = 0; round < 300; ++round) {
        Bytes bytes = whole;
        for (int i = 0; i < 40; ++i)
            bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
        const Samples samples = decode(bytes);
        ASSERT_LE(samples.size(), maxStreamSamples(bytes.size()));
        for (const float sample : samples)
            ASSERT_TRUE(std::isfinite(sample)) << round << ", seed " << seed;
    }
}

}  // namespace
}  // namespace veloria::test
