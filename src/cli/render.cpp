#include "cli/render.h"

#include <cmath>

#include "cli/output.h"
#include "cli/session.h"
#include "engine/control.h"
#include "media/extension.h"
#include "media/midi_playback.h"
#include "media/pcm_loader.h"
#include "media/wav_writer.h"
#include "platform/files.h"
#include "spectral/drain.h"
#include "spectral/time_domain.h"

namespace veloria::cli {

namespace {

constexpr const char* kTooLong = "too long for a WAV file";

int renderMidi(Session& session, const Options& options) {
    const std::string& input = options.files[0];
    const std::string fault = loadMidi(session, input);
    if (!fault.empty()) return fail(input, fault);
    const double seconds = session.midi.duration;
    if (!std::isfinite(seconds)) return fail(input, "its note times are not finite");
    if (!fitsWavFile(seconds * kSampleRate)) return fail(input, kTooLong);
    const std::size_t frames = kTailFrames + static_cast<std::size_t>(seconds * kSampleRate);
    resumeMidi(session.midi, session.engine);
    startDrones(session.engine);
    ProgressBar bar = makeProgressBar(options);
    std::vector<std::int16_t> samples;
    renderBlocks(
        session, frames,
        [&session](std::size_t) { midiTick(session.midi, session.engine, kMidiLookaheadSeconds); }, bar,
        samples);
    return writeOutput(options.files[1], samples);
}

// Reads the file ever later than it is fed: what lags at its end comes behind it.
bool readsLate(const SacredFft& retuner) {
    const RetunerSettings settings = loadSettings(retuner);
    return settings.mode == kModeSolfeggio && targetRatio(retuner, settings) < 1.0;
}

int renderPcm(Session& session, const Options& options) {
    const std::string& input = options.files[0];
    if (!platform::canReadFile(input)) return fail(input, "cannot be opened");
    if (!loadPcmFile(session.pcm, input)) return fail(input, "is no WAV or MP3 file that can be read");
    const std::size_t length = session.pcm.samples.size();
    const bool late = readsLate(session.retuner);
    const std::size_t mostLag = late ? kMostFramesToCome : 0;
    // One frame more, in which the stream finds its end. A retuner that takes more than a sample a frame
    // comes out shorter, by less than 3 %, and gets no bound of its own.
    if (!fitsWavFile(static_cast<double>(length + 1 + mostLag))) return fail(input, kTooLong);
    session.pcm.playing = true;
    startDrones(session.engine);
    ProgressBar bar = makeProgressBar(options);
    std::vector<std::int16_t> samples;
    samples.reserve(2 * (length + 1 + mostLag + kTailFrames));
    // Frame by frame, to see in which one the stream ends.
    while (session.pcm.playing) {
        appendFrames(session, 1, samples);
        drawProgress(bar, static_cast<double>(session.pcm.position) / static_cast<double>(length));
    }
    endProgress(bar);
    // The tail is longer than all else that the retuner holds back.
    const std::size_t lag = late ? framesToCome(session.retuner, loadSettings(session.retuner)) : 0;
    appendFrames(session, lag + kTailFrames, samples);
    return writeOutput(options.files[1], samples);
}

}  // namespace

bool fitsWavFile(double frames) {
    return frames <= static_cast<double>(kMaxWavFrames - kTailFrames);
}

int runRender(const Options& options) {
    const auto session = makeSession(options);
    const std::string extension = extensionOf(options.files[0]);
    if (extension == "mid" || extension == "midi") return renderMidi(*session, options);
    if (extension == "wav" || extension == "mp3") return renderPcm(*session, options);
    return fail(options.files[0], "is no .mid, .midi, .wav or .mp3 file");
}

}  // namespace veloria::cli
