#include <gtest/gtest.h>

#include <filesystem>

#include "cli/arguments.h"
#include "tests/cli/run_tool.h"
#include "views/scene/geometry/obj_export.h"

namespace veloria {
namespace {

using ObjCommand = test::ToolTest;

TEST_F(ObjCommand, WritesTheFigureInTheCoordinatesAskedFor) {
    const test::ToolResult tree = run("obj tree tree.obj");
    EXPECT_EQ(tree.status, 0);
    EXPECT_EQ(tree.out + tree.err, "");
    EXPECT_EQ(test::readText(path("tree.obj")), katharaObjText(false));
    EXPECT_EQ(run("obj tesla tesla.obj").status, 0);
    EXPECT_EQ(test::readText(path("tesla.obj")), katharaObjText(true));
    EXPECT_NE(katharaObjText(true), katharaObjText(false));
}

TEST_F(ObjCommand, WhatCannotBeWrittenIsOneLineAndStatusOne) {
    const test::ToolResult missing = run("obj tree no/such/folder.obj");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "veloria-cli: no/such/folder.obj: cannot be written\n");
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(run("obj tree /dev/full").status, 1);
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
}

TEST_F(ObjCommand, OtherCoordinatesAndOptionsAreMistakes) {
    const test::ToolResult round = run("obj round a.obj");
    EXPECT_EQ(round.status, 2);
    EXPECT_NE(round.err.find("'round'"), std::string::npos);
    EXPECT_NE(round.err.find("--help"), std::string::npos);
    EXPECT_EQ(run("obj tree").status, 2);
    EXPECT_EQ(run("obj tree a.obj b.obj").status, 2);
    EXPECT_EQ(run("obj tree a.obj --quiet").status, 2);
    EXPECT_FALSE(std::filesystem::exists(path("a.obj")));
}

TEST_F(ObjCommand, HelpNamesItsOperands) {
    EXPECT_NE(run("--help").out.find("obj tree|tesla OUTPUT.obj"), std::string::npos);
}

TEST(ObjArguments, TheCoordinatesAreNoFile) {
    const cli::ParsedArguments parsed = cli::parseArguments({"obj", "tesla", "a.obj"});
    EXPECT_EQ(parsed.error, "");
    EXPECT_EQ(parsed.options.command, cli::Command::Obj);
    EXPECT_TRUE(parsed.options.teslaCoordinates);
    EXPECT_EQ(parsed.options.files, std::vector<std::string>{"a.obj"});
    EXPECT_FALSE(cli::parseArguments({"obj", "tree", "a.obj"}).options.teslaCoordinates);
}

}  // namespace
}  // namespace veloria
