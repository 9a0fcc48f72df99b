#include "base/large_pages.h"

#include <sys/mman.h>

#include <cstdint>

namespace veloria {

namespace {

constexpr std::uintptr_t kLargePage = std::uintptr_t{2} << 20;

}  // namespace

void preferLargePages(void* begin, std::size_t bytes) {
    // The whole large pages in it alone: what lies around them is the allocator's.
    const auto address = reinterpret_cast<std::uintptr_t>(begin);
    const std::uintptr_t first = (address + kLargePage - 1) / kLargePage * kLargePage;
    const std::uintptr_t end = (address + bytes) / kLargePage * kLargePage;
    if (end > first) static_cast<void>(madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE));
}

}  // namespace veloria
