// The operations behind the transport's buttons.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Installs the function objects of `app`. Each refers to `app`, which outlives them.
void installTransport(AppState& app);

}  // namespace veloria
