// Where the media player's sound goes.
#pragma once

#include <gst/gst.h>

namespace veloria::platform {

// Makes the player's sound output at each "open"; null when there is none. The system's own choice of device
// by default; tests put a silent output here, as a build machine has no sound device.
using MediaSinkMaker = GstElement* (*)();
extern MediaSinkMaker g_makeMediaSink;

}  // namespace veloria::platform
