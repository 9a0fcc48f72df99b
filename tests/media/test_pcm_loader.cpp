// Loading a sound file from disk: which reader gets it, and what is left of the stream when it fails.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "media/pcm_loader.h"
#include "tests/media/wav_bytes.h"
#include "tests/source_dir.h"

namespace veloria::test {
namespace {

class PcmLoader : public testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = testing::TempDir() + "veloria_pcm_";
        folder_ = pattern + testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::create_directories(folder_);
        stream_.samples = {1.0F, 2.0F};
        stream_.position = 1;
        stream_.playing = true;
    }

    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string write(const std::string& name, const Bytes& bytes) {
        const std::filesystem::path path = folder_ / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path.string();
    }

    std::string writeTone(const std::string& name) {
        const std::filesystem::path path = folder_ / name;
        std::filesystem::copy_file(sourceDir() + "/tests/media/data/mono_44100.mp3", path);
        return path.string();
    }

    void expectEmptyAndStopped() {
        EXPECT_TRUE(stream_.samples.empty());
        EXPECT_EQ(stream_.position, 0U);
        EXPECT_FALSE(stream_.playing);
    }

    const Bytes wave_ = wavFile({}, integers(2, {16384, 8192}));
    std::filesystem::path folder_;
    PcmStream stream_;
};

TEST_F(PcmLoader, LoadedStreamStandsAtItsStartAndDoesNotPlay) {
    EXPECT_TRUE(loadPcmFile(stream_, write("a.wav", wave_)));
    EXPECT_EQ(stream_.samples, (std::vector<float>{0.5F, 0.25F}));
    EXPECT_EQ(stream_.position, 0U);
    EXPECT_FALSE(stream_.playing);
}

TEST_F(PcmLoader, Mp3ByItsExtensionInEitherCase) {
    EXPECT_TRUE(loadPcmFile(stream_, writeTone("a.mp3")));
    EXPECT_GT(stream_.samples.size(), 13000U);
    EXPECT_TRUE(loadPcmFile(stream_, writeTone("B.MP3")));
    EXPECT_TRUE(loadPcmFile(stream_, writeTone("c.tar.Mp3")));
}

TEST_F(PcmLoader, EverythingElseGoesToTheWavReader) {
    for (const char* name : {"a.WAV", "b.bin", "c", "d.mp3.wav", "e.mp", "f.mp33", "g."}) {
        EXPECT_TRUE(loadPcmFile(stream_, write(name, wave_))) << name;
    }
}

TEST_F(PcmLoader, TheLastDotOfTheWholePathCounts) {
    // The last dot stands in the folder's name, so that the extension is ".mp3/sound".
    EXPECT_TRUE(loadPcmFile(stream_, write("folder.mp3/sound", wave_)));
}

TEST_F(PcmLoader, WaveFileNamedMp3FailsInTheMp3Reader) {
    EXPECT_FALSE(loadPcmFile(stream_, write("wave.mp3", wave_)));
    expectEmptyAndStopped();
}

TEST_F(PcmLoader, Mp3FileNamedWavFailsInTheWavReader) {
    EXPECT_FALSE(loadPcmFile(stream_, writeTone("tone.wav")));
    expectEmptyAndStopped();
}

TEST_F(PcmLoader, MissingFileEmptiesTheStream) {
    EXPECT_FALSE(loadPcmFile(stream_, (folder_ / "none.wav").string()));
    expectEmptyAndStopped();
    stream_.samples = {1.0F};
    stream_.playing = true;
    EXPECT_FALSE(loadPcmFile(stream_, (folder_ / "none.mp3").string()));
    expectEmptyAndStopped();
}

TEST_F(PcmLoader, EmptyFileEmptiesTheStream) {
    EXPECT_FALSE(loadMp3(stream_, write("empty.mp3", {})));
    expectEmptyAndStopped();
    stream_.samples = {1.0F};
    EXPECT_FALSE(loadWav(stream_, write("empty.wav", {})));
    expectEmptyAndStopped();
}

TEST_F(PcmLoader, AFolderIsNoFile) {
    EXPECT_FALSE(loadPcmFile(stream_, folder_.string()));
    expectEmptyAndStopped();
}

}  // namespace
}  // namespace veloria::test
