#include "cli/render.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "cli/output.h"
#include "cli/session.h"
#include "engine/control.h"
#include "media/midi_playback.h"
#include "media/pcm_loader.h"
#include "media/wav_writer.h"
#include "platform/files.h"

namespace veloria::cli {

namespace {

constexpr std::size_t kTailFrames = 44100;  // a second for what still rings

std::string lowerExtension(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    std::string extension = dot == std::string::npos ? "" : path.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

// PLAY's other half: the drones of the activation mode.
void playDrones(Session& session) {
    if (session.engine.activationMode > 0) startDrones(session.engine);
}

int renderMidi(Session& session, const Options& options) {
    const std::string& input = options.files[0];
    const std::string fault = loadMidi(session, input);
    if (!fault.empty()) return fail(input, fault);
    const double seconds = session.midi.duration;
    if (!std::isfinite(seconds)) return fail(input, "its note times are not finite");
    if (seconds * kSampleRate > static_cast<double>(kMaxWavFrames - kTailFrames)) {
        return fail(input, "too long for a WAV file");
    }
    const std::size_t frames = kTailFrames + static_cast<std::size_t>(seconds * kSampleRate);
    resumeMidi(session.midi, session.engine);
    playDrones(session);
    ProgressBar bar = makeProgressBar(options);
    std::vector<std::int16_t> samples;
    renderBlocks(
        session, frames,
        [&session](std::size_t) { midiTick(session.midi, session.engine, kMidiLookaheadSeconds); }, bar,
        samples);
    return writeOutput(options.files[1], samples);
}

int renderPcm(Session& session, const Options& options) {
    const std::string& input = options.files[0];
    if (!platform::openFile(input, "rb")) return fail(input, "cannot be opened");
    if (!loadPcmFile(session.pcm, input)) return fail(input, "is no WAV or MP3 file that can be read");
    session.pcm.playing = true;
    playDrones(session);
    ProgressBar bar = makeProgressBar(options);
    std::vector<std::int16_t> samples;
    const std::size_t length = session.pcm.samples.size();
    samples.reserve(2 * (length + 1 + kTailFrames));
    // Frame by frame, to see in which one the stream ends.
    while (session.pcm.playing && samples.size() / 2 < kMaxWavFrames - kTailFrames) {
        appendFrames(session, 1, samples);
        drawProgress(bar, static_cast<double>(session.pcm.position) / static_cast<double>(length));
    }
    endProgress(bar);
    appendFrames(session, kTailFrames, samples);
    return writeOutput(options.files[1], samples);
}

}  // namespace

int runRender(const Options& options) {
    const auto session = makeSession(options);
    const std::string extension = lowerExtension(options.files[0]);
    if (extension == "mid" || extension == "midi") return renderMidi(*session, options);
    if (extension == "wav" || extension == "mp3") return renderPcm(*session, options);
    return fail(options.files[0], "is no .mid, .midi, .wav or .mp3 file");
}

}  // namespace veloria::cli
