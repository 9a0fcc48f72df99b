#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "cli/arguments.h"
#include "tests/cli/run_tool.h"

namespace veloria::cli {
namespace {

using Arguments = test::ToolTest;

std::string errorOf(const std::vector<std::string>& words) {
    return parseArguments(words).error;
}

TEST(ArgumentTable, DefaultsAreTheInstrumentsOwn) {
    const ParsedArguments parsed = parseArguments({"render", "a.mid", "b.wav"});
    ASSERT_EQ(parsed.error, "");
    EXPECT_EQ(parsed.options.command, Command::Render);
    EXPECT_EQ(parsed.options.files, (std::vector<std::string>{"a.mid", "b.wav"}));
    EXPECT_FALSE(parsed.options.originalMidi);
    EXPECT_EQ(parsed.options.tableChoice, 0);
    EXPECT_FALSE(parsed.options.bassFilter);
    EXPECT_EQ(parsed.options.waveform, 0);
    EXPECT_EQ(parsed.options.fibonacci, 2);
    EXPECT_EQ(parsed.options.octave, 0);
    EXPECT_FALSE(parsed.options.quiet);
}

TEST(ArgumentTable, EachOptionLandsInItsSetting) {
    const ParsedArguments parsed = parseArguments({"render",
                                                   "--original-midi",
                                                   "a.mid",
                                                   "--table",
                                                   "shadow",
                                                   "b.wav",
                                                   "--bass-filter",
                                                   "--waveform",
                                                   "triangle",
                                                   "--fibonacci",
                                                   "14",
                                                   "--pi",
                                                   "3",
                                                   "--tesla",
                                                   "1",
                                                   "--octave",
                                                   "-3",
                                                   "--phi",
                                                   "2",
                                                   "--fib-phase",
                                                   "40",
                                                   "--tesla-phase",
                                                   "100",
                                                   "--quiet"});
    ASSERT_EQ(parsed.error, "");
    const Options& o = parsed.options;
    EXPECT_TRUE(o.originalMidi);
    EXPECT_EQ(o.tableChoice, 1);
    EXPECT_TRUE(o.bassFilter);
    EXPECT_EQ(o.waveform, 3);
    EXPECT_EQ(o.fibonacci, 14);
    EXPECT_EQ(o.pi, 3);
    EXPECT_EQ(o.tesla, 1);
    EXPECT_EQ(o.octave, -3);
    EXPECT_EQ(o.phi, 2);
    EXPECT_EQ(o.fibPhase, 40);
    EXPECT_EQ(o.teslaPhase, 100);
    EXPECT_TRUE(o.quiet);
    EXPECT_EQ(o.files, (std::vector<std::string>{"a.mid", "b.wav"}));
}

TEST(ArgumentTable, WhatIsOffIsNamed) {
    EXPECT_NE(errorOf({}), "");
    EXPECT_NE(errorOf({"play", "a"}).find("'play'"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a.mid"}).find("INPUT OUTPUT.wav"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "c"}).find("INPUT OUTPUT.wav"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "--loud"}).find("'--loud'"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "--pi"}).find("--pi"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "--pi", "15"}).find("0 to 14"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "--octave", "-4"}).find("-3 to 3"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "--pi", "3x"}).find("'3x'"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "--pi", "99999999999"}).find("--pi"), std::string::npos);
    EXPECT_NE(errorOf({"render", "a", "b", "--waveform", "noise"}).find("sine|saw|square|triangle"),
              std::string::npos);
}

TEST(ArgumentTable, AnOptionThatMeansNothingToTheSubCommandIsAnError) {
    EXPECT_NE(errorOf({"notes", "a.mid", "--waveform", "saw"}).find("notes"), std::string::npos);
    EXPECT_NE(errorOf({"notes", "a.mid", "--quiet"}).find("--quiet"), std::string::npos);
}

TEST(ArgumentTable, AfterTwoDashesAFileMayBeginWithOne) {
    const ParsedArguments parsed = parseArguments({"notes", "--", "-odd.mid"});
    EXPECT_EQ(parsed.error, "");
    EXPECT_EQ(parsed.options.files, std::vector<std::string>{"-odd.mid"});
}

TEST_F(Arguments, HelpListsEverySubCommandAndOption) {
    const test::ToolResult result = run("--help");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    for (const char* word :
         {"render INPUT OUTPUT.wav", "notes INPUT.mid", "--original-midi", "--table avatar|shadow",
          "--bass-filter", "--waveform sine|saw|square|triangle", "--fibonacci N", "--pi N", "--tesla N",
          "--octave N", "--phi N", "--fib-phase N", "--tesla-phase N", "--quiet", "--version"}) {
        EXPECT_NE(result.out.find(word), std::string::npos) << word;
    }
    EXPECT_EQ(run("render --help").out, result.out);
}

TEST_F(Arguments, VersionIsOneLine) {
    const test::ToolResult result = run("--version");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "veloria-cli 3.6\n");
}

TEST_F(Arguments, AMistakeIsOneLineWithAPointerToHelpAndStatusTwo) {
    for (const char* words : {"", "sing x", "notes", "notes a.mid --quiet", "render a.mid b.wav --pi 99"}) {
        const test::ToolResult result = run(words);
        EXPECT_EQ(result.status, 2) << words;
        EXPECT_EQ(result.out, "") << words;
        EXPECT_EQ(result.err.rfind("veloria-cli: ", 0), 0u) << words;
        EXPECT_NE(result.err.find("--help"), std::string::npos) << words;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << words;
    }
}

}  // namespace
}  // namespace veloria::cli
