#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "cli/batch.h"
#include "tests/cli/tool_wav.h"
#include "tests/media/midi_bytes.h"
#include "tests/media/wav_bytes.h"
#include "tests/source_dir.h"

namespace veloria {
namespace {

namespace fs = std::filesystem;

std::size_t linesOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

class Batch : public test::ToolTest {
  protected:
    // A song of one note of a second at "NAME", on a key of its own.
    void song(const std::string& name, int key) {
        test::MidiTrack track;
        track.on(0, 0, key, 100).off(960, 0, key).endOfTrack();
        write(name, test::midiFile(480, {track}));
    }
    void sound(const std::string& name) {
        std::vector<std::int64_t> samples(6000);
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] = static_cast<std::int64_t>(i * 37 % 9000) - 4500;
        write(name, test::wavFile({}, test::integers(2, samples)));
    }
    std::size_t filesIn(const std::string& name) const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder / name), {}));
    }
};

TEST_F(Batch, EveryFileComesOutAsByItselfHoweverManyAreRenderedAtOnce) {
    const auto input = [](int i) {
        return i == 7 ? "tone.wav" : "song" + std::to_string(i) + (i % 3 == 0 ? ".MID" : ".mid");
    };
    const std::string options = " --fft peak --table shadow --pi 2 ";
    std::string names;
    for (int i = 0; i < 7; ++i) {
        song(input(i), 40 + 7 * i);
        names += input(i) + " ";
    }
    sound("tone.wav");
    names += "tone.wav";
    for (int i = 0; i < 8; ++i)
        ASSERT_EQ(run("render " + input(i) + " alone" + std::to_string(i) + options).status, 0);
    for (const char* jobs : {"--jobs 1", "--jobs 3", "--jobs 100"}) {
        fs::remove_all(folder / "out");
        const test::ToolResult result = run("render " + names + " --out-dir out " + jobs + options);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(linesOf(result.out), 8u) << result.out;
        EXPECT_EQ(filesIn("out"), 8u);
        for (int i = 0; i < 8; ++i) {
            const std::string output = "out/" + input(i).substr(0, input(i).size() - 4) + ".wav";
            EXPECT_NE(result.out.find(input(i) + " -> " + output + "\n"), std::string::npos) << result.out;
            EXPECT_EQ(test::readText(path(output)), test::readText(path("alone" + std::to_string(i))))
                << input(i) << " " << jobs;
        }
    }
}

TEST_F(Batch, OneAtATimeTheLinesAreInTheOrderOfTheInputs) {
    song("b.mid", 60);
    song("a.mid", 61);
    fs::create_directory(folder / "out");
    EXPECT_EQ(run("render b.mid a.mid --out-dir out/ --jobs 1").out,
              "b.mid -> out/b.wav\na.mid -> out/a.wav\n");
}

TEST_F(Batch, WhatFailsIsTheOnlyThingMissingAndIsNamedAtTheEnd) {
    song("a.mid", 60);
    song("z.mid", 61);
    write("bad.wav", {'R', 'I', 'F', 'F', 0});
    const test::ToolResult result =
        run("render a.mid bad.wav missing.mid notes.txt z.mid --out-dir out --jobs 2");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(linesOf(result.out), 2u);
    EXPECT_EQ(filesIn("out"), 2u);
    EXPECT_EQ(linesOf(result.err), 4u) << result.err;
    for (const char* line : {"veloria-cli: bad.wav: is no WAV or MP3 file that can be read\n",
                             "veloria-cli: missing.mid: cannot be opened\n",
                             "veloria-cli: notes.txt: is no .mid, .midi, .wav or .mp3 file\n"})
        EXPECT_NE(result.err.find(line), std::string::npos) << line;
    const std::string last = "veloria-cli: 3 of 5 files failed: bad.wav, missing.mid, notes.txt\n";
    ASSERT_GE(result.err.size(), last.size());
    EXPECT_EQ(result.err.substr(result.err.size() - last.size()), last);
}

