// The audio thread must never wait for the heap: no mode takes memory.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/spectral/callback_stand_in.h"
#include "tests/spectral/retuner_fixture.h"

namespace {

std::atomic<long> g_allocations{0};

void* countedAllocation(std::size_t size) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

// Not inlined, for the compiler would then see free() meet memory of operator new and warn.
[[gnu::noinline]] void* operator new(std::size_t size) {
    return countedAllocation(size);
}
[[gnu::noinline]] void* operator new[](std::size_t size) {
    return countedAllocation(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace veloria {
namespace {

TEST(Allocation, theCounterCounts) {
    const long before = g_allocations.load();
    const auto memory = std::make_unique<SacredFft>();
    EXPECT_EQ(g_allocations.load(), before + 1);
    EXPECT_NE(memory, nullptr);
}

TEST(Allocation, noModeTakesMemory) {
    auto retuner = fixture::makeRetuner();
    fixture::FilePlayer file{fixture::noise(80000, 30)};
    for (const int mode : {0, 1, 2, 3}) {
        for (const int strength : {100, 50}) {
            retuner->strength = strength;
            const long before = g_allocations.load();
            retuner->SetMode(mode);
            for (int n = 0; n < 9000; ++n)
                static_cast<void>(fixture::playFrame(*retuner, file));
            static_cast<void>(report(*retuner));
            setModeOff(*retuner);
            EXPECT_EQ(g_allocations.load(), before) << mode;
        }
    }
}

}  // namespace
}  // namespace veloria
