// The floating panel "SACRED GEOMETRY": the enneagram of the sounding notes, or a page of text on it.
#pragma once

#include <SDL.h>

#include <cstdint>

#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"
#include "views/shared/frame_snapshot.h"
#include "views/shared/research_page.h"

namespace veloria {

struct SacredState {
    bool sacredResearchMode = false;
    PageScroll sacredScroll;
};

// Nothing while the panel is closed. `spectrumPalette` colours the notes, `time` is the view clock,
// `backdrop` may be null. Main thread, as all below.
void drawSacredPanel(const DrawContext& context, const PanelState& panel, SacredState& state,
                     const FrameSnapshot& snapshot, std::int32_t spectrumPalette, float time,
                     SDL_Texture* backdrop);

// The "i" box of the title bar. True when the point lies on it.
bool sacredTitlePress(SacredState& state, const PanelLayout& panel, int x, int y);

// The wheel over the panel, positive away from the user: scrolls the page, where it is shown.
void sacredWheel(SacredState& state, int wheel);

}  // namespace veloria
