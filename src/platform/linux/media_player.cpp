#include "platform/linux/media_player.h"

#include <memory>

#include "platform/files.h"
#include "platform/linux/media_sink.h"

namespace veloria::platform {

namespace {

// playbin's flags, which no public header names.
constexpr int kPlayAudio = 1 << 1;
constexpr int kPlaySoftVolume = 1 << 4;

constexpr GstClockTime kOpenLimit = 4 * GST_SECOND;
constexpr GstClockTime kChangeLimit = 400 * GST_MSECOND;  // less than any command is waited for
constexpr std::uint64_t kMaxMs = G_MAXINT64 / GST_MSECOND;

struct MessageUnref {
    void operator()(GstMessage* message) const { gst_message_unref(message); }
};
using Message = std::unique_ptr<GstMessage, MessageUnref>;

// The bus hands a message over by locks of its own, which the thread checker does not know. It is told of
// these two functions, the only ones that look into a message, and so still sees whatever else this file
// does.
GstMessageType messageType(const GstMessage* message) {
    return GST_MESSAGE_TYPE(message);
}
const GstObject* messageSource(const GstMessage* message) {
    return GST_MESSAGE_SRC(message);
}

GstElement* systemsChoice() {
    return gst_element_factory_make("autoaudiosink", nullptr);
}

// Lazily, as most runs never open such a file and the look for plug-ins takes time.
bool startGStreamer() {
    if (gst_is_initialized() == TRUE) return true;
    if (g_get_prgname() == nullptr) g_set_prgname("veloria");  // what a sound server lists the stream under
    return gst_init_check(nullptr, nullptr, nullptr) == TRUE;
}

std::string errorText(GstMessage* message) {
    GError* error = nullptr;
    if (messageType(message) == GST_MESSAGE_WARNING) {
        gst_message_parse_warning(message, &error, nullptr);
    } else {
        gst_message_parse_error(message, &error, nullptr);
    }
    std::string text = error != nullptr && error->message != nullptr ? error->message : "";
    g_clear_error(&error);
    return text.empty() ? "The file could not be played." : text;
}

// Without a sound device the system's choice plays to nowhere and only warns. To the user that is a failure.
bool isMissingDevice(const MediaPlayer& player, const GstMessage* message) {
    return messageType(message) == GST_MESSAGE_WARNING && player.sink != nullptr &&
           messageSource(message) == GST_OBJECT_CAST(player.sink);
}

void fetchMessages(MediaPlayer& player) {
    constexpr auto kWanted = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR);
    while (const Message message{gst_bus_pop_filtered(player.bus, kWanted)}) {
        player.ended = true;
        if (messageType(message.get()) == GST_MESSAGE_ERROR) player.refusal = errorText(message.get());
    }
}

// Waits for the first sound to stand ready at the sink.
bool waitForPreroll(MediaPlayer& player) {
    constexpr auto kWanted =
        static_cast<GstMessageType>(GST_MESSAGE_ASYNC_DONE | GST_MESSAGE_ERROR | GST_MESSAGE_WARNING);
    const gint64 end = g_get_monotonic_time() + static_cast<gint64>(GST_TIME_AS_USECONDS(kOpenLimit));
    for (;;) {
        const gint64 left = end - g_get_monotonic_time();
        const Message message{gst_bus_timed_pop_filtered(
            player.bus, left > 0 ? static_cast<GstClockTime>(left) * GST_USECOND : 0, kWanted)};
        if (!message) {
            player.refusal = kTooSlow;
            return false;
        }
        if (messageType(message.get()) == GST_MESSAGE_ASYNC_DONE) return true;
        if (isMissingDevice(player, message.get())) {
            player.refusal = "There is no sound output: " + errorText(message.get());
            return false;
        }
        if (messageType(message.get()) == GST_MESSAGE_ERROR) {
            player.refusal = errorText(message.get());
            return false;
        }
    }
}

// A picture or a silent film would stand open and never end.
bool hasSound(MediaPlayer& player) {
    int tracks = 0;
    g_object_get(player.pipeline, "n-audio", &tracks, nullptr);
    if (tracks > 0) return true;
    player.refusal = "The file holds no sound.";
    return false;
}

bool buildPipeline(MediaPlayer& player, const char* uri) {
    player.pipeline = gst_element_factory_make("playbin", nullptr);
    player.sink = g_makeMediaSink.load()();
    if (player.pipeline == nullptr || player.sink == nullptr) {
        if (player.sink != nullptr) gst_object_unref(gst_object_ref_sink(player.sink));
        closeMedia(player);
        return false;
    }
    player.bus = gst_element_get_bus(player.pipeline);
    g_object_set(player.pipeline, "uri", uri, "flags", kPlayAudio | kPlaySoftVolume, "audio-sink",
                 player.sink, nullptr);
    return true;
}

// Asks for a state and waits until it is reached, so that the next question meets no change under way.
MediaResult changeState(MediaPlayer& player, GstState state) {
    GstStateChangeReturn result = gst_element_set_state(player.pipeline, state);
    if (result == GST_STATE_CHANGE_ASYNC) {
        result = gst_element_get_state(player.pipeline, nullptr, nullptr, kChangeLimit);
    }
    if (result != GST_STATE_CHANGE_FAILURE) return MediaResult::Done;
    player.refusal = "The file could not be played.";
    fetchMessages(player);
    return MediaResult::Refused;
}

}  // namespace

