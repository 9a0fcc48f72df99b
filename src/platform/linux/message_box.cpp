#include "platform/message_box.h"

#include <SDL_messagebox.h>

#include <cstdio>

#include "platform/dialog_hook.h"
#include "platform/linux/gtk_modal.h"
#include "platform/path_text.h"

namespace veloria::platform {

namespace {

GtkMessageType gtkType(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Warning:
            return GTK_MESSAGE_WARNING;
        case MessageIcon::Information:
            return GTK_MESSAGE_INFO;
        case MessageIcon::Error:
            break;
    }
    return GTK_MESSAGE_ERROR;
}

std::uint32_t sdlFlags(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Warning:
            return SDL_MESSAGEBOX_WARNING;
        case MessageIcon::Information:
            return SDL_MESSAGEBOX_INFORMATION;
        case MessageIcon::Error:
            break;
    }
    return SDL_MESSAGEBOX_ERROR;
}

const char* iconName(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Warning:
            return "dialog-warning";
        case MessageIcon::Information:
            return "dialog-information";
        case MessageIcon::Error:
            break;
    }
    return "dialog-error";
}

// GTK's message windows have shown no icon of themselves since 3.10; it goes left of the text.
void addIcon(GtkMessageDialog* box, MessageIcon icon) {
    GtkWidget* image = gtk_image_new_from_icon_name(iconName(icon), GTK_ICON_SIZE_DIALOG);
    GtkBox* row = GTK_BOX(gtk_widget_get_parent(gtk_message_dialog_get_message_area(box)));
    gtk_widget_set_valign(image, GTK_ALIGN_START);
    gtk_box_pack_start(row, image, FALSE, FALSE, 0);
    gtk_box_reorder_child(row, image, 0);
    gtk_widget_show(image);
}

void showWithGtk(const std::string& text, const char* title, MessageIcon icon) {
    const GtkModal modal;
    GtkWidget* box =
        gtk_message_dialog_new(nullptr, GTK_DIALOG_MODAL, gtkType(icon), GTK_BUTTONS_OK, "%s", text.c_str());
    gtk_window_set_title(GTK_WINDOW(box), title);
    addIcon(GTK_MESSAGE_DIALOG(box), icon);
    (void)runDialog(modal, GTK_DIALOG(box));
}

void writeLine(std::string text, const char* title) {
    for (char& c : text) {
        if (c == '\n' || c == '\r') c = ' ';
    }
    std::fprintf(stderr, "%s: %s\n", title, text.c_str());
}

}  // namespace

void messageBox(const std::string& text, const char* title, MessageIcon icon) {
    if (keepMessage(text, title, icon)) return;
    const std::string shown =
        displayText(text);  // a message may quote a path, and GTK takes valid UTF-8 only
    if (startGtk()) {
        showWithGtk(shown, title, icon);
        showKeptMessages();
        return;
    }
    // SDL would look for a display of its own even under a driver that draws nowhere.
    const bool boxShown =
        hasScreen() && SDL_ShowSimpleMessageBox(sdlFlags(icon), title, shown.c_str(), nullptr) == 0;
    if (!boxShown) writeLine(shown, title);
}

}  // namespace veloria::platform
