#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "base/fixed_text.h"
#include "cli/option_values.h"
#include "engine/synth_engine.h"
#include "media/wav_writer.h"

namespace veloria::cli {

namespace {

constexpr std::array<std::string_view, 2> kCoordinates = {"tree", "tesla"};

const CommandRow* findCommand(std::string_view name) {
    const auto rows = commandRows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [name](const CommandRow& r) { return r.name == name; });
    return row == rows.end() ? nullptr : &*row;
}

const OptionRow* findOption(std::string_view name) {
    const auto rows = optionRows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [name](const OptionRow& r) { return r.name == name; });
    return row == rows.end() ? nullptr : &*row;
}

// Carries out the option at arguments[place] and moves `place` to its last word; the reason when it is off.
std::string readOption(const std::vector<std::string>& arguments, std::size_t& place,
                       const CommandRow& command, Options& options) {
    const std::string& name = arguments[place];
    const OptionRow* row = findOption(name);
    if (row == nullptr) return "unknown option " + quoted(name);
    if (!servesCommand(*row, command.command)) {
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
    if (!options.outDir.empty()) return options.files.empty() ? "--out-dir needs a FILE to render" : "";
    if (options.jobs != 0) return "--jobs means nothing without --out-dir";
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

}  // namespace veloria::cli
