#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "media/pcm_loader.h"
#include "media/wav_writer.h"

namespace veloria {
namespace {

TEST(WavWriter, ASampleIsTimes32000TruncatedAndHeldToSixteenBits) {
    EXPECT_EQ(toSample16(0.0f), 0);
    EXPECT_EQ(toSample16(1.0f), 32000);
    EXPECT_EQ(toSample16(-1.0f), -32000);
    EXPECT_EQ(toSample16(0.99999f), 31999);
    EXPECT_EQ(toSample16(-0.00002f), 0);
    EXPECT_EQ(toSample16(1.5f), 32767);
    EXPECT_EQ(toSample16(-1.5f), -32768);
    EXPECT_EQ(toSample16(std::nanf("")), 0);
}

TEST(WavWriter, WritesTheHeaderByteForByte) {
    const std::string path = ::testing::TempDir() + "veloria_writer.wav";
    const std::vector<std::int16_t> samples = {1, -1, 0x1234, -32768};
    ASSERT_TRUE(writeWavFile(path, samples));
    std::ifstream stream(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    const unsigned char expected[] = {'R', 'I', 'F',  'F',  44, 0, 0, 0,    'W',  'A',  'V',  'E',  'f',
                                      'm', 't', ' ',  16,   0,  0, 0, 1,    0,    2,    0,    0x44, 0xAC,
                                      0,   0,   0x10, 0xB1, 2,  0, 4, 0,    16,   0,    'd',  'a',  't',
                                      'a', 8,   0,    0,    0,  1, 0, 0xFF, 0xFF, 0x34, 0x12, 0x00, 0x80};
    ASSERT_EQ(bytes.size(), sizeof expected);
    for (std::size_t i = 0; i < sizeof expected; ++i) {
        EXPECT_EQ(static_cast<unsigned char>(bytes[i]), expected[i]) << i;
    }
    std::filesystem::remove(path);
}

TEST(WavWriter, NoSamplesAreAFileOfAHeaderAlone) {
    const std::string path = ::testing::TempDir() + "veloria_empty.wav";
    ASSERT_TRUE(writeWavFile(path, {}));
    EXPECT_EQ(std::filesystem::file_size(path), 44u);
    std::filesystem::remove(path);
}

TEST(WavWriter, WhatItWritesTheReaderReads) {
    const std::string path = ::testing::TempDir() + "veloria_round_trip.wav";
    ASSERT_TRUE(writeWavFile(path, std::vector<std::int16_t>{16384, 0, -8192, -8192}));
    PcmStream stream;
    ASSERT_TRUE(loadPcmFile(stream, path));
    EXPECT_EQ(stream.samples, (std::vector<float>{0.25f, -0.25f}));
    std::filesystem::remove(path);
}

TEST(WavWriter, APathThatCannotBeOpenedFails) {
    EXPECT_FALSE(writeWavFile("/no/such/folder/x.wav", std::vector<std::int16_t>{0, 0}));
}

TEST(WavWriter, AFullDiskFails) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_FALSE(writeWavFile("/dev/full", std::vector<std::int16_t>(2, 7)));
    EXPECT_FALSE(writeWavFile("/dev/full", std::vector<std::int16_t>(200000, 7)));
}

}  // namespace
}  // namespace veloria
