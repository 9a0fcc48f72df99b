// Counts what the program takes from the heap and gives back. It replaces operator new and delete for the
// whole program: included by one source file of it.
#pragma once

#include <atomic>
#include <cstdlib>
#include <new>

namespace veloria::test {

inline std::atomic<long> g_allocations{0};
inline std::atomic<long> g_releases{0};

inline long allocations() {
    return g_allocations.load();
}

// Calls with memory in hand: giving back nothing costs nothing.
inline long releases() {
    return g_releases.load();
}

inline void* countedAllocation(std::size_t size) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

inline void countedRelease(void* memory) {
    if (memory != nullptr) g_releases.fetch_add(1, std::memory_order_relaxed);
    std::free(memory);
}

}  // namespace veloria::test

// Not inlined, for the compiler would then see free() meet memory of operator new and warn.
[[gnu::noinline]] void* operator new(std::size_t size) {
    return veloria::test::countedAllocation(size);
}
[[gnu::noinline]] void* operator new[](std::size_t size) {
    return veloria::test::countedAllocation(size);
}
// Sorting asks this way for its buffer, and gives it back to the ordinary delete.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    veloria::test::g_allocations.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size == 0 ? 1 : size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    veloria::test::countedRelease(memory);
}
[[gnu::noinline]] void operator delete[](void* memory) noexcept {
    veloria::test::countedRelease(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    veloria::test::countedRelease(memory);
}
[[gnu::noinline]] void operator delete[](void* memory, std::size_t) noexcept {
    veloria::test::countedRelease(memory);
}
