// What a frequency is called: its digital root and its brain-wave band.
#pragma once

#include <cstdint>

namespace veloria {

// The digital root of the whole part of `hz`: n mod 9, with 9 in place of 0, so 0 gives 9 as well, and so
// does what is not finite or too large to have a last digit.
[[nodiscard]] std::int32_t digitalRoot(double hz);

// "Delta" to 4 Hz, "Theta" to 8, "Alpha" to 13, "Beta" to 30, "Gamma" above, each bound in the lower band;
// empty for 0 and below.
[[nodiscard]] const char* bandName(float hz);

}  // namespace veloria
