// Torn, lying and hostile MIDI bytes: one test for each kind.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

#include "media/midi_parser.h"
#include "tests/media/literal_midi.h"
#include "tests/media/midi_bytes.h"

namespace veloria::test {
namespace {

constexpr int kDivision = 480;

std::vector<MidiEvent> parse(const Bytes& bytes) {
    return parseMidiEvents(std::span<const std::uint8_t>(bytes));
}

MidiTrack oneNote(int key = 60) {
    MidiTrack track;
    return track.on(0, 0, key, 100).off(480, 0, key);
}

Bytes withTracks(int announced, const std::vector<Bytes>& chunks) {
    Bytes bytes = midiHeader(announced, kDivision);
    for (const Bytes& chunk : chunks)
        append(bytes, chunk);
    return bytes;
}

TEST(MidiDamage, EmptyFile) {
    EXPECT_TRUE(parse({}).empty());
}

TEST(MidiDamage, ThirteenBytes) {
    Bytes bytes = midiHeader(1, kDivision);
    bytes.pop_back();
    EXPECT_TRUE(parse(bytes).empty());
}

TEST(MidiDamage, HeaderAlone) {
    EXPECT_TRUE(parse(midiHeader(1, kDivision)).empty());
}

TEST(MidiDamage, WrongMagic) {
    for (std::size_t i = 0; i < 4; ++i) {
        Bytes bytes = midiFile(kDivision, {oneNote()});
        bytes[i] ^= 0x20;
        EXPECT_TRUE(parse(bytes).empty()) << i;
    }
}

TEST(MidiDamage, TrackCountOfZero) {
    EXPECT_TRUE(parse(withTracks(0, {trackChunk(oneNote().bytes)})).empty());
}

TEST(MidiDamage, FewerTracksThanAnnounced) {
    const auto events = parse(withTracks(3, {trackChunk(oneNote(60).bytes), trackChunk(oneNote(62).bytes)}));
    EXPECT_EQ(events.size(), 4U);
}

TEST(MidiDamage, MoreTracksThanAnnounced) {
    const auto events = parse(withTracks(1, {trackChunk(oneNote(60).bytes), trackChunk(oneNote(62).bytes)}));
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].note, 60);
}

TEST(MidiDamage, TrackCountOf65535InAShortFile) {
    EXPECT_EQ(parse(withTracks(65535, {trackChunk(oneNote().bytes)})).size(), 2U);
}

TEST(MidiDamage, UnknownChunkBetweenTracksEndsTheFile) {
    Bytes unknown = trackChunk({1, 2, 3});
    unknown[3] = 'x';
    const auto events =
        parse(withTracks(3, {trackChunk(oneNote(60).bytes), unknown, trackChunk(oneNote(62).bytes)}));
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].note, 60);
}

TEST(MidiDamage, HeaderLongerThanFourteenBytesHidesTheTracks) {
    Bytes bytes = midiHeader(1, kDivision);
    bytes[7] = 8;
    append(bytes, {0, 0});
    append(bytes, trackChunk(oneNote().bytes));
    EXPECT_TRUE(parse(bytes).empty());
}

TEST(MidiDamage, SevenBytesOfATrackHeader) {
    Bytes torn = trackChunk({});
    torn.pop_back();
    EXPECT_EQ(parse(withTracks(2, {trackChunk(oneNote().bytes), torn})).size(), 2U);
}

TEST(MidiDamage, TrackThatClaimsMoreThanTheFileIsReadToTheFilesEnd) {
    EXPECT_EQ(parse(withTracks(1, {trackChunk(oneNote().bytes, 1000)})).size(), 2U);
}

TEST(MidiDamage, TrackLengthNear2To32DoesNotWrap) {
    for (const std::uint32_t length : {0xFFFFFFFFU, 0xFFFFFFF8U, 0xFFFFFFE8U, 0x80000000U}) {
        const auto events =
            parse(withTracks(2, {trackChunk(oneNote().bytes, length), trackChunk(oneNote(62).bytes)}));
        ASSERT_GE(events.size(), 2U) << length;
        EXPECT_EQ(
            events,
            LiteralMidi(withTracks(2, {trackChunk(oneNote().bytes, length), trackChunk(oneNote(62).bytes)}))
                .events())
            << length;
    }
}

