#include "platform/linux/gtk_modal.h"

#include <SDL.h>
#include <SDL_syswm.h>
#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

#include <cstring>

#include "platform/dialog_hook.h"
#include "platform/linux/stale_input.h"

namespace veloria::platform {

namespace {

bool isVideoDriver(const char* name) {
    const char* driver = SDL_GetCurrentVideoDriver();
    return driver != nullptr && std::strcmp(driver, name) == 0;
}

void pumpSdl() {
    if (SDL_WasInit(SDL_INIT_VIDEO) != 0) SDL_PumpEvents();
}

gboolean tick(gpointer /*unused*/) {
    pumpSdl();
    runDialogHook();
    return G_SOURCE_CONTINUE;
}

#ifdef GDK_WINDOWING_X11
// The program has one window; without a window manager it may have no focus, and the first id is its.
SDL_Window* programWindow() {
    SDL_Window* focused = SDL_GetKeyboardFocus();
    return focused != nullptr ? focused : SDL_GetWindowFromID(1);
}

void setX11Owner(GtkWidget* dialog) {
    GdkDisplay* display = gtk_widget_get_display(dialog);
    SDL_Window* window = programWindow();
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (!GDK_IS_X11_DISPLAY(display) || window == nullptr) return;
    if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11) return;
    GdkWindow* owner = gdk_x11_window_foreign_new_for_display(display, info.info.x11.window);
    if (owner == nullptr) return;
    gdk_window_set_transient_for(gtk_widget_get_window(dialog), owner);
    g_object_unref(owner);
}
#endif

// Wayland has no means to name another connection's window as the owner unless that connection exports it,
// which SDL does not; there the dialog stands alone.
void setOwner(GtkWidget* dialog, gpointer /*unused*/) {
#ifdef GDK_WINDOWING_X11
    setX11Owner(dialog);
#else
    (void)dialog;
#endif
}

void storeResponse(GtkDialog* /*dialog*/, int response, gpointer stored) {
    *static_cast<int*>(stored) = response;
}

void showWaitDestroy(const GtkModal& modal, GtkWidget* dialog, const int* response) {
    gtk_window_present(GTK_WINDOW(dialog));
    modal.wait(response);
    gtk_widget_destroy(dialog);
}

// What GTK must be told before its first start, and warns about when told again after one that found no
// display.
void prepareGtkOnce() {
    static bool s_prepared = false;
    if (s_prepared) return;
    s_prepared = true;
    // Both toolkits on one window system, or the dialogs could not stand in front of the window.
    gdk_set_allowed_backends(isVideoDriver("wayland") ? "wayland,x11" : "x11,wayland");
    // Numbers are written and read with a point everywhere; GTK would take the user's comma for the whole
    // process.
    gtk_disable_setlocale();
    if (g_get_prgname() == nullptr) g_set_prgname("veloria");
}

}  // namespace

bool hasScreen() {
    return !isVideoDriver("dummy") && !isVideoDriver("offscreen");
}

bool startGtk() {
    static bool s_started = false;
    if (s_started) return true;
    if (!hasScreen()) return false;
    // Starting and building take longer than the hook should wait: it is called between them as well.
    runDialogHook();
    prepareGtkOnce();
    s_started = gtk_init_check(nullptr, nullptr) == TRUE;
    return s_started;
}

GtkModal::GtkModal()
    : m_standIn(GTK_WINDOW(gtk_window_new(GTK_WINDOW_TOPLEVEL))),
      m_timer(g_timeout_add(kDialogHookMs, tick, nullptr)),
      m_startTicks(SDL_GetTicks()) {
    runDialogHook();
}

GtkModal::~GtkModal() {
    g_source_remove(m_timer);
    gtk_widget_destroy(GTK_WIDGET(m_standIn));
    while (g_main_context_iteration(nullptr, FALSE) == TRUE) {
    }
    runDialogHook();
    gdk_display_sync(gdk_display_get_default());
    pumpSdl();
    dropStaleInput(m_startTicks);
}

void GtkModal::own(GtkWindow* dialog) const {
    gtk_window_set_transient_for(dialog, m_standIn);
    // After GTK's own handler, when the window of the window system exists but is not yet on the screen.
    g_signal_connect(dialog, "realize", G_CALLBACK(setOwner), nullptr);
}

void GtkModal::wait(const int* response) const {
    runDialogHook();
    // The timer ends every iteration soon, whether or not GTK has anything to do.
    while (*response == GTK_RESPONSE_NONE)
        g_main_context_iteration(nullptr, TRUE);
}

int runDialog(const GtkModal& modal, GtkDialog* dialog) {
    int response = GTK_RESPONSE_NONE;
    g_signal_connect(dialog, "response", G_CALLBACK(storeResponse), &response);
    // Escape and the close box answer as well, and would destroy the dialog behind our back.
    g_signal_connect(dialog, "delete-event", G_CALLBACK(gtk_true), nullptr);
    modal.own(GTK_WINDOW(dialog));
    gtk_window_set_modal(GTK_WINDOW(dialog), TRUE);
    showWaitDestroy(modal, GTK_WIDGET(dialog), &response);
    return response;
}

}  // namespace veloria::platform
