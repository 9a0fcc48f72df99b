// The real callback thread, on SDL's dummy audio driver, against what the main thread does meanwhile. The
// suite is run under ThreadSanitizer, which is what finds most of what it is for.
#include <SDL.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>

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
        folder = std::filesystem::path(::testing::TempDir()) / "veloria_threads";
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
    std::string wavPath() const {
        test::Bytes data;
        for (int i = 0; i < 100000; ++i) {
            test::appendLittleEndian(
                data, static_cast<std::uint64_t>(static_cast<std::int64_t>(8000 * std::sin(0.05 * i))), 2);
        }
        return write("song.wav", test::wavFile({}, data));
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
    for (std::uint32_t i = 0; i < 200; ++i) {
        toggleShadow(engine, i);
        reserveSnapshot(engine, snapshot);
        const AudioLock lock;
        copySnapshot(engine, snapshot);
        const RetunerReport peaks = report(instrument->retuner);
        const ScopeBuffer scope = instrument->scope;
        EXPECT_LE(peaks.peakCount, 8);
        EXPECT_LT(scope.write, kScopeBufferSize);
    }
    EXPECT_EQ(snapshot.voices.size(), 200u);
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
    SacredFft& retuner = instrument->retuner;
    loadMedia(instrument->transport, players(), wavPath());
    playMedia(instrument->transport, players());
    for (int round = 0; round < 60; ++round) {
        {
            const AudioLock lock;
            retuner.SetMode(round % 4);
        }
        if (round % 8 == 5) setModeOff(retuner);
        retuner.strength = (round * 17) % 101;
        retuner.targetIndex = round % 13;
        awaitCallbacks(1);
        const AudioLock lock;
        const RetunerReport peaks = report(retuner);
        ASSERT_GE(peaks.peakCount, 0);
        for (int row = 0; row < peaks.peakCount; ++row) {
            EXPECT_GE(peaks.peaks[static_cast<std::size_t>(row)].level, 0.0f);
        }
    }
}

}  // namespace
}  // namespace veloria
