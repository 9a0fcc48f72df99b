// The oscilloscope panel, and the list of sounding voices on the "VOICES" tab.
#pragma once

#include <SDL.h>

#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"
#include "views/shared/frame_snapshot.h"

namespace veloria {

struct ScopeState {
    float scopeCentre = 0.5f;  // 0 to 1, the place of the zero line in the body's height
};

// What one drawing goes by.
struct ScopeLayout {
    SDL_Rect body{};     // all is clipped to it
    float zeroLine = 0;  // y in pixels; samples count from here, and whole pixels are cut from the sum
};
[[nodiscard]] ScopeLayout scopeLayout(const ScopeState& state, const SDL_Rect& body);

// The trace of all sound in `body`, a sample a column. It ends at the right edge with the oldest sample but
// one and runs backwards in time from left to right; a body wider than the ring repeats it. Positive samples
// point down. Main thread, as all below.
void drawScope(const DrawContext& context, const ScopeState& state, const SDL_Rect& body,
               const ScopeBuffer& scope);

// The floating panel "SCOPE  [Oscilloscope]" with the trace in it; nothing while it is closed. The panel
// has no control of its own: its input is that of the common frame.
void drawScopePanel(const DrawContext& context, const PanelState& panel, const ScopeState& state,
                    const FrameSnapshot& snapshot);

// "Voices: 3 / 256" and below it a row for each of the first twelve channels that sound, from (x, y) in
// pixels; 250 high in all. It takes no input.
void drawVoices(const DrawContext& context, int x, int y, const FrameSnapshot& snapshot);
// How much of that height its rows take, pixels.
[[nodiscard]] int voiceListHeight(const FrameSnapshot& snapshot);

}  // namespace veloria
