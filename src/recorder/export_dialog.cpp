#include "recorder/export_dialog.h"

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
constexpr std::uint32_t kFrameMs = 16;  // a long file must not spend its time on drawing

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

    void show(float progress) {
        recorder_.exportProgress = progress;
        if (surroundings_.pumpEvents) surroundings_.pumpEvents();
        const std::uint32_t now = platform::ticksMs();
        if (drawn_ && now - lastDrawn_ < kFrameMs) return;
        drawn_ = true;
        lastDrawn_ = now;
        if (surroundings_.drawFrame) surroundings_.drawFrame(now);
    }

  private:
    Recorder& recorder_;
    const ExportSurroundings& surroundings_;
    bool drawn_ = false;
    std::uint32_t lastDrawn_ = 0;  // ms
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
    static_cast<void>(exportRecorderToWav(recorder, path, [&view](float progress) { view.show(progress); }));
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
