// A text command channel to the system's media player, for the files that the instrument does not decode
// itself. Main thread only. One device at a time, under the alias VeloMedia; the commands are
//     open "PATH" alias VeloMedia       play VeloMedia      stop VeloMedia      close VeloMedia
//     seek VeloMedia to MILLISECONDS    status VeloMedia position    status VeloMedia mode
#pragma once

#include <cstddef>
#include <string>

namespace veloria::platform {

// Carries out one command. `reply` (may be null) receives the answer of a status command, cut to replySize -
// 1 bytes and ended by 0; other commands leave it empty. A position is in whole milliseconds. A mode is
// "playing"; "paused" while the player waits for data or its device; "stopped" before the first play, after
// stop, at the end and after a failure under way; "not ready", with a code, when nothing is open. Returns 0
// on success, otherwise a code for mediaErrorText. The path of "open" is what stands between the first and
// the last double quote; only a regular file that can be read is opened, and "open" waits until it is known
// to play and refuses files that hold no sound. A seek behind the end is refused and changes nothing.
// Commands come back whatever the player does (on Linux): "open" after 4 s at the latest, the others so soon
// that none of the transport's operations takes more than 5 s. A player that has hung is refused all but
// "close" from then on, and its mode is "stopped".
[[nodiscard]] int mediaCommand(const std::string& command, char* reply, std::size_t replySize);

// The reason behind a code that mediaCommand returned, cut to `size` - 1 bytes.
void mediaErrorText(int code, char* text, std::size_t size);

}  // namespace veloria::platform
