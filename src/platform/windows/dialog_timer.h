// Keeps the dialog hook called while one of the system's modal loops runs.
#pragma once

#include <windows.h>

#include "platform/dialog_hook.h"

namespace veloria::platform {

// A timer of the thread and not of a window: every modal loop hands its ticks on.
class DialogTimer {
  public:
    DialogTimer() : m_id(SetTimer(nullptr, 0, kDialogHookMs, tick)) { runDialogHook(); }
    ~DialogTimer() { KillTimer(nullptr, m_id); }
    DialogTimer(const DialogTimer&) = delete;
    DialogTimer& operator=(const DialogTimer&) = delete;

  private:
    static void CALLBACK tick(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*ticks*/) {
        runDialogHook();
    }
    UINT_PTR m_id;
};

}  // namespace veloria::platform
