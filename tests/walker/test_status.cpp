#include <array>

#include "tests/walker/walk_fixture.h"
#include "walker/status.h"

namespace veloria {
namespace {

constexpr std::int32_t kSteps = 682;

class Status : public test::Walk {
  protected:
    std::string line(std::int32_t mode = 0) const { return walkerLine(walker, mode, kSteps).text; }
};

TEST_F(Status, BeforeTheFirstStepThereIsNoWalkerLine) {
    walkerStart(walker, engine, now);
    EXPECT_EQ(line(), "");
    EXPECT_EQ(digitalRootLine(walker).text, "DR: L=1 C=1 R=1  Silence");
    EXPECT_EQ(binauralLine(walker).text, "");
}

TEST_F(Status, ATripletIsShownWithItsNumberTonesHeightAndPhase) {
    walkerStart(walker, engine, now);
    step();
    EXPECT_EQ(line(), "T0/114  952+953+954  Y=1.72  [IGNITION]");
    EXPECT_EQ(walkerLine(walker, 0, kSteps).colour, (Rgba{180, 140, 255, 220}));
    steps(113);
    EXPECT_EQ(line(), "T113/114  145+146+147  Y=-1.72  [TRANSCEND]");
    step();
    EXPECT_EQ(line(), "T114/114  146+145+137  Y=-1.72  [TRANSCEND]");
}

TEST_F(Status, AHeartStandsBehindATripletOfTheHeartKey) {
    engine.activationMode = 3;
    walkerStart(walker, engine, now);
    steps(5);
    EXPECT_EQ(line(3), "T4/114  322+325+358  Y=1.44  [IGNITION] \xE2\x99\xA5");
    EXPECT_EQ(line(0), "T4/114  322+325+358  Y=1.44  [IGNITION]");
    steps(33);
    EXPECT_EQ(walker.tripletIndex, 37);
    EXPECT_EQ(line(3).find("\xE2\x99\xA5"), std::string::npos);  // the Body Key has no mark
    EXPECT_EQ(line(3).rfind("T37/114  111+114+127  ", 0), 0u);
}

TEST_F(Status, TheSingleNoteIsShownWithThePositionThatWasReset) {
    walkerStart(walker, engine, now);
    steps(228);
    EXPECT_EQ(line(), "0/682  953Hz  Y=1.72");
    EXPECT_EQ(binauralLine(walker).text, "");
    EXPECT_EQ(digitalRootLine(walker).text.rfind("  Silence"), digitalRootLine(walker).text.size() - 9);
}

TEST_F(Status, TwoNotesAreJoinedWithoutAUnit) {
    walker.currentCount = 2;
    walker.currentFreqs = {430, 441, 0};
    walker.currentY = -0.28f;
    walker.position = 2;
    walker.beatHz = 11.0f;
    EXPECT_EQ(walkerLine(walker, 0, 2).text, "2/2  430+441  Y=-0.28");
    EXPECT_EQ(binauralLine(walker).text, "Binaural: 11.0 Hz  Alpha");
}

TEST_F(Status, PhasesChangeAtTriplets20And80And108) {
    const std::pair<std::int32_t, const char*> phases[] = {
        {0, "IGNITION"},   {19, "IGNITION"},   {20, "DISTILL"},    {79, "DISTILL"},   {80, "CONVERGE"},
        {107, "CONVERGE"}, {108, "TRANSCEND"}, {113, "TRANSCEND"}, {227, "TRANSCEND"}};
    for (const auto& [triplet, name] : phases)
        EXPECT_STREQ(phaseName(triplet), name) << triplet;
}

TEST_F(Status, DigitalRootsAreShownWithTheirTriadInItsColour) {
    walker.drValue = {3, 9, 6};
    walker.triadKind = 3;
    EXPECT_EQ(digitalRootLine(walker).text, "DR: L=3 C=9 R=6  Mind/369");
    EXPECT_EQ(digitalRootLine(walker).colour, (Rgba{220, 100, 255, 255}));
}

TEST_F(Status, TheBeatIsShownWithItsBandInTheBandsColour) {
    walker.currentCount = 3;
    struct Case {
        float hz;
        const char* text;
        Rgba colour;
    };
    const Case cases[] = {
        {1.0f, "Binaural: 1.0 Hz  Delta", {100, 160, 255, 230}},
        {4.0f, "Binaural: 4.0 Hz  Delta", {100, 160, 255, 230}},
        {8.0f, "Binaural: 8.0 Hz  Theta", {160, 100, 255, 230}},
        {13.0f, "Binaural: 13.0 Hz  Alpha", {100, 255, 160, 230}},
        {30.0f, "Binaural: 30.0 Hz  Beta", {255, 200, 80, 230}},
        {30.5f, "Binaural: 30.5 Hz  Gamma", {255, 100, 100, 230}},
        {108.0f, "Binaural: 108.0 Hz  Gamma", {255, 100, 100, 230}},
    };
    for (const Case& c : cases) {
        walker.beatHz = c.hz;
        EXPECT_EQ(binauralLine(walker).text, c.text);
        EXPECT_EQ(binauralLine(walker).colour, c.colour) << c.hz;
    }
    walker.beatHz = 0.0f;
    EXPECT_EQ(binauralLine(walker).text, "");
    walker.beatHz = 3.0f;
    walker.currentCount = 1;
    EXPECT_EQ(binauralLine(walker).text, "");
    EXPECT_EQ(bandColour(0.0f), (Rgba{100, 160, 255, 230}));
}

TEST_F(Status, TheModeLineIsEmptyWithoutAMode) {
    EXPECT_EQ(modeLine(0).text, "");
    EXPECT_EQ(modeLine(1).text, "Heart: Single (T4)");
    EXPECT_EQ(modeLine(4).text, "Fibonacci: H=6 M=3 B=3 U=5");
    EXPECT_EQ(modeLine(3).colour, (Rgba{255, 200, 80, 230}));
}

TEST_F(Status, TheSpeedIsShownInMilliseconds) {
    EXPECT_EQ(walkerSpeedText(walker), "SPEED: 200 ms");
    setWalkerSpeed(walker, 10);
    EXPECT_EQ(walkerSpeedText(walker), "SPEED: 30 ms");
}

TEST_F(Status, FlashesFadeFromTheirTriadOn) {
    struct Case {
        std::uint32_t elapsed;
        int mind, heart, body;
    };
    const Case cases[] = {
        {0, 40, 45, 35},  {500, 26, 33, 23}, {750, 20, 28, 17}, {1000, 13, 22, 11},     {1499, 0, 11, 0},
        {1500, 0, 11, 0}, {1900, 0, 2, 0},   {2000, 0, 0, 0},   {4000000000u, 0, 0, 0},
    };
    walker.flashTick = walker.flash258Tick = walker.flash147Tick = 7000;
    walker.flashKind = 3;
    for (const Case& c : cases) {
        const std::array<Rgba, 3> bands = walkerFlashes(walker, 7000 + c.elapsed);
        EXPECT_EQ(bands[0].a, c.mind) << c.elapsed;
        EXPECT_EQ(bands[1].a, c.heart) << c.elapsed;
        EXPECT_EQ(bands[2].a, c.body) << c.elapsed;
    }
}

TEST_F(Status, EachFlashHasItsColour) {
    walker.flashTick = walker.flash258Tick = walker.flash147Tick = 7000;
    walker.flashKind = 3;
    EXPECT_EQ(walkerFlashes(walker, 7000)[0], (Rgba{140, 60, 255, 40}));
    walker.flashKind = 4;
    const std::array<Rgba, 3> bands = walkerFlashes(walker, 7000);
    EXPECT_EQ(bands[0], (Rgba{255, 220, 60, 40}));
    EXPECT_EQ(bands[1], (Rgba{255, 60, 120, 45}));
    EXPECT_EQ(bands[2], (Rgba{255, 140, 40, 35}));
}

TEST_F(Status, WithoutAStampNothingFlashesEvenInTheFirstMilliseconds) {
    walkerStart(walker, engine, 0);
    for (const Rgba& band : walkerFlashes(walker, 100))
        EXPECT_EQ(band.a, 0);
}

}  // namespace
}  // namespace veloria
