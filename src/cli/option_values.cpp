#include "cli/option_values.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "base/fixed_text.h"

namespace veloria::cli {

namespace {

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

std::string storeText(const OptionRow& row, std::string_view text, Options& options) {
    if (text.empty()) return std::string(row.name) + " takes a " + std::string(row.sign);
    options.*row.text = text;
    return {};
}

}  // namespace

std::string quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

bool readDecimal(std::string_view text, double& number) {
    const char* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc{} && stop == end;
}

std::string valueSign(const OptionRow& row) {
    std::string sign(row.sign);
    for (const Word& word : row.words)
        sign += (sign.empty() ? "" : "|") + std::string(word.text);
    return sign;
}

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
        case Value::Text:
            break;
    }
    return {};
}

std::string storeValue(const OptionRow& row, std::string_view text, Options& options) {
    switch (row.value) {
        case Value::Word:
            return storeWord(row, text, options);
        case Value::Choice:
            return storeChoice(row, text, options);
        case Value::Whole:
        case Value::Held:
            return storeWhole(row, text, options);
        case Value::Text:
            return storeText(row, text, options);
        case Value::None:
            break;
    }
    return {};
}

}  // namespace veloria::cli
