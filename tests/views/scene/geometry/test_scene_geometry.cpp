#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <utility>

#include "views/scene/geometry/kathara_geometry.h"

namespace veloria {
namespace {

void expectPoint(Point3 point, double x, double y, double z) {
    EXPECT_NEAR(static_cast<double>(point.x), x, 2e-6);
    EXPECT_NEAR(static_cast<double>(point.y), y, 2e-6);
    EXPECT_NEAR(static_cast<double>(point.z), z, 2e-6);
}

double distance(Point3 a, Point3 b) {
    return std::sqrt(std::pow(a.x - b.x, 2) + std::pow(a.y - b.y, 2) + std::pow(a.z - b.z, 2));
}

TEST(FrequencyInSpace, OnesAndTensGiveTheDirectionAndHundredsTheHeight) {
    // 147: 7 at 240 degrees and 4 at 120, cosines -0.5 each; height (1 - 5) * 0.28.
    expectPoint(freqTo3D(147.0, 0.0f), -0.32, -1.12, 0.0);
    // 963: 3 at 80 degrees, 6 at 200.
    expectPoint(freqTo3D(963.0, 0.6f), (0.17364818 - 0.93969262) * 0.32, 1.72,
                (0.98480775 - 0.34202014) * 0.32);
    expectPoint(freqTo3D(111.0, 0.0f), 0.64, -1.12, 0.0);
}

TEST(FrequencyInSpace, ADigitOfNoughtStandsWhereNineDoes) {
    // Twice 320 degrees.
    expectPoint(freqTo3D(500.0, 0.0f), 0.76604444 * 0.64, 0.0, -0.64278761 * 0.64);
    const Point3 nines = freqTo3D(599.0, 0.0f);
    expectPoint(freqTo3D(500.0, 0.0f), static_cast<double>(nines.x), static_cast<double>(nines.y),
                static_cast<double>(nines.z));
    EXPECT_NEAR(static_cast<double>(freqTo3D(47.0, 0.0f).y), 4 * 0.28, 1e-6) << "no hundreds: nine";
}

TEST(FrequencyInSpace, PartsOfAHertzAreCutAndHundredsAreNotReduced) {
    const Point3 whole = freqTo3D(528.0, -0.6f);
    expectPoint(freqTo3D(528.999, -0.6f), static_cast<double>(whole.x), static_cast<double>(whole.y),
                static_cast<double>(whole.z));
    EXPECT_NEAR(static_cast<double>(freqTo3D(1000.0, 0.0f).y), 1.4, 1e-6);
}

TEST(FrequencyInSpace, WhatIsNoFrequencyHasAPlaceAllTheSame) {
    EXPECT_TRUE(std::isfinite(freqTo3D(std::nan(""), 0.0f).x));
    EXPECT_TRUE(std::isfinite(freqTo3D(1e300, 0.0f).y));
    EXPECT_TRUE(std::isfinite(freqTo3D(-440.0, 0.0f).z));
}

TEST(SceneGeometry, TheTreeIsHungBetweenItsRootAndItsCrown) {
    expectPoint(solfeggioTreePoints[0], 0, -2.4, 0);
    expectPoint(solfeggioTreePoints[11], 0, 2.2, 0);
    expectPoint(solfeggioTreePoints[3], 1.6, -0.9, 0.55);
    expectPoint(solfeggioTreePoints[8], -1.6, 0.9, -0.55);
    // Between them each odd node has its mirror image before or after it.
    for (std::size_t i = 1; i < 11; i += 2) {
        const Point3 node = solfeggioTreePoints[i];
        expectPoint(solfeggioTreePoints[i + 1], -static_cast<double>(node.x), static_cast<double>(node.y),
                    -static_cast<double>(node.z));
    }
}

TEST(SceneGeometry, SceneAndFileDisagreeOnThreeTeslaNodes) {
    const SolfeggioPoints scene = solfeggioTesla(kSceneTeslaOffsets);
    const SolfeggioPoints file = solfeggioTesla(kExportTeslaOffsets);
    for (std::size_t i = 0; i < scene.size(); ++i) {
        const double lift = i == 6 || i == 8 || i == 10 ? 1.2 : 0.0;
        EXPECT_NEAR(static_cast<double>(scene[i].y - file[i].y), lift, 1e-6) << i;
        EXPECT_EQ(scene[i].x, file[i].x);
    }
    EXPECT_NEAR(static_cast<double>(file[0].y), -1.12 - 0.6, 1e-6);
    EXPECT_NEAR(static_cast<double>(file[1].y), -1.12 + 0.6, 1e-6);
    expectPoint(scenePoints().solfeggioTeslaPoints[6], static_cast<double>(scene[6].x),
                static_cast<double>(scene[6].y), static_cast<double>(scene[6].z));
}

TEST(SceneGeometry, EveryEdgeIsThereOnce) {
    std::set<std::pair<int, int>> edges;
    const auto add = [&](NodeEdge edge) {
        EXPECT_NE(edge.from, edge.to);
        EXPECT_TRUE(edges.insert({std::min(edge.from, edge.to), std::max(edge.from, edge.to)}).second);
    };
    for (const NodeEdge& edge : treeEdges)
        add(edge);
    EXPECT_EQ(edges.size(), 15u);
    for (const NodeEdge& edge : crossEdges)
        add(edge);
    EXPECT_EQ(edges.size(), 23u);
    EXPECT_EQ(edges.rbegin()->second, 11);
    EXPECT_EQ(edges.count({1, 2}), 1u);
    EXPECT_EQ(edges.count({7, 10}), 1u);
}

TEST(SceneGeometry, OnTheRingNineIsOnTopAndTheDigitsRunClockwise) {
    expectPoint(enneagramPoint(9), 0, 2, 0);
    expectPoint(enneagramPoint(3), 2 * 0.8660254, -1, 0);
    expectPoint(enneagramPoint(6), -2 * 0.8660254, -1, 0);
    expectPoint(enneagramPoint(1), 2 * 0.6427876, 2 * 0.7660444, 0);
}

TEST(SceneGeometry, TheHexadIsTheCycleOfASeventh) {
    // 1 / 7 = 0.142857...
    int remainder = 1;
    for (const int place : kHexad) {
        EXPECT_EQ(place + 1, remainder * 10 / 7);
        remainder = remainder * 10 % 7;
    }
}

TEST(SceneGeometry, ThePyramidsAreOneShapeTurnedByThirds) {
    const PyramidCorners first = pyramidCorners(0);
    expectPoint(first[0], 2 * 0.6427876, 2 * 0.7660444, -0.636);
    expectPoint(first[1], 2 * 0.3420201, -2 * 0.9396926, -0.636);
    expectPoint(first[2], -2 * 0.9848078, 2 * 0.1736482, -0.636);
    expectPoint(first[3], 0, 0, 1.908);
    expectPoint(pyramidCorners(1)[3], 1.908 * 0.8660254, 0, -0.954);
    expectPoint(pyramidCorners(2)[3], -1.908 * 0.8660254, 0, -0.954);
    for (int pyramid = 0; pyramid < 3; ++pyramid) {
        const PyramidCorners corners = pyramidCorners(pyramid);
        EXPECT_NEAR(distance(corners[0], corners[1]), 2 * std::sqrt(3.0), 1e-5);
        EXPECT_NEAR(distance(corners[1], corners[2]), 2 * std::sqrt(3.0), 1e-5);
        EXPECT_NEAR(distance(corners[2], corners[3]), std::hypot(2.0, 2.544), 1e-5);
    }
}

TEST(SceneGeometry, TheFamiliesAreOneLadderShifted) {
    const ScenePoints& points = scenePoints();
    // 152, 147 (rotation, index 24) and 111.
    EXPECT_NEAR(static_cast<double>(points.reflectionPoints[0].y), -1.12 + 0.6, 1e-6);
    EXPECT_NEAR(static_cast<double>(points.rotationPoints[24].y), -1.12 - 0.6, 1e-6);
    EXPECT_NEAR(static_cast<double>(points.shadowPoints[0].y), -1.12, 1e-6);
    EXPECT_NEAR(static_cast<double>(points.shadowPoints[215].y), 0.28, 1e-6);
    EXPECT_EQ(&points, &scenePoints());
}

}  // namespace
}  // namespace veloria
