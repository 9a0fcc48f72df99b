// What is still to come of a file that has been fed to its end.
#include "spectral/drain.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/spectral/callback_stand_in.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

constexpr std::int32_t k258 = 2;   // ratio 0.986142
constexpr std::int32_t k528 = 8;   // ratio 1.009076
constexpr std::int32_t k963 = 12;  // ratio 0.974927, the lowest

std::unique_ptr<SacredFft> makeRetuner(std::int32_t mode, std::int32_t target = k258) {
    auto retuner = fixture::makeRetuner();
    retuner->targetIndex = target;
    retuner->SetMode(mode);
    return retuner;
}

std::uint32_t toCome(const SacredFft& retuner) {
    return framesToCome(retuner, loadSettings(retuner));
}

// One frame as the callback makes it, with the retuner told where the file ends.
float frame(SacredFft& retuner, fixture::FilePlayer& file) {
    const RetunerSettings settings = loadSettings(retuner);
    const auto take = [&] {
        const float sample = file.next();
        noteIntake(retuner, file.playing ? 1 : 0, file.playing ? 0 : 1);
        return sample;
    };
    while (needsFeed(retuner, settings))
        feedSample(retuner, take());
    return retuner.processSample(take(), settings);
}

// Plays up to the frame in which the file finds its end.
void playOut(SacredFft& retuner, fixture::FilePlayer& file) {
    while (file.playing)
        static_cast<void>(frame(retuner, file));
}

// How many frames go by until nothing more sounds, of the 200000 that are listened to.
std::uint32_t soundingFrames(SacredFft& retuner, fixture::FilePlayer& file) {
    std::uint32_t last = 0;
    for (std::uint32_t n = 1; n <= 200000; ++n) {
        if (frame(retuner, file) != 0.0f) last = n;
    }
    return last;
}

TEST(Drain, nothingIsToComeWithoutAFile) {
    for (const std::int32_t mode : {kModeOff, kModeFull, kModePeak, kModeSolfeggio}) {
        auto retuner = makeRetuner(mode);
        EXPECT_EQ(toCome(*retuner), 0u) << mode;
        fixture::FilePlayer none{{}};
        none.playing = false;
        for (int n = 0; n < 10000; ++n)
            static_cast<void>(frame(*retuner, none));
        EXPECT_EQ(toCome(*retuner), 0u) << mode;
    }
}

TEST(Drain, nothingIsToComeWithTheRetunerOffOrCleared) {
    auto retuner = makeRetuner(kModeFull);
    fixture::FilePlayer file{fixture::noise(9000, 1)};
    playOut(*retuner, file);
    EXPECT_GT(toCome(*retuner), 0u);
    setModeOff(*retuner);
    EXPECT_EQ(toCome(*retuner), 0u);
    retuner->SetMode(kModePeak);  // clears the streams
    EXPECT_EQ(toCome(*retuner), 0u);
}

TEST(Drain, throughTheBlocksItIsNeverLessThanSoundsAndLessThanAHopMore) {
    for (const std::int32_t mode : {kModeFull, kModePeak}) {
        for (const std::size_t length : {1000u, 5000u, 20000u, 20500u, 21000u}) {
            auto retuner = makeRetuner(mode);
            fixture::FilePlayer file{fixture::noise(length, 2)};
            playOut(*retuner, file);
            const std::uint32_t said = toCome(*retuner);
            const std::uint32_t heard = soundingFrames(*retuner, file);
            EXPECT_GE(said, heard) << mode << " " << length;
            EXPECT_LE(said, heard + kHopSize + 4) << mode << " " << length;
            EXPECT_EQ(toCome(*retuner), 0u);
        }
    }
}

TEST(Drain, inModeThreeItIsTheFramesThatTheReadingLags) {
    for (const std::int32_t target : {1, k258, 4, 7, k963}) {
        auto retuner = makeRetuner(kModeSolfeggio, target);
        fixture::FilePlayer file{std::vector<float>(150000, 0.5f)};
        playOut(*retuner, file);
        const double ratio = fixture::tables().solfeggioRatio[static_cast<std::size_t>(target)];
        // The file and the frame of its end, less what was read: from the fifth frame on.
        const double lag = 150001.0 - (150001.0 - 4.0) * ratio;
        const std::uint32_t said = toCome(*retuner);
        EXPECT_NEAR(said, lag / ratio, 1.0) << target;
        EXPECT_EQ(soundingFrames(*retuner, file), said) << target;
        EXPECT_EQ(toCome(*retuner), 0u) << target;
    }
}

TEST(Drain, aRatioAboveOneKeepsOnlyTheFewSamplesOfTheGap) {
    auto retuner = makeRetuner(kModeSolfeggio, k528);
    fixture::FilePlayer file{std::vector<float>(50000, 0.5f)};
    playOut(*retuner, file);
    const std::uint32_t said = toCome(*retuner);
    EXPECT_LE(said, 6u);
    EXPECT_EQ(soundingFrames(*retuner, file), said);
}

TEST(Drain, itCountsDownFrameByFrame) {
    for (const std::int32_t mode : {kModeFull, kModeSolfeggio}) {
        auto retuner = makeRetuner(mode);
        fixture::FilePlayer file{fixture::noise(30000, 3)};
        playOut(*retuner, file);
        for (std::uint32_t left = toCome(*retuner); left > 0; --left) {
            ASSERT_EQ(toCome(*retuner), left) << mode;
            static_cast<void>(frame(*retuner, file));
        }
        EXPECT_EQ(toCome(*retuner), 0u);
    }
}

// With the ring almost full at the file's end, the silence behind it must not push the end out of the ring.
TEST(Drain, aNearlyFullRingStillGivesOutTheEndOfTheFile) {
    for (const auto& [target, lag] : {std::pair{k258, 65000.0}, {k963, 65400.0}}) {
        auto retuner = makeRetuner(kModeSolfeggio, target);
        const double ratio = fixture::tables().solfeggioRatio[static_cast<std::size_t>(target)];
        fixture::FilePlayer file{std::vector<float>(static_cast<std::size_t>(lag / (1.0 - ratio)), 0.5f)};
        playOut(*retuner, file);
        const std::uint32_t said = toCome(*retuner);
        EXPECT_NEAR(said, lag / ratio, 10.0) << target;
        EXPECT_LE(said, kMostFramesToCome);
        for (std::uint32_t n = 1; n < said; ++n)
            ASSERT_NE(frame(*retuner, file), 0.0f) << target << " " << n;
        static_cast<void>(frame(*retuner, file));
        for (int n = 0; n < 200000; ++n)
            ASSERT_EQ(frame(*retuner, file), 0.0f) << target << " " << n;
    }
}

// The samples are those of a reader that goes on taking silence in.
TEST(Drain, readingOutSoundsAsReadingOn) {
    for (const std::int32_t target : {k258, k528, k963}) {
        auto told = makeRetuner(kModeSolfeggio, target);
        auto untold = makeRetuner(kModeSolfeggio, target);
        fixture::FilePlayer file{fixture::noise(60000, 4)};
        fixture::FilePlayer same = file;
        for (int n = 0; n < 100000; ++n)
            ASSERT_EQ(frame(*told, file), fixture::playFrame(*untold, same)) << target << " " << n;
    }
}

}  // namespace
}  // namespace veloria