std::atomic<MediaSinkMaker> g_makeMediaSink = systemsChoice;

MediaResult openMedia(MediaPlayer& player, const std::string& path) {
    if (player.pipeline != nullptr) return MediaResult::AlreadyOpen;
    // The opening of a pipe would wait for its writer.
    if (!canReadFile(path)) {
        player.refusal = "This is not a file that can be read.";
        return MediaResult::Refused;
    }
    if (!startGStreamer()) return MediaResult::NoPlayer;
    const std::unique_ptr<char, decltype(&g_free)> uri(gst_filename_to_uri(path.c_str(), nullptr), g_free);
    if (!uri) {
        player.refusal = "The path could not be understood.";
        return MediaResult::Refused;
    }
    if (!buildPipeline(player, uri.get())) return MediaResult::NoPlayer;
    // A refusal at once is on the bus as well, with its reason.
    gst_element_set_state(player.pipeline, GST_STATE_PAUSED);
    if (waitForPreroll(player) && hasSound(player)) return MediaResult::Done;
    std::string refusal;
    refusal.swap(player.refusal);
    closeMedia(player);
    player.refusal.swap(refusal);
    return MediaResult::Refused;
}

void closeMedia(MediaPlayer& player) {
    if (player.pipeline != nullptr) gst_element_set_state(player.pipeline, GST_STATE_NULL);
    if (player.bus != nullptr) gst_object_unref(player.bus);
    if (player.pipeline != nullptr) gst_object_unref(player.pipeline);
    player = MediaPlayer{};
}

MediaResult playMedia(MediaPlayer& player) {
    if (player.pipeline == nullptr) return MediaResult::NotOpen;
    const MediaResult result = changeState(player, GST_STATE_PLAYING);
    player.playing = result == MediaResult::Done;
    return result;
}

MediaResult stopMedia(MediaPlayer& player) {
    if (player.pipeline == nullptr) return MediaResult::NotOpen;
    player.playing = false;
    return changeState(player, GST_STATE_PAUSED);
}

MediaResult seekMedia(MediaPlayer& player, std::uint64_t milliseconds) {
    if (player.pipeline == nullptr) return MediaResult::NotOpen;
    gint64 duration = 0;
    const bool durationKnown =
        gst_element_query_duration(player.pipeline, GST_FORMAT_TIME, &duration) == TRUE && duration >= 0;
    if (milliseconds > kMaxMs) return MediaResult::OutOfRange;
    const auto target = static_cast<gint64>(milliseconds * GST_MSECOND);
    if (durationKnown && target > duration) return MediaResult::OutOfRange;
    fetchMessages(player);  // an end that was reported before the seek is no longer one
    constexpr auto kExactly = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    if (gst_element_seek_simple(player.pipeline, GST_FORMAT_TIME, kExactly, target) != TRUE) {
        player.refusal = "The file allows no other place to play from.";
        return MediaResult::Refused;
    }
    player.ended = false;
    player.positionMs = static_cast<std::int64_t>(milliseconds);
    gst_element_get_state(player.pipeline, nullptr, nullptr, kChangeLimit);
    return MediaResult::Done;
}

std::int64_t mediaPositionMs(MediaPlayer& player) {
    gint64 position = 0;
    if (player.pipeline != nullptr &&
        gst_element_query_position(player.pipeline, GST_FORMAT_TIME, &position) == TRUE && position >= 0) {
        player.positionMs = position / static_cast<gint64>(GST_MSECOND);
    }
    return player.positionMs;
}

const char* mediaMode(MediaPlayer& player) {
    if (player.pipeline == nullptr) return "not ready";
    fetchMessages(player);
    if (player.ended || !player.playing) return "stopped";
    GstState state = GST_STATE_NULL;
    gst_element_get_state(player.pipeline, &state, nullptr, 0);
    return state == GST_STATE_PLAYING ? "playing" : "paused";
}

}  // namespace veloria::platform
