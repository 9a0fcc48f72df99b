// The MIDI reader: what it keeps of a sound file, and when.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "media/midi_parser.h"
#include "tests/media/literal_midi.h"
#include "tests/media/midi_bytes.h"

namespace veloria::test {
namespace {

std::vector<MidiEvent> parse(const Bytes& bytes) {
    return parseMidiEvents(std::span<const std::uint8_t>(bytes));
}

// With 480 ticks a quarter and the default half second a quarter, a tick is 1/960 s.
constexpr int kDivision = 480;

TEST(MidiParser, KeepsNoteOnAndNoteOffWithTheirFields) {
    MidiTrack track;
    track.on(0, 3, 60, 100).off(480, 3, 60, 77).endOfTrack();
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].time, 0.0);
    EXPECT_EQ(events[0].note, 60);
    EXPECT_EQ(events[0].velocity, 100);
    EXPECT_TRUE(events[0].isNoteOn);
    EXPECT_EQ(events[0].channel, 3);
    EXPECT_EQ(events[0].tick, 0U);
    EXPECT_DOUBLE_EQ(events[1].time, 0.5);
    EXPECT_EQ(events[1].velocity, 0) << "a release velocity is dropped";
    EXPECT_FALSE(events[1].isNoteOn);
    EXPECT_EQ(events[1].tick, 480U);
}

TEST(MidiParser, NoteOnWithVelocityZeroIsANoteOff) {
    MidiTrack track;
    track.on(0, 0, 60, 0);
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_FALSE(events[0].isNoteOn);
    EXPECT_EQ(events[0].velocity, 0);
}

TEST(MidiParser, OtherChannelEventsAreSkippedByTheirLength) {
    MidiTrack track;
    track.delta(0).raw({0xA0, 60, 1});   // key pressure
    track.delta(0).raw({0xB0, 7, 100});  // controller
    track.delta(0).raw({0xC0, 5});       // program
    track.delta(0).raw({0xD0, 5});       // channel pressure
    track.delta(0).raw({0xE0, 0, 64});   // pitch bend
    track.on(0, 0, 61, 90);
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].note, 61);
}

TEST(MidiParser, StatusesF1ToFeTakeTwoBytesAndBecomeTheRunningStatus) {
    for (int status = 0xF1; status <= 0xFE; ++status) {
        if (status == 0xF7) continue;
        MidiTrack track;
        track.on(0, 0, 60, 100);
        track.delta(0).raw({status, 1, 2});
        track.delta(0).raw({62, 100});  // under the new running status: no note
        track.on(0, 0, 64, 100);
        const auto events = parse(midiFile(kDivision, {track}));
        ASSERT_EQ(events.size(), 2U) << status;
        EXPECT_EQ(events[1].note, 64) << status;
    }
}

TEST(MidiParser, RunningStatusContinuesAcrossMetaAndSysex) {
    MidiTrack track;
    track.on(0, 2, 60, 100);
    track.delta(0).raw({61, 101});
    track.meta(0, 0x01, {'h', 'i'});
    track.delta(0).raw({62, 102});
    track.delta(0).raw({0xF0, 2, 1, 0xF7});
    track.delta(0).raw({63, 103});
    track.delta(0).raw({0xF7, 1, 0x90});
    track.delta(0).raw({64, 104});
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 5U);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(events[static_cast<std::size_t>(i)].note, 60 + i);
        EXPECT_EQ(events[static_cast<std::size_t>(i)].velocity, 100 + i);
        EXPECT_EQ(events[static_cast<std::size_t>(i)].channel, 2);
    }
}

TEST(MidiParser, RunningStatusAndTicksStartAnewOnEachTrack) {
    MidiTrack first;
    first.on(480, 0, 60, 100);
    MidiTrack second;
    second.delta(240).raw({62, 100});  // no status yet: two bytes skipped, no note
    second.on(0, 1, 64, 100);
    const auto events = parse(midiFile(kDivision, {first, second}));
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].note, 64);
    EXPECT_EQ(events[0].tick, 240U);
    EXPECT_EQ(events[1].note, 60);
}

TEST(MidiParser, DataByteInFirstPositionSkipsTwoBytesAndKeepsNoNote) {
    MidiTrack track;
    track.delta(0).raw({60, 100});
    track.on(0, 0, 61, 100);
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].note, 61);
}

TEST(MidiParser, FormatAndHeaderLengthAreNotRead) {
    MidiTrack track;
    track.on(0, 0, 60, 100);
    Bytes bytes = midiFile(kDivision, {track});
    for (std::size_t i = 4; i < 10; ++i)
        bytes[i] = 0xFF;
    EXPECT_EQ(parse(bytes).size(), 1U);
}

TEST(MidiParser, EventsBehindTheEndOfTrackAreNotRead) {
    MidiTrack track;
    track.on(0, 0, 60, 100).endOfTrack().on(0, 0, 61, 100).tempo(0, 250000);
    MidiTrack second;
    second.on(480, 0, 62, 100);
    const auto events = parse(midiFile(kDivision, {track, second}));
    ASSERT_EQ(events.size(), 2U);
    EXPECT_DOUBLE_EQ(events[1].time, 0.5) << "the tempo behind the end does not count";
}

