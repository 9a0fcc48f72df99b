// Torn, lying and hostile WAV bytes: one test for each kind.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "media/resample.h"
#include "media/wav_reader.h"
#include "tests/media/literal_wav.h"
#include "tests/media/wav_bytes.h"

namespace veloria::test {
namespace {

using Samples = std::vector<float>;

Samples decode(const Bytes& bytes) {
    Samples samples{9.0F};
    const bool loaded = decodeWav(bytes, samples);
    EXPECT_EQ(loaded, !samples.empty());
    return samples;
}

bool refused(const Bytes& bytes) {
    return decode(bytes).empty();
}

const Bytes kOneSample = integers(2, {16384});

TEST(WavDamage, EmptyFile) {
    EXPECT_TRUE(refused({}));
}

TEST(WavDamage, WrongRiffMark) {
    Bytes bytes = wavFile({}, kOneSample);
    bytes[3] = 'X';
    EXPECT_TRUE(refused(bytes));
}

TEST(WavDamage, WrongWaveMark) {
    Bytes bytes = wavFile({}, kOneSample);
    bytes[8] = 'w';
    EXPECT_TRUE(refused(bytes));
}

TEST(WavDamage, HeadAlone) {
    EXPECT_TRUE(refused(riffFile({})));
}

TEST(WavDamage, NoFormat) {
    EXPECT_TRUE(refused(riffFile({riffChunk("data", kOneSample)})));
}

TEST(WavDamage, FormatBehindTheData) {
    EXPECT_TRUE(refused(riffFile({riffChunk("data", kOneSample), riffChunk("fmt ", formatFields({}))})));
}

TEST(WavDamage, NoData) {
    EXPECT_TRUE(refused(riffFile({riffChunk("fmt ", formatFields({}))})));
}

TEST(WavDamage, DataOfSizeZero) {
    EXPECT_TRUE(refused(wavFile({}, {})));
    EXPECT_TRUE(refused(wavFile({1, 1, 22050, 16}, {}))) << "no sample out of nothing at another rate either";
    EXPECT_TRUE(refused(wavFile({}, kOneSample, 0)));
}

TEST(WavDamage, DataSmallerThanAFrame) {
    EXPECT_TRUE(refused(wavFile({1, 2, 22050, 16}, kOneSample)));
}

TEST(WavDamage, UnknownFormatCodes) {
    for (const int code : {0, 2, 6, 7, 17, 85, 0xFFFF}) {
        EXPECT_TRUE(refused(wavFile({code, 1, 44100, 16}, kOneSample))) << code;
    }
}

TEST(WavDamage, ExtensibleWithAnUnknownSubFormat) {
    for (const int code : {0, 2, 6, 0xFFFE}) {
        EXPECT_TRUE(refused(riffFile(
            {riffChunk("fmt ", extensibleFields({code, 1, 44100, 16})), riffChunk("data", kOneSample)})))
            << code;
    }
}

TEST(WavDamage, ExtensibleTooShortForASubFormat) {
    // The first sample stands where the code would, and looks like one.
    EXPECT_TRUE(refused(wavFile({0xFFFE, 1, 44100, 16}, integers(2, {1}))));
    Bytes fields = extensibleFields({});
    fields.resize(25);
    EXPECT_TRUE(refused(riffFile({riffChunk("fmt ", fields), riffChunk("data", kOneSample)})));
}

TEST(WavDamage, NoChannels) {
    EXPECT_TRUE(refused(wavFile({1, 0, 44100, 16}, kOneSample)));
}

TEST(WavDamage, NoBits) {
    EXPECT_TRUE(refused(wavFile({1, 1, 44100, 0}, kOneSample)));
}

TEST(WavDamage, FewerThanEightBitsHaveNoFrameSize) {
    for (int bits = 1; bits < 8; ++bits) {
        EXPECT_TRUE(refused(wavFile({1, 1, 44100, bits}, kOneSample))) << bits;
        EXPECT_TRUE(refused(wavFile({3, 1, 44100, bits}, floats({0.5F})))) << bits;
    }
}

TEST(WavDamage, OddChunkWithAPadByteHidesTheData) {
    const Bytes padded = riffFile({riffChunk("fmt ", formatFields({})), riffChunk("LIST", Bytes{1, 2, 3}),
                                   Bytes{0}, riffChunk("data", kOneSample)});
    EXPECT_TRUE(refused(padded));
    const Bytes unpadded = riffFile({riffChunk("fmt ", formatFields({})), riffChunk("LIST", Bytes{1, 2, 3}),
                                     riffChunk("data", kOneSample)});
    EXPECT_EQ(decode(unpadded), (Samples{0.5F}));
}

TEST(WavDamage, ChunkSizeNear2To32DoesNotWrap) {
    for (const std::uint64_t size : {0xFFFFFFFFU, 0xFFFFFFF8U, 0x80000000U}) {
        EXPECT_TRUE(refused(riffFile({riffChunk("fmt ", formatFields({})), riffChunk("LIST", {}, size),
                                      riffChunk("data", kOneSample)})))
            << size;
        EXPECT_TRUE(
            refused(riffFile({riffChunk("fmt ", formatFields({}), size), riffChunk("data", kOneSample)})))
            << size;
    }
}

TEST(WavDamage, FormatThatClaimsLessThan16BytesIsReadWholeAllTheSame) {
    for (const std::uint64_t size : {0U, 1U, 14U}) {
        EXPECT_EQ(
            decode(riffFile({riffChunk("fmt ", formatFields({}), size), riffChunk("data", kOneSample)})),
            (Samples{0.5F}))
            << size;
    }
}

TEST(WavDamage, FileThatEndsInsideTheFormat) {
    const Bytes whole = wavFile({}, kOneSample);
    for (std::size_t size = 0; size < 44; ++size) {
        EXPECT_TRUE(refused(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)))) << size;
    }
}

