// Loading music files: WAV by its formats and rates, MP3 against the decoder alone, MIDI, and the search for
// the nearest tuned frequency. "x_" counters are ratios against a baseline of the same run.
#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

#define MINIMP3_FLOAT_OUTPUT
#include <minimp3.h>

#include "frequency/tuned.h"
#include "frequency/tuned_table.h"
#include "media/midi_parser.h"
#include "media/midi_tuning.h"
#include "media/mp3_reader.h"
#include "media/wav_reader.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void append(Bytes& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void append(Bytes& bytes, const char* text) {
    for (; *text != '\0'; ++text)
        bytes.push_back(static_cast<std::uint8_t>(*text));
}

// 180 seconds of stereo noise.
Bytes wavBytes(std::uint32_t format, std::uint32_t rate, std::uint32_t bits) {
    const std::uint32_t frames = 180 * rate;
    const std::uint32_t size = frames * 2 * (bits / 8);
    Bytes bytes;
    bytes.reserve(size + 64);
    append(bytes, "RIFF");
    append(bytes, size + 36, 4);
    append(bytes, "WAVEfmt ");
    append(bytes, 16, 4);
    append(bytes, format, 2);
    append(bytes, 2, 2);
    append(bytes, rate, 4);
    append(bytes, rate * 2 * (bits / 8), 4);
    append(bytes, 2 * (bits / 8), 2);
    append(bytes, bits, 2);
    append(bytes, "data");
    append(bytes, size, 4);
    std::uint32_t random = 1;
    for (std::uint32_t i = 0; i < frames * 2; ++i) {
        random = random * 1664525u + 1013904223u;
        append(bytes, format == 3 ? 0x3E000000u | random >> 9 : random >> 8, static_cast<int>(bits / 8));
    }
    return bytes;
}

// Args: format code, rate, bits.
void loadWav(benchmark::State& state) {
    const Bytes bytes =
        wavBytes(static_cast<std::uint32_t>(state.range(0)), static_cast<std::uint32_t>(state.range(1)),
                 static_cast<std::uint32_t>(state.range(2)));
    for ([[maybe_unused]] auto _ : state) {
        std::vector<float> samples;
        if (!veloria::decodeWav(bytes, samples)) state.SkipWithError("not decoded");
        benchmark::DoNotOptimize(samples.data());
    }
}
BENCHMARK(loadWav)
    ->ArgNames({"format", "rate", "bits"})
    ->Args({1, 44100, 16})
    ->Args({1, 44100, 24})
    ->Args({3, 44100, 32})
    ->Args({1, 48000, 16})
    ->Args({1, 22050, 8})
    ->Unit(benchmark::kMillisecond);

