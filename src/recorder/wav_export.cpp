#include "recorder/wav_export.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "engine/audio_lock.h"
#include "engine/flush_denormals.h"
#include "engine/render.h"
#include "media/wav_writer.h"
#include "platform/audio_device.h"
#include "recorder/clips.h"
#include "recorder/playback.h"

namespace veloria {

namespace {

constexpr std::size_t kTailFrames = 44100;     // a second for what still rings
constexpr std::size_t kProgressFrames = 4410;  // a tenth of a second
constexpr std::size_t kBlockFrames = 512;
constexpr float kStartLevel = 0.3f;  // what a new engine's master level is

// Puts a list of voices into the engine in place of its own, on a clock of 0, for as long as it lives. The
// device is paused before the swap: a callback in between would render the borrowed voices.
class BorrowedEngine {
  public:
    BorrowedEngine(SynthEngine& engine, std::vector<Voice> voices)
        : engine_(engine), voices_(std::move(voices)) {
        platform::pauseAudioDevice(true);
        const AudioLock lock;
        engine_.voices.swap(voices_);
        time_ = engine_.time;
        engine_.time = 0.0;
        // Else the first 50 ms would depend on what sounded before.
        masterLevel_ = std::exchange(engine_.masterLevel, kStartLevel);
    }
    ~BorrowedEngine() {
        {
            const AudioLock lock;
            engine_.voices.swap(voices_);
            engine_.time = time_;
            engine_.masterLevel = masterLevel_;
        }
        platform::pauseAudioDevice(false);
    }
    BorrowedEngine(const BorrowedEngine&) = delete;
    BorrowedEngine& operator=(const BorrowedEngine&) = delete;

