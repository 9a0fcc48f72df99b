// The command line of veloria-cli: its sub-commands and options stand in constant arrays, which are also what
// --help prints.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veloria::cli {

enum class Command { Render, Record, Walk, Notes, Clips, Scale, Obj, Help, Version };

inline constexpr std::int32_t kMostJobs = 1024;

// What the options set; a default is the instrument's own.
struct Options {
    Command command = Command::Help;
    std::vector<std::string> files;  // as many as the sub-command names
    double seconds = 0.0;            // length of a walk, 0 or above, and no longer than a WAV file holds
    bool teslaCoordinates = false;   // of an exported figure; else the Tree of Life
    bool originalMidi = false;
    std::int32_t tableChoice = 0;  // 0 Avatar, 1 Shadow
    bool bassFilter = false;
    bool normalize = false;  // MIDI Normalize
    std::int32_t waveform = 0;
    std::int32_t fibonacci = 2;
    std::int32_t pi = 0;
    std::int32_t tesla = 0;
    std::int32_t octave = 0;
    std::int32_t phi = 0;
    std::int32_t fibPhase = 0;
    std::int32_t teslaPhase = 0;
    std::int32_t fft = 0;         // RetunerMode: 0 off, 1 full, 2 peak, 3 solfeggio
    std::int32_t target = 8;      // row of sacredTargets; 8 is 528 Hz
    std::int32_t strength = 100;  // per cent
    std::int32_t activation = 0;  // ActivationMode
    std::int32_t stepMs = 200;    // of the walker, not yet held to its range
    bool quiet = false;
    std::string outDir;     // where each of `files` is rendered to; empty: there is one input and one output
    std::int32_t jobs = 0;  // files rendered at once, up to kMostJobs; 0: as many as there are cores
};

// What came of reading the command line; `error` is empty when `options` can be carried out.
struct ParsedArguments {
    Options options;
    std::string error;  // one line without the program's name
};

[[nodiscard]] ParsedArguments parseArguments(const std::vector<std::string>& arguments);

// The text of --help.
[[nodiscard]] std::string helpText();

}  // namespace veloria::cli
