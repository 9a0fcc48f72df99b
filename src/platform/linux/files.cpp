#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <exception>

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
bool readToEnd(int descriptor, std::size_t expected, std::vector<std::uint8_t>& bytes) {
    bytes.resize(expected + 1);  // the one more byte finds the end without a second growth
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size()) bytes.resize(filled + kBlockBytes);
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

bool readWholeFile(const std::string& path, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    struct stat facts {};
    const Descriptor file(openToRead(path));
    if (!isRegular(file, facts)) return false;
    try {
        if (readToEnd(file.number, static_cast<std::size_t>(facts.st_size), bytes)) return true;
    } catch (const std::exception&) {
        // bad_alloc or length_error: the file does not fit into memory
    }
    std::vector<std::uint8_t>().swap(bytes);
    return false;
}

}  // namespace veloria::platform
