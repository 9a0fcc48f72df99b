// The platform of a program without a desktop: no one to ask, no device to hold, no player to send to. Files
// are the system's own.
#include <cstdio>

#include "platform/audio_device.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/media_command.h"
#include "platform/message_box.h"

namespace veloria::platform {

void messageBox(const std::string& text, const char* title, MessageIcon /*icon*/) {
    std::fprintf(stderr, "%s: %s\n", title, text.c_str());
}

std::string chooseFileToOpen(const OpenDialog& /*dialog*/) {
    return {};
}
std::string chooseFileToSave(const SaveDialog& /*dialog*/) {
    return {};
}

int mediaCommand(const std::string& /*command*/, char* reply, std::size_t replySize) {
    if (reply != nullptr && replySize > 0) reply[0] = '\0';
    return 1;
}

void mediaErrorText(int /*code*/, char* text, std::size_t size) {
    if (size > 0) std::snprintf(text, size, "No media player is available for this file.");
}

void lockAudioDevice() {}
void unlockAudioDevice() {}
void pauseAudioDevice(bool /*paused*/) {}

// Offline work goes by the sample clock alone.
std::uint32_t ticksMs() {
    return 0;
}
void waitMs(std::uint32_t /*milliseconds*/) {}

}  // namespace veloria::platform
