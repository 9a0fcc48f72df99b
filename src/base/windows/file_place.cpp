#include "base/file_place.h"

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <atomic>
#include <cerrno>
#include <filesystem>

namespace veloria {

namespace {

namespace fs = std::filesystem;

constexpr int kMostNames = 1000;
constexpr DWORD kLongestPath = 32768;  // in UTF-16 units

fs::path wide(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string narrow(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

// Closes a handle at the end of a scope.
struct Handle {
    HANDLE value;
    explicit Handle(HANDLE opened) : value(opened) {}
    ~Handle() {
        if (value != INVALID_HANDLE_VALUE) CloseHandle(value);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
};

// Where an open file really lies, with links followed; `path` itself when the system does not tell.
std::string finalPath(HANDLE file, const std::string& path) {
    std::wstring text(kLongestPath, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(file, text.data(), kLongestPath, FILE_NAME_NORMALIZED);
    if (length == 0 || length >= kLongestPath) return path;
    text.resize(length);
    return narrow(text);
}

fs::path nameBeside(const std::string& path) {
    static std::atomic<unsigned> s_count{0};
    return wide(path).parent_path() /
           (".veloria-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(s_count++) + ".part");
}

}  // namespace

FilePlace filePlace(const std::string& path) {
    if (path.empty()) return {};
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle file(CreateFileW(wide(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (file.value == INVALID_HANDLE_VALUE) {
        const DWORD fault = GetLastError();
        return fault == ERROR_FILE_NOT_FOUND ? FilePlace{PlaceKind::Free, path} : FilePlace{};
    }
    if (GetFileType(file.value) != FILE_TYPE_DISK) return {PlaceKind::Direct, path};
    BY_HANDLE_FILE_INFORMATION facts{};
    if (GetFileInformationByHandle(file.value, &facts) == 0) return {};
    if ((facts.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) return {};
    return {PlaceKind::OldFile, finalPath(file.value, path)};
}

std::FILE* openDirect(const FilePlace& place) {
    return _wfopen(wide(place.path).c_str(), L"wb");
}

std::FILE* openBeside(const FilePlace& place, std::string& name) {
    int descriptor = -1;
    for (int i = 0; i < kMostNames && descriptor < 0; ++i) {
        const fs::path beside = nameBeside(place.path);
        name = narrow(beside);
        descriptor = _wopen(beside.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                            _S_IREAD | _S_IWRITE);
        if (descriptor < 0 && errno != EEXIST) break;
    }
    if (descriptor < 0) return nullptr;
    std::FILE* file = _fdopen(descriptor, "wb");
    if (file == nullptr) {
        _close(descriptor);
        removeFile(name);
    }
    return file;
}

bool syncFile(std::FILE* file) {
    return _commit(_fileno(file)) == 0;
}

bool takePlace(const std::string& name, const FilePlace& place) {
    const fs::path from = wide(name);
    const fs::path to = wide(place.path);
    // The first keeps the old file's rights, but not every file system knows it.
    if (place.kind == PlaceKind::OldFile &&
        ReplaceFileW(to.c_str(), from.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) !=
            0) {
        return true;
    }
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

void removeFile(const std::string& name) {
    DeleteFileW(wide(name).c_str());
}

void outliveFileSizeLimit() {
    // There is no such limit here.
}

}  // namespace veloria
