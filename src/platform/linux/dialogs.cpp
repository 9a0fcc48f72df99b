#include "platform/dialogs.h"

#include <fnmatch.h>
#include <sys/stat.h>

#include <memory>
#include <vector>

#include "platform/dialog_hook.h"
#include "platform/linux/file_names.h"
#include "platform/linux/gtk_modal.h"
#include "platform/message_box.h"
#include "platform/path_text.h"

namespace veloria::platform {

namespace {

struct GFree {
    void operator()(char* text) const { g_free(text); }
};
using GText = std::unique_ptr<char, GFree>;

// What one showing of a chooser starts from.
struct ChooserStart {
    const char* title;
    std::span<const FileFilter> filters;
    GtkFileChooserAction action;
    std::string folder;
    std::string name;  // suggested; of a save chooser only
};

enum class FileKind { Missing, Folder, Other };

// Where the last choice of this run was made; the next chooser opens there.
std::string g_lastFolder;

FileKind kindOf(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0) return FileKind::Missing;
    return S_ISDIR(facts.st_mode) ? FileKind::Folder : FileKind::Other;
}

std::string startFolder() {
    if (!g_lastFolder.empty()) return g_lastFolder;
    const GText workingFolder(g_get_current_dir());
    return workingFolder.get();
}

gboolean matchesFileName(const GtkFileFilterInfo* info, gpointer globs) {
    if (info->filename == nullptr) return FALSE;
    const std::string name = lastElement(info->filename);
    for (const std::string& glob : *static_cast<const std::vector<std::string>*>(globs)) {
        if (fnmatch(glob.c_str(), name.c_str(), 0) == 0) return TRUE;
    }
    return FALSE;
}

void deleteGlobs(gpointer globs) {
    delete static_cast<std::vector<std::string>*>(globs);
}

// The patterns alone would do, but GTK holds them against the name as it is displayed, and to a name that is
// no UTF-8 it adds words of its own there. The second rule looks at the bytes. (A portal's chooser knows
// patterns only.)
GtkFileFilter* makeFilter(const FileFilter& filter) {
    GtkFileFilter* made = gtk_file_filter_new();
    auto globs = std::make_unique<std::vector<std::string>>(globPatterns(filter.patterns));
    gtk_file_filter_set_name(made, filter.name);
    for (const std::string& glob : *globs)
        gtk_file_filter_add_pattern(made, glob.c_str());
    gtk_file_filter_add_custom(made, GTK_FILE_FILTER_FILENAME, matchesFileName, globs.release(), deleteGlobs);
    return made;
}

void addFilters(GtkFileChooser* chooser, std::span<const FileFilter> filters) {
    for (const FileFilter& filter : filters)
        gtk_file_chooser_add_filter(chooser, makeFilter(filter));
}

// The native chooser keeps its GTK window to itself; it is found among the toplevels to be given its owner.
// A portal's chooser has none, and stands alone.
void ownChooserWindow(const GtkModal& modal) {
    GList* windows = gtk_window_list_toplevels();
    for (GList* link = windows; link != nullptr; link = link->next) {
        if (GTK_IS_FILE_CHOOSER_DIALOG(link->data)) modal.own(GTK_WINDOW(link->data));
    }
    g_list_free(windows);
}

void storeResponse(GtkNativeDialog* /*dialog*/, int response, gpointer stored) {
    *static_cast<int*>(stored) = response;
}

GtkFileChooserNative* buildChooser(const GtkModal& modal, const ChooserStart& start) {
    GtkFileChooserNative* native =
        gtk_file_chooser_native_new(start.title, modal.standIn(), start.action, nullptr, nullptr);
    GtkFileChooser* chooser = GTK_FILE_CHOOSER(native);
    addFilters(chooser, start.filters);
    gtk_file_chooser_set_current_folder(chooser, start.folder.c_str());
    if (start.action == GTK_FILE_CHOOSER_ACTION_SAVE) {
        gtk_file_chooser_set_current_name(chooser, displayText(start.name).c_str());
    }
    gtk_native_dialog_set_modal(GTK_NATIVE_DIALOG(native), TRUE);
    ownChooserWindow(modal);
    return native;
}

// Shows one chooser; the path as the file system spells it, empty when the user cancels.
std::string runChooser(const ChooserStart& start) {
    const GtkModal modal;
    GtkFileChooserNative* native = buildChooser(modal, start);
    runDialogHook();
    int response = GTK_RESPONSE_NONE;
    g_signal_connect(native, "response", G_CALLBACK(storeResponse), &response);
    gtk_native_dialog_show(GTK_NATIVE_DIALOG(native));
    modal.wait(&response);
    std::string path;
    if (response == GTK_RESPONSE_ACCEPT) {
        const GText chosen(gtk_file_chooser_get_filename(GTK_FILE_CHOOSER(native)));
        if (chosen) path = chosen.get();
    }
    gtk_native_dialog_destroy(GTK_NATIVE_DIALOG(native));
    g_object_unref(native);
    return path;
}

bool mayReplace(const std::string& path) {
    const GtkModal modal;
    const std::string name = displayText(lastElement(path));
    GtkWidget* question =
        gtk_message_dialog_new(nullptr, GTK_DIALOG_MODAL, GTK_MESSAGE_QUESTION, GTK_BUTTONS_NONE,
                               "A file named \"%s\" already exists. "
                               "Do you want to replace it?",
                               name.c_str());
    gtk_window_set_title(GTK_WINDOW(question), "Replace File?");
    gtk_dialog_add_buttons(GTK_DIALOG(question), "_Cancel", GTK_RESPONSE_CANCEL, "_Replace",
                           GTK_RESPONSE_ACCEPT, nullptr);
    gtk_dialog_set_default_response(GTK_DIALOG(question), GTK_RESPONSE_CANCEL);
    return runDialog(modal, GTK_DIALOG(question)) == GTK_RESPONSE_ACCEPT;
}

bool canShowChooser() {
    if (startGtk()) return true;
    messageBox("The file dialog could not be opened.", "Error", MessageIcon::Error);
    return false;
}

// Whether the path may be written to, with the user asked where that is in doubt.
bool isAccepted(const std::string& path) {
    switch (kindOf(path)) {
        case FileKind::Missing:
            return true;
        case FileKind::Folder:
            messageBox("\"" + lastElement(path) + "\" is a folder.", "Error", MessageIcon::Error);
            return false;
        case FileKind::Other:
            break;
    }
    return mayReplace(path);
}

std::string askToOpen(const OpenDialog& dialog) {
    if (!canShowChooser()) return {};
    ChooserStart start{dialog.title, dialog.filters, GTK_FILE_CHOOSER_ACTION_OPEN, startFolder(), {}};
    for (;;) {
        std::string path = runChooser(start);
        if (path.empty()) return {};
        start.folder = folderOf(path);
        if (kindOf(path) == FileKind::Other) {
            g_lastFolder = start.folder;
            return path;
        }
        messageBox("\"" + lastElement(path) + "\" was not found.", "Error", MessageIcon::Error);
    }
}

std::string askToSave(const SaveDialog& dialog) {
    if (!canShowChooser()) return {};
    ChooserStart start{dialog.title, dialog.filters, GTK_FILE_CHOOSER_ACTION_SAVE, startFolder(),
                       dialog.defaultName};
    for (;;) {
        const std::string chosen = runChooser(start);
        if (chosen.empty()) return {};
        // GTK's own question would be about the name without the extension, so all the asking is done here.
        std::string path = withExtension(chosen, dialog.defaultExtension);
        start.folder = folderOf(path);
        start.name = lastElement(path);
        if (isAccepted(path)) {
            g_lastFolder = start.folder;
            return path;
        }
    }
}

}  // namespace

std::string chooseFileToOpen(const OpenDialog& dialog) {
    std::string path = askToOpen(dialog);
    showKeptMessages();
    return path;
}

std::string chooseFileToSave(const SaveDialog& dialog) {
    std::string path = askToSave(dialog);
    showKeptMessages();
    return path;
}

}  // namespace veloria::platform
