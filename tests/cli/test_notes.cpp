#include <gtest/gtest.h>

#include "tests/cli/run_tool.h"
#include "tests/media/midi_bytes.h"

namespace veloria {
namespace {

using Notes = test::ToolTest;

// Two keys, 440 Hz and an octave and a fifth below, at 120 beats a minute.
std::vector<std::uint8_t> song() {
    test::MidiTrack track;
    track.on(0, 2, 69, 127).on(240, 9, 50, 64).off(240, 2, 69).off(480, 9, 50).endOfTrack();
    return test::midiFile(480, {track});
}

TEST_F(Notes, WritesARowANoteInFileOrder) {
    write("song.mid", song());
    const test::ToolResult result = run("notes song.mid --original-midi");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "index,start,end,key,velocity,channel,frequency,ratio,pan\n"
              "0,0.000000000,0.500000000,69,1.000000,2,440.000000000,,1.0\n"
              "1,0.250000000,1.000000000,50,0.503937,9,146.832383959,,1.0\n");
    EXPECT_EQ(result.err, "2 notes, 0 binaural pairs, 1.000 s\n");
}

TEST_F(Notes, NamesTheRatioOfATunedKey) {
    write("song.mid", song());
    const test::ToolResult result = run("notes song.mid");
    EXPECT_EQ(result.status, 0);
    // 440 lies 0.0 Hz from 110 x4's neighbours: the exact row is the tuner's; here it must be there and
    // differ from the untuned run only in frequency, ratio and pan.
    EXPECT_EQ(result.out.find("0,0.000000000,0.500000000,69,1.000000,2,"),
              std::string("index,start,end,key,velocity,"
                          "channel,frequency,ratio,pan\n")
                  .size());
    EXPECT_NE(result.out, run("notes song.mid --original-midi").out);
    EXPECT_NE(result.out, run("notes song.mid --table shadow").out);
}

TEST_F(Notes, AFileWithEventsButNoNotesHasOnlyItsHeader) {
    test::MidiTrack track;
    track.off(0, 0, 60).endOfTrack();
    write("offs.mid", test::midiFile(480, {track}));
    const test::ToolResult result = run("notes offs.mid");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "index,start,end,key,velocity,channel,frequency,ratio,pan\n");
    EXPECT_EQ(result.err, "0 notes, 0 binaural pairs, 0.000 s\n");
}

TEST_F(Notes, ADivisionOfNoughtIsListedWithTheTimesItHas) {
    test::MidiTrack track;
    track.on(10, 0, 60, 100).off(10, 0, 60).endOfTrack();
    write("zero.mid", test::midiFile(0, {track}));
    const test::ToolResult result = run("notes zero.mid");
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("0,nan,nan,60,"), std::string::npos);
}

TEST_F(Notes, WhatCannotBeReadIsOneLineAndStatusOne) {
    const test::ToolResult missing = run("notes missing.mid");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "veloria-cli: missing.mid: cannot be opened\n");
    EXPECT_EQ(missing.out, "");
    write("torn.mid", {'M', 'T', 'h', 'd'});
    const test::ToolResult torn = run("notes torn.mid");
    EXPECT_EQ(torn.status, 1);
    EXPECT_EQ(torn.err, "veloria-cli: torn.mid: holds no MIDI note events\n");
}

TEST_F(Notes, AFullStandardOutputIsAFailure) {
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    write("song.mid", song());
    const std::string command = "'" VELORIA_CLI "' notes '" + path("song.mid") + "' >/dev/full 2>/dev/null";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
}

}  // namespace
}  // namespace veloria