TEST_F(Batch, TwoInputsForOneNameAreRefusedBeforeAnythingIsWritten) {
    song("a.mid", 60);
    song("b.mid", 60);
    fs::create_directory(folder / "other");
    song("other/a.mid", 61);
    sound("a.wav");
    for (const char* inputs : {"b.mid a.mid other/a.mid", "a.mid a.wav", "b.mid a.mid a.mid"}) {
        const test::ToolResult result = run(std::string("render ") + inputs + " --out-dir out");
        EXPECT_EQ(result.status, 2) << inputs;
        EXPECT_NE(result.err.find("would both be rendered to out/a.wav"), std::string::npos) << result.err;
        EXPECT_EQ(linesOf(result.err), 1u);
        EXPECT_FALSE(fs::exists(folder / "out")) << inputs;
    }
    // Different names of one file.
    fs::create_directory(folder / "linked");
    fs::create_symlink("b.wav", folder / "linked/a.wav");
    std::ofstream(folder / "linked/b.wav") << "old";
    EXPECT_EQ(run("render a.mid b.mid --out-dir linked").status, 2);
    EXPECT_EQ(test::readText(folder / "linked/b.wav"), "old");
}

TEST_F(Batch, AnOutputThatIsAnyOfTheInputsIsRefused) {
    sound("tone.wav");
    song("tone.mid", 60);
    song("b.mid", 60);
    const std::string before = test::readText(path("tone.wav"));
    EXPECT_EQ(run("render tone.wav --out-dir .").status, 2);
    EXPECT_EQ(run("render b.mid tone.wav --out-dir .").status, 2);
    fs::create_directory(folder / "out");
    fs::create_symlink("../tone.wav", folder / "out/b.wav");
    EXPECT_EQ(run("render b.mid tone.wav --out-dir out").status, 2);
    EXPECT_EQ(test::readText(path("tone.wav")), before);
    EXPECT_FALSE(fs::exists(folder / "b.wav"));
    // What is no input may be replaced.
    EXPECT_EQ(run("render tone.mid --out-dir .").status, 0);
    EXPECT_NE(test::readText(path("tone.wav")), before);
}

TEST_F(Batch, AFolderThatCannotBeMadeIsSaid) {
    song("a.mid", 60);
    std::ofstream(folder / "taken") << "a file";
    const test::ToolResult result = run("render a.mid --out-dir taken/out");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: taken/out: is no folder and cannot be made one\n");
    EXPECT_EQ(run("render a.mid --out-dir deep/er/out").status, 0);
    EXPECT_TRUE(fs::exists(folder / "deep/er/out/a.wav"));
}

TEST_F(Batch, MistakesOfTheArgumentsAreStatusTwo) {
    song("a.mid", 60);
    for (const char* words : {"render --out-dir out", "render a.mid --out-dir", "render a.mid --out-dir ''",
                              "render a.mid b.wav --jobs 2", "render a.mid --out-dir out --jobs 0",
                              "render a.mid --out-dir out --jobs 1025", "walk 1 a.wav --out-dir out"}) {
        const test::ToolResult result = run(words);
        EXPECT_EQ(result.status, 2) << words;
        EXPECT_EQ(linesOf(result.err), 1u) << words;
    }
    EXPECT_FALSE(fs::exists(folder / "out"));
}

TEST_F(Batch, ARunThatIsEndedLeavesNothingHalfDone) {
    // Sixty notes with many partials for more than an hour: seconds of work on any machine.
    test::MidiTrack track;
    for (int key = 30; key < 90; ++key)
        track.on(0, 0, key, 100);
    for (int key = 30; key < 90; ++key)
        track.off(key == 30 ? 4000 * 960 : 0, 0, key);
    track.endOfTrack();
    for (const char* name : {"a.mid", "b.mid", "c.mid"})
        write(name, test::midiFile(480, {track}));
    // timeout tells the tool twice: itself, and then as one of its group.
    const std::string command =
        "cd '" + folder.string() +
        "' && timeout -s TERM 0.3 '" VELORIA_CLI
        "' render a.mid b.mid c.mid --fibonacci 14 --pi 14 --out-dir out --jobs 2 >/dev/null 2>&1";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 124) << "it was still at work";
    ASSERT_TRUE(fs::exists(folder / "out"));
    EXPECT_EQ(filesIn("out"), 0u);
}

