#include "media/midi_tuning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <span>

#include "frequency/tables.h"
#include "frequency/tuned.h"

namespace veloria {

namespace {

constexpr std::int32_t kKeyCount = 128;

// The switches that a key's frequency depends on.
struct TuningSwitches {
    std::int32_t tableChoice = -1;
    std::int32_t mode = 0;
    bool bassFilter = false;
    bool sacredOptimizer = false;

    bool operator==(const TuningSwitches&) const = default;
};

struct TunedKey {
    bool known = false;
    double frequency = 0.0;
    std::int32_t tag = 0;
};

// The search for one key walks up to 216 x 51 candidates and may run under the audio lock, so each key is
// searched for once for as long as the switches stay.
struct KeyMemo {
    TuningSwitches switches;
    std::array<TunedKey, kKeyCount> keys{};
};

// Only what was found already, so each thread may find it for itself: files are tuned side by side.
thread_local MidiTuningTable g_midiTuningTable;
thread_local KeyMemo g_keyMemo;

double equalTempered(std::int32_t note) {
    return 440.0 * std::pow(2.0, (note - 69) / 12.0);
}

TunedKey tuneKey(const SynthEngine& engine, std::int32_t note) {
    if (engine.bassFilter) note = foldKeyForBassFilter(note);
    if (engine.midiTuningMode != 0) return {true, 440.0, 0};
    const double raw = equalTempered(note);
    if (!engine.sacredOptimizer) return {true, raw, 0};
    const TunedFrequency tuned =
        nearestTuned(g_midiTuningTable.frequencies, foldForTuning(raw).octaves, raw, true);
    return {true, tuned.frequency, tuned.harmonic};
}

using FoldedFamily = std::array<double, kAvatarFamilySize>;

FoldedFamily foldFamily(const FoldedFamily& family) {
    FoldedFamily folded{};
    std::transform(family.begin(), family.end(), folded.begin(),
                   [](double hz) { return foldForTuning(hz).frequency; });
    return folded;
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

std::int32_t foldKeyForBassFilter(std::int32_t note) {
    if (note < 48) return 48 + note % 12;
    // 73 is no multiple of 12: a key from above is raised a semitone against its own pitch class, so 96
    // becomes 73 and not 72. Odd, and kept: it is how the filter has always sounded.
    if (note > 84) return 73 + note % 12;
    return note;
}

double midiToFrequency(SynthEngine& engine, std::int32_t note, std::int32_t /*channel*/) {
    const TuningSwitches switches{engine.midiTableChoice, engine.midiTuningMode, engine.bassFilter,
                                  engine.sacredOptimizer};
    if (g_midiTuningTable.builtFor != switches.tableChoice) {
        g_midiTuningTable = buildMidiTuningTable(switches.tableChoice);
    }
    if (g_keyMemo.switches != switches) g_keyMemo = {switches, {}};

    TunedKey key;
    if (note < 0 || note >= kKeyCount) {
        key = tuneKey(engine, note);  // a damaged file's key: rare, not worth remembering
    } else {
        TunedKey& memo = g_keyMemo.keys[static_cast<std::size_t>(note)];
        if (!memo.known) memo = tuneKey(engine, note);
        key = memo;
    }
    engine.midiTuningTag = key.tag;
    return key.frequency;
}

float panAffinity(double frequency) {
    static const FoldedFamily reflection = foldFamily(reflectionFreqs);
    static const FoldedFamily rotation = foldFamily(rotationFreqs);
    const double hz = foldForTuning(frequency).frequency;
    const double toReflection = smallestDistance(reflection, hz);
    const double toRotation = smallestDistance(rotation, hz);
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
    for (MidiNote& note : notes) {
        hz.push_back(midiToFrequency(engine, note.note, note.channel));
        note.pan = panAffinity(hz.back());
    }
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
