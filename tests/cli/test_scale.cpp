#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cli/run_tool.h"
#include "tests/frequency/literal_scale.h"

namespace veloria {
namespace {

using Scale = test::ToolTest;

TEST_F(Scale, IsTheTextOfTheDumpByteForByte) {
    const test::ToolResult result = run("scale");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, test::literalDump());
}

// What a hand writes, beside the computed text.
TEST_F(Scale, BeginsWithItsTwoLinesAndMarksEveryThirdOfItsRows) {
    const std::string out = run("scale").out;
    EXPECT_EQ(out.rfind("342 freqs sorted by world Y (top to bottom)\n"
                        "Triplets marked with | separator\n"
                        "\n"
                        "  0   952  R  Y=+1.720\n",
                        0),
              0u)
        << out.substr(0, 120);
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 3 + 342);
    EXPECT_EQ(std::count(out.begin(), out.end(), '|'), 1 + 114);
}

TEST_F(Scale, WritesNoFile) {
    ASSERT_EQ(run("scale").status, 0);
    EXPECT_FALSE(std::filesystem::exists(path("scale_table_dump.txt")));
}

TEST_F(Scale, TakesNeitherOperandsNorOptions) {
    for (const char* words : {"scale x", "scale --quiet"}) {
        const test::ToolResult result = run(words);
        EXPECT_EQ(result.status, 2) << words;
        EXPECT_EQ(result.out, "") << words;
    }
}

}  // namespace
}  // namespace veloria
