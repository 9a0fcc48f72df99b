// Numbers as text with a point, whatever the locale.
#pragma once

#include <string>

namespace veloria {

// `value` with `precision` (0 to 9) decimals, as "%.*f" writes it in the C locale; "nan" for
// not-a-number, whatever its sign.
[[nodiscard]] std::string fixedText(double value, int precision);

}  // namespace veloria
