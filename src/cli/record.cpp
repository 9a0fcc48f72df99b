#include "cli/record.h"

#include <cmath>

#include "cli/output.h"
#include "cli/session.h"
#include "recorder/midi_import.h"
#include "recorder/wav_export.h"

namespace veloria::cli {

namespace {

// Why the arrangement of `input` did not become sound; empty when it did.
std::string reasonOf(RenderOutcome outcome) {
    switch (outcome) {
        case RenderOutcome::Done:
            return {};
        case RenderOutcome::Nothing:
            return "makes no recorder clips";
        case RenderOutcome::TooLong:
            return "too long for a WAV file";
        case RenderOutcome::GivenUp:
        case RenderOutcome::Cancelled:
        case RenderOutcome::NotWritten:
            break;
    }
    return "not enough memory to render it";
}

}  // namespace

int runRecord(const Options& options) {
    const auto session = makeSession(options);
    const std::string& input = options.files[0];
    const std::string fault = loadMidi(*session, input);
    if (!fault.empty()) return fail(input, fault);
    if (!std::isfinite(session->midi.duration)) return fail(input, "its note times are not finite");

    Recorder recorder;
    recorder.engine = &session->engine;
    session->midi.normalizeMatch = options.normalize ? 1 : 0;
    importMidiClips(session->midi, recorder, session->engine);
    ProgressBar bar = makeProgressBar(options);
    const std::string& output = options.files[1];
    const RenderOutcome outcome = renderRecorderToWav(recorder, output, [&bar](float progress) {
        drawProgress(bar, static_cast<double>(progress));
        return true;
    });
    if (outcome == RenderOutcome::Done) drawProgress(bar, 1.0);
    endProgress(bar);
    if (outcome == RenderOutcome::NotWritten) return outputStatus(output, false);
    const std::string reason = reasonOf(outcome);
    return reason.empty() ? kDone : fail(input, reason);
}

}  // namespace veloria::cli
