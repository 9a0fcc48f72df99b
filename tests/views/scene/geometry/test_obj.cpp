// The exported file, read back.
#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "frequency/tables.h"
#include "platform/fake/fake_platform.h"
#include "views/scene/geometry/obj_export.h"

namespace veloria {
namespace {

namespace fs = std::filesystem;

struct Group {
    std::string name;
    int firstVertex = 0;
    int vertices = 0;
    std::vector<std::array<int, 2>> lines;
    std::vector<std::array<int, 3>> faces;
};

struct Obj {
    std::vector<std::string> header;
    std::vector<std::array<double, 3>> vertices;
    std::vector<std::string> comments;  // behind the vertices
    std::vector<Group> groups;
    int otherLines = 0;
};

Obj readObj(const std::string& text) {
    Obj obj;
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line);
        words.imbue(std::locale::classic());
        std::string word;
        words >> word;
        if (word == "o") {
            Group group;
            words >> group.name;
            group.firstVertex = static_cast<int>(obj.vertices.size()) + 1;
            obj.groups.push_back(group);
        } else if (word == "v") {
            std::array<double, 3> point{};
            words >> point[0] >> point[1] >> point[2];
            EXPECT_TRUE(words) << line;
            std::string rest;
            std::getline(words, rest);
            obj.vertices.push_back(point);
            obj.comments.push_back(rest);
            ++obj.groups.back().vertices;
        } else if (word == "l") {
            std::array<int, 2> ends{};
            words >> ends[0] >> ends[1];
            obj.groups.back().lines.push_back(ends);
        } else if (word == "f") {
            std::array<int, 3> corners{};
            words >> corners[0] >> corners[1] >> corners[2];
            obj.groups.back().faces.push_back(corners);
        } else if (!line.empty() && line[0] == '#') {
            obj.header.push_back(line);
        } else if (!line.empty()) {
            ++obj.otherLines;
        }
    }
    return obj;
}

// A frequency by its digits, in degrees.
std::array<double, 3> byDigits(int hz, double lift) {
    const auto direction = [](int digit) { return ((digit != 0 ? digit : 9) - 1) * 40 * M_PI / 180; };
    const double a = direction(hz % 10);
    const double b = direction(hz / 10 % 10);
    return {(std::cos(a) + std::cos(b)) * 0.32, (hz / 100 - 5) * 0.28 + lift,
            (std::sin(a) + std::sin(b)) * 0.32};
}

