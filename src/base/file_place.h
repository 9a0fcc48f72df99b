// What the system has to say to a file that is to be replaced; linux/ and windows/ are behind it.
#pragma once

#include <cstdio>
#include <string>

namespace veloria {

enum class PlaceKind {
    None,     // nothing can be written there: a folder, a file that may not be written, a broken name
    Direct,   // a device, a pipe, an open descriptor's name
    Free,     // nothing is there yet
    OldFile,  // a regular file, which stays until another takes its place
};

struct FilePlace {
    PlaceKind kind = PlaceKind::None;
    std::string path;  // with links followed
};

// Looks at where `path` (UTF-8) leads, without opening it.
[[nodiscard]] FilePlace filePlace(const std::string& path);

// Opens what `place.kind` says is written directly. Null when it cannot be opened.
[[nodiscard]] std::FILE* openDirect(const FilePlace& place);

// Makes a new file beside the place, as accessible as the old one there if there is one, and tells its name.
// Null when none can be made.
[[nodiscard]] std::FILE* openBeside(const FilePlace& place, std::string& name);

// Brings a file's bytes from the system's buffers to the disk.
[[nodiscard]] bool syncFile(std::FILE* file);

// Puts the closed file `name` in the place; what was there is gone then. False leaves both as they are.
[[nodiscard]] bool takePlace(const std::string& name, const FilePlace& place);

void removeFile(const std::string& name);

// From here on a file that outgrows the limit set for the process fails to be written; the system would end
// the process. For the head of a program.
void outliveFileSizeLimit();

}  // namespace veloria