// Some minutes of MP3: the tests' file over and over.
const Bytes& mp3Bytes() {
    static const Bytes bytes = [] {
        std::ifstream file(VELORIA_BENCH_MP3, std::ios::binary);
        const Bytes once((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        Bytes made;
        while (!once.empty() && made.size() < 3000000)
            made.insert(made.end(), once.begin(), once.end());
        return made;
    }();
    return bytes;
}

// The decoder alone: every frame, and its samples thrown away.
void decodeAlone() {
    static mp3dec_t decoder;
    static float pcm[MINIMP3_MAX_SAMPLES_PER_FRAME];
    mp3dec_init(&decoder);
    const Bytes& bytes = mp3Bytes();
    for (std::size_t at = 0; at < bytes.size();) {
        mp3dec_frame_info_t info;
        const std::size_t left = std::min<std::size_t>(bytes.size() - at, 1 << 20);
        mp3dec_decode_frame(&decoder, bytes.data() + at, static_cast<int>(left), pcm, &info);
        benchmark::DoNotOptimize(pcm);
        if (info.frame_bytes <= 0) return;
        at += static_cast<std::size_t>(info.frame_bytes);
    }
}

double secondsSince(std::clock_t start) {
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void loadMp3(benchmark::State& state) {
    double alone = 0.0;
    double whole = 0.0;
    for ([[maybe_unused]] auto _ : state) {
        // In turn, so that a busy machine slows both.
        state.PauseTiming();
        const std::clock_t aloneStart = std::clock();
        decodeAlone();
        alone += secondsSince(aloneStart);
        state.ResumeTiming();
        const std::clock_t start = std::clock();
        std::vector<float> samples;
        if (!veloria::decodeMp3(mp3Bytes(), samples)) state.SkipWithError("not decoded");
        benchmark::DoNotOptimize(samples.data());
        whole += secondsSince(start);
    }
    state.counters["x_decoder"] = whole / alone;
}
BENCHMARK(loadMp3)->Unit(benchmark::kMillisecond);

// A million note events in sixteen tracks, with a tempo change at every hundredth.
Bytes midiBytes(int tracks, int eventsPerTrack) {
    Bytes bytes;
    append(bytes, "MThd");
    bytes.insert(bytes.end(), {0, 0, 0, 6, 0, 1, 0, static_cast<std::uint8_t>(tracks), 0x01, 0xE0});
    std::uint32_t random = 1;
    for (int track = 0; track < tracks; ++track) {
        Bytes body;
        for (int i = 0; i < eventsPerTrack; ++i) {
            random = random * 1664525u + 1013904223u;
            if (i % 100 == 0) {
                body.insert(body.end(), {0, 0xFF, 0x51, 3, 7, static_cast<std::uint8_t>(random >> 24), 0x20});
            }
            const auto key = static_cast<std::uint8_t>(random >> 16 & 0x7F);
            const auto velocity = static_cast<std::uint8_t>(i % 2 == 0 ? 100 : 0);
            body.insert(body.end(), {static_cast<std::uint8_t>(random >> 26),
                                     static_cast<std::uint8_t>(0x90 | track % 16), key, velocity});
        }
        body.insert(body.end(), {0, 0xFF, 0x2F, 0});
        append(bytes, "MTrk");
        const auto size = static_cast<std::uint32_t>(body.size());
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes.push_back(static_cast<std::uint8_t>(size >> shift));
        bytes.insert(bytes.end(), body.begin(), body.end());
    }
    return bytes;
}

// Arg: tracks; a million events in all.
void loadMidi(benchmark::State& state) {
    const auto tracks = static_cast<int>(state.range(0));
    const Bytes bytes = midiBytes(tracks, 1000000 / tracks);
    for ([[maybe_unused]] auto _ : state) {
        const auto events = veloria::parseMidiEvents(std::span<const std::uint8_t>(bytes));
        const auto notes = veloria::pairMidiNotes(events);
        benchmark::DoNotOptimize(notes.data());
    }
}
BENCHMARK(loadMidi)->ArgNames({"tracks"})->Arg(1)->Arg(16)->Unit(benchmark::kMillisecond);

std::vector<double> targets() {
    std::vector<double> made;
    for (int i = 0; i < 1000; ++i)
        made.push_back(20.0 * std::exp2(static_cast<double>(i) / 100.0));
    return made;
}

template <class Search>
void tune(benchmark::State& state, Search search) {
    const std::vector<double> all = targets();
    std::size_t i = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double hz = all[i++ % all.size()];
        benchmark::DoNotOptimize(search(veloria::foldForTuning(hz).octaves, hz));
    }
}

// The trials of every entry with every ratio: the baseline of the next.
void searchByTrials(benchmark::State& state) {
    const std::vector<double> list = veloria::buildMidiTuningTable(1).frequencies;
    tune(state,
         [&](std::int32_t octaves, double hz) { return veloria::nearestTuned(list, octaves, hz, true); });
}
BENCHMARK(searchByTrials);

void searchByTable(benchmark::State& state) {
    const auto table = veloria::makeTunedTable(veloria::buildMidiTuningTable(1).frequencies);
    tune(state, [&](std::int32_t octaves, double hz) { return veloria::nearestTuned(table, octaves, hz); });
}
BENCHMARK(searchByTable);

}  // namespace
