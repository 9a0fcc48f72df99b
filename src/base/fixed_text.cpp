#include "base/fixed_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace veloria {

std::string fixedText(double value, int precision) {
    // The sign of not-a-number means nothing, and depends on how the compiler ordered the operands.
    if (std::isnan(value)) return "nan";
    // Room for the largest double written out: 309 digits, a sign, a point and the decimals.
    std::array<char, 400> text;
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, precision);
    return {text.data(), result.ptr};
}

}  // namespace veloria
