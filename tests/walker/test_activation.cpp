#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <vector>

#include "engine/control.h"
#include "tests/walker/literal_walk.h"
#include "walker/activation.h"

namespace veloria {
namespace {

// The drones that go on, by frequency; what was told to end within 20 ms does not.
std::multiset<double> lastingDrones(const SynthEngine& engine) {
    std::multiset<double> found;
    for (const Voice& voice : engine.voices) {
        if (voice.endTime > engine.time + 1000.0) found.insert(voice.frequency);
    }
    return found;
}

const std::multiset<double> kTwo = {322, 325};
const std::multiset<double> kFour = {111, 114, 322, 325};
const std::multiset<double> kNone = {};

TEST(HeartTriplets, StandInTheListOfEachMode) {
    for (std::int32_t mode = -1; mode <= 4; ++mode) {
        for (std::uint32_t t = 0; t < 230; ++t) {
            EXPECT_EQ(isHeartTriplet(t, mode), test::heartTriplets(mode).count(static_cast<int>(t)) == 1)
                << "triplet " << t << ", mode " << mode;
        }
    }
    EXPECT_FALSE(isHeartTriplet(4, 0));
    EXPECT_FALSE(isHeartTriplet(4, std::numeric_limits<std::int32_t>::min()));
    EXPECT_FALSE(isHeartTriplet(37, 3));  // the Body Key's, which has no mark
}

TEST(KeyTonesAt, TheBodyKeyComesInTrinityModeOnly) {
    using Tones = std::array<double, 3>;
    for (std::int32_t mode = 0; mode <= 4; ++mode) {
        const Tones* tones = keyTonesAt(37, mode);
        EXPECT_EQ(tones != nullptr, mode == 3) << mode;
        if (tones != nullptr) {
            EXPECT_EQ(*tones, (Tones{111, 114, 127}));
        }
    }
    ASSERT_NE(keyTonesAt(4, 1), nullptr);
    EXPECT_EQ(*keyTonesAt(4, 1), (Tones{322, 325, 358}));
    EXPECT_EQ(keyTonesAt(5, 4), nullptr);
}

TEST(ActivationButtons, AreARadioGroupThatCanBeAllOff) {
    using Toggle = void (*)(SynthEngine&, bool);
    struct Case {
        Toggle toggle;
        std::int32_t was, becomes;
    };
    const std::vector<Case> cases = {
        {toggleHeart, 0, 2},     {toggleHeart, 1, 0},     {toggleHeart, 2, 0},     {toggleHeart, 3, 2},
        {toggleHeart, 4, 2},     {toggleTrinity, 0, 3},   {toggleTrinity, 1, 3},   {toggleTrinity, 2, 3},
        {toggleTrinity, 3, 0},   {toggleTrinity, 4, 3},   {toggleFibonacci, 0, 4}, {toggleFibonacci, 1, 4},
        {toggleFibonacci, 2, 4}, {toggleFibonacci, 3, 4}, {toggleFibonacci, 4, 0},
    };
    for (const Case& c : cases) {
        SynthEngine engine;
        engine.activationMode = c.was;
        c.toggle(engine, false);
        EXPECT_EQ(engine.activationMode, c.becomes) << c.was;
    }
}

TEST(ActivationDrones, NoneBeginWhileNoFilePlays) {
    SynthEngine engine;
    toggleFibonacci(engine, false);
    EXPECT_FALSE(engine.dronesOn);
    EXPECT_TRUE(engine.voices.empty());
}

TEST(ActivationDrones, BeginWithTheModeWhileAFilePlays) {
    struct Case {
        void (*toggle)(SynthEngine&, bool);
        std::multiset<double> drones;
    };
    for (const Case& c :
         {Case{toggleHeart, kTwo}, Case{toggleTrinity, kFour}, Case{toggleFibonacci, kFour}}) {
        SynthEngine engine;
        c.toggle(engine, true);
        EXPECT_TRUE(engine.dronesOn);
        EXPECT_EQ(lastingDrones(engine), c.drones);
    }
}

TEST(ActivationDrones, EndWhenTheModeIsTurnedOffAlsoWithoutAFile) {
    for (const bool playing : {true, false}) {
        SynthEngine engine;
        toggleTrinity(engine, true);
        toggleTrinity(engine, playing);
        EXPECT_FALSE(engine.dronesOn);
        EXPECT_EQ(lastingDrones(engine), kNone);
    }
}

TEST(ActivationDrones, AnotherModeRestartsThemInItsNumber) {
    SynthEngine engine;
    toggleTrinity(engine, true);
    toggleHeart(engine, true);
    EXPECT_EQ(engine.activationMode, 2);
    EXPECT_EQ(lastingDrones(engine), kTwo);  // the Body drones have ended
    EXPECT_EQ(engine.voices.size(), 6u);
    toggleFibonacci(engine, true);
    EXPECT_EQ(lastingDrones(engine), kFour);
    EXPECT_TRUE(engine.dronesOn);
}

TEST(ActivationDrones, ThatRunAreRestartedThoughThePlayingFlagIsOff) {
    SynthEngine engine;
    toggleHeart(engine, true);
    toggleTrinity(engine, false);
    EXPECT_TRUE(engine.dronesOn);
    EXPECT_EQ(lastingDrones(engine), kFour);
}

TEST(ActivationDrones, TurningOffWithoutDronesLeavesOtherVoicesAlone) {
    SynthEngine engine;
    engine.activationMode = 2;
    noteOn(engine, {.frequency = 322.0, .volume = 0.5f, .duration = 5000.0});
    toggleHeart(engine, false);
    EXPECT_EQ(lastingDrones(engine), (std::multiset<double>{322}));
}

TEST(ActivationTexts, PanelWordAndModeLineOfEachMode) {
    struct Row {
        const char *word, *line;
        Rgba colour;
    };
    const Row rows[] = {{"", "", {0, 0, 0, 0}},
                        {"SINGLE", "Heart: Single (T4)", {255, 100, 140, 220}},
                        {"TRIPLE", "Heart: Triple (T4+T20+T109)", {255, 100, 140, 220}},
                        {"TRINITY", "Trinity: H=3 M=3 B=3 U=4", {255, 200, 80, 230}},
                        {"FIBONACCI", "Fibonacci: H=6 M=3 B=3 U=5", {100, 220, 255, 230}}};
    for (std::int32_t mode = 0; mode <= 4; ++mode) {
        const ActivationRow& row = activationRow(mode);
        EXPECT_STREQ(row.panelWord, rows[mode].word);
        EXPECT_STREQ(row.modeLine, rows[mode].line);
        EXPECT_EQ(row.modeLineColour, rows[mode].colour) << mode;
    }
    EXPECT_STREQ(activationRow(5).panelWord, "");
    EXPECT_STREQ(activationRow(-1).panelWord, "");
    EXPECT_EQ(activationTitle(2), "ACTIVATION: TRIPLE [H]");
    EXPECT_EQ(activationTitle(4), "ACTIVATION: FIBONACCI [H]");
    EXPECT_EQ(activationTitle(0), "");
}

TEST(ActivationTexts, KeyLinesOfTheBodyBeginWithTrinityMode) {
    const ActivationLine lines[] = {{"Heart Key: 322+325+358 Hz", {255, 120, 160, 200}, 1},
                                    {"  3Hz Theta + 33Hz Gamma", {200, 100, 140, 180}, 1},
                                    {"Body Key: 111+114+127 Hz", {255, 160, 80, 200}, 3},
                                    {"  3Hz Theta + 13Hz Alpha", {200, 130, 60, 180}, 3}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_STREQ(kActivationLines[i].text, lines[i].text);
        EXPECT_EQ(kActivationLines[i].colour, lines[i].colour) << i;
        EXPECT_EQ(kActivationLines[i].fromMode, lines[i].fromMode) << i;
    }
    EXPECT_STREQ(kDroneLine.text, "Theta Drone: ACTIVE (-18dB)");
    EXPECT_EQ(kDroneLine.colour, (Rgba{80, 255, 160, 220}));
    EXPECT_EQ(kActivationTitleColour, (Rgba{255, 130, 180, 230}));
}

}  // namespace
}  // namespace veloria
