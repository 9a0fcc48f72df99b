#include <algorithm>
#include <string>

#include "cli/arguments.h"
#include "cli/option_values.h"

namespace veloria::cli {

std::string helpText() {
    std::string text = "veloria-cli: the instrument without its window\n\nSub-commands:\n";
    const auto line = [&text](std::string left, std::string_view right) {
        left.resize(std::max<std::size_t>(left.size() + 2, 40), ' ');
        text += "  " + left + std::string(right) + "\n";
    };
    for (const CommandRow& row : commandRows()) {
        line(std::string(row.name) + " " + std::string(row.operands), row.help);
        if (row.command == Command::Render) {
            line("render FILE... --out-dir DIR", "the same for many files, several at once");
        }
    }
    text += "\nOptions (a default is the instrument's own):\n";
    for (const OptionRow& row : optionRows()) {
        std::string left(row.name);
        if (row.value != Value::None) left += " " + valueSign(row);
        std::string names;
        for (const CommandRow& command : commandRows()) {
            if (!servesCommand(row, command.command)) continue;
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
