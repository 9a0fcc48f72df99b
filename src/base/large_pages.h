// Memory for what is large and walked once.
#pragma once

#include <cstddef>
#include <vector>

namespace veloria {

// Asks the system to back `bytes` from `begin`, not yet touched, with large pages: a file of tens of
// megabytes costs thousands of page faults otherwise, which take longer than its decoding. A wish that may go
// unheard. Any thread.
void preferLargePages(void* begin, std::size_t bytes);

// Gives an empty `list` room for `count` elements in such memory. Throws as vector::reserve.
template <class T>
void reserveLarge(std::vector<T>& list, std::size_t count) {
    list.reserve(count);
    preferLargePages(list.data(), count * sizeof(T));
}

}  // namespace veloria
