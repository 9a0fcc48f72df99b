// The part of a file's name that tells its kind.
#pragma once

#include <string>

namespace veloria {

// The text behind the last "." of the whole path, with the letters A to Z in lower case whatever the locale;
// empty without a ".". Any thread.
[[nodiscard]] std::string extensionOf(const std::string& path);

}  // namespace veloria
