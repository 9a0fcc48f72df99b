#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>
#include <string>

#include "base/fixed_text.h"
#include "frequency/scale_table.h"
#include "tests/frequency/literal_scale.h"

namespace veloria {
namespace {

namespace fs = std::filesystem;

// The process's own table is built once only, so each test that builds it does so in a child process, in a
// folder of its own.
class ScaleDump : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "veloria-scale-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    void TearDown() override {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    fs::path dump() const { return folder / "scale_table_dump.txt"; }

    fs::path folder;
};

double hzAt(const ScaleTable& table, std::size_t row) {
    return table.rows.at(row).frequency;
}

TEST(ScaleTable, RowsStandInTheOrderThatTheDigitsTell) {
    const ScaleTable table = makeScaleTable();
    const auto expected = test::literalScale();
    ASSERT_EQ(expected.size(), 342u);
    ASSERT_EQ(table.count, 342);
    EXPECT_TRUE(table.built);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(hzAt(table, i), expected[i].hz) << i;
        EXPECT_EQ(table.rows[i].worldX, expected[i].pan()) << i;
        EXPECT_NEAR(table.rows[i].worldY, expected[i].height / 100.0, 1e-6) << i;
    }
}

TEST(ScaleTable, HeightsAreWorkedOutInSinglePrecision) {
    const ScaleTable table = makeScaleTable();
    const float four = 4.0f;  // first digit 9 above the middle digit 5
    EXPECT_EQ(table.rows[0].worldY, four * 0.28f + 0.6f);
    EXPECT_EQ(table.rows[341].worldY, -four * 0.28f - 0.6f);
}

TEST(ScaleTable, TheLevelsHoldTheirFamiliesAndRowCounts) {
    struct Level {
        double height;
        float worldX;
        int firstDigit;
        int rows;
    };
    constexpr float r = 0.0f, t = 1.0f, s = 0.5f;
    const std::vector<Level> levels = {
        {1.72, r, 9, 9},   {1.44, r, 8, 9},   {1.16, r, 7, 9},  {0.88, r, 6, 9},   {0.60, r, 5, 9},
        {0.52, t, 9, 9},   {0.32, r, 4, 9},   {0.28, s, 6, 30}, {0.24, t, 8, 9},   {0.04, r, 3, 9},
        {0.00, s, 5, 30},  {-0.04, t, 7, 9},  {-0.24, r, 2, 9}, {-0.28, s, 4, 32}, {-0.32, t, 6, 9},
        {-0.52, r, 1, 9},  {-0.56, s, 3, 32}, {-0.60, t, 5, 9}, {-0.84, s, 2, 32}, {-0.88, t, 4, 9},
        {-1.12, s, 1, 24}, {-1.16, t, 3, 9},  {-1.44, t, 2, 9}, {-1.72, t, 1, 9},
    };
    ASSERT_EQ(levels.size(), 24u);
    const ScaleTable table = makeScaleTable();
    std::size_t row = 0;
    for (const Level& level : levels) {
        for (int i = 0; i < level.rows; ++i, ++row) {
            ASSERT_LT(row, table.rows.size());
            const ScaleEntry& entry = table.rows[row];
            EXPECT_NEAR(entry.worldY, level.height, 1e-6) << row;
            EXPECT_EQ(entry.worldX, level.worldX) << row;
            EXPECT_EQ(static_cast<int>(entry.frequency) / 100, level.firstDigit) << row;
            EXPECT_TRUE(i == 0 || hzAt(table, row - 1) < entry.frequency) << row;
        }
    }
    EXPECT_EQ(row, 342u);
}

TEST(ScaleTable, TellingRows) {
    const ScaleTable table = makeScaleTable();
    const std::map<std::size_t, std::array<double, 3>> triples = {
        {0, {952, 953, 954}},   {12, {862, 863, 864}},  {60, {495, 496, 497}},
        {111, {511, 515, 516}}, {327, {261, 268, 269}}, {339, {145, 146, 147}},
    };
    for (const auto& [row, hz] : triples) {
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(hzAt(table, row + i), hz[i]) << row + i;
    }
}

