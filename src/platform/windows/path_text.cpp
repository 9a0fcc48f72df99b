#include "platform/path_text.h"

#include "platform/windows/wide_text.h"

namespace veloria::platform {

// Paths are UTF-8 inside the program; the way there and back replaces whatever is none.
std::string displayText(const std::string& path) {
    return fromWide(toWide(path));
}

}  // namespace veloria::platform
