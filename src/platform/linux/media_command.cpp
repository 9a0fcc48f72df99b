#include "platform/media_command.h"

#include <charconv>
#include <string_view>

#include "platform/linux/media_player.h"

namespace veloria::platform {

namespace {

constexpr std::string_view kAlias = "VeloMedia";

MediaPlayer g_player;

// The reason of the last refusal, which outlives the player that gave it.
std::string g_refusal;

void copyText(std::string_view from, char* to, std::size_t size) {
    if (to == nullptr || size == 0) return;
    to[from.copy(to, size - 1)] = '\0';
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
    if (text.substr(0, prefix.size()) != prefix) return false;
    text.remove_prefix(prefix.size());
    return true;
}

MediaResult runOpen(std::string_view arguments) {
    const std::size_t first = arguments.find('"');
    const std::size_t last = arguments.rfind('"');
    if (first != 0 || last == first) return MediaResult::UnknownCommand;
    std::string_view behind = arguments.substr(last + 1);
    if (!takePrefix(behind, " alias ") || behind != kAlias) return MediaResult::UnknownCommand;
    return openMedia(g_player, std::string(arguments.substr(1, last - 1)));
}

MediaResult runSeek(std::string_view position) {
    std::uint64_t milliseconds = 0;
    const char* end = position.data() + position.size();
    const auto [stop, error] = std::from_chars(position.data(), end, milliseconds);
    if (g_player.pipeline == nullptr) return MediaResult::NotOpen;
    if (error == std::errc::result_out_of_range) return MediaResult::OutOfRange;
    if (error != std::errc{} || stop != end) return MediaResult::BadPosition;
    return seekMedia(g_player, milliseconds);
}

MediaResult runClose() {
    if (g_player.pipeline == nullptr) return MediaResult::NotOpen;
    closeMedia(g_player);
    return MediaResult::Done;
}

// A question is answered even when nothing is open, as far as there is an answer.
MediaResult runStatus(std::string_view item, char* reply, std::size_t replySize) {
    const MediaResult result = g_player.pipeline == nullptr ? MediaResult::NotOpen : MediaResult::Done;
    if (item == "mode") {
        copyText(mediaMode(g_player), reply, replySize);
        return result;
    }
    if (item != "position") return MediaResult::UnknownCommand;
    if (result == MediaResult::Done) copyText(std::to_string(mediaPositionMs(g_player)), reply, replySize);
    return result;
}

MediaResult run(std::string_view command, char* reply, std::size_t replySize) {
    if (takePrefix(command, "open ")) return runOpen(command);
    if (command == "play VeloMedia") return playMedia(g_player);
    if (command == "stop VeloMedia") return stopMedia(g_player);
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
    const MediaResult result = run(command, reply, replySize);
    if (result == MediaResult::Refused) g_refusal = g_player.refusal;
    return static_cast<int>(result);
}

void mediaErrorText(int code, char* text, std::size_t size) {
    copyText(textOf(static_cast<MediaResult>(code)), text, size);
}

}  // namespace veloria::platform
