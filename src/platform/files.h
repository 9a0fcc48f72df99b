// Opening files by the paths that the choosers return.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace veloria::platform {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

// As std::fopen with a path in the form of chooseFileToOpen; null when it cannot be opened.
[[nodiscard]] FileHandle openFile(const std::string& path, const char* mode);

// True for a regular file that can be opened for reading. Never waits, as opening a pipe would.
[[nodiscard]] bool canReadFile(const std::string& path);

// What one file is known by under all of its names.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    auto operator<=>(const FileIdentity&) const = default;
};

// Nothing when there is no such file, or the system tells no identity. Links are followed.
[[nodiscard]] std::optional<FileIdentity> fileIdentity(const std::string& path);

// The whole of a regular file. False when it cannot be opened or read to its end, or when memory does not
// suffice; `bytes` is empty then.
[[nodiscard]] bool readWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes);

// The same, but no more than its first `most` bytes: for a file that may be larger than anything of use.
[[nodiscard]] bool readFileStart(const std::string& path, std::size_t most, std::vector<std::uint8_t>& bytes);

}  // namespace veloria::platform
