#include "cli/clips.h"

#include <cstdio>

#include "base/fixed_text.h"
#include "cli/session.h"
#include "recorder/midi_import.h"

namespace veloria::cli {

namespace {

void printClip(std::int32_t channel, double frequency, const RecorderClip& clip) {
    std::printf("%d,%d,%s,%s,%s,%s,%s,%s,%d,%d,\"%s\"\n", clip.id, channel, fixedText(frequency, 2).c_str(),
                fixedText(clip.start, 9).c_str(), fixedText(clip.end, 9).c_str(),
                fixedText(clip.gainInDb, 4).c_str(), fixedText(clip.gainOutDb, 4).c_str(),
                fixedText(clip.pan, 1).c_str(), clip.sourceKind, clip.sourceIndex, clip.label.c_str());
}

}  // namespace

int runClips(const Options& options) {
    const auto session = makeSession(options);
    const std::string& path = options.files[0];
    const std::string fault = loadMidi(*session, path);
    if (!fault.empty()) return fail(path, fault);

    Recorder recorder;
    session->midi.normalizeMatch = options.normalize ? 1 : 0;
    const ImportReport report = importMidiClips(session->midi, recorder, session->engine);
    std::fputs("id,channel,frequency,start,end,gain_in,gain_out,pan,kind,index,label\n", stdout);
    for (const auto& [channel, buckets] : recorder.clips) {
        for (const auto& [key, bucket] : buckets) {
            for (const RecorderClip& clip : bucket)
                printClip(channel, keyFrequency(key), clip);
        }
    }
    std::fprintf(stderr, "%s\n", importMessage(report).c_str());
    return finishOutput();
}

}  // namespace veloria::cli
