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
    // Can this file be used? A candidate that cannot is passed over. Null: one that can be read will do.
    bool (*opens)(const std::string& path) = nullptr;
};

// The path of the first font file that can be used, or the empty text when the system has none.
[[nodiscard]] std::string findFont(const FontRequest& request);

}  // namespace veloria::platform
