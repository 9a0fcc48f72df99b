// Settings, mode changes, what they clear, and the report.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

// Every stream field away from its cleared state.
void soil(SacredFft& retuner) {
    retuner.inputRing.fill(0.1f);
    retuner.outputRing.fill(0.2f);
    retuner.inputPos = 11;
    retuner.outputRead = 12;
    retuner.outputWrite = 13;
    retuner.hopCount = 14;
    retuner.fillCount = 15;
    retuner.synthPhase.fill(0.3);
    retuner.lastPhase.fill(0.4);
    retuner.timeRing.fill(0.5f);
    retuner.timeWrite = 16;
    retuner.timeRead = 17.5;
    retuner.timeWarmup = 4;
}

template <class Array, class Value>
bool holdsOnly(const Array& values, Value value) {
    return std::all_of(values.begin(), values.end(), [&](auto entry) { return entry == value; });
}

bool isCleared(const SacredFft& retuner) {
    return holdsOnly(retuner.inputRing, 0.0f) && holdsOnly(retuner.outputRing, 0.0f) &&
           retuner.inputPos == 0 && retuner.outputRead == 0 && retuner.outputWrite == 0 &&
           retuner.hopCount == 0 && retuner.fillCount == 0 && holdsOnly(retuner.synthPhase, 0.0) &&
           holdsOnly(retuner.lastPhase, 0.0) && holdsOnly(retuner.timeRing, 0.0f) && retuner.timeWrite == 0 &&
           retuner.timeRead == 0.0 && retuner.timeWarmup == 0;
}

bool isSoiled(const SacredFft& retuner) {
    return holdsOnly(retuner.inputRing, 0.1f) && holdsOnly(retuner.outputRing, 0.2f) &&
           retuner.inputPos == 11 && retuner.outputRead == 12 && retuner.outputWrite == 13 &&
           retuner.hopCount == 14 && retuner.fillCount == 15 && holdsOnly(retuner.synthPhase, 0.3) &&
           holdsOnly(retuner.lastPhase, 0.4) && holdsOnly(retuner.timeRing, 0.5f) &&
           retuner.timeWrite == 16 && retuner.timeRead == 17.5 && retuner.timeWarmup == 4;
}

TEST(Settings, startOffAtFullStrengthOn528) {
    const auto retuner = std::make_unique<SacredFft>();
    const RetunerSettings settings = loadSettings(*retuner);
    EXPECT_EQ(settings.mode, 0);
    EXPECT_EQ(settings.strength, 100);
    EXPECT_EQ(settings.targetIndex, 8);
    EXPECT_EQ(sacredTargets[8], 528.0);
    EXPECT_TRUE(isCleared(*retuner));
}

TEST(Settings, anIndexOutsideTheTableIsTakenAsItsNearestEnd) {
    const auto retuner = std::make_unique<SacredFft>();
    retuner->targetIndex = 13;
    EXPECT_EQ(loadSettings(*retuner).targetIndex, 12);
    retuner->targetIndex = -1;
    EXPECT_EQ(loadSettings(*retuner).targetIndex, 0);
}

TEST(SetMode, leavingOffClearsTheStreams) {
    for (const int mode : {1, 2, 3}) {
        auto retuner = fixture::makeRetuner();
        soil(*retuner);
        retuner->SetMode(mode);
        EXPECT_EQ(retuner->mode.load(), mode);
        EXPECT_TRUE(isCleared(*retuner)) << mode;
    }
}

TEST(SetMode, betweenTheOtherModesNothingIsCleared) {
    for (const int from : {1, 2, 3}) {
        for (const int to : {0, 1, 2, 3}) {
            auto retuner = fixture::makeRetuner();
            retuner->mode = from;
            soil(*retuner);
            retuner->SetMode(to);
            EXPECT_EQ(retuner->mode.load(), to);
            EXPECT_TRUE(isSoiled(*retuner)) << from << " to " << to;
        }
    }
}

TEST(SetMode, offToOffDoesNothing) {
    auto retuner = fixture::makeRetuner();
    soil(*retuner);
    retuner->SetMode(0);
    EXPECT_TRUE(isSoiled(*retuner));
}

TEST(SetModeOff, clearsNothingAndKeepsTheStatistics) {
    auto retuner = fixture::makeRetuner();
    retuner->mode = 1;
    retuner->peakCount = 5;
    retuner->avgShiftHz = 2.5f;
    soil(*retuner);
    setModeOff(*retuner);
    EXPECT_EQ(retuner->mode.load(), 0);
    EXPECT_TRUE(isSoiled(*retuner));
    EXPECT_EQ(retuner->peakCount.load(), 5);
    EXPECT_EQ(retuner->avgShiftHz.load(), 2.5f);
    setModeOff(*retuner);
    EXPECT_EQ(retuner->mode.load(), 0);
}

