// How the notes fill the landscape.
#include "views/spectrum/spectrum_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include "views/shared/palettes.h"

namespace veloria {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Of a note in the row where it arrives, before it loses strength with the distance.
double bell(double column, double hz) {
    const double u = (100.0 + (column + 0.5) * 11.25 - hz) / 25.0;
    return std::exp(-0.5 * u * u);
}

class SpectrumNotes : public testing::Test {
  protected:
    void add(float hz, float progress, std::int32_t palette = 0) {
        addSpectrumNote(*grid, {hz, progress, 0.5f}, palette);
    }
    [[nodiscard]] float weight(int row, int column) const { return grid->at(row, column).weight; }
    [[nodiscard]] bool isEmpty() const {
        for (int row = 0; row < 50; ++row) {
            if (grid->used(row)) return false;
            for (int column = 0; column < 80; ++column) {
                const SpectrumCell& cell = grid->at(row, column);
                if (cell.red != 0 || cell.green != 0 || cell.blue != 0 || cell.weight != 0) return false;
            }
        }
        return true;
    }
    // The nearest used row; 50 when there is none.
    [[nodiscard]] int nearest() const {
        int row = 0;
        while (row < 50 && !grid->used(row))
            ++row;
        return row;
    }

    std::unique_ptr<SpectrumGrid> grid = std::make_unique<SpectrumGrid>();
};

TEST_F(SpectrumNotes, ColumnsAreElevenAndAQuarterHertzWide) {
    EXPECT_FLOAT_EQ(spectrumColumnFrequency(0), 105.625f);
    EXPECT_FLOAT_EQ(spectrumColumnFrequency(1), 116.875f);
    EXPECT_FLOAT_EQ(spectrumColumnFrequency(79), 994.375f);
}

TEST_F(SpectrumNotes, WithoutNotesTheGridIsEmpty) {
    EXPECT_TRUE(isEmpty());
    EXPECT_EQ(nearest(), 50);
}

TEST_F(SpectrumNotes, ANoteThatBeginsStandsInTheFarthestRowAlone) {
    add(550, 0.0f);
    EXPECT_EQ(nearest(), 49);
    EXPECT_NEAR(weight(49, 40), 0.975005, 1e-6) << "the only row of its rows has full strength";
    EXPECT_NEAR(weight(49, 40), bell(40, 550), 1e-6);
    EXPECT_EQ(weight(48, 40), 0.0f);
}

TEST_F(SpectrumNotes, ItComesNearerAsItSounds) {
    const auto rowAt = [&](float progress) {
        clearSpectrumGrid(*grid);
        add(550, progress);
        return nearest();
    };
    EXPECT_EQ(rowAt(0.01f), 48) << "48.51, cut";
    EXPECT_EQ(rowAt(0.5f), 24) << "24.5, cut";
    EXPECT_EQ(rowAt(0.75f), 12);
    EXPECT_EQ(rowAt(0.99f), 0);
    EXPECT_EQ(rowAt(1.0f), 0);
}

TEST_F(SpectrumNotes, ProgressIsHeldToItsRange) {
    add(550, -3.0f);
    EXPECT_EQ(nearest(), 49);
    add(550, 17.0f);
    EXPECT_EQ(nearest(), 0);
    clearSpectrumGrid(*grid);
    add(550, -kInfinity);
    EXPECT_EQ(nearest(), 49);
    add(550, kInfinity);
    EXPECT_EQ(nearest(), 0);
}

TEST_F(SpectrumNotes, StrengthFallsToAFifthOnTheWayToTheFarthestRow) {
    add(550, 1.0f);
    for (int row = 0; row < 50; ++row)
        EXPECT_NEAR(weight(row, 40), bell(40, 550) * (1.0 - 0.8 * row / 49.0), 1e-6) << row;
    EXPECT_NEAR(weight(49, 40), 0.195001, 1e-6);
    clearSpectrumGrid(*grid);
    add(550, 0.5f);  // rows 24 to 49
    for (int row = 24; row < 50; ++row)
        EXPECT_NEAR(weight(row, 40), bell(40, 550) * (1.0 - 0.8 * (row - 24) / 25.0), 1e-6) << row;
    clearSpectrumGrid(*grid);
    add(550, 0.03f);  // rows 47 to 49: 1, 0.6, 0.2
    EXPECT_NEAR(weight(48, 40), bell(40, 550) * 0.6, 1e-6);
}

TEST_F(SpectrumNotes, ANoteReachesSeventyFiveHertzToBothSides) {
    add(550, 1.0f);  // (550 - 175) / 11.25 = 33.3, (550 - 25) / 11.25 = 46.7
    for (int column = 0; column < 80; ++column) {
        const bool reached = column >= 33 && column <= 46;
        EXPECT_NEAR(weight(0, column), reached ? bell(column, 550) : 0.0, 1e-6) << column;
    }
    EXPECT_NEAR(weight(0, 33), std::exp(-0.5 * 2.925 * 2.925), 1e-6);
    EXPECT_GT(weight(0, 33), 0.0f);
}

TEST_F(SpectrumNotes, TheReachIsCutAtTheEdges) {
    add(90, 1.0f);  // to (90 - 25) / 11.25 = 5.8
    EXPECT_NEAR(weight(0, 0), bell(0, 90), 1e-6);
    EXPECT_NEAR(weight(0, 5), bell(5, 90), 1e-6);
    EXPECT_EQ(weight(0, 6), 0.0f);
    add(1010, 1.0f);  // from (1010 - 175) / 11.25 = 74.2
    EXPECT_NEAR(weight(0, 79), bell(79, 1010), 1e-6);
    EXPECT_NEAR(weight(0, 74), bell(74, 1010), 1e-6);
    EXPECT_EQ(weight(0, 73), 0.0f);
}

TEST_F(SpectrumNotes, ANoteOutsideTheReachLeavesNoTrace) {
    for (const float hz : {24.99f, 20.0f, 14.0f, 1.0f, 0.0f, -440.0f, 1075.0f, 1075.01f, 1080.0f, 20000.0f,
                           3e38f, kInfinity, -kInfinity, kNaN}) {
        add(hz, 1.0f);
        EXPECT_TRUE(isEmpty()) << hz;
    }
    add(550, kNaN);
    EXPECT_TRUE(isEmpty());
    add(25, 1.0f);
    EXPECT_GT(weight(0, 0), 0.0f);
    clearSpectrumGrid(*grid);
    add(1074, 1.0f);
    EXPECT_GT(weight(0, 79), 0.0f);
}

TEST_F(SpectrumNotes, ARowIsUsedFromAHundredthOn) {
    // At 1060 Hz column 79 gets exp(-0.5 * 2.625 * 2.625) = 0.0319, which falls below 0.01 with row 43.
    add(1060, 1.0f);
    EXPECT_NEAR(weight(0, 79), 0.031895, 1e-6);
    for (int row = 0; row < 50; ++row) {
        EXPECT_EQ(grid->used(row), bell(79, 1060) * (1.0 - 0.8 * row / 49.0) > 0.01) << row;
        EXPECT_EQ(grid->used(row), row <= 42) << row;
        EXPECT_GT(weight(row, 79), 0.0f) << "though it is not used";
    }
}

TEST_F(SpectrumNotes, WeakNotesDoNotMakeARowUsedTogether) {
    for (int i = 0; i < 100; ++i)
        add(1074, 1.0f);  // 0.0063 each
    EXPECT_GT(weight(0, 79), 0.5f);
    EXPECT_EQ(nearest(), 50);
}

TEST_F(SpectrumNotes, ColoursAreMeansByWeight) {
    add(420, 1.0f, 1);
    add(450, 1.0f, 1);
    const SDL_Color low = chakraColour(420);  // (208, 255, 0)
    const SDL_Color high = chakraColour(450);
    ASSERT_FALSE(low.r == high.r);
    for (const int row : {0, 20, 49}) {
        const double lowWeight = bell(28, 420) * (1.0 - 0.8 * row / 49.0);
        const double highWeight = bell(28, 450) * (1.0 - 0.8 * row / 49.0);
        const SpectrumCell& cell = grid->at(row, 28);
        EXPECT_NEAR(cell.weight, lowWeight + highWeight, 1e-5);
        EXPECT_NEAR(cell.red, (lowWeight * low.r + highWeight * high.r) / 255.0, 1e-5);
        EXPECT_NEAR(cell.green / cell.weight, 1.0, 1e-5) << "both are fully green";
        EXPECT_NEAR(cell.red / cell.weight * 255.0,
                    (lowWeight * low.r + highWeight * high.r) / (lowWeight + highWeight), 1e-3);
        EXPECT_EQ(cell.blue, 0.0f);
    }
}

TEST_F(SpectrumNotes, NotesOfOneFrequencyAddUp) {
    add(550, 1.0f);
    const SpectrumCell one = grid->at(10, 41);
    add(550, 1.0f);
    const SpectrumCell two = grid->at(10, 41);
    EXPECT_FLOAT_EQ(two.weight, 2.0f * one.weight);
    EXPECT_FLOAT_EQ(two.red / two.weight, one.red / one.weight);
    EXPECT_FLOAT_EQ(two.blue / two.weight, one.blue / one.weight);
    add(550, 0.0f);
    EXPECT_FLOAT_EQ(grid->at(10, 41).weight, two.weight) << "a newer one is not there yet";
}

TEST_F(SpectrumNotes, ThePaletteColoursThem) {
    add(462, 1.0f, 0);
    const SpectrumCell avatar = grid->at(0, 32);
    clearSpectrumGrid(*grid);
    add(462, 1.0f, 1);
    const SpectrumCell chakra = grid->at(0, 32);
    EXPECT_EQ(avatar.weight, chakra.weight);
    EXPECT_NEAR(avatar.red / avatar.weight, 135.0 / 255.0, 1e-5);   // 135.2, cut
    EXPECT_NEAR(avatar.green / avatar.weight, 87.0 / 255.0, 1e-5);  // 87.6
    EXPECT_NEAR(avatar.blue / avatar.weight, 39.0 / 255.0, 1e-5);   // 39.9
    EXPECT_NEAR(chakra.red / chakra.weight, 127.0 / 255.0, 1e-5);
    EXPECT_NEAR(chakra.green / chakra.weight, 1.0, 1e-5);
    EXPECT_EQ(chakra.blue, 0.0f);
}

TEST_F(SpectrumNotes, FillingForgetsWhatWasThere) {
    const std::vector<ActiveNote> first{{300, 1.0f, 0.5f}, {700, 0.2f, 0.0f}};
    fillSpectrumGrid(*grid, first, 0);
    EXPECT_GT(weight(0, 17), 0.5f);
    EXPECT_GT(weight(45, 53), 0.5f);
    const std::vector<ActiveNote> second{{700, 0.2f, 1.0f}};
    fillSpectrumGrid(*grid, second, 0);
    EXPECT_EQ(weight(0, 17), 0.0f);
    EXPECT_EQ(nearest(), 39);
    fillSpectrumGrid(*grid, {}, 0);
    EXPECT_TRUE(isEmpty());
}

TEST_F(SpectrumNotes, HundredsOfNotesFit) {
    const std::vector<ActiveNote> notes(500, {550, 1.0f, 0.5f});
    fillSpectrumGrid(*grid, notes, 1);
    EXPECT_NEAR(weight(0, 40), 500.0 * bell(40, 550), 0.05);
}

}  // namespace
}  // namespace veloria
