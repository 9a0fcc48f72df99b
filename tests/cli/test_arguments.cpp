#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/session.h"
#include "tests/cli/run_tool.h"
#include "walker/scale_walker.h"

namespace veloria::cli {
namespace {

using Arguments = test::ToolTest;

std::string errorOf(const std::vector<std::string>& words) {
    return parseArguments(words).error;
}

TEST(ArgumentTable, DefaultsAreTheInstrumentsOwn) {
    const ParsedArguments parsed = parseArguments({"render", "a.mid", "b.wav"});
    ASSERT_EQ(parsed.error, "");
    const Options& o = parsed.options;
    EXPECT_EQ(o.command, Command::Render);
    EXPECT_EQ(o.files, (std::vector<std::string>{"a.mid", "b.wav"}));
    EXPECT_FALSE(o.originalMidi);
    EXPECT_EQ(o.tableChoice, 0);
    EXPECT_FALSE(o.bassFilter);
    EXPECT_FALSE(o.normalize);
    EXPECT_EQ(o.waveform, 0);
    EXPECT_EQ(o.fibonacci, 2);
    EXPECT_EQ(o.pi, 0);
    EXPECT_EQ(o.tesla, 0);
    EXPECT_EQ(o.octave, 0);
    EXPECT_EQ(o.phi, 0);
    EXPECT_EQ(o.fibPhase, 0);
    EXPECT_EQ(o.teslaPhase, 0);
    EXPECT_EQ(o.fft, 0);
    EXPECT_EQ(o.target, 8);  // 528 Hz
    EXPECT_EQ(o.strength, 100);
    EXPECT_EQ(o.activation, 0);
    EXPECT_EQ(o.stepMs, 200);
    EXPECT_FALSE(o.quiet);
}

// The same defaults where they come from, as the tool's session carries them into the instrument.
TEST(ArgumentTable, ASessionWithoutOptionsIsAnInstrumentAsItStarts) {
    const auto session = makeSession(Options{});
    const SynthEngine fresh;
    const SynthEngine& engine = session->engine;
    EXPECT_EQ(engine.sacredOptimizer, fresh.sacredOptimizer);
    EXPECT_EQ(engine.midiTableChoice, fresh.midiTableChoice);
    EXPECT_EQ(engine.bassFilter, fresh.bassFilter);
    EXPECT_EQ(engine.waveform, fresh.waveform);
    EXPECT_EQ(engine.fibonacciCount, fresh.fibonacciCount);
    EXPECT_EQ(engine.piCount, fresh.piCount);
    EXPECT_EQ(engine.teslaCount, fresh.teslaCount);
    EXPECT_EQ(engine.octaveSteps, fresh.octaveSteps);
    EXPECT_EQ(engine.phiSteps, fresh.phiSteps);
    EXPECT_EQ(engine.fibPhase, fresh.fibPhase);
    EXPECT_EQ(engine.teslaPhase, fresh.teslaPhase);
    EXPECT_EQ(engine.activationMode, fresh.activationMode);
    const auto retuner = std::make_unique<SacredFft>();
    EXPECT_EQ(session->retuner.mode, retuner->mode);
    EXPECT_EQ(session->retuner.strength, retuner->strength);
    EXPECT_EQ(session->retuner.targetIndex, retuner->targetIndex);
    EXPECT_EQ(Options{}.stepMs, ScaleWalker{}.stepMs);
}

TEST(ArgumentTable, ASessionCarriesEveryOptionIntoTheInstrument) {
    Options o;
    o.originalMidi = true;
    o.tableChoice = 1;
    o.bassFilter = true;
    o.waveform = 3;
    o.fibonacci = 4;
    o.pi = 5;
    o.tesla = 1;
    o.octave = -2;
    o.phi = 3;
    o.fibPhase = 60;
    o.teslaPhase = 70;
    o.fft = 2;
    o.target = 11;
    o.strength = 33;
    o.activation = 4;
    const auto session = makeSession(o);
    const SynthEngine& engine = session->engine;
    EXPECT_FALSE(engine.sacredOptimizer);
    EXPECT_EQ(engine.midiTableChoice, 1);
    EXPECT_TRUE(engine.bassFilter);
    EXPECT_EQ(engine.waveform, 3);
    EXPECT_EQ(engine.fibonacciCount, 4);
    EXPECT_EQ(engine.piCount, 5);
    EXPECT_EQ(engine.teslaCount, 1);
    EXPECT_EQ(engine.octaveSteps, -2);
    EXPECT_EQ(engine.phiSteps, 3);
    EXPECT_EQ(engine.fibPhase, 60);
    EXPECT_EQ(engine.teslaPhase, 70);
    EXPECT_EQ(engine.activationMode, 4);
    EXPECT_EQ(session->retuner.mode, 2);
    EXPECT_EQ(session->retuner.targetIndex, 11);
    EXPECT_EQ(session->retuner.strength, 33);
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

TEST(ArgumentTable, EveryWordStandsForItsNumber) {
    struct Case {
        std::vector<std::string> words;
        std::int32_t Options::*setting;
        std::int32_t value;
    };
    const std::vector<std::string> file = {"render", "a.wav", "b.wav"};
    for (const Case& c : std::vector<Case>{{{"--table", "avatar"}, &Options::tableChoice, 0},
                                           {{"--table", "shadow"}, &Options::tableChoice, 1},
                                           {{"--waveform", "sine"}, &Options::waveform, 0},
                                           {{"--waveform", "saw"}, &Options::waveform, 1},
                                           {{"--waveform", "square"}, &Options::waveform, 2},
                                           {{"--waveform", "triangle"}, &Options::waveform, 3},
                                           {{"--fft", "off"}, &Options::fft, 0},
                                           {{"--fft", "full"}, &Options::fft, 1},
                                           {{"--fft", "peak"}, &Options::fft, 2},
                                           {{"--fft", "solfeggio"}, &Options::fft, 3},
                                           {{"--activation", "off"}, &Options::activation, 0},
                                           {{"--activation", "heart"}, &Options::activation, 2},
                                           {{"--activation", "trinity"}, &Options::activation, 3},
                                           {{"--activation", "fibonacci"}, &Options::activation, 4},
                                           {{"--strength", "0"}, &Options::strength, 0},
                                           {{"--strength", "100"}, &Options::strength, 100}}) {
        std::vector<std::string> words = file;
        words.insert(words.end(), c.words.begin(), c.words.end());
        const ParsedArguments parsed = parseArguments(words);
        EXPECT_EQ(parsed.error, "");
        EXPECT_EQ(parsed.options.*c.setting, c.value) << c.words[0] << " " << c.words[1];
    }
}

TEST(ArgumentTable, ATargetIsOneOfTheThirteen) {
    const char* targets[] = {"147", "174", "258", "285", "369", "396", "417",
                             "432", "528", "639", "741", "852", "963"};
    for (std::int32_t row = 0; row < 13; ++row) {
        const ParsedArguments parsed = parseArguments({"render", "a", "b", "--target", targets[row]});
        EXPECT_EQ(parsed.error, "");
        EXPECT_EQ(parsed.options.target, row);
    }
    EXPECT_EQ(parseArguments({"render", "a", "b", "--target", "528.0"}).options.target, 8);
    EXPECT_EQ(errorOf({"render", "a", "b", "--target", "529"}),
              "--target takes one of 147 174 258 285 369 396 417 432 528 639 741 852 963, not '529'");
    EXPECT_NE(errorOf({"render", "a", "b", "--target", "nan"}), "");
}

TEST(ArgumentTable, AStepOutsideItsRangeIsNoMistake) {
    EXPECT_EQ(parseArguments({"walk", "1", "b", "--step", "50"}).options.stepMs, 50);
    for (const char* ms : {"-5", "0", "5000", "99999999999", "-99999999999"}) {
        EXPECT_EQ(errorOf({"walk", "1", "b", "--step", ms}), "") << ms;
    }
    EXPECT_EQ(errorOf({"walk", "1", "b", "--step", "fast"}), "--step takes a whole number, not 'fast'");
    EXPECT_EQ(errorOf({"walk", "1", "b", "--step", "50.5"}), "--step takes a whole number, not '50.5'");
}

TEST(ArgumentTable, EveryRangeIsClosedAtBothEnds) {
    struct Range {
        const char* option;
        int low, high;
    };
    for (const Range& r : {Range{"--fibonacci", 0, 14},
                           {"--pi", 0, 14},
                           {"--tesla", 0, 3},
                           {"--octave", -3, 3},
                           {"--phi", -3, 3},
                           {"--fib-phase", 0, 100},
                           {"--tesla-phase", 0, 100},
                           {"--strength", 0, 100}}) {
        const auto error = [&](int n) { return errorOf({"render", "a", "b", r.option, std::to_string(n)}); };
        EXPECT_EQ(error(r.low), "");
        EXPECT_EQ(error(r.high), "");
        const std::string range = std::to_string(r.low) + " to " + std::to_string(r.high);
        EXPECT_EQ(error(r.low - 1), std::string(r.option) + " goes from " + range + ", not '" +
                                        std::to_string(r.low - 1) + "'");
        EXPECT_NE(error(r.high + 1).find(range), std::string::npos);
    }
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
    for (const char* option : {"--fft", "--target", "--strength"}) {
        EXPECT_EQ(errorOf({"walk", "1", "b.wav", option, "0"}),
                  std::string(option) + " means nothing to 'walk'");
    }
    EXPECT_EQ(errorOf({"render", "a", "b", "--step", "100"}), "--step means nothing to 'render'");
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
    // The left column and how the right one begins and ends.
    const std::vector<std::vector<const char*>> lines = {
        {"  render INPUT OUTPUT.wav  ", "what PLAY would sound"},
        {"  render FILE... --out-dir DIR  ", "many files"},
        {"  record INPUT.mid OUTPUT.wav  "},
        {"  walk SECONDS OUTPUT.wav  ", "the scale walker from its start"},
        {"  notes INPUT.mid  ", "CSV of the tuned notes"},
        {"  clips INPUT.mid  ", "CSV of the recorder clips"},
        {"  scale  ", "the 342 frequencies"},
        {"  obj tree|tesla OUTPUT.obj  "},
        {"  --original-midi  ", "(render, record, notes, clips)"},
        {"  --table avatar|shadow  ", "(render, record, notes, clips)"},
        {"  --bass-filter  ", "(render, record, notes, clips)"},
        {"  --normalize  ", "(record, clips)"},
        {"  --waveform sine|saw|square|triangle  ", "(render, record, walk)"},
        {"  --fibonacci N  ", ", 0 to 14 (render, record, walk)"},
        {"  --pi N  ", ", 0 to 14 (render, record, walk)"},
        {"  --tesla N  ", ", 0 to 3 (render, record, walk)"},
        {"  --octave N  ", ", -3 to 3 (render, record, walk)"},
        {"  --phi N  ", ", -3 to 3 (render, record, walk)"},
        {"  --fib-phase N  ", ", 0 to 100 (render, record, walk)"},
        {"  --tesla-phase N  ", ", 0 to 100 (render, record, walk)"},
        {"  --fft off|full|peak|solfeggio  ", "(render)"},
        {"  --target HZ  ", ", one of 147 174 258 285 369 396 417 432 528 639 741 852 963 (render)"},
        {"  --strength N  ", ", 0 to 100 (render)"},
        {"  --activation off|heart|trinity|fibonacci  ", "(render, walk)"},
        {"  --step MS  ", ", held to 30 to 1000 (walk)"},
        {"  --out-dir DIR  ", "(render)"},
        {"  --jobs N  ", ", 1 to 1024 (render)"},
        {"  --quiet  ", "(render, record, walk)"},
        {"  --help  "},
        {"  --version  "}};
    for (const auto& parts : lines) {
        const std::size_t begin = result.out.find(std::string("\n") + parts[0]);
        ASSERT_NE(begin, std::string::npos) << parts[0];
        const std::string line = result.out.substr(begin, result.out.find('\n', begin + 1) - begin);
        for (const char* part : parts)
            EXPECT_NE(line.find(part), std::string::npos) << line;
    }
    // And no other option or sub-command stands in the lists.
    std::size_t entries = 0;
    for (std::size_t at = result.out.find("\n  "); at != std::string::npos;
         at = result.out.find("\n  ", at + 1))
        ++entries;
    EXPECT_EQ(entries, lines.size());
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
