// A user who clicks, drags, turns the wheel, types, loads, resets and resizes without a plan, in the whole
// window with its real operations. VELORIA_SEED chooses another run, VELORIA_SOAK_EVENTS a longer one:
//   VELORIA_SEED=7 VELORIA_SOAK_EVENTS=200000 build/release/bin/test_app --gtest_filter='WindowSoak*'
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <random>

#include "app/wiring.h"
#include "engine/audio_lock.h"
#include "media/midi_playback.h"
#include "media/mix.h"
#include "media/wav_writer.h"
#include "platform/audio_device.h"
#include "platform/fake/fake_platform.h"
#include "tests/media/midi_bytes.h"
#include "tests/platform/scratch_folder.h"
#include "tests/ui/events.h"

namespace veloria {
namespace {

using platform::fakePlatform;

std::uint32_t chosen(const char* variable, std::uint32_t otherwise) {
    const char* given = std::getenv(variable);
    return given == nullptr ? otherwise : static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10));
}

class WindowSoak : public test::InputTest {
  protected:
    WindowSoak() {
        fakePlatform().reset();
        installAudioLock({platform::lockAudioDevice, platform::unlockAudioDevice});
        installTransport(app);
        app.recorder.onToggleCalc = [this] { toggleCalculator(app.calculator); };
        const test::MidiTrack notes =
            test::MidiTrack{}.on(0, 0, 60, 90).on(0, 9, 67, 80).off(200, 0, 60).off(0, 9, 67).endOfTrack();
        const test::Bytes bytes = test::midiFile(480, {notes});
        files = {folder.write("song.mid", {reinterpret_cast<const char*>(bytes.data()), bytes.size()}),
                 folder / "song.wav", folder.write("torn.mid", "MThd\0\0\0"), folder / "not_there.mp3",
                 folder.write("other.ogg", "no sound at all")};
        const std::vector<std::int16_t> tone(4410, 9000);
        EXPECT_TRUE(writeWavFile(files[1], tone));
    }
    ~WindowSoak() override {
        EXPECT_EQ(fakePlatform().lockDepth, 0);
        installAudioLock({nullptr, nullptr});
        fakePlatform().reset();
    }

    int below(int count) { return static_cast<int>(random() % static_cast<std::uint32_t>(count)); }
    int anyX() { return below(app.layout.windowW + 40) - 20; }
    int anyY() { return below(app.layout.windowH + 40) - 20; }
    Uint8 anyButton() { return below(4) == 0 ? static_cast<Uint8>(1 + below(3)) : Uint8{SDL_BUTTON_LEFT}; }

    void pressKey() {
        constexpr SDL_Keycode kKeys[] = {SDLK_1,      SDLK_q,      SDLK_r,         SDLK_f,     SDLK_SPACE,
                                         SDLK_DELETE, SDLK_ESCAPE, SDLK_BACKSPACE, SDLK_RETURN};
        key(kKeys[below(9)]);
    }
    // Any button of the left panel, in its own tab.
    void pressButton() {
        const Widget& widget =
            app.widgets[static_cast<std::size_t>(below(static_cast<int>(app.widgets.size())))];
        if (widget.group != kLeftPanelGroup) return;
        press(widget.label.c_str());
    }
    void load() {
        fakePlatform().dialogPaths = {files[static_cast<std::size_t>(below(5))]};
        clickRect(topBarButtonRect(app.layout, kLoadButton));
        fakePlatform().dialogPaths.clear();
    }
    void anotherSize() { resize(800 + below(900), 600 + below(500)); }

    void step() {
        switch (below(40)) {
            case 0:
                return pressKey();
            case 1:
                return type("7.2");
            case 2:
            case 3:
                return pressButton();
            case 4:
                return wheel(anyX(), anyY(), below(7) - 3);
            case 5:
                if (below(8) == 0) return load();
                return clickRect(topBarButtonRect(app.layout, below(12) == 0 ? kResetButton : kPlayButton));
            case 6:
                if (below(10) == 0) anotherSize();
                return frame(nowMs);
            default:
                break;
        }
        const int x = anyX();
        const int y = anyY();
        if (below(3) == 0) return down(x, y, anyButton());
        if (below(2) == 0) return move(x, y);
        const Uint8 button = anyButton();
        up(x, y, button);
        if (button == SDL_BUTTON_LEFT) expectNothingHeld();
    }
    // A frame and the sound that is heard meanwhile.
    void passTime() {
        nowMs += 16;
        if (app.transport.kind == MediaKind::Midi && !app.players.midi.paused) {
            midiTick(app.players.midi, engine, kMidiLookaheadSeconds);
        }
        std::array<float, 2 * 64> sound{};
        mixOutput({engine, pcm, *retuner}, gains, sound.data(), 64, &app.scope);
        for (const float sample : sound)
            ASSERT_TRUE(std::isfinite(sample));
        frame(nowMs);
    }
    void expectOrder() {
        const KatharaViewState& view = app.kathara.view;
        ASSERT_TRUE(view.elevation >= -89.0f && view.elevation <= 89.0f) << view.elevation;
        ASSERT_TRUE(view.zoom >= 0.0f && view.zoom <= 15.0f) << view.zoom;
        ASSERT_TRUE(view.fov >= 1.0f && view.fov <= 10.0f) << view.fov;
        for (const PanelState& state : app.panels.panels) {
            ASSERT_GE(state.rect.w, kPanelMinimumWidth);
            ASSERT_GE(state.rect.h, kPanelMinimumHeight);
        }
        ASSERT_LE(app.calculator.calcText.size(), 31u);
        ASSERT_GE(app.recorder.channelCount, 1);
        ASSERT_LE(app.recorder.channelCount, 32);
    }
    // After a left release, wherever it happened.
    void expectNothingHeld() {
        EXPECT_EQ(app.kathara.dragHost, KatharaHost::None);
        EXPECT_FALSE(app.kathara.draggingScene);
        EXPECT_EQ(app.held.splitter, Splitter::None);
        EXPECT_FALSE(app.held.strength || app.held.speed || app.held.synthGainLeft ||
                     app.held.synthGainRight);
        EXPECT_FALSE(app.panelResize.resizing);
        EXPECT_FALSE(app.calculator.calcDragging);
        EXPECT_EQ(app.recorder.grabbedClip, nullptr);
        for (const PanelState& state : app.panels.panels)
            EXPECT_FALSE(state.dragging);
    }

    std::mt19937 random;
    std::uint32_t nowMs = 100000;
    test::ScratchFolder folder;
    std::vector<std::string> files;
};

TEST_F(WindowSoak, NothingThatAUserDoesBreaksTheWindow) {
    const std::uint32_t seed = chosen("VELORIA_SEED", 1);
    const std::uint32_t events = chosen("VELORIA_SOAK_EVENTS", 6000);
    std::cout << "VELORIA_SEED=" << seed << "\n";
    random.seed(seed);
    for (std::uint32_t event = 0; event < events; ++event) {
        step();
        if (event % 8 != 0) continue;
        passTime();
        expectOrder();
        ASSERT_FALSE(HasFailure()) << "after event " << event;
    }
}

}  // namespace
}  // namespace veloria
