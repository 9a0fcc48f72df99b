// The WAV reader on sound files.
#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <vector>

#include "media/wav_reader.h"
#include "tests/media/wav_bytes.h"

namespace veloria::test {
namespace {

// What a file becomes; empty when it is refused.
std::vector<float> decode(const Bytes& bytes) {
    std::vector<float> samples{9.0F};
    const bool loaded = decodeWav(bytes, samples);
    EXPECT_EQ(loaded, !samples.empty());
    return samples;
}

using Samples = std::vector<float>;

TEST(WavReader, SixteenBits) {
    EXPECT_EQ(decode(wavFile({}, integers(2, {0, 16384, 32767, -1, -32768}))),
              (Samples{0.0F, 0.5F, 32767.0F / 32768.0F, -1.0F / 32768.0F, -1.0F}));
}

TEST(WavReader, EightBits) {
    const WavFormat format{1, 1, 44100, 8};
    EXPECT_EQ(decode(wavFile(format, {128, 0, 255, 192})), (Samples{0.0F, -1.0F, 127.0F / 128.0F, 0.5F}));
}

TEST(WavReader, TwentyFourBits) {
    const WavFormat format{1, 1, 44100, 24};
    const auto samples = decode(wavFile(format, integers(3, {0xFFFFFF, 0x400000, 0x800000, 0x7FFFFF})));
    ASSERT_EQ(samples.size(), 4U);
    EXPECT_NEAR(samples[0], -1.1920929e-7, 1e-13);
    EXPECT_EQ(samples[1], 0.5F);
    EXPECT_EQ(samples[2], -1.0F);
    EXPECT_NEAR(samples[3], 1.0, 2e-7);
}

TEST(WavReader, ThirtyTwoBits) {
    const WavFormat format{1, 1, 44100, 32};
    EXPECT_EQ(decode(wavFile(format, integers(4, {0x40000000, -0x80000000LL, 0x100, -0x100}))),
              (Samples{0.5F, -1.0F, 1.0F / 8388608.0F, -1.0F / 8388608.0F}));
}

TEST(WavReader, Floats) {
    const WavFormat format{3, 1, 44100, 32};
    EXPECT_EQ(decode(wavFile(format, floats({0.1F, -2.5F, 1e-30F}))), (Samples{0.1F, -2.5F, 1e-30F}));
}

TEST(WavReader, StereoIsTheMeanOfItsChannels) {
    const WavFormat format{1, 2, 44100, 16};
    EXPECT_EQ(decode(wavFile(format, integers(2, {16384, 0, 16384, -16384, -32768, -32768}))),
              (Samples{0.25F, 0.0F, -1.0F}));
}

TEST(WavReader, SixChannelsAreTheMeanOfAll) {
    const WavFormat format{1, 6, 44100, 16};
    EXPECT_EQ(decode(wavFile(format, integers(2, {24576, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -24576}))),
              (Samples{0.125F, -0.125F}));
}

TEST(WavReader, TwelveBitsReadNothingAndAreSilence) {
    // A frame of one byte: four frames, whatever the bytes.
    const WavFormat format{1, 1, 44100, 12};
    EXPECT_EQ(decode(wavFile(format, {1, 2, 3, 4})), Samples(4, 0.0F));
    EXPECT_EQ(decode(wavFile({1, 1, 44100, 64}, integers(8, {1, 2}))), Samples(2, 0.0F));
}

TEST(WavReader, FloatsOf64BitsAreReadAsFloatsOf32) {
    // Sixteen bytes claim two frames of 8; 4 bytes are read for each.
    const WavFormat format{3, 1, 44100, 64};
    EXPECT_EQ(decode(wavFile(format, floats({0.1F, 0.2F, 0.3F, 0.4F}))), (Samples{0.1F, 0.2F}));
}

TEST(WavReader, FloatsOf16BitsReadOnBehindTheDataChunk) {
    // Eight bytes claim four frames of 2; 4 bytes are read for each, then the file ends.
    const WavFormat format{3, 1, 44100, 16};
    const Bytes data = floats({0.1F, 0.2F});
    EXPECT_EQ(decode(wavFile(format, data)), (Samples{0.1F, 0.2F, 0.2F, 0.2F}));
    const Bytes followed =
        riffFile({riffChunk("fmt ", formatFields(format)), riffChunk("data", floats({0.1F, 0.2F, 0.3F}), 8)});
    EXPECT_EQ(decode(followed), (Samples{0.1F, 0.2F, 0.3F, 0.3F}));
}

TEST(WavReader, BytesThatFillNoWholeFrameAreLeft) {
    const WavFormat format{1, 2, 44100, 16};
    EXPECT_EQ(decode(wavFile(format, integers(2, {16384, 16384, 32767}))), (Samples{0.5F}));
}

TEST(WavReader, ExtensibleCountsAsItsSubFormat) {
    const WavFormat integer{1, 1, 44100, 24};
    EXPECT_EQ(decode(riffFile({riffChunk("fmt ", extensibleFields(integer)),
                               riffChunk("data", integers(3, {0x400000}))})),
              (Samples{0.5F}));
    const WavFormat floating{3, 1, 44100, 32};
    EXPECT_EQ(
        decode(riffFile({riffChunk("fmt ", extensibleFields(floating)), riffChunk("data", floats({0.75F}))})),
        (Samples{0.75F}));
}

TEST(WavReader, ChunksAheadOfDataAreSteppedOver) {
    EXPECT_EQ(decode(riffFile({riffChunk("JUNK", Bytes(28, 7)), riffChunk("fmt ", formatFields({})),
                               riffChunk("LIST", Bytes(10, 7)), riffChunk("data", integers(2, {16384}))})),
              (Samples{0.5F}));
}

TEST(WavReader, FormatChunkOf18BytesIsSkippedWhole) {
    Bytes fields = formatFields({});
    fields.push_back(0);
    fields.push_back(0);
    EXPECT_EQ(decode(riffFile({riffChunk("fmt ", fields), riffChunk("data", integers(2, {16384}))})),
              (Samples{0.5F}));
}

TEST(WavReader, LaterFormatBeforeTheDataReplacesTheFirst) {
    EXPECT_EQ(
        decode(riffFile({riffChunk("fmt ", formatFields({1, 1, 44100, 8})),
                         riffChunk("fmt ", formatFields({})), riffChunk("data", integers(2, {16384}))})),
        (Samples{0.5F}));
}

TEST(WavReader, OnlyTheFirstDataCounts) {
    EXPECT_EQ(decode(riffFile({riffChunk("fmt ", formatFields({})), riffChunk("data", integers(2, {16384})),
                               riffChunk("fmt ", formatFields({1, 1, 44100, 8})),
                               riffChunk("data", integers(2, {8192, 8192}))})),
              (Samples{0.5F}));
}

TEST(WavReader, TheSizeInTheFilesHeadIsNotUsed) {
    Bytes bytes = wavFile({}, integers(2, {16384}));
    for (std::size_t i = 4; i < 8; ++i)
        bytes[i] = 0xFF;
    EXPECT_EQ(decode(bytes), (Samples{0.5F}));
}

TEST(WavReader, ByteRateAndBlockAlignAreNotUsed) {
    Bytes bytes = wavFile({}, integers(2, {16384}));
    for (std::size_t i = 28; i < 34; ++i)
        bytes[i] = 0xEE;
    EXPECT_EQ(decode(bytes), (Samples{0.5F}));
}

TEST(WavReader, HalfRateComesOutTwiceAsLong) {
    const WavFormat format{1, 1, 22050, 16};
    EXPECT_EQ(decode(wavFile(format, integers(2, {0, 16384, -16384}))),
              (Samples{0.0F, 0.25F, 0.5F, 0.0F, -0.5F, -0.5F, -0.5F}));
}

TEST(WavReader, RateOfZeroCountsAs44100) {
    const WavFormat format{1, 1, 0, 16};
    EXPECT_EQ(decode(wavFile(format, integers(2, {0, 16384, -16384}))), (Samples{0.0F, 0.5F, -0.5F}));
}

}  // namespace
}  // namespace veloria::test
