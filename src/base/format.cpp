#include "base/format.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>

namespace veloria {

std::string formatText(const char* format, ...) {
    char buffer[128];  // room for nearly every line of the interface
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    if (length <= 0) return {};
    const auto size = static_cast<std::size_t>(length);
    if (size < sizeof buffer) return {buffer, size};
    std::string text(size, '\0');
    va_start(arguments, format);
    std::vsnprintf(text.data(), size + 1, format, arguments);
    va_end(arguments);
    return text;
}

}  // namespace veloria