TEST_F(Batch, ALostReaderOfItsLinesLeavesNothingHalfDone) {
    test::MidiTrack track;
    track.on(0, 0, 60, 100).off(20000 * 960, 0, 60).endOfTrack();  // more than five hours
    write("long.mid", test::midiFile(480, {track}));
    song("a.mid", 60);
    song("b.mid", 61);
    const std::string command = "cd '" + folder.string() +
                                "' && { sleep 0.2; '" VELORIA_CLI
                                "' render long.mid a.mid b.mid --out-dir out --jobs 3 2>/dev/null;"
                                " echo $? >status; } | true";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(test::readText(folder / "status"), "141\n") << "ended by SIGPIPE";
    for (const auto& entry : fs::directory_iterator(folder / "out"))
        EXPECT_EQ(entry.path().extension(), ".wav") << entry.path();
    EXPECT_FALSE(fs::exists(folder / "out/long.wav"));
}

// The manual's own lines, with this machine alone and the tool in the path.
class BatchOfTheManual : public Batch {
  protected:
    // The block of the manual that begins with `first`.
    static std::string block(const std::string& first) {
        const std::string manual = test::readText(sourceDir() + "/docs/manual.md");
        const std::size_t begin = manual.find("```sh\n" + first);
        if (begin == std::string::npos) return {};
        const std::size_t text = manual.find('\n', begin) + 1;
        return manual.substr(text, manual.find("```", text) - text);
    }
    void songs() {
        fs::create_directory(folder / "songs");
        for (int i = 0; i < 5; ++i)
            song("songs/song " + std::to_string(i) + ".mid", 50 + i);
    }
    // Runs a script in the folder; its exit status.
    int runScript(const std::string& script) const {
        std::ofstream(folder / "script.sh") << script;
        const std::string command = "cd '" + folder.string() +
                                    "' && HOME=. PATH=\"$(dirname '" VELORIA_CLI
                                    "'):$PATH\" sh script.sh >script.txt 2>&1";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    void expectAllOut() {
        EXPECT_EQ(run("render songs/* --out-dir alone").status, 0);
        EXPECT_EQ(filesIn("alone"), 5u);
        EXPECT_EQ(filesIn("out"), 5u);
        for (const auto& entry : fs::directory_iterator(folder / "alone")) {
            EXPECT_EQ(test::readText(folder / "out" / entry.path().filename()), test::readText(entry.path()));
        }
    }
};

TEST_F(BatchOfTheManual, ParallelSpreadsALibraryOverTwoWorkers) {
    const std::string line = block("parallel ");
    ASSERT_NE(line, "");
    songs();
    std::ofstream(folder / "machines") << "2/:\n";
    EXPECT_EQ(runScript(line), 0) << test::readText(folder / "script.txt");
    expectAllOut();
}

TEST_F(BatchOfTheManual, ASlurmArrayTakesEverySongOnce) {
    const std::string script = block("#!/bin/sh\n#SBATCH");
    ASSERT_NE(script, "");
    songs();
    ASSERT_EQ(runScript("ls songs/* > songs.txt"), 0);
    for (int task = 0; task < 100; ++task) {
        const std::string environment =
            "SLURM_CPUS_PER_TASK=2\nSLURM_ARRAY_TASK_ID=" + std::to_string(task) + "\n";
        ASSERT_EQ(runScript(environment + script), 0) << test::readText(folder / "script.txt");
        EXPECT_EQ(filesIn("out"), static_cast<std::size_t>(std::min(task + 1, 5)));
        if (task == 6) task = 97;  // the tasks between have no song either
    }
    expectAllOut();
}

TEST(OutputName, KeepsTheNameAndTakesTheFolder) {
    EXPECT_EQ(cli::outputIn("out", "songs/a.mid"), "out/a.wav");
    EXPECT_EQ(cli::outputIn("out/", "a.b.MP3"), "out/a.b.wav");
    EXPECT_EQ(cli::outputIn("/", "../x/bare"), "/bare.wav");
    EXPECT_EQ(cli::outputIn("out", ".mid"), "out/.mid.wav");
}

}  // namespace
}  // namespace veloria