void expectVertex(const Obj& obj, int number, std::array<double, 3> wanted) {
    const auto& seen = obj.vertices[static_cast<std::size_t>(number - 1)];
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(seen[i], wanted[i], 6e-5) << "vertex " << number;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

TEST(ObjText, BeginsWithItsHeaderAndTheNodes) {
    const std::vector<std::string> lines = linesOf(katharaObjText(false));
    ASSERT_GT(lines.size(), 20u);
    EXPECT_EQ(lines[0], "# Veloria \xE2\x80\x94 Kathara 3D Full Export");
    EXPECT_EQ(lines[1], "# Coordinate mode: Tree of Life");
    EXPECT_EQ(lines[2], "# Objects: Solfeggio, Reflection(81), Rotation(81),");
    EXPECT_EQ(lines[3], "#          Shadow(180), Enneagram, Merkaba_A/B/C");
    EXPECT_EQ(lines[4], "");
    EXPECT_EQ(lines[5], "o Solfeggio");
    EXPECT_EQ(lines[6], "v 0.0000 -2.4000 0.0000  # 147 Hz");
    EXPECT_EQ(lines[17], "v 0.0000 2.2000 0.0000  # 963 Hz");
    EXPECT_EQ(lines[18], "l 12 11");
    EXPECT_EQ(lines[18 + 15], "l 11 8");
    EXPECT_EQ(lines[18 + 23], "");
    EXPECT_EQ(lines[18 + 24], "o Reflection");
    EXPECT_EQ(katharaObjText(false).back(), '\n');
}

TEST(ObjText, TheTreeHasItsTwelvePlacesAndItsEdges) {
    const Obj obj = readObj(katharaObjText(false));
    const std::vector<std::array<double, 3>> places = {
        {0.0, -2.4, 0.0},    {1.0, -1.8, 0.35}, {-1.0, -1.8, -0.35}, {1.6, -0.9, 0.55},
        {-1.6, -0.9, -0.55}, {1.0, 0.0, 0.35},  {-1.0, 0.0, -0.35},  {1.6, 0.9, 0.55},
        {-1.6, 0.9, -0.55},  {1.0, 1.6, 0.35},  {-1.0, 1.6, -0.35},  {0.0, 2.2, 0.0}};
    for (std::size_t i = 0; i < places.size(); ++i)
        expectVertex(obj, static_cast<int>(i) + 1, places[i]);
    // By the nodes' numbers from 1: the tree, then what crosses it.
    const std::vector<std::array<int, 2>> edges = {{12, 11}, {12, 10}, {1, 3},  {1, 2},  {11, 10}, {7, 6},
                                                   {3, 2},   {11, 9},  {10, 8}, {9, 7},  {8, 6},   {7, 5},
                                                   {6, 4},   {5, 3},   {4, 2},  {11, 8}, {10, 9},  {9, 6},
                                                   {8, 7},   {7, 4},   {6, 5},  {5, 2},  {4, 3}};
    EXPECT_EQ(obj.groups[0].lines, edges);
}

TEST(ObjText, HoldsThreeHundredAndSeventyFiveVerticesInEightGroups) {
    const Obj obj = readObj(katharaObjText(false));
    EXPECT_EQ(obj.vertices.size(), 375u);
    EXPECT_EQ(obj.otherLines, 0);
    EXPECT_EQ(obj.header.size(), 4u);
    struct Wanted {
        const char* name;
        int first;
        int vertices;
        std::size_t lines;
        std::size_t faces;
    };
    const std::vector<Wanted> wanted = {
        {"Solfeggio", 1, 12, 23, 0},         {"Reflection", 13, 81, 80, 0},
        {"Rotation", 94, 81, 80, 0},         {"Shadow", 175, 180, 179, 0},
        {"Enneagram", 355, 9, 18, 0},        {"Merkaba_Pyramid_A", 364, 4, 0, 4},
        {"Merkaba_Pyramid_B", 368, 4, 0, 4}, {"Merkaba_Pyramid_C", 372, 4, 0, 4}};
    ASSERT_EQ(obj.groups.size(), wanted.size());
    std::size_t lines = 0;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(obj.groups[i].name, wanted[i].name);
        EXPECT_EQ(obj.groups[i].firstVertex, wanted[i].first);
        EXPECT_EQ(obj.groups[i].vertices, wanted[i].vertices);
        EXPECT_EQ(obj.groups[i].lines.size(), wanted[i].lines);
        EXPECT_EQ(obj.groups[i].faces.size(), wanted[i].faces);
        lines += obj.groups[i].lines.size();
    }
    EXPECT_EQ(lines, 380u);
}

TEST(ObjText, TheFamiliesStandByTheirDigitsAndAreChained) {
    const Obj obj = readObj(katharaObjText(false));
    expectVertex(obj, 13, byDigits(152, 0.6));
    expectVertex(obj, 14, byDigits(215, 0.6));
    expectVertex(obj, 93, byDigits(974, 0.6));
    expectVertex(obj, 94, byDigits(125, -0.6));
    expectVertex(obj, 174, byDigits(947, -0.6));
    int vertex = 175;
    for (int d1 = 1; d1 <= 6; ++d1) {
        for (int d2 = 1; d2 <= 6; ++d2) {
            for (int d3 = 1; d3 <= 6; ++d3) {
                int ones = 0;
                int low = 0;
                for (const int d : {d1, d2, d3}) {
                    ones += d == 1 ? 1 : 0;
                    low += d >= 2 && d <= 4 ? 1 : 0;
                }
                if (ones == 1 && low == 1) continue;  // the third is 5 or 6
                expectVertex(obj, vertex++, byDigits(100 * d1 + 10 * d2 + d3, 0.0));
            }
        }
    }
    EXPECT_EQ(vertex, 355);
    for (const std::size_t g : {1u, 2u, 3u}) {
        int from = obj.groups[g].firstVertex;
        for (const auto& line : obj.groups[g].lines) {
            EXPECT_EQ(line[0], from);
            EXPECT_EQ(line[1], from + 1);
            ++from;
        }
        EXPECT_EQ(from, obj.groups[g].firstVertex + obj.groups[g].vertices - 1);
    }
}

TEST(ObjText, TheEnneagramHasRingHexadAndTriangle) {
    const Obj obj = readObj(katharaObjText(false));
    for (int digit = 1; digit <= 9; ++digit) {
        const double angle = (90 - 40 * (digit % 9)) * M_PI / 180;
        expectVertex(obj, 354 + digit, {2 * std::cos(angle), 2 * std::sin(angle), 0.0});
    }
    const auto& lines = obj.groups[4].lines;
    const std::vector<std::array<int, 2>> wanted = {
        {355, 356}, {356, 357}, {357, 358}, {358, 359}, {359, 360}, {360, 361},
        {361, 362}, {362, 363}, {363, 355}, {355, 358}, {358, 356}, {356, 362},
        {362, 359}, {359, 361}, {361, 355}, {357, 360}, {360, 363}, {363, 357}};
    EXPECT_EQ(lines, wanted);
}

