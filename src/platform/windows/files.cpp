#include "platform/files.h"

#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <exception>
#include <limits>

#include "platform/windows/wide_text.h"

namespace veloria::platform {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

bool readUpTo(std::FILE* file, std::size_t most, std::vector<std::uint8_t>& bytes) {
    while (bytes.size() < most) {
        const std::size_t filled = bytes.size();
        const std::size_t wanted = std::min(kBlockBytes, most - filled);
        bytes.resize(filled + wanted);
        const std::size_t got = std::fread(bytes.data() + filled, 1, wanted, file);
        bytes.resize(filled + got);
        if (got < wanted) return std::ferror(file) == 0;
    }
    return true;
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

std::optional<FileIdentity> fileIdentity(const std::string& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(toWide(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    BY_HANDLE_FILE_INFORMATION facts{};
    const bool told = GetFileInformationByHandle(file, &facts) != 0;
    CloseHandle(file);
    if (!told) return {};
    return FileIdentity{facts.dwVolumeSerialNumber,
                        std::uint64_t{facts.nFileIndexHigh} << 32 | facts.nFileIndexLow};
}

bool readWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes) {
    return readFileStart(path, std::numeric_limits<std::size_t>::max(), bytes);
}

bool readFileStart(const std::string& path, std::size_t most, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    struct _stat64 facts {};
    if (!isRegular(path, facts)) return false;
    const FileHandle file = openFile(path, "rb");
    if (!file) return false;
    try {
        bytes.reserve(std::min(static_cast<std::size_t>(facts.st_size) + kBlockBytes, most));
        if (readUpTo(file.get(), most, bytes)) return true;
    } catch (const std::exception&) {
        // bad_alloc or length_error: the file does not fit into memory
    }
    std::vector<std::uint8_t>().swap(bytes);
    return false;
}

}  // namespace veloria::platform
