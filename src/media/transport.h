// Loading, starting, stopping and dropping the one music file, of whichever kind. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "engine/synth_engine.h"
#include "media/midi_file.h"
#include "media/pcm_stream.h"
#include "platform/dialogs.h"
#include "spectral/sacred_fft.h"

namespace veloria {

enum class MediaKind : std::int32_t { None = 0, Midi = 1, Pcm = 2, Mci = 3 };

// What the transport remembers and the panels show.
struct Transport {
    MediaKind kind = MediaKind::None;
    bool playing = false;        // PLAY until STOP, RESET or the file's end
    bool midiNormalize = false;  // the switch "MIDI Normalize", for imports
    bool toggleFlag = false;     // cleared by RESET; nothing reads it
    std::string currentPath;     // the file loaded last, a failed one too
    std::string fileLabel;       // its name as the panel shows it, UTF-8
    std::string
        mciPosition;  // where the media device stood at its last stop (ms, text); outlives loads and RESET
    bool mciStopped = false;        // set at a stop of the media device, cleared at a play
    bool endLatch = false;          // the end of the file was seen and the file reloaded
    std::uint32_t lastMciPoll = 0;  // ms; last time the media device was asked for its mode
};

// The players that the transport speaks to.
struct MediaPlayers {
    SynthEngine& engine;
    MidiFile& midi;
    PcmStream& pcm;
    SacredFft& retuner;
};

// Loads by the path's extension: MIDI, WAV and MP3 are read here, anything else goes to the media device.
// Starts nothing. A file that cannot be read is said in one message box. The device is paused while a file is
// read.
void loadMedia(Transport& transport, const MediaPlayers& players, const std::string& path);

// Starts or goes on, and starts the drones when an activation mode is on.
void playMedia(Transport& transport, const MediaPlayers& players);

// Pauses at the place, ends the drones, and silences what the retuner still holds of the file.
void stopMedia(Transport& transport, const MediaPlayers& players);

// Drops the file and every voice.
void resetMedia(Transport& transport, const MediaPlayers& players);

// Stops and closes the media device, whether or not it is open.
void closeMci();

// Once a frame at `now` (ms): when the playing file has ended, clears `playing` and hands its path to
// `onLoadFile` once, so that it stands at its start again, stopped.
void pollMediaEnd(Transport& transport, const MediaPlayers& players, std::uint32_t now,
                  const std::function<void(const std::string&)>& onLoadFile);

// The open dialog of "LOAD MUSIC FILE".
extern const platform::OpenDialog kMusicFileDialog;

}  // namespace veloria
