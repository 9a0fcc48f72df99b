#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "cli/render.h"
#include "tests/cli/tool_wav.h"
#include "tests/media/midi_bytes.h"
#include "tests/media/wav_bytes.h"
#include "tests/source_dir.h"

namespace veloria {
namespace {

using test::samplesOf;
using test::strengthOf;

class Render : public test::ToolTest {
  protected:
    std::string oneNote(int key = 69) {
        test::MidiTrack track;
        track.on(0, 0, key, 127).off(960, 0, key).endOfTrack();
        return write("song.mid", test::midiFile(480, {track}));
    }
};

TEST_F(Render, AMidiFileLastsItsDurationAndASecond) {
    oneNote();
    const test::ToolResult result = run("render song.mid out.wav --original-midi --fibonacci 0");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");  // no progress bar without a terminal
    const auto samples = samplesOf(path("out.wav"));
    EXPECT_EQ(samples.size(), 2u * (44100 + 44100));
    // 440 Hz is nearest to Rotation: hard right doubles there, and the left is silent.
    const auto right = [&](std::size_t i) { return samples[2 * i + 1]; };
    int peak = 0;
    for (std::size_t i = 5000; i < 40000; ++i)
        peak = std::max(peak, std::abs(right(i)));
    EXPECT_NEAR(peak, 32000 * std::tanh(0.3 * 2.0 * 1.03), 60);
    for (std::size_t i = 44200; i < 88200; ++i)
        ASSERT_EQ(right(i), 0);
    for (std::size_t i = 0; i < 44100; ++i)
        ASSERT_EQ(samples[2 * i], 0);
}

TEST_F(Render, TheSameRunGivesTheSameBytes) {
    oneNote(50);
    ASSERT_EQ(run("render song.mid a.wav --waveform saw --pi 3").status, 0);
    ASSERT_EQ(run("render song.mid b.wav --waveform saw --pi 3").status, 0);
    EXPECT_EQ(test::readText(path("a.wav")), test::readText(path("b.wav")));
    ASSERT_EQ(run("render song.mid c.wav --waveform sine --pi 3").status, 0);
    EXPECT_NE(test::readText(path("a.wav")), test::readText(path("c.wav")));
}

TEST_F(Render, ATunedKeySoundsAtTheFrequencyThatNotesTells) {
    oneNote(61);
    const test::ToolResult notes = run("notes song.mid --table shadow");
    const std::size_t row = notes.out.find("\n0,");
    double hz = 0.0;
    double pan = 0.0;
    char ratio[16] = "";
    ASSERT_GE(
        std::sscanf(notes.out.c_str() + row + 1, "0,%*f,%*f,%*d,%*f,%*d,%lf,%15[^,],%lf", &hz, ratio, &pan),
        1);
    ASSERT_EQ(run("render song.mid out.wav --table shadow --fibonacci 0").status, 0);
    auto samples = samplesOf(path("out.wav"));
    for (std::size_t i = 0; i < samples.size(); i += 2)
        samples[i] =
            std::max(samples[i], samples[i + 1], [](int a, int b) { return std::abs(a) < std::abs(b); });
    EXPECT_GT(strengthOf(samples, hz, 1000, 43000), 0.25);
    EXPECT_LT(strengthOf(samples, hz * 1.02, 1000, 43000), 0.05);
}

TEST_F(Render, AMidiFileWithoutNotesIsASecondOfSilence) {
    test::MidiTrack track;
    track.off(0, 0, 60).endOfTrack();
    write("offs.mid", test::midiFile(480, {track}));
    EXPECT_EQ(run("render offs.mid out.wav").status, 0);
    const auto samples = samplesOf(path("out.wav"));
    EXPECT_EQ(samples.size(), 2u * 44100);
    EXPECT_TRUE(std::all_of(samples.begin(), samples.end(), [](int s) { return s == 0; }));
}

TEST_F(Render, ADivisionOfNoughtIsRefused) {
    test::MidiTrack track;
    track.on(10, 0, 60, 100).off(10, 0, 60).endOfTrack();
    write("zero.mid", test::midiFile(0, {track}));
    const test::ToolResult result = run("render zero.mid out.wav");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: zero.mid: its note times are not finite\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

TEST_F(Render, AFileTooLongForAWavFileIsRefused) {
    test::MidiTrack track;
    track.tempo(0, 0xFFFFFF).on(0, 0, 60, 100).off(0xFFFFFFF, 0, 60).endOfTrack();
    write("long.mid", test::midiFile(1, {track}));
    const test::ToolResult result = run("render long.mid out.wav");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: long.mid: too long for a WAV file\n");
}

TEST_F(Render, AStreamLastsItsSamplesTheFrameOfItsEndAndASecond) {
    write("in.wav", test::wavFile({}, test::integers(2, {8192, -8192, 16384})));
    EXPECT_EQ(run("render in.wav out.wav").status, 0);
    const auto samples = samplesOf(path("out.wav"));
    ASSERT_EQ(samples.size(), 2u * (3 + 1 + 44100));
    EXPECT_EQ(samples[0], 8000);
    EXPECT_EQ(samples[1], 8000);
    EXPECT_EQ(samples[2], -8000);
    EXPECT_EQ(samples[4], 16000);
    EXPECT_EQ(samples[6], 0);
}

TEST_F(Render, EverySampleFormatSoundsTheSame) {
    const std::vector<std::pair<test::WavFormat, test::Bytes>> files = {
        {{1, 1, 44100, 8}, test::integers(1, {192, 64})},
        {{1, 1, 44100, 16}, test::integers(2, {16384, -16384})},
        {{1, 1, 44100, 24}, test::integers(3, {4194304, -4194304})},
        {{1, 1, 44100, 32}, test::integers(4, {1073741824, -1073741824})},
        {{3, 1, 44100, 32}, test::floats({0.5f, -0.5f})}};
    for (const auto& [format, data] : files) {
        write("in.wav", test::wavFile(format, data));
        ASSERT_EQ(run("render in.wav out.wav").status, 0) << format.bits;
        const auto samples = samplesOf(path("out.wav"));
        ASSERT_EQ(samples.size(), 2u * (2 + 1 + 44100));
        EXPECT_NEAR(samples[0], 16000, 1) << format.bits;
        EXPECT_NEAR(samples[2], -16000, 1) << format.bits;
    }
}

TEST_F(Render, AnMp3FileComesOutWithItsToneAndLength) {
    const std::string input = sourceDir() + "/tests/media/data/mono_44100.mp3";
    ASSERT_TRUE(std::filesystem::exists(input));
    EXPECT_EQ(run("render '" + input + "' out.wav").status, 0);
    const auto samples = samplesOf(path("out.wav"));
    EXPECT_GT(samples.size(), 2u * (44100 + 12000));
    EXPECT_LT(samples.size(), 2u * (44100 + 20000));
    EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 8000);
}

TEST_F(Render, WhatCannotBeReadIsOneLineAndStatusOne) {
    EXPECT_EQ(run("render missing.mid out.wav").err, "veloria-cli: missing.mid: cannot be opened\n");
    EXPECT_EQ(run("render missing.wav out.wav").err, "veloria-cli: missing.wav: cannot be opened\n");
    write("bad.wav", {'R', 'I', 'F', 'F', 0});
    EXPECT_EQ(run("render bad.wav out.wav").err,
              "veloria-cli: bad.wav: is no WAV or MP3 file that can be read\n");
    write("song.ogg", {0});
    const test::ToolResult other = run("render song.ogg out.wav");
    EXPECT_EQ(other.status, 1);
    EXPECT_EQ(other.err, "veloria-cli: song.ogg: is no .mid, .midi, .wav or .mp3 file\n");
    EXPECT_FALSE(std::filesystem::exists(path("out.wav")));
}

TEST_F(Render, AnOutputThatCannotBeWrittenLeavesNothingBehindAndTakesNothingAway) {
    oneNote();
    const test::ToolResult nowhere = run("render song.mid no/such/out.wav");
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_EQ(nowhere.err, "veloria-cli: no/such/out.wav: cannot be written\n");
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(run("render song.mid /dev/full").status, 1);
    EXPECT_TRUE(std::filesystem::exists("/dev/full"));
    std::filesystem::create_symlink("/dev/full", folder / "link.wav");
    EXPECT_EQ(run("render song.mid link.wav").status, 1);
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.wav"));
}

TEST_F(Render, AnOutputThatIsItsInputIsRefusedUnderAnyName) {
    const std::string song = test::readText(oneNote());
    std::filesystem::create_symlink("song.mid", path("link.mid"));
    std::filesystem::create_hard_link(path("song.mid"), path("other.mid"));
    for (const char* command :
         {"render song.mid song.mid", "render song.mid ./song.mid", "render song.mid link.mid",
          "render link.mid other.mid", "record song.mid link.mid"}) {
        const test::ToolResult result = run(command);
        EXPECT_EQ(result.status, 2) << command;
        EXPECT_NE(result.err.find("is the input and the output at once"), std::string::npos) << result.err;
        EXPECT_EQ(test::readText(path("song.mid")), song) << command;
    }
}

TEST_F(Render, ALimitOfTheFileSizeLeavesTheOldFileAndNoRest) {
    oneNote();
    std::ofstream(path("out.wav")) << "old";
    const auto limited = [this](const std::string& arguments) {
        const std::string shell = "ulimit -f 8; exec '" VELORIA_CLI "' " + arguments + " 2>/dev/null";
        return std::system(("cd '" + folder.string() + "' && sh -c \"" + shell + "\"").c_str());
    };
    for (const char* arguments :
         {"render song.mid out.wav", "record song.mid out.wav", "walk 2 out.wav", "obj tree out.wav"}) {
        const int status = limited(arguments);
        ASSERT_TRUE(WIFEXITED(status)) << arguments;
        EXPECT_EQ(WEXITSTATUS(status), 1) << arguments;
        EXPECT_EQ(test::readText(path("out.wav")), "old") << arguments;
        const auto entries = std::filesystem::directory_iterator(folder);
        EXPECT_EQ(std::distance(entries, {}), 2) << arguments;
    }
}

TEST_F(Render, APathWithQuotesAndSpacesWorks) {
    test::MidiTrack track;
    track.on(0, 0, 60, 100).off(48, 0, 60).endOfTrack();
    write("a \"b\" c.MID", test::midiFile(480, {track}));
    EXPECT_EQ(run("render 'a \"b\" c.MID' 'x y.wav'").status, 0);
    EXPECT_EQ(samplesOf(path("x y.wav")).size(), 2u * (44100 + 2205));
}

TEST(FitsWavFile, CountsTheTailToTheWholeFrame) {
    // 4294967295 bytes less the 36 of the header behind the size field, 4 a frame, less the second behind.
    const double most = 1073741814.0 - 44100.0;
    EXPECT_TRUE(cli::fitsWavFile(0.0));
    EXPECT_TRUE(cli::fitsWavFile(most));
    EXPECT_FALSE(cli::fitsWavFile(most + 1.0));
    EXPECT_FALSE(cli::fitsWavFile(1e18));
}

// Sound files through the retuner and over the drones.
class RenderRetuned : public Render {
  protected:
    // A tone of half full scale at "in.wav"; its samples.
    std::vector<std::int64_t> tone(double hz, std::size_t count) {
        std::vector<std::int64_t> samples(count);
        for (std::size_t i = 0; i < count; ++i) {
            const double angle = 2.0 * M_PI * hz * static_cast<double>(i) / 44100.0;
            samples[i] = std::lround(16384.0 * std::sin(angle));
        }
        write("in.wav", test::wavFile({}, test::integers(2, samples)));
        return samples;
    }
    std::vector<std::int16_t> render(const std::string& options) {
        const test::ToolResult result = run("render in.wav out.wav " + options);
        EXPECT_EQ(result.status, 0) << result.err;
        return samplesOf(path("out.wav"));
    }
};

TEST_F(RenderRetuned, SolfeggioModeBringsTheNoteOntoItsTarget) {
    tone(523.2511306011972, 2 * 44100);
    const auto samples = render("--fft solfeggio");
    EXPECT_NEAR(test::frequencyNear(samples, 528.0, 10000, 22050), 528.0, 0.05);
    EXPECT_NEAR(strengthOf(samples, 528.0, 10000, 54100), 0.5, 0.005);
    const auto plain = render("--fft off");
    EXPECT_NEAR(test::frequencyNear(plain, 523.25, 10000, 22050), 523.2511, 0.01);
}

TEST_F(RenderRetuned, TheTargetIsChosenByItsFrequency) {
    tone(391.99543598174927, 2 * 44100);  // G, the note next to 396 Hz
    EXPECT_NEAR(test::frequencyNear(render("--fft solfeggio --target 396"), 396.0, 10000, 22050), 396.0,
                0.05);
    tone(440.0, 2 * 44100);  // A, from which 432 Hz is lower
    EXPECT_NEAR(test::frequencyNear(render("--fft solfeggio --target 432"), 432.0, 10000, 22050), 432.0,
                0.05);
    EXPECT_EQ(run("render in.wav out.wav --target 440").status, 2);
}

TEST_F(RenderRetuned, WithoutStrengthTheFullModeOnlyDelaysByABlock) {
    const auto in = tone(1000.0, 30000);
    const auto samples = render("--fft full --strength 0");
    for (std::size_t i = 0; i < 2 * 4096; ++i)
        ASSERT_EQ(samples[i], 0) << i;
    // From the fourth hop on, each sample is in four blocks.
    for (std::size_t i = 3072; i < in.size(); ++i) {
        const double dry = static_cast<double>(in[i]) / 32768.0 * 32000.0;
        ASSERT_NEAR(samples[2 * (i + 4096)], dry, 16.0) << i;
        ASSERT_EQ(samples[2 * (i + 4096)], samples[2 * (i + 4096) + 1]) << i;
    }
    EXPECT_NE(samples, render("--fft full"));
    EXPECT_NE(samples, render("--fft full --strength 50"));
}

TEST_F(RenderRetuned, LastsItsSamplesTheFrameOfItsEndWhatLagsThereAndASecond) {
    tone(600.0, 12345);
    for (const char* mode : {"--fft off", "--fft full", "--fft peak"}) {
        EXPECT_EQ(render(mode).size(), 2u * (12345 + 1 + 44100)) << mode;
    }
    struct Case {
        const char* mode;
        double ratio;
    };
    for (const Case& c : {Case{"--fft solfeggio --target 258", 258.0 / 261.6255653005986},
                          {"--fft solfeggio --target 432", 432.0 / 440.0}}) {
        // The reading begins four frames late and stands where the ratio has brought it; the rest is read at
        // the same pace.
        const double lag = (12346.0 - (12346.0 - 4.0) * c.ratio) / c.ratio;
        EXPECT_EQ(render(c.mode).size(), 2u * (12345 + 1 + 44100 + static_cast<std::size_t>(std::ceil(lag))))
            << c.mode;
    }
    // 528 / 523.25 takes up to 1.0091 samples a frame, and comes out shorter by that.
    const double frames = static_cast<double>(render("--fft solfeggio").size()) / 2 - 44100;
    EXPECT_NEAR(frames, 12345 / (528.0 / 523.2511306011972), 8.0);
}

// After 104 s the reading is 1.44 s late, and the tail alone is too short for what is left.
TEST_F(RenderRetuned, AClickAtTheEndOfALongFileIsHeard) {
    constexpr std::size_t kLength = 104 * 44100;
    constexpr std::size_t kClick = kLength - 4410;
    std::vector<std::int64_t> samples(kLength);
    for (std::size_t i = kClick; i < kClick + 20; ++i)
        samples[i] = 16384;
    write("in.wav", test::wavFile({}, test::integers(2, samples)));
    const auto out = render("--fft solfeggio --target 258");
    const auto loudest = std::max_element(out.begin(), out.end());
    EXPECT_GE(*loudest, 15000);
    const double at = static_cast<double>(loudest - out.begin()) / 2.0;
    EXPECT_NEAR(at, static_cast<double>(kClick) / (258.0 / 261.6255653005986), 30.0);
    EXPECT_NEAR(static_cast<double>(out.size()) / 2.0, kLength / (258.0 / 261.6255653005986) + 44100.0, 8.0);
}

TEST_F(RenderRetuned, TheTailKeepsWhatIsStillInTheRetuner) {
    tone(600.0, 20000);
    for (const char* mode : {"--fft full", "--fft peak"}) {
        const auto samples = render(mode);
        double sum = 0.0;
        for (std::size_t i = 20000; i < 24000; ++i)
            sum += samples[2 * i] * static_cast<double>(samples[2 * i]);
        EXPECT_GT(std::sqrt(sum / 4000), 3000.0) << mode;
        // The last block with any of the file in it ends 4095 + 4096 frames after it.
        for (std::size_t i = 2 * (20000 + 8192); i < samples.size(); ++i)
            ASSERT_EQ(samples[i], 0) << mode << " " << i;
    }
}

TEST_F(RenderRetuned, TheFullModeMovesAToneToItsTarget) {
    tone(858 * 44100.0 / 4096, 2 * 44100);  // a bin that goes down by one
    const auto samples = render("--fft full");
    const double heard = test::frequencyNear(samples, 857 * 44100.0 / 4096, 20000, 22050);
    EXPECT_NEAR(heard, 857 * 44100.0 / 4096, 44100.0 / 4096 / 2);
    EXPECT_LT(strengthOf(samples, 858 * 44100.0 / 4096, 20000, 64100),
              0.2 * strengthOf(samples, heard, 20000, 64100));  // measured: 0.15
}

TEST_F(RenderRetuned, DronesSoundUnderAFileFromItsStart) {
    tone(700.0, 2 * 44100);
    struct Case {
        const char* word;
        bool heart, body;
    };
    for (const Case& c : {Case{"off", false, false},
                          {"heart", true, false},
                          {"trinity", true, true},
                          {"fibonacci", true, true}}) {
        const auto samples = render(std::string("--activation ") + c.word);
        const auto heard = [&](double hz, std::size_t side) {
            return strengthOf(samples, hz, 4410, 4410 + 44100, side);
        };
        EXPECT_EQ(heard(322, 0) > 0.02, c.heart) << c.word;
        EXPECT_EQ(heard(325, 1) > 0.02, c.heart) << c.word;
        EXPECT_EQ(heard(111, 0) > 0.02, c.body) << c.word;
        EXPECT_EQ(heard(114, 1) > 0.02, c.body) << c.word;
        // The slow tremolo of the whole leaves traces beside a tone: 3 Hz away, less than a hundredth.
        EXPECT_LT(heard(325, 0), 0.02 * std::max(heard(322, 0), 0.02)) << c.word;
        EXPECT_LT(heard(322, 1), 0.02 * std::max(heard(325, 1), 0.02)) << c.word;
        EXPECT_NEAR(heard(700, 0), 0.5, 0.002) << c.word;
        EXPECT_NEAR(heard(700, 1), 0.5, 0.002) << c.word;
    }
}

TEST_F(Render, DronesSoundUnderAMidiFileFromItsStart) {
    test::MidiTrack track;
    track.off(960, 0, 60).endOfTrack();
    write("rest.mid", test::midiFile(480, {track}));
    ASSERT_EQ(run("render rest.mid out.wav --activation heart").status, 0);
    const auto samples = samplesOf(path("out.wav"));
    ASSERT_EQ(samples.size(), 2u * 44100);
    EXPECT_GT(strengthOf(samples, 322, 0, 44100, 0), 0.02);
    EXPECT_GT(strengthOf(samples, 325, 0, 44100, 1), 0.02);
    EXPECT_LT(strengthOf(samples, 325, 0, 44100, 0), 0.002);
}

}  // namespace
}  // namespace veloria
