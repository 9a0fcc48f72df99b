// One playing file behind the media commands: a GStreamer pipeline without video and subtitles. Any one
// thread at a time; GStreamer's own threads never touch this record, as its messages are fetched inside the
// calls. Each call may hang where GStreamer, a driver or a file system does.
#pragma once

#include <gst/gst.h>

#include <cstdint>
#include <string>

namespace veloria::platform {

// The outcome of an operation; the value is the code that a media command returns.
enum class MediaResult {
    Done = 0,
    UnknownCommand = 261,  // anything but 0 will do; these begin where Windows begins
    NotOpen,
    AlreadyOpen,
    NoPlayer,
    Refused,  // the file or the device, for the reason in MediaPlayer::refusal
    BadPosition,
    OutOfRange,
};

struct MediaPlayer {
    GstElement* pipeline = nullptr;
    GstBus* bus = nullptr;
    GstElement* sink = nullptr;   // owned by the pipeline
    bool playing = false;         // between play and stop
    bool ended = false;           // the end was reached, or the file broke off
    std::int64_t positionMs = 0;  // as last known
    std::string refusal;          // GStreamer's words for the last refusal
};

// What a file that is too slow to begin is refused with.
inline constexpr const char* kTooSlow = "The file did not begin to play within 4 seconds.";

// Opens the file and waits until it is known to play, 4 s at the most while nothing hangs. Only a regular
// file that can be read.
[[nodiscard]] MediaResult openMedia(MediaPlayer& player, const std::string& path);

// Releases the file; nothing open is no error to it.
void closeMedia(MediaPlayer& player);

[[nodiscard]] MediaResult playMedia(MediaPlayer& player);

// Holds the file where it is.
[[nodiscard]] MediaResult stopMedia(MediaPlayer& player);

// Goes to a place in milliseconds, exactly; behind the end is OutOfRange and changes nothing.
[[nodiscard]] MediaResult seekMedia(MediaPlayer& player, std::uint64_t milliseconds);

// The place in milliseconds; the last one known while the pipeline cannot tell.
[[nodiscard]] std::int64_t mediaPositionMs(MediaPlayer& player);

// "playing"; "paused" while it should play and waits for data or its device; "stopped" before the first play,
// after stop, at the end and after a failure under way; "not ready" when nothing is open.
[[nodiscard]] const char* mediaMode(MediaPlayer& player);

}  // namespace veloria::platform