TEST(WavDamage, DataTornWithinTenSecondsRepeatsTheLastValue) {
    EXPECT_EQ(decode(wavFile({}, integers(2, {8192, 16384}), 10)), (Samples{0.25F, 0.5F, 0.5F, 0.5F, 0.5F}));
}

TEST(WavDamage, DataTornInsideAFrameFillsTheFrameWithTheLastValue) {
    // Three of four values: the missing right channel reads as the left one before it, and so do all after.
    const WavFormat stereo{1, 2, 44100, 16};
    EXPECT_EQ(decode(wavFile(stereo, integers(2, {0, 8192, 16384}), 16)),
              (Samples{0.125F, 0.5F, 0.5F, 0.5F}));
    // A missing frame is the last channel's value in all channels, not the last frame's mean.
    EXPECT_EQ(decode(wavFile(stereo, integers(2, {0, 16384}), 12)), (Samples{0.25F, 0.5F, 0.5F}));
}

TEST(WavDamage, DataTornInsideAValueLeavesTheValueBeforeIt) {
    Bytes data = integers(2, {16384, 8192});
    data.pop_back();
    EXPECT_EQ(decode(wavFile({}, data, 8)), (Samples{0.5F, 0.5F, 0.5F, 0.5F}));
}

TEST(WavDamage, DataTornBeforeTheFirstValueIsSilence) {
    EXPECT_EQ(decode(wavFile({1, 1, 44100, 8}, {}, 3)), Samples(3, 0.0F));
    EXPECT_EQ(decode(wavFile({}, {}, 6)), Samples(3, 0.0F));
}

TEST(WavDamage, ClaimOfExactlyTenSecondsTooMuchIsProducedAndOneFrameMoreIsCut) {
    const std::uint64_t limit = 2 + 441000;
    const auto produced = decode(wavFile({}, integers(2, {8192, 16384}), limit * 2));
    ASSERT_EQ(produced.size(), limit);
    EXPECT_EQ(produced.back(), 0.5F);
    EXPECT_EQ(decode(wavFile({}, integers(2, {8192, 16384}), (limit + 1) * 2)), (Samples{0.25F, 0.5F}));
}

TEST(WavDamage, TenSecondsAreCountedAtTheFilesRate) {
    const WavFormat slow{1, 1, 100, 8};
    // 1 + 1000 frames at 100 Hz; the truncated quotient of samples, plus one.
    EXPECT_EQ(decode(wavFile(slow, {192}, 1001)).size(), 441442U);
    EXPECT_EQ(decode(wavFile(slow, {192}, 1002)).size(), 442U);
}

TEST(WavDamage, PlaceholderSizeIsCutToTheWholeFramesThatTheFileHolds) {
    for (const std::uint64_t size : {0xFFFFFFFFU, 0xFFFFFFFEU, 0x80000000U, 0x7FFFFFFFU}) {
        EXPECT_EQ(decode(wavFile({}, integers(2, {8192, 16384}), size)), (Samples{0.25F, 0.5F})) << size;
        EXPECT_EQ(decode(wavFile({1, 2, 44100, 16}, integers(2, {8192, 8192, 16384}), size)),
                  (Samples{0.25F}));
    }
}

TEST(WavDamage, FortyFourBytesThatClaimFourGigabytes) {
    EXPECT_TRUE(refused(wavFile({}, {}, 0xFFFFFFFF)));
    // At this rate the whole claim lies within ten seconds: 2^32 - 1 silent frames at 4 GHz.
    const auto silence = decode(wavFile({1, 1, 0xFFFFFFFF, 8}, {}, 0xFFFFFFFF));
    EXPECT_EQ(silence, Samples(44101, 0.0F)) << "one second";
}

