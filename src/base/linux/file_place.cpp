#include "base/file_place.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>

namespace veloria {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as many as the system follows
constexpr int kMostNames = 1000;

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// "/dev/stdout" and its like lead there: such a name stands for something that is open already, and putting
// another file in its place would write past it.
bool namesDescriptor(const fs::path& path) {
    std::error_code fault;
    const fs::path folder = fs::canonical(folderOf(path), fault);
    return !fault && folder.native().rfind("/proc/", 0) == 0;
}

// Follows the links of the last element, also the one that leads to nothing yet. False when `path` comes to
// the name of a descriptor.
bool followLinks(fs::path& path) {
    for (int i = 0; i < kMostLinks; ++i) {
        if (namesDescriptor(path)) return false;
        std::error_code fault;
        const fs::path to = fs::read_symlink(path, fault);
        if (fault) return true;  // no link
        path = to.is_absolute() ? to : folderOf(path) / to;
    }
    return true;
}

std::string nameBeside(const std::string& path) {
    static std::atomic<unsigned> s_count{0};
    const std::string own =
        ".veloria-" + std::to_string(getpid()) + "-" + std::to_string(s_count++) + ".part";
    return (folderOf(path) / own).native();
}

// As much of the old file's owner and rights as this user may give.
void copyAccess(const std::string& from, int to) {
    struct stat facts {};
    if (stat(from.c_str(), &facts) != 0) return;
    static_cast<void>(fchown(to, facts.st_uid, facts.st_gid) + fchmod(to, facts.st_mode & 07777));
}

}  // namespace

FilePlace filePlace(const std::string& path) {
    fs::path target = path;
    if (path.empty()) return {};
    if (!followLinks(target)) return {PlaceKind::Direct, path};
    struct stat facts {};
    if (stat(target.c_str(), &facts) != 0) {
        return errno == ENOENT ? FilePlace{PlaceKind::Free, target.native()} : FilePlace{};
    }
    if (S_ISDIR(facts.st_mode)) return {};
    if (!S_ISREG(facts.st_mode)) return {PlaceKind::Direct, path};
    // A rename asks for no right to the file itself.
    const bool writable = faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) == 0;
    return {writable ? PlaceKind::OldFile : PlaceKind::None, target.native()};
}

std::FILE* openDirect(const FilePlace& place) {
    return std::fopen(place.path.c_str(), "wb");
}

std::FILE* openBeside(const FilePlace& place, std::string& name) {
    int descriptor = -1;
    for (int i = 0; i < kMostNames && descriptor < 0; ++i) {
        name = nameBeside(place.path);
        descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor < 0 && errno != EEXIST) break;
    }
    if (descriptor < 0) return nullptr;
    if (place.kind == PlaceKind::OldFile) copyAccess(place.path, descriptor);
    std::FILE* file = fdopen(descriptor, "wb");
    if (file == nullptr) {
        close(descriptor);
        removeFile(name);
    }
    return file;
}

bool syncFile(std::FILE* file) {
    // Some file systems have no such thing to offer, and that is no fault of the file.
    return fsync(fileno(file)) == 0 || errno == EINVAL || errno == ENOSYS;
}

bool takePlace(const std::string& name, const FilePlace& place) {
    return std::rename(name.c_str(), place.path.c_str()) == 0;
}

void removeFile(const std::string& name) {
    unlink(name.c_str());
}

void outliveFileSizeLimit() {
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace veloria