  private:
    SynthEngine& engine_;
    std::vector<Voice> voices_;
    double time_ = 0.0;
    float masterLevel_ = 0.0f;
};

// Voices that have not begun, the next one last. The renderer walks its whole list for each sample, so a
// voice enters it only when it is due; waiting there it would be silent and unchanged.
using WaitingVoices = std::vector<Voice>;

WaitingVoices takeWaiting(std::vector<Voice>& voices) {
    const auto begun = std::stable_partition(voices.begin(), voices.end(),
                                             [](const Voice& voice) { return !(voice.startTime > 0.0); });
    WaitingVoices waiting(begun, voices.end());
    std::stable_sort(waiting.begin(), waiting.end(),
                     [](const Voice& a, const Voice& b) { return a.startTime < b.startTime; });
    std::reverse(waiting.begin(), waiting.end());
    voices.erase(begun, voices.end());
    return waiting;
}

// Admits what is due within the `frames` to come; a voice that has not begun yet waits in the list as well.
void admitDue(SynthEngine& engine, WaitingVoices& waiting, std::size_t frames) {
    const double time = engine.time + static_cast<double>(frames + 1) * kSampleSeconds;
    while (!waiting.empty() && waiting.back().startTime <= time) {
        engine.voices.push_back(waiting.back());
        waiting.pop_back();
    }
}

// Whether a file can hold the whole frames of `exact` (not below 0) and the tail.
bool fitsFile(double exact) {
    return exact < static_cast<double>(kMaxWavFrames - kTailFrames + 1);
}

void renderFrames(SynthEngine& engine, WaitingVoices& waiting, std::size_t frames,
                  const ExportProgress& progress, std::vector<std::int16_t>& samples) {
    const FlushDenormals flushed;
    if (progress) progress(0.0f);
    samples.resize(2 * frames);
    std::array<float, 2 * kBlockFrames> block;
    for (std::size_t done = 0; done < frames;) {
        // No block reaches past the next frame that is told.
        const std::size_t untold = kProgressFrames - done % kProgressFrames;
        const std::size_t count = std::min({kBlockFrames, untold, frames - done});
        admitDue(engine, waiting, count);
        renderStereoBlock(engine, block.data(), count);
        std::transform(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(2 * count),
                       samples.begin() + static_cast<std::ptrdiff_t>(2 * done), toSample16);
        if (progress && done % kProgressFrames == 0) {
            progress(static_cast<float>(done) / static_cast<float>(frames));
        }
        done += count;
    }
}

Voice voiceOf(const RecorderClip& clip, double frequency, double begin, double seconds) {
    Voice voice;
    voice.frequency = frequency;
    voice.volume = amplitudeOfDb(clip.gainInDb);
    voice.targetVolume = amplitudeOfDb(clip.gainOutDb);
    voice.startTime = std::max(clip.start - begin, 0.0);
    voice.endTime = std::min(clip.end - begin, seconds);
    voice.channel = kNoteChannel;
    voice.pan = clip.pan;
    voice.overrides = clip.overrides;
    return voice;
}

}  // namespace

ExportPlan planExport(const Recorder& recorder) {
    ExportPlan plan;
    double begin = 0.0;
    double end = recorderEnd(recorder);
    if (recorder.rangeEnabled && recorder.rangeEnd > recorder.rangeStart) {
        begin = recorder.rangeStart;
        end = recorder.rangeEnd;
    }
    plan.seconds = end - begin;
    plan.voices.reserve(static_cast<std::size_t>(recorder.clipCount));
    for (const auto& [channel, buckets] : recorder.clips) {
        if (channel < 0 || channel >= recorder.channelCount) continue;
        if (!recorder.channels[static_cast<std::size_t>(channel)].enabled) continue;
        for (const auto& [key, bucket] : buckets) {
            for (const RecorderClip& clip : bucket) {
                if (!(clip.end > begin) || !(clip.start < end)) continue;
                plan.voices.push_back(voiceOf(clip, keyFrequency(key), begin, plan.seconds));
            }
        }
    }
    return plan;
}

RenderOutcome renderVoices(SynthEngine& engine, std::vector<Voice> voices, double seconds,
                           const ExportProgress& progress, std::vector<std::int16_t>& samples) {
    samples.clear();
    if (!(seconds >= 0.0)) return RenderOutcome::Nothing;
    const double exact = seconds * kSampleRate;
    if (!fitsFile(exact)) return RenderOutcome::TooLong;
    const std::size_t frames = kTailFrames + static_cast<std::size_t>(exact);
    try {
        WaitingVoices waiting = takeWaiting(voices);
        const BorrowedEngine borrowed(engine, std::move(voices));
        renderFrames(engine, waiting, frames, progress, samples);
        return RenderOutcome::Done;
    } catch (...) {
        samples = {};
        return RenderOutcome::GivenUp;
    }
}

RenderOutcome renderRecorder(Recorder& recorder, const ExportProgress& progress,
                             std::vector<std::int16_t>& samples) {
    samples.clear();
    if (recorder.engine == nullptr || recorder.clipCount == 0) return RenderOutcome::Nothing;
    ExportPlan plan;
    try {
        plan = planExport(recorder);
    } catch (const std::exception&) {  // no memory
        return RenderOutcome::GivenUp;
    }
    if (!(plan.seconds > 0.0)) return RenderOutcome::Nothing;
    return renderVoices(*recorder.engine, std::move(plan.voices), plan.seconds, progress, samples);
}

bool renderVoicesToWav(SynthEngine& engine, const std::string& path, std::vector<Voice> voices,
                       double seconds, const ExportProgress& progress) {
    std::vector<std::int16_t> samples;
    return renderVoices(engine, std::move(voices), seconds, progress, samples) == RenderOutcome::Done &&
           writeWavFile(path, samples);
}

bool exportRecorderToWav(Recorder& recorder, const std::string& path, const ExportProgress& progress) {
    std::vector<std::int16_t> samples;
    return renderRecorder(recorder, progress, samples) == RenderOutcome::Done && writeWavFile(path, samples);
}

}  // namespace veloria