TEST(WavDamage, ManyChannelsInAShortFile) {
    const WavFormat format{1, 65535, 44100, 16};
    // One frame of 131,070 bytes claimed and four bytes held: 0.25, then 65,534 times 0.5. A float sum of so
    // many rounds a little.
    const auto samples = decode(wavFile(format, integers(2, {8192, 16384}), 131070));
    ASSERT_EQ(samples.size(), 1U);
    EXPECT_NEAR(samples[0], 0.5, 1e-4);
    EXPECT_TRUE(refused(wavFile(format, integers(2, {8192, 16384}), 0xFFFF)));
}

TEST(WavDamage, LargestFrameSize) {
    EXPECT_TRUE(refused(wavFile({1, 65535, 0xFFFFFFFF, 65535}, kOneSample, 0xFFFF)));
    // Eight frames of 536,797,185 bytes within the claim, none of them in the file.
    EXPECT_EQ(decode(wavFile({1, 65535, 44100, 65535}, kOneSample, 0xFFFFFFFF)), Samples(8, 0.0F));
}

TEST(WavDamage, FileThatWouldGrowBeyondReasonIsRefused) {
    // A megabyte at 1 Hz would be 46 billion samples.
    EXPECT_TRUE(refused(wavFile({1, 1, 1, 8}, Bytes(1 << 20, 128))));
    EXPECT_EQ(decode(wavFile({1, 1, 1, 8}, Bytes(60, 192))), Samples(60 * 44100 + 1, 0.5F))
        << "a minute is not";
    EXPECT_GE(maxStreamSamples(600), 600U * 44100U + 1U) << "600 bytes at 1 Hz";
}

TEST(WavDamage, FloatsThatAreNotFiniteBecomeSilence) {
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(decode(wavFile({3, 1, 44100, 32}, floats({nan, 0.5F, infinity, -infinity}))),
              (Samples{0.0F, 0.5F, 0.0F, 0.0F}));
    EXPECT_EQ(decode(wavFile({3, 2, 44100, 32}, floats({nan, 0.5F, 1.0F, infinity}))), (Samples{0.25F, 0.5F}))
        << "value by value, not frame by frame";
    const auto resampled = decode(wavFile({3, 1, 22050, 32}, floats({nan, 0.5F})));
    EXPECT_EQ(resampled, (Samples{0.0F, 0.25F, 0.5F, 0.5F, 0.5F}));
}

TEST(WavDamage, FloatsWhoseSumIsNotFiniteBecomeSilence) {
    const float huge = std::numeric_limits<float>::max();
    EXPECT_EQ(decode(wavFile({3, 2, 44100, 32}, floats({huge, huge, 0.5F, 0.5F}))), (Samples{0.0F, 0.5F}));
}

// What a reader that reads value by value makes of the file.
Samples literalDecode(const Bytes& bytes) {
    LiteralWav literal(bytes);
    const std::uint64_t frames = literal.frames();
    if (frames == 0) return {};
    return LiteralWav::resample(literal.decode(frames), literal.rate());
}

TEST(WavDamage, RandomFormatsAndSizesGiveWhatAPlainReaderGives) {
    const unsigned seed = 11;
    std::mt19937 random(seed);
    const int formats[]{1, 1, 3, 3, 0xFFFE, 2};
    const int widths[]{8, 16, 24, 32, 64, 12, 7};
    const std::uint32_t rates[]{44100, 0, 22050, 48000, 8000, 96000, 4000000};
    for (int round = 0; round < 2000; ++round) {
        const WavFormat format{formats[random() % 6], static_cast<int>(1 + random() % 5), rates[random() % 7],
                               widths[random() % 7]};
        Bytes data(random() % 300);
        for (auto& byte : data)
            byte = static_cast<std::uint8_t>(random());
        const std::uint64_t claim = random() % 2 == 0 ? data.size() : random() % 900;
        const Bytes bytes = wavFile(format, data, claim);
        ASSERT_EQ(decode(bytes), literalDecode(bytes)) << "round " << round << ", seed " << seed;
    }
}

TEST(WavDamage, EveryTruncationGivesWhatAPlainReaderGives) {
    const Bytes whole =
        riffFile({riffChunk("JUNK", {1, 2, 3, 4}), riffChunk("fmt ", extensibleFields({1, 2, 44100, 24})),
                  riffChunk("data", integers(3, {1000, -1000, 2000000, 5, -8000000, 77, 1, 2}))});
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const Bytes bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(decode(bytes), literalDecode(bytes)) << size << " bytes";
    }
}

}  // namespace
}  // namespace veloria::test
