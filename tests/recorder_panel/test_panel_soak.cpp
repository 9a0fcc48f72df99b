// A hundred thousand random events and operations, imports of MIDI files among them, with all references
// checked. VELORIA_SEED repeats a run.
#include <cstdlib>
#include <iostream>
#include <random>
#include <set>

#include "engine/control.h"
#include "media/midi_parser.h"
#include "platform/fake/fake_platform.h"
#include "recorder/midi_import.h"
#include "tests/media/midi_bytes.h"
#include "tests/recorder_panel/panel_fixture.h"

namespace veloria {
namespace {

constexpr int kEvents = 100000;
constexpr int kMostClips = 300;
constexpr int kMidiFiles = 8;

std::uint32_t chosenSeed() {
    const char* given = std::getenv("VELORIA_SEED");
    if (given != nullptr) return static_cast<std::uint32_t>(std::strtoul(given, nullptr, 10));
    return std::random_device{}();
}

class RecorderSoak : public test::RecorderPanelTest {
  protected:
    int below(int count) { return static_cast<int>(random() % static_cast<std::uint32_t>(count)); }
    SDL_Keymod anyModifiers() {
        constexpr SDL_Keymod kChoice[] = {KMOD_NONE, KMOD_NONE, KMOD_LCTRL, KMOD_LSHIFT};
        return kChoice[below(4)];
    }
    // Mostly over the rows and what stands round them.
    int anyX() { return below(4) == 0 ? below(1400) - 60 : 120 + below(400); }
    int anyY() { return below(4) == 0 ? below(800) - 40 : area.y + 20 + below(std::max(1, area.h - 20)); }

    void mouseEvent() {
        input.modifiers = anyModifiers();
        const Uint8 button = static_cast<Uint8>(1 + below(3));
        switch (below(8)) {
            case 0:
            case 1:
                down(anyX(), anyY(), below(2) == 0 ? SDL_BUTTON_LEFT : button);
                break;
            case 2:
                up(anyX(), anyY(), below(2) == 0 ? SDL_BUTTON_LEFT : button);
                break;
            case 3:
                doubleClick(anyX(), anyY(), 10);
                break;
            case 4:
                wheel(anyX(), anyY(), below(5) - 2, anyModifiers());
                break;
            default:
                move(anyX(), anyY());
                break;
        }
    }
    void keyEvent() {
        constexpr SDL_Keycode kKeys[] = {SDLK_DELETE, SDLK_SPACE,     SDLK_c,      SDLK_v, SDLK_a,
                                         SDLK_RETURN, SDLK_BACKSPACE, SDLK_ESCAPE, SDLK_1};
        constexpr const char* kTyped[] = {"1", "9", ".", "e", "-", "12.5"};
        input.mouseX = anyX();
        input.mouseY = anyY();
        if (below(4) == 0) {
            type(kTyped[below(6)]);
        } else {
            key(kKeys[below(9)], static_cast<Uint16>(anyModifiers()), below(3) == 0);
        }
    }
    // From a single note to a chord that takes every row; soft and short notes are among them.
    MidiFile someMidiFile() {
        test::MidiTrack track;
        for (int bar = 1 + below(4); bar > 0; --bar) {
            const int chord = 1 + below(below(3) == 0 ? 40 : 5);
            const int key = 30 + below(40);
            for (int i = 0; i < chord; ++i)
                track.on(i == 0 ? static_cast<std::uint32_t>(below(100)) : 0, below(16), key + i,
                         1 + below(127));
            for (int channel = 0; channel < 16; ++channel) {
                for (int i = 0; i < chord; ++i)
                    track.off(i == 0 ? static_cast<std::uint32_t>(below(30)) : 0, channel, key + i);
            }
        }
        const test::Bytes bytes = test::midiFile(48, {track.endOfTrack()});
        MidiFile file;
        file.notes = pairMidiNotes(parseMidiEvents(bytes));
        return file;
    }
    void import() {
        if (below(4) != 0) return;
        MidiFile& file = midiFiles[static_cast<std::size_t>(below(kMidiFiles))];
        file.normalizeMatch = static_cast<std::uint8_t>(below(2));
        engine.sacredOptimizer = below(2) == 0;
        importMidiToRecorder(file, recorder, engine);
        ++imports;
        imported += recorder.clipCount;
    }
    void operation() {
        switch (below(10)) {
            case 0:
            case 1:
            case 2:
                clip(below(below(3) == 0 ? 32 : 5), 100.0 + below(20) * 40.0, below(300) * 0.1,
                     30.0 + below(100) * 0.1);
                break;
            case 3:
                beginDroneDrag(recorder, "drone", 528.0, {1, 2, 3, 255}, 6 + below(3), below(27));
                setDragMouse(recorder, anyX(), anyY());
                break;
            case 4:
                dropDrone(recorder, anyX(), anyY(), area, {});
                break;
            case 5:
                recorder.channels[static_cast<std::size_t>(below(32))].locked = below(3) == 0;
                break;
            case 6:
                below(2) == 0 ? addChannel(recorder) : removeChannel(recorder);
                break;
            case 7:
                import();
                break;
            case 8:
                area = below(4) == 0 ? SDL_Rect{0, 690 - 150, 300 + below(1000), 150}
                                     : SDL_Rect{0, 350, 1280, 340};
                break;
            default:
                reset();
                break;
        }
    }
    // As the transport's reset does.
    void reset() {
        if (below(20) != 0) return;
        if (below(2) == 0) {
            stopPlayback(recorder);
            hardReset(engine);
        }
        clearRecorder(recorder);
    }
    void oneStep() {
        input.ticks += static_cast<std::uint32_t>(below(300));
        const int choice = below(20);
        if (choice < 12) {
            mouseEvent();
        } else if (choice < 15) {
            keyEvent();
        } else if (choice < 17) {
            operation();
        } else {
            tickRecorder(recorder, 0.03f);
        }
        if (recorder.clipCount > kMostClips) {
            recorder.editRow = -1;
            selectAll(recorder);
            removeSelected(recorder);
        }
        // Clips and view drive each other ever farther out; both are brought back now and then.
        if (below(500) == 0) {
            recorder.viewStart = 0.0;
            recorder.viewSpan = 30.0;
            recorder.rowZoom = 1.0f;
        }
        if (below(3000) == 0) clearRecorder(recorder);
        if (engine.voices.size() > 1000) engine.voices.clear();
    }

