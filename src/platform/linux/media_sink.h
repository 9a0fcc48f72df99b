// Where the media player's sound goes.
#pragma once

#include <gst/gst.h>

#include <atomic>

namespace veloria::platform {

// Makes the player's sound output at each "open"; null when there is none. The system's own choice of device
// by default; tests put a silent output here, as a build machine has no sound device. The player's thread
// reads it, one that was left behind by a hanging call perhaps late.
using MediaSinkMaker = GstElement* (*)();
extern std::atomic<MediaSinkMaker> g_makeMediaSink;

}  // namespace veloria::platform
