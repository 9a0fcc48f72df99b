#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "frequency/ratio_table.h"
#include "media/midi_tuning.h"

namespace veloria {
namespace {

double equalTempered(int note) {
    return 440.0 * std::pow(2.0, (note - 69) / 12.0);
}

struct Found {
    double hz;
    int row;
};

// The literal search, from numbers of its own: the tables' entries in the octave of the target, each with its
// ratios.
Found search(std::vector<double> table, double target) {
    std::sort(table.begin(), table.end());
    double scale = 1.0;
    for (double f = target; f > 1000.0; f /= 2.0)
        scale *= 2.0;
    for (double f = target; f < 100.0; f *= 2.0)
        scale /= 2.0;
    std::vector<double> ratios = {
        1.618033988749895,  2.618033988749895,  4.23606797749979,   3.141592653589793,   1.414213562373095,
        1.73205080856857,   2.23606797749979,   0.6180339887498948, 0.38196601125010515, 0.2360679774997897,
        0.3183098861837907, 0.7071067811865476, 0.5773502688563948, 0.4472135954999579};
    for (const int n : {2, 3, 4, 5, 6, 7, 8, 9, 13, 21, 34, 55, 89, 144, 233, 377, 610, 987}) {
        ratios.push_back(n);
        ratios.push_back(1.0 / n);
    }
    Found best{target, 0};
    double distance = 1e18;
    for (const double entry : table) {
        const double base = entry * scale;
        if (std::fabs(base - target) < distance) {
            distance = std::fabs(base - target);
            best = {base, 0};
        }
        for (std::size_t r = 0; r < ratios.size(); ++r) {
            const double hz = base * ratios[r];
            if (std::fabs(hz - target) < distance) {
                distance = std::fabs(hz - target);
                best = {hz, static_cast<int>(r) + 1};
            }
        }
    }
    return best;
}

std::vector<double> avatarTable() {
    std::vector<double> table(reflectionFreqs.begin(), reflectionFreqs.end());
    table.insert(table.end(), rotationFreqs.begin(), rotationFreqs.end());
    return table;
}

std::vector<double> shadowTable() {
    std::vector<double> table;
    for (int a = 0; a <= 5; ++a) {
        for (int b = 0; b <= 5; ++b) {
            for (int c = 0; c <= 5; ++c)
                table.push_back(111.0 + 100 * a + 10 * b + c);
        }
    }
    return table;
}

TEST(MidiTuningTable, HoldsThe162AvatarFrequenciesAscending) {
    const MidiTuningTable table = buildMidiTuningTable(0);
    std::vector<double> expected = avatarTable();
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(table.frequencies, expected);
    EXPECT_EQ(table.builtFor, 0);
    EXPECT_EQ(buildMidiTuningTable(7).frequencies, expected);
}

TEST(MidiTuningTable, WithTheShadowTabHoldsAll216Numbers) {
    const MidiTuningTable table = buildMidiTuningTable(1);
    EXPECT_EQ(table.frequencies, shadowTable());
    EXPECT_EQ(table.frequencies.size(), 216u);
}

TEST(MidiTuning, Key69InOriginalMidiIsExactly440) {
    SynthEngine engine;
    engine.sacredOptimizer = false;
    engine.midiTuningTag = 9;
    EXPECT_EQ(midiToFrequency(engine, 69, 0), 440.0);
    EXPECT_EQ(engine.midiTuningTag, 0);
    EXPECT_NEAR(midiToFrequency(engine, 60, 0), 261.6255653005986, 1e-9);
}

TEST(MidiTuning, Key69WithTheOptimizerIsClosestTo440OnEveryChannel) {
    SynthEngine engine;
    const double hz = midiToFrequency(engine, 69, 0);
    EXPECT_NEAR(hz, 440.0, 1.0);
    for (int channel = 1; channel < 16; ++channel)
        EXPECT_EQ(midiToFrequency(engine, 69, channel), hz);
}

// The bass filter's key, written out.
int filtered(int key) {
    if (key < 48) return 48 + key % 12;
    return key > 84 ? 73 + key % 12 : key;
}

TEST(MidiTuning, EveryKeyMatchesTheLiteralSearchOnBothTablesWithAndWithoutTheBassFilter) {
    for (const auto& [choice, bass] : {std::pair{0, false}, {0, true}, {1, false}, {1, true}}) {
        SynthEngine engine;
        engine.midiTableChoice = choice;
        engine.bassFilter = bass;
        const std::vector<double> table = choice == 1 ? shadowTable() : avatarTable();
        for (int key = 0; key < 128; ++key) {
            const Found expected = search(table, equalTempered(bass ? filtered(key) : key));
            EXPECT_DOUBLE_EQ(midiToFrequency(engine, key, 0), expected.hz) << key;
            EXPECT_EQ(engine.midiTuningTag, expected.row) << key;
        }
    }
}

TEST(MidiTuning, ARememberedKeyBringsItsTagBack) {
    SynthEngine engine;
    std::array<double, 128> hz{};
    std::array<int, 128> tags{};
    for (int key = 0; key < 128; ++key) {
        hz[static_cast<std::size_t>(key)] = midiToFrequency(engine, key, 0);
        tags[static_cast<std::size_t>(key)] = engine.midiTuningTag;
    }
    for (int key = 127; key >= 0; --key) {
        EXPECT_EQ(midiToFrequency(engine, key, 0), hz[static_cast<std::size_t>(key)]);
        EXPECT_EQ(engine.midiTuningTag, tags[static_cast<std::size_t>(key)]);
    }
}

TEST(MidiTuning, EverySwitchTakesEffectOnTheNextKey) {
    SynthEngine engine;
    const double avatar = midiToFrequency(engine, 61, 0);
    engine.midiTableChoice = 1;
    EXPECT_DOUBLE_EQ(midiToFrequency(engine, 61, 0), search(shadowTable(), equalTempered(61)).hz);
    engine.sacredOptimizer = false;
    EXPECT_EQ(midiToFrequency(engine, 61, 0), equalTempered(61));
    engine.midiTuningMode = 1;
    EXPECT_EQ(midiToFrequency(engine, 61, 0), 440.0);
    engine.midiTuningMode = 0;
    engine.midiTableChoice = 0;
    engine.sacredOptimizer = true;
    EXPECT_EQ(midiToFrequency(engine, 61, 0), avatar);
    engine.bassFilter = true;
    EXPECT_DOUBLE_EQ(midiToFrequency(engine, 12, 0), search(avatarTable(), equalTempered(48)).hz);
}

TEST(MidiTuning, AnyOtherModeSoundsEveryKeyAt440WhateverTheOptimizer) {
    SynthEngine engine;
    engine.midiTuningMode = 2;
    for (const bool optimizer : {true, false}) {
        engine.sacredOptimizer = optimizer;
        for (const int key : {0, 40, 69, 127})
            EXPECT_EQ(midiToFrequency(engine, key, 0), 440.0);
    }
    EXPECT_EQ(engine.midiTuningTag, 0);
}

TEST(MidiTuning, KeyZeroSearchesTheTableScaledDownBySixteen) {
    SynthEngine engine;
    const Found expected = search(avatarTable(), 8.175798915643707);
    EXPECT_DOUBLE_EQ(midiToFrequency(engine, 0, 0), expected.hz);
    EXPECT_NEAR(expected.hz, 8.1758, 0.05);
}

TEST(MidiTuning, ADamagedKeyAbove127IsTunedLikeAnyOther) {
    SynthEngine engine;
    const Found expected = search(avatarTable(), equalTempered(200));
    EXPECT_DOUBLE_EQ(midiToFrequency(engine, 200, 0), expected.hz);
    EXPECT_EQ(engine.midiTuningTag, expected.row);
}

TEST(BassFilter, MovesLowKeysToTheOctaveOf48AndHighKeysToThatOf73) {
    EXPECT_EQ(foldKeyForBassFilter(47), 59);
    EXPECT_EQ(foldKeyForBassFilter(0), 48);
    EXPECT_EQ(foldKeyForBassFilter(48), 48);
    EXPECT_EQ(foldKeyForBassFilter(60), 60);
    EXPECT_EQ(foldKeyForBassFilter(84), 84);
    EXPECT_EQ(foldKeyForBassFilter(85), 74);
    EXPECT_EQ(foldKeyForBassFilter(96), 73);
    EXPECT_EQ(foldKeyForBassFilter(127), 80);
}

TEST(BassFilter, OffLeavesBothRangesUntouchedAndOnChangesWhatIsTuned) {
    SynthEngine engine;
    engine.sacredOptimizer = false;
    EXPECT_EQ(midiToFrequency(engine, 47, 0), equalTempered(47));
    EXPECT_EQ(midiToFrequency(engine, 96, 0), equalTempered(96));
    engine.bassFilter = true;
    EXPECT_EQ(midiToFrequency(engine, 47, 0), equalTempered(59));
    EXPECT_EQ(midiToFrequency(engine, 96, 0), equalTempered(73));
}

TEST(PanAffinity, FollowsTheNearerAvatarFamilyInItsOctave) {
    EXPECT_EQ(panAffinity(528.0), 0.0f);   // a Reflection frequency
    EXPECT_EQ(panAffinity(1056.0), 0.0f);  // an octave up
    EXPECT_EQ(panAffinity(582.0), 1.0f);   // a Rotation frequency
    EXPECT_EQ(panAffinity(36.375), 1.0f);  // four octaves down
    EXPECT_EQ(panAffinity(127.0), 1.0f);
    // 514 is Rotation and 521 Reflection, with nothing of either between: the middle belongs to neither.
    EXPECT_EQ(panAffinity(517.5), 0.5f);
    EXPECT_EQ(panAffinity(517.4), 1.0f);
    EXPECT_EQ(panAffinity(517.6), 0.0f);
}

class Optimizer : public ::testing::Test {
  protected:
    void SetUp() override { engine.sacredOptimizer = false; }
    void add(double start, double end, int key) { file.notes.push_back({start, end, key, 0.5f, 0, -1.0f}); }
    SynthEngine engine;
    MidiFile file;
};

// Keys 36 (65.41 Hz) and 37 (69.30 Hz) fold to 130.8 and 138.6 Hz, both nearest to Rotation: 3.9 Hz apart on
// one side.
TEST(BinauralSplit, TheBandIsAboveATenthAndUpTo40Hertz) {
    const auto split = [](double firstHz, double secondHz, float firstPan, float secondPan) {
        MidiNote first{0, 1, 60, 0.5f, 0, firstPan};
        MidiNote second{0, 1, 60, 0.5f, 0, secondPan};
        return splitPair(first, firstHz, second, secondHz);
    };
    EXPECT_FALSE(split(200.0, 200.0, 0.0f, 0.0f));
    EXPECT_FALSE(split(0.0, 0.1, 0.0f, 0.0f));  // the floor is outside
    EXPECT_TRUE(split(0.0, 0.1001, 0.0f, 0.0f));
    EXPECT_TRUE(split(200.0, 240.0, 0.0f, 0.0f));  // the ceiling is inside
    EXPECT_FALSE(split(200.0, 240.0001, 0.0f, 0.0f));
    EXPECT_FALSE(split(200.0, 203.0, 0.0f, 1.0f));
    EXPECT_FALSE(split(200.0, 203.0, 0.5f, 0.0f));
    EXPECT_FALSE(split(200.0, 203.0, 0.5f, 0.8f));
    EXPECT_TRUE(split(200.0, 203.0, 0.5f, 0.75f));
}

TEST(BinauralSplit, ThreeHertzApartOnTheLeftTheLowerStaysThere) {
    MidiNote high{0, 1, 60, 0.5f, 0, 0.0f};
    MidiNote low{0, 1, 60, 0.5f, 0, 0.0f};
    EXPECT_TRUE(splitPair(high, 325.0, low, 322.0));
    EXPECT_EQ(high.pan, 1.0f);
    EXPECT_EQ(low.pan, 0.0f);
}

TEST_F(Optimizer, SplitsTwoNotesOnOneSideTheLowerToTheLeft) {
    add(0.0, 1.0, 36);
    add(0.5, 1.5, 37);
    ASSERT_EQ(panAffinity(equalTempered(36)), panAffinity(equalTempered(37)));
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.notes[0].pan, 0.0f);
    EXPECT_EQ(file.notes[1].pan, 1.0f);
    EXPECT_EQ(file.binauralPairs, 1);
}

TEST_F(Optimizer, PutsTheHigherOfTheTwoToTheRightWhicheverComesFirst) {
    add(0.0, 1.0, 37);
    add(0.5, 1.5, 36);
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.notes[0].pan, 1.0f);
    EXPECT_EQ(file.notes[1].pan, 0.0f);
}

