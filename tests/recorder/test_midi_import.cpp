#include "recorder/midi_import.h"

#include <algorithm>
#include <limits>

#include "recorder/lanes.h"
#include "tests/recorder/recorder_fixture.h"

namespace veloria {
namespace {

using platform::fakePlatform;

MidiNote note(double start, double end, int key, float velocity = 1.0f) {
    return {start, end, key, velocity, 0, -1.0f};
}

class MidiImport : public test::RecorderTest {
  protected:
    MidiImport() { engine.sacredOptimizer = false; }  // keys in equal temperament, easy to work out

    ImportReport import(const std::vector<MidiNote>& notes, bool normalize = false) {
        MidiFile file;
        file.notes = notes;
        file.normalizeMatch = normalize ? 1 : 0;
        return importMidiClips(file, recorder, engine);
    }
    // The only clip of an import of one key.
    RecorderClip clipOfKey(int key, bool normalize = false) {
        import({note(0.0, 1.0, key)}, normalize);
        return *allClips(recorder).at(0);
    }
    // The channel of the clip with an id.
    std::int32_t channelOf(std::int32_t id) {
        for (RecorderClip* clip : allClips(recorder)) {
            if (clip->id == id) return findClip(recorder, clip).channel;
        }
        return -1;
    }
    float panOf(std::int32_t id) {
        for (const RecorderClip* clip : allClips(recorder)) {
            if (clip->id == id) return clip->pan;
        }
        return -1.0f;
    }
};

bool sameColour(const SDL_Color& a, const SDL_Color& b) {
    return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

TEST(DroneList, Has27And27And180RowsInThatOrder) {
    const std::vector<DroneEntry> list = makeDroneList();
    ASSERT_EQ(list.size(), 234u);
    EXPECT_EQ(list[0].frequency, 152.0);
    EXPECT_STREQ(list[0].kindLabel, "Reflect");
    EXPECT_EQ(list[0].name, "125");
    EXPECT_EQ(list[0].kind, 6);
    EXPECT_TRUE(sameColour(list[0].colour, {120, 80, 200, 255}));
    // The name is the tritype of the same row; the tables run through the tritypes in another order.
    EXPECT_EQ(list[10].frequency, 295.0);
    EXPECT_EQ(list[10].name, "259");
    EXPECT_EQ(list[10].index, 10);
    EXPECT_TRUE(sameColour(list[10].colour, {160, 130, 170, 255}));
    EXPECT_EQ(list[26].frequency, 497.0);
    EXPECT_EQ(list[26].name, "479");
    EXPECT_TRUE(sameColour(list[26].colour, {224, 210, 122, 255}));
    EXPECT_EQ(list[27].frequency, 125.0);
    EXPECT_STREQ(list[27].kindLabel, "Rotate");
    EXPECT_EQ(list[27].kind, 7);
    EXPECT_EQ(list[27].index, 0);
    EXPECT_TRUE(sameColour(list[27].colour, {60, 120, 180, 255}));
    EXPECT_TRUE(sameColour(list[53].colour, {190, 224, 102, 255}));
    EXPECT_EQ(list[54].frequency, 111.0);
    EXPECT_STREQ(list[54].kindLabel, "Shadow");
    EXPECT_EQ(list[54].name, "111");
    EXPECT_EQ(list[54].kind, 10);
    EXPECT_EQ(list[54].index, 0);
    EXPECT_EQ(list[233].frequency, 666.0);
    EXPECT_EQ(list[233].index, 215);
}

TEST(DroneList, ShadowRowsSkipTheAvatarNumbersAndAreColouredByTheirHighestDigit) {
    std::size_t shadows = 0;
    for (const DroneEntry& entry : makeDroneList()) {
        if (entry.kind != 10) continue;
        ++shadows;
        const std::string digits = std::to_string(static_cast<int>(entry.frequency));
        EXPECT_EQ(entry.name, digits);
        const auto count = [&digits](const char* of) {
            return std::count_if(digits.begin(), digits.end(),
                                 [of](char c) { return std::string(of).find(c) != std::string::npos; });
        };
        EXPECT_FALSE(count("1") == 1 && count("234") == 1 && count("56") == 1) << digits;
        SDL_Color expected{200, 80, 80, 255};
        if (count("5") > 0) expected = {80, 200, 80, 255};
        if (count("6") > 0) expected = {160, 80, 200, 255};
        EXPECT_TRUE(sameColour(entry.colour, expected)) << digits;
        EXPECT_EQ(entry.index, 36 * (digits[0] - '1') + 6 * (digits[1] - '1') + (digits[2] - '1'));
    }
    EXPECT_EQ(shadows, 180u);
}

TEST(DroneList, TheNearestRowIsTheFirstOfEquallyNearOnes) {
    const std::vector<DroneEntry> list = makeDroneList();
    const NearestDrone nearest(list, false);
    EXPECT_EQ(nearest(440.0).frequency, 441.0);
    EXPECT_EQ(nearest(8.0).frequency, 111.0);
    EXPECT_EQ(nearest(9000.0).frequency, 666.0);
    // Half-way between Reflection 286 (row 11) and 287 (row 13).
    EXPECT_EQ(nearest(286.5).index, 11);
    // Half-way between Reflection 285 (row 9) and Rotation 279 (row 14): Reflection comes first.
    EXPECT_EQ(nearest(282.0).frequency, 285.0);
}

TEST(DroneList, FoldingTakesWhatIsNoFrequencyAs440) {
    const std::vector<DroneEntry> list = makeDroneList();
    const NearestDrone nearest(list, true);
    EXPECT_EQ(nearest(0.0).frequency, 441.0);
    EXPECT_EQ(nearest(-3.0).frequency, 441.0);
    EXPECT_EQ(nearest(std::nan("")).frequency, 441.0);
    EXPECT_EQ(nearest(882.0).frequency, 666.0);  // inside the band: stays
    EXPECT_EQ(nearest(1764.0).frequency, 666.0);
    EXPECT_EQ(nearest(55.5).frequency, 111.0);
}

TEST(Lanes, ANoteTakesTheFirstLaneThatIsFree) {
    LanePacker packer;
    EXPECT_EQ(packer.place(0.0, 2.0), 0);
    EXPECT_EQ(packer.place(1.0, 3.0), 1);
    EXPECT_EQ(packer.place(2.0, 4.0), 0);  // begins exactly when the other ends
    EXPECT_EQ(packer.place(2.5, 9.0), 2);
    EXPECT_EQ(packer.place(3.0, 4.0), 1);
    EXPECT_EQ(packer.ends.size(), 3u);
}

TEST(Lanes, ANoteMayBeginAThousandthBeforeTheLastOneEnds) {
    LanePacker packer;
    EXPECT_EQ(packer.place(0.0, 1.0), 0);
    EXPECT_EQ(packer.place(0.9995, 2.0), 0);
    EXPECT_EQ(packer.place(1.998, 3.0), 1);
    LanePacker other;
    EXPECT_EQ(other.place(0.0, 0.001), 0);
    EXPECT_EQ(other.place(0.0, 1.0), 0) << "a thousandth, no less";
}

TEST(Lanes, With32TakenTheOneThatEndsFirstIsShared) {
    LanePacker packer;
    for (int i = 0; i < 32; ++i)
        EXPECT_EQ(packer.place(0.0, 10.0 - (i == 20 ? 5.0 : 0.0)), i);
    EXPECT_EQ(packer.place(0.0, 20.0), 20);
    EXPECT_EQ(packer.place(0.0, 30.0), 0);  // all end at 10: the first
    EXPECT_EQ(packer.place(0.0, 30.0), 1);
    EXPECT_EQ(packer.ends.size(), 32u);
}

TEST_F(MidiImport, AFileWithoutNotesIsRefusedAndTheRecorderKept) {
    add(0, 440.0, 0.0, 1.0);
    importMidiToRecorder({}, recorder, engine);
    EXPECT_EQ(recorder.clipCount, 1);
    EXPECT_EQ(fakePlatform().log, std::vector<std::string>{"messageBox Warning|Import|No MIDI file loaded!"});
}

TEST_F(MidiImport, OneMessageTellsOfNotesAndFilteredOnes) {
    MidiFile file;
    file.notes = {note(0.0, 1.0, 60), note(2.0, 3.0, 60), note(4.0, 4.01, 60)};
    importMidiToRecorder(file, recorder, engine);
    EXPECT_EQ(fakePlatform().count("messageBox Information|Import MIDI|Imported 2 notes into recorder (1 "
                                   "filtered: vel<8% or dur<30ms)."),
              1);
    file.notes = {note(0.0, 1.0, 69), note(0.0, 1.0, 68)};
    importMidiToRecorder(file, recorder, engine);
    EXPECT_EQ(fakePlatform().count("messageBox Information|Import MIDI|Imported 2 notes (0 filtered). "
                                   "Binaural optimization: 1 pairs split to L/R."),
              1);
}

TEST_F(MidiImport, AllNotesFilteredLeavesAnEmptyRecorder) {
    add(0, 440.0, 0.0, 1.0);
    const ImportReport report = import({note(0.0, 1.0, 60, 0.01f)});
    EXPECT_EQ(recorder.clipCount, 0);
    EXPECT_EQ(importMessage(report), "Imported 0 notes into recorder (1 filtered: vel<8% or dur<30ms).");
}

TEST_F(MidiImport, ReplacesWhatWasThereAndEndsItsVoices) {
    add(0, 440.0, 0.0, 10.0);
    recorder.nextClipId = 50;
    recorder.channelCount = 8;
    playAt(1.0);
    tickRecorder(recorder, 0.01f);
    import({note(30.0, 31.0, 60)});
    EXPECT_EQ(recorder.clipCount, 1);
    EXPECT_TRUE(held().empty());
    EXPECT_TRUE(recorder.activeClips.empty());
    EXPECT_TRUE(recorder.playing);
    EXPECT_NEAR(recorder.playhead, 1.01, 1e-8);
    EXPECT_EQ(recorder.channelCount, 8);  // only ever raised
}

TEST_F(MidiImport, ClipsAreCountedFromOneAndTheRecordersOwnCountIsLeftAlone) {
    import({note(0.0, 1.0, 60), note(1.0, 1.0, 60), note(2.0, 3.0, 60)});
    EXPECT_EQ(ids(), (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(recorder.nextClipId, 1);
}

TEST_F(MidiImport, TheFiltersPassWhatStandsOnTheirEdge) {
    EXPECT_EQ(import({note(0.0, 1.0, 60, 0.08f)}).filtered, 0);
    EXPECT_EQ(import({note(0.0, 1.0, 60, std::nextafter(0.08f, 0.0f))}).filtered, 1);
    EXPECT_EQ(import({note(0.0, 0.03, 60)}).filtered, 0);
    EXPECT_EQ(import({note(0.0, std::nextafter(0.03, 0.0), 60)}).filtered, 1);
    EXPECT_EQ(import({note(0.0, 1.0, 60, 10.0f / 127.0f)}).filtered, 1);
    EXPECT_EQ(import({note(0.0, 1.0, 60, 11.0f / 127.0f)}).filtered, 0);
}

TEST_F(MidiImport, NotesWithoutFiniteTimesAreFiltered) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const ImportReport report = import(
        {note(0.0, 1.0, 60), note(0.0, inf, 60), note(inf, inf, 60), note(nan, 1.0, 60), note(0.0, nan, 60)});
    EXPECT_EQ(report.clips, 1);
    EXPECT_EQ(report.filtered, 4);
    EXPECT_EQ(recorderEnd(recorder), 1.0);
}

TEST_F(MidiImport, AKeyIsNamedAfterItsNearestRowAndKeepsItsOwnFrequency) {
    const RecorderClip shadow = clipOfKey(69);
    EXPECT_EQ(shadow.label, "Shadow/441 440.0Hz");
    EXPECT_EQ(shadow.sourceKind, 10);
    EXPECT_EQ(shadow.sourceIndex, 126);
    EXPECT_EQ(shadow.pan, 0.5f);
    EXPECT_TRUE(sameColour(shadow.colour, {200, 80, 80, 255}));
    EXPECT_EQ(recorder.clips.at(0).count(44000), 1u);

    const RecorderClip reflect = clipOfKey(62);  // 293.66 Hz
    EXPECT_EQ(reflect.label, "Reflect/259 293.7Hz");
    EXPECT_EQ(reflect.sourceKind, 6);
    EXPECT_EQ(reflect.sourceIndex, 10);
    EXPECT_EQ(reflect.pan, 0.0f);
    EXPECT_TRUE(sameColour(reflect.colour, {160, 130, 170, 255}));

    const RecorderClip rotate = clipOfKey(61);  // 277.18 Hz
    EXPECT_EQ(rotate.label, "Rotate/278 277.2Hz");
    EXPECT_EQ(rotate.sourceKind, 7);
    EXPECT_EQ(rotate.sourceIndex, 13);
    EXPECT_EQ(rotate.pan, 1.0f);
    EXPECT_TRUE(sameColour(rotate.colour, {125, 172, 141, 255}));
    EXPECT_EQ(recorder.clips.at(0).count(27718), 1u);
}

TEST_F(MidiImport, AVeryLowKeyMatchesTheLowestRowUnlessNormalized) {
    EXPECT_EQ(clipOfKey(0).label, "Shadow/111 8.2Hz");
    EXPECT_EQ(recorder.clips.at(0).count(818), 1u);
    // 8.176 Hz folds to 130.81 Hz; the clip stays where the key is.
    EXPECT_EQ(clipOfKey(0, true).label, "Shadow/131 8.2Hz");
    EXPECT_EQ(recorder.clips.at(0).count(818), 1u);
}

TEST_F(MidiImport, ALabelIsCutTo63Characters) {
    const DroneEntry entry{111.0, "Shadow", "111", 10, 0, {}};
    EXPECT_EQ(importedLabel(entry, 8.25), "Shadow/111 8.2Hz");
    const std::string label = importedLabel(entry, 1e60);
    EXPECT_EQ(label.size(), 63u);
    EXPECT_EQ(label.substr(0, 12), "Shadow/111 9");
}

TEST_F(MidiImport, GainGoesFromMinusSixDownByVelocity) {
    import({note(0.0, 1.0, 60, 1.0f)});
    EXPECT_FLOAT_EQ(allClips(recorder)[0]->gainInDb, -6.0f);
    EXPECT_FLOAT_EQ(allClips(recorder)[0]->gainOutDb, -6.0f);
    import({note(0.0, 1.0, 60, 0.5f)});
    EXPECT_FLOAT_EQ(allClips(recorder)[0]->gainInDb, -9.0f);
    EXPECT_FLOAT_EQ(allClips(recorder)[0]->gainOutDb, -9.0f);
    import({note(0.0, 1.0, 60, 11.0f / 127.0f)});
    EXPECT_NEAR(allClips(recorder)[0]->gainInDb, -11.4803f, 1e-4);
}

TEST_F(MidiImport, EveryClipKeepsTheEnginesSettings) {
    engine.fibonacciCount = 14;
    engine.piCount = 1;
    engine.teslaCount = 2;
    engine.octaveSteps = -3;
    engine.phiSteps = 3;
    engine.fibPhase = 40;
    engine.teslaPhase = 50;
    engine.waveform = 2;
    engine.bassFilter = true;
    RecorderClip clip = clipOfKey(60);
    EXPECT_EQ(clip.overrides.fibonacciCount, 14);
    EXPECT_EQ(clip.overrides.piCount, 1);
    EXPECT_EQ(clip.overrides.teslaCount, 2);
    EXPECT_EQ(clip.overrides.octaveSteps, -3);
    EXPECT_EQ(clip.overrides.phiSteps, 3);
    EXPECT_EQ(clip.overrides.fibPhase, 40);
    EXPECT_EQ(clip.overrides.teslaPhase, 50);
    EXPECT_EQ(clip.overrides.waveform, 2);
    EXPECT_TRUE(clip.bassFilter);
    EXPECT_FALSE(clip.optimized);
    EXPECT_EQ(clip.tuningLabel, "Original MIDI");
    engine.sacredOptimizer = true;
    engine.bassFilter = false;
    clip = clipOfKey(60);
    EXPECT_TRUE(clip.optimized);
    EXPECT_FALSE(clip.bassFilter);
    EXPECT_EQ(clip.tuningLabel, "Sacred Optimizer");
}

TEST_F(MidiImport, TheBassFilterMovesTheClip) {
    engine.bassFilter = true;
    clipOfKey(96);  // folded to 73, 554.37 Hz
    EXPECT_EQ(recorder.clips.at(0).count(55437), 1u);
}

TEST_F(MidiImport, OverlappingNotesTakeLanesAndRaiseTheRows) {
    std::vector<MidiNote> notes;
    for (int i = 0; i < 6; ++i)
        notes.push_back(note(0.1 * i, 5.0, 40 + 5 * i));
    notes.push_back(note(5.0, 6.0, 40));
    import(notes);
    EXPECT_EQ(recorder.channelCount, 6);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(channelOf(i + 1), i);
    EXPECT_EQ(channelOf(7), 0);
}

TEST_F(MidiImport, FilteredNotesTakeUpTheirLanes) {
    import({note(0.0, 5.0, 40, 0.01f), note(0.0, 5.0, 50), note(0.0, 5.0, 60, 0.01f)});
    EXPECT_EQ(recorder.clipCount, 1);
    EXPECT_EQ(channelOf(1), 1);
    EXPECT_EQ(recorder.channelCount, 4);
}

TEST_F(MidiImport, AChordOf40FillsAllRowsAndShares) {
    std::vector<MidiNote> notes;
    for (int i = 0; i < 40; ++i)
        notes.push_back(note(0.0, 2.0 + 0.125 * i, 30 + i));
    import(notes);
    EXPECT_EQ(recorder.channelCount, 32);
    EXPECT_EQ(recorder.clipCount, 40);
    for (int i = 0; i < 32; ++i)
        EXPECT_EQ(channelOf(i + 1), i);
    // The last eight go where an end comes first: rows 0 to 7, each later than all others by then.
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(channelOf(33 + i), i);
}

TEST_F(MidiImport, CloseOverlappingClipsOfOneSideAreSplit) {
    // 440.0 and 415.3 Hz, both Shadow.
    EXPECT_EQ(import({note(0.0, 1.0, 69), note(0.5, 2.0, 68)}).pairs, 1);
    EXPECT_EQ(panOf(1), 1.0f);
    EXPECT_EQ(panOf(2), 0.0f);
    EXPECT_EQ(import({note(0.0, 1.0, 68), note(0.5, 2.0, 69)}).pairs, 1);
    EXPECT_EQ(panOf(1), 0.0f);
    EXPECT_EQ(panOf(2), 1.0f);
}

TEST_F(MidiImport, ASplitClipIsComparedAtItsNewSide) {
    // 415.3 and 440.0 Hz split. The first then stands left, where 392.0 Hz (Reflection) is: they split as
    // well, and 415.3 goes right.
    EXPECT_EQ(import({note(0.0, 1.0, 68), note(0.0, 1.0, 69), note(0.0, 1.0, 67)}).pairs, 2);
    EXPECT_EQ(panOf(1), 1.0f);
    EXPECT_EQ(panOf(2), 1.0f);
    EXPECT_EQ(panOf(3), 0.0f);
}

TEST_F(MidiImport, NothingElseIsSplit) {
    EXPECT_EQ(import({note(0.0, 1.0, 68), note(1.0, 2.0, 69)}).pairs, 0);  // touching
    EXPECT_EQ(import({note(0.0, 1.0, 69), note(0.0, 1.0, 69)}).pairs, 0);  // one frequency
    EXPECT_EQ(import({note(0.0, 1.0, 61), note(0.0, 1.0, 62)}).pairs, 0);  // Rotation and Reflection
    EXPECT_EQ(import({note(0.0, 1.0, 67), note(0.0, 1.0, 68)}).pairs, 0);  // Reflection and Shadow
    EXPECT_EQ(import({note(0.0, 1.0, 65), note(0.0, 1.0, 68)}).pairs, 0);  // 66 Hz apart
    EXPECT_EQ(panOf(1), 0.5f);
    EXPECT_EQ(panOf(2), 0.5f);
    // A filtered partner is none.
    EXPECT_EQ(import({note(0.0, 1.0, 68), note(0.0, 1.0, 69, 0.01f)}).pairs, 0);
}

TEST_F(MidiImport, AKeyOfADamagedFileIsTakenAsItIs) {
    import({note(0.0, 1.0, 255)});
    ASSERT_EQ(recorder.clipCount, 1);
    EXPECT_EQ(allClips(recorder)[0]->label.substr(0, 11), "Shadow/666 ");
}

}  // namespace
}  // namespace veloria
