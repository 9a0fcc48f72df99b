#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/main_loop.h"
#include "app/wiring.h"
#include "engine/control.h"
#include "media/midi_playback.h"
#include "platform/fake/fake_platform.h"
#include "recorder/clips.h"

namespace veloria {
namespace {

using platform::fakePlatform;

class MainLoop : public ::testing::Test {
  protected:
    void SetUp() override {
        fakePlatform().reset();
        installTransport(*app);
    }
    bool pass() {
        return mainLoopPass(*app, lastFrame,
                            {[this](AppState&) {
                                 order.push_back("events");
                                 fakePlatform().ticks += eventMs;
                                 return running;
                             },
                             [this](AppState&, std::uint32_t) {
                                 order.push_back("frame");
                                 fakePlatform().ticks += frameMs;
                             }});
    }

    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    std::unique_ptr<SacredFft> retuner = std::make_unique<SacredFft>();
    OutputGains gains;
    std::unique_ptr<AppState> app =
        std::make_unique<AppState>(engine, MediaPlayers{engine, midi, pcm, *retuner}, gains);
    std::uint32_t lastFrame = 0;
    std::uint32_t eventMs = 0;
    std::uint32_t frameMs = 0;
    bool running = true;
    std::vector<std::string> order;
};

TEST_F(MainLoop, AFrameIsDrawnAtMostOnceInSixteenMilliseconds) {
    fakePlatform().ticks = 15;
    EXPECT_TRUE(pass());
    EXPECT_EQ(order, (std::vector<std::string>{"events"}));
    EXPECT_EQ(fakePlatform().log, (std::vector<std::string>{"wait 1"}));
    EXPECT_TRUE(pass());
    EXPECT_EQ(order, (std::vector<std::string>{"events", "events", "frame"}));
    EXPECT_EQ(lastFrame, 16u);
    EXPECT_EQ(fakePlatform().log.back(), "wait 16");
}

TEST_F(MainLoop, AFrameRestsForWhatItLeftOfItsTime) {
    fakePlatform().ticks = 100;
    frameMs = 6;
    static_cast<void>(pass());
    EXPECT_EQ(fakePlatform().log, (std::vector<std::string>{"wait 10"}));
}

TEST_F(MainLoop, AFrameThatTookTooLongIsFollowedAtOnce) {
    fakePlatform().ticks = 100;
    frameMs = 40;
    static_cast<void>(pass());
    EXPECT_TRUE(fakePlatform().log.empty());
    EXPECT_EQ(lastFrame, 100u);
}

TEST_F(MainLoop, TheEndOfTheLoopStillDrawsItsFrame) {
    fakePlatform().ticks = 100;
    running = false;
    EXPECT_FALSE(pass());
    EXPECT_EQ(order, (std::vector<std::string>{"events", "frame"}));
}

TEST_F(MainLoop, TheNotesAreFedOnEveryPassAndNotOnlyWithAFrame) {
    app->transport.kind = MediaKind::Midi;
    midi.notes = {{0.0, 1.0, 60, 0.5f, 0, 0.5f}, {0.2, 1.0, 62, 0.5f, 0, 0.5f}};
    fakePlatform().ticks = 3;
    static_cast<void>(pass());
    EXPECT_EQ(order, (std::vector<std::string>{"events"}));
    EXPECT_EQ(engine.voices.size(), 1u);
    engine.time = 0.06;
    fakePlatform().ticks = 5;
    static_cast<void>(pass());
    EXPECT_EQ(engine.voices.size(), 2u);
}

TEST_F(MainLoop, APausedFileOrAnotherKindIsNotFed) {
    midi.notes = {{0.0, 1.0, 60, 0.5f, 0, 0.5f}};
    app->transport.kind = MediaKind::Pcm;
    static_cast<void>(pass());
    app->transport.kind = MediaKind::Midi;
    midi.paused = true;
    static_cast<void>(pass());
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(MainLoop, TheEndOfTheFileIsSeenBeforeTheFrameAndReloadsItOnce) {
    std::vector<std::string> loaded;
    app->onLoadFile = [&](const std::string& path) {
        order.push_back("load");
        loaded.push_back(path);
    };
    app->transport.kind = MediaKind::Pcm;
    app->transport.currentPath = "/x/song.wav";
    app->transport.playing = true;
    pcm.samples = {0.0f};
    fakePlatform().ticks = 100;
    static_cast<void>(pass());
    EXPECT_EQ(order, (std::vector<std::string>{"events", "load", "frame"}));
    EXPECT_EQ(loaded, std::vector<std::string>{"/x/song.wav"});
    static_cast<void>(pass());
    EXPECT_EQ(loaded.size(), 1u);
    EXPECT_FALSE(app->transport.playing);
}

TEST_F(MainLoop, TheEndOfTheFileIsNotLookedForBetweenFrames) {
    app->onLoadFile = [&](const std::string&) { order.push_back("load"); };
    app->transport.kind = MediaKind::Pcm;
    app->transport.currentPath = "/x/song.wav";
    app->transport.playing = true;
    pcm.samples = {0.0f};
    fakePlatform().ticks = 10;
    static_cast<void>(pass());
    EXPECT_EQ(order, (std::vector<std::string>{"events"}));
}

TEST_F(MainLoop, TheInstalledOperationsAreTheTransports) {
    engine.activationMode = 2;
    app->onPlay();
    EXPECT_EQ(engine.voices.size(), 2u);
    app->onStop();
    EXPECT_FALSE(engine.dronesOn);
    app->onToggleFlag();
    EXPECT_TRUE(app->transport.toggleFlag);
    toggleReflection(engine, 4);
    app->onReset();
    EXPECT_FALSE(app->transport.toggleFlag);
    EXPECT_TRUE(engine.voices.empty());
    app->onLoadFile("/no/such/file.mid");
    EXPECT_EQ(app->transport.currentPath, "/no/such/file.mid");
    EXPECT_EQ(app->transport.kind, MediaKind::Midi);
}

// The view clock and what the petals have heard.
class ViewClock : public MainLoop {
  protected:
    void SetUp() override {
        MainLoop::SetUp();
        app->lotus.viewTime = 1.5f;
        app->lotus.lotusEnergy.fill(0.5f);
    }
    [[nodiscard]] bool isAtZero() const {
        const auto& energy = app->lotus.lotusEnergy;
        return app->lotus.viewTime == 0.0f &&
               std::all_of(energy.begin(), energy.end(), [](float value) { return value == 0.0f; });
    }
};

TEST_F(ViewClock, AResetTakesItToZero) {
    app->onReset();
    EXPECT_TRUE(isAtZero());
}

TEST_F(ViewClock, ALoadAStopAndAPlayLeaveItAlone) {
    app->onLoadFile("/no/such/file.mid");
    app->onPlay();
    app->onStop();
    EXPECT_EQ(app->lotus.viewTime, 1.5f);
    EXPECT_EQ(app->lotus.lotusEnergy[4], 0.5f);
}

TEST_F(ViewClock, AnExportTakesItToZeroAndACancelledOneDoesNot) {
    SDL_Surface* surface = SDL_CreateRGBSurfaceWithFormat(0, 320, 240, 32, SDL_PIXELFORMAT_ARGB8888);
    app->renderer = SDL_CreateSoftwareRenderer(surface);
    app->recorder.engine = &engine;
    RecorderClip clip;
    clip.id = app->recorder.nextClipId++;
    clip.end = 0.05;
    addClip(app->recorder, 0, 440.0, clip);
    app->recorder.onExportRecorder();
    EXPECT_EQ(app->lotus.viewTime, 1.5f);
    const std::filesystem::path file = std::filesystem::path(::testing::TempDir()) / "veloria_view_clock.wav";
    fakePlatform().dialogPaths = {file.string()};
    app->recorder.onExportRecorder();
    EXPECT_TRUE(isAtZero());
    EXPECT_TRUE(std::filesystem::remove(file)) << "it was an export";
    SDL_DestroyRenderer(app->renderer);
    app->renderer = nullptr;
    SDL_FreeSurface(surface);
}

}  // namespace
}  // namespace veloria