TEST(ObjText, ThePyramidsNumberTheirFacesFromTheirOwnVertices) {
    const Obj obj = readObj(katharaObjText(true));
    for (std::size_t k = 0; k < 3; ++k) {
        const int a = 355 + 9 + 4 * static_cast<int>(k);
        const std::vector<std::array<int, 3>> wanted = {
            {a, a + 1, a + 2}, {a, a + 1, a + 3}, {a + 1, a + 2, a + 3}, {a + 2, a, a + 3}};
        EXPECT_EQ(obj.groups[5 + k].faces, wanted);
    }
    expectVertex(obj, 364, {2 * std::cos(50 * M_PI / 180), 2 * std::sin(50 * M_PI / 180), -0.636});
    expectVertex(obj, 367, {0.0, 0.0, 1.908});
    expectVertex(obj, 371, {1.908 * std::sin(2 * M_PI / 3), 0.0, 1.908 * std::cos(2 * M_PI / 3)});
}

TEST(ObjText, TheTwoCoordinateModesDifferOnlyInHeaderLineAndTheTwelveNodes) {
    const std::vector<std::string> tree = linesOf(katharaObjText(false));
    const std::vector<std::string> tesla = linesOf(katharaObjText(true));
    ASSERT_EQ(tree.size(), tesla.size());
    EXPECT_EQ(tesla[1], "# Coordinate mode: Tesla/freqTo3D");
    for (std::size_t i = 0; i < tree.size(); ++i) {
        const bool differs = i == 1 || (i >= 6 && i <= 17);
        EXPECT_EQ(tree[i] != tesla[i], differs) << i << ": " << tree[i];
    }
    const Obj obj = readObj(katharaObjText(true));
    const int nodes[] = {147, 174, 258, 285, 369, 396, 417, 528, 639, 741, 852, 963};
    for (int i = 0; i < 12; ++i) {
        expectVertex(obj, i + 1, byDigits(nodes[i], i % 2 == 0 ? -0.6 : 0.6));
        EXPECT_EQ(obj.comments[static_cast<std::size_t>(i)], "  # " + std::to_string(nodes[i]) + " Hz");
    }
}

TEST(ObjText, NumbersHaveAPointWhateverTheLocale) {
    const std::string plain = katharaObjText(true);
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "de_DE"}) {
        if (std::setlocale(LC_NUMERIC, name) != nullptr) break;
    }
    const std::string there = katharaObjText(true);
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(there, plain);
    for (const std::string& line : linesOf(plain)) {
        if (line.rfind("v ", 0) == 0) {
            EXPECT_EQ(line.find(','), std::string::npos);
        }
    }
}

class ObjFile : public testing::Test {
  protected:
    void SetUp() override {
        platform::fakePlatform().reset();
        folder =
            fs::path(testing::TempDir()) /
            (std::string("veloria_obj_") + testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    [[nodiscard]] std::string path(const char* name) const { return (folder / name).string(); }
    [[nodiscard]] static std::string content(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    fs::path folder;
};

TEST_F(ObjFile, HoldsTheWholeText) {
    EXPECT_TRUE(exportKatharaObj(path("a.obj"), true));
    EXPECT_EQ(content(path("a.obj")), katharaObjText(true));
}

TEST_F(ObjFile, OneThatCannotBeOpenedOrFilledIsAFailureWithoutAMessage) {
    EXPECT_FALSE(exportKatharaObj(path("missing/a.obj"), false));
    EXPECT_FALSE(exportKatharaObj(folder.string(), false));
    if (fs::exists("/dev/full")) {
        EXPECT_FALSE(exportKatharaObj("/dev/full", false));
    }
    EXPECT_TRUE(platform::fakePlatform().log.empty());
}

TEST_F(ObjFile, TheDialogSuggestsANameAndWritesWhereTheUserSays) {
    platform::fakePlatform().dialogPaths = {path("mine.obj")};
    EXPECT_TRUE(exportKatharaObjDialog(false));
    EXPECT_EQ(platform::fakePlatform().log,
              std::vector<std::string>{"chooseFileToSave Save As|kathara_scene.obj|obj|OBJ Files=*.obj"});
    EXPECT_EQ(content(path("mine.obj")), katharaObjText(false));
}

TEST_F(ObjFile, ACancelledDialogWritesNothing) {
    EXPECT_FALSE(exportKatharaObjDialog(false));
    EXPECT_TRUE(fs::is_empty(folder));
    EXPECT_EQ(platform::fakePlatform().log.size(), 1u);
}

}  // namespace
}  // namespace veloria
