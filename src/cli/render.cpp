#include "cli/render.h"

#include <algorithm>
#include <cmath>

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
// Five where the retuner of mode 3 begins, two later on.
constexpr std::size_t kMostTakenByFrame = 8;

// What one file is rendered from and to.
struct Job {
    const std::string& input;
    const std::string& output;
    const ProgressOfFile& progress;
};

Fault renderMidi(Session& session, const Job& job) {
    const std::string fault = loadMidi(session, job.input);
    if (!fault.empty()) return {job.input, fault};
    const double seconds = session.midi.duration;
    if (!std::isfinite(seconds)) return {job.input, "its note times are not finite"};
    if (!fitsWavFile(seconds * kSampleRate)) return {job.input, kTooLong};
    const std::size_t frames = kTailFrames + static_cast<std::size_t>(seconds * kSampleRate);
    resumeMidi(session.midi, session.engine);
    startDrones(session.engine);
    const auto tick = [&session](std::size_t) {
        midiTick(session.midi, session.engine, kMidiLookaheadSeconds);
    };
    return renderBlocks(session, frames, tick, job.output, job.progress);
}

// Reads the file ever later than it is fed: what lags at its end comes behind it.
bool readsLate(const SacredFft& retuner) {
    const RetunerSettings settings = loadSettings(retuner);
    return settings.mode == kModeSolfeggio && targetRatio(retuner, settings) < 1.0;
}

// Output frames that lag at the file's end. Else the tail is longer than all that the retuner holds back.
std::size_t lagOf(const SacredFft& retuner) {
    return readsLate(retuner) ? framesToCome(retuner, loadSettings(retuner)) : 0;
}

// Renders until the stream has found its end, in the very frame after its last sample.
bool renderStream(Session& session, WavFile& file, const ProgressOfFile& progress) {
    // What a frame takes of the stream at most: more than one only where the retuner runs ahead of it.
    const std::size_t most = session.retuner.mode == kModeSolfeggio ? kMostTakenByFrame : 1;
    const std::size_t length = session.pcm.samples.size();
    while (session.pcm.playing) {
        const auto position = static_cast<std::size_t>(session.pcm.position);
        const std::size_t left = position < length ? length - position : 0;
        if (!appendFrames(session, std::clamp<std::size_t>(left / most, 1, kBlockFrames), file)) return false;
        drawProgress(progress.bar, progress.file,
                     static_cast<double>(position) / static_cast<double>(length + kTailFrames));
    }
    return true;
}

Fault renderPcm(Session& session, const Job& job) {
    if (!platform::canReadFile(job.input)) return {job.input, "cannot be opened"};
    if (!loadPcmFile(session.pcm, job.input)) return {job.input, "is no WAV or MP3 file that can be read"};
    const std::size_t length = session.pcm.samples.size();
    const std::size_t mostLag = readsLate(session.retuner) ? kMostFramesToCome : 0;
    // One frame more, in which the stream finds its end. A retuner that takes more than a sample a frame
    // comes out shorter, by less than 3 %, and gets no bound of its own.
    if (!fitsWavFile(static_cast<double>(length + 1 + mostLag))) return {job.input, kTooLong};
    session.pcm.playing = true;
    startDrones(session.engine);
    const bool known = session.retuner.mode != kModeSolfeggio;
    WavFile file(job.output, known ? length + 1 + kTailFrames : kUnknownFrames);
    const bool written = file.good() && renderStream(session, file, job.progress) &&
                         appendFrames(session, lagOf(session.retuner) + kTailFrames, file) && file.finish();
    drawProgress(job.progress.bar, job.progress.file, 1.0);
    return writeFault(job.output, written);
}

}  // namespace

bool fitsWavFile(double frames) {
    return frames <= static_cast<double>(kMaxWavFrames - kTailFrames);
}

Fault renderFile(const Options& options, const std::string& input, const std::string& output,
                 const ProgressOfFile& progress) {
    const auto session = makeSession(options);
    const Job job{input, output, progress};
    const std::string extension = extensionOf(input);
    if (extension == "mid" || extension == "midi") return renderMidi(*session, job);
    if (extension == "wav" || extension == "mp3") return renderPcm(*session, job);
    return {input, "is no .mid, .midi, .wav or .mp3 file"};
}

int runRender(const Options& options) {
    ProgressBar bar(options, 1);
    const Fault fault = renderFile(options, options.files[0], options.files[1], {bar});
    endProgress(bar);
    return statusOf(fault);
}

}  // namespace veloria::cli
