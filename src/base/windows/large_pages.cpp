#include "base/large_pages.h"

namespace veloria {

// Windows gives large pages only to users with a right of their own to lock memory.
void preferLargePages(void*, std::size_t) {}

}  // namespace veloria
