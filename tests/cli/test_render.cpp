#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "media/wav_writer.h"
#include "tests/cli/run_tool.h"
#include "tests/media/midi_bytes.h"
#include "tests/media/wav_bytes.h"

namespace veloria {
namespace {

// The frames of a WAV file of the tool, after a check of its header.
std::vector<std::int16_t> samplesOf(const std::string& path) {
    const std::string bytes = test::readText(path);
    if (bytes.size() < 44) return {};
    EXPECT_EQ(bytes.substr(0, 4), "RIFF");
    EXPECT_EQ(bytes.substr(36, 4), "data");
    std::vector<std::int16_t> samples;
    for (std::size_t i = 44; i + 1 < bytes.size(); i += 2) {
        samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[i]) |
                                                    static_cast<unsigned char>(bytes[i + 1]) << 8));
    }
    return samples;
}

// How strong `hz` is in the left side of frames first to last: 1 for a sine of full scale.
double strengthOf(const std::vector<std::int16_t>& samples, double hz, std::size_t first, std::size_t last) {
    double re = 0.0;
    double im = 0.0;
    for (std::size_t i = first; i < last; ++i) {
        const double angle = 2.0 * M_PI * hz * static_cast<double>(i) / 44100.0;
        re += samples[2 * i] * std::cos(angle);
        im += samples[2 * i] * std::sin(angle);
    }
    return 2.0 * std::hypot(re, im) / static_cast<double>(last - first) / 32000.0;
}

class Render : public test::ToolTest {
  protected:
    std::string oneNote(int key = 69) {
        test::MidiTrack track;
        track.on(0, 0, key, 127).off(960, 0, key).endOfTrack();
        return write("song.mid", test::midiFile(480, {track}));
    }
};

TEST_F(Render, AMidiFileLastsItsDurationAndASecond) {
    oneNote();
    const test::ToolResult result = run("render song.mid out.wav --original-midi --fibonacci 0");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");  // no progress bar without a terminal
    const auto samples = samplesOf(path("out.wav"));
    EXPECT_EQ(samples.size(), 2u * (44100 + 44100));
    // 440 Hz is nearest to Rotation: hard right doubles there, and the left is silent.
    const auto right = [&](std::size_t i) { return samples[2 * i + 1]; };
    int peak = 0;
    for (std::size_t i = 5000; i < 40000; ++i)
        peak = std::max(peak, std::abs(right(i)));
    EXPECT_NEAR(peak, 32000 * std::tanh(0.3 * 2.0 * 1.03), 60);
    for (std::size_t i = 44200; i < 88200; ++i)
        ASSERT_EQ(right(i), 0);
    for (std::size_t i = 0; i < 44100; ++i)
        ASSERT_EQ(samples[2 * i], 0);
}

TEST_F(Render, TheSameRunGivesTheSameBytes) {
    oneNote(50);
    ASSERT_EQ(run("render song.mid a.wav --waveform saw --pi 3").status, 0);
    ASSERT_EQ(run("render song.mid b.wav --waveform saw --pi 3").status, 0);
    EXPECT_EQ(test::readText(path("a.wav")), test::readText(path("b.wav")));
    ASSERT_EQ(run("render song.mid c.wav --waveform sine --pi 3").status, 0);
    EXPECT_NE(test::readText(path("a.wav")), test::readText(path("c.wav")));
}

TEST_F(Render, ATunedKeySoundsAtTheFrequencyThatNotesTells) {
    oneNote(61);
    const test::ToolResult notes = run("notes song.mid --table shadow");
    const std::size_t row = notes.out.find("\n0,");
    double hz = 0.0;
    double pan = 0.0;
    char ratio[16] = "";
    ASSERT_GE(
        std::sscanf(notes.out.c_str() + row + 1, "0,%*f,%*f,%*d,%*f,%*d,%lf,%15[^,],%lf", &hz, ratio, &pan),
        1);
    ASSERT_EQ(run("render song.mid out.wav --table shadow --fibonacci 0").status, 0);
    auto samples = samplesOf(path("out.wav"));
    for (std::size_t i = 0; i < samples.size(); i += 2)
        samples[i] =
            std::max(samples[i], samples[i + 1], [](int a, int b) { return std::abs(a) < std::abs(b); });
    EXPECT_GT(strengthOf(samples, hz, 1000, 43000), 0.25);
    EXPECT_LT(strengthOf(samples, hz * 1.02, 1000, 43000), 0.05);
}

TEST_F(Render, AMidiFileWithoutNotesIsASecondOfSilence) {
    test::MidiTrack track;
    track.off(0, 0, 60).endOfTrack();
    write("offs.mid", test::midiFile(480, {track}));
    EXPECT_EQ(run("render offs.mid out.wav").status, 0);
    const auto samples = samplesOf(path("out.wav"));
    EXPECT_EQ(samples.size(), 2u * 44100);
    EXPECT_TRUE(std::all_of(samples.begin(), samples.end(), [](int s) { return s == 0; }));
}