TEST(MidiDamage, TrackLengthOfZeroSkipsToTheNextChunk) {
    const auto events = parse(withTracks(2, {trackChunk({}, 0), trackChunk(oneNote(62).bytes)}));
    EXPECT_EQ(events.size(), 2U);
}

TEST(MidiDamage, TrackThatClaimsTooLittleEndsTheFileInsideItself) {
    // The length covers the first event only; what follows is no "MTrk".
    EXPECT_EQ(parse(withTracks(2, {trackChunk(oneNote().bytes, 4), trackChunk(oneNote(62).bytes)})).size(),
              1U);
}

TEST(MidiDamage, NoteAcrossTheTrackEndIsKeptWhileItLiesInTheFile) {
    // Delta and status inside the track's two bytes, both data bytes behind it.
    const auto events = parse(withTracks(1, {trackChunk({0, 0x90, 60, 100}, 2)}));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].velocity, 100);
}

TEST(MidiDamage, FileThatEndsBeforeTheVelocity) {
    MidiTrack track = oneNote();
    track.delta(0).raw({0x90, 62});
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes)})).size(), 2U);
}

TEST(MidiDamage, FileThatEndsBehindTheStatus) {
    MidiTrack track = oneNote();
    track.delta(0).raw({0x90});
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes)})).size(), 2U);
}

TEST(MidiDamage, FileThatEndsInsideADelta) {
    MidiTrack track = oneNote();
    track.raw({0xFF, 0xFF, 0xFF});
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes, 1000)})).size(), 2U);
}

TEST(MidiDamage, FileThatEndsBehindADelta) {
    MidiTrack track = oneNote();
    track.delta(5);
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes, 1000)})).size(), 2U);
}

TEST(MidiDamage, DeltaThatRunsOverTheTrackEndEndsTheTrack) {
    // Two of the delta's bytes lie behind the track; the next track begins inside it and is found all the
    // same.
    Bytes first = trackChunk({0, 0x90, 60, 100, 0x81}, 5);
    const auto events = parse(withTracks(2, {first, trackChunk(oneNote(62).bytes)}));
    ASSERT_EQ(events.size(), 3U);
}

TEST(MidiDamage, FileThatEndsBehindTheMetaMark) {
    MidiTrack track = oneNote();
    track.delta(0).raw({0xFF});
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes)})).size(), 2U);
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes, 1000)})).size(), 2U);
}

TEST(MidiDamage, MetaMarkAsTheTracksLastByteTakesNoTypeFromTheNextTrack) {
    MidiTrack track = oneNote();
    track.delta(0).raw({0xFF});
    EXPECT_EQ(parse(withTracks(2, {trackChunk(track.bytes), trackChunk(oneNote(62).bytes)})).size(), 4U);
}

TEST(MidiDamage, MetaLengthNear2To32DoesNotWrap) {
    MidiTrack track = oneNote();
    track.delta(0).raw({0xFF, 0x01, 0x8F, 0xFF, 0xFF, 0xFF, 0x7F}).on(0, 0, 70, 100);
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes)})).size(), 2U);
}

TEST(MidiDamage, SysexLengthNear2To32DoesNotWrap) {
    MidiTrack track = oneNote();
    track.delta(0).raw({0xF0, 0x8F, 0xFF, 0xFF, 0xFF, 0x7F}).on(0, 0, 70, 100);
    EXPECT_EQ(parse(withTracks(1, {trackChunk(track.bytes)})).size(), 2U);
}

TEST(MidiDamage, TempoThatTheFileCutsShortIsIgnored) {
    MidiTrack track;
    track.on(480, 0, 60, 100).tempo(0, 1000000);
    track.bytes.pop_back();
    MidiTrack early;
    early.tempo(0, 250000);
    Bytes bytes = withTracks(2, {trackChunk(early.bytes), trackChunk(track.bytes, 1000)});
    const auto events = parse(bytes);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_DOUBLE_EQ(events[0].time, 0.25);
}

