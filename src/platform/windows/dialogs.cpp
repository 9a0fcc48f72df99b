#include "platform/dialogs.h"

#include <windows.h>
// commdlg.h builds on windows.h.
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "platform/message_box.h"
#include "platform/windows/dialog_timer.h"
#include "platform/windows/wide_text.h"

namespace veloria::platform {

namespace {

constexpr std::size_t kPathLength = 32768;  // the longest path that the system knows

// Pairs of name and patterns, each ended by 0, the list by one more.
std::wstring filterList(std::span<const FileFilter> filters) {
    std::wstring list;
    for (const FileFilter& filter : filters) {
        list += toWide(filter.name);
        list += L'\0';
        list += toWide(filter.patterns);
        list += L'\0';
    }
    list += L'\0';
    return list;
}

// The texts that a dialog's description points to.
struct DialogTexts {
    std::wstring title;
    std::wstring filters;
    std::wstring extension;
    std::vector<wchar_t> path;
};

DialogTexts makeTexts(const char* title, std::span<const FileFilter> filters, const char* name,
                      const char* extension) {
    DialogTexts texts{toWide(title), filterList(filters), toWide(extension),
                      std::vector<wchar_t>(kPathLength)};
    const std::wstring wideName = toWide(name);
    std::copy_n(wideName.begin(), std::min(wideName.size(), kPathLength - 1), texts.path.begin());
    return texts;
}

OPENFILENAMEW describe(DialogTexts& texts, DWORD flags) {
    OPENFILENAMEW description{};
    description.lStructSize = sizeof(description);
    description.hwndOwner = GetForegroundWindow();
    description.lpstrFilter = texts.filters.c_str();
    description.nFilterIndex = 1;  // counted from 1
    description.lpstrFile = texts.path.data();
    description.nMaxFile = static_cast<DWORD>(texts.path.size());
    description.lpstrTitle = texts.title.c_str();
    description.lpstrDefExt = texts.extension.empty() ? nullptr : texts.extension.c_str();
    // The dialogs would move the working directory, in which other files are looked for and written.
    description.Flags = flags | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR;
    return description;
}

std::string outcome(BOOL chosen, const DialogTexts& texts) {
    if (chosen) return fromWide(texts.path.data());
    if (CommDlgExtendedError() != 0) {
        messageBox("The file dialog could not be opened.", "Error", MessageIcon::Error);
    }
    return {};
}

using ShowDialog = BOOL(WINAPI*)(OPENFILENAMEW*);

std::string show(ShowDialog showDialog, OPENFILENAMEW& description, const DialogTexts& texts) {
    BOOL chosen = FALSE;
    {
        const DialogTimer timer;
        chosen = showDialog(&description);
    }
    std::string path = outcome(chosen, texts);
    showKeptMessages();
    return path;
}

}  // namespace

std::string chooseFileToOpen(const OpenDialog& dialog) {
    DialogTexts texts = makeTexts(dialog.title, dialog.filters, "", "");
    OPENFILENAMEW description = describe(texts, OFN_FILEMUSTEXIST);
    return show(GetOpenFileNameW, description, texts);
}

std::string chooseFileToSave(const SaveDialog& dialog) {
    DialogTexts texts = makeTexts(dialog.title, dialog.filters, dialog.defaultName, dialog.defaultExtension);
    OPENFILENAMEW description = describe(texts, OFN_OVERWRITEPROMPT);
    return show(GetSaveFileNameW, description, texts);
}

}  // namespace veloria::platform
