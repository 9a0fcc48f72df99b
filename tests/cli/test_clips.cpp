#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "cli/arguments.h"
#include "tests/cli/run_tool.h"
#include "tests/media/midi_bytes.h"

namespace veloria {
namespace {

using Clips = test::ToolTest;

constexpr char kHeader[] = "id,channel,frequency,start,end,gain_in,gain_out,pan,kind,index,label\n";

// At 120 beats a minute: 440 and 415.30 Hz overlapping, 293.66 Hz on another channel of the file, and one
// note that is too soft.
std::vector<std::uint8_t> song() {
    test::MidiTrack track;
    track.on(0, 2, 69, 127).on(240, 9, 68, 64).off(240, 2, 69).off(480, 9, 68);
    track.on(0, 0, 62, 11).on(0, 0, 80, 10).off(480, 0, 62).off(0, 0, 80).endOfTrack();
    return test::midiFile(480, {track});
}

TEST_F(Clips, WritesARowAClipInTheOrderOfTheRecorder) {
    write("song.mid", song());
    const test::ToolResult result = run("clips song.mid --original-midi");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              std::string(kHeader) +
                  "3,0,293.66,1.000000000,1.500000000,-11.4803,-11.4803,0.0,6,10,\"Reflect/259 293.7Hz\"\n"
                  "1,0,440.00,0.000000000,0.500000000,-6.0000,-6.0000,1.0,10,126,\"Shadow/441 440.0Hz\"\n"
                  "2,1,415.30,0.250000000,1.000000000,-8.9764,-8.9764,0.0,10,111,\"Shadow/414 415.3Hz\"\n");
    EXPECT_EQ(result.err, "Imported 3 notes (1 filtered). Binaural optimization: 1 pairs split to L/R.\n");
}

TEST_F(Clips, WithoutPairsTheMessageTellsWhatIsFiltered) {
    test::MidiTrack track;
    track.on(0, 0, 69, 127).off(480, 0, 69).endOfTrack();
    write("one.mid", test::midiFile(480, {track}));
    const test::ToolResult result = run("clips one.mid");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "Imported 1 notes into recorder (0 filtered: vel<8% or dur<30ms).\n");
}

TEST_F(Clips, OptionsChangeTuningAndNames) {
    test::MidiTrack track;
    track.on(0, 0, 0, 127).off(480, 0, 0).endOfTrack();
    write("low.mid", test::midiFile(480, {track}));
    EXPECT_NE(run("clips low.mid --original-midi").out.find(",10,0,\"Shadow/111 8.2Hz\"\n"),
              std::string::npos);
    const std::string normalized = run("clips low.mid --original-midi --normalize").out;
    EXPECT_NE(normalized.find("1,0,8.18,"), std::string::npos);
    EXPECT_NE(normalized.find(",10,12,\"Shadow/131 8.2Hz\"\n"), std::string::npos);
    // The bass filter raises key 0 to 48: 130.81 Hz.
    EXPECT_NE(run("clips low.mid --original-midi --bass-filter").out.find("1,0,130.81,"), std::string::npos);
    write("song.mid", song());
    EXPECT_NE(run("clips song.mid").out, run("clips song.mid --original-midi").out);
    EXPECT_NE(run("clips song.mid").out, run("clips song.mid --table shadow").out);
}

TEST_F(Clips, AFileWithEventsButNoNotesHasOnlyItsHeader) {
    test::MidiTrack track;
    track.off(0, 0, 60).endOfTrack();
    write("offs.mid", test::midiFile(480, {track}));
    const test::ToolResult result = run("clips offs.mid");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, kHeader);
    EXPECT_EQ(result.err, "No MIDI file loaded!\n");
}

TEST_F(Clips, ADivisionOfNoughtMakesNoClips) {
    test::MidiTrack track;
    track.on(0, 0, 60, 100).off(10, 0, 60).on(0, 0, 61, 100).off(10, 0, 61).endOfTrack();
    write("zero.mid", test::midiFile(0, {track}));
    const test::ToolResult result = run("clips zero.mid");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, kHeader);
    EXPECT_EQ(result.err, "Imported 0 notes into recorder (2 filtered: vel<8% or dur<30ms).\n");
}

TEST_F(Clips, WhatCannotBeReadIsOneLineAndStatusOne) {
    const test::ToolResult missing = run("clips missing.mid");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.out, "");
    EXPECT_EQ(missing.err, "veloria-cli: missing.mid: cannot be opened\n");
    write("torn.mid", {'M', 'T', 'h', 'd'});
    const test::ToolResult torn = run("clips torn.mid");
    EXPECT_EQ(torn.status, 1);
    EXPECT_EQ(torn.err.rfind("veloria-cli: torn.mid: ", 0), 0u);
    EXPECT_EQ(std::count(torn.err.begin(), torn.err.end(), '\n'), 1);
}

TEST_F(Clips, WhatChangesNoColumnIsAnErrorOfTheArguments) {
    write("song.mid", song());
    for (const char* option :
         {"--waveform saw", "--fibonacci 3", "--tesla-phase 5", "--quiet", "--fft peak"}) {
        const test::ToolResult result = run(std::string("clips song.mid ") + option);
        EXPECT_EQ(result.status, 2) << option;
        EXPECT_NE(result.err.find("means nothing to 'clips'"), std::string::npos) << option;
        EXPECT_EQ(result.out, "");
    }
}

TEST_F(Clips, AFullStandardOutputIsAFailure) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    write("song.mid", song());
    const std::string command = "'" VELORIA_CLI "' clips '" + path("song.mid") + "' >/dev/full 2>/dev/null";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
}

TEST(ClipsArguments, NormalizeIsForImportsAlone) {
    EXPECT_TRUE(cli::parseArguments({"clips", "a.mid", "--normalize"}).options.normalize);
    EXPECT_TRUE(cli::parseArguments({"record", "a.mid", "b.wav", "--normalize"}).options.normalize);
    EXPECT_FALSE(cli::parseArguments({"clips", "a.mid"}).options.normalize);
    EXPECT_NE(cli::parseArguments({"render", "a.mid", "b.wav", "--normalize"}).error, "");
    EXPECT_NE(cli::parseArguments({"notes", "a.mid", "--normalize"}).error, "");
}

}  // namespace
}  // namespace veloria
