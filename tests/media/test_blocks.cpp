// Work by blocks against the loops that say what it must give: the file's sound, resampling, pairing,
// sorting.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include "media/file_samples.h"
#include "media/midi_parser.h"
#include "media/resample.h"
#include "spectral/drain.h"
#include "tests/media/literal_midi.h"
#include "tests/media/midi_bytes.h"

namespace veloria {
namespace {

std::vector<float> noise(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<float> made(count);
    for (float& x : made)
        x = static_cast<float>(random() % 2001) / 1000.0F - 1.0F;
    return made;
}

TEST(PcmBlocks, areTheSamplesOneAfterTheOther) {
    std::mt19937 random(1);
    for (int run = 0; run < 200; ++run) {
        PcmStream one;
        PcmStream many;
        for (PcmStream* stream : {&one, &many}) {
            stream->samples = noise(100, 7);
            stream->position = 0;
            stream->playing = run % 10 != 0;
        }
        one.position = many.position = random() % 120;
        for (int block = 0; block < 8; ++block) {
            std::vector<float> expected(random() % 40);
            for (float& x : expected)
                x = nextPcmSample(one);
            std::vector<float> actual(expected.size(), 9.0F);
            const bool sounded = many.playing;
            const std::size_t held = many.position < 100 ? 100 - many.position : 0;
            const std::size_t ofFile = nextPcmSamples(many, actual);
            ASSERT_EQ(ofFile, sounded ? std::min<std::size_t>(held, actual.size()) : 0u);
            ASSERT_EQ(actual, expected);
            ASSERT_EQ(many.position, one.position);
            ASSERT_EQ(many.playing, one.playing);
        }
    }
}

// Frame by frame, as the callback has always done it.
float oneFileSample(PcmStream& stream, SacredFft& retuner) {
    const RetunerSettings settings = loadSettings(retuner);
    const auto take = [&] {
        const float sample = nextPcmSample(stream);
        const bool ofFile = stream.playing;
        noteIntake(retuner, ofFile ? 1 : 0, ofFile ? 0 : 1);
        return sample;
    };
    while (needsFeed(retuner, settings))
        feedSample(retuner, take());
    return retuner.processSample(take(), settings);
}

std::unique_ptr<SacredFft> preparedRetuner(std::int32_t mode, std::int32_t target) {
    auto retuner = std::make_unique<SacredFft>();
    fillHannWindow(*retuner);
    retuner->Init();
    fillSolfeggioRatio(*retuner);
    retuner->targetIndex = target;
    retuner->SetMode(mode);
    return retuner;
}

TEST(FileBlocks, areTheFramesOneAfterTheOtherInEveryMode) {
    for (const std::int32_t mode : {kModeOff, kModeFull, kModePeak, kModeSolfeggio}) {
        for (const std::int32_t target : {3, 12}) {  // a ratio above 1 and one below
            const auto one = preparedRetuner(mode, target);
            const auto many = preparedRetuner(mode, target);
            PcmStream oneStream;
            PcmStream manyStream;
            oneStream.samples = manyStream.samples = noise(30000, 3);
            oneStream.playing = manyStream.playing = true;
            std::mt19937 random(4);
            for (std::size_t done = 0; done < 36000;) {
                std::vector<float> actual(1 + random() % 700);
                nextFileSamples(manyStream, *many, actual);
                std::vector<float> expected(actual.size());
                for (float& x : expected)
                    x = oneFileSample(oneStream, *one);
                ASSERT_EQ(actual, expected) << "mode " << mode << " frame " << done;
                ASSERT_EQ(manyStream.position, oneStream.position);
                ASSERT_EQ(manyStream.playing, oneStream.playing);
                done += actual.size();
            }
            EXPECT_FALSE(manyStream.playing);
        }
    }
}

// The interpolation as it is defined, every frame asked for.
std::vector<float> literalResample(const std::vector<float>& source, std::uint64_t frames,
                                   std::uint32_t rate) {
    const double ratio = rate / 44100.0;
    const auto count = static_cast<std::uint64_t>(static_cast<double>(frames) / ratio) + 1;
    const auto frame = [&](std::uint64_t k) {
        return source[static_cast<std::size_t>(std::min<std::uint64_t>(k, source.size() - 1))];
    };
    std::vector<float> made;
    for (std::uint64_t i = 0; i < count; ++i) {
        const double p = static_cast<double>(i) * ratio;
        const auto k = static_cast<std::uint64_t>(p);
        const auto f = static_cast<float>(p - static_cast<double>(k));
        made.push_back((1.0F - f) * frame(k) + f * frame(k + 1));
    }
    return made;
}

TEST(ResampleBlocks, areTheLiteralInterpolation) {
    std::mt19937 random(5);
    for (const std::uint32_t rate : {8000U, 11025U, 22050U, 44099U, 44101U, 48000U, 96000U, 192000U, 7U}) {
        for (const std::size_t length : {1U, 2U, 3U, 100U, 4801U}) {
            const std::vector<float> source = noise(length, rate);
            const std::uint64_t frames = length + random() % 3 * 17;
            const std::uint64_t limit = 100000000;
            EXPECT_EQ(resampleForStream({source, frames, rate}, limit), literalResample(source, frames, rate))
                << rate << ' ' << length;
        }
    }
}

// Slots and a stable sort, as pairing is defined.
std::vector<MidiNote> literalPairs(const std::vector<MidiEvent>& events) {
    struct Slot {
        double on = 0.0;
        int velocity = 0;
        int channel = 0;
    };
    std::vector<Slot> slots(2048);
    std::vector<MidiNote> notes;
    for (const MidiEvent& event : events) {
        const auto index = static_cast<std::size_t>(event.channel * 128 + event.note);
        if (index >= slots.size()) continue;
        Slot& slot = slots[index];
        if (event.isNoteOn && event.velocity > 0) {
            slot = {event.time, event.velocity, event.channel};
        } else if (slot.velocity > 0) {
            notes.push_back({slot.on, event.time, event.note, static_cast<float>(slot.velocity / 127.0),
                             slot.channel, -1.0F});
            slot.velocity = 0;
        }
    }
    std::stable_sort(notes.begin(), notes.end(),
                     [](const MidiNote& a, const MidiNote& b) { return timeBefore(a.start, b.start); });
    return notes;
}

void expectSameNotes(const std::vector<MidiNote>& actual, const std::vector<MidiNote>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        ASSERT_EQ(actual[i].start, expected[i].start) << i;
        ASSERT_EQ(actual[i].end, expected[i].end) << i;
        ASSERT_EQ(actual[i].note, expected[i].note) << i;
        ASSERT_EQ(actual[i].velocity, expected[i].velocity) << i;
        ASSERT_EQ(actual[i].channel, expected[i].channel) << i;
        ASSERT_EQ(actual[i].pan, -1.0F) << i;
    }
}

TEST(PairingBlocks, areTheLiteralPairsInTheLiteralOrder) {
    std::mt19937 random(6);
    for (int run = 0; run < 100; ++run) {
        std::vector<MidiEvent> events;
        double time = 0.0;
        for (int i = 0; i < 2000; ++i) {
            if (random() % 3 == 0) time += 0.25;  // many at one instant
            const auto key = static_cast<std::int32_t>(random() % (run % 4 == 0 ? 256 : 6));
            const auto velocity = static_cast<std::int32_t>(random() % 3 * 50);
            const auto channel = static_cast<std::int32_t>(random() % (run % 2 == 0 ? 16 : 1));
            events.push_back({time, key, velocity, velocity != 0, channel, 0});
            if (run % 5 == 0 && random() % 100 == 0) time -= 0.5;  // in no order
        }
        expectSameNotes(pairMidiNotes(events), literalPairs(events));
    }
}

// Tracks with ticks that meet, tempo changes everywhere and a tick counter that wraps.
test::Bytes randomFile(std::mt19937& random) {
    const int tracks = static_cast<int>(1 + random() % 7);
    test::Bytes file = test::midiHeader(tracks, static_cast<int>(random() % 5 == 0 ? 1 : 480));
    for (int track = 0; track < tracks; ++track) {
        test::Bytes body;
        for (int i = 0; i < 300; ++i) {
            const std::uint32_t delta =
                random() % 200 == 0 ? 0xF0000000U : static_cast<std::uint32_t>(random() % 50);
            test::append(body, test::variableLength(delta));
            if (random() % 10 == 0) {
                test::append(body,
                             {0xFF, 0x51, 3, static_cast<std::uint8_t>(random() % 20),
                              static_cast<std::uint8_t>(random()), static_cast<std::uint8_t>(random())});
            } else {
                test::append(body, {static_cast<std::uint8_t>(0x90 | random() % 16),
                                    static_cast<std::uint8_t>(random() % 128),
                                    static_cast<std::uint8_t>(random() % 2 * 64)});
            }
        }
        test::append(file, test::trackChunk(body));
    }
    return file;
}

TEST(ParserBlocks, timesAndOrderAreThoseOfAWalkForEachEvent) {
    std::mt19937 random(8);
    for (int run = 0; run < 60; ++run) {
        const test::Bytes file = randomFile(random);
        const std::vector<MidiEvent> actual = parseMidiEvents(std::span<const std::uint8_t>(file));
        const std::vector<MidiEvent> expected = test::LiteralMidi(file).events();
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i)
            ASSERT_EQ(actual[i], expected[i]) << "run " << run << " event " << i;
    }
}

}  // namespace
}  // namespace veloria
