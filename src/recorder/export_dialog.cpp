#include "recorder/export_dialog.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "media/midi_playback.h"
#include "platform/audio_device.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "recorder/wav_export.h"

namespace veloria {

namespace {

constexpr std::uint32_t kSettleMs = 30;
constexpr std::uint32_t kFrameMs = 16;
// An export that is over at once shows nothing of itself.
constexpr std::uint32_t kFirstFrameMs = 100;
// Rendering goes on for this many times as long as the last drawing took: an eighth of the time is drawing.
constexpr std::uint32_t kRendersPerDrawing = 7;

constexpr std::array<platform::FileFilter, 2> kFilters = {{{"WAV Files", "*.wav"}, {"All Files", "*.*"}}};
constexpr platform::SaveDialog kDialog{"Export Recorder to WAV", kFilters, "recorder_export.wav", "wav"};

class DevicePause {
  public:
    DevicePause() { platform::pauseAudioDevice(true); }
    ~DevicePause() { platform::pauseAudioDevice(false); }
    DevicePause(const DevicePause&) = delete;
    DevicePause& operator=(const DevicePause&) = delete;
};

// Stops a playing MIDI file at its place, and lets it go on from there on whatever clock the engine then has.
class MidiPause {
  public:
    MidiPause(MidiFile* midi, const SynthEngine& engine)
        : midi_(midi != nullptr && !midi->paused && !midi->notes.empty() ? midi : nullptr), engine_(engine) {
        if (midi_ != nullptr) pauseMidi(*midi_, engine.time);
    }
    ~MidiPause() {
        if (midi_ != nullptr) resumeMidi(*midi_, engine_);
    }
    MidiPause(const MidiPause&) = delete;
    MidiPause& operator=(const MidiPause&) = delete;

  private:
    MidiFile* midi_;
    const SynthEngine& engine_;
};

// Shows the export while it runs.
class ExportView {
  public:
    ExportView(Recorder& recorder, const ExportSurroundings& surroundings)
        : recorder_(recorder), surroundings_(surroundings) {
        if (surroundings_.exporting != nullptr) *surroundings_.exporting = true;
    }
    ~ExportView() {
        if (surroundings_.exporting != nullptr) *surroundings_.exporting = false;
        recorder_.exportProgress = 0.0f;
    }
    ExportView(const ExportView&) = delete;
    ExportView& operator=(const ExportView&) = delete;

    // False when the user ends the export.
    bool show(float progress) {
        recorder_.exportProgress = progress;
        const std::uint32_t now = platform::ticksMs();
        if (now - asked_ >= kFrameMs) {
            asked_ = now;
            if (surroundings_.goesOn && !surroundings_.goesOn()) return false;
        }
        if (now - drawn_ < pauseMs_ || !surroundings_.drawFrame) return true;
        surroundings_.drawFrame(now);
        drawn_ = platform::ticksMs();
        pauseMs_ = std::max(kFrameMs, kRendersPerDrawing * (drawn_ - now));
        return true;
    }

  private:
    Recorder& recorder_;
    const ExportSurroundings& surroundings_;
    std::uint32_t asked_ = platform::ticksMs();  // when the user was last listened to
    std::uint32_t drawn_ = asked_;               // when the last drawing was done
    std::uint32_t pauseMs_ = kFirstFrameMs;      // from then to the next
};

void clearScopes(SynthEngine& engine, ScopeBuffer* scope) {
    const AudioLock lock;
    engine.scopeRing.fill(0.0f);
    engine.scopePos = 0;
    if (scope != nullptr) *scope = {};
}

void render(Recorder& recorder, const std::string& path, const ExportSurroundings& surroundings) {
    ExportView view(recorder, surroundings);
    // Whether the file was written is not said: it is there or it is not.
    static_cast<void>(
        exportRecorderToWav(recorder, path, [&view](float progress) { return view.show(progress); }));
}

void drawLastFrame(const ExportSurroundings& surroundings) {
    if (!surroundings.drawFrame) return;
    try {
        surroundings.drawFrame(platform::ticksMs());
    } catch (...) {
        // The memory that it lacked is the export's own, and given back by now: the next frame will have it.
    }
}

}  // namespace

void exportRecorderDialog(Recorder& recorder, SynthEngine& engine, const ExportSurroundings& surroundings) {
    if (recorder.clipCount == 0) return;
    // Everything sounds on while the user looks for a name.
    const std::string path = platform::chooseFileToSave(kDialog);
    if (path.empty()) return;
    std::optional<MidiPause>
        midiPause;  // made before the device's, so that the file goes on after the device
    const DevicePause devicePause;
    midiPause.emplace(surroundings.midi, engine);
    hardReset(engine);
    recorder.activeClips.clear();  // their voices are gone; the next tick begins them anew
    platform::waitMs(kSettleMs);
    render(recorder, path, surroundings);
    clearScopes(engine, surroundings.scope);
    if (surroundings.resetViews) surroundings.resetViews();
    drawLastFrame(surroundings);
}

}  // namespace veloria
