#include "platform/fake/fake_platform.h"

#include <algorithm>

#include "platform/audio_device.h"
#include "platform/clock.h"
#include "platform/dialog_hook.h"
#include "platform/dialogs.h"
#include "platform/media_command.h"
#include "platform/message_box.h"

namespace veloria::platform {

namespace {

void note(const std::string& entry) {
    FakePlatform& fake = fakePlatform();
    fake.log.push_back(entry);
    // A copy, so that the callback may reset the record it lies in.
    const std::function<void(const std::string&)> onCall = fake.onCall;
    if (onCall) onCall(entry);
}

void copyText(const std::string& from, char* to, std::size_t size) {
    if (to == nullptr || size == 0) return;
    to[from.copy(to, size - 1)] = '\0';
}

std::string filterText(std::span<const FileFilter> filters) {
    std::string text;
    for (const FileFilter& filter : filters) {
        text += std::string("|") + filter.name + "=" + filter.patterns;
    }
    return text;
}

// The user takes his time.
void standDialog() {
    FakePlatform& fake = fakePlatform();
    for (std::uint32_t stood = 0; stood < fake.dialogMs; stood += kDialogHookMs) {
        fake.ticks += kDialogHookMs;
        if (fake.onDialogStep) fake.onDialogStep();
        runDialogHook();
    }
}

std::string nextDialogPath() {
    std::deque<std::string>& paths = fakePlatform().dialogPaths;
    if (paths.empty()) return {};
    std::string path = paths.front();
    paths.pop_front();
    return path;
}

FakeMediaAnswer nextMediaAnswer(const std::string& command) {
    auto& answers = fakePlatform().mediaAnswers;
    auto found = answers.find(command);
    if (found == answers.end()) found = answers.find(command.substr(0, command.find(' ')));
    if (found == answers.end() || found->second.empty()) return {};
    FakeMediaAnswer answer = found->second.front();
    if (found->second.size() > 1) found->second.pop_front();
    return answer;
}

const char* iconName(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Warning:
            return "Warning";
        case MessageIcon::Information:
            return "Information";
        case MessageIcon::Error:
            break;
    }
    return "Error";
}

}  // namespace

FakePlatform& fakePlatform() {
    static FakePlatform s_fake;
    return s_fake;
}

int FakePlatform::count(const std::string& entry) const {
    return static_cast<int>(std::count(log.begin(), log.end(), entry));
}

std::string chooseFileToOpen(const OpenDialog& dialog) {
    note(std::string("chooseFileToOpen ") + dialog.title + filterText(dialog.filters));
    standDialog();
    showKeptMessages();
    return nextDialogPath();
}

std::string chooseFileToSave(const SaveDialog& dialog) {
    note(std::string("chooseFileToSave ") + dialog.title + "|" + dialog.defaultName + "|" +
         dialog.defaultExtension + filterText(dialog.filters));
    standDialog();
    showKeptMessages();
    return nextDialogPath();
}

void messageBox(const std::string& text, const char* title, MessageIcon icon) {
    if (keepMessage(text, title, icon)) return;
    note(std::string("messageBox ") + iconName(icon) + "|" + title + "|" + text);
    standDialog();
    showKeptMessages();
}

int mediaCommand(const std::string& command, char* reply, std::size_t replySize) {
    note("mediaCommand " + command);
    const FakeMediaAnswer answer = nextMediaAnswer(command);
    copyText(answer.reply, reply, replySize);
    return answer.code;
}

void mediaErrorText(int code, char* text, std::size_t size) {
    note("mediaErrorText " + std::to_string(code));
    copyText(fakePlatform().mediaError, text, size);
}

void lockAudioDevice() {
    ++fakePlatform().lockDepth;
    note("lock");
}

void unlockAudioDevice() {
    --fakePlatform().lockDepth;
    note("unlock");
}

void pauseAudioDevice(bool paused) {
    fakePlatform().audioPaused = paused;
    note(paused ? "pause 1" : "pause 0");
}

std::uint32_t ticksMs() {
    return fakePlatform().clock ? fakePlatform().clock() : fakePlatform().ticks;
}

void waitMs(std::uint32_t milliseconds) {
    fakePlatform().ticks += milliseconds;
    note("wait " + std::to_string(milliseconds));
}

}  // namespace veloria::platform
