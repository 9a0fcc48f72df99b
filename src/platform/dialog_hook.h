// What goes on while a dialog stands and its own loop has the main thread. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/message_box.h"

namespace veloria::platform {

// The hook of a standing dialog is called at this interval; 20 ms go by at the most.
inline constexpr std::uint32_t kDialogHookMs = 10;

// Called again and again while a file chooser or a message box stands; empty for none. It may do what it
// likes but show a dialog: a message box that it asks for is kept until the standing dialog has closed.
void setDialogHook(std::function<void()> hook);

// For the dialogs of each system.

// One call of the hook; nothing within another one. What it throws is dropped.
void runDialogHook();

// True when the hook asks for this box: it is kept.
[[nodiscard]] bool keepMessage(const std::string& text, const char* title, MessageIcon icon);

// Shows what was kept, behind the dialog.
void showKeptMessages();

}  // namespace veloria::platform
