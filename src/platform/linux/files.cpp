#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <limits>

#include "base/large_pages.h"

namespace veloria::platform {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

// Closes a descriptor at the end of a scope.
struct Descriptor {
    int number;
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() {
        if (number >= 0) close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
};

// The kernel's own files report a size of 0 and a file may grow meanwhile, so the end is where reading ends.
bool readUpTo(int descriptor, std::size_t expected, std::size_t most, std::vector<std::uint8_t>& bytes) {
    // The one more byte finds the end without a second growth.
    reserveLarge(bytes, std::min(expected + 1, most));
    bytes.resize(std::min(expected + 1, most));
    std::size_t filled = 0;
    while (filled < most) {
        if (filled == bytes.size()) bytes.resize(filled + std::min(kBlockBytes, most - filled));
        const ssize_t got = read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return false;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return true;
}

// Without O_NONBLOCK the opening of a pipe that nobody writes to would wait for ever.
int openToRead(const std::string& path) {
    return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

bool isRegular(const Descriptor& file, struct stat& facts) {
    return file.number >= 0 && fstat(file.number, &facts) == 0 && S_ISREG(facts.st_mode);
}

}  // namespace

FileHandle openFile(const std::string& path, const char* mode) {
    return FileHandle(std::fopen(path.c_str(), mode));
}

bool canReadFile(const std::string& path) {
    struct stat facts {};
    const Descriptor file(openToRead(path));
    return isRegular(file, facts);
}

std::optional<FileIdentity> fileIdentity(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0) return {};
    return FileIdentity{facts.st_dev, facts.st_ino};
}

bool readWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes) {
    return readFileStart(path, std::numeric_limits<std::size_t>::max(), bytes);
}

bool readFileStart(const std::string& path, std::size_t most, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    struct stat facts {};
    const Descriptor file(openToRead(path));
    if (!isRegular(file, facts)) return false;
    try {
        if (readUpTo(file.number, static_cast<std::size_t>(facts.st_size), most, bytes)) return true;
    } catch (const std::exception&) {
        // bad_alloc or length_error: the file does not fit into memory
    }
    std::vector<std::uint8_t>().swap(bytes);
    return false;
}

}  // namespace veloria::platform
