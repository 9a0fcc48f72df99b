#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "media/pcm_loader.h"
#include "media/wav_writer.h"
#include "tests/platform/scratch_folder.h"

namespace veloria {
namespace {

std::string bytesOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

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

class WavFileTest : public testing::Test {
  protected:
    const std::vector<std::int16_t> samples = {1, -2, 3, -4, 5, -6};
    test::ScratchFolder folder;
};

TEST_F(WavFileTest, InPiecesItIsTheSameFileWhateverLengthWasPromised) {
    ASSERT_TRUE(writeWavFile(folder / "whole.wav", samples));
    for (const std::uint64_t promised :
         {std::uint64_t{3}, std::uint64_t{0}, std::uint64_t{77}, kUnknownFrames}) {
        WavFile file(folder / "pieces.wav", promised);
        EXPECT_TRUE(file.write({samples.data(), 2}));
        EXPECT_TRUE(file.write({}));
        EXPECT_TRUE(file.write({samples.data() + 2, 4}));
        EXPECT_FALSE(std::filesystem::exists(folder / "pieces.wav"));
        ASSERT_TRUE(file.finish()) << promised;
        EXPECT_EQ(bytesOf(folder / "pieces.wav"), bytesOf(folder / "whole.wav")) << promised;
        std::filesystem::remove(folder / "pieces.wav");
    }
}

TEST_F(WavFileTest, APipeGetsTheLengthThatWasPromisedOrTheLargest) {
    for (const std::uint64_t promised : {std::uint64_t{3}, kUnknownFrames}) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        WavFile file("/proc/self/fd/" + std::to_string(ends[1]), promised);
        EXPECT_TRUE(file.write(samples));
        EXPECT_TRUE(file.finish());
        std::array<std::uint8_t, 100> bytes{};
        EXPECT_EQ(read(ends[0], bytes.data(), bytes.size()), 44 + 12);
        std::uint32_t size = 0;
        std::memcpy(&size, bytes.data() + 40, sizeof size);
        EXPECT_EQ(size, promised == 3 ? 12u : 4294967256u);
        close(ends[0]);
        close(ends[1]);
    }
}

TEST_F(WavFileTest, WhatCannotBeWrittenLeavesTheOldFile) {
    folder.write("old.wav", "old");
    {
        WavFile file(folder / "old.wav", 3);
        EXPECT_TRUE(file.write(samples));
    }
    EXPECT_EQ(bytesOf(folder / "old.wav"), "old");
    WavFile nowhere(folder / "no/such.wav", 3);
    EXPECT_FALSE(nowhere.good());
    EXPECT_FALSE(nowhere.write(samples));
    EXPECT_FALSE(nowhere.finish());
}

}  // namespace
}  // namespace veloria
