// Where the installed fonts are.
#pragma once

#include <span>
#include <string>

namespace veloria::platform {

struct FontRequest {
    std::span<const char* const> paths;  // fixed files, tried first in this order
    std::span<const char* const>
        families;                // installed families, tried next; only a face of that very name counts
    const char* fallbackFamily;  // what the system is asked for at last; any face it offers will do
    bool bold;
};

// The path of a font file, or the empty text when the system has no font at all.
[[nodiscard]] std::string findFont(const FontRequest& request);

}  // namespace veloria::platform
