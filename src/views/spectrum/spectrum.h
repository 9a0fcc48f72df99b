// The panel "SPECTRUM 3D": what sounds as a landscape in false perspective. It takes no input but that of the
// common frame. Main thread.
#pragma once

#include <SDL.h>

#include <cstdint>

#include "toolkit/draw_context.h"
#include "toolkit/panel_frame.h"
#include "views/shared/frame_snapshot.h"
#include "views/spectrum/spectrum_grid.h"
#include "views/spectrum/spectrum_layout.h"
#include "views/spectrum/spectrum_pixels.h"
#include "views/spectrum/spectrum_shapes.h"

namespace veloria {

// All of it is made anew in each frame; the record only keeps the memory. Large: not for the stack of a call.
struct SpectrumState {
    SpectrumGrid grid;
    SpectrumShapes shapes;
    SpectrumScratch scratch;
};

// The landscape of `state.grid` in a body that the caller has clipped. `time` in seconds of the views' clock.
void drawSpectrum(const DrawContext& context, const SDL_Rect& body, SpectrumState& state, float time);

// "SPECTRUM 3D  [Avatar]" for palette 0, else "SPECTRUM 3D  [Chakra]".
[[nodiscard]] const char* spectrumTitle(std::int32_t spectrumPalette);

// The floating panel with the landscape of the snapshot's notes; nothing while it is closed.
void drawSpectrumPanel(const DrawContext& context, const PanelState& panel, SpectrumState& state,
                       const FrameSnapshot& snapshot, std::int32_t spectrumPalette, float time);

}  // namespace veloria