    void checkReferences() {
        std::set<const RecorderClip*> known;
        std::set<std::uint64_t> serials;
        for (const RecorderClip* one : allClips(recorder)) {
            known.insert(one);
            serials.insert(one->serial);
            ASSERT_GE(one->start, 0.0);
            ASSERT_GT(one->end, one->start);
        }
        ASSERT_EQ(known.size(), static_cast<std::size_t>(recorder.clipCount));
        ASSERT_EQ(serials.size(), known.size()) << "a serial is given once";
        for (const RecorderClip* held : {recorder.editClip, recorder.grabbedClip, recorder.lastClickClip})
            ASSERT_TRUE(held == nullptr || known.count(held) == 1);
        for (const auto& [serial, hz] : recorder.activeClips)
            ASSERT_EQ(serials.count(serial), 1u);
        ASSERT_EQ(recorder.editOpen, recorder.editClip != nullptr);
        ASSERT_TRUE(recorder.grabbedClip != nullptr || !recorder.movingClip);
    }
    void checkRanges() {
        ASSERT_GE(recorder.viewSpan, 2.0);
        ASSERT_LE(recorder.viewSpan, 600.0);
        ASSERT_GE(recorder.viewStart, 0.0);
        ASSERT_GE(recorder.playhead, 0.0);
        ASSERT_GE(recorder.rowZoom, 0.4f);
        ASSERT_LE(recorder.rowZoom, 4.0f);
        ASSERT_GE(recorder.scrollY, 0);
        ASSERT_GE(recorder.channelCount, 1);
        ASSERT_LE(recorder.channelCount, 32);
        ASSERT_GE(recorder.rangeStart, 0.0);
        ASSERT_LE(recorder.rangeStart, recorder.rangeEnd);
        ASSERT_LT(recorder.editRow, 12);
    }

    std::mt19937 random;
    std::vector<MidiFile> midiFiles;
    int imports = 0;
    int imported = 0;  // clips
};

TEST_F(RecorderSoak, RandomEventsLeaveNoReferenceBehind) {
    const std::uint32_t seed = chosenSeed();
    random.seed(seed);
    std::cout << "seed " << seed << "; again with: VELORIA_SEED=" << seed
              << " test_recorder_panel --gtest_filter=RecorderSoak.*\n";
    for (int i = 0; i < kMidiFiles; ++i)
        midiFiles.push_back(someMidiFile());
    int drawings = 0;
    int edits = 0;
    int grabs = 0;
    for (int i = 0; i < kEvents; ++i) {
        oneStep();
        checkReferences();
        checkRanges();
        if (HasFatalFailure()) FAIL() << "at step " << i << " of seed " << seed;
        edits += recorder.editOpen ? 1 : 0;
        grabs += recorder.grabbedClip != nullptr ? 1 : 0;
        if (i % 200 == 0) {
            context.ticks = input.ticks;
            drawnWithEditor();
            drawDroneGhost(context, recorder);
            ++drawings;
            platform::fakePlatform().log.clear();
        }
    }
    EXPECT_EQ(drawings, kEvents / 200);
    EXPECT_GT(edits, kEvents / 200) << "the editor was hardly ever open";
    EXPECT_GT(grabs, kEvents / 200) << "hardly a clip was ever held";
    EXPECT_GT(imports, kEvents / 1000);
    EXPECT_GT(imported, imports) << "the files were empty";
    std::cout << imports << " imports of " << imported << " clips\n";
}

}  // namespace
}  // namespace veloria