TEST_F(Optimizer, LeavesNotesOnDifferentSidesAlone) {
    int low = -1;
    for (int key = 20; key < 60 && low < 0; ++key) {
        if (std::fabs(panAffinity(equalTempered(key)) - panAffinity(equalTempered(key + 1))) > 0.9f)
            low = key;
    }
    ASSERT_GE(low, 0);
    add(0.0, 1.0, low);
    add(0.0, 1.0, low + 1);
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 0);
    EXPECT_EQ(file.notes[0].pan, panAffinity(equalTempered(low)));
}

TEST_F(Optimizer, TouchingNotesDoNotOverlap) {
    add(0.0, 0.5, 36);
    add(0.5, 1.5, 37);
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 0);
}

TEST_F(Optimizer, EqualFrequenciesAreNotSplit) {
    add(0.0, 1.0, 36);
    add(0.5, 1.5, 36);
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 0);
}

TEST_F(Optimizer, NotesFartherApartThan40HzAreNotSplit) {
    add(0.0, 1.0, 81);  // 880 Hz
    add(0.0, 1.0, 82);  // 932.3 Hz
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 0);
}

TEST_F(Optimizer, ASplitNoteIsComparedAtItsNewSide) {
    // Three notes of one side: the first splits with the second (first left, second right); the third, still
    // on the right side, finds the first on the left and the second on its own side.
    add(0.0, 2.0, 36);
    add(0.5, 2.0, 37);
    add(1.0, 2.0, 38);
    for (const MidiNote& note : file.notes)
        ASSERT_EQ(panAffinity(equalTempered(note.note)), 1.0f);
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 2);
    EXPECT_EQ(file.notes[0].pan, 0.0f);
    EXPECT_EQ(file.notes[1].pan, 0.0f);
    EXPECT_EQ(file.notes[2].pan, 1.0f);
}

TEST_F(Optimizer, AFileWithoutNotesIsLeftAlone) {
    file.binauralPairs = 5;
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 5);
}

TEST_F(Optimizer, ThousandsOfNotesOfNoLengthAtOneInstantTakeNoQuadraticTime) {
    for (int i = 0; i < 200000; ++i)
        add(0.0, 0.0, 30 + i % 40);
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 0);
}

TEST_F(Optimizer, TimesThatAreNotFiniteAreHarmless) {
    const double nan = std::nan("");
    const double inf = HUGE_VAL;
    add(0.0, inf, 36);
    add(inf, inf, 37);
    add(nan, inf, 37);
    add(nan, nan, 36);
    optimizeMidiFile(file, engine);
    EXPECT_EQ(file.binauralPairs, 0);
}

}  // namespace
}  // namespace veloria
