// Whole sweeps, held against the literal walk.
#include <cmath>

#include "tests/walker/literal_walk.h"
#include "tests/walker/walk_fixture.h"

namespace veloria {
namespace {

class Sweep : public test::Walk {
  protected:
    void expectNotes(const test::LiteralStep& expected) const {
        ASSERT_EQ(static_cast<std::size_t>(walker.currentCount), expected.hz.size());
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(walker.currentFreqs[i], i < expected.hz.size() ? expected.hz[i] : 0);
        for (std::size_t i = 0; i < expected.hz.size(); ++i) {
            const Voice& voice = note(i);
            EXPECT_EQ(voice.frequency, expected.hz[i]);
            EXPECT_EQ(voice.pan, expected.pans[i]);
            EXPECT_EQ(voice.volume, expected.volume);
            EXPECT_EQ(voice.startTime, engine.time);
            EXPECT_NEAR(voice.endTime - voice.startTime, expected.seconds, 1e-9);
            EXPECT_EQ(voice.channel, 9);
        }
    }
    void expectState(const test::LiteralStep& expected) const {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(walker.drState[i], expected.state[i]);
            EXPECT_EQ(walker.drValue[i], expected.root[i]);
        }
        EXPECT_EQ(walker.triadKind, expected.kind);
        EXPECT_EQ(walker.tripletIndex, expected.triplet);
        EXPECT_EQ(walker.beatHz, static_cast<float>(expected.beat));
        EXPECT_EQ(walker.pairFirst, expected.first);
        EXPECT_EQ(walker.pairSecond, expected.second);
        EXPECT_NEAR(walker.currentY, expected.height / 100.0, 1e-6);
        if (expected.kind == 3 || expected.kind == 4) {
            EXPECT_EQ(walker.flashTick, now);
            EXPECT_EQ(walker.flashKind, expected.kind);
        } else {
            EXPECT_NE(walker.flashTick, now);
        }
        EXPECT_EQ(walker.flash147Tick == now, expected.kind == 1);
        EXPECT_EQ(walker.flash258Tick == now, expected.kind == 2);
    }
    // Walks two sweeps, since the digital-root states run on from one into the next.
    void walkAndCompare(int mode) {
        engine.activationMode = mode;
        walkerStart(walker, engine, now);
        int number = 0;
        for (const test::LiteralStep& expected : test::literalWalk(mode, walker.stepMs, 2)) {
            SCOPED_TRACE("mode " + std::to_string(mode) + ", step " + std::to_string(number++));
            engine.voices.clear();
            step();
            expectNotes(expected);
            expectState(expected);
            if (HasFatalFailure() || HasNonfatalFailure()) return;
        }
    }
};

TEST_F(Sweep, WithoutAModeTheRowsSound) {
    walkAndCompare(0);
}
TEST_F(Sweep, SingleModeTakesOneTriplet) {
    walkAndCompare(1);
}
TEST_F(Sweep, HeartModeTakesThreeTriplets) {
    walkAndCompare(2);
}
TEST_F(Sweep, TrinityModeTakesThreeAndTheBodyKeysOne) {
    walkAndCompare(3);
}
TEST_F(Sweep, FibonacciModeTakesEightTriplets) {
    walkAndCompare(4);
}
TEST_F(Sweep, AnotherStepTimeScalesTheDurations) {
    setWalkerSpeed(walker, 730);
    walkAndCompare(3);
}

// Heart triads and pairs wider than 40 Hz do not come in these sweeps: test_scale_walker.cpp has them.
TEST_F(Sweep, TheLiteralWalkHoldsTheCasesThatItIsToTest) {
    std::set<int> kinds;
    int equallyClose = 0, rightFirst = 0, laterPair = 0;
    for (const auto& step : test::literalWalk(0, 200, 2)) {
        kinds.insert(step.kind);
        if (step.hz.size() < 3) continue;
        equallyClose += std::abs(step.hz[0] - step.hz[1]) == std::abs(step.hz[1] - step.hz[2]) ? 1 : 0;
        rightFirst += step.pans[static_cast<std::size_t>(step.first)] == 1.0f ? 1 : 0;
        laterPair += step.second == 2 ? 1 : 0;
    }
    EXPECT_EQ(kinds, (std::set<int>{0, 1, 3, 4, 5}));
    EXPECT_GT(equallyClose, 0);
    EXPECT_GT(rightFirst, 0);
    EXPECT_GT(laterPair, 0);
}

TEST_F(Sweep, Has227TripletsAndOneSingleNoteAndThenBeginsAnew) {
    walkerStart(walker, engine, now);
    for (int i = 0; i < 227; ++i) {
        step();
        ASSERT_EQ(walker.currentCount, 3) << i;
        ASSERT_EQ(walker.position, 3 * (i + 1)) << i;
    }
    step();
    EXPECT_EQ(walker.currentCount, 1);
    EXPECT_EQ(walker.currentFreqs[0], 953);  // row 1
    EXPECT_EQ(walker.tripletIndex, 227);
    EXPECT_EQ(walker.triadKind, 0);
    EXPECT_EQ(walker.beatHz, 0.0f);
    EXPECT_EQ(walker.pairFirst, 0);
    EXPECT_EQ(walker.pairSecond, 1);
    EXPECT_EQ(walker.position, 0);
    step();
    EXPECT_EQ(walker.currentFreqs, (std::array<std::int32_t, 3>{952, 953, 954}));
    EXPECT_EQ(walker.tripletIndex, 0);
}

TEST_F(Sweep, TheWayBackRepeatsNeitherEnd) {
    walkerStart(walker, engine, now);
    steps(114);
    EXPECT_EQ(walker.currentFreqs, (std::array<std::int32_t, 3>{145, 146, 147}));  // rows 339 to 341
    step();
    EXPECT_EQ(walker.currentFreqs, (std::array<std::int32_t, 3>{146, 145, 137}));  // rows 340 to 338
}

// The triplets of one sweep at which a key sounds.
class KeyTones : public test::Walk {
  protected:
    std::set<int> tripletsThatSound(int mode, std::array<std::int32_t, 3> key) {
        engine.activationMode = mode;
        walkerStart(walker, engine, now);
        std::set<int> found;
        for (int i = 0; i < 228; ++i) {
            step();
            if (walker.currentFreqs == key) found.insert(i);
        }
        return found;
    }
};

TEST_F(KeyTones, SoundAtTheTripletsOfTheirModeAndNeverOnTheWayBack) {
    for (int mode = 0; mode <= 4; ++mode) {
        EXPECT_EQ(tripletsThatSound(mode, {322, 325, 358}), test::heartTriplets(mode)) << mode;
        EXPECT_EQ(tripletsThatSound(mode, {111, 114, 127}), mode == 3 ? std::set<int>{37} : std::set<int>{})
            << mode;
    }
}

TEST_F(KeyTones, TheBodyKeyStandsLeftCentreRightAndBeatsAtThreeHertz) {
    engine.activationMode = 3;
    walkerStart(walker, engine, now);
    steps(38);
    ASSERT_EQ(walker.tripletIndex, 37);
    const double hz[] = {111, 114, 127};
    const float pans[] = {0.0f, 0.5f, 1.0f};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(note(i).frequency, hz[i]);
        EXPECT_EQ(note(i).pan, pans[i]);
    }
    EXPECT_EQ(walker.beatHz, 3.0f);
    EXPECT_EQ(walker.pairFirst, 0);
    EXPECT_EQ(walker.pairSecond, 1);
}

TEST_F(KeyTones, ReplaceTheRowsOfTheFifthStepWhichSoundOtherwise) {
    walkerStart(walker, engine, now);
    steps(5);
    EXPECT_EQ(walker.currentFreqs, (std::array<std::int32_t, 3>{862, 863, 864}));
    engine.activationMode = 2;
    walkerStart(walker, engine, now);
    steps(5);
    EXPECT_EQ(walker.currentFreqs, (std::array<std::int32_t, 3>{322, 325, 358}));
    EXPECT_EQ(walker.position, 15);
    EXPECT_FLOAT_EQ(walker.currentY, 1.44f);  // the height stays that of the row
    step();
    EXPECT_EQ(walker.currentFreqs, (std::array<std::int32_t, 3>{872, 873, 874}));
}

TEST_F(KeyTones, AModeTurnedOnDuringTheWalkCountsFromTheNextStep) {
    walkerStart(walker, engine, now);
    steps(4);
    engine.activationMode = 1;
    step();
    EXPECT_EQ(walker.currentFreqs[0], 322);
}

}  // namespace
}  // namespace veloria
