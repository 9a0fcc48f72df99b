#include "cli/record.h"

#include <cmath>

#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/session.h"
#include "recorder/midi_import.h"
#include "recorder/wav_export.h"

namespace veloria::cli {

namespace {

// Why the arrangement of `input` did not become `output`.
Fault faultOf(RenderOutcome outcome, const std::string& input, const std::string& output) {
    switch (outcome) {
        case RenderOutcome::Done:
            return {};
        case RenderOutcome::Nothing:
            return {input, "makes no recorder clips"};
        case RenderOutcome::TooLong:
            return {input, "too long for a WAV file"};
        case RenderOutcome::Cancelled:
        case RenderOutcome::NotWritten:
            return writeFault(output, false);
        case RenderOutcome::GivenUp:
            break;
    }
    return {input, "not enough memory to render it"};
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
    const std::string& output = options.files[1];
    ProgressBar bar(options, 1);
    const RenderOutcome outcome = renderRecorderToWav(recorder, output, [&bar](float progress) {
        drawProgress(bar, 0, static_cast<double>(progress));
        return !interrupted();
    });
    if (outcome == RenderOutcome::Done) drawProgress(bar, 0, 1.0);
    endProgress(bar);
    return statusOf(faultOf(outcome, input, output));
}

}  // namespace veloria::cli
