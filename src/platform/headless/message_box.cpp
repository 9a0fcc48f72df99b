#include "platform/message_box.h"

#include <cstdio>

namespace veloria::platform {

// There is no window to be modal to: the text goes where a tool's complaints go.
void messageBox(const std::string& text, const char* title, MessageIcon /*icon*/) {
    std::fprintf(stderr, "%s: %s\n", title, text.c_str());
}

}  // namespace veloria::platform
