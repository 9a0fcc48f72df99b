// The platform's stand-in for tests: writes down every call in order and gives the answers that a test has
// laid out. Link `platform_fake` instead of `platform`. Files, fonts and the text of paths are the real ones
// and are not written down; neither is the asking for the time. Main thread only.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace veloria::platform {

struct FakeMediaAnswer {
    int code = 0;
    std::string reply;
};

struct FakePlatform {
    // One entry a call:
    //   open "x" alias VeloMedia  ->  mediaCommand open "x" alias VeloMedia      mediaErrorText 263
    //   messageBox Error|title|text (or Warning, Information)                    lock, unlock, pause 1, pause
    //   0 chooseFileToOpen title|name=patterns|name=patterns                       wait 50 chooseFileToSave
    //   title|default name|default extension|name=patterns
    std::vector<std::string> log;

    // The answers of the next dialogs, first in, first out; with none left the user cancels.
    std::deque<std::string> dialogPaths;

    // How long each dialog and each message box stands: the clock moves on by it, in steps of kDialogHookMs,
    // and the dialog hook is called at each.
    std::uint32_t dialogMs = 0;
    std::function<void()> onDialogStep;  // before the hook: what the audio device does meanwhile

    // What a media command answers, by the whole command or else by its first word ("status", "open"). Of
    // several answers each is given once, the last for good. A command without an entry returns 0 and an
    // empty reply.
    std::map<std::string, std::deque<FakeMediaAnswer>> mediaAnswers;

    std::string mediaError = "fake media error";  // the text of every code

    std::uint32_t ticks = 0;               // milliseconds; waitMs moves it on
    std::function<std::uint32_t()> clock;  // asked instead, if there is one

    int lockDepth = 0;         // holds of the audio device that were not given back
    bool audioPaused = false;  // as last asked for

    // Called at each call, with its entry, before the answer is given.
    std::function<void(const std::string& entry)> onCall;

    // How often the log has this very entry.
    [[nodiscard]] int count(const std::string& entry) const;

    // As new: no entries, no answers, time 0.
    void reset() { *this = FakePlatform{}; }
};

[[nodiscard]] FakePlatform& fakePlatform();

}  // namespace veloria::platform
