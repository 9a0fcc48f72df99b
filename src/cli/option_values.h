// What stands behind an option on the command line.
#pragma once

#include <string>
#include <string_view>

#include "cli/option_table.h"

namespace veloria::cli {

// The text between the quotation marks of a message.
[[nodiscard]] std::string quoted(std::string_view text);

// Reads the whole of `text` as a decimal number; false when it is none or cannot be held.
[[nodiscard]] bool readDecimal(std::string_view text, double& number);

// "avatar|shadow"; the sign of a number; nothing for a switch.
[[nodiscard]] std::string valueSign(const OptionRow& row);

// What --help says of the values that `valueSign` does not show.
[[nodiscard]] std::string valueHelp(const OptionRow& row);

// Stores the option's value; the reason when it cannot be.
[[nodiscard]] std::string storeValue(const OptionRow& row, std::string_view text, Options& options);

}  // namespace veloria::cli
