#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "tests/cli/run_tool.h"
#include "tests/media/midi_bytes.h"
#include "tests/recorder/literal_export.h"

namespace veloria {
namespace {

class Record : public test::ToolTest {
  protected:
    // 440 Hz from 0 to 1 s and, a quarter of a second in and between two samples, 164.81 Hz to 1.5 s.
    void writeSong() {
        test::MidiTrack track;
        track.on(0, 0, 69, 127).on(241, 0, 52, 127).off(719, 0, 69).off(480, 0, 52).endOfTrack();
        write("song.mid", test::midiFile(480, {track}));
    }

    std::vector<int> samplesOf(const std::string& name) const {
        const std::string bytes = test::readText(path(name));
        std::vector<int> samples;
        for (std::size_t i = 44; i + 1 < bytes.size(); i += 2) {
            samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[i]) |
                                                        static_cast<unsigned char>(bytes[i + 1]) << 8));
        }
        return samples;
    }
};

TEST_F(Record, WritesWhatTheRecorderWouldExport) {
    writeSong();
    const test::ToolResult result =
        run("record song.mid out.wav --original-midi --waveform triangle --fibonacci 0");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    const std::vector<int> samples = samplesOf("out.wav");
    ASSERT_EQ(samples.size(), 2u * (44100 + 66150));
    EXPECT_EQ(test::readText(path("out.wav")).substr(0, 4), "RIFF");
    // Both are named after Shadow numbers (441 and 165), so both stand in the middle, at -6 dB. A bucket
    // rounds the frequency to hundredths.
    const std::vector<int> expected = test::literalExport(
        {{440.0, 0.0, 1.0, -6.0, -6.0, 0.5, 3}, {164.81, 241.0 / 960.0, 1.5, -6.0, -6.0, 0.5, 3}},
        samples.size() / 2);
    int worst = 0;
    for (std::size_t i = 0; i < samples.size(); ++i)
        worst = std::max(worst, std::abs(samples[i] - expected[i]));
    EXPECT_LE(worst, 1);
    EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 3000);
}

TEST_F(Record, HarmonicSettingsGoIntoTheClips) {
    writeSong();
    ASSERT_EQ(run("record song.mid plain.wav").status, 0);
    ASSERT_EQ(run("record song.mid again.wav --quiet").status, 0);
    EXPECT_EQ(test::readText(path("plain.wav")), test::readText(path("again.wav")));
    for (const char* option :
         {"--waveform saw", "--fibonacci 5", "--pi 2", "--tesla 1", "--octave 1", "--octave -1", "--phi 2",
          "--fib-phase 50", "--original-midi", "--table shadow"}) {
        ASSERT_EQ(run(std::string("record song.mid other.wav ") + option).status, 0) << option;
        EXPECT_NE(test::readText(path("plain.wav")), test::readText(path("other.wav"))) << option;
    }
    ASSERT_EQ(run("record song.mid tesla.wav --tesla 1").status, 0);
    ASSERT_EQ(run("record song.mid other.wav --tesla 1 --tesla-phase 50").status, 0);
    EXPECT_NE(test::readText(path("tesla.wav")), test::readText(path("other.wav")));
}

TEST_F(Record, NormalizeChangesWhereAClipStands) {
    test::MidiTrack track;
    track.on(0, 0, 26, 127).off(480, 0, 26).endOfTrack();  // 36.71 Hz; folded 146.83
    write("low.mid", test::midiFile(480, {track}));
    ASSERT_EQ(run("record low.mid plain.wav --original-midi").status, 0);
    ASSERT_EQ(run("record low.mid folded.wav --original-midi --normalize").status, 0);
    // Shadow 111 in the middle against Rotation 147 at the right.
    const std::vector<int> plain = samplesOf("plain.wav");
    const std::vector<int> folded = samplesOf("folded.wav");
    EXPECT_EQ(plain[20000], plain[20001]);
    EXPECT_NE(plain[20001], 0);
    EXPECT_EQ(folded[20000], 0);
    EXPECT_NE(folded[20001], 0);
}

TEST_F(Record, TimesThatAreNotFiniteAreRefused) {
    test::MidiTrack track;
    track.on(0, 0, 60, 100).off(10, 0, 60).endOfTrack();
    write("zero.mid", test::midiFile(0, {track}));
    const test::ToolResult result = run("record zero.mid out.wav");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: zero.mid: its note times are not finite\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

TEST_F(Record, AFileThatMakesNoClipsLeavesNoOutput) {
    test::MidiTrack soft;
    soft.on(0, 0, 60, 10).off(480, 0, 60).endOfTrack();
    write("soft.mid", test::midiFile(480, {soft}));
    test::MidiTrack offs;
    offs.off(0, 0, 60).endOfTrack();
    write("offs.mid", test::midiFile(480, {offs}));
    for (const std::string name : {"soft.mid", "offs.mid"}) {
        const test::ToolResult result = run("record " + name + " out.wav");
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "veloria-cli: " + name + ": makes no recorder clips\n");
        EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
    }
}

TEST_F(Record, AFileTooLongForAWavFileIsRefused) {
    test::MidiTrack track;
    track.tempo(0, 0xFFFFFF).on(0, 0, 60, 100).off(0x0FFFFFFF, 0, 60).endOfTrack();
    write("long.mid", test::midiFile(1, {track}));
    const test::ToolResult result = run("record long.mid out.wav");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: long.mid: too long for a WAV file\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

TEST_F(Record, WhatCannotBeReadIsOneLineAndStatusOne) {
    const test::ToolResult missing = run("record missing.mid out.wav");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "veloria-cli: missing.mid: cannot be opened\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

TEST_F(Record, AnOutputThatCannotBeWrittenIsOneLineAndLeavesNothing) {
    writeSong();
    const test::ToolResult nowhere = run("record song.mid no/such/out.wav");
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_EQ(nowhere.err, "veloria-cli: no/such/out.wav: cannot be written\n");
    if (!std::filesystem::exists("/dev/full")) return;
    std::filesystem::create_symlink("/dev/full", path("full.wav"));
    EXPECT_EQ(run("record song.mid full.wav").status, 1);
    EXPECT_TRUE(std::filesystem::is_symlink(path("full.wav")));
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST_F(Record, AFileThatWasThereIsReplaced) {
    writeSong();
    std::ofstream(path("out.wav")) << "old";
    ASSERT_EQ(run("record song.mid out.wav").status, 0);
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 44u + 4u * (44100 + 66150));
}

TEST_F(Record, MistakesOfTheArgumentsAreStatusTwo) {
    for (const char* words :
         {"record", "record a.mid", "record a.mid b.wav c", "record a.mid b.wav --fft peak",
          "record a.mid b.wav --activation heart", "record a.mid b.wav --step 50"}) {
        const test::ToolResult result = run(words);
        EXPECT_EQ(result.status, 2) << words;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << words;
        EXPECT_NE(result.err.find("--help"), std::string::npos) << words;
    }
}

TEST_F(Record, HelpListsIt) {
    const std::string help = run("--help").out;
    for (const char* word : {"record INPUT.mid OUTPUT.wav", "clips INPUT.mid", "--normalize"})
        EXPECT_NE(help.find(word), std::string::npos) << word;
}

}  // namespace
}  // namespace veloria
