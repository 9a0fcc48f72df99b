#include "platform/files.h"

#include <sys/stat.h>

#include <exception>

#include "platform/windows/wide_text.h"

namespace veloria::platform {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

bool readToEnd(std::FILE* file, std::vector<std::uint8_t>& bytes) {
    for (;;) {
        const std::size_t filled = bytes.size();
        bytes.resize(filled + kBlockBytes);
        const std::size_t got = std::fread(bytes.data() + filled, 1, kBlockBytes, file);
        bytes.resize(filled + got);
        if (got < kBlockBytes) return std::ferror(file) == 0;
    }
}

bool isRegular(const std::string& path, struct _stat64& facts) {
    return _wstat64(toWide(path).c_str(), &facts) == 0 && (facts.st_mode & _S_IFREG) != 0;
}

}  // namespace

FileHandle openFile(const std::string& path, const char* mode) {
    return FileHandle(_wfopen(toWide(path).c_str(), toWide(mode).c_str()));
}

bool canReadFile(const std::string& path) {
    struct _stat64 facts {};
    return isRegular(path, facts) && openFile(path, "rb") != nullptr;
}

bool readWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    struct _stat64 facts {};
    if (!isRegular(path, facts)) return false;
    const FileHandle file = openFile(path, "rb");
    if (!file) return false;
    try {
        bytes.reserve(static_cast<std::size_t>(facts.st_size) + kBlockBytes);
        if (readToEnd(file.get(), bytes)) return true;
    } catch (const std::exception&) {
        // bad_alloc or length_error: the file does not fit into memory
    }
    std::vector<std::uint8_t>().swap(bytes);
    return false;
}

}  // namespace veloria::platform
