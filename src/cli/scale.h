// veloria-cli scale: the 342 frequencies in the walker's order.
#pragma once

namespace veloria::cli {

// Prints the text that the window program dumps into a file; the exit status.
[[nodiscard]] int runScale();

}  // namespace veloria::cli
