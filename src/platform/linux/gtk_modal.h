// Running GTK's windows modally beside SDL's. Main thread only.
#pragma once

#include <gtk/gtk.h>

#include <cstdint>

namespace veloria::platform {

// Whether the user sees anything at all: false under those of SDL's video drivers that draw nowhere.
[[nodiscard]] bool hasScreen();

// Starts GTK at the first call that finds a display. False where there is none: GTK must not be used then.
[[nodiscard]] bool startGtk();

// The time during which one modal window stands. While it lives, waiting for GTK also takes in SDL's events,
// so that the desktop does not call the program hung, and calls the dialog hook; at its end the window is
// gone from the screen, and the input that arrived meanwhile is dropped.
class GtkModal {
  public:
    GtkModal();
    ~GtkModal();
    GtkModal(const GtkModal&) = delete;
    GtkModal& operator=(const GtkModal&) = delete;

    // A GTK window that is never shown. GTK wants a parent window of its own kind for every dialog.
    [[nodiscard]] GtkWindow* standIn() const { return m_standIn; }

    // Puts the dialog in front of the program's window, where the window system lets one do so for another
    // toolkit's window. Before the dialog is shown.
    void own(GtkWindow* dialog) const;

    // Waits until *response is no longer GTK_RESPONSE_NONE.
    void wait(const int* response) const;

  private:
    GtkWindow* m_standIn;
    guint m_timer;
    std::uint32_t m_startTicks;
};

// Shows the dialog, waits for the answer (one of GtkResponseType, or the dialog's own) and destroys it.
[[nodiscard]] int runDialog(const GtkModal& modal, GtkDialog* dialog);

}  // namespace veloria::platform
