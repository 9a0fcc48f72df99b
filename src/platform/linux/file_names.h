// The small rules of file names that the choosers need.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace veloria::platform {

// The patterns of a filter as GTK takes them: "*.mid;*.midi" becomes "*.[mM][iI][dD]" and
// "*.[mM][iI][dD][iI]", since file systems here tell letter case apart and the user need not; "*.*" becomes
// "*", as a file may have no dot.
[[nodiscard]] std::vector<std::string> globPatterns(std::string_view patterns);

// The path with ".extension" behind it when its last element has none; a dot that begins or ends the name
// starts no extension. An empty `extension` changes nothing.
[[nodiscard]] std::string withExtension(std::string path, std::string_view extension);

// What stands behind the last "/".
[[nodiscard]] std::string lastElement(const std::string& path);

// What stands before the last "/", "/" itself for a path of the root, empty without one.
[[nodiscard]] std::string folderOf(const std::string& path);

}  // namespace veloria::platform
