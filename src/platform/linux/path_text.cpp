#include "platform/path_text.h"

#include <glib.h>

#include <memory>

namespace veloria::platform {

std::string displayText(const std::string& path) {
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_utf8_make_valid(path.data(), static_cast<gssize>(path.size())), g_free);
    return text.get();
}

}  // namespace veloria::platform
