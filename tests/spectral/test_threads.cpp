// The callback's thread against the panel's, with a mutex for the audio lock. ThreadSanitizer judges the
// accesses; the checks here judge the rows.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <mutex>
#include <thread>

#include "tests/spectral/callback_stand_in.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

// A callback thread that plays a file for ever, and ends when the test does, failed or not.
class Callback {
  public:
    Callback(SacredFft& retuner, std::mutex& audioLock)
        : thread_([this, &retuner, &audioLock] { run(retuner, audioLock); }) {}
    ~Callback() {
        done_ = true;
        thread_.join();
    }
    Callback(const Callback&) = delete;
    Callback& operator=(const Callback&) = delete;

    long blocks() const { return blocks_.load(); }
    bool outOfRange() const { return outOfRange_.load(); }

    // Waits until `count` more callbacks have run from their beginning to their end.
    void await(long count) const {
        const long target = calls_.load() + 1 + count;
        while (calls_.load() < target)
            std::this_thread::yield();
    }

  private:
    void run(SacredFft& retuner, std::mutex& audioLock) {
        fixture::FilePlayer file{fixture::noise(44100, 31)};
        while (!done_.load()) {
            const std::lock_guard<std::mutex> held(audioLock);
            for (int frame = 0; frame < 512; ++frame) {
                if (file.position >= 44000) file.position = 0;
                const std::int32_t placeBefore = retuner.outputWrite;
                if (!(std::abs(fixture::playFrame(retuner, file)) < 100.0f)) outOfRange_ = true;
                if (retuner.outputWrite != placeBefore) ++blocks_;
            }
            ++calls_;
        }
    }

    std::atomic<bool> done_{false};
    std::atomic<bool> outOfRange_{false};
    std::atomic<long> calls_{0};
    std::atomic<long> blocks_{0};
    std::thread thread_;  // the last: it uses the others
};

// The rows of one report that are not one bin's of the tables.
int tornRows(const RetunerReport& copy) {
    int torn = 0;
    for (std::int32_t i = 0; i < copy.peakCount; ++i) {
        const PeakEntry& row = copy.peaks[static_cast<std::size_t>(i)];
        const auto bin = static_cast<std::size_t>(std::lround(row.sourceHz / kBinWidthHz));
        const bool whole = row.targetHz == static_cast<float>(fixture::tables().binTargetHz[bin]) &&
                           row.harmonic == fixture::tables().binHarmonic[bin] && row.level > 0.0f &&
                           row.level <= 1.0f;
        if (!whole) ++torn;
    }
    return torn;
}

TEST(Threads, modesAndTargetsChangeWhileAFilePlays) {
    constexpr int kSteps = 400;
    constexpr int kStepLimit = 20000;
    constexpr long kRows = 200;
    constexpr long kBlocks = 100;
    auto retuner = fixture::makeRetuner();
    std::mutex audioLock;
    long rows = 0;
    long blocks = 0;
    int torn = 0;
    {
        const Callback callback(*retuner, audioLock);
        for (int step = 0; step < kSteps || (step < kStepLimit && (rows <= kRows || blocks <= kBlocks));
             ++step) {
            retuner->strength = step % 101;
            retuner->targetIndex = step % 13;
            if (step % 5 == 0) {
                setModeOff(*retuner);
            } else {
                const std::lock_guard<std::mutex> held(audioLock);
                retuner->SetMode(1 + step % 3);
            }
            // Long enough, now and then, to fill the 4096 samples of a block after a change from off.
            if (step % 20 == 7) callback.await(9);
            RetunerReport copy{};
            {
                const std::lock_guard<std::mutex> held(audioLock);
                copy = report(*retuner);
            }
            rows += copy.peakCount;
            torn += tornRows(copy);
            blocks = callback.blocks();
            std::this_thread::yield();
        }
        EXPECT_FALSE(callback.outOfRange());
    }
    EXPECT_EQ(torn, 0);
    EXPECT_GT(rows, kRows);
    EXPECT_GT(blocks, kBlocks);
}

}  // namespace
}  // namespace veloria
