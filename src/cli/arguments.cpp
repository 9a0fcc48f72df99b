#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>
#include <string_view>

#include "base/fixed_text.h"
#include "engine/synth_engine.h"
#include "frequency/tables.h"
#include "media/wav_writer.h"
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

// What the first operand is.
enum class FirstOperand { File, Seconds, Coordinates };

struct CommandRow {
    Command command;
    std::string_view name;
    std::string_view operands;
    std::size_t operandCount;
    std::string_view help;
    FirstOperand first = FirstOperand::File;
};

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

constexpr std::array<std::string_view, 2> kCoordinates = {"tree", "tesla"};

// A word that an option takes, and the number it stands for.
struct Word {
    std::string_view text;
    std::int32_t value;
};

constexpr Word kTables[] = {{"avatar", 0}, {"shadow", 1}};
constexpr Word kWaveforms[] = {{"sine", 0}, {"saw", 1}, {"square", 2}, {"triangle", 3}};
constexpr Word kRetunerModes[] = {
    {"off", kModeOff}, {"full", kModeFull}, {"peak", kModePeak}, {"solfeggio", kModeSolfeggio}};
constexpr Word kActivations[] = {{"off", kActivationOff},
                                 {"heart", kActivationHeart},
                                 {"trinity", kActivationTrinity},
                                 {"fibonacci", kActivationFibonacci}};

// What an option's value may be.
enum class Value {
    None,    // the option is a switch
    Word,    // one of `words`
    Choice,  // one of the numbers `choices`; stored is its place
    Whole,   // a whole number from `low` to `high`
    Held,    // any whole number; what takes it holds it to `low` to `high`
};

struct OptionRow {
    std::string_view name;
    Value value;
    unsigned commands;                        // those it means something to
    std::string_view help;                    // --help sets the range or the choices behind it
    bool Options::*flag = nullptr;            // a switch sets this
    std::int32_t Options::*number = nullptr;  // a value goes here
    std::string_view sign{};                  // how --help calls a value that is a number
    std::span<const Word> words{};
    std::span<const double> choices{};
    std::int32_t low = 0;  // both ends are inside
    std::int32_t high = 0;
};

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
    {.name = "--quiet",
     .value = Value::None,
     .commands = kRender | kRecord | kWalk,
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

// "avatar|shadow"; the sign of a number; nothing for a switch.
std::string valueSign(const OptionRow& row) {
    std::string sign(row.sign);
    for (const Word& word : row.words)
        sign += (sign.empty() ? "" : "|") + std::string(word.text);
    return sign;
}

// "0 to 14".
std::string rangeText(const OptionRow& row) {
    return std::to_string(row.low) + " to " + std::to_string(row.high);
}

// "one of 147 174 258".
std::string choicesText(const OptionRow& row) {
    std::string text = "one of";
    for (const double choice : row.choices)
        text += " " + fixedText(choice, 0);
    return text;
}

// What --help says of the values that `valueSign` does not show.
std::string valueHelp(const OptionRow& row) {
    switch (row.value) {
        case Value::Choice:
            return ", " + choicesText(row);
        case Value::Whole:
            return ", " + rangeText(row);
        case Value::Held:
            return ", held to " + rangeText(row);
        case Value::None:
        case Value::Word:
            break;
    }
    return {};
}

std::string storeWord(const OptionRow& row, std::string_view text, Options& options) {
    const auto word =
        std::find_if(row.words.begin(), row.words.end(), [text](const Word& w) { return w.text == text; });
    if (word == row.words.end()) {
        return std::string(row.name) + " takes " + valueSign(row) + ", not " + quoted(text);
    }
    options.*row.number = word->value;
    return {};
}

std::string storeChoice(const OptionRow& row, std::string_view text, Options& options) {
    double number = 0.0;
    const bool read = readDecimal(text, number);
    const auto choice = std::find(row.choices.begin(), row.choices.end(), number);
    if (!read || choice == row.choices.end()) {
        return std::string(row.name) + " takes " + choicesText(row) + ", not " + quoted(text);
    }
    options.*row.number = static_cast<std::int32_t>(choice - row.choices.begin());
    return {};
}

std::string storeWhole(const OptionRow& row, std::string_view text, Options& options) {
    std::int32_t number = 0;
    if (!readWhole(text, number)) {
        return std::string(row.name) + " takes a whole number, not " + quoted(text);
    }
    if (row.value == Value::Whole && (number < row.low || number > row.high)) {
        return std::string(row.name) + " goes from " + rangeText(row) + ", not " + quoted(text);
    }
    options.*row.number = number;
    return {};
}

// Stores the option's value; the reason when it cannot be.
std::string storeValue(const OptionRow& row, std::string_view text, Options& options) {
    if (row.value == Value::Word) return storeWord(row, text, options);
    if (row.value == Value::Choice) return storeChoice(row, text, options);
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
    if (row->value == Value::None) {
        options.*row->flag = true;
        return {};
    }
    if (place + 1 >= arguments.size()) return name + " needs a value";
    return storeValue(*row, arguments[++place], options);
}

std::string readSeconds(const std::string& text, Options& options) {
    // Not-a-number fails every comparison.
    const double most = static_cast<double>(kMaxWavFrames) / kSampleRate;
    if (readDecimal(text, options.seconds) && options.seconds >= 0.0 && options.seconds <= most) return {};
    return "SECONDS is a decimal number from 0 to " + fixedText(std::floor(most), 0) + ", not " +
           quoted(text);
}

std::string readCoordinates(const std::string& text, Options& options) {
    const auto word = std::find(kCoordinates.begin(), kCoordinates.end(), text);
    if (word == kCoordinates.end()) return "the coordinates are tree or tesla, not " + quoted(text);
    options.teslaCoordinates = word != kCoordinates.begin();
    return {};
}

// Takes a first operand that is no file off the others; the reason when it is off.
std::string takeFirstOperand(FirstOperand kind, Options& options) {
    if (kind == FirstOperand::File) return {};
    const std::string text = options.files.front();
    options.files.erase(options.files.begin());
    return kind == FirstOperand::Seconds ? readSeconds(text, options) : readCoordinates(text, options);
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
    return takeFirstOperand(command.first, options);
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
        if (row.value != Value::None) left += " " + valueSign(row);
        std::string names;
        for (const CommandRow& command : kCommands) {
            if ((row.commands & (1u << static_cast<unsigned>(command.command))) == 0) continue;
            names += (names.empty() ? "" : ", ") + std::string(command.name);
        }
        line(left, std::string(row.help) + valueHelp(row) + " (" + names + ")");
    }
    line("--help", "this text");
    line("--version", "the version");
    text += "\nExit status: 0 done, 1 input not read or output not written, 2 arguments off.\n";
    return text;
}

}  // namespace veloria::cli
