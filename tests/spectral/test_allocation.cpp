// The audio thread must never wait for the heap: no mode takes memory.
#include <gtest/gtest.h>

#include "tests/counted_heap.h"
#include "tests/spectral/callback_stand_in.h"
#include "tests/spectral/retuner_fixture.h"

namespace veloria {
namespace {

TEST(Allocation, theCounterCounts) {
    const long before = test::allocations();
    const auto memory = std::make_unique<SacredFft>();
    EXPECT_EQ(test::allocations(), before + 1);
    EXPECT_NE(memory, nullptr);
}

TEST(Allocation, noModeTakesMemory) {
    auto retuner = fixture::makeRetuner();
    fixture::FilePlayer file{fixture::noise(80000, 30)};
    for (const int mode : {0, 1, 2, 3}) {
        for (const int strength : {100, 50}) {
            retuner->strength = strength;
            const long before = test::allocations();
            retuner->SetMode(mode);
            for (int n = 0; n < 9000; ++n)
                static_cast<void>(fixture::playFrame(*retuner, file));
            static_cast<void>(report(*retuner));
            setModeOff(*retuner);
            EXPECT_EQ(test::allocations(), before) << mode;
        }
    }
}

}  // namespace
}  // namespace veloria
