// The real callback thread, on SDL's dummy audio driver, against what the main thread does meanwhile. The
// suite is run under ThreadSanitizer, which is what finds most of what it is for.
#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "engine/reports.h"
#include "media/midi_playback.h"
#include "media/mix.h"
#include "media/transport.h"
#include "platform/audio_device.h"
#include "tests/media/midi_bytes.h"
#include "tests/media/wav_bytes.h"

namespace veloria {
namespace {

struct Instrument {
    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    SacredFft retuner;
    OutputGains gains;
    ScopeBuffer scope;
    Transport transport;
    std::atomic<int> callbacks{0};
    std::atomic<bool> outOfRange{false};
};

void callback(void* userdata, std::uint8_t* stream, int byteCount) {
    auto& instrument = *static_cast<Instrument*>(userdata);
    auto* out = reinterpret_cast<float*>(stream);
    const auto frames = static_cast<std::size_t>(byteCount / 8);
    mixOutput({instrument.engine, instrument.pcm, instrument.retuner}, instrument.gains, out, frames,
              &instrument.scope);
    for (std::size_t i = 0; i < 2 * frames; ++i) {
        if (!(std::fabs(out[i]) <= 1.0f)) instrument.outOfRange = true;
    }
    instrument.callbacks.fetch_add(1);
}

class AudioThread : public ::testing::Test {
  protected:
    void SetUp() override {
        SDL_SetMainReady();
        ASSERT_EQ(SDL_Init(SDL_INIT_AUDIO), 0) << SDL_GetError();
        // Of this test alone: others may run beside it.
        folder = std::filesystem::path(::testing::TempDir()) /
                 ("veloria_threads_" +
                  std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::create_directories(folder);
        fillHannWindow(instrument->retuner);
        instrument->retuner.Init();
        fillSolfeggioRatio(instrument->retuner);
        installAudioLock({platform::lockAudioDevice, platform::unlockAudioDevice});
        SDL_AudioSpec spec;
        SDL_zero(spec);
        spec.freq = kSampleRate;
        spec.format = AUDIO_F32LSB;
        spec.channels = 2;
        spec.samples = 512;
        spec.callback = callback;
        spec.userdata = instrument.get();
        ASSERT_GE(SDL_OpenAudio(&spec, nullptr), 0) << SDL_GetError();
        platform::pauseAudioDevice(false);
    }
    void TearDown() override {
        platform::pauseAudioDevice(true);
        SDL_CloseAudio();
        installAudioLock({nullptr, nullptr});
        SDL_Quit();
        std::filesystem::remove_all(folder);
        EXPECT_FALSE(instrument->outOfRange);
    }

    // Lets the callback run `count` times more.
    void awaitCallbacks(int count) const {
        const int target = instrument->callbacks + count;
        for (int i = 0; i < 2000 && instrument->callbacks < target; ++i)
            SDL_Delay(1);
        ASSERT_GE(instrument->callbacks, target);
    }
    std::string write(const char* name, const std::vector<std::uint8_t>& bytes) const {
        const std::string path = (folder / name).string();
        std::ofstream stream(path, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path;
    }
    std::string midiPath() const {
        test::MidiTrack track;
        for (int i = 0; i < 64; ++i)
            track.on(10, i % 16, 30 + i, 100);
        for (int i = 0; i < 64; ++i)
            track.off(10, i % 16, 30 + i);
        return write("song.mid", test::midiFile(480, {track.endOfTrack()}));
    }
    // A chord whose upper tones lie in bins, 599 and 858, that the retuner moves: most it leaves alone.
    std::string wavPath(int samples = 100000) const {
        constexpr double kTurn = 2.0 * std::numbers::pi / 4096.0;
        test::Bytes data;
        for (int i = 0; i < samples; ++i) {
            const double x = std::sin(0.05 * i) + std::sin(kTurn * 599 * i) + std::sin(kTurn * 858 * i);
            test::appendLittleEndian(data, static_cast<std::uint64_t>(static_cast<std::int64_t>(5000 * x)),
                                     2);
        }
        return write("song.wav", test::wavFile({}, data));
    }
    // The retuner's report under the lock; every row must tell one bin of the tables.
    RetunerReport checkedReport() {
        const SacredFft& retuner = instrument->retuner;
        RetunerReport copy;
        {
            const AudioLock lock;
            copy = report(retuner);
        }
        EXPECT_GE(copy.peakCount, 0);
        EXPECT_LE(copy.peakCount, 8);
        for (std::int32_t i = 0; i < std::min(copy.peakCount, 8); ++i) {
            const PeakEntry& row = copy.peaks[static_cast<std::size_t>(i)];
            const auto bin = static_cast<std::size_t>(std::lround(row.sourceHz * 4096.0 / 44100.0));
            EXPECT_GE(bin, 2u);
            EXPECT_LE(bin, 2046u);
            EXPECT_EQ(row.targetHz,
                      static_cast<float>(retuner.binTargetHz[std::min<std::size_t>(bin, 2046)]));
            EXPECT_EQ(row.harmonic, retuner.binHarmonic[std::min<std::size_t>(bin, 2046)]);
            EXPECT_GT(row.level, 0.0f);
            EXPECT_LE(row.level, 1.0f);
        }
        return copy;
    }
    // Chooses a mode as the buttons do, and forgets what the blocks before it told.
    void chooseMode(std::int32_t mode) {
        SacredFft& retuner = instrument->retuner;
        const AudioLock lock;
        retuner.SetMode(mode);
        retuner.peakCount = 0;
        retuner.peaksFound = 0;
        retuner.binsShifted = 0;
    }
    MediaPlayers players() {
        return {instrument->engine, instrument->midi, instrument->pcm, instrument->retuner};
    }

    std::unique_ptr<Instrument> instrument = std::make_unique<Instrument>();
    std::filesystem::path folder;
};

TEST_F(AudioThread, TogglesNotesAndResetsWhileItRenders) {
    SynthEngine& engine = instrument->engine;
    for (std::uint32_t round = 0; round < 300; ++round) {
        toggleReflection(engine, round % 81);
        toggleRotation(engine, (round * 7) % 81);
        toggleShadow(engine, (round * 13) % 216);
        noteOn(engine, {.frequency = 100.0 + round, .volume = 0.5f, .duration = 0.05});
        noteOffByFrequency(engine, 100.0 + round / 2);
        if (round % 20 == 7) noteOffChannel9(engine);
        if (round % 50 == 9) allNotesOff(engine);
        if (round % 60 == 11) hardReset(engine);
        engine.activationMode = static_cast<std::int32_t>(round % 5);
        startDrones(engine);
        stopDrones(engine);
        static_cast<void>(activeVoiceCount(engine));
        static_cast<void>(activeVoiceBars(engine));
        if (round % 10 == 0) awaitCallbacks(1);
    }
    allNotesOff(engine);
    awaitCallbacks(4);
    EXPECT_EQ(activeVoiceCount(engine), 0);
}

TEST_F(AudioThread, SettingsAndGainsChangeWhileItRenders) {
    SynthEngine& engine = instrument->engine;
    for (std::uint32_t i = 0; i < 12; ++i)
        toggleReflection(engine, i);
    for (int round = 0; round < 400; ++round) {
        engine.fibonacciCount = round % 15;
        engine.piCount = (round * 3) % 15;
        engine.teslaCount = round % 4;
        engine.octaveSteps = round % 7 - 3;
        engine.phiSteps = (round * 5) % 7 - 3;
        engine.fibPhase = round % 101;
        engine.teslaPhase = (round * 7) % 101;
        engine.waveform = round % 4;
        instrument->gains.masterGain = static_cast<float>(round % 11) / 10.0f;
        instrument->gains.synthGainLeft = static_cast<float>(round % 7) / 6.0f;
        instrument->gains.synthGainRight = static_cast<float>(round % 5) / 4.0f;
        if (round % 20 == 0) awaitCallbacks(1);
    }
}

TEST_F(AudioThread, ASnapshotIsTakenWhileItRenders) {
    SynthEngine& engine = instrument->engine;
    EngineSnapshot snapshot;
    loadMedia(instrument->transport, players(), wavPath());
    playMedia(instrument->transport, players());
    chooseMode(kModeFull);
    for (std::uint32_t i = 0; i < 200; ++i) {
        toggleShadow(engine, i);
        if (i % 16 == 0) awaitCallbacks(1);
        reserveSnapshot(engine, snapshot);
        const AudioLock lock;
        copySnapshot(engine, snapshot);
        const RetunerReport peaks = report(instrument->retuner);
        const ScopeBuffer scope = instrument->scope;
        EXPECT_LE(peaks.peakCount, 8);
        EXPECT_LT(scope.write, kScopeBufferSize);
    }
    EXPECT_EQ(snapshot.voices.size(), 200u);
    // Thirteen callbacks at the least: a block was made, and its rows came through.
    const RetunerReport last = checkedReport();
    EXPECT_GT(last.peakCount, 0);
    EXPECT_GT(last.binsShifted, 0);
}

TEST_F(AudioThread, FilesAreLoadedPlayedStoppedAndResetWhileItRenders) {
    const std::string midi = midiPath();
    const std::string wav = wavPath();
    Transport& transport = instrument->transport;
    for (int round = 0; round < 6; ++round) {
        loadMedia(transport, players(), round % 2 == 0 ? midi : wav);
        playMedia(transport, players());
        for (int i = 0; i < 20; ++i) {
            midiTick(instrument->midi, instrument->engine, kMidiLookaheadSeconds);
            if (midiFinished(instrument->midi, instrument->engine)) break;
            SDL_Delay(2);
        }
        if (round % 3 == 1) stopMedia(transport, players());
        if (round % 3 == 2) resetMedia(transport, players());
        awaitCallbacks(1);
    }
    resetMedia(transport, players());
    EXPECT_EQ(transport.kind, MediaKind::None);
}

TEST_F(AudioThread, TheRetunerIsSwitchedBetweenAllModesWhileAFilePlays) {
    // A mode must be held for longer than the 8 callbacks that fill the first block of 4096 samples.
    constexpr int kHold = 12;
    constexpr int kRounds = 5;
    SacredFft& retuner = instrument->retuner;
    loadMedia(instrument->transport, players(), wavPath(20 * kSampleRate));
    playMedia(instrument->transport, players());
    int rowsSeen = 0;
    int peaksFound = 0;
    int binsShifted = 0;
    int turn = 0;
    for (int round = 0; round < kRounds; ++round) {
        for (const std::int32_t mode : {kModeFull, kModePeak, kModeSolfeggio, kModeFull, kModeOff}) {
            chooseMode(mode);
            RetunerReport last{};
            for (int i = 0; i < (mode == kModeOff ? 2 : kHold); ++i, ++turn) {
                retuner.strength = (turn * 17) % 101;
                retuner.targetIndex = turn % 13;
                awaitCallbacks(1);
                last = checkedReport();
                rowsSeen += last.peakCount;
                peaksFound += last.peaksFound;
                binsShifted += last.binsShifted;
            }
            EXPECT_EQ(last.mode, mode);
            const bool blocks = mode == kModeFull || mode == kModePeak;
            EXPECT_EQ(last.peakCount > 0, blocks) << "mode " << mode << ", round " << round;
            EXPECT_EQ(last.peaksFound > 0, mode == kModePeak) << "mode " << mode << ", round " << round;
            EXPECT_EQ(last.binsShifted > 0, blocks) << "mode " << mode << ", round " << round;
        }
        // The button "off" takes no lock.
        chooseMode(kModeFull);
        awaitCallbacks(1);
        setModeOff(retuner);
    }
    EXPECT_TRUE(instrument->pcm.playing) << "the file was too short for the test";
    EXPECT_GT(rowsSeen, 3 * kRounds);
    EXPECT_GT(peaksFound, kRounds);
    EXPECT_GT(binsShifted, 2 * kRounds);
}

}  // namespace
}  // namespace veloria
