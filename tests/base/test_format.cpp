#include "base/format.h"

#include <gtest/gtest.h>

#include <string>

namespace veloria {
namespace {

TEST(Format, FiguresStandInTheText) {
    EXPECT_EQ(formatText("%.0f Hz | DR%d", 528.4, 6), "528 Hz | DR6");
    EXPECT_EQ(formatText("%+d%%", 3), "+3%");
}

TEST(Format, NothingGivesTheEmptyText) {
    EXPECT_EQ(formatText("%s", ""), "");
}

TEST(Format, ALongNameIsNotCut) {
    for (const std::size_t length : {126u, 127u, 128u, 129u, 5000u}) {
        const std::string name(length, 'x');
        EXPECT_EQ(formatText("%s", name.c_str()), name);
        EXPECT_EQ(formatText("%s.", name.c_str()), name + ".");
    }
}

}  // namespace
}  // namespace veloria
