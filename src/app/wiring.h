// The operations behind the transport's buttons.
#pragma once

#include "ui/app_state.h"

namespace veloria {

// Lets `app` sound on while a dialog stands. To be ended by stopSoundInDialogs before `app` goes.
void keepSoundInDialogs(AppState& app);
void stopSoundInDialogs();

// Installs the function objects of `app`. Each refers to `app`, which outlives them.
void installTransport(AppState& app);

}  // namespace veloria
