#include <cstdint>
#include <limits>

#include "engine/audio_lock.h"
#include "engine/control.h"
#include "tests/walker/walk_fixture.h"

namespace veloria {
namespace {

class Walker : public test::Walk {};

using Freqs = std::array<std::int32_t, 3>;

// A table of the test's own, all rows in the centre.
ScaleTable g_smallTable;

const ScaleTable& smallScale() {
    return g_smallTable;
}

void setSmallScale(const std::vector<double>& hz) {
    g_smallTable = ScaleTable{};
    for (const double frequency : hz)
        g_smallTable.rows[static_cast<std::size_t>(g_smallTable.count++)] = {frequency, 0.5f, 0.25f};
}

TEST_F(Walker, DefaultsAreThoseOfAWalkThatNeverBegan) {
    EXPECT_FALSE(walker.running);
    EXPECT_EQ(walker.position, 0);
    EXPECT_EQ(walker.stepMs, 200);
    EXPECT_EQ(walker.currentFreqs, (Freqs{0, 0, 0}));
    EXPECT_EQ(walker.currentCount, 0);
    EXPECT_EQ(walker.drState, (Freqs{1, 1, 1}));
    EXPECT_EQ(walker.drValue, (Freqs{1, 1, 1}));
    EXPECT_EQ(walker.pairFirst, 0);
    EXPECT_EQ(walker.pairSecond, 1);
    EXPECT_EQ(walker.flashTick, 0u);
    EXPECT_EQ(ScaleWalker{}.scaleSource, &buildScaleTable);
}

TEST_F(Walker, TheFirstStepFallsOneStepTimeAfterTheStart) {
    walkerStart(walker, engine, 1000);
    EXPECT_TRUE(walker.running);
    walkerTick(walker, engine, 1000);
    walkerTick(walker, engine, 1199);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(walker.position, 0);
    walkerTick(walker, engine, 1200);
    EXPECT_EQ(engine.voices.size(), 3u);
    EXPECT_EQ(walker.position, 3);
}

TEST_F(Walker, TheFirstStepSoundsTheThreeTopRowsAsAPairWithItsThirdInTheCentre) {
    walkerStart(walker, engine, now);
    step();
    EXPECT_EQ(walker.currentFreqs, (Freqs{952, 953, 954}));
    EXPECT_EQ(walker.beatHz, 1.0f);
    EXPECT_EQ(walker.pairFirst, 0);
    EXPECT_EQ(walker.pairSecond, 1);
    EXPECT_EQ(note(0).pan, 0.0f);
    EXPECT_EQ(note(1).pan, 1.0f);
    EXPECT_EQ(note(2).pan, 0.5f);
    EXPECT_EQ(walker.drState[0], 56);
    EXPECT_EQ(walker.drValue[0], 2);
    EXPECT_EQ(walker.triadKind, 5);  // the roots 2, 3, 4
    EXPECT_FLOAT_EQ(walker.currentY, 1.72f);
}

TEST_F(Walker, NotesCarryTwoFibonacciPartialsAndLeaveTheRestToTheSettings) {
    walkerStart(walker, engine, now);
    step();
    for (std::size_t i = 0; i < 3; ++i) {
        const Voice& voice = note(i);
        EXPECT_EQ(voice.overrides.fibonacciCount, 2);
        EXPECT_EQ(voice.overrides.piCount, 0);
        EXPECT_EQ(voice.overrides.teslaCount, 0);
        EXPECT_EQ(voice.overrides.octaveSteps, -1);
        EXPECT_EQ(voice.overrides.phiSteps, -1);
        EXPECT_EQ(voice.overrides.fibPhase, -1);
        EXPECT_EQ(voice.overrides.teslaPhase, -1);
        EXPECT_EQ(voice.overrides.waveform, -1);
        EXPECT_EQ(voice.targetVolume, -1.0f);
        EXPECT_EQ(voice.midiNote, -1);
    }
}

TEST_F(Walker, AStepEndsTheOneBeforeBy20Milliseconds) {
    walkerStart(walker, engine, now);
    step();
    const double begun = engine.time;
    EXPECT_DOUBLE_EQ(engine.voices[0].endTime, begun + 0.25);
    step();
    ASSERT_EQ(engine.voices.size(), 6u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_DOUBLE_EQ(engine.voices[i].endTime, begun + 0.2 + 0.02);
}

TEST_F(Walker, ANoteThatEndedByItselfIsNotLengthenedByALateTick) {
    walkerStart(walker, engine, now);
    step();
    const double end = engine.voices[0].endTime;
    now += 5000;
    step();
    EXPECT_EQ(engine.voices[0].endTime, end);
}

TEST_F(Walker, ALateTickPlaysOneStepAndTheNextCountsFromIt) {
    walkerStart(walker, engine, 0);
    walkerTick(walker, engine, 1050);
    EXPECT_EQ(walker.position, 3);
    walkerTick(walker, engine, 1249);
    EXPECT_EQ(walker.position, 3);
    walkerTick(walker, engine, 1250);
    EXPECT_EQ(walker.position, 6);
}

TEST_F(Walker, AStepOf30MillisecondsFallsOnEverySecondFrameOf16) {
    setWalkerSpeed(walker, 30);
    walkerStart(walker, engine, 0);
    int played = 0;
    for (std::uint32_t frame = 1; frame <= 100; ++frame) {
        const std::int32_t before = walker.position;
        walkerTick(walker, engine, frame * 16);
        played += walker.position != before ? 1 : 0;
    }
    EXPECT_EQ(played, 50);
}

TEST_F(Walker, TheClockMayWrapDuringAStep) {
    walkerStart(walker, engine, 0xFFFFFFFFu - 99);
    walkerTick(walker, engine, 99);
    EXPECT_EQ(walker.position, 0);
    walkerTick(walker, engine, 100);
    EXPECT_EQ(walker.position, 3);
}

TEST_F(Walker, TicksBeforeTheStartAndAfterTheStopDoNothing) {
    walkerTick(walker, engine, 100000);
    EXPECT_TRUE(engine.voices.empty());
    EXPECT_EQ(walker.lastTickMs, 0u);
    walkerStart(walker, engine, now);
    walkerStop(walker, engine);
    steps(3);
    EXPECT_TRUE(engine.voices.empty());
}

TEST_F(Walker, StopEndsTheNotesAndKeepsTheDigitalRoots) {
    walkerStart(walker, engine, now);
    steps(2);
    const auto states = walker.drState;
    walkerStop(walker, engine);
    EXPECT_FALSE(walker.running);
    EXPECT_EQ(walker.position, 0);
    EXPECT_EQ(walker.currentCount, 0);
    EXPECT_EQ(walker.currentFreqs, (Freqs{0, 0, 0}));
    EXPECT_EQ(walker.drState, states);
    EXPECT_NE(states, (Freqs{1, 1, 1}));
    for (std::size_t i = 3; i < 6; ++i)
        EXPECT_DOUBLE_EQ(engine.voices[i].endTime, engine.time + 0.02);
}

TEST_F(Walker, AStartDuringAWalkEndsItsNotesAndBeginsAtTheTop) {
    walkerStart(walker, engine, now);
    steps(40);
    walker.flashTick = 11;
    walker.flashKind = 4;
    walker.pairFirst = 1;
    walker.pairSecond = 2;
    walker.flash147Tick = walker.flash258Tick = 12;
    walkerStart(walker, engine, now + 50);
    for (std::size_t i = engine.voices.size() - 3; i < engine.voices.size(); ++i)
        EXPECT_DOUBLE_EQ(engine.voices[i].endTime, engine.time + 0.02);
    EXPECT_TRUE(walker.running);
    EXPECT_EQ(walker.position, 0);
    EXPECT_EQ(walker.lastTickMs, now + 50);
    EXPECT_EQ(walker.currentCount, 0);
    EXPECT_EQ(walker.drState, (Freqs{1, 1, 1}));
    EXPECT_EQ(walker.drValue, (Freqs{1, 1, 1}));
    EXPECT_EQ(walker.beatHz, 0.0f);
    EXPECT_EQ(walker.triadKind, 0);
    EXPECT_EQ(walker.tripletIndex, 0);
    EXPECT_EQ(walker.flash147Tick, 0u);
    EXPECT_EQ(walker.flash258Tick, 0u);
    // These outlive a start.
    EXPECT_EQ(walker.flashTick, 11u);
    EXPECT_EQ(walker.flashKind, 4);
    EXPECT_EQ(walker.pairFirst, 1);
    EXPECT_EQ(walker.pairSecond, 2);
}

TEST_F(Walker, ToggleStartsAndStops) {
    walkerToggle(walker, engine, now);
    EXPECT_TRUE(walker.running);
    EXPECT_EQ(walker.lastTickMs, now);
    step();
    walkerToggle(walker, engine, now);
    EXPECT_FALSE(walker.running);
    EXPECT_DOUBLE_EQ(engine.voices[0].endTime, engine.time + 0.02);
}

TEST_F(Walker, SpeedIsHeldTo30To1000Milliseconds) {
    const std::pair<std::int32_t, std::int32_t> cases[] = {{10, 30},
                                                           {30, 30},
                                                           {31, 31},
                                                           {1000, 1000},
                                                           {1001, 1000},
                                                           {5000, 1000},
                                                           {std::numeric_limits<std::int32_t>::min(), 30},
                                                           {std::numeric_limits<std::int32_t>::max(), 1000}};
    for (const auto& [asked, kept] : cases) {
        setWalkerSpeed(walker, asked);
        EXPECT_EQ(walker.stepMs, kept) << asked;
    }
}

TEST_F(Walker, ASweepIsTwiceTheRowsLessTheTwoEnds) {
    EXPECT_EQ(walkerStepCount(342), 682);
    EXPECT_EQ(walkerStepCount(3), 4);
    EXPECT_EQ(walkerStepCount(2), 2);
    EXPECT_EQ(walkerStepCount(1), 0);
    EXPECT_EQ(walkerStepCount(0), 0);
    EXPECT_EQ(walkerStepCount(), 0);  // the process's own table is not built in this test
}

TEST_F(Walker, ATableOfFewerThanTwoRowsIsNoWalk) {
    walker.scaleSource = smallScale;
    for (const std::vector<double>& rows : {std::vector<double>{}, std::vector<double>{440.0}}) {
        setSmallScale(rows);
        walkerStart(walker, engine, now);
        steps(3);
        EXPECT_TRUE(engine.voices.empty());
        EXPECT_EQ(walker.position, 0);
        EXPECT_TRUE(walker.running);
    }
}

TEST_F(Walker, TwoNotesAreAPairAndNoTriad) {
    setSmallScale({440.0, 430.0});
    walker.scaleSource = smallScale;
    walkerStart(walker, engine, now);
    step();
    ASSERT_EQ(engine.voices.size(), 2u);
    EXPECT_EQ(walker.currentCount, 2);
    EXPECT_EQ(walker.triadKind, 0);
    EXPECT_EQ(walker.beatHz, 10.0f);
    EXPECT_EQ(note(0).pan, 1.0f);  // the higher one
    EXPECT_EQ(note(1).pan, 0.0f);
    EXPECT_EQ(note(0).volume, 0.7f);
    EXPECT_EQ(walker.drState[2], 1);
    EXPECT_EQ(walker.position, 0);
}

TEST_F(Walker, OfEqualTonesTheFirstIsTheLeftOne) {
    setSmallScale({440.0, 440.0});
    walker.scaleSource = smallScale;
    walkerStart(walker, engine, now);
    step();
    EXPECT_EQ(note(0).pan, 0.0f);
    EXPECT_EQ(note(1).pan, 1.0f);
    EXPECT_EQ(walker.beatHz, 0.0f);
}

TEST_F(Walker, APairOf40HertzIsPannedAndAWiderOneIsNot) {
    walker.scaleSource = smallScale;
    setSmallScale({300.0, 340.0});
    walkerStart(walker, engine, now);
    step();
    EXPECT_EQ(note(0).pan, 0.0f);
    EXPECT_EQ(note(1).pan, 1.0f);
    setSmallScale({300.0, 341.0});
    walkerStart(walker, engine, now);
    step();
    EXPECT_EQ(note(0).pan, 0.5f);
    EXPECT_EQ(note(1).pan, 0.5f);
    EXPECT_EQ(walker.beatHz, 41.0f);
}

TEST_F(Walker, TheClosestOfThreePairsWinsAndTheEarlierOneATie) {
    struct Case {
        std::vector<double> hz;
        float beat;
        int first, second;
        std::array<float, 3> pans;
    };
    const Case cases[] = {
        {{300, 310, 305}, 5, 0, 2, {0.0f, 0.5f, 1.0f}},
        {{300, 310, 307}, 3, 1, 2, {0.5f, 1.0f, 0.0f}},
        {{300, 310, 320}, 10, 0, 1, {0.0f, 1.0f, 0.5f}},
        {{300, 200, 250}, 50, 0, 2, {0.5f, 0.5f, 0.5f}},
    };
    walker.scaleSource = smallScale;
    for (const Case& c : cases) {
        setSmallScale(c.hz);
        walkerStart(walker, engine, now);
        step();
        EXPECT_EQ(walker.beatHz, c.beat);
        EXPECT_EQ(walker.pairFirst, c.first);
        EXPECT_EQ(walker.pairSecond, c.second);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(note(i).pan, c.pans[i]) << c.hz[2] << " " << i;
    }
}

// In a first step a tone's root is that of its first and last digits' sum.
TEST_F(Walker, EachKindOfTriadHasItsVolumeAndItsStamp) {
    struct Case {
        std::vector<double> hz;
        std::int32_t kind;
        float volume;
        bool flash, flash258, flash147;
    };
    const Case cases[] = {
        {{101, 101, 103}, 0, 0.7f, false, false, false}, {{106, 100, 103}, 1, 0.8f, false, false, true},
        {{107, 101, 104}, 2, 0.85f, false, true, false}, {{108, 105, 102}, 3, 0.85f, true, false, false},
        {{101, 111, 121}, 4, 0.95f, true, false, false}, {{101, 102, 103}, 5, 0.7f, false, false, false},
    };
    walker.scaleSource = smallScale;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.kind);
        setSmallScale(c.hz);
        walkerStart(walker, engine, now);
        step();
        EXPECT_EQ(walker.triadKind, c.kind);
        EXPECT_EQ(walker.flashTick == now, c.flash);
        EXPECT_EQ(walker.flash258Tick == now, c.flash258);
        EXPECT_EQ(walker.flash147Tick == now, c.flash147);
        if (c.flash) {
            EXPECT_EQ(walker.flashKind, c.kind);
        }
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(note(i).volume, c.volume);
    }
}

TEST_F(Walker, AStampNeverReadsAsNever) {
    setSmallScale({440.0, 440.0, 440.0});  // three equal roots: Unity
    walker.scaleSource = smallScale;
    walkerStart(walker, engine, 0u - 200u);
    walkerTick(walker, engine, 0);
    ASSERT_EQ(walker.triadKind, 4);
    EXPECT_EQ(walker.flashTick, 1u);
    EXPECT_EQ(walker.flashKind, 4);
    EXPECT_EQ(note(0).volume, 0.95f);
}

TEST_F(Walker, ADroneAtATonesFrequencyEndsWithTheTone) {
    engine.activationMode = 2;
    startDrones(engine);
    walkerStart(walker, engine, now);
    steps(5);  // the Heart Key sounds 322 and 325 as the drones do
    ASSERT_EQ(walker.currentFreqs[0], 322);
    EXPECT_GT(engine.voices[0].endTime, 7000.0);
    step();
    EXPECT_DOUBLE_EQ(engine.voices[0].endTime, engine.time + 0.02);
    EXPECT_DOUBLE_EQ(engine.voices[1].endTime, engine.time + 0.02);
}

int g_depth = 0;
int g_deepest = 0;
int g_holds = 0;

TEST_F(Walker, EachNoteTakesAndGivesBackTheLockByItself) {
    walkerStart(walker, engine, now);
    step();
    installAudioLock({[] {
                          ++g_holds;
                          g_deepest = std::max(g_deepest, ++g_depth);
                      },
                      [] { --g_depth; }});
    step();
    EXPECT_EQ(g_holds, 6);
    walkerStop(walker, engine);
    EXPECT_EQ(g_holds, 9);
    installAudioLock({nullptr, nullptr});
    EXPECT_EQ(g_deepest, 1);
    EXPECT_EQ(g_depth, 0);
}

}  // namespace
}  // namespace veloria
