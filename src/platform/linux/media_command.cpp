#include "platform/media_command.h"

#include <charconv>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/linux/bounded_thread.h"
#include "platform/linux/media_player.h"

namespace veloria::platform {

namespace {

constexpr std::string_view kAlias = "VeloMedia";
constexpr const char* kHung = "The media player does not answer.";

// How long a command may keep the program waiting. A load is "stop", "close" and "open", the end of a file
// "status" and a load, PLAY "seek" and "play": none of these sums passes 5 s.
constexpr std::chrono::milliseconds kOpenLimit{4000};
constexpr std::chrono::milliseconds kActLimit{2500};
constexpr std::chrono::milliseconds kStatusLimit{500};
constexpr std::chrono::milliseconds kCloseLimit{500};

// The one open file. Its player belongs to the thread; who hands over a job shares it.
struct OpenFile {
    std::shared_ptr<MediaPlayer> player;
    std::unique_ptr<BoundedThread> thread;  // null: nothing is open, or the player hangs
    bool hung = false;                      // a command did not come back
    std::string position;                   // last answered
};

struct Outcome {
    MediaResult result = MediaResult::Refused;
    std::string text;  // the answer, or the reason of a refusal
};

OpenFile g_open;

// The reason of the last refusal, which outlives the player that gave it.
std::string g_refusal;

bool isOpen() {
    return g_open.thread != nullptr || g_open.hung;
}

// Leaves the thread to itself: it ends what it is at, if that ever ends, and closes the player.
void letGo() {
    g_open.thread->post([player = g_open.player] { closeMedia(*player); });
    g_open.thread.reset();
    g_open.player.reset();
}

// Nothing when the player did not come back in time.
std::optional<Outcome> ask(const std::function<Outcome(MediaPlayer&)>& question,
                           std::chrono::milliseconds limit) {
    const auto outcome = std::make_shared<Outcome>();
    const bool answered = g_open.thread->run(
        [question, outcome, player = g_open.player] { *outcome = question(*player); }, limit);
    if (answered) return *outcome;
    letGo();
    return std::nullopt;
}

MediaResult refuse(const std::string& reason) {
    g_refusal = reason;
    return MediaResult::Refused;
}

// A command to the open file.
Outcome askOpen(const std::function<Outcome(MediaPlayer&)>& question, std::chrono::milliseconds limit) {
    if (!isOpen()) return {MediaResult::NotOpen, {}};
    std::optional<Outcome> outcome;
    if (!g_open.hung) outcome = ask(question, limit);
    if (!outcome) {
        g_open.hung = true;
        return {MediaResult::Refused, kHung};
    }
    return *outcome;
}

MediaResult act(const std::function<MediaResult(MediaPlayer&)>& action) {
    const Outcome outcome = askOpen(
        [action](MediaPlayer& player) {
            const MediaResult result = action(player);
            return Outcome{result, player.refusal};
        },
        kActLimit);
    if (outcome.result == MediaResult::Refused) return refuse(outcome.text);
    return outcome.result;
}

void copyText(std::string_view from, char* to, std::size_t size) {
    if (to == nullptr || size == 0) return;
    to[from.copy(to, size - 1)] = '\0';
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
    if (text.substr(0, prefix.size()) != prefix) return false;
    text.remove_prefix(prefix.size());
    return true;
}

// False where no thread is to be had.
bool startThread() {
    try {
        g_open.thread = std::make_unique<BoundedThread>();
    } catch (const std::system_error&) {
        return false;
    }
    g_open.player = std::make_shared<MediaPlayer>();
    return true;
}

MediaResult openPath(const std::string& path) {
    if (isOpen()) return MediaResult::AlreadyOpen;
    if (!startThread()) return MediaResult::NoPlayer;
    const std::optional<Outcome> outcome = ask(
        [path](MediaPlayer& player) {
            const MediaResult result = openMedia(player, path);
            return Outcome{result, player.refusal};
        },
        kOpenLimit);
    if (!outcome) return refuse(kTooSlow);
    if (outcome->result == MediaResult::Done) return MediaResult::Done;
    letGo();
    return outcome->result == MediaResult::Refused ? refuse(outcome->text) : outcome->result;
}

MediaResult runOpen(std::string_view arguments) {
    const std::size_t first = arguments.find('"');
    const std::size_t last = arguments.rfind('"');
    if (first != 0 || last == first) return MediaResult::UnknownCommand;
    std::string_view behind = arguments.substr(last + 1);
    if (!takePrefix(behind, " alias ") || behind != kAlias) return MediaResult::UnknownCommand;
    return openPath(std::string(arguments.substr(1, last - 1)));
}

MediaResult runSeek(std::string_view position) {
    std::uint64_t milliseconds = 0;
    const char* end = position.data() + position.size();
    const auto [stop, error] = std::from_chars(position.data(), end, milliseconds);
    if (!isOpen()) return MediaResult::NotOpen;
    if (error == std::errc::result_out_of_range) return MediaResult::OutOfRange;
    if (error != std::errc{} || stop != end) return MediaResult::BadPosition;
    return act([milliseconds](MediaPlayer& player) { return seekMedia(player, milliseconds); });
}

// Not waited for: what is asked next comes behind it.
MediaResult runStop() {
    if (!isOpen()) return MediaResult::NotOpen;
    if (g_open.hung) return refuse(kHung);
    g_open.thread->post([player = g_open.player] { (void)stopMedia(*player); });
    return MediaResult::Done;
}

MediaResult runClose() {
    if (!isOpen()) return MediaResult::NotOpen;
    if (g_open.thread != nullptr) {
        // In order where that is soon, so that the device is free again for the next file.
        const std::shared_ptr<MediaPlayer> player = g_open.player;
        (void)g_open.thread->run([player] { closeMedia(*player); }, kCloseLimit);
    }
    g_open = OpenFile{};
    return MediaResult::Done;
}

MediaResult answerMode(char* reply, std::size_t replySize) {
    const Outcome outcome = askOpen(
        [](MediaPlayer& player) {
            return Outcome{MediaResult::Done, mediaMode(player)};
        },
        kStatusLimit);
    if (outcome.result == MediaResult::NotOpen) {
        copyText("not ready", reply, replySize);
        return MediaResult::NotOpen;
    }
    // A player that hangs has failed under way.
    copyText(outcome.result == MediaResult::Done ? outcome.text : "stopped", reply, replySize);
    return MediaResult::Done;
}

MediaResult answerPosition(char* reply, std::size_t replySize) {
    const Outcome outcome = askOpen(
        [](MediaPlayer& player) {
            return Outcome{MediaResult::Done, std::to_string(mediaPositionMs(player))};
        },
        kStatusLimit);
    if (outcome.result == MediaResult::NotOpen) return MediaResult::NotOpen;
    if (outcome.result == MediaResult::Done) g_open.position = outcome.text;
    copyText(g_open.position, reply, replySize);
    return MediaResult::Done;
}

// A question is answered even when nothing is open, as far as there is an answer.
MediaResult runStatus(std::string_view item, char* reply, std::size_t replySize) {
    if (item == "mode") return answerMode(reply, replySize);
    if (item == "position") return answerPosition(reply, replySize);
    return MediaResult::UnknownCommand;
}

MediaResult run(std::string_view command, char* reply, std::size_t replySize) {
    if (takePrefix(command, "open ")) return runOpen(command);
    if (command == "play VeloMedia") return act(playMedia);
    if (command == "stop VeloMedia") return runStop();
    if (command == "close VeloMedia") return runClose();
    if (takePrefix(command, "seek VeloMedia to ")) return runSeek(command);
    if (takePrefix(command, "status VeloMedia ")) return runStatus(command, reply, replySize);
    return MediaResult::UnknownCommand;
}

std::string_view textOf(MediaResult result) {
    switch (result) {
        case MediaResult::Done:
            return "The command was carried out.";
        case MediaResult::UnknownCommand:
            return "The media player does not know this command.";
        case MediaResult::NotOpen:
            return "No media file is open.";
        case MediaResult::AlreadyOpen:
            return "A media file is open already.";
        case MediaResult::NoPlayer:
            return "No media player is available for this file.";
        case MediaResult::Refused:
            return g_refusal;
        case MediaResult::BadPosition:
            return "The position is no number of milliseconds.";
        case MediaResult::OutOfRange:
            return "The position lies behind the end of the file.";
    }
    return "Unknown error.";
}

}  // namespace

int mediaCommand(const std::string& command, char* reply, std::size_t replySize) {
    copyText({}, reply, replySize);
    return static_cast<int>(run(command, reply, replySize));
}

void mediaErrorText(int code, char* text, std::size_t size) {
    copyText(textOf(static_cast<MediaResult>(code)), text, size);
}

}  // namespace veloria::platform
