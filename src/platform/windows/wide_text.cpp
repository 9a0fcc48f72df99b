#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>

namespace veloria::platform {

std::wstring toWide(std::string_view utf8) {
    if (utf8.empty()) return {};
    const int length = static_cast<int>(utf8.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(needed, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), needed);
    return wide;
}

std::string fromWide(std::wstring_view wide) {
    if (wide.empty()) return {};
    const int length = static_cast<int>(wide.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(std::max(needed, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), needed, nullptr, nullptr);
    return utf8;
}

void copyText(std::string_view from, char* to, std::size_t size) {
    if (to == nullptr || size == 0) return;
    to[from.copy(to, size - 1)] = '\0';
}

}  // namespace veloria::platform
