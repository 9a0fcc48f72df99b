// The recorder's whole state: an arrangement of clips on up to 32 channels, its transport, and what the panel
// remembers between two events. Main thread only; the audio callback sees none of it.
#pragma once

#include <SDL.h>

#include <array>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <string>
#include <vector>

#include "engine/synth_engine.h"
#include "recorder/clip.h"
#include "recorder/kept_clips.h"

namespace veloria {

inline constexpr std::int32_t kMaxRecorderChannels = 32;
inline constexpr double kNoClipboardStart = 1e18;  // s; later than any clip

// A list and no vector: a clip keeps its address while its neighbours come, go and move.
using ClipBucket = std::list<RecorderClip>;
using ChannelClips = std::map<std::int64_t, ClipBucket>;  // by frequency key; a bucket may stand empty

// Its fields stand by subject; there is but one of it.
struct Recorder {  // NOLINT(clang-analyzer-optin.performance.Padding)
    Recorder();
    // Clips are pointed at; a copy would point into the original.
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    float exportProgress = 0.0f;  // 0 to 1; above 0 the frame shows the progress bar
    std::function<void()> onExportRecorder;
    std::function<void()> onToggleCalc;

    std::array<RecorderChannel, kMaxRecorderChannels> channels;
    std::map<std::int32_t, ChannelClips>
        clips;  // by channel; those at channelCount and above are kept, silent
    std::int32_t clipCount = 0;
    std::int32_t nextClipId = 1;
    std::uint64_t nextClipSerial = 1;
    SynthEngine* engine = nullptr;  // set once at start; without it nothing sounds
    std::int32_t channelCount = 4;  // rows in use, 1 to 32
    // The clips that have a voice, by serial, with the frequency (Hz) it sounds at. A serial never dangles,
    // and its order keeps note-offs in the order in which the clips were made.
    std::map<std::uint64_t, double> activeClips;

    double viewStart = 0.0;    // s, left edge of the timeline
    double viewSpan = 30.0;    // s across the timeline, 2 to 600
    double playhead = 0.0;     // s
    float rowZoom = 1.0f;      // 0.4 to 4
    std::int32_t scrollY = 0;  // pixels
    bool playing = false;
    bool paused = false;        // only while `playing`
    bool rangeEnabled = false;  // the range limits the export, not the playback
    double rangeStart = 0.0;    // s
    double rangeEnd = 250.0;    // s

    // What the pointer holds.
    bool draggingRowScroll = false;
    bool draggingTimeScroll = false;
    std::int32_t dragAnchor = 0;        // mouse coordinate at the start of a scroll bar drag
    std::int32_t dragAnchorScroll = 0;  // scrollY then
    double dragAnchorView = 0.0;        // viewStart then

    bool editingRangeStart = false;
    bool editingRangeEnd = false;
    std::string rangeText;  // as typed so far

    // A frequency on its way from the list.
    bool droneDragging = false;
    std::string droneLabel;
    double droneFrequency = 0.0;  // Hz
    SDL_Color droneColour{};
    std::int32_t droneKind = 0;
    std::int32_t droneIndex = 0;
    std::int32_t mouseX = 0;
    std::int32_t mouseY = 0;

    RecorderClip* grabbedClip = nullptr;
    std::int32_t grabbedChannel = -1;
    bool movingClip = false;
    bool resizingEnd = false;
    bool resizingStart = false;
    double grabOffset = 0.0;  // s from the clip's start to the mouse

    bool editOpen = false;
    RecorderClip* editClip = nullptr;
    std::int32_t editChannel = -1;
    std::int32_t editX = 0;
    std::int32_t editY = 0;
    std::int32_t editRow = -1;  // the slider being dragged

    std::uint32_t lastClickTicks = 0;  // ms
    RecorderClip* lastClickClip = nullptr;

    bool scrubbing = false;
    bool panning = false;
    std::int32_t panAnchorX = 0;
    double panAnchorView = 0.0;

    std::vector<ClipboardClip> clipboard;
    double clipboardStart = kNoClipboardStart;  // s; the earliest start in the clipboard

    KeptClips keptClips;  // of the panel's drawing alone
};

}  // namespace veloria