TEST(ScaleTable, DumpTextIsByteForByteTheLiteralOne) {
    const std::string text = scaleDumpText(makeScaleTable());
    EXPECT_EQ(text, test::literalDump());
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    ASSERT_EQ(lines.size(), 345u);
    EXPECT_EQ(lines[0], "342 freqs sorted by world Y (top to bottom)");
    EXPECT_EQ(lines[1], "Triplets marked with | separator");
    EXPECT_EQ(lines[2], "");
    EXPECT_EQ(lines[3], "  0   952  R  Y=+1.720");
    EXPECT_EQ(lines[4], "  1   953  R  Y=+1.720");
    EXPECT_EQ(lines[5], "  2   954  R  Y=+1.720  |");
    EXPECT_EQ(lines[3 + 113], "113   516  S  Y=+0.000  |");
    EXPECT_EQ(lines[344], "341   147  T  Y=-1.720  |");
    EXPECT_EQ(text.back(), '\n');
}

TEST(ScaleTable, NothingIsBuiltByLooking) {
    EXPECT_EQ(scaleCount(), 0);
    EXPECT_FALSE(scaleTable().built);
    (void)makeScaleTable();
    EXPECT_EQ(scaleCount(), 0);
}

TEST_F(ScaleDump, TheFirstBuildWritesTheFileAndLaterOnesDoNot) {
    const auto inChild = [this] {
        if (chdir(folder.c_str()) != 0) std::_Exit(1);
        const ScaleTable& table = buildScaleTable();
        if (!fs::exists(dump())) std::_Exit(2);
        if (table.count != 342 || scaleCount() != 342 || !scaleTable().built) std::_Exit(3);
        fs::rename(dump(), folder / "first.txt");
        if (&buildScaleTable() != &table || fs::exists(dump())) std::_Exit(4);
        std::_Exit(0);
    };
    EXPECT_EXIT(inChild(), ::testing::ExitedWithCode(0), "^$");
    std::ifstream file(folder / "first.txt", std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    EXPECT_EQ(bytes.str(), test::literalDump());
}

TEST_F(ScaleDump, AFileThatCannotBeOpenedLeavesTheTableStandingWithoutAWordOrASecondTry) {
    ASSERT_TRUE(fs::create_directory(dump()));  // nobody, not even root, opens a folder for writing
    const auto inChild = [this] {
        if (chdir(folder.c_str()) != 0) std::_Exit(1);
        buildScaleTable();
        if (scaleCount() != 342 || !scaleTable().built) std::_Exit(2);
        fs::remove(dump());
        buildScaleTable();
        if (fs::exists(dump())) std::_Exit(3);
        std::_Exit(0);
    };
    EXPECT_EXIT(inChild(), ::testing::ExitedWithCode(0), "^$");
}

TEST(FixedText, RoundsAsPrintfAndHoldsTheLargestNumber) {
    EXPECT_EQ(fixedText(952.0, 0), "952");
    EXPECT_EQ(fixedText(-0.28, 3), "-0.280");
    EXPECT_EQ(fixedText(0.125, 2), "0.12");
    EXPECT_EQ(fixedText(0.375, 2), "0.38");
    EXPECT_EQ(fixedText(std::numeric_limits<double>::max(), 9).size(), 309u + 1u + 9u);
    EXPECT_EQ(fixedText(std::numeric_limits<double>::infinity(), 1), "inf");
    EXPECT_EQ(fixedText(std::numeric_limits<double>::quiet_NaN(), 1), "nan");
    EXPECT_EQ(fixedText(-std::numeric_limits<double>::quiet_NaN(), 1), "nan");
}

}  // namespace
}  // namespace veloria
