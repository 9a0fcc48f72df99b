// Where the flat grid's points stand.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "frequency/tables.h"
#include "views/kathara/solfeggio_grid.h"
#include "views/scene/geometry/solfeggio_nodes.h"

namespace veloria {
namespace {

constexpr SDL_Rect kRect{10, 20, 520, 500};  // inner: 472 by 480 from (34, 30)

testing::AssertionResult isAt(SDL_Point seen, int x, int y) {
    if (seen.x == x && seen.y == y) return testing::AssertionSuccess();
    return testing::AssertionFailure() << seen.x << ", " << seen.y;
}

TEST(SolfeggioGridLayout, TheInnerRectangleLeavesRoomForTexts) {
    const SolfeggioGridLayout layout = solfeggioGridLayout(kRect);
    EXPECT_TRUE(SDL_RectEquals(&layout.area, &kRect));
    const SDL_Rect inner{34, 30, 472, 480};
    EXPECT_TRUE(SDL_RectEquals(&layout.inner, &inner));
}

TEST(SolfeggioGridLayout, TheNodesFormATreeFromTheLowestUp) {
    const SolfeggioGridLayout layout = solfeggioGridLayout(kRect);
    const int xs[] = {236, 339, 132, 415, 56, 339, 132, 415, 56, 339, 132, 236};  // of 472
    const int ys[] = {456, 393, 393, 316, 316, 240, 240, 163, 163, 86, 86, 24};   // of 480
    for (std::size_t i = 0; i < 12; ++i)
        EXPECT_TRUE(isAt(layout.nodes[i], 34 + xs[i], 30 + ys[i])) << i;
}

TEST(SolfeggioGridLayout, TheNineDigitsStandRoundTheMiddle) {
    const SolfeggioGridLayout layout = solfeggioGridLayout(kRect);
    const int xs[] = {320, 368, 349, 283, 188, 122, 103, 151, 236};
    const int ys[] = {129, 206, 297, 355, 355, 297, 206, 129, 96};
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_TRUE(isAt(layout.digits[i], 34 + xs[i], 30 + ys[i])) << i + 1;
}

// The digits of a number, the smallest first.
std::array<int, 3> sortedDigits(double frequency) {
    const int number = static_cast<int>(frequency);
    std::array<int, 3> digits{number / 100, number / 10 % 10, number % 10};
    std::sort(digits.begin(), digits.end());
    return digits;
}

TEST(SolfeggioGridLayout, ATritypesSixFrequenciesAreTheOrdersOfItsDigits) {
    const std::string order =
        "125 126 127 135 136 137 145 146 147 258 259 268 269 278 279 358 359 368 369 378 379 458 459 468 469 "
        "478 479";
    for (std::size_t t = 0; t < 27; ++t) {
        const std::string name = order.substr(4 * t, 3);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(tritypes[t][i], name[i] - '0') << name;
            EXPECT_EQ(sortedDigits(reflectionFreqs[3 * t + i]), tritypes[t]) << name;
            EXPECT_EQ(sortedDigits(rotationFreqs[3 * t + i]), tritypes[t]) << name;
        }
    }
}

// The pixel that holds an exact place, whatever the last digits of single precision.
bool holds(int pixel, double exact) {
    return exact - pixel > -1e-3 && exact - pixel < 1.0 + 1e-3;
}

TEST(SolfeggioGridLayout, EachClusterIsMovedOffItsTrianglesMiddle) {
    const SolfeggioGridLayout layout = solfeggioGridLayout(kRect);
    for (int t = 0; t < 27; ++t) {
        double x = 0.0;
        double y = 0.0;
        for (const int digit : tritypes[static_cast<std::size_t>(t)]) {
            x += layout.digits[static_cast<std::size_t>(digit) - 1].x / 3.0;
            y += layout.digits[static_cast<std::size_t>(digit) - 1].y / 3.0;
        }
        x += std::cos(t * 2.399) * (t % 7 * 2.5 + 6);
        y += std::sin(t * 2.399) * (t % 7 * 2.5 + 6);
        const TritypeCluster& cluster = layout.clusters[static_cast<std::size_t>(t)];
        for (int k = 0; k < 3; ++k) {
            const SDL_Point reflection = cluster.reflectionDots[static_cast<std::size_t>(k)];
            EXPECT_TRUE(holds(reflection.x, x + 7 * std::cos(k * 2.0944 - 1.5708))) << t << ", " << k;
            EXPECT_TRUE(holds(reflection.y, y + 7 * std::sin(k * 2.0944 - 1.5708))) << t << ", " << k;
            const SDL_Point rotation = cluster.rotationDots[static_cast<std::size_t>(k)];
            EXPECT_TRUE(holds(rotation.x, x + 7 * std::cos(k * 2.0944 + 0.5236))) << t << ", " << k;
            EXPECT_TRUE(holds(rotation.y, y + 7 * std::sin(k * 2.0944 + 0.5236))) << t << ", " << k;
        }
    }
}

TEST(SolfeggioGridLayout, TheFirstClusterByHand) {
    // Digits 1, 2, 5: (354, 159), (402, 236), (222, 385) have their middle at (326, 260); tritype 0 is moved
    // by 6 pixels to the right.
    const TritypeCluster cluster = solfeggioGridLayout(kRect).clusters[0];
    EXPECT_TRUE(isAt(cluster.reflectionDots[1], 338, 263)) << "6.06 across, 3.5 down";
    EXPECT_TRUE(isAt(cluster.rotationDots[0], 338, 263)) << "the same place";
    EXPECT_TRUE(isAt(cluster.rotationDots[1], 325, 263));
}

TEST(SolfeggioGridLayout, TheBackdropIsASquareInTheMiddle) {
    const SDL_Rect wide = solfeggioGridLayout({10, 20, 648, 420}).backdrop;  // inner 600 by 400
    const SDL_Rect wideWanted{134, 30, 400, 400};
    EXPECT_TRUE(SDL_RectEquals(&wide, &wideWanted));
    const SDL_Rect high = solfeggioGridLayout({10, 20, 348, 520}).backdrop;  // inner 300 by 500
    const SDL_Rect highWanted{34, 130, 300, 300};
    EXPECT_TRUE(SDL_RectEquals(&high, &highWanted));
}

TEST(SolfeggioGridLayout, LabelsAndLegendGoByTheOuterCorner) {
    const SolfeggioGridLayout layout = solfeggioGridLayout(kRect);
    EXPECT_TRUE(isAt(layout.realmLabels[0], 14, 20 + 480 - 20));
    EXPECT_TRUE(isAt(layout.realmLabels[1], 14, 20 + 240 + 4));
    EXPECT_TRUE(isAt(layout.realmLabels[2], 14, 34));
    EXPECT_TRUE(isAt(layout.reflectionKey, 10 + 472 - 60, 20 + 480 - 8));
    EXPECT_TRUE(isAt(layout.rotationKey, 10 + 472 - 36, 20 + 480 - 8));
}

TEST(SolfeggioGridLayout, ARectangleWithoutRoomIsStillLaidOut) {
    const SolfeggioGridLayout layout = solfeggioGridLayout({5, 5, 0, -3});
    EXPECT_EQ(layout.inner.w, -48);
    EXPECT_LE(layout.backdrop.w, 0);
    EXPECT_TRUE(isAt(layout.nodes[0], 29 - 24, 15 - 21));
}

TEST(SolfeggioNodes, EachNamesACentre) {
    const std::array<std::string, 12> centres = {"Earth Star",   "Earth Gate", "Root Base",   "Sacral",
                                                 "Solar Plexus", "Third Eye",  "Throat Core", "Heart Core",
                                                 "Solar Core",   "Galactic 1", "Galactic 2",  "Soul Star"};
    for (std::size_t i = 0; i < 12; ++i)
        EXPECT_EQ(solfeggioNodes[i].centre, centres[i]);
}

}  // namespace
}  // namespace veloria
