// The system's own file choosers. Main thread only. Both block until the user has decided; no dialog ever
// changes the process's working directory.
#pragma once

#include <span>
#include <string>

namespace veloria::platform {

struct FileFilter {
    const char* name;  // as the chooser lists it
    const char*
        patterns;  // ";"-separated, such as "*.mid;*.midi"; "*.*" is every file; letter case is ignored
};

struct OpenDialog {
    const char* title;
    std::span<const FileFilter> filters;  // the first is chosen at the start
};

struct SaveDialog {
    const char* title;
    std::span<const FileFilter> filters;
    const char* defaultName;       // suggested file name
    const char* defaultExtension;  // without the dot; appended when the chosen name has no extension
};

// The chosen path in the system's own bytes (UTF-8 on Windows); empty when the user cancels or when no dialog
// can be shown, which is said in one error box. Only files that exist can be chosen.
[[nodiscard]] std::string chooseFileToOpen(const OpenDialog& dialog);

// As above, for a file to write; asks before an existing file is overwritten, after the extension was
// appended. A folder cannot be chosen.
[[nodiscard]] std::string chooseFileToSave(const SaveDialog& dialog);

}  // namespace veloria::platform
