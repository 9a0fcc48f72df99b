#include "platform/message_box.h"

#include <windows.h>

#include <cstdio>

#include "platform/windows/dialog_timer.h"
#include "platform/windows/wide_text.h"

namespace veloria::platform {

namespace {

UINT iconFlag(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Warning:
            return MB_ICONWARNING;
        case MessageIcon::Information:
            return MB_ICONINFORMATION;
        case MessageIcon::Error:
            break;
    }
    return MB_ICONERROR;
}

}  // namespace

void messageBox(const std::string& text, const char* title, MessageIcon icon) {
    if (keepMessage(text, title, icon)) return;
    {
        const DialogTimer timer;
        const int answer =
            MessageBoxW(nullptr, toWide(text).c_str(), toWide(title).c_str(), MB_OK | iconFlag(icon));
        if (answer == 0) std::fprintf(stderr, "%s: %s\n", title, text.c_str());
    }
    showKeptMessages();
}

}  // namespace veloria::platform
