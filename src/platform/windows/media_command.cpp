#include "platform/media_command.h"

#include <windows.h>
// mmsystem.h builds on windows.h.
#include <mmsystem.h>

#include <array>

#include "platform/files.h"
#include "platform/windows/wide_text.h"

namespace veloria::platform {

namespace {

// The player itself would also take a device or wait at a pipe.
bool opensNoFile(const std::string& command) {
    if (command.rfind("open ", 0) != 0) return false;
    const std::size_t first = command.find('"');
    const std::size_t last = command.rfind('"');
    return first == last || !canReadFile(command.substr(first + 1, last - first - 1));
}

}  // namespace

int mediaCommand(const std::string& command, char* reply, std::size_t replySize) {
    copyText({}, reply, replySize);
    if (opensNoFile(command)) return MCIERR_FILE_NOT_FOUND;
    std::array<wchar_t, 64> wideReply{};
    const MCIERROR code = mciSendStringW(toWide(command).c_str(), wideReply.data(),
                                         static_cast<UINT>(wideReply.size()), nullptr);
    copyText(fromWide(wideReply.data()), reply, replySize);
    return static_cast<int>(code);
}

void mediaErrorText(int code, char* text, std::size_t size) {
    std::array<wchar_t, 256> wideText{};
    const BOOL known =
        mciGetErrorStringW(static_cast<MCIERROR>(code), wideText.data(), static_cast<UINT>(wideText.size()));
    copyText(known ? fromWide(wideText.data()) : "Unknown error.", text, size);
}

}  // namespace veloria::platform
