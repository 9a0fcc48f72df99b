#include "views/scene/geometry/wire_model.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/scratch_folder.h"
#include "tests/views/scene/geometry/literal_wire.h"
#include "tests/views/scene/geometry/stl_bytes.h"

namespace veloria {
namespace {

using test::ScratchFolder;
using test::StlCorner;
using test::stlFile;
using test::stlHead;
using test::StlTriangle;
using Bytes = std::vector<std::uint8_t>;

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kLargest = std::numeric_limits<float>::max();

WireModel read(const Bytes& bytes, float halfSize = 2.0f, float floorCut = 0.0f, int gridSize = 80) {
    WireModel model;
    readWireModel(model, bytes, halfSize, floorCut, gridSize);
    return model;
}

std::string_view text(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

testing::AssertionResult isEmpty(const WireModel& model) {
    if (model.loaded) return testing::AssertionFailure() << "loaded";
    if (!model.edges.empty()) return testing::AssertionFailure() << model.edges.size() << " edges";
    if (model.scale != 0.0f) return testing::AssertionFailure() << "a scale of " << model.scale;
    return testing::AssertionSuccess();
}

testing::AssertionResult isEdge(const WireEdge& edge, Point3 from, Point3 to) {
    const auto near = [](Point3 a, Point3 b) {
        return std::abs(a.x - b.x) < 1e-5f && std::abs(a.y - b.y) < 1e-5f && std::abs(a.z - b.z) < 1e-5f;
    };
    if (near(edge.from, from) && near(edge.to, to)) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "(" << edge.from.x << ", " << edge.from.y << ", " << edge.from.z << ") to (" << edge.to.x
           << ", " << edge.to.y << ", " << edge.to.z << ")";
}

// One whose box is 8 by 4 by 2 with its middle at (4, 2, 1).
const StlTriangle kLarge{{{0, 0, 0}, {8, 4, 0}, {8, 0, 2}}};

TEST(WireModel, ATriangleIsCentredScaledAndTurnedUpright) {
    const WireModel model = read(stlFile({kLarge}));
    ASSERT_TRUE(model.loaded);
    EXPECT_FLOAT_EQ(model.centreX, 4.0f);
    EXPECT_FLOAT_EQ(model.centreY, 2.0f);
    EXPECT_FLOAT_EQ(model.centreZ, 1.0f);
    EXPECT_FLOAT_EQ(model.scale, 0.5f);  // a largest side of 8 becomes 4
    ASSERT_EQ(model.edges.size(), 3U);
    // x from x, y from z, z from y the other way round.
    const Point3 first{-2, -0.5f, 1};
    const Point3 second{2, -0.5f, -1};
    const Point3 third{2, 0.5f, 1};
    EXPECT_TRUE(isEdge(model.edges[0], first, second));
    EXPECT_TRUE(isEdge(model.edges[1], second, third));
    EXPECT_TRUE(isEdge(model.edges[2], first, third)) << "the corner that came first stands first";
}

TEST(WireModel, HalfTheLargestSideIsWhatIsAskedFor) {
    const WireModel model = read(stlFile({kLarge}), 3.0f);
    EXPECT_FLOAT_EQ(model.scale, 0.75f);
    ASSERT_EQ(model.edges.size(), 3U);
    EXPECT_TRUE(isEdge(model.edges[0], {-3, -0.75f, 1.5f}, {3, -0.75f, -1.5f}));
}

TEST(WireModel, TwoTrianglesThatShareAnEdgeGiveItOnce) {
    // A slanting square, taken apart along a diagonal; the second triangle runs the other way.
    const StlCorner a{0, 0, 0};
    const StlCorner b{4, 0, 4};
    const StlCorner c{4, 4, 4};
    const StlCorner d{0, 4, 0};
    const WireModel model = read(stlFile({StlTriangle{a, b, c}, StlTriangle{d, c, a}}));
    ASSERT_EQ(model.edges.size(), 5U);
    const Point3 placedA{-2, -2, 2};
    const Point3 placedB{2, 2, 2};
    const Point3 placedC{2, 2, -2};
    const Point3 placedD{-2, -2, -2};
    EXPECT_TRUE(isEdge(model.edges[0], placedA, placedB));
    EXPECT_TRUE(isEdge(model.edges[1], placedB, placedC));
    EXPECT_TRUE(isEdge(model.edges[2], placedA, placedC));
    EXPECT_TRUE(isEdge(model.edges[3], placedC, placedD));
    EXPECT_TRUE(isEdge(model.edges[4], placedA, placedD));
}

TEST(WireModel, TrianglesThatCollapseIntoOneCellGiveNoEdges) {
    // A cell is 0.1 wide here: these corners are nearer to each other than that, except for one in one.
    const StlTriangle tiny{{{0, 0, 0}, {0.01f, 0, 0}, {0, 0.01f, 0}}};
    const StlTriangle needle{{{0, 0, 0}, {0.01f, 0, 0}, {8, 8, 8}}};
    const WireModel model = read(stlFile({tiny, needle}));
    EXPECT_TRUE(model.loaded) << "the file was read";
    EXPECT_TRUE(model.edges.empty());
}

TEST(WireModel, CornersOfOneCellBecomeTheirMean) {
    // A box of 4 from -2 to 2 in all axes, so that nothing is moved or scaled; a cell is 1 wide.
    const StlTriangle box{{{-2, -2, -2}, {2, 2, 2}, {2, -2, 2}}};
    const StlTriangle one{{{0.2f, 0.2f, 0.2f}, {-1.5f, 0.5f, 0.5f}, {-1.5f, 1.5f, 0.5f}}};
    const StlTriangle other{{{0.8f, 0.4f, 0.3f}, {-1.5f, 0.5f, 0.5f}, {-1.5f, 0.5f, -0.5f}}};
    const WireModel model = read(stlFile({box, one, other}), 2.0f, 0.0f, 4);
    EXPECT_FLOAT_EQ(model.scale, 1.0f);
    ASSERT_EQ(model.edges.size(), 8U);
    const Point3 mean{0.5f, 0.25f, -0.3f};
    EXPECT_TRUE(isEdge(model.edges[3], mean, {-1.5f, 0.5f, -0.5f}));
    EXPECT_TRUE(isEdge(model.edges[5], mean, {-1.5f, 0.5f, -1.5f}));
    EXPECT_TRUE(isEdge(model.edges[7], mean, {-1.5f, -0.5f, -0.5f})) << "the first edge is there already";
}

TEST(WireModel, CornersCountForTheMeanEvenWhereTheirTriangleFallsTogether) {
    const StlTriangle box{{{-2, -2, -2}, {2, 2, 2}, {2, -2, 2}}};
    const StlTriangle flat{{{-1.5f, -1.5f, -1.5f}, {-1.6f, -1.6f, -1.6f}, {1.5f, 1.5f, 1.5f}}};
    const WireModel model = read(stlFile({box, flat}), 2.0f, 0.0f, 4);
    ASSERT_EQ(model.edges.size(), 3U);
    EXPECT_TRUE(isEdge(model.edges[0], {-1.7f, -1.7f, 1.7f}, {1.75f, 1.75f, -1.75f}));
}

TEST(WireModel, TheUpperEdgeBelongsToTheLastCell) {
    // 2 and 1.9 are both in the last of four cells, though 2 / 1 would be the fifth.
    const StlTriangle box{{{-2, -2, -2}, {2, 2, 2}, {2, -2, -2}}};
    const StlTriangle more{{{-2, -2, -2}, {1.8f, 1.8f, 1.8f}, {2, -2, -2}}};
    const WireModel model = read(stlFile({box, more}), 2.0f, 0.0f, 4);
    ASSERT_EQ(model.edges.size(), 3U);
    EXPECT_TRUE(isEdge(model.edges[0], {-2, -2, 2}, {1.9f, 1.9f, -1.9f}));
}

TEST(WireModel, TheFloorIsCutByTheFilesYBeforeTheTurn) {
    // Heights from 0 to 10: the cut is at 1.5. Only the first has all corners at or below it; the second is
    // low in Z, which is the model's height, and stays.
    const StlTriangle plinth{{{-50, 0, 40}, {50, 1.5f, 40}, {0, 1, 60}}};
    const StlTriangle low{{{0, 1, -4}, {4, 1.6f, -4}, {4, 0, -4}}};
    const StlTriangle high{{{0, 10, 0}, {4, 10, 0}, {4, 9, 4}}};
    const WireModel model = read(stlFile({plinth, low, high}), 2.0f, 0.15f);
    ASSERT_TRUE(model.loaded);
    EXPECT_EQ(model.edges.size(), 6U);
    EXPECT_FLOAT_EQ(model.centreX, 2.0f) << "the box of what is kept";
    EXPECT_FLOAT_EQ(model.centreY, 5.0f);
    EXPECT_FLOAT_EQ(model.centreZ, 0.0f);
    EXPECT_FLOAT_EQ(model.scale, 0.4f);
    EXPECT_TRUE(isEdge(model.edges[0], {-0.8f, -1.6f, 1.6f}, {0.8f, -1.6f, 1.36f}));
}

TEST(WireModel, AFileThatIsFlatInYHasNothingAboveItsFloor) {
    EXPECT_TRUE(isEmpty(read(stlFile({StlTriangle{{{0, 3, 0}, {8, 3, 0}, {0, 3, 8}}}}))));
}

TEST(WireModel, AFileWithoutTrianglesOrWithTooManyIsRefused) {
    EXPECT_TRUE(isEmpty(read(stlFile({kLarge}, 0))));
    EXPECT_TRUE(isEmpty(read(stlFile({kLarge}, 2000001))));
    EXPECT_TRUE(isEmpty(read(stlFile({kLarge}, 0xFFFFFFFF))));
    const std::size_t most = 2000000;
    Bytes bytes = stlHead(most);
    const Bytes one = stlFile({kLarge});
    bytes.reserve(84 + 50 * most + 50);
    for (std::size_t i = 0; i < most; ++i)
        bytes.insert(bytes.end(), one.begin() + 84, one.end());
    EXPECT_EQ(read(bytes).edges.size(), 3U);
    bytes.insert(bytes.end(), one.begin() + 84, one.end());
    ++bytes[80];
    EXPECT_TRUE(isEmpty(read(bytes))) << "though it holds them all";
}

TEST(WireModel, AFileCutShortAnywhereLeavesNothing) {
    const Bytes whole = stlFile({kLarge, StlTriangle{{{0, 1, 2}, {1, 2, 3}, {8, 2, 1}}}});
    ASSERT_EQ(whole.size(), 184U);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_TRUE(isEmpty(read(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)))))
            << size;
    EXPECT_EQ(read(whole).edges.size(), 6U);
}

TEST(WireModel, WhatFollowsTheLastTriangleIsNotRead) {
    Bytes bytes = stlFile({kLarge});
    bytes.insert(bytes.end(), 75, 0xFF);
    EXPECT_EQ(read(bytes).edges.size(), 3U);
}

TEST(WireModel, AModelOfNoSizeIsRefused) {
    const auto ofSide = [](float side) {
        return read(stlFile({StlTriangle{{{0, 0, 0}, {side, side, 0}, {0, side, side}}}}));
    };
    EXPECT_TRUE(isEmpty(ofSide(0.0f)));
    EXPECT_TRUE(isEmpty(ofSide(0.9e-6f)));
    EXPECT_EQ(ofSide(1.1e-6f).edges.size(), 3U);
}

TEST(WireModel, AFileWithWhatIsNoNumberIsRefusedWhole) {
    for (const float odd : {std::nanf(""), kInfinity, -kInfinity}) {
        for (std::size_t place = 0; place < 9; ++place) {
            StlTriangle triangle = kLarge;
            triangle[place / 3][place % 3] = odd;
            EXPECT_TRUE(isEmpty(read(stlFile({kLarge, triangle})))) << odd << " at " << place;
        }
    }
}

TEST(WireModel, NumbersAtTheEndOfTheirRangeDoNoHarm) {
    EXPECT_TRUE(isEmpty(read(stlFile({StlTriangle{{{0, 0, 0}, {kLargest, 1, 0}, {-kLargest, 0, 0}}}}))))
        << "wider than a number can say";
    EXPECT_TRUE(isEmpty(read(stlFile({StlTriangle{{{0, -kLargest, 0}, {1, kLargest, 0}, {0, 0, 1}}}}))));
    const StlTriangle far{{{kLargest, 0, 0}, {kLargest / 2, kLargest / 2, 0}, {kLargest, 0, kLargest / 2}}};
    const WireModel model = read(stlFile({far}));
    ASSERT_EQ(model.edges.size(), 3U);
    EXPECT_TRUE(isEdge(model.edges[0], {2, -2, 2}, {-2, -2, -2}));
}

TEST(WireModel, ASizeOrAGridThatIsNoneGivesNothing) {
    const Bytes bytes = stlFile({kLarge});
    for (const float halfSize : {0.0f, -1.0f, std::nanf("")})
        EXPECT_TRUE(isEmpty(read(bytes, halfSize))) << halfSize;
    for (const int gridSize : {0, -1, 1025, std::numeric_limits<int>::max()})
        EXPECT_TRUE(isEmpty(read(bytes, 2.0f, 0.0f, gridSize))) << gridSize;
    EXPECT_TRUE(isEmpty(read(bytes, 2.0f, 1.0f))) << "nothing rises above the top";
    EXPECT_TRUE(isEmpty(read(bytes, 2.0f, std::nanf(""))));
    EXPECT_TRUE(read(bytes, 2.0f, 0.0f, 1).edges.empty()) << "all in one cell";
    EXPECT_EQ(read(bytes, 2.0f, 0.0f, 1024).edges.size(), 3U);
}

TEST(WireModel, ReadingAnewForgetsTheModelOfBefore) {
    WireModel model = read(stlFile({kLarge}));
    ASSERT_TRUE(model.loaded);
    readWireModel(model, stlHead(1), 2.0f, 0.0f, 80);
    EXPECT_TRUE(isEmpty(model));
}

TEST(WireModel, AgreesWithAPlainSecondReader) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> wide(-30.0f, 50.0f);
    std::size_t edges = 0;
    for (int round = 0; round < 60; ++round) {
        // Few places for many corners, so that triangles share them and fall together.
        std::vector<StlCorner> places(5 + random() % 60);
        for (StlCorner& place : places)
            place = {wide(random), wide(random) * 0.2f, wide(random)};
        std::vector<StlTriangle> triangles(1 + random() % 200);
        for (StlTriangle& triangle : triangles) {
            for (StlCorner& corner : triangle)
                corner = places[random() % places.size()];
        }
        const Bytes bytes = stlFile(triangles);
        const int gridSize = 2 + static_cast<int>(random() % 90);
        const test::LiteralWire literal(bytes, 2.0f, 0.3f, gridSize);
        EXPECT_TRUE(test::sameModel(read(bytes, 2.0f, 0.3f, gridSize), literal.model)) << "round " << round;
        edges += literal.model.edges.size();
    }
    EXPECT_GT(edges, 2000U);
}

