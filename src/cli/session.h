// One instrument for one run of the tool, and what every sub-command says and writes.
#pragma once

#include <memory>
#include <string>

#include "cli/arguments.h"
#include "media/midi_file.h"
#include "media/mix.h"
#include "media/pcm_stream.h"
#include "spectral/sacred_fft.h"

namespace veloria::cli {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;   // input not read or output not written
inline constexpr int kMisused = 2;  // the arguments are off

// The parts of the instrument. Held on the heap: the retuner alone is larger than a stack should hold.
struct Session {
    SynthEngine engine;
    MidiFile midi;
    PcmStream pcm;
    SacredFft retuner;
    OutputGains gains;

    [[nodiscard]] MixSources sources() { return {engine, pcm, retuner}; }
};

// A session with the tables built and the options applied.
[[nodiscard]] std::unique_ptr<Session> makeSession(const Options& options);

// Writes "veloria-cli: FILE: reason" to standard error and gives kFailed.
int fail(const std::string& file, const std::string& reason);

// Writes "veloria-cli: ERROR (see veloria-cli --help)" to standard error and gives kMisused.
int misused(const std::string& error);

// Reads a MIDI file as LOAD does. The reason when it cannot be played; empty when it can.
[[nodiscard]] std::string loadMidi(Session& session, const std::string& path);

// Flushes standard output; kDone, or kFailed with a message when it could not be written.
int finishOutput();

}  // namespace veloria::cli
