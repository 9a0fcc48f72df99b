#include "cli/session.h"

#include <cstdio>

#include "media/midi_load.h"
#include "media/midi_playback.h"
#include "media/midi_tuning.h"
#include "platform/files.h"

namespace veloria::cli {

namespace {

void prepareRetuner(SacredFft& retuner, const Options& options) {
    fillHannWindow(retuner);
    retuner.Init();
    fillSolfeggioRatio(retuner);
    retuner.ResetStreams();
    retuner.targetIndex = options.target;
    retuner.strength = options.strength;
    retuner.SetMode(options.fft);
}

}  // namespace

std::unique_ptr<Session> makeSession(const Options& options) {
    auto session = std::make_unique<Session>();
    SynthEngine& engine = session->engine;
    engine.sacredOptimizer = !options.originalMidi;
    engine.midiTableChoice = options.tableChoice;
    engine.bassFilter = options.bassFilter;
    engine.waveform = options.waveform;
    engine.fibonacciCount = options.fibonacci;
    engine.piCount = options.pi;
    engine.teslaCount = options.tesla;
    engine.octaveSteps = options.octave;
    engine.phiSteps = options.phi;
    engine.fibPhase = options.fibPhase;
    engine.teslaPhase = options.teslaPhase;
    engine.activationMode = options.activation;
    prepareRetuner(session->retuner, options);
    prepareMidiTuning();
    return session;
}

int fail(const std::string& file, const std::string& reason) {
    std::fprintf(stderr, "veloria-cli: %s: %s\n", file.c_str(), reason.c_str());
    return kFailed;
}

int misused(const std::string& error) {
    std::fprintf(stderr, "veloria-cli: %s (see veloria-cli --help)\n", error.c_str());
    return kMisused;
}

std::string loadMidi(Session& session, const std::string& path) {
    if (!platform::canReadFile(path)) return "cannot be opened";
    if (!readMidiFile(session.midi, path, session.engine)) return "holds no MIDI note events";
    optimizeMidiFile(session.midi, session.engine);
    pauseMidi(session.midi, session.engine.time);
    return {};
}

int finishOutput() {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return kDone;
    return fail("standard output", "cannot be written");
}

}  // namespace veloria::cli
