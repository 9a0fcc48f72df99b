#include "ui/sound_tick.h"

#include <algorithm>

#include "media/midi_playback.h"
#include "recorder/playback.h"

namespace veloria {

void feedNotes(AppState& app) {
    if (app.transport.kind != MediaKind::Midi || app.players.midi.paused) return;
    midiTick(app.players.midi, *app.engine, kMidiLookaheadSeconds);
}

void tickSound(AppState& app, std::uint32_t nowMs) {
    const float seconds = app.lastFrameMs == 0 ? 0.0f : static_cast<float>(nowMs - app.lastFrameMs) * 0.001f;
    app.lastFrameMs = nowMs;
    if (app.exporting) return;
    feedNotes(app);
    pollMediaEnd(app.transport, app.players, nowMs, app.onLoadFile);
    tickRecorder(app.recorder, std::min(seconds, 0.1f));
    walkerTick(app.walker, *app.engine, nowMs);
}

}  // namespace veloria