TEST(MidiDamage, TempoThatRunsOverTheTrackEndIsIgnored) {
    MidiTrack tempo;
    tempo.tempo(0, 1000000);
    // The track ends one byte before the tempo does; that byte takes the next chunk's place, so put the note
    // first.
    Bytes bytes = midiHeader(2, kDivision);
    MidiTrack note;
    note.on(480, 0, 60, 100);
    append(bytes, trackChunk(note.bytes));
    append(bytes, trackChunk(tempo.bytes, static_cast<std::uint32_t>(tempo.bytes.size() - 1)));
    const auto events = parse(bytes);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_DOUBLE_EQ(events[0].time, 0.5);
}

TEST(MidiDamage, DivisionOfZeroGivesTimesThatAreNotFinite) {
    const auto events = parse(midiFile(0, {oneNote(60), oneNote(62)}));
    ASSERT_EQ(events.size(), 4U);
    for (const MidiEvent& event : events)
        EXPECT_FALSE(std::isfinite(event.time));
    const auto notes = pairMidiNotes(events);
    EXPECT_EQ(notes.size(), 2U);
    EXPECT_FALSE(std::isfinite(lastNoteEnd(notes)));
}

TEST(MidiDamage, KeyAndVelocityAbove127AreKeptAsTheyStand) {
    MidiTrack track;
    track.delta(0).raw({0x9F, 0xFE, 0xFD});
    const auto events = parse(midiFile(kDivision, {track}));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].note, 254);
    EXPECT_EQ(events[0].velocity, 253);
    EXPECT_EQ(events[0].channel, 15);
}

// Walked from its start for each event, this map would take some 10^11 steps.
TEST(MidiDamage, HalfAMillionTemposUnderHalfAMillionNotes) {
    MidiTrack track;
    for (int i = 0; i < 500000; ++i)
        track.tempo(1, 500000);
    for (int i = 0; i < 500000; ++i)
        track.on(1, 0, 60, 100);
    const auto events = parse(midiFile(1, {track}));
    ASSERT_EQ(events.size(), 500000U);
    EXPECT_DOUBLE_EQ(events.front().time, 250000.5);
    EXPECT_DOUBLE_EQ(events.back().time, 500000.0);
}

TEST(MidiDamage, EveryTruncationOfAFileGivesWhatAPlainWalkGives) {
    MidiTrack first;
    first.tempo(0, 400000).on(10, 0, 60, 100).meta(3, 0x03, {'a', 'b', 'c'}).off(200, 0, 60);
    first.delta(4).raw({0xF0, 3, 1, 2, 0xF7}).on(5, 4, 65, 80).raw({10, 65, 0}).endOfTrack();
    MidiTrack second;
    second.tempo(100, 600000).on(300, 9, 36, 127).raw({0x83, 0x00, 36, 0}).endOfTrack();
    const Bytes whole = midiFile(96, {first, second});
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const Bytes bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(parse(bytes), LiteralMidi(bytes).events()) << size << " bytes";
    }
}

TEST(MidiDamage, RandomChangesOfAFileGiveWhatAPlainWalkGives) {
    MidiTrack track;
    track.tempo(0, 400000);
    for (int i = 0; i < 20; ++i)
        track.on(10, i % 16, 60 + i, 100).tempo(5, 300000).off(200, i % 16, 60 + i);
    track.endOfTrack();
    const Bytes whole = midiFile(96, {track, track, track});
    const unsigned seed = 7;
    std::mt19937 random(seed);
    for (int round = 0; round < 3000; ++round) {
        Bytes bytes = whole;
        for (unsigned i = random() % 8; i < 8; ++i) {
            bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
        }
        ASSERT_EQ(parse(bytes), LiteralMidi(bytes).events()) << "round " << round << ", seed " << seed;
    }
}

}  // namespace
}  // namespace veloria::test
