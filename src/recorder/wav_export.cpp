#include "recorder/wav_export.h"

#include <algorithm>
#include <array>
#include <exception>
#include <new>
#include <optional>
#include <span>
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

constexpr std::size_t kMostTables = 8192;  // of the renderer's: 60 MB

// Puts a list of voices into the engine in place of its own, on a clock of 0, for as long as it lives. The
// device is paused before the swap: a callback in between would render the borrowed voices.
class BorrowedEngine {
  public:
    BorrowedEngine(SynthEngine& engine, std::vector<Voice> voices)
        : engine_(engine), voices_(std::move(voices)) {
        platform::pauseAudioDevice(true);
        const AudioLock lock;
        engine_.voices.swap(voices_);
        engine_.partialTables.swap(tables_);
        time_ = engine_.time;
        engine_.time = 0.0;
        // Else the first 50 ms would depend on what sounded before.
        masterLevel_ = std::exchange(engine_.masterLevel, kStartLevel);
    }
    ~BorrowedEngine() {
        {
            const AudioLock lock;
            engine_.voices.swap(voices_);
            engine_.partialTables.swap(tables_);
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
    // Tables of its own: they may become many, and the memory for them goes with the render.
    std::vector<PartialTable> tables_{kVoiceFigure + 1};
    double time_ = 0.0;
    float masterLevel_ = 0.0f;
};

// Takes the next interleaved samples; false ends the render.
using SampleSink = std::function<bool(std::span<const std::int16_t>)>;

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

// Voices past the last table share it and build it anew in each sub-block: as right, but a thousand of 38
// partials took twelve times as long. So they do where there is no memory, and past kMostTables.
void growTables(SynthEngine& engine) {
    const std::size_t wanted = std::min(engine.voices.size(), kMostTables);
    if (wanted <= engine.partialTables.size()) return;
    try {
        engine.partialTables.resize(std::min(2 * wanted, kMostTables));
    } catch (const std::bad_alloc&) {
        return;
    }
}

// Frames of a render of `seconds` and its tail. Only `outcome` Done makes them count: a length below 0 or not
// a number makes Nothing, and one that no file can hold TooLong.
std::size_t framesOf(double seconds, RenderOutcome& outcome) {
    outcome = RenderOutcome::Nothing;
    if (!(seconds >= 0.0)) return 0;
    outcome = RenderOutcome::TooLong;
    const double exact = seconds * kSampleRate;
    if (!(exact < static_cast<double>(kMaxWavFrames - kTailFrames + 1))) return 0;
    outcome = RenderOutcome::Done;
    return kTailFrames + static_cast<std::size_t>(exact);
}

// The next `frames` interleaved frames.
void renderBlock(SynthEngine& engine, WaitingVoices& waiting, std::size_t frames, float* out) {
    for (std::size_t done = 0; done < frames;) {
        const std::size_t count = std::min(kBlockFrames, frames - done);
        admitDue(engine, waiting, count);
        growTables(engine);
        renderStereoBlock(engine, out + 2 * done, count);
        done += count;
    }
}

// All frames, block by block into `sink`.
RenderOutcome renderFrames(SynthEngine& engine, WaitingVoices& waiting, std::size_t frames,
                           const ExportProgress& progress, const SampleSink& sink) {
    const FlushDenormals flushed;
    if (progress && !progress(0.0f)) return RenderOutcome::Cancelled;
    std::vector<float> block(2 * kProgressFrames);
    std::vector<std::int16_t> samples(2 * kProgressFrames);
    for (std::size_t done = 0; done < frames; done += kProgressFrames) {
        const std::size_t count = std::min(kProgressFrames, frames - done);
        renderBlock(engine, waiting, count, block.data());
        toSamples16({block.data(), 2 * count}, samples.data());
        if (!sink({samples.data(), 2 * count})) return RenderOutcome::NotWritten;
        if (progress && !progress(static_cast<float>(done) / static_cast<float>(frames))) {
            return RenderOutcome::Cancelled;
        }
    }
    return RenderOutcome::Done;
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

namespace {

// Renders the plan into what `open`, told the frames, makes of them: a sink, or an empty one when there is
// nowhere for the sound to go.
RenderOutcome renderPlan(SynthEngine& engine, ExportPlan plan, const ExportProgress& progress,
                         const std::function<SampleSink(std::size_t frames)>& open) {
    RenderOutcome outcome{};
    const std::size_t frames = framesOf(plan.seconds, outcome);
    if (outcome != RenderOutcome::Done) return outcome;
    try {
        const SampleSink sink = open(frames);
        if (!sink) return RenderOutcome::NotWritten;
        WaitingVoices waiting = takeWaiting(plan.voices);
        const BorrowedEngine borrowed(engine, std::move(plan.voices));
        return renderFrames(engine, waiting, frames, progress, sink);
    } catch (...) {
        return RenderOutcome::GivenUp;
    }
}

// The plan of the recorder's arrangement, if there is anything in it.
RenderOutcome planRender(const Recorder& recorder, ExportPlan& plan) {
    if (recorder.engine == nullptr || recorder.clipCount == 0) return RenderOutcome::Nothing;
    try {
        plan = planExport(recorder);
    } catch (const std::exception&) {  // no memory
        return RenderOutcome::GivenUp;
    }
    return plan.seconds > 0.0 ? RenderOutcome::Done : RenderOutcome::Nothing;
}

RenderOutcome renderToSamples(SynthEngine& engine, ExportPlan plan, const ExportProgress& progress,
                              std::vector<std::int16_t>& samples) {
    samples.clear();
    const auto keep = [&samples](std::size_t frames) -> SampleSink {
        samples.reserve(2 * frames);
        return [&samples](std::span<const std::int16_t> block) {
            samples.insert(samples.end(), block.begin(), block.end());
            return true;
        };
    };
    const RenderOutcome outcome = renderPlan(engine, std::move(plan), progress, keep);
    if (outcome != RenderOutcome::Done) samples = {};
    return outcome;
}

RenderOutcome renderToFile(SynthEngine& engine, const std::string& path, ExportPlan plan,
                           const ExportProgress& progress) {
    std::optional<WavFile> file;
    const auto open = [&](std::size_t frames) -> SampleSink {
        file.emplace(path, frames);
        if (!file->good()) return {};
        return [&file](std::span<const std::int16_t> block) { return file->write(block); };
    };
    const RenderOutcome outcome = renderPlan(engine, std::move(plan), progress, open);
    if (outcome == RenderOutcome::Done && !file->finish()) return RenderOutcome::NotWritten;
    return outcome;
}

}  // namespace

RenderOutcome renderVoices(SynthEngine& engine, std::vector<Voice> voices, double seconds,
                           const ExportProgress& progress, std::vector<std::int16_t>& samples) {
    return renderToSamples(engine, {std::move(voices), seconds}, progress, samples);
}

RenderOutcome renderRecorder(Recorder& recorder, const ExportProgress& progress,
                             std::vector<std::int16_t>& samples) {
    samples.clear();
    ExportPlan plan;
    const RenderOutcome outcome = planRender(recorder, plan);
    if (outcome != RenderOutcome::Done) return outcome;
    return renderToSamples(*recorder.engine, std::move(plan), progress, samples);
}

bool renderVoicesToWav(SynthEngine& engine, const std::string& path, std::vector<Voice> voices,
                       double seconds, const ExportProgress& progress) {
    return renderToFile(engine, path, {std::move(voices), seconds}, progress) == RenderOutcome::Done;
}

RenderOutcome renderRecorderToWav(Recorder& recorder, const std::string& path,
                                  const ExportProgress& progress) {
    ExportPlan plan;
    const RenderOutcome outcome = planRender(recorder, plan);
    if (outcome != RenderOutcome::Done) return outcome;
    return renderToFile(*recorder.engine, path, std::move(plan), progress);
}

bool exportRecorderToWav(Recorder& recorder, const std::string& path, const ExportProgress& progress) {
    return renderRecorderToWav(recorder, path, progress) == RenderOutcome::Done;
}

}  // namespace veloria
