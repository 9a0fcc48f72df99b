// From note events to notes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "media/midi_parser.h"
#include "tests/media/midi_bytes.h"

namespace veloria::test {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

MidiEvent on(double time, int channel, int note, int velocity = 100) {
    return {time, note, velocity, velocity != 0, channel, 0};
}

MidiEvent off(double time, int channel, int note) {
    return {time, note, 0, false, channel, 0};
}

TEST(MidiPairing, ANoteRunsFromItsNoteOnToItsNoteOff) {
    const auto notes = pairMidiNotes({on(1.0, 5, 64, 127), off(2.5, 5, 64)});
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].start, 1.0);
    EXPECT_EQ(notes[0].end, 2.5);
    EXPECT_EQ(notes[0].note, 64);
    EXPECT_EQ(notes[0].velocity, 1.0F);
    EXPECT_EQ(notes[0].channel, 5);
    EXPECT_EQ(notes[0].pan, -1.0F);
}

TEST(MidiPairing, VelocityIsTheByteOver127) {
    const auto notes = pairMidiNotes({on(0.0, 0, 60, 1), off(1.0, 0, 60)});
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].velocity, 0.007874016F);
}

TEST(MidiPairing, SecondNoteOnSwallowsTheFirst) {
    const auto notes =
        pairMidiNotes({on(0.0, 0, 60, 10), on(1.0, 0, 60, 20), off(2.0, 0, 60), off(3.0, 0, 60)});
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].start, 1.0);
    EXPECT_EQ(notes[0].end, 2.0);
    EXPECT_EQ(notes[0].velocity, static_cast<float>(20 / 127.0));
}

TEST(MidiPairing, NoteOffWithNoOpenNoteDoesNothing) {
    EXPECT_TRUE(pairMidiNotes({off(0.0, 0, 60), on(1.0, 0, 60, 0)}).empty());
}

TEST(MidiPairing, ChannelsAndKeysPairApart) {
    const auto notes = pairMidiNotes(
        {on(0.0, 0, 60), on(0.1, 1, 60), on(0.2, 0, 61), off(1.0, 1, 60), off(1.1, 0, 61), off(1.2, 0, 60)});
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[0].end, 1.2);
    EXPECT_EQ(notes[1].channel, 1);
    EXPECT_EQ(notes[1].end, 1.0);
    EXPECT_EQ(notes[2].note, 61);
}

TEST(MidiPairing, OpenNotesAreDroppedAtTheEnd) {
    EXPECT_TRUE(pairMidiNotes({on(0.0, 0, 60)}).empty());
}

TEST(MidiPairing, OnlyNoteOffsGiveNoNotes) {
    MidiTrack track;
    track.off(0, 0, 60).off(10, 0, 61);
    const Bytes bytes = midiFile(480, {track});
    const auto events = parseMidiEvents(std::span<const std::uint8_t>(bytes));
    EXPECT_EQ(events.size(), 2U);
    EXPECT_TRUE(pairMidiNotes(events).empty());
}

TEST(MidiPairing, ANoteMayHaveNoLength) {
    const auto notes = pairMidiNotes({on(1.0, 0, 60), off(1.0, 0, 60)});
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].end, notes[0].start);
}

// The commonest case in real files: the old note ends at the tick at which the next one begins.
TEST(MidiPairing, RepeatedKeyAtOneInstantPairsInFileOrder) {
    MidiTrack track;
    track.on(0, 0, 60, 100).off(480, 0, 60).on(0, 0, 60, 90).off(480, 0, 60);
    const Bytes bytes = midiFile(480, {track});
    const auto notes = pairMidiNotes(parseMidiEvents(std::span<const std::uint8_t>(bytes)));
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_DOUBLE_EQ(notes[0].start, 0.0);
    EXPECT_DOUBLE_EQ(notes[0].end, 0.5);
    EXPECT_DOUBLE_EQ(notes[1].start, 0.5);
    EXPECT_DOUBLE_EQ(notes[1].end, 1.0);
}