TEST(WireModelFile, IsReadAsItsBytesAre) {
    const ScratchFolder folder;
    const Bytes bytes = stlFile({kLarge});
    WireModel model;
    loadWireModel(model, folder.write("figure.stl", text(bytes)).c_str(), 2.0f, 0.15f, 80);
    EXPECT_TRUE(model.loaded);
    EXPECT_TRUE(test::sameModel(model, read(bytes, 2.0f, 0.15f)));
}

TEST(WireModelFile, WhatIsNoFileEmptiesTheModel) {
    const ScratchFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {folder / "missing.stl", folder.path(), pipe, std::string()}) {
        WireModel model = read(stlFile({kLarge}));
        loadWireModel(model, path.c_str(), 2.0f, 0.15f, 80);
        EXPECT_TRUE(isEmpty(model)) << path;
    }
}

TEST(WireModelFile, ACountAboveWhatTheFileHoldsLeavesNothing) {
    const ScratchFolder folder;
    WireModel model;
    loadWireModel(model, folder.write("lying.stl", text(stlFile({kLarge}, 2000000))).c_str(), 2.0f, 0.15f,
                  80);
    EXPECT_TRUE(isEmpty(model));
    loadWireModel(model, folder.write("short.stl", text(Bytes(40, 'h'))).c_str(), 2.0f, 0.15f, 80);
    EXPECT_TRUE(isEmpty(model));
}

// Of 256 gigabytes nothing is read but the head and the triangles that it claims.
TEST(WireModelFile, AHugeFileIsReadNoFartherThanItsTriangles) {
    const ScratchFolder folder;
    const std::string path = folder.write("huge.stl", text(stlFile({kLarge})));
    const std::string refused = folder.write("refused.stl", text(stlFile({kLarge}, 2000001)));
    std::error_code error;
    for (const std::string& file : {path, refused}) {
        std::filesystem::resize_file(file, std::uintmax_t{1} << 38, error);
        if (error) GTEST_SKIP() << "no room for a file with holes: " << error.message();
    }
    WireModel model;
    loadWireModel(model, path.c_str(), 2.0f, 0.15f, 80);
    EXPECT_EQ(model.edges.size(), 3U);
    loadWireModel(model, refused.c_str(), 2.0f, 0.15f, 80);
    EXPECT_TRUE(isEmpty(model));
}

}  // namespace
}  // namespace veloria
