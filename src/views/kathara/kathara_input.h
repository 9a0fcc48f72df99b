// What the pointer does to the Kathara scene and its controls, in either host. Main thread.
#pragma once

#include <SDL.h>

#include "toolkit/panel_frame.h"
#include "views/kathara/kathara_host.h"

namespace veloria {

// Each takes the host's layout as drawn. A left press inside the main view or the panel's body: true when a
// control or the scene has it.
bool katharaPress(KatharaState& state, const KatharaLayout& layout, int x, int y);

// The layout of the host in which the drag began; true while there is one, and the motion is taken.
bool katharaMotion(KatharaState& state, const KatharaLayout& layout, int x, int y);

// A left release ends all drags. It is nobody's alone and never taken.
void katharaRelease(KatharaState& state);

// The wheel over a host, positive away from the user: the zoom, or the page in research mode.
void katharaWheel(KatharaState& state, KatharaHost host, int wheel);

// The "i" box of the panel's title bar. True when the point lies on it.
bool katharaTitlePress(KatharaState& state, const PanelLayout& panel, int x, int y);

[[nodiscard]] bool isKatharaHeld(const KatharaState& state);

}  // namespace veloria
