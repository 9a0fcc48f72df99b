#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "engine/render.h"
#include "media/midi_playback.h"
#include "media/mix.h"
#include "media/transport.h"
#include "platform/audio_device.h"
#include "platform/fake/fake_platform.h"
#include "tests/media/midi_bytes.h"
#include "tests/media/wav_bytes.h"

namespace veloria {
namespace {

using platform::FakePlatform;
using platform::fakePlatform;

class TransportTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fakePlatform().reset();
        installAudioLock({platform::lockAudioDevice, platform::unlockAudioDevice});
        folder = std::filesystem::path(::testing::TempDir()) /
                 (std::string("veloria_transport_") +
                  ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(folder);
    }
    void TearDown() override {
        EXPECT_EQ(fakePlatform().lockDepth, 0);
        EXPECT_FALSE(fakePlatform().audioPaused);
        installAudioLock({nullptr, nullptr});
        std::filesystem::remove_all(folder);
    }

    std::string write(const std::string& name, const std::vector<std::uint8_t>& bytes) {
        const std::string path = (folder / name).string();
        std::ofstream stream(path, std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return path;
    }
    // One key for a second from the start on.
    std::string midiPath(const std::string& name = "song.mid") {
        test::MidiTrack track;
        track.on(0, 0, 60, 100).off(960, 0, 60).endOfTrack();
        return write(name, test::midiFile(480, {track}));
    }
    std::string wavPath(const std::string& name = "song.wav") {
        return write(name, test::wavFile({}, test::integers(2, {8192, -8192, 16384})));
    }
    std::string badPath(const std::string& name) { return write(name, {1, 2, 3}); }

    std::vector<std::string>& log() { return fakePlatform().log; }
    void load(const std::string& path) { loadMedia(transport, players, path); }
    void renderSeconds(double seconds) {
        float out[2];
        for (int i = 0; i < static_cast<int>(seconds * 44100); ++i)
            renderStereoSample(engine, out);
    }
    void poll(std::uint32_t now) {
        pollMediaEnd(transport, players, now, [this](const std::string& path) {
            ++reloads;
            load(path);
        });
    }

    std::filesystem::path folder;
    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner = std::make_unique<SacredFft>();
    OutputGains gains;
    Transport transport;
    MediaPlayers players{engine, midi, pcm, *retuner};
    int reloads = 0;
};

TEST_F(TransportTest, AMidiFileIsReadWithTheDevicePausedAndStandsPausedAtItsStart) {
    toggleReflection(engine, 0);
    log().clear();
    const std::string path = midiPath();
    load(path);
    EXPECT_EQ(transport.kind, MediaKind::Midi);
    EXPECT_EQ(transport.currentPath, path);
    EXPECT_FALSE(transport.playing);
    ASSERT_EQ(midi.notes.size(), 1u);
    EXPECT_NE(midi.notes[0].pan, -1.0f);
    EXPECT_TRUE(midi.paused);
    EXPECT_TRUE(engine.voices.empty());
    const std::vector<std::string> expected = {"mediaCommand stop VeloMedia",
                                               "mediaCommand close VeloMedia",
                                               "pause 1",
                                               "wait 50",
                                               "lock",  // the retuner's streams
                                               "unlock",
                                               "lock",  // the voices
                                               "unlock",
                                               "pause 0"};
    EXPECT_EQ(log(), expected);
}

TEST_F(TransportTest, ALoadResetsTheNoteNumbersAndTheClock) {
    engine.nextVoiceId = 99;
    engine.midiTuningTag = 7;
    engine.time = 12.0;
    load(midiPath());
    EXPECT_EQ(engine.nextVoiceId, 0u);
    EXPECT_EQ(engine.time, 0.0);
    EXPECT_EQ(midi.pausedAt, 0.0);
}

TEST_F(TransportTest, AMidiFileThatCannotBeParsedSaysSoAndStaysMidi) {
    midi.duration = 3.5;
    midi.binauralPairs = 2;
    const std::string path = badPath("bad.mid");
    load(path);
    EXPECT_EQ(transport.kind, MediaKind::Midi);
    EXPECT_TRUE(midi.notes.empty());
    EXPECT_EQ(midi.duration, 3.5);
    EXPECT_EQ(midi.binauralPairs, 2);
    EXPECT_EQ(transport.currentPath, path);
    EXPECT_EQ(fakePlatform().count("messageBox Error|Error|Failed to parse MIDI file!"), 1);
}

TEST_F(TransportTest, TheMidiMessageShowsWithTheDeviceRunningAgain) {
    bool pausedAtMessage = true;
    fakePlatform().onCall = [&](const std::string& entry) {
        if (entry.rfind("messageBox", 0) == 0) pausedAtMessage = fakePlatform().audioPaused;
    };
    load(badPath("bad.mid"));
    EXPECT_FALSE(pausedAtMessage);
}

TEST_F(TransportTest, AFileOfNoteOffsOnlyIsNoFailure) {
    test::MidiTrack track;
    track.off(0, 0, 60).endOfTrack();
    load(write("offs.mid", test::midiFile(480, {track})));
    EXPECT_TRUE(midi.notes.empty());
    EXPECT_EQ(midi.duration, 0.0);
    for (const std::string& entry : log())
        EXPECT_EQ(entry.rfind("messageBox", 0), std::string::npos);
}

TEST_F(TransportTest, AWavFileBecomesTheStreamAndClearsTheRetunersRings) {
    load(midiPath());
    retuner->inputPos = 17;
    retuner->timeRing[3] = 1.0f;
    load(wavPath());
    EXPECT_EQ(transport.kind, MediaKind::Pcm);
    EXPECT_EQ(pcm.samples, (std::vector<float>{0.25f, -0.25f, 0.5f}));
    EXPECT_FALSE(pcm.playing);
    EXPECT_TRUE(midi.notes.empty());
    EXPECT_FALSE(midi.paused);
    EXPECT_EQ(retuner->inputPos, 0);
    EXPECT_EQ(retuner->timeRing[3], 0.0f);
}

TEST_F(TransportTest, EveryLoadAStopAndAResetSilenceTheRetunerUnderTheLock) {
    const auto clears = [this](const std::string& what, const std::function<void()>& act) {
        retuner->inputPos = 17;
        retuner->outputRing[5] = 0.5f;
        retuner->timeRing[3] = 1.0f;
        retuner->timeWrite = 90;
        bool underLock = false;
        fakePlatform().onCall = [&](const std::string& entry) {
            if (entry == "unlock" && retuner->timeWrite == 0) underLock = true;
        };
        act();
        fakePlatform().onCall = nullptr;
        EXPECT_EQ(retuner->inputPos, 0) << what;
        EXPECT_EQ(retuner->outputRing[5], 0.0f) << what;
        EXPECT_EQ(retuner->timeRing[3], 0.0f) << what;
        EXPECT_EQ(retuner->timeWrite, 0u) << what;
        EXPECT_TRUE(underLock) << what;
    };
    clears("MIDI", [this] { load(midiPath()); });
    clears("bad MIDI", [this] { load(badPath("bad.mid")); });
    clears("bad WAV", [this] { load(badPath("bad.wav")); });
    clears("the media device's", [this] { load("/x/song.ogg"); });
    clears("WAV", [this] { load(wavPath()); });
    clears("STOP", [this] { stopMedia(transport, players); });
    clears("RESET", [this] { resetMedia(transport, players); });
    clears("STOP with nothing loaded", [this] { stopMedia(transport, players); });
}

// In mode 3 a ratio below 1 reads ever later than the file is fed.
TEST_F(TransportTest, NothingOfTheFileSoundsAfterStop) {
    fillSolfeggioRatio(*retuner);
    retuner->targetIndex = 7;  // 432 Hz
    retuner->SetMode(kModeSolfeggio);
    load(wavPath());
    pcm.samples.assign(200000, 0.5f);
    playMedia(transport, players);
    std::vector<float> out(2 * 100000);
    mixOutput({engine, pcm, *retuner}, gains, out.data(), 100000, nullptr);
    EXPECT_EQ(out.back(), 0.5f);
    stopMedia(transport, players);
    mixOutput({engine, pcm, *retuner}, gains, out.data(), 100000, nullptr);
    EXPECT_EQ(std::count(out.begin(), out.end(), 0.0f), 200000);
    EXPECT_EQ(pcm.position, 100000u) << "the place is kept";
}

TEST_F(TransportTest, AnUnreadableWavFileSaysSoWithTheDeviceRunningAgain) {
    bool pausedAtMessage = true;
    fakePlatform().onCall = [&](const std::string& entry) {
        if (entry.rfind("messageBox", 0) == 0) pausedAtMessage = fakePlatform().audioPaused;
    };
    load(wavPath());
    load(badPath("bad.wav"));
    EXPECT_EQ(transport.kind, MediaKind::None);
    EXPECT_EQ(fakePlatform().count("messageBox Error|Error|Could not read audio file!"), 1);
    EXPECT_FALSE(pausedAtMessage);
    EXPECT_TRUE(pcm.samples.empty());
}

TEST_F(TransportTest, AnyOtherFileIsOpenedByTheMediaDevice) {
    load(midiPath());
    log().clear();
    load("/music/My \"Song\".wma");
    EXPECT_EQ(transport.kind, MediaKind::Mci);
    const std::vector<std::string> expected = {
        "mediaCommand stop VeloMedia",
        "mediaCommand close VeloMedia",
        "pause 1",
        "wait 50",
        "lock",  // the voices
        "unlock",
        "lock",  // the retuner's streams
        "unlock",
        "pause 0",
        "mediaCommand open \"/music/My \"Song\".wma\" alias VeloMedia"};
    EXPECT_EQ(log(), expected);
    EXPECT_TRUE(midi.notes.empty());
}

TEST_F(TransportTest, AFileTheMediaDeviceRefusesShowsTheDevicesOwnReason) {
    fakePlatform().mediaAnswers["open"] = {{263, ""}};
    fakePlatform().mediaError = "No decoder for this.";
    load("/music/song.wma");
    EXPECT_EQ(transport.kind, MediaKind::None);
    EXPECT_EQ(fakePlatform().count("messageBox Error|File Open Error|No decoder for this."), 1);
    EXPECT_EQ(transport.currentPath, "/music/song.wma");
}

TEST_F(TransportTest, ExtensionsCountInAnyCaseAndOnlyTheLast) {
    load(midiPath("A.MiDi"));
    EXPECT_EQ(transport.kind, MediaKind::Midi);
    load(wavPath("B.WAV"));
    EXPECT_EQ(transport.kind, MediaKind::Pcm);
    load("/x/song.mid.ogg");
    EXPECT_EQ(transport.kind, MediaKind::Mci);
    load("/x/song");
    EXPECT_EQ(transport.kind, MediaKind::Mci);
}

TEST_F(TransportTest, PlayOfAMidiFileTakesItFromItsStart) {
    load(midiPath());
    renderSeconds(0.5);
    playMedia(transport, players);
    EXPECT_TRUE(transport.playing);
    EXPECT_FALSE(midi.paused);
    EXPECT_NEAR(midi.timeOffset, 0.5, 1e-3);
    const double offset = midi.timeOffset;
    renderSeconds(0.1);
    playMedia(transport, players);  // a second PLAY: nothing
    EXPECT_EQ(midi.timeOffset, offset);
}

TEST_F(TransportTest, StopPausesMidiAndASecondStopKeepsItsPlace) {
    load(midiPath());
    playMedia(transport, players);
    renderSeconds(0.2);
    stopMedia(transport, players);
    EXPECT_FALSE(transport.playing);
    EXPECT_TRUE(midi.paused);
    const double place = midi.pausedAt;
    renderSeconds(0.2);
    stopMedia(transport, players);
    EXPECT_EQ(midi.pausedAt, place);
}

TEST_F(TransportTest, StopThenPlayOfAStreamGoesOnAtTheSameSample) {
    load(wavPath());
    playMedia(transport, players);
    EXPECT_TRUE(pcm.playing);
    EXPECT_EQ(nextPcmSample(pcm), 0.25f);
    playMedia(transport, players);  // a second PLAY changes nothing
    EXPECT_EQ(pcm.position, 1u);
    stopMedia(transport, players);
    EXPECT_EQ(nextPcmSample(pcm), 0.0f);
    playMedia(transport, players);
    EXPECT_EQ(nextPcmSample(pcm), -0.25f);
}

TEST_F(TransportTest, TheMediaDeviceRemembersWhereItWasStopped) {
    load("/x/song.ogg");
    log().clear();
    playMedia(transport, players);
    EXPECT_EQ(log(), (std::vector<std::string>{"mediaCommand play VeloMedia"}));
    log().clear();
    fakePlatform().mediaAnswers["status VeloMedia position"] = {{0, "12345"}};
    stopMedia(transport, players);
    EXPECT_EQ(log(), (std::vector<std::string>{"mediaCommand status VeloMedia position",
                                               "mediaCommand stop VeloMedia", "lock", "unlock"}));
    EXPECT_EQ(transport.mciPosition, "12345");
    EXPECT_TRUE(transport.mciStopped);
    log().clear();
    playMedia(transport, players);
    EXPECT_EQ(log(), (std::vector<std::string>{"mediaCommand seek VeloMedia to 12345",
                                               "mediaCommand play VeloMedia"}));
    EXPECT_FALSE(transport.mciStopped);
    log().clear();
    playMedia(transport, players);  // a second PLAY seeks to the old text again
    EXPECT_EQ(log().front(), "mediaCommand seek VeloMedia to 12345");
}

TEST_F(TransportTest, ThePlaceOfTheMediaDeviceOutlivesLoadsAndReset) {
    load("/x/song.ogg");
    fakePlatform().mediaAnswers["status VeloMedia position"] = {{0, "777"}};
    stopMedia(transport, players);
    load("/x/other.ogg");
    EXPECT_EQ(transport.mciPosition, "777");
    resetMedia(transport, players);
    EXPECT_EQ(transport.mciPosition, "777");
}

TEST_F(TransportTest, PlayWithNothingLoadedOnlyStartsTheDrones) {
    playMedia(transport, players);
    EXPECT_FALSE(transport.playing);
    EXPECT_TRUE(engine.voices.empty());
    engine.activationMode = 2;
    playMedia(transport, players);
    EXPECT_FALSE(transport.playing);
    EXPECT_EQ(engine.voices.size(), 2u);
    stopMedia(transport, players);
    EXPECT_FALSE(engine.dronesOn);
}

TEST_F(TransportTest, ALoadForgetsTheDronesSoThatTheNextPlayStartsThemAnew) {
    engine.activationMode = 2;
    playMedia(transport, players);
    load(midiPath());
    EXPECT_FALSE(engine.dronesOn);
    playMedia(transport, players);
    EXPECT_EQ(engine.voices.size(), 2u);
}

TEST_F(TransportTest, ResetDropsFileVoicesAndNames) {
    load(wavPath());
    transport.fileLabel = "song.wav";
    transport.toggleFlag = true;
    playMedia(transport, players);
    toggleShadow(engine, 3);
    renderSeconds(0.01);
    resetMedia(transport, players);
    EXPECT_EQ(transport.kind, MediaKind::None);
    EXPECT_FALSE(transport.playing);
    EXPECT_FALSE(transport.toggleFlag);
    EXPECT_TRUE(transport.currentPath.empty());
    EXPECT_TRUE(transport.fileLabel.empty());
    EXPECT_TRUE(pcm.samples.empty());
    EXPECT_FALSE(pcm.playing);
    EXPECT_EQ(pcm.position, 0u);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_FALSE(engine.shadowHeld[3]);
    EXPECT_EQ(engine.time, 0.0);
}

TEST_F(TransportTest, ResetTakesTheStreamOnlyUnderTheLock) {
    load(wavPath());
    playMedia(transport, players);
    bool seenUnderLock = false;
    fakePlatform().onCall = [&](const std::string& entry) {
        if (entry == "unlock" && pcm.samples.empty()) seenUnderLock = true;
    };
    log().clear();
    resetMedia(transport, players);
    EXPECT_TRUE(seenUnderLock);
    EXPECT_EQ(fakePlatform().count("pause 1"), 0);  // the device runs on
}

TEST_F(TransportTest, TheEndOfAStreamReloadsItOnceAndLeavesItStopped) {
    load(wavPath());
    playMedia(transport, players);
    poll(1000);
    EXPECT_EQ(reloads, 0);
    for (int i = 0; i < 4; ++i)
        static_cast<void>(nextPcmSample(pcm));
    poll(1016);
    EXPECT_EQ(reloads, 1);
    EXPECT_FALSE(transport.playing);
    EXPECT_EQ(pcm.position, 0u);
    EXPECT_EQ(pcm.samples.size(), 3u);
    poll(1032);
    EXPECT_EQ(reloads, 1);
    playMedia(transport, players);
    EXPECT_EQ(nextPcmSample(pcm), 0.25f);
}

// The program's callback and its loop: a frame's worth of sound, then the question for the end.
TEST_F(TransportTest, AFileIsReloadedOnlyWhenTheRetunerHasGivenOutItsLastSound) {
    fillHannWindow(*retuner);
    retuner->Init();
    fillSolfeggioRatio(*retuner);
    struct Case {
        std::int32_t mode;
        std::int32_t target;
        std::size_t latest;  // frames behind the file's end at which it must have been reloaded
    };
    constexpr std::size_t kFrame = 735;
    constexpr std::size_t kLength = 400000;
    for (const Case& c : {Case{kModeOff, 8, 0}, Case{kModeFull, 8, 8191}, Case{kModePeak, 8, 8191},
                          Case{kModeSolfeggio, 2, 5630},  // a lag of 5547 samples, read at 0.986
                          Case{kModeSolfeggio, 8, 0}}) {
        retuner->mode = kModeOff;
        load(wavPath());
        retuner->SetMode(c.mode);
        retuner->targetIndex = c.target;
        pcm.samples.assign(kLength, 0.0f);
        for (std::size_t i = kLength - 600; i < kLength; ++i)
            pcm.samples[i] = 0.5f;
        const int before = reloads;
        playMedia(transport, players);
        std::vector<float> out(2 * kFrame);
        double heard = 0.0;
        std::size_t done = 0;
        for (; reloads == before && done < 2 * kLength; done += kFrame) {
            mixOutput({engine, pcm, *retuner}, gains, out.data(), kFrame, nullptr);
            for (std::size_t i = 0; i < kFrame; ++i)
                heard += static_cast<double>(out[2 * i]) * static_cast<double>(out[2 * i]);
            poll(static_cast<std::uint32_t>(done));
        }
        EXPECT_GT(heard, 0.6 * 600 * 0.25) << c.mode << " " << c.target;
        EXPECT_LE(done, kLength + 1 + c.latest + 2 * kFrame) << c.mode << " " << c.target;
        EXPECT_FALSE(transport.playing);
    }
}

TEST_F(TransportTest, ASecondEndReloadsAgainOnceThePlayWasSeen) {
    load(wavPath());
    for (int round = 1; round <= 3; ++round) {
        playMedia(transport, players);
        poll(0);  // seen playing: the latch opens
        for (int i = 0; i < 4; ++i)
            static_cast<void>(nextPcmSample(pcm));
        poll(16);
        EXPECT_EQ(reloads, round);
    }
}

TEST_F(TransportTest, TheEndOfAMidiFileComesHalfASecondAfterItsLastNote) {
    load(midiPath());
    playMedia(transport, players);
    midiTick(midi, engine, 0.15);
    renderSeconds(1.4);
    poll(1400);
    EXPECT_EQ(reloads, 0);
    renderSeconds(0.2);
    poll(1600);
    EXPECT_EQ(reloads, 1);
    EXPECT_TRUE(midi.paused);
    EXPECT_EQ(engine.time, 0.0);
}

TEST_F(TransportTest, AMidiFilePausedAfterItsLastNoteNeverReloads) {
    load(midiPath());
    playMedia(transport, players);
    midiTick(midi, engine, 0.15);
    stopMedia(transport, players);
    renderSeconds(3.0);
    poll(3000);
    EXPECT_EQ(reloads, 0);
}

TEST_F(TransportTest, PlayOfAMidiFileThatFailedToParseShowsTheMessageOnceMore) {
    load(badPath("bad.mid"));
    playMedia(transport, players);
    renderSeconds(0.6);
    poll(600);
    EXPECT_EQ(reloads, 1);
    EXPECT_EQ(fakePlatform().count("messageBox Error|Error|Failed to parse MIDI file!"), 2);
    // The latch is still set: pressed again, the file just stays lit.
    playMedia(transport, players);
    renderSeconds(0.6);
    poll(1200);
    EXPECT_EQ(reloads, 1);
    EXPECT_TRUE(transport.playing);
}

TEST_F(TransportTest, TheMediaDeviceIsAskedTwiceASecondAndOnlyStoppedCounts) {
    load("/x/song.ogg");
    playMedia(transport, players);
    log().clear();
    fakePlatform().mediaAnswers["status VeloMedia mode"] = {
        {0, "playing"}, {0, "stopped "}, {0, "Stopped"}, {0, "stoppe"}, {0, "stopped"}};
    poll(499);
    EXPECT_TRUE(log().empty());
    poll(500);
    poll(999);
    EXPECT_EQ(log().size(), 1u);
    poll(1000);
    poll(1500);
    poll(2000);
    EXPECT_EQ(reloads, 0);
    poll(2500);
    EXPECT_EQ(reloads, 1);
    EXPECT_FALSE(transport.playing);
}

TEST_F(TransportTest, WithNothingLoadedNothingEnds) {
    transport.playing = true;
    poll(1000);
    transport.currentPath = "/x/y";
    transport.endLatch = true;
    poll(1000);
    EXPECT_EQ(reloads, 0);
    EXPECT_FALSE(transport.endLatch);
}

TEST_F(TransportTest, TheDialogOffersTheFourFilters) {
    EXPECT_STREQ(kMusicFileDialog.title, "Select Music File");
    ASSERT_EQ(kMusicFileDialog.filters.size(), 4u);
    const char* expected[4][2] = {{"All Music Files", "*.mid;*.midi;*.mp3;*.wav;*.wma"},
                                  {"MIDI Files", "*.mid;*.midi"},
                                  {"Audio Files", "*.mp3;*.wav;*.wma"},
                                  {"All Files", "*.*"}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_STREQ(kMusicFileDialog.filters[i].name, expected[i][0]);
        EXPECT_STREQ(kMusicFileDialog.filters[i].patterns, expected[i][1]);
    }
}

}  // namespace
}  // namespace veloria
