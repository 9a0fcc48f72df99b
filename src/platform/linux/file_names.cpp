#include "platform/linux/file_names.h"

namespace veloria::platform {

namespace {

bool isAsciiLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::string ignoringCase(std::string_view pattern) {
    constexpr char kCaseBit = 'a' ^ 'A';
    std::string glob;
    for (const char c : pattern) {
        if (!isAsciiLetter(c)) {
            glob += c;
            continue;
        }
        const char lower = static_cast<char>(c | kCaseBit);
        const char upper = static_cast<char>(lower ^ kCaseBit);
        glob += '[';
        glob += lower;
        glob += upper;
        glob += ']';
    }
    return glob;
}

}  // namespace

std::vector<std::string> globPatterns(std::string_view patterns) {
    std::vector<std::string> globs;
    while (!patterns.empty()) {
        const std::string_view one = patterns.substr(0, patterns.find(';'));
        patterns.remove_prefix(one.size() < patterns.size() ? one.size() + 1 : patterns.size());
        if (!one.empty()) globs.push_back(one == "*.*" ? "*" : ignoringCase(one));
    }
    return globs;
}

std::string lastElement(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return {};
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string withExtension(std::string path, std::string_view extension) {
    const std::string name = lastElement(path);
    const std::size_t dot = name.rfind('.');
    if (extension.empty() || name.empty()) return path;
    if (dot != std::string::npos && dot != 0 && dot + 1 != name.size()) return path;
    if (path.back() != '.') path += '.';
    path += extension;
    return path;
}

}  // namespace veloria::platform
