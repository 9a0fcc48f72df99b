// The sub-commands and options as tables: the parser and --help walk them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "cli/arguments.h"

namespace veloria::cli {

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

// A word that an option takes, and the number it stands for.
struct Word {
    std::string_view text;
    std::int32_t value;
};

// What an option's value may be.
enum class Value {
    None,    // the option is a switch
    Word,    // one of `words`
    Choice,  // one of the numbers `choices`; stored is its place
    Whole,   // a whole number from `low` to `high`
    Held,    // any whole number; what takes it holds it to `low` to `high`
    Text,    // any text but an empty one
};

struct OptionRow {
    std::string_view name;
    Value value;
    unsigned commands;                        // those it means something to
    std::string_view help;                    // --help sets the range or the choices behind it
    bool Options::*flag = nullptr;            // a switch sets this
    std::int32_t Options::*number = nullptr;  // a value goes here
    std::string Options::*text = nullptr;     // or here
    std::string_view sign{};                  // how --help calls a value that is no word
    std::span<const Word> words{};
    std::span<const double> choices{};
    std::int32_t low = 0;  // both ends are inside
    std::int32_t high = 0;
};

[[nodiscard]] std::span<const CommandRow> commandRows();
[[nodiscard]] std::span<const OptionRow> optionRows();

// True when the option means something to the sub-command.
[[nodiscard]] constexpr bool servesCommand(const OptionRow& row, Command command) {
    return (row.commands & (1u << static_cast<unsigned>(command))) != 0;
}

}  // namespace veloria::cli