TEST(MidiParser, TempoAtTickZeroReplacesTheDefault) {
    MidiTrack track;
    track.tempo(0, 1000000).on(480, 0, 60, 100);
    EXPECT_DOUBLE_EQ(parse(midiFile(kDivision, {track}))[0].time, 1.0);
}

TEST(MidiParser, LaterOfTwoTemposAtOneTickCounts) {
    MidiTrack track;
    track.on(0, 0, 60, 100).tempo(480, 2000000).tempo(0, 250000).off(480, 0, 60);
    EXPECT_DOUBLE_EQ(parse(midiFile(kDivision, {track}))[1].time, 0.5 + 0.25);
}

TEST(MidiParser, TempoOfAnyTrackAppliesToAllTracks) {
    MidiTrack notes;
    notes.on(960, 0, 60, 100);
    MidiTrack tempos;
    tempos.tempo(480, 1000000);
    EXPECT_DOUBLE_EQ(parse(midiFile(kDivision, {notes, tempos}))[0].time, 0.5 + 1.0);
}

TEST(MidiParser, TempoAtTheEventsOwnTickDoesNotMoveIt) {
    MidiTrack track;
    track.tempo(480, 1000000).on(0, 0, 60, 100).off(480, 0, 60);
    const auto events = parse(midiFile(kDivision, {track}));
    EXPECT_DOUBLE_EQ(events[0].time, 0.5);
    EXPECT_DOUBLE_EQ(events[1].time, 1.5);
}

TEST(MidiParser, TempoOfZeroIsIgnored) {
    MidiTrack track;
    track.tempo(0, 0).on(480, 0, 60, 100);
    EXPECT_DOUBLE_EQ(parse(midiFile(kDivision, {track}))[0].time, 0.5);
}

TEST(MidiParser, TempoMetaOfLengthTwoOrFourIsAnOrdinaryMeta) {
    MidiTrack track;
    track.meta(0, 0x51, {0x0F, 0x42}).meta(0, 0x51, {0x0F, 0x42, 0x40, 0x00}).on(480, 0, 60, 100);
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_DOUBLE_EQ(events[0].time, 0.5);
}

TEST(MidiParser, SmpteDivisionIsALargePlainNumber) {
    MidiTrack track;
    track.on(480, 0, 60, 100);
    EXPECT_DOUBLE_EQ(parse(midiFile(0xE728, {track}))[0].time, 480 * 0.5 / 59176);
}

TEST(MidiParser, EventsAtOneInstantStayInFileOrder) {
    MidiTrack first;
    first.on(480, 0, 60, 100).on(0, 0, 61, 100);
    MidiTrack second;
    second.on(480, 1, 62, 100).on(0, 1, 63, 100);
    const auto events = parse(midiFile(kDivision, {first, second}));
    ASSERT_EQ(events.size(), 4U);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(events[static_cast<std::size_t>(i)].note, 60 + i);
}

TEST(MidiParser, VariableLengthValuesKeepTheirLast32Bits) {
    MidiTrack track;
    track.raw({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x83, 0x60});  // 42 bits set, then 480
    track.raw({0x90, 60, 100});
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].tick, 0xFFFFC000U | 480U) << "480 in the low 14 bits, ones above";
}

TEST(MidiParser, TicksWrapAt32Bits) {
    MidiTrack track;
    track.raw({0x8F, 0xFF, 0xFF, 0xFF, 0x7F}).raw({0x90, 60, 100});  // 2^32 - 1
    track.on(3, 0, 61, 100);
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].tick, 2U);
    EXPECT_EQ(events[1].tick, 0xFFFFFFFFU);
}

// The last bit of each time is the same as from a walk of the map from its start.
TEST(MidiParser, TimesAreThoseOfAWalkOfTheTempoMapForEachEvent) {
    const unsigned seed = 20;
    std::mt19937 engine(seed);
    const auto random = [&engine] { return static_cast<std::uint32_t>(engine()); };
    for (int round = 0; round < 20; ++round) {
        std::vector<MidiTrack> tracks(1 + random() % 4);
        for (MidiTrack& track : tracks) {
            for (int i = 0; i < 300; ++i) {
                if (random() % 3 == 0) track.tempo(random() % 500, random() % 0x1000000U);
                track.on(random() % 700, static_cast<int>(random() % 16), static_cast<int>(random() % 128),
                         100);
            }
        }
        const Bytes bytes = midiFile(static_cast<int>(random() % 65536), tracks);
        const auto expected = LiteralMidi(bytes).events();
        const auto events = parse(bytes);
        ASSERT_EQ(events.size(), expected.size());
        for (std::size_t i = 0; i < events.size(); ++i) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(events[i].time),
                      std::bit_cast<std::uint64_t>(expected[i].time))
                << "event " << i << ", round " << round << ", seed " << seed;
            ASSERT_EQ(events[i].note, expected[i].note);
        }
    }
}

TEST(MidiParser, ReadsAFileFromDisk) {
    MidiTrack track;
    track.on(0, 0, 60, 100).off(480, 0, 60);
    const Bytes bytes = midiFile(kDivision, {track});
    const std::string path = testing::TempDir() + "veloria_parser_test.mid";
    std::FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
    std::fclose(file);
    EXPECT_EQ(parseMidiEvents(path).size(), 2U);
    std::remove(path.c_str());
    EXPECT_TRUE(parseMidiEvents(path).empty()) << "the file is gone";
}

}  // namespace
}  // namespace veloria::test
