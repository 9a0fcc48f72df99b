#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>
#include <string_view>

#include "engine/synth_engine.h"
#include "frequency/fixed_text.h"
#include "frequency/tables.h"
#include "media/wav_writer.h"

namespace veloria::cli {

namespace {

// One bit a sub-command, for the options that mean something to it.
constexpr unsigned kRender = 1u << static_cast<unsigned>(Command::Render);
constexpr unsigned kWalk = 1u << static_cast<unsigned>(Command::Walk);
constexpr unsigned kNotes = 1u << static_cast<unsigned>(Command::Notes);

struct CommandRow {
    Command command;
    std::string_view name;
    std::string_view operands;
    std::size_t operandCount;
    std::string_view help;
    bool takesSeconds = false;  // the first operand is a length and no file
};

constexpr std::array<CommandRow, 4> kCommands = {{
    {Command::Render, "render", "INPUT OUTPUT.wav", 2,
     "what PLAY would sound of a .mid, .midi, .wav or .mp3 file, to a file"},
    {Command::Walk, "walk", "SECONDS OUTPUT.wav", 2, "the scale walker from its start, to a file", true},
    {Command::Notes, "notes", "INPUT.mid", 1, "CSV of the tuned notes, on standard output"},
    {Command::Scale, "scale", "", 0, "the 342 frequencies in the walker's order, on standard output"},
}};

// The choices of an option that takes a word; the value stored is the word's place.
constexpr std::array<std::string_view, 2> kTables = {"avatar", "shadow"};
constexpr std::array<std::string_view, 4> kWaveforms = {"sine", "saw", "square", "triangle"};
constexpr std::array<std::string_view, 4> kRetunerModes = {"off", "full", "peak", "solfeggio"};
constexpr std::array<std::string_view, 4> kActivations = {"off", "heart", "trinity", "fibonacci"};

struct OptionRow {
    std::string_view name;
    std::string_view value;  // how --help calls the value; empty for a switch
    unsigned commands;       // those it means something to
    std::string_view help;
    bool Options::*flag = nullptr;              // a switch sets this
    std::int32_t Options::*number = nullptr;    // a value goes here
    std::span<const std::string_view> words{};  // the value's words; empty for a number
    std::span<const double> choices{};          // the numbers to choose from; empty for a whole number
    std::int32_t low = 0;                       // range of a number, both ends inside
    std::int32_t high = 0;
};

constexpr OptionRow kOptions[] = {
    {.name = "--original-midi",
     .value = "",
     .commands = kRender | kNotes,
     .help = "Sacred Optimizer off",
     .flag = &Options::originalMidi},
    {.name = "--table",
     .value = "avatar|shadow",
     .commands = kRender | kNotes,
     .help = "table that keys are tuned to",
     .number = &Options::tableChoice,
     .words = kTables},
    {.name = "--bass-filter",
     .value = "",
     .commands = kRender | kNotes,
     .help = "bass filter on",
     .flag = &Options::bassFilter},
    {.name = "--waveform",
     .value = "sine|saw|square|triangle",
     .commands = kRender | kWalk,
     .help = "waveform of all voices",
     .number = &Options::waveform,
     .words = kWaveforms},
    {.name = "--fibonacci",
     .value = "N",
     .commands = kRender | kWalk,
     .help = "Fibonacci partials, 0 to 14",
     .number = &Options::fibonacci,
     .high = 14},
    {.name = "--pi",
     .value = "N",
     .commands = kRender | kWalk,
     .help = "partials of pi's digits, 0 to 14",
     .number = &Options::pi,
     .high = 14},
    {.name = "--tesla",
     .value = "N",
     .commands = kRender | kWalk,
     .help = "Tesla 3-6-9 partials, 0 to 3",
     .number = &Options::tesla,
     .high = 3},
    {.name = "--octave",
     .value = "N",
     .commands = kRender | kWalk,
     .help = "octaves stacked, -3 to 3",
     .number = &Options::octave,
     .low = -3,
     .high = 3},
    {.name = "--phi",
     .value = "N",
     .commands = kRender | kWalk,
     .help = "powers of phi stacked, -3 to 3",
     .number = &Options::phi,
     .low = -3,
     .high = 3},
    {.name = "--fib-phase",
     .value = "N",
     .commands = kRender | kWalk,
     .help = "Fibonacci phase in per cent, 0 to 100",
     .number = &Options::fibPhase,
     .high = 100},
    {.name = "--tesla-phase",
     .value = "N",
     .commands = kRender | kWalk,
     .help = "Tesla phase in per cent, 0 to 100",
     .number = &Options::teslaPhase,
     .high = 100},
    {.name = "--fft",
     .value = "off|full|peak|solfeggio",
     .commands = kRender,
     .help = "retuner of .wav and .mp3 files",
     .number = &Options::fft,
     .words = kRetunerModes},
    {.name = "--target",
     .value = "HZ",
     .commands = kRender,
     .help = "one of the 13 Solfeggio targets, for --fft solfeggio",
     .number = &Options::target,
     .choices = sacredTargets},
    {.name = "--strength",
     .value = "N",
     .commands = kRender,
     .help = "strength of the retuner in per cent, 0 to 100",
     .number = &Options::strength,
     .high = 100},
    {.name = "--activation",
     .value = "off|heart|trinity|fibonacci",
     .commands = kRender | kWalk,
     .help = "key tones of the walk, drones under a file",
     .number = &Options::activation,
     .words = kActivations},
    {.name = "--step",
     .value = "MS",
     .commands = kWalk,
     .help = "time of a step, held to 30 to 1000 ms",
     .number = &Options::stepMs,
     .low = std::numeric_limits<std::int32_t>::min(),
     .high = std::numeric_limits<std::int32_t>::max()},
    {.name = "--quiet",
     .value = "",
     .commands = kRender | kWalk,
     .help = "no progress bar",
     .flag = &Options::quiet},
};

std::string quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

// Reads the whole of `text` as a whole number, one too large to hold as the largest of its sign; false when
// it is none.
bool readWhole(std::string_view text, std::int32_t& number) {
    const char* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    if (fault == std::errc::invalid_argument || stop != end) return false;
    if (fault == std::errc::result_out_of_range) {
        using Limits = std::numeric_limits<std::int32_t>;
        number = text[0] == '-' ? Limits::min() : Limits::max();
    }
    return true;
}

// Reads the whole of `text` as a decimal number; false when it is none or cannot be held.
bool readDecimal(std::string_view text, double& number) {
    const char* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc{} && stop == end;
}

std::string storeWord(const OptionRow& row, std::string_view text, Options& options) {
    const auto word = std::find(row.words.begin(), row.words.end(), text);
    if (word == row.words.end()) {
        return std::string(row.name) + " takes " + std::string(row.value) + ", not " + quoted(text);
    }
    options.*row.number = static_cast<std::int32_t>(word - row.words.begin());
    return {};
}

std::string storeChoice(const OptionRow& row, std::string_view text, Options& options) {
    double number = 0.0;
    const bool read = readDecimal(text, number);
    const auto choice = std::find(row.choices.begin(), row.choices.end(), number);
    if (!read || choice == row.choices.end()) {
        std::string error = std::string(row.name) + " takes one of";
        for (const double hz : row.choices)
            error += " " + fixedText(hz, 0);
        return error + ", not " + quoted(text);
    }
    options.*row.number = static_cast<std::int32_t>(choice - row.choices.begin());
    return {};
}

std::string storeWhole(const OptionRow& row, std::string_view text, Options& options) {
    std::int32_t number = 0;
    if (!readWhole(text, number)) {
        return std::string(row.name) + " takes a whole number, not " + quoted(text);
    }
    if (number < row.low || number > row.high) {
        return std::string(row.name) + " goes from " + std::to_string(row.low) + " to " +
               std::to_string(row.high) + ", not " + quoted(text);
    }
    options.*row.number = number;
    return {};
}

// Stores the option's value; the reason when it cannot be.
std::string storeValue(const OptionRow& row, std::string_view text, Options& options) {
    if (!row.words.empty()) return storeWord(row, text, options);
    if (!row.choices.empty()) return storeChoice(row, text, options);
    return storeWhole(row, text, options);
}

const CommandRow* findCommand(std::string_view name) {
    const auto row = std::find_if(kCommands.begin(), kCommands.end(),
                                  [name](const CommandRow& r) { return r.name == name; });
    return row == kCommands.end() ? nullptr : &*row;
}

const OptionRow* findOption(std::string_view name) {
    const auto row = std::find_if(std::begin(kOptions), std::end(kOptions),
                                  [name](const OptionRow& r) { return r.name == name; });
    return row == std::end(kOptions) ? nullptr : row;
}

// Carries out the option at arguments[place] and moves `place` to its last word; the reason when it is off.
std::string readOption(const std::vector<std::string>& arguments, std::size_t& place,
                       const CommandRow& command, Options& options) {
    const std::string& name = arguments[place];
    const OptionRow* row = findOption(name);
    if (row == nullptr) return "unknown option " + quoted(name);
    if ((row->commands & (1u << static_cast<unsigned>(command.command))) == 0) {
        return name + " means nothing to " + quoted(command.name);
    }
    if (row->flag != nullptr) {
        options.*row->flag = true;
        return {};
    }
    if (place + 1 >= arguments.size()) return name + " needs a value";
    return storeValue(*row, arguments[++place], options);
}

// Takes the length off the front of the operands; the reason when it is none.
std::string takeSeconds(Options& options) {
    const std::string text = options.files.front();
    options.files.erase(options.files.begin());
    // Not-a-number fails every comparison.
    const double most = static_cast<double>(kMaxWavFrames) / kSampleRate;
    if (readDecimal(text, options.seconds) && options.seconds >= 0.0 && options.seconds <= most) return {};
    return "SECONDS is a decimal number from 0 to " + fixedText(std::floor(most), 0) + ", not " +
           quoted(text);
}

std::string readOperands(const CommandRow& command, const std::vector<std::string>& arguments,
                         Options& options) {
    bool optionsEnded = false;
    for (std::size_t place = 1; place < arguments.size(); ++place) {
        const std::string& word = arguments[place];
        if (!optionsEnded && word == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && word.size() > 1 && word[0] == '-') {
            std::string error = readOption(arguments, place, command, options);
            if (!error.empty()) return error;
        } else {
            options.files.push_back(word);
        }
    }
    if (options.files.size() != command.operandCount) {
        return std::string(command.name) + " takes " +
               (command.operands.empty() ? "no operands" : std::string(command.operands));
    }
    return command.takesSeconds ? takeSeconds(options) : std::string();
}

bool contains(const std::vector<std::string>& arguments, std::string_view word) {
    return std::find(arguments.begin(), arguments.end(), word) != arguments.end();
}

}  // namespace

ParsedArguments parseArguments(const std::vector<std::string>& arguments) {
    ParsedArguments parsed;
    if (contains(arguments, "--help")) return parsed;
    if (contains(arguments, "--version")) {
        parsed.options.command = Command::Version;
        return parsed;
    }
    if (arguments.empty()) {
        parsed.error = "no sub-command given";
        return parsed;
    }
    const CommandRow* command = findCommand(arguments[0]);
    if (command == nullptr) {
        parsed.error = "unknown sub-command " + quoted(arguments[0]);
        return parsed;
    }
    parsed.options.command = command->command;
    parsed.error = readOperands(*command, arguments, parsed.options);
    return parsed;
}

std::string helpText() {
    std::string text = "veloria-cli: the instrument without its window\n\nSub-commands:\n";
    const auto line = [&text](std::string left, std::string_view right) {
        left.resize(std::max<std::size_t>(left.size() + 2, 40), ' ');
        text += "  " + left + std::string(right) + "\n";
    };
    for (const CommandRow& row : kCommands)
        line(std::string(row.name) + " " + std::string(row.operands), row.help);
    text += "\nOptions (a default is the instrument's own):\n";
    for (const OptionRow& row : kOptions) {
        std::string left(row.name);
        if (!row.value.empty()) left += " " + std::string(row.value);
        std::string names;
        for (const CommandRow& command : kCommands) {
            if ((row.commands & (1u << static_cast<unsigned>(command.command))) == 0) continue;
            names += (names.empty() ? "" : ", ") + std::string(command.name);
        }
        line(left, std::string(row.help) + " (" + names + ")");
    }
    line("--help", "this text");
    line("--version", "the version");
    text += "\nExit status: 0 done, 1 input not read or output not written, 2 arguments off.\n";
    return text;
}

}  // namespace veloria::cli
