// When the tables that keys are tuned by are made.
#include <gtest/gtest.h>

#include <cstdlib>

#include "media/midi_tuning.h"
#include "tests/counted_heap.h"

namespace veloria {
namespace {

// Each in a process of its own, where no other test has tuned a key yet.
class MidiTuningStartDeathTest : public ::testing::Test {
  protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

// Ends the process: 0 when a key of either table and a pan took no memory.
[[noreturn]] void tuneAndLeave() {
    SynthEngine engine;
    const long before = test::allocations();
    for (const std::int32_t choice : {0, 1}) {
        engine.midiTableChoice = choice;
        static_cast<void>(panAffinity(midiToFrequency(engine, 61, 0)));
    }
    std::exit(test::allocations() == before ? 0 : 7);
}

TEST_F(MidiTuningStartDeathTest, OncePreparedNoKeyTakesMemory) {
    const auto prepared = [] {
        prepareMidiTuning();
        tuneAndLeave();
    };
    EXPECT_EXIT(prepared(), ::testing::ExitedWithCode(0), "");
}

TEST_F(MidiTuningStartDeathTest, LeftToTheFirstKeyItDoes) {
    EXPECT_EXIT(tuneAndLeave(), ::testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace veloria
