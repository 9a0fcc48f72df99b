#include "app/wiring.h"

#include "platform/clock.h"
#include "platform/dialog_hook.h"
#include "recorder/clips.h"
#include "recorder/export_dialog.h"
#include "recorder/midi_import.h"
#include "recorder/playback.h"
#include "ui/export_overlay.h"
#include "ui/frame.h"
#include "ui/sound_tick.h"

namespace veloria {

namespace {

// What stood still or ended behind the frames' back: a load drops every voice, and no frame is drawn while a
// dialog is open.
void redrawScene(AppState& app) {
    app.kathara.sceneDirty = true;
}

void exportRecorder(AppState& app) {
    ExportSurroundings surroundings;
    surroundings.midi = &app.players.midi;
    surroundings.exporting = &app.exporting;
    surroundings.scope = &app.scope;
    ExportEvents events;
    surroundings.goesOn = [&app, &events] { return exportGoesOn(app, events); };
    surroundings.drawFrame = [&app](std::uint32_t nowMs) { renderFrame(app, nowMs); };
    surroundings.resetViews = [&app] {
        resetLotus(app.lotus);
        app.lastFrameMs = 0;
    };
    exportRecorderDialog(app.recorder, *app.engine, surroundings);
    redrawScene(app);
    giveBackEvents(events);
}

void importMidi(AppState& app) {
    app.players.midi.normalizeMatch = app.transport.midiNormalize ? 1 : 0;
    importMidiToRecorder(app.players.midi, app.recorder, *app.engine);
    redrawScene(app);
}

void loadFile(AppState& app, const std::string& path) {
    // A load drops every voice: the clips under the playhead are to begin anew, and while a message of the
    // load stands already.
    app.recorder.activeClips.clear();
    loadMedia(app.transport, app.players, path);
    redrawScene(app);
}

void reset(AppState& app) {
    resetMedia(app.transport, app.players);
    stopPlayback(app.recorder);
    clearRecorder(app.recorder);
    resetLotus(app.lotus);
    redrawScene(app);
}

}  // namespace

void keepSoundInDialogs(AppState& app) {
    platform::setDialogHook([&app] { tickSound(app, platform::ticksMs()); });
}

void stopSoundInDialogs() {
    platform::setDialogHook({});
}

void installTransport(AppState& app) {
    app.recorder.onExportRecorder = [&app] { exportRecorder(app); };
    app.onLoadFile = [&app](const std::string& path) { loadFile(app, path); };
    app.onStop = [&app] { stopMedia(app.transport, app.players); };
    app.onPlay = [&app] { playMedia(app.transport, app.players); };
    app.onToggleFlag = [&app] { app.transport.toggleFlag = !app.transport.toggleFlag; };
    app.onImportMidi = [&app] { importMidi(app); };
    app.onReset = [&app] { reset(app); };
}

}  // namespace veloria
