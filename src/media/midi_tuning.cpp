#include "media/midi_tuning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <span>

#include "frequency/tables.h"
#include "frequency/tuned.h"
#include "frequency/tuned_table.h"

namespace veloria {

namespace {

struct TunedKey {
    double frequency;
    std::int32_t tag;
};

using FoldedFamily = std::array<double, kAvatarFamilySize>;

FoldedFamily foldFamily(const FoldedFamily& family) {
    FoldedFamily folded{};
    std::transform(family.begin(), family.end(), folded.begin(),
                   [](double hz) { return foldForTuning(hz).frequency; });
    return folded;
}

// All that is searched for a key; the same for every engine, and only read once made.
struct TuningTables {
    TunedTable avatar = makeTunedTable(buildMidiTuningTable(0).frequencies);
    TunedTable shadow = makeTunedTable(buildMidiTuningTable(1).frequencies);
    FoldedFamily reflection = foldFamily(reflectionFreqs);
    FoldedFamily rotation = foldFamily(rotationFreqs);
};

// Made at the first use. Any thread.
const TuningTables& tuningTables() {
    static const TuningTables tables;
    return tables;
}

const TunedTable& tableOf(std::int32_t midiTableChoice) {
    return midiTableChoice == 1 ? tuningTables().shadow : tuningTables().avatar;
}

double equalTempered(std::int32_t note) {
    return 440.0 * std::pow(2.0, (note - 69) / 12.0);
}

TunedKey tuneKey(const SynthEngine& engine, std::int32_t note) {
    if (engine.bassFilter) note = foldKeyForBassFilter(note);
    if (engine.midiTuningMode != 0) return {440.0, 0};
    const double raw = equalTempered(note);
    if (!engine.sacredOptimizer) return {raw, 0};
    const TunedFrequency tuned =
        nearestTuned(tableOf(engine.midiTableChoice), foldForTuning(raw).octaves, raw);
    return {tuned.frequency, tuned.harmonic};
}

double smallestDistance(const FoldedFamily& family, double hz) {
    double best = std::fabs(family.front() - hz);
    for (const double entry : family)
        best = std::min(best, std::fabs(entry - hz));
    return best;
}

constexpr double kBinauralFloorHz = 0.1;     // exclusive
constexpr double kBinauralCeilingHz = 40.0;  // inclusive
constexpr float kSameSide = 0.3f;

}  // namespace

MidiTuningTable buildMidiTuningTable(std::int32_t midiTableChoice) {
    MidiTuningTable table;
    table.builtFor = midiTableChoice;
    const auto append = [&table](double hz) { appendFolded(table.frequencies, hz, kMidiTuningLimit); };
    if (midiTableChoice == 1) {
        for (std::uint32_t i = 0; i < kShadowIndexCount; ++i)
            append(shadowFrequency(i));
    } else {
        std::for_each(reflectionFreqs.begin(), reflectionFreqs.end(), append);
        std::for_each(rotationFreqs.begin(), rotationFreqs.end(), append);
    }
    std::sort(table.frequencies.begin(), table.frequencies.end());
    return table;
}

void prepareMidiTuning() {
    static_cast<void>(tuningTables());
}

std::int32_t foldKeyForBassFilter(std::int32_t note) {
    if (note < 48) return 48 + note % 12;
    // 73 is no multiple of 12: a key from above is raised a semitone against its own pitch class, so 96
    // becomes 73 and not 72. Odd, and kept: it is how the filter has always sounded.
    if (note > 84) return 73 + note % 12;
    return note;
}

double midiToFrequency(SynthEngine& engine, std::int32_t note, std::int32_t /*channel*/) {
    const TunedKey key = tuneKey(engine, note);
    engine.midiTuningTag = key.tag;
    return key.frequency;
}

float panAffinity(double frequency) {
    const TuningTables& tables = tuningTables();
    const double hz = foldForTuning(frequency).frequency;
    const double toReflection = smallestDistance(tables.reflection, hz);
    const double toRotation = smallestDistance(tables.rotation, hz);
    if (toReflection < toRotation) return 0.0f;
    if (toRotation < toReflection) return 1.0f;
    return 0.5f;
}

bool splitPair(MidiNote& first, double firstHz, MidiNote& second, double secondHz) {
    const double distance = std::fabs(firstHz - secondHz);
    if (!(distance > kBinauralFloorHz) || !(distance <= kBinauralCeilingHz)) return false;
    if (!(std::fabs(first.pan - second.pan) < kSameSide)) return false;
    const bool secondIsHigher = secondHz >= firstHz;
    first.pan = secondIsHigher ? 0.0f : 1.0f;
    second.pan = secondIsHigher ? 1.0f : 0.0f;
    return true;
}

namespace {

// What a key comes to while the switches stay: a file has half a million notes but 128 keys, or 256 if it is
// damaged.
struct PlacedKey {
    double frequency = 0.0;
    std::int32_t tag = 0;
    float pan = -1.0f;  // below 0: not worked out yet
};
using PlacedKeys = std::array<PlacedKey, 256>;

PlacedKey placeKey(SynthEngine& engine, const MidiNote& note) {
    const double frequency = midiToFrequency(engine, note.note, note.channel);
    return {frequency, engine.midiTuningTag, panAffinity(frequency)};
}

const PlacedKey& placedKey(SynthEngine& engine, const MidiNote& note, PlacedKeys& keys) {
    PlacedKey& key = keys[static_cast<std::size_t>(note.note)];
    if (key.pan < 0.0f) key = placeKey(engine, note);
    return key;
}

// Tunes and places every note; the tag that stays is the last note's.
void placeNotes(std::vector<MidiNote>& notes, SynthEngine& engine, std::vector<double>& hz) {
    PlacedKeys keys{};
    for (MidiNote& note : notes) {
        const bool isKey = note.note >= 0 && note.note < static_cast<std::int32_t>(keys.size());
        const PlacedKey key = isKey ? placedKey(engine, note, keys) : placeKey(engine, note);
        engine.midiTuningTag = key.tag;
        hz.push_back(key.frequency);
        note.pan = key.pan;
    }
}

}  // namespace

void optimizeMidiFile(MidiFile& file, SynthEngine& engine) {
    std::vector<MidiNote>& notes = file.notes;
    if (notes.empty()) return;
    std::vector<double> hz;
    try {
        hz.reserve(notes.size());
    } catch (const std::bad_alloc&) {
        notes.clear();  // no memory is a file that could not be loaded
        return;
    }
    placeNotes(notes, engine, hz);
    file.binauralPairs = 0;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        for (std::size_t j = i + 1; j < notes.size(); ++j) {
            // Sorted by start: from the first note that begins at or after this one's end on, none overlaps.
            if (!(notes[j].start < notes[i].end)) break;
            if (!(notes[i].start < notes[j].end)) continue;
            // The pans change as the pass goes on: a note that was split with one partner is compared at its
            // new side with the next.
            if (splitPair(notes[i], hz[i], notes[j], hz[j])) ++file.binauralPairs;
        }
    }
}

}  // namespace veloria
