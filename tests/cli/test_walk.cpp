#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "cli/walk.h"
#include "engine/control.h"
#include "engine/render.h"
#include "tests/cli/tool_wav.h"
#include "tests/walker/literal_walk.h"

namespace veloria {
namespace {

constexpr std::size_t kBlock = 512;

// A sample by itself and one of a block may lie on two sides of a whole number.
void expectSameSound(const std::vector<std::int16_t>& samples, const std::vector<std::int16_t>& expected,
                     const std::string& what) {
    ASSERT_EQ(samples.size(), expected.size()) << what;
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_LE(std::abs(samples[i] - expected[i]), 1) << what << ", sample " << i;
}

// The walk as its steps tell it, played on an engine by hand: a step falls at the first block whose whole
// milliseconds are `stepMs` past those of the step before it.
class WalkByHand {
  public:
    WalkByHand(int mode, int stepMs) : steps_(test::literalWalk(mode, stepMs, 1)), stepMs_(stepMs) {}

    std::vector<std::int16_t> render(std::size_t frames) {
        std::vector<std::int16_t> samples;
        for (std::size_t done = 0; done < frames; ++done) {
            if (done % kBlock == 0) tick(done);
            float out[2];
            renderStereoSample(engine_, out);
            for (const float side : out) {
                const double held = std::clamp(static_cast<double>(side), -1.0, 1.0);
                samples.push_back(static_cast<std::int16_t>(held * 32000.0));
            }
        }
        return samples;
    }

    // The frame at which each step began.
    std::vector<std::size_t> begins;

  private:
    void tick(std::size_t done) {
        const int now = static_cast<int>(done * 1000 / 44100);
        if (now - last_ < stepMs_) return;
        last_ = now;
        if (!begins.empty()) {
            for (const int hz : steps_[begins.size() - 1].hz)
                noteOffByFrequency(engine_, hz);
        }
        const test::LiteralStep& step = steps_.at(begins.size());
        for (std::size_t i = 0; i < step.hz.size(); ++i) {
            noteOn(engine_, {.frequency = static_cast<double>(step.hz[i]),
                             .volume = step.volume,
                             .pan = step.pans[i],
                             .overrides = {.fibonacciCount = 2, .piCount = 0, .teslaCount = 0},
                             .duration = step.seconds});
        }
        begins.push_back(done);
    }