TEST(MidiPairing, NotesAreSortedByStartAndInPairingOrderAtEqualStarts) {
    const auto notes = pairMidiNotes({on(0.0, 0, 60), on(1.0, 0, 61), on(1.0, 0, 62), on(1.0, 0, 63),
                                      off(2.0, 0, 63), off(3.0, 0, 61), off(4.0, 0, 62), off(5.0, 0, 60)});
    ASSERT_EQ(notes.size(), 4U);
    EXPECT_EQ(notes[0].note, 60);
    EXPECT_EQ(notes[1].note, 63);
    EXPECT_EQ(notes[2].note, 61);
    EXPECT_EQ(notes[3].note, 62);
}

TEST(MidiPairing, OneChannelAndSixteenChannelsGiveTheSameNotes) {
    std::vector<MidiEvent> one;
    std::vector<MidiEvent> spread;
    for (int i = 0; i < 32; ++i) {
        one.push_back(on(i, 0, 40 + i));
        spread.push_back(on(i, i % 16, 40 + i));
    }
    for (int i = 0; i < 32; ++i) {
        one.push_back(off(40 + i, 0, 40 + i));
        spread.push_back(off(40 + i, i % 16, 40 + i));
    }
    const auto a = pairMidiNotes(one);
    const auto b = pairMidiNotes(spread);
    ASSERT_EQ(a.size(), 32U);
    ASSERT_EQ(b.size(), 32U);
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].start, b[i].start);
        EXPECT_EQ(a[i].end, b[i].end);
        EXPECT_EQ(a[i].note, b[i].note);
        EXPECT_EQ(b[i].channel, static_cast<int>(i % 16));
    }
}

TEST(MidiPairing, KeyAbove127LandsInTheNextChannelsSlot) {
    // Key 130 of channel 2 is the slot of key 2 of channel 3.
    const auto notes = pairMidiNotes({on(0.0, 2, 130), off(1.0, 3, 2)});
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].channel, 2) << "the channel of the slot";
    EXPECT_EQ(notes[0].note, 2) << "the key of the event that ends it";
}

TEST(MidiPairing, KeyAbove127OfTheLastChannelIsIgnored) {
    EXPECT_TRUE(pairMidiNotes({on(0.0, 15, 128), off(1.0, 15, 128)}).empty());
    EXPECT_TRUE(pairMidiNotes({on(0.0, 15, 255), off(1.0, 15, 255)}).empty());
    EXPECT_EQ(pairMidiNotes({on(0.0, 15, 127), off(1.0, 15, 127)}).size(), 1U);
}

TEST(MidiPairing, NotANumberSortsBehindAllTimes) {
    const auto notes =
        pairMidiNotes({on(kNan, 0, 60), off(kNan, 0, 60), on(kInfinity, 0, 61), off(kInfinity, 0, 61),
                       on(kNan, 0, 62), off(kNan, 0, 62), on(-1.0, 0, 63), off(1.0, 0, 63)});
    ASSERT_EQ(notes.size(), 4U);
    EXPECT_EQ(notes[0].note, 63);
    EXPECT_EQ(notes[1].note, 61);
    EXPECT_EQ(notes[2].note, 60);
    EXPECT_EQ(notes[3].note, 62);
}

TEST(MidiPairing, TimeOrderIsTotal) {
    const std::vector<double> ascending{-kInfinity, -1.0, 0.0, 1.0, kInfinity, kNan};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            EXPECT_EQ(timeBefore(ascending[i], ascending[j]), i < j) << i << " " << j;
        }
    }
}

TEST(MidiPairing, LastNoteEndIsTheLargestEnd) {
    EXPECT_EQ(lastNoteEnd({}), 0.0);
    const auto notes = pairMidiNotes({on(0.0, 0, 60), on(1.0, 0, 61), off(2.0, 0, 61), off(7.0, 0, 60)});
    EXPECT_EQ(lastNoteEnd(notes), 7.0);
}

TEST(MidiPairing, LastNoteEndIsNotANumberWhenAnyEndIs) {
    const MidiNote good{0.0, 5.0, 60, 1.0F, 0, -1.0F};
    const MidiNote bad{0.0, kNan, 60, 1.0F, 0, -1.0F};
    EXPECT_TRUE(std::isnan(lastNoteEnd({good, bad})));
    EXPECT_TRUE(std::isnan(lastNoteEnd({bad, good})));
}

}  // namespace
}  // namespace veloria::test
