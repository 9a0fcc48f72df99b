#include "cli/option_table.h"

#include <array>

#include "frequency/tables.h"
#include "spectral/sacred_fft.h"
#include "walker/activation.h"
#include "walker/scale_walker.h"

namespace veloria::cli {

namespace {

// One bit a sub-command, for the options that mean something to it.
constexpr unsigned kRender = 1u << static_cast<unsigned>(Command::Render);
constexpr unsigned kWalk = 1u << static_cast<unsigned>(Command::Walk);
constexpr unsigned kNotes = 1u << static_cast<unsigned>(Command::Notes);
constexpr unsigned kRecord = 1u << static_cast<unsigned>(Command::Record);
constexpr unsigned kClips = 1u << static_cast<unsigned>(Command::Clips);

constexpr std::array<CommandRow, 7> kCommands = {{
    {Command::Render, "render", "INPUT OUTPUT.wav", 2,
     "what PLAY would sound of a .mid, .midi, .wav or .mp3 file, to a file"},
    {Command::Record, "record", "INPUT.mid OUTPUT.wav", 2,
     "a MIDI file imported into the recorder, and the recorder exported, to a file"},
    {Command::Walk, "walk", "SECONDS OUTPUT.wav", 2, "the scale walker from its start, to a file",
     FirstOperand::Seconds},
    {Command::Notes, "notes", "INPUT.mid", 1, "CSV of the tuned notes, on standard output"},
    {Command::Clips, "clips", "INPUT.mid", 1,
     "CSV of the recorder clips an import makes, on standard output"},
    {Command::Scale, "scale", "", 0, "the 342 frequencies in the walker's order, on standard output"},
    {Command::Obj, "obj", "tree|tesla OUTPUT.obj", 2, "the figure of the 3-D scene, to a file",
     FirstOperand::Coordinates},
}};

constexpr Word kTables[] = {{"avatar", 0}, {"shadow", 1}};
constexpr Word kWaveforms[] = {{"sine", 0}, {"saw", 1}, {"square", 2}, {"triangle", 3}};
constexpr Word kRetunerModes[] = {
    {"off", kModeOff}, {"full", kModeFull}, {"peak", kModePeak}, {"solfeggio", kModeSolfeggio}};
constexpr Word kActivations[] = {{"off", kActivationOff},
                                 {"heart", kActivationHeart},
                                 {"trinity", kActivationTrinity},
                                 {"fibonacci", kActivationFibonacci}};

constexpr OptionRow kOptions[] = {
    {.name = "--original-midi",
     .value = Value::None,
     .commands = kRender | kRecord | kNotes | kClips,
     .help = "Sacred Optimizer off",
     .flag = &Options::originalMidi},
    {.name = "--table",
     .value = Value::Word,
     .commands = kRender | kRecord | kNotes | kClips,
     .help = "table that keys are tuned to",
     .number = &Options::tableChoice,
     .words = kTables},
    {.name = "--bass-filter",
     .value = Value::None,
     .commands = kRender | kRecord | kNotes | kClips,
     .help = "bass filter on",
     .flag = &Options::bassFilter},
    {.name = "--normalize",
     .value = Value::None,
     .commands = kRecord | kClips,
     .help = "MIDI Normalize on: clips are named after folded frequencies",
     .flag = &Options::normalize},
    {.name = "--waveform",
     .value = Value::Word,
     .commands = kRender | kRecord | kWalk,
     .help = "waveform of all voices",
     .number = &Options::waveform,
     .words = kWaveforms},
    {.name = "--fibonacci",
     .value = Value::Whole,
     .commands = kRender | kRecord | kWalk,
     .help = "Fibonacci partials",
     .number = &Options::fibonacci,
     .sign = "N",
     .high = 14},
    {.name = "--pi",
     .value = Value::Whole,
     .commands = kRender | kRecord | kWalk,
     .help = "partials of pi's digits",
     .number = &Options::pi,
     .sign = "N",
     .high = 14},
    {.name = "--tesla",
     .value = Value::Whole,
     .commands = kRender | kRecord | kWalk,
     .help = "Tesla 3-6-9 partials",
     .number = &Options::tesla,
     .sign = "N",
     .high = 3},
    {.name = "--octave",
     .value = Value::Whole,
     .commands = kRender | kRecord | kWalk,
     .help = "octaves stacked",
     .number = &Options::octave,
     .sign = "N",
     .low = -3,
     .high = 3},
    {.name = "--phi",
     .value = Value::Whole,
     .commands = kRender | kRecord | kWalk,
     .help = "powers of phi stacked",
     .number = &Options::phi,
     .sign = "N",
     .low = -3,
     .high = 3},
    {.name = "--fib-phase",
     .value = Value::Whole,
     .commands = kRender | kRecord | kWalk,
     .help = "Fibonacci phase in per cent",
     .number = &Options::fibPhase,
     .sign = "N",
     .high = 100},
    {.name = "--tesla-phase",
     .value = Value::Whole,
     .commands = kRender | kRecord | kWalk,
     .help = "Tesla phase in per cent",
     .number = &Options::teslaPhase,
     .sign = "N",
     .high = 100},
    {.name = "--fft",
     .value = Value::Word,
     .commands = kRender,
     .help = "retuner of .wav and .mp3 files",
     .number = &Options::fft,
     .words = kRetunerModes},
    {.name = "--target",
     .value = Value::Choice,
     .commands = kRender,
     .help = "target of --fft solfeggio in Hz",
     .number = &Options::target,
     .sign = "HZ",
     .choices = sacredTargets},
    {.name = "--strength",
     .value = Value::Whole,
     .commands = kRender,
     .help = "strength of the retuner in per cent",
     .number = &Options::strength,
     .sign = "N",
     .high = 100},
    {.name = "--activation",
     .value = Value::Word,
     .commands = kRender | kWalk,
     .help = "key tones of the walk, drones under a file",
     .number = &Options::activation,
     .words = kActivations},
    {.name = "--step",
     .value = Value::Held,
     .commands = kWalk,
     .help = "time of a step in ms",
     .number = &Options::stepMs,
     .sign = "MS",
     .low = kMinStepMs,
     .high = kMaxStepMs},
    {.name = "--out-dir",
     .value = Value::Text,
     .commands = kRender,
     .help = "render every FILE into this folder, its name kept with .wav",
     .text = &Options::outDir,
     .sign = "DIR"},
    {.name = "--jobs",
     .value = Value::Whole,
     .commands = kRender,
     .help = "files of --out-dir rendered at once, else one a core",
     .number = &Options::jobs,
     .sign = "N",
     .low = 1,
     .high = kMostJobs},
    {.name = "--quiet",
     .value = Value::None,
     .commands = kRender | kRecord | kWalk,
     .help = "no progress bar",
     .flag = &Options::quiet},
};

}  // namespace

std::span<const CommandRow> commandRows() {
    return kCommands;
}

std::span<const OptionRow> optionRows() {
    return kOptions;
}

}  // namespace veloria::cli
