// A modal message with one OK button. Main thread only; blocks until the user has closed it. Where no box can
// be shown at all, the text goes to standard error as one line.
#pragma once

#include <string>

namespace veloria::platform {

enum class MessageIcon { Error, Warning, Information };

void messageBox(const std::string& text, const char* title, MessageIcon icon);

}  // namespace veloria::platform