TEST_F(Render, ADivisionOfNoughtIsRefused) {
    test::MidiTrack track;
    track.on(10, 0, 60, 100).off(10, 0, 60).endOfTrack();
    write("zero.mid", test::midiFile(0, {track}));
    const test::ToolResult result = run("render zero.mid out.wav");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: zero.mid: its note times are not finite\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

TEST_F(Render, AFileTooLongForAWavFileIsRefused) {
    test::MidiTrack track;
    track.tempo(0, 0xFFFFFF).on(0, 0, 60, 100).off(0xFFFFFFF, 0, 60).endOfTrack();
    write("long.mid", test::midiFile(1, {track}));
    const test::ToolResult result = run("render long.mid out.wav");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: long.mid: too long for a WAV file\n");
}

TEST_F(Render, AStreamLastsItsSamplesTheFrameOfItsEndAndASecond) {
    write("in.wav", test::wavFile({}, test::integers(2, {8192, -8192, 16384})));
    EXPECT_EQ(run("render in.wav out.wav").status, 0);
    const auto samples = samplesOf(path("out.wav"));
    ASSERT_EQ(samples.size(), 2u * (3 + 1 + 44100));
    EXPECT_EQ(samples[0], 8000);
    EXPECT_EQ(samples[1], 8000);
    EXPECT_EQ(samples[2], -8000);
    EXPECT_EQ(samples[4], 16000);
    EXPECT_EQ(samples[6], 0);
}

TEST_F(Render, EverySampleFormatSoundsTheSame) {
    const std::vector<std::pair<test::WavFormat, test::Bytes>> files = {
        {{1, 1, 44100, 8}, test::integers(1, {192, 64})},
        {{1, 1, 44100, 16}, test::integers(2, {16384, -16384})},
        {{1, 1, 44100, 24}, test::integers(3, {4194304, -4194304})},
        {{1, 1, 44100, 32}, test::integers(4, {1073741824, -1073741824})},
        {{3, 1, 44100, 32}, test::floats({0.5f, -0.5f})}};
    for (const auto& [format, data] : files) {
        write("in.wav", test::wavFile(format, data));
        ASSERT_EQ(run("render in.wav out.wav").status, 0) << format.bits;
        const auto samples = samplesOf(path("out.wav"));
        ASSERT_EQ(samples.size(), 2u * (2 + 1 + 44100));
        EXPECT_NEAR(samples[0], 16000, 1) << format.bits;
        EXPECT_NEAR(samples[2], -16000, 1) << format.bits;
    }
}

TEST_F(Render, AnMp3FileComesOutWithItsToneAndLength) {
    const std::string input = std::string(VELORIA_SOURCE_DIR) + "/tests/media/data/mono_44100.mp3";
    ASSERT_TRUE(std::filesystem::exists(input));
    EXPECT_EQ(run("render '" + input + "' out.wav").status, 0);
    const auto samples = samplesOf(path("out.wav"));
    EXPECT_GT(samples.size(), 2u * (44100 + 12000));
    EXPECT_LT(samples.size(), 2u * (44100 + 20000));
    EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 8000);
}

TEST_F(Render, WhatCannotBeReadIsOneLineAndStatusOne) {
    EXPECT_EQ(run("render missing.mid out.wav").err, "veloria-cli: missing.mid: cannot be opened\n");
    EXPECT_EQ(run("render missing.wav out.wav").err, "veloria-cli: missing.wav: cannot be opened\n");
    write("bad.wav", {'R', 'I', 'F', 'F', 0});
    EXPECT_EQ(run("render bad.wav out.wav").err,
              "veloria-cli: bad.wav: is no WAV or MP3 file that can be read\n");
    write("song.ogg", {0});
    const test::ToolResult other = run("render song.ogg out.wav");
    EXPECT_EQ(other.status, 1);
    EXPECT_EQ(other.err, "veloria-cli: song.ogg: is no .mid, .midi, .wav or .mp3 file\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

TEST_F(Render, AnOutputThatCannotBeWrittenLeavesNothingBehindAndTakesNothingAway) {
    oneNote();
    const test::ToolResult nowhere = run("render song.mid no/such/out.wav");
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_EQ(nowhere.err, "veloria-cli: no/such/out.wav: cannot be written\n");
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(run("render song.mid /dev/full").status, 1);
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
    std::filesystem::create_symlink("/dev/full", folder / "link.wav");
    EXPECT_EQ(run("render song.mid link.wav").status, 1);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.wav"));
}

TEST_F(Render, APathWithQuotesAndSpacesWorks) {
    test::MidiTrack track;
    track.on(0, 0, 60, 100).off(48, 0, 60).endOfTrack();
    write("a \"b\" c.MID", test::midiFile(480, {track}));
    EXPECT_EQ(run("render 'a \"b\" c.MID' 'x y.wav'").status, 0);
    EXPECT_EQ(samplesOf(path("x y.wav")).size(), 2u * (44100 + 2205));
}

}  // namespace
}  // namespace veloria
