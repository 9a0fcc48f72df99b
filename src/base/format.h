// Text with figures in it.
#pragma once

#include <string>

namespace veloria {

// As printf, of any length. Empty when the format cannot be followed.
[[nodiscard, gnu::format(printf, 1, 2)]] std::string formatText(const char* format, ...);

}  // namespace veloria
