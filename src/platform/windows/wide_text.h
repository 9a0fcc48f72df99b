// UTF-8 in the program, UTF-16 in the system's calls.
#pragma once

#include <string>
#include <string_view>

namespace veloria::platform {

// What cannot be converted becomes U+FFFD, either way.
[[nodiscard]] std::wstring toWide(std::string_view utf8);
[[nodiscard]] std::string fromWide(std::wstring_view wide);

// Copies as much as fits into `size` bytes with the closing 0; a null or empty buffer is left alone.
void copyText(std::string_view from, char* to, std::size_t size);

}  // namespace veloria::platform