TEST(ResetStreams, leavesSettingsTablesAndStatisticsAlone) {
    auto retuner = fixture::makeRetuner();
    soil(*retuner);
    retuner->mode = 2;
    retuner->strength = 40;
    retuner->targetIndex = 3;
    retuner->peakCount = 2;
    retuner->peaks[1] = {1.0f, 2.0f, 0.5f, 7};
    retuner->avgShiftHz = 1.5f;
    retuner->binsShifted = 6;
    retuner->peaksFound = 8;
    retuner->maxMagnitude = 9.0f;
    retuner->ResetStreams();
    EXPECT_TRUE(isCleared(*retuner));
    EXPECT_EQ(retuner->mode.load(), 2);
    EXPECT_EQ(retuner->strength.load(), 40);
    EXPECT_EQ(retuner->targetIndex.load(), 3);
    EXPECT_EQ(retuner->peakCount.load(), 2);
    EXPECT_EQ(retuner->peaks[1].harmonic, 7);
    EXPECT_EQ(retuner->avgShiftHz.load(), 1.5f);
    EXPECT_EQ(retuner->binsShifted.load(), 6);
    EXPECT_EQ(retuner->peaksFound.load(), 8);
    EXPECT_EQ(retuner->maxMagnitude, 9.0f);
    EXPECT_EQ(retuner->hannWindow, fixture::tables().hannWindow);
    EXPECT_EQ(retuner->binTarget, fixture::tables().binTarget);
    EXPECT_EQ(retuner->solfeggioRatio, fixture::tables().solfeggioRatio);
}

TEST(ModeChange, fromFullToPeakTheStreamRunsOnWithoutAGap) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(1);
    retuner->strength = 0;
    const std::vector<float> input = fixture::noise(30000, 9);
    std::vector<float> output;
    for (std::size_t n = 0; n < input.size(); ++n) {
        if (n == 15000) retuner->SetMode(2);
        output.push_back(retuner->processSample(input[n]));
    }
    for (std::size_t n = 8000; n < output.size(); ++n)
        ASSERT_NEAR(output[n], input[n - 4096], 1e-3) << n;
}

TEST(ModeChange, throughOffTheSilenceBeginsAnew) {
    auto retuner = fixture::makeRetuner();
    const std::vector<float> input = fixture::tone(700.0, 9000);
    retuner->SetMode(1);
    fixture::run(*retuner, input);
    setModeOff(*retuner);
    EXPECT_EQ(retuner->processSample(0.375f), 0.375f);
    retuner->SetMode(2);
    const std::vector<float> output = fixture::run(*retuner, input);
    for (std::size_t n = 0; n < 4096; ++n)
        ASSERT_EQ(output[n], 0.0f);
    EXPECT_GT(std::abs(output[8000]) + std::abs(output[8010]), 0.01f);
}

TEST(ModeChange, eachPathGoesOnFromWhatItsOwnRingsHeld) {
    auto retuner = fixture::makeRetuner();
    retuner->SetMode(1);
    retuner->strength = 0;
    const std::vector<float> input = fixture::noise(20000, 10);
    std::vector<float> output;
    std::vector<float> straight(input.begin(), input.begin() + 10000);
    for (std::size_t n = 0; n < input.size(); ++n) {
        if (n == 10000) retuner->SetMode(3);
        if (n == 12000) retuner->SetMode(1);
        const float x = retuner->processSample(input[n]);
        if (n >= 10000 && n < 12000) continue;
        output.push_back(x);
        if (n >= 12000) straight.push_back(input[n]);
    }
    EXPECT_EQ(retuner->timeWrite, 2000u);
    for (std::size_t n = 8000; n < output.size(); ++n)
        ASSERT_NEAR(output[n], straight[n - 4096], 1e-3) << n;
}

TEST(ModeChange, theSettingsOfAFrameDecideAndNotTheStoredMode) {
    auto retuner = fixture::makeRetuner();
    const RetunerSettings settings = loadSettings(*retuner);
    retuner->SetMode(1);
    EXPECT_EQ(retuner->processSample(0.5f, settings), 0.5f);
    EXPECT_EQ(retuner->inputPos, 0);
}

TEST(Report, isACopyOfWhatThePanelShows) {
    auto retuner = fixture::makeRetuner();
    retuner->mode = 2;
    retuner->strength = 55;
    retuner->targetIndex = 7;
    retuner->avgShiftHz = 3.5f;
    retuner->binsShifted = 4;
    retuner->peaksFound = 12;
    retuner->maxMagnitude = 99.0f;
    retuner->peakCount = 2;
    retuner->peaks[0] = {100.0f, 101.0f, 1.0f, 3};
    retuner->peaks[1] = {200.0f, 202.0f, 0.25f, 0};
    const RetunerReport copy = report(*retuner);
    retuner->peaks[1].level = 0.0f;
    EXPECT_EQ(copy.mode, 2);
    EXPECT_EQ(copy.strength, 55);
    EXPECT_EQ(copy.targetIndex, 7);
    EXPECT_NEAR(copy.solfeggioRatio, 432.0 / 440.0, 1e-15);
    EXPECT_EQ(copy.avgShiftHz, 3.5f);
    EXPECT_EQ(copy.binsShifted, 4);
    EXPECT_EQ(copy.peaksFound, 12);
    EXPECT_EQ(copy.maxMagnitude, 99.0f);
    EXPECT_EQ(copy.peakCount, 2);
    EXPECT_EQ(copy.peaks[0].targetHz, 101.0f);
    EXPECT_EQ(copy.peaks[1].level, 0.25f);
}

}  // namespace
}  // namespace veloria
