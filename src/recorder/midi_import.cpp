#include "recorder/midi_import.h"

#include <cmath>
#include <vector>

#include "base/fixed_text.h"
#include "media/midi_tuning.h"
#include "platform/message_box.h"
#include "recorder/clips.h"
#include "recorder/lanes.h"

namespace veloria {

namespace {

constexpr float kSoftest = 0.08f;            // velocity; exactly this passes. No velocity byte gives it
constexpr double kShortest = 0.03;           // s; exactly this passes
constexpr float kGainSpanDb = 6.0f;          // between full velocity and none
constexpr float kGainTopDb = -6.0f;          // of full velocity
constexpr std::size_t kLabelLength = 63;     // characters
constexpr double kBinauralFloorHz = 0.1;     // exclusive
constexpr double kBinauralCeilingHz = 40.0;  // inclusive
constexpr float kSameSide = 0.3f;

// A clip on its way into the recorder.
struct ImportedClip {
    std::int32_t channel;
    double frequency;  // Hz
    RecorderClip clip;
};

// What every clip of one import has in common: the engine's settings at its start.
RecorderClip takeSnapshot(const SynthEngine& engine) {
    RecorderClip clip;
    clip.overrides = {.fibonacciCount = engine.fibonacciCount,
                      .piCount = engine.piCount,
                      .teslaCount = engine.teslaCount,
                      .octaveSteps = engine.octaveSteps,
                      .phiSteps = engine.phiSteps,
                      .fibPhase = engine.fibPhase,
                      .teslaPhase = engine.teslaPhase,
                      .waveform = engine.waveform};
    clip.optimized = engine.sacredOptimizer;
    clip.tuningLabel = engine.sacredOptimizer ? "Sacred Optimizer" : "Original MIDI";
    clip.bassFilter = engine.bassFilter;
    return clip;
}

bool isFiltered(const MidiNote& note) {
    if (!std::isfinite(note.start) || !std::isfinite(note.end)) return true;
    return note.velocity < kSoftest || note.end - note.start < kShortest;
}

// The lane of every note, also of those that the filters will drop: they keep their places on the timeline.
std::vector<std::int32_t> packLanes(const MidiFile& file, Recorder& recorder) {
    LanePacker packer;
    std::vector<std::int32_t> lanes;
    lanes.reserve(file.notes.size());
    for (const MidiNote& note : file.notes)
        lanes.push_back(packer.place(note.start, note.end));
    while (recorder.channelCount < static_cast<std::int32_t>(packer.ends.size()))
        addChannel(recorder);
    return lanes;
}

float panOfKind(std::int32_t kind) {
    if (kind == kSourceReflection) return 0.0f;
    return kind == kSourceRotation ? 1.0f : 0.5f;
}

void describe(RecorderClip& clip, const MidiNote& note, const DroneEntry& entry, double frequency) {
    clip.start = note.start;
    clip.end = note.end;
    clip.gainInDb = (note.velocity - 1.0f) * kGainSpanDb + kGainTopDb;
    clip.gainOutDb = clip.gainInDb;
    clip.label = importedLabel(entry, frequency);
    clip.colour = entry.colour;
    clip.sourceKind = entry.kind;
    clip.sourceIndex = entry.index;
    clip.pan = panOfKind(entry.kind);
}

// Splits the pair when it is a binaural one on one side: the lower goes left, the higher right.
bool splitPair(ImportedClip& first, ImportedClip& second) {
    const double distance = std::fabs(first.frequency - second.frequency);
    if (!(distance > kBinauralFloorHz) || !(distance <= kBinauralCeilingHz)) return false;
    if (!(std::fabs(first.clip.pan - second.clip.pan) < kSameSide)) return false;
    const bool secondIsHigher = second.frequency >= first.frequency;
    first.clip.pan = secondIsHigher ? 0.0f : 1.0f;
    second.clip.pan = secondIsHigher ? 1.0f : 0.0f;
    return true;
}

// The pans change as the pass goes on: a clip that was split with one partner is compared at its new side
// with the next.
std::int32_t splitBinauralPairs(std::vector<ImportedClip>& clips) {
    std::int32_t pairs = 0;
    for (std::size_t i = 0; i < clips.size(); ++i) {
        for (std::size_t j = i + 1; j < clips.size(); ++j) {
            // Sorted by start: from the first clip that begins at or after this one's end on, none overlaps.
            if (!(clips[j].clip.start < clips[i].clip.end)) break;
            if (!(clips[i].clip.start < clips[j].clip.end)) continue;
            if (splitPair(clips[i], clips[j])) ++pairs;
        }
    }
    return pairs;
}

}  // namespace

std::string importedLabel(const DroneEntry& entry, double frequency) {
    std::string label =
        std::string(entry.kindLabel) + "/" + entry.name + " " + fixedText(frequency, 1) + "Hz";
    if (label.size() > kLabelLength) label.resize(kLabelLength);
    return label;
}

ImportReport importMidiClips(const MidiFile& file, Recorder& recorder, SynthEngine& engine) {
    ImportReport report;
    if (file.notes.empty()) return report;
    report.hadNotes = true;
    clearRecorder(recorder);

    const std::vector<DroneEntry> list = makeDroneList();
    const NearestDrone nearest(list, file.normalizeMatch != 0);
    const std::vector<std::int32_t> lanes = packLanes(file, recorder);
    RecorderClip model = takeSnapshot(engine);
    std::vector<ImportedClip> imported;
    for (std::size_t i = 0; i < file.notes.size(); ++i) {
        const MidiNote& note = file.notes[i];
        if (isFiltered(note)) {
            ++report.filtered;
            continue;
        }
        const double frequency = midiToFrequency(engine, note.note, note.channel);
        describe(model, note, nearest(frequency), frequency);
        model.id = ++report.clips;  // the recorder's own count is left alone
        imported.push_back({lanes[i], frequency, model});
    }
    report.pairs = splitBinauralPairs(imported);
    for (const ImportedClip& entry : imported)
        addClip(recorder, entry.channel, entry.frequency, entry.clip);
    return report;
}

std::string importMessage(const ImportReport& report) {
    if (!report.hadNotes) return "No MIDI file loaded!";
    const std::string clips = std::to_string(report.clips);
    const std::string filtered = std::to_string(report.filtered);
    if (report.pairs > 0) {
        return "Imported " + clips + " notes (" + filtered +
               " filtered). Binaural optimization: " + std::to_string(report.pairs) + " pairs split to L/R.";
    }
    return "Imported " + clips + " notes into recorder (" + filtered + " filtered: vel<8% or dur<30ms).";
}

void importMidiToRecorder(const MidiFile& file, Recorder& recorder, SynthEngine& engine) {
    const ImportReport report = importMidiClips(file, recorder, engine);
    const char* title = report.hadNotes ? "Import MIDI" : "Import";
    const auto icon = report.hadNotes ? platform::MessageIcon::Information : platform::MessageIcon::Warning;
    platform::messageBox(importMessage(report), title, icon);
}

}  // namespace veloria
