#include "platform/dialog_hook.h"

#include <deque>
#include <utility>

namespace veloria::platform {

namespace {

struct KeptMessage {
    std::string text;
    std::string title;
    MessageIcon icon;
};

std::function<void()> g_hook;
bool g_isRunning = false;
std::deque<KeptMessage> g_kept;

}  // namespace

void setDialogHook(std::function<void()> hook) {
    g_hook = std::move(hook);
}

void runDialogHook() {
    if (g_isRunning || !g_hook) return;
    g_isRunning = true;
    try {
        g_hook();
    } catch (...) {
        // No memory: the dialog's loop is C and could not pass it on, and the next call may have some again.
    }
    g_isRunning = false;
}

bool keepMessage(const std::string& text, const char* title, MessageIcon icon) {
    if (g_isRunning) g_kept.push_back({text, title, icon});
    return g_isRunning;
}

void showKeptMessages() {
    while (!g_isRunning && !g_kept.empty()) {
        const KeptMessage message = std::move(g_kept.front());
        g_kept.pop_front();
        messageBox(message.text, message.title.c_str(), message.icon);
    }
}

}  // namespace veloria::platform