    std::vector<test::LiteralStep> steps_;
    SynthEngine engine_;
    int stepMs_;
    int last_ = 0;
};

class Walk : public test::ToolTest {
  protected:
    std::vector<std::int16_t> walk(const std::string& arguments) {
        const test::ToolResult result = run("walk " + arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "");
        return test::samplesOf(path("out.wav"));
    }
};

TEST_F(Walk, LastsItsSecondsInWholeFrames) {
    EXPECT_EQ(walk("0.5 out.wav").size(), 2u * 22050);
    EXPECT_EQ(walk("0.7 out.wav").size(), 2u * 30870);  // 0.7 x 44100 is a little less in binary
    EXPECT_EQ(walk("0.0001 out.wav").size(), 2u * 4);   // 4.41 frames
    EXPECT_EQ(walk("0.00011 out.wav").size(), 2u * 4);  // 4.851: cut, not rounded
    EXPECT_EQ(walk("0 out.wav").size(), 0u);
    EXPECT_EQ(std::filesystem::file_size(path("out.wav")), 44u);
}

TEST(WalkFrames, ADecimalLengthIsNeverAFrameShort) {
    // Whole hundredths of a second are whole frames: 441 each.
    for (int hundredths = 0; hundredths < 20000; ++hundredths) {
        ASSERT_EQ(cli::walkFrames(std::stod(std::to_string(hundredths) + "e-2")),
                  static_cast<std::size_t>(hundredths) * 441)
            << hundredths;
    }
    // What is truly between two frames is cut.
    EXPECT_EQ(cli::walkFrames(99.99 / 44100.0), 99u);
    EXPECT_EQ(cli::walkFrames(99.99999 / 44100.0), 99u);
    EXPECT_EQ(cli::walkFrames(100.00001 / 44100.0), 100u);
}

TEST_F(Walk, TheFirstSoundFallsInTheBlockAfterTwoHundredMilliseconds) {
    const auto samples = walk("0.4 out.wav");
    // 17 blocks are 197 ms and 18 are 208.
    const auto first = std::find_if(samples.begin(), samples.end(), [](int s) { return s != 0; });
    const auto frame = static_cast<std::size_t>(first - samples.begin()) / 2;
    EXPECT_GE(frame, 18 * kBlock);
    EXPECT_LT(frame, 18 * kBlock + 8);
}

TEST_F(Walk, EveryStepSoundsAtItsTimeInItsPlaces) {
    WalkByHand hand(0, 200);
    const std::size_t frames = 3 * 44100;
    expectSameSound(walk("3 out.wav"), hand.render(frames), "3 s");
    EXPECT_EQ(hand.begins.size(), 14u);
}

TEST_F(Walk, KeyTonesSoundInTheActivationMode) {
    // 30 ms steps, of 35 ms in whole blocks: 40 of them pass triplets 4, 20 and 37.
    for (const auto& [word, mode] : {std::pair{"off", 0}, {"heart", 2}, {"trinity", 3}, {"fibonacci", 4}}) {
        WalkByHand hand(mode, 30);
        const std::size_t frames = 3 * 22050;
        expectSameSound(walk(std::string("1.5 out.wav --step 30 --activation ") + word), hand.render(frames),
                        word);
        EXPECT_GT(hand.begins.size(), 38u);
    }
}

TEST_F(Walk, TheHeartKeyIsHeardLowToHighFromLeftToRight) {
    // The fifth step of one second, in blocks: it begins a little after 5 s.
    const auto samples = walk("6 out.wav --step 1000 --activation heart");
    const std::size_t first = 5 * 44100 + 3000;
    const std::size_t last = first + 33075;  // three quarters of a second: what is 4 / 3 Hz apart is apart
    const auto heard = [&](double hz, std::size_t side) {
        return test::strengthOf(samples, hz, first, last, side);
    };
    EXPECT_GT(heard(322, 0), 0.05);
    EXPECT_GT(heard(358, 1), 0.05);
    EXPECT_GT(heard(325, 0), 0.02);
    EXPECT_GT(heard(325, 1), 0.02);
    EXPECT_LT(heard(358, 0), 0.2 * heard(358, 1));
    EXPECT_LT(heard(322, 1), 0.2 * heard(322, 0));
    // Without the mode the rows 12 to 14 sound there, and no key.
    const auto plain = walk("6 out.wav --step 1000");
    EXPECT_LT(test::strengthOf(plain, 322, first, last, 0), 0.01);
    const auto rows = test::literalScale();
    for (std::size_t i = 12; i < 15; ++i) {
        const double strength = test::strengthOf(plain, rows[i].hz, first, last, 0) +
                                test::strengthOf(plain, rows[i].hz, first, last, 1);
        EXPECT_GT(strength, 0.05) << rows[i].hz;
    }
}

TEST_F(Walk, TheStepIsHeldToItsRange) {
    EXPECT_EQ(walk("0.5 out.wav --step 1"), walk("0.5 out.wav --step 30"));
    EXPECT_EQ(walk("0.5 out.wav --step -99999999999"), walk("0.5 out.wav --step 30"));
    EXPECT_EQ(walk("2.5 out.wav --step 99999"), walk("2.5 out.wav --step 1000"));
    EXPECT_NE(walk("0.5 out.wav --step 30"), walk("0.5 out.wav --step 50"));
    WalkByHand slowest(0, 1000);
    expectSameSound(walk("2.5 out.wav --step 1000"), slowest.render(5 * 22050), "the slowest");
}

TEST_F(Walk, WritesItsFileAndNoOther) {
    static_cast<void>(walk("0.5 out.wav"));
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"err.txt", "out.txt", "out.wav"}));
}

TEST_F(Walk, SecondsThatAreNoLengthAreAMistake) {
    // The last is the first whole second past what the file's sizes can count.
    for (const char* seconds : {"x", "1x", "''", "nan", "inf", "-- -1", "1e999", "0x10", "24348"}) {
        const test::ToolResult result = run(std::string("walk ") + seconds + " out.wav");
        EXPECT_EQ(result.status, 2) << seconds;
        EXPECT_NE(result.err.find("SECONDS"), std::string::npos) << seconds << ": " << result.err;
        EXPECT_FALSE(std::filesystem::exists(path("out.wav"))) << seconds;
    }
    EXPECT_EQ(run("walk -1 out.wav").status, 2);
    EXPECT_EQ(run("walk 1").status, 2);
}

TEST_F(Walk, AnOutputThatCannotBeWrittenIsOneLineAndStatusOne) {
    const test::ToolResult result = run("walk 0.1 no/such/out.wav");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "veloria-cli: no/such/out.wav: cannot be written\n");
}

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(Walk, ALongOneNeedsNoMoreMemoryThanAShortOne) {
    // 200 s of sound are 35 MB; the program itself takes less than 15.
    const std::string command = "ulimit -v 30000; exec '" VELORIA_CLI "' walk 200 /dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
}
#endif

}  // namespace
}  // namespace veloria
