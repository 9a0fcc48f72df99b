// Paths as the user reads them.
#pragma once

#include <string>

namespace veloria::platform {

// The path as UTF-8 for display. Bytes that are no text in the system's encoding become U+FFFD; the path
// itself stays as it is, so that a file with an odd name still opens.
[[nodiscard]] std::string displayText(const std::string& path);

}  // namespace veloria::platform
