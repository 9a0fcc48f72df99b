#include "media/extension.h"

#include <algorithm>

namespace veloria {

std::string extensionOf(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos) return {};
    std::string extension = path.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

}  // namespace veloria
