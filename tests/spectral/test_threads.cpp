// The callback's thread against the panel's, with a mutex for the audio lock. ThreadSanitizer judges the
// accesses; the checks here judge the rows.
#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>

#include "tests/spectral/callback_stand_in.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

TEST(Threads, modesAndTargetsChangeWhileAFilePlays) {
    auto retuner = fixture::makeRetuner();
    std::mutex audioLock;
    std::atomic<bool> done{false};
    std::thread callback([&] {
        fixture::FilePlayer file{fixture::noise(44100, 31)};
        while (!done.load()) {
            const std::lock_guard<std::mutex> held(audioLock);
            for (int frame = 0; frame < 512; ++frame) {
                if (file.position >= 44000) file.position = 0;
                if (!(std::abs(fixture::playFrame(*retuner, file)) < 100.0f)) ADD_FAILURE();
            }
        }
    });
    for (int step = 0; step < 400; ++step) {
        retuner->strength = step % 101;
        retuner->targetIndex = step % 13;
        if (step % 5 == 0) {
            setModeOff(*retuner);
        } else {
            const std::lock_guard<std::mutex> held(audioLock);
            retuner->SetMode(1 + step % 3);
        }
        RetunerReport copy{};
        {
            const std::lock_guard<std::mutex> held(audioLock);
            copy = report(*retuner);
        }
        for (std::int32_t i = 0; i < copy.peakCount; ++i) {
            const PeakEntry& row = copy.peaks[static_cast<std::size_t>(i)];
            const auto bin = static_cast<std::size_t>(std::lround(row.sourceHz / kBinWidthHz));
            ASSERT_EQ(row.targetHz, static_cast<float>(fixture::tables().binTargetHz[bin]));
            ASSERT_EQ(row.harmonic, fixture::tables().binHarmonic[bin]);
            ASSERT_GT(row.level, 0.0f);
            ASSERT_LE(row.level, 1.0f);
        }
        std::this_thread::yield();
    }
    done = true;
    callback.join();
}

}  // namespace
}  // namespace veloria
