// A file that is there whole or not at all. It grows under a name of its own beside its target and takes the
// target's place when it is complete: a full disk, a limit or a killed program leaves what stood there
// before.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

#include "base/file_place.h"

namespace veloria {

// One file being written; UTF-8 path. A target that is no regular file (a device, a pipe, the name of an open
// descriptor) cannot be replaced and is written directly. A link is followed and stays. After the first
// failure everything fails. One thread at a time.
class WholeFile {
  public:
    explicit WholeFile(const std::string& path);
    // What was not finished leaves nothing behind.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    // False when the file cannot be made or something could not be written.
    [[nodiscard]] bool good() const { return file_ != nullptr && !failed_; }
    bool write(const void* bytes, std::size_t count);
    // Writes over the file's first bytes; nothing may be written after that. False, and a failure of the
    // whole, where there is no going back, as in a pipe: canRewind tells.
    bool rewriteStart(const void* bytes, std::size_t count);
    [[nodiscard]] bool canRewind() const;
    // Puts the file in its target's place. False when it did not get there whole.
    [[nodiscard]] bool finish();

  private:
    void abandon();

    FilePlace place_;
    std::string beside_;  // the growing file's own name; empty when the target is written directly
    std::FILE* file_ = nullptr;
    bool failed_ = false;
};

// Writes all of `bytes` by a WholeFile.
[[nodiscard]] bool writeWholeFile(const std::string& path, const void* bytes, std::size_t count);

}  // namespace veloria
