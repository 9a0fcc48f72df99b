// At which frequency a MIDI key sounds, and where in the stereo field. Main thread only.
#pragma once

#include <cstdint>
#include <vector>

#include "engine/synth_engine.h"
#include "media/midi_file.h"

namespace veloria {

inline constexpr std::size_t kMidiTuningLimit = 226;  // entries of the table at the most

// The frequencies that keys are tuned to: folded into 100 to 1000 Hz, ascending, duplicates kept.
struct MidiTuningTable {
    std::vector<double> frequencies;
    std::int32_t builtFor = -1;  // midiTableChoice it was built for; -1 before the first build
};

// The table for a midiTableChoice: 1 gives the 216 numbers with digits 1 to 6 (those that are Avatar numbers
// too are kept here), any other value the 162 Avatar frequencies.
[[nodiscard]] MidiTuningTable buildMidiTuningTable(std::int32_t midiTableChoice);

// Makes the tables that tuning and placing keys search; once for the program, on any thread. At start-up:
// left to the first key, it would be done where a key may be tuned, under AudioLock too.
void prepareMidiTuning();

// The key that the bass filter makes of `note`: below 48 into 48 to 59, above 84 into 73 to 84.
[[nodiscard]] std::int32_t foldKeyForBassFilter(std::int32_t note);

// The frequency of a key, in Hz, by the engine's tuning switches; writes engine.midiTuningTag. The channel
// plays no part. Keeps nothing: engines on several threads may be tuned at once.
[[nodiscard]] double midiToFrequency(SynthEngine& engine, std::int32_t note, std::int32_t channel);

// 0.0 (left) when the folded frequency (Hz) lies nearer to a Reflection frequency, 1.0 (right) when nearer to
// a Rotation frequency, 0.5 when equally near. Always by the Avatar tables.
[[nodiscard]] float panAffinity(double frequency);

// Splits two overlapping notes at `firstHz` and `secondHz` that are more than 0.1 and at most 40 Hz apart and
// on one side (pans less than 0.3 apart): the lower goes left, the higher right. False when they stay as they
// are.
bool splitPair(MidiNote& first, double firstHz, MidiNote& second, double secondHz);

// Gives every note its pan, and splits overlapping notes more than 0.1 and at most 40 Hz apart, on the same
// side, into a left and a right one; counts the splits in file.binauralPairs. Called once after each load.
// Nothing happens to a file without notes.
void optimizeMidiFile(MidiFile& file, SynthEngine& engine);

}  // namespace veloria
