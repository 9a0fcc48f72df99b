#include "platform/media_command.h"

#include <windows.h>
// mmsystem.h builds on windows.h.
#include <mmsystem.h>

#include <array>

#include "platform/windows/wide_text.h"

namespace veloria::platform {

int mediaCommand(const std::string& command, char* reply, std::size_t replySize) {
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
